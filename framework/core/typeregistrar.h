#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class AugmentableRegistrar;
class ItemType;
class TypeRegistrarPrivate;
class ViewItem;

// Item types by identifier, class name and scope. Registered types belong to the registrar
// until unregisterType hands one back; deallocateAll deletes them.
class VELMORA_FRAMEWORK_EXPORT TypeRegistrar : public QObject
{
    Q_OBJECT

public:
    // widgetParent (borrowed) parents the dialogs and editors the types create.
    explicit TypeRegistrar(QWidget *widgetParent = nullptr);
    ~TypeRegistrar() override;

    // False for a null type or an empty id. A type registered under the same id before is
    // replaced (with a warning) and stays alive. An empty scope registers in no scope.
    bool registerType(ItemType *type, const QString &scope = QString());
    // The removed type, which the caller now owns; null (with a warning) when unknown.
    ItemType *unregisterType(const QString &id);
    bool isRegistered(const QString &id) const;
    ItemType *lookup(const QString &id) const;
    ItemType *lookupByClassName(const QString &className) const;
    QString lookupId(const QString &className) const;
    QString scope(const QString &id) const;
    // The types, of scope or of all when it is empty, that implement iid or are of that class.
    // In no particular order.
    QList<ItemType *> findAll(const QString &iid, const QString &scope) const;
    // A new detached item of the type; the caller owns it. Null for an unknown id.
    ViewItem *createItem(const QString &id, const QString &name, QObject *parent = nullptr) const;
    // Unregisters and deletes every type.
    void deallocateAll();

    void associate(AugmentableRegistrar *registrar);
    AugmentableRegistrar *augmentRegistrar() const;
    QWidget *widgetParent() const;

Q_SIGNALS:
    void typeRegistered(const QString &id);
    void typeUnregistered(const QString &id);
    void propertyWindowRequested();

private:
    std::unique_ptr<TypeRegistrarPrivate> const d;
};

} // namespace Velmora::Framework
