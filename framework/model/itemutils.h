#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qabstractitemmodel.h>
#include <QtCore/qlist.h>
#include <QtCore/qmap.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

class ItemType;
class ViewItem;

// Turns selections and model indexes into node lists and groups nodes by type.
class VELMORA_FRAMEWORK_EXPORT ItemUtils
{
public:
    // The selection of item's model, or item alone when detached; empty for null.
    static QList<ViewItem *> getSelectedItems(const ViewItem *item);
    static QList<ViewItem *> getItemsFromIndexes(const QModelIndexList &indexes);
    // Drops every node that has an ancestor in the same list; keeps the order.
    static QList<ViewItem *> getSelectionWithoutChildren(const QList<ViewItem *> &items);
    // Whether item's type is of the named class or derives from it.
    static bool isType(const ViewItem *item, const QString &className);
    static QList<ViewItem *> getSelectedItemsInheritFrom(const QList<ViewItem *> &items,
                                                         const QString &className);
    // The nodes whose type has any bit of flags in its property named key.
    static QList<ViewItem *> getSelectedItemsHaving(const QList<ViewItem *> &items,
                                                    const QString &key, unsigned int flags);
    // The most derived type class all the nodes' types share; empty when none.
    static QString getCommonBaseType(const QList<ViewItem *> &items);
    static QMultiMap<ItemType *, ViewItem *> collateItemTypes(const QList<ViewItem *> &items);
};

} // namespace Velmora::Framework
