#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qabstractitemmodel.h>

#include <memory>

namespace Velmora::Framework {

class PropertyModelPrivate;
class ViewItem;

// The property bag of one item as a two-column tree (property, value). Lists, maps, hashes,
// size policies and flags open into sub-properties; editing one writes the whole value back
// into the bag. Changes made to the bag elsewhere show at once.
class VELMORA_FRAMEWORK_EXPORT PropertyModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { NameColumn, ValueColumn };

    explicit PropertyModel(QObject *parent = nullptr);
    ~PropertyModel() override;

    // Borrowed; the model lets go when the item or its bag is destroyed. Null shows nothing.
    void setItem(ViewItem *item);
    ViewItem *item() const;
    // The bag key of the property at index, for sub-properties the top-level one.
    QString keyOf(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    // The value column answers the value itself for the edit role (a cursor as its shape).
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

public Q_SLOTS:
    // Reads the whole bag again, e.g. after a property was removed (which the bag does not
    // announce).
    void reload();

Q_SIGNALS:
    // A value was written into the bag from here.
    void propertyChanged(const QString &key);

private:
    friend class PropertyModelPrivate;
    std::unique_ptr<PropertyModelPrivate> const d;
};

} // namespace Velmora::Framework
