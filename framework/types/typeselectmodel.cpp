#include "types/typeselectmodel.h"

#include "types/itemtype.h"

#include <QtGui/qicon.h>

namespace Velmora::Framework {

class TypeSelectModelPrivate
{
public:
    QList<ItemType *> types;
};

TypeSelectModel::TypeSelectModel(const QList<ItemType *> &types, QObject *parent)
    : QAbstractListModel(parent)
    , d(std::make_unique<TypeSelectModelPrivate>())
{
    d->types = types;
}

TypeSelectModel::~TypeSelectModel() = default;

int TypeSelectModel::rowCount(const QModelIndex &parent) const
{
    // A flat list: only the invisible root has rows.
    return parent.isValid() ? 0 : int(d->types.size());
}

QVariant TypeSelectModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    Q_ASSERT(checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid));
    ItemType *type = typeAt(index);
    if (!type)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return type->getDescription();
    case Qt::DecorationRole:
        if (index.column() == 0)
            return type->getIcon(nullptr, 0);
        break;
    default:
        break;
    }
    return QVariant();
}

ItemType *TypeSelectModel::typeAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this || index.column() != 0)
        return nullptr;
    return typeAt(index.row());
}

ItemType *TypeSelectModel::typeAt(int row) const
{
    return row >= 0 && row < d->types.size() ? d->types.at(row) : nullptr;
}

QList<ItemType *> TypeSelectModel::types() const
{
    return d->types;
}

} // namespace Velmora::Framework
