#include "types/typecompaniongeneric.h"

#include "model/itemdata.h"
#include "model/viewitem.h"
#include "types/itemtype.h"
#include "types/itemtypefile.h"
#include "types/typecompanionfile.h"

namespace Velmora::Framework {

TypeCompanionGeneric::TypeCompanionGeneric(QObject *parent)
    : DefaultGenericAugmentable(parent)
{
}

TypeCompanionGeneric::~TypeCompanionGeneric() = default;

bool TypeCompanionGeneric::mark_dirty(const QList<ViewItem *> &items, const QVariant &)
{
    for (ViewItem *item : items) {
        ItemType *type = item ? item->getType() : nullptr;
        if (!type || !(type->qt_metacast(Iid::ITypeProject) || type->qt_metacast(Iid::ITypeSolution)))
            continue;
        if (ItemData *data = item->getItemData())
            data->setDirty(true);
    }
    return true;
}

bool TypeCompanionGeneric::afterAddNew(const QList<ViewItem *> &items, const QVariant &argument)
{
    return mark_dirty(items, argument);
}

bool TypeCompanionGeneric::afterAddExisting(const QList<ViewItem *> &items, const QVariant &)
{
    bool changed = true;
    for (ViewItem *item : items) {
        if (item && qobject_cast<ItemTypeFile *>(item->getType()))
            changed = TypeCompanionFile::change_dir(item->getItemPath()) && changed;
    }
    return changed;
}

bool TypeCompanionGeneric::afterRename(const QList<ViewItem *> &items, const QVariant &argument)
{
    return mark_dirty(items, argument);
}

bool TypeCompanionGeneric::afterCopy(const QList<ViewItem *> &items, const QVariant &argument)
{
    return mark_dirty(items, argument);
}

bool TypeCompanionGeneric::afterCut(const QList<ViewItem *> &items, const QVariant &argument)
{
    return mark_dirty(items, argument);
}

bool TypeCompanionGeneric::beforeRemove(const QList<ViewItem *> &items, const QVariant &)
{
    return TypeCompanionFile::close_items(items);
}

bool TypeCompanionGeneric::afterPaste(const QList<ViewItem *> &items, const QVariant &argument)
{
    return mark_dirty(items, argument);
}

} // namespace Velmora::Framework
