#include "model/itemutils.h"

#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itemtype.h"

#include <QtCore/qset.h>

namespace Velmora::Framework {

QList<ViewItem *> ItemUtils::getSelectedItems(const ViewItem *item)
{
    if (!item)
        return {};
    if (ViewModel *model = item->viewModel())
        return model->selectedItems();
    return {const_cast<ViewItem *>(item)};
}

QList<ViewItem *> ItemUtils::getItemsFromIndexes(const QModelIndexList &indexes)
{
    QList<ViewItem *> items;
    items.reserve(indexes.size());
    for (const QModelIndex &index : indexes)
        items.append(static_cast<ViewItem *>(index.internalPointer()));
    return items;
}

QList<ViewItem *> ItemUtils::getSelectionWithoutChildren(const QList<ViewItem *> &items)
{
    // A set keeps this linear in the selection times the depth.
    const QSet<const ViewItem *> listed(items.cbegin(), items.cend());
    QList<ViewItem *> result;
    for (ViewItem *item : items) {
        bool ancestorListed = false;
        for (const ViewItem *up = item ? item->getParentItem() : nullptr; up && !ancestorListed;
             up = up->getParentItem()) {
            ancestorListed = listed.contains(up);
        }
        if (!ancestorListed)
            result.append(item);
    }
    return result;
}

bool ItemUtils::isType(const ViewItem *item, const QString &className)
{
    ItemType *type = item ? item->getType() : nullptr;
    return type && type->qt_metacast(className.toUtf8().constData());
}

QList<ViewItem *> ItemUtils::getSelectedItemsInheritFrom(const QList<ViewItem *> &items,
                                                         const QString &className)
{
    const QByteArray name = className.toUtf8();
    QList<ViewItem *> result;
    for (ViewItem *item : items) {
        ItemType *type = item ? item->getType() : nullptr;
        if (type && type->inherits(name.constData()))
            result.append(item);
    }
    return result;
}

QList<ViewItem *> ItemUtils::getSelectedItemsHaving(const QList<ViewItem *> &items,
                                                    const QString &key, unsigned int flags)
{
    QList<ViewItem *> result;
    for (ViewItem *item : items) {
        ItemType *type = item ? item->getType() : nullptr;
        if (type && type->isSet(key, flags))
            result.append(item);
    }
    return result;
}

QString ItemUtils::getCommonBaseType(const QList<ViewItem *> &items)
{
    QStringList chain;
    bool first = true;
    for (const ViewItem *item : items) {
        ItemType *type = item ? item->getType() : nullptr;
        if (!type)
            return QString();
        if (first) {
            chain = type->baseTypes();
            first = false;
            continue;
        }
        const QString common = type->commonBaseType(chain);
        if (common.isEmpty())
            return QString();
        // What both share is the common class and everything above it.
        chain = chain.mid(chain.indexOf(common));
    }
    return chain.value(0);
}

QMultiMap<ItemType *, ViewItem *> ItemUtils::collateItemTypes(const QList<ViewItem *> &items)
{
    QMultiMap<ItemType *, ViewItem *> result;
    for (ViewItem *item : items) {
        if (ItemType *type = item ? item->getType() : nullptr)
            result.insert(type, item);
    }
    return result;
}

} // namespace Velmora::Framework
