#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qabstractitemmodel.h>
#include <QtCore/qlist.h>

#include <memory>

namespace Velmora::Framework {

class ItemType;
class TypeSelectModelPrivate;

// A read-only list of item types for the add-new dialogs: the description as text, the
// type's icon as decoration. The types are borrowed.
class VELMORA_FRAMEWORK_EXPORT TypeSelectModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit TypeSelectModel(const QList<ItemType *> &types, QObject *parent = nullptr);
    ~TypeSelectModel() override;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    // Null for an invalid index, an index of another model or a row out of range.
    ItemType *typeAt(const QModelIndex &index) const;
    ItemType *typeAt(int row) const;
    QList<ItemType *> types() const;

private:
    std::unique_ptr<TypeSelectModelPrivate> const d;
};

} // namespace Velmora::Framework
