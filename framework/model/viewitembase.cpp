#include "model/viewitembase.h"

#include "core/logging_p.h"
#include "model/viewitembase_p.h"

#include <QtCore/qmetaobject.h>

namespace Velmora::Framework {

namespace {
// The number of properties ViewItemBase itself declares, learnt from the first node.
int s_property_count = -1;
} // namespace

ViewItemBase::ViewItemBase(ItemType *type)
    : ViewItemBase(type, QString())
{
}

ViewItemBase::ViewItemBase(ItemType *type, const QString &name)
    : ViewItemBase(*new ViewItemBasePrivate, type, name)
{
}

ViewItemBase::ViewItemBase(ViewItemBasePrivate &dd, ItemType *type, const QString &name)
    : d(&dd)
{
    d->type = type;
    d->itemName = name;
    if (s_property_count < 0) {
        const QMetaObject *meta = &ViewItemBase::staticMetaObject;
        if (!meta)
            qCWarning(Internal::lcModel,
                      "ViewItemBase: invalid meta object pointer. Something is very wrong!");
        else
            s_property_count = meta->propertyCount() - meta->propertyOffset();
    }
}

ViewItemBase::~ViewItemBase()
{
    // A derived node that took its private part back has disposed of the payload too.
    if (d)
        delete d->itemData.data();
}

ItemType *ViewItemBase::getType() const
{
    return d->type.data();
}

void ViewItemBase::setType(ItemType *type)
{
    d->type = type;
}

QString ViewItemBase::getItemName() const
{
    return d->itemName;
}

void ViewItemBase::setItemName(const QString &name)
{
    d->itemName = name;
}

QString ViewItemBase::getItemPath() const
{
    return d->itemPath;
}

void ViewItemBase::setItemPath(const QString &path)
{
    d->itemPath = path;
}

int ViewItemBase::getItemValue() const
{
    return d->itemValue;
}

void ViewItemBase::setItemValue(int value)
{
    d->itemValue = value;
}

ItemData *ViewItemBase::getItemData() const
{
    return d->itemData.data();
}

void ViewItemBase::setItemData(ItemData *data)
{
    d->itemData = data;
}

QString ViewItemBase::getDispName() const
{
    ItemType *type = d->type.data();
    return type ? type->composeItemDispName(const_cast<ViewItemBase *>(this)) : QString();
}

void ViewItemBase::reset()
{
    if (ItemData *data = d->itemData.data())
        data->reset();
    d->itemPath.clear();
    if (ItemType *type = d->type.data())
        d->itemName = type->getDefaultName();
}

} // namespace Velmora::Framework
