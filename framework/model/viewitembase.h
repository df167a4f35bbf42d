#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>
#include <QtCore/qpointer.h>
#include <QtCore/qstring.h>

#include <memory>

namespace Velmora::Framework {

class ItemData;
class ItemType;
class ViewItemBasePrivate;

// A node's identity: its type, name, path, payload and a free integer. Nodes have no Qt
// parent object; their tree owns them.
class VELMORA_FRAMEWORK_EXPORT ViewItemBase : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString itemName READ getItemName WRITE setItemName)

public:
    ~ViewItemBase() override;

    // Null once the type object is gone.
    ItemType *getType() const;
    QString getItemName() const;
    void setItemName(const QString &name);
    QString getItemPath() const;
    void setItemPath(const QString &path);
    int getItemValue() const;
    void setItemValue(int value);
    // The payload, owned by the node; null when there is none.
    virtual ItemData *getItemData() const;
    // The text views show, always composed by the type.
    QString getDispName() const;
    // Resets the payload, clears the path and takes the type's default name.
    void reset();

protected:
    explicit ViewItemBase(ItemType *type);
    ViewItemBase(ItemType *type, const QString &name);
    // Takes dd, a derived node's extension of the private part; that node's destructor takes
    // it back (see ViewItem).
    ViewItemBase(ViewItemBasePrivate &dd, ItemType *type, const QString &name);
    void setType(ItemType *type);

    std::unique_ptr<ViewItemBasePrivate> d;

private:
    friend class ItemType;
    // Replaces the pointer; the previous payload is the caller's to dispose of.
    void setItemData(ItemData *data);
};

} // namespace Velmora::Framework
