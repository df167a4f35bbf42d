#include "views/propertymodel.h"

#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/viewitem.h"
#include "views/propertyvalues.h"

#include <QtCore/qpointer.h>
#include <QtGui/qcolor.h>
#include <QtGui/qcursor.h>

#include <memory>
#include <vector>

namespace Velmora::Framework {

using Internal::PropertyValues;

namespace {
struct Node
{
    QString key;   // the bag key, for top-level rows
    QString label; // the text in the name column
    QString toolTip;
    int row = 0;
    Node *parent = nullptr;
    std::vector<std::unique_ptr<Node>> children;
};

// Types the delegate has an editor for; other values are shown only.
bool editable(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::QColor:
    case QMetaType::QFont:
    case QMetaType::QPoint:
    case QMetaType::QSize:
    case QMetaType::QRect:
    case QMetaType::QCursor:
        return true;
    default:
        return PropertyValues::metaEnum(value.metaType()).isValid()
               && PropertyValues::kind(value) == PropertyValues::Leaf;
    }
}
} // namespace

class PropertyModelPrivate
{
public:
    explicit PropertyModelPrivate(PropertyModel *model)
        : q(model)
    {
    }

    Node *node(const QModelIndex &index) const
    {
        return index.isValid() ? static_cast<Node *>(index.internalPointer()) : root.get();
    }
    QVariant value(const Node *node) const
    {
        if (!node->parent || !bag)
            return QVariant();
        if (node->parent == root.get())
            return bag->propertyMap().value(node->key);
        return PropertyValues::component(value(node->parent), node->row);
    }
    void write(Node *node, const QVariant &value);
    void build(Node *node, const QVariant &value);
    void rebuild();
    bool sameShape(const Node *node, const QVariant &value) const;
    void announce(Node *node);
    void bagSet(const QString &key);

    PropertyModel *q;
    QPointer<ViewItem> item;
    QPointer<ItemPropertyBag> bag;
    std::unique_ptr<Node> root = std::make_unique<Node>();
    bool writing = false;
};

void PropertyModelPrivate::write(Node *node, const QVariant &value)
{
    if (node->parent != root.get()) {
        write(node->parent, PropertyValues::withComponent(this->value(node->parent), node->row,
                                                          value));
        return;
    }
    writing = true;
    bag->set(node->key, value);
    writing = false;
    emit q->propertyChanged(node->key);
}

void PropertyModelPrivate::build(Node *node, const QVariant &value)
{
    node->children.clear();
    const QStringList labels = PropertyValues::componentLabels(value);
    for (int at = 0; at < labels.size(); ++at) {
        auto child = std::make_unique<Node>();
        child->label = labels.at(at);
        child->row = at;
        child->parent = node;
        build(child.get(), PropertyValues::component(value, at));
        node->children.push_back(std::move(child));
    }
}

void PropertyModelPrivate::rebuild()
{
    q->beginResetModel();
    root = std::make_unique<Node>();
    if (bag) {
        QMap<QString, QString> names;
        QMap<QString, QString> tips;
        if (ItemData *data = item ? item->getItemData() : nullptr) {
            QList<QPair<QString, QString>> pairs;
            data->constructPropertyDisplayNames(pairs);
            for (const auto &pair : std::as_const(pairs))
                names.insert(pair.first, pair.second);
            pairs.clear();
            data->constructPropertyTooltips(pairs);
            for (const auto &pair : std::as_const(pairs))
                tips.insert(pair.first, pair.second);
        }
        const QMap<QString, QVariant> &properties = bag->propertyMap();
        for (auto it = properties.cbegin(); it != properties.cend(); ++it) {
            auto node = std::make_unique<Node>();
            node->key = it.key();
            node->label = names.value(it.key(), it.key());
            node->toolTip = tips.value(it.key());
            node->row = int(root->children.size());
            node->parent = root.get();
            build(node.get(), it.value());
            root->children.push_back(std::move(node));
        }
    }
    q->endResetModel();
}

bool PropertyModelPrivate::sameShape(const Node *node, const QVariant &value) const
{
    const QStringList labels = PropertyValues::componentLabels(value);
    if (labels.size() != int(node->children.size()))
        return false;
    for (int at = 0; at < labels.size(); ++at) {
        const Node *child = node->children.at(at).get();
        if (child->label != labels.at(at)
            || !sameShape(child, PropertyValues::component(value, at))) {
            return false;
        }
    }
    return true;
}

void PropertyModelPrivate::announce(Node *node)
{
    const QModelIndex first = q->createIndex(node->row, PropertyModel::NameColumn, node);
    const QModelIndex last = q->createIndex(node->row, PropertyModel::ValueColumn, node);
    emit q->dataChanged(first, last);
    for (const auto &child : node->children)
        announce(child.get());
}

