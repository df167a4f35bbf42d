#pragma once

// The state of ItemType, shared by its sources: itemtype.cpp (identity, child rules, items,
// menus), itemtypefactories.cpp (editor and previewer tables) and itemtypeoperations.cpp
// (the item operations and their augmentation protocol).

#include "core/lazyicon.h"
#include "types/itemtype.h"

#include <QtCore/qmap.h>
#include <QtCore/qmutex.h>
#include <QtCore/qpointer.h>
#include <QtCore/qsignalmapper.h>
#include <QtGui/qaction.h>
#include <QtGui/qicon.h>
#include <QtWidgets/qmenu.h>

#include <atomic>
#include <optional>

namespace Velmora::Framework {

class ItemTypePrivate
{
public:
    explicit ItemTypePrivate(ItemType *type)
        : genericHandler(type)
    {
    }

    void invalidateChildTypes()
    {
        QMutexLocker locker(&typeLock);
        childTypesCache.reset();
    }

    // Called with typeLock held after childTypes changed.
    void childTypesChanged()
    {
        childTypesCache.reset();
        hasChildTypes.store(!childTypes.isEmpty(), std::memory_order_release);
    }

    QIcon icon;
    ItemType::GenericActionHandler genericHandler;
    QPointer<TypeRegistrar> registrar;
    QList<OrderedItem *> menuItems;
    QMap<QString, ItemType::ChildType *> childTypes;
    QMap<QString, ItemType::ExcludedType *> excludedTypes;
    ItemType::DefMenus defMenus = ItemType::DefMenus::fromInt(0xFFF);
    QPointer<ViewItem> contextItem;
    ItemPropertySheet *propertySheet = nullptr;
    // Recursive: subclass overrides call back into the base while holding them.
    mutable QRecursiveMutex menuLock;
    mutable QRecursiveMutex typeLock;
    // What childTypes() answered last; reset whenever the registry or the tables change.
    mutable std::optional<QList<ItemType *>> childTypesCache;
    // Whether childTypes is not empty, kept with every change of it.
    std::atomic<bool> hasChildTypes{false};
    // Set by the first mandatory child ever named, so that making a node of a type without
    // any skips the lock.
    std::atomic<bool> mayHaveMandatoryChildren{false};
    ItemType::ItemTypeAttributes attributes = ItemType::ItemTypeAttributes::fromInt(0x63);
    QMap<QString, IEditorFactory *> editorFactories;
    QMap<QString, QAction *> editorActions;
    QString defaultEditorId;
    QPointer<QMenu> editWithMenu;
    QPointer<QAction> editAction;
    QSignalMapper editorMapper;
    QMap<ViewItem *, ItemPropertyBag *> propertyBags;
    QMap<QString, IPreviewerFactory *> previewerFactories;
    QMap<QString, QAction *> previewerActions;
    QString defaultPreviewerId;
    QAction *propertiesAction = nullptr;
};

// Gives a menu action its icon (none for an empty path), tool tip and status tip.
inline QAction *describeAction(QAction *action, const QString &icon, const QString &toolTip,
                               const QString &statusTip)
{
    if (!icon.isEmpty())
        action->setIcon(lazyIcon(icon));
    action->setToolTip(toolTip);
    action->setStatusTip(statusTip);
    return action;
}

} // namespace Velmora::Framework
