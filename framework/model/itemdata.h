#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>
#include <QtCore/qpair.h>
#include <QtCore/qstring.h>

#include <memory>

namespace Velmora::Framework {

class ItemDataPrivate;

// Per-node payload made by an item type: whether the node's content is loaded and whether it
// changed since. Item types derive from it for their own per-node state. It has no Qt parent:
// the node that carries it deletes it.
class VELMORA_FRAMEWORK_EXPORT ItemData : public QObject
{
    Q_OBJECT

public:
    // The creation context is borrowed; it reads as null once that object is destroyed.
    explicit ItemData(QObject *creationContext);
    ~ItemData() override;

    bool isLoaded() const;
    void setLoaded(bool loaded);
    bool isDirty() const;
    void setDirty(bool dirty);
    QObject *getCreationContext() const;

    // The subclass's own state block for callers that know the concrete type; null here.
    virtual void *getInstanceData() const;
    // Neither loaded nor dirty.
    virtual void reset();
    // Append (property key, display name) pairs for the properties the payload exposes.
    virtual void constructPropertyDisplayNames(QList<QPair<QString, QString>> &names);
    // Append (property key, tool tip) pairs.
    virtual void constructPropertyTooltips(QList<QPair<QString, QString>> &tooltips);

private:
    std::unique_ptr<ItemDataPrivate> const d;
};

// Payload of a project node; a class of its own so that qobject_cast tells it apart.
class VELMORA_FRAMEWORK_EXPORT ItemDataProject : public ItemData
{
    Q_OBJECT

public:
    explicit ItemDataProject(QObject *creationContext);
    ~ItemDataProject() override;
};

// Payload of the solution node.
class VELMORA_FRAMEWORK_EXPORT ItemDataSolution : public ItemData
{
    Q_OBJECT

public:
    explicit ItemDataSolution(QObject *creationContext);
    ~ItemDataSolution() override;
};

} // namespace Velmora::Framework