void PropertyModelPrivate::bagSet(const QString &key)
{
    for (const auto &node : root->children) {
        if (node->key != key)
            continue;
        // Edits made here keep the shape; a list that grew elsewhere needs new rows.
        if (writing || sameShape(node.get(), bag->propertyMap().value(key)))
            announce(node.get());
        else
            rebuild();
        return;
    }
    rebuild();
}

PropertyModel::PropertyModel(QObject *parent)
    : QAbstractItemModel(parent)
    , d(new PropertyModelPrivate(this))
{
}

PropertyModel::~PropertyModel()
{
    if (d->bag)
        disconnect(d->bag.data(), nullptr, this, nullptr);
    if (d->item)
        disconnect(d->item.data(), nullptr, this, nullptr);
}

void PropertyModel::setItem(ViewItem *item)
{
    if (d->bag)
        disconnect(d->bag.data(), nullptr, this, nullptr);
    if (d->item)
        disconnect(d->item.data(), nullptr, this, nullptr);
    d->item = item;
    d->bag = item ? item->getPropertyBag() : nullptr;
    if (d->bag) {
        connect(d->bag.data(), &ItemPropertyBag::NotifyBagSet, this,
                [this](const QString &key) { d->bagSet(key); });
        connect(d->bag.data(), &QObject::destroyed, this, [this] { setItem(nullptr); });
    }
    if (item)
        connect(item, &QObject::destroyed, this, [this] { setItem(nullptr); });
    d->rebuild();
}

ViewItem *PropertyModel::item() const
{
    return d->item.data();
}

QString PropertyModel::keyOf(const QModelIndex &index) const
{
    const Node *node = index.isValid() ? d->node(index) : nullptr;
    while (node && node->parent != d->root.get())
        node = node->parent;
    return node ? node->key : QString();
}

void PropertyModel::reload()
{
    d->rebuild();
}

QModelIndex PropertyModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    return createIndex(row, column, d->node(parent)->children.at(row).get());
}

QModelIndex PropertyModel::parent(const QModelIndex &index) const
{
    const Node *node = index.isValid() ? d->node(index) : nullptr;
    if (!node || node->parent == d->root.get())
        return QModelIndex();
    return createIndex(node->parent->row, NameColumn, node->parent);
}

int PropertyModel::rowCount(const QModelIndex &parent) const
{
    if (parent.column() > 0)
        return 0;
    return int(d->node(parent)->children.size());
}

int PropertyModel::columnCount(const QModelIndex &) const
{
    return 2;
}

QVariant PropertyModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    Q_ASSERT(checkIndex(index));
    const Node *node = d->node(index);
    if (role == Qt::ToolTipRole)
        return node->toolTip.isEmpty() ? QVariant() : QVariant(node->toolTip);
    if (index.column() == NameColumn)
        return role == Qt::DisplayRole ? QVariant(node->label) : QVariant();
    const QVariant value = d->value(node);
    switch (role) {
    case Qt::DisplayRole:
        return PropertyValues::displayText(value);
    case Qt::EditRole:
        if (value.userType() == QMetaType::QCursor)
            return QVariant::fromValue(value.value<QCursor>().shape());
        return value;
    case Qt::CheckStateRole:
        if (value.userType() == QMetaType::Bool)
            return value.toBool() ? Qt::Checked : Qt::Unchecked;
        return QVariant();
    case Qt::DecorationRole:
        if (value.userType() == QMetaType::QColor)
            return PropertyValues::swatch(value.value<QColor>());
        return QVariant();
    default:
        return QVariant();
    }
}

bool PropertyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != ValueColumn || !d->bag)
        return false;
    Q_ASSERT(checkIndex(index));
    Node *node = d->node(index);
    const QVariant old = d->value(node);
    QVariant written = value;
    if (role == Qt::CheckStateRole && old.userType() == QMetaType::Bool)
        written = value.toInt() == Qt::Checked;
    else if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    if (old.userType() == QMetaType::QCursor)
        written = QVariant::fromValue(QCursor(Qt::CursorShape(value.toInt())));
    // Editors answer in their own type (an int for an unsigned value, say); the bag keeps
    // the property's.
    if (written.metaType() != old.metaType() && !written.convert(old.metaType()))
        return false;
    if (written == old)
        return true;
    d->write(node, written);
    return true;
}

Qt::ItemFlags PropertyModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Q_ASSERT(checkIndex(index));
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() != ValueColumn)
        return result;
    const QVariant value = d->value(d->node(index));
    if (value.userType() == QMetaType::Bool)
        result |= Qt::ItemIsUserCheckable;
    else if (editable(value))
        result |= Qt::ItemIsEditable;
    return result;
}

QVariant PropertyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    return section == NameColumn ? tr("Property") : tr("Value");
}

} // namespace Velmora::Framework
