#include "model/viewmodel.h"

#include "core/logging_p.h"
#include "core/writeholderlock.h"
#include "model/itemtypemimecodec.h"
#include "model/itemutils.h"
#include "types/itemtype.h"

#include <QtCore/qmimedata.h>
#include <QtCore/qmutex.h>
#include <QtCore/qpointer.h>
#include <QtCore/qreadwritelock.h>
#include <QtGui/qfont.h>

namespace Velmora::Framework {

class ViewModelPrivate
{
public:
    ViewItem *node(const QModelIndex &index) const
    {
        return static_cast<ViewItem *>(index.internalPointer());
    }

    mutable QMutex syncMutex;
    bool autoSync = true;
    int syncSuspendCount = 0;
    mutable WriteHolderLock lock;
    QPointer<ViewItem> root;
    // Reserved for callers that guard the root itself; no model operation takes it.
    QReadWriteLock rootLock{QReadWriteLock::NonRecursive};
    QModelIndexList pendingIndexes;
    QItemSelection selection;
    QStringList mimeTypeList;
};

ViewModel::ViewModel(QObject *parent, ViewItem *root)
    : QAbstractItemModel(parent)
    , d(std::make_unique<ViewModelPrivate>())
{
    d->root = root;
    if (root)
        root->set_model(this, true);
    d->mimeTypeList << ItemTypeMimeCodec::mimeType();
}

ViewModel::~ViewModel()
{
    disposeAllItems();
    const QByteArray name = objectName().toUtf8();
    if (name.isEmpty())
        qCDebug(Internal::lcModel, "Deleting ViewModel");
    else
        qCDebug(Internal::lcModel, "Deleting ViewModel (%s)...", name.constData());
}

ViewItem *ViewModel::rootItem() const
{
    return d->root.data();
}

bool ViewModel::autoSync() const
{
    QMutexLocker locker(&d->syncMutex);
    return d->autoSync;
}

void ViewModel::setAutoSync(bool on)
{
    QMutexLocker locker(&d->syncMutex);
    if (!on)
        ++d->syncSuspendCount;
    else if (d->syncSuspendCount > 0)
        --d->syncSuspendCount;
    d->autoSync = d->syncSuspendCount == 0;
}

QModelIndex ViewModel::calculateIndex(int row, ViewItem *item) const
{
    ViewModelReadLocker locker(this);
    if (item && item == d->root.data())
        return createIndex(0, 0, item);
    return createIndex(row, 0, item);
}

QModelIndex ViewModel::index(int row, int column, const QModelIndex &parent) const
{
    ViewModelReadLocker locker(this);
    if (column < 0 || column >= columnCount(parent)) {
        qCWarning(Internal::lcModel, "index: column %d does not exist", column);
        return QModelIndex();
    }
    ViewItem *parentNode = d->node(parent);
    // The top level is the root alone; its row is not looked at.
    ViewItem *node = parentNode ? parentNode->child_at(row) : d->root.data();
    return node ? createIndex(row, column, node) : QModelIndex();
}

QModelIndex ViewModel::parent(const QModelIndex &index) const
{
    ViewModelReadLocker locker(this);
    if (!index.isValid())
        return QModelIndex();
    ViewItem *node = d->node(index);
    if (!node) {
        qCWarning(Internal::lcModel, "parent: valid index without node");
        return QModelIndex();
    }
    ViewItem *parentNode = node->getParentItem();
    if (!parentNode)
        return QModelIndex();
    if (parentNode == d->root.data())
        return createIndex(0, 0, parentNode);
    const int row = parentNode->item_index();
    if (row < 0) {
        qCWarning(Internal::lcModel, "parent: the row was invalid");
        return QModelIndex();
    }
    return createIndex(row, 0, parentNode);
}

int ViewModel::rowCount(const QModelIndex &parent) const
{
    ViewModelReadLocker locker(this);
    // The root is the single top-level row.
    if (!parent.isValid())
        return d->root.isNull() ? 0 : 1;
    ViewItem *node = d->node(parent);
    return node ? node->children_count() : 0;
}

int ViewModel::columnCount(const QModelIndex &) const
{
    return 1;
}

bool ViewModel::hasChildren(const QModelIndex &parent) const
{
    ViewModelReadLocker locker(this);
    if (!parent.isValid())
        return !d->root.isNull();
    ViewItem *node = d->node(parent);
    if (!node) {
        qCWarning(Internal::lcModel, "hasChildren: valid index without node");
        return false;
    }
    return node->children_count() > 0;
}

QVariant ViewModel::data(const QModelIndex &index, int role) const
{
    ViewModelReadLocker locker(this);
    if (!index.isValid()) {
        qCWarning(Internal::lcModel, "data: the index was not valid");
        return QVariant();
    }
    ViewItem *node = d->node(index);
    if (!node) {
        qCWarning(Internal::lcModel, "data: the item does not exist");
        return QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole:
        // Strictly greater: a column equal to the count passes.
        if (index.column() > columnCount(index)) {
            qCWarning(Internal::lcModel, "data: invalid display value column %d", index.column());
            return QVariant();
        }
        if (role == Qt::DisplayRole)
            return node->getDispName();
        if (role == Qt::EditRole)
            return node->getItemName();
        return node->getItemPath().isEmpty() ? node->getDispName() : node->getItemPath();
    case Qt::DecorationRole:
        if (index.column() == 0)
            return node->getIcon(node->expandedFlag());
        return QVariant();
    case Qt::FontRole: {
        ItemType *type = node->getType();
        if (type && type->isItemModified(node)) {
            QFont font;
            font.setWeight(QFont::Bold);
            return font;
        }
        return QVariant();
    }
    case Qt::UserRole:
        return QString::number(quintptr(node), 10);
    default:
        return QVariant();
    }
}

Qt::ItemFlags ViewModel::flags(const QModelIndex &index) const
{
    ViewModelReadLocker locker(this);
    if (!index.isValid()) {
        qCDebug(Internal::lcModel, "invalid index");
        return Qt::NoItemFlags;
    }
    ViewItem *node = d->node(index);
    ItemType *type = node ? node->getType() : nullptr;
    if (!type) {
        qCWarning(Internal::lcModel, "flags: item with no type");
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags result;
    for (const Qt::ItemFlag flag : {Qt::ItemIsSelectable, Qt::ItemIsEditable, Qt::ItemIsDragEnabled,
                                    Qt::ItemIsDropEnabled, Qt::ItemIsUserCheckable,
                                    Qt::ItemIsEnabled}) {
        if (type->testAttribute(static_cast<ItemType::ItemTypeAttribute>(uint(flag))))
            result |= flag;
    }
    return result;
}

bool ViewModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    ViewModelWriteLocker locker(this);
    if (index.column() != 0 || role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    ViewItem *node = d->node(index);
    if (!node) {
        qCWarning(Internal::lcModel, "setData: the node does not exist");
        return false;
    }
    const QString newName = value.toString();
    const QString oldName = node->getItemName();
    if (newName == oldName)
        return false;
    ItemType *type = node->getType();
    if (!type || !type->doNameChange(node, newName))
        return false;
    type->nameChanged(node, oldName);
    const QModelIndex changed = node->modelIndex();
    if (changed.isValid())
        emit dataChanged(changed, changed, {});
    emit itemSelected(node);
    return true;
}

QStringList ViewModel::mimeTypes() const
{
    return d->mimeTypeList;
}

QMimeData *ViewModel::mimeData(const QModelIndexList &indexes) const
{
    ViewModelReadLocker locker(this);
    const QList<ViewItem *> nodes =
        ItemUtils::getSelectionWithoutChildren(ItemUtils::getItemsFromIndexes(indexes));
    auto *mime = new QMimeData;
    // Each type adds its id to what the types before it left.
    for (ViewItem *node : nodes) {
        if (ItemType *type = node ? node->getType() : nullptr)
            type->constructMimeData(mime, {node}, ItemType::DragHint);
    }
    return mime;
}

bool ViewModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int, int,
                             const QModelIndex &parent)
{
    ViewItem *target = d->node(parent);
    ItemType *type = target ? target->getType() : nullptr;
    return type && type->performDropAction(target, data, action);
}

Qt::DropActions ViewModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
}

QModelIndexList ViewModel::findItems(const QString &text, Qt::MatchFlags flags) const
{
    ViewModelReadLocker locker(this);
    if (d->root.isNull())
        return {};
    return match(index(0, 0), Qt::DisplayRole, text, -1, flags | Qt::MatchRecursive);
}

void ViewModel::disposeAllItems()
{
    ViewModelWriteLocker locker(this);
    if (ViewItem *root = d->root.data()) {
        beginResetModel();
        delete root;
        endResetModel();
    }
}

void ViewModel::populateContextMenu(QMenu *menu, const QModelIndex &index)
{
    ViewModelReadLocker locker(this);
    if (ViewItem *node = d->node(index))
        node->contextMenu(menu);
}

void ViewModel::handleDoubleClick(const QModelIndex &index)
{
    ViewModelReadLocker locker(this);
    if (!index.isValid())
        return;
    ViewItem *node = d->node(index);
    if (!node) {
        qCWarning(Internal::lcModel, "handleDoubleClick: valid index without node");
        return;
    }
    if (ItemType *type = node->getType())
        type->edit(node, {}, QString());
}

void ViewModel::handleCurrentChanged(const QModelIndex &current, const QModelIndex &)
{
    ViewModelReadLocker locker(this);
    emit itemSelected(current.isValid() ? d->node(current) : nullptr);
}

void ViewModel::handleSelectionChanged(const QItemSelection &selected,
                                       const QItemSelection &deselected)
{
    d->selection.merge(deselected, QItemSelectionModel::Deselect);
    d->selection.merge(selected, QItemSelectionModel::Select);
}

QList<ViewItem *> ViewModel::selectedItems() const
{
    return ItemUtils::getItemsFromIndexes(d->selection.indexes());
}

void ViewModel::expanded(const QModelIndex &index)
{
    const qsizetype position = d->pendingIndexes.indexOf(index);
    if (position < 0)
        return;
    d->pendingIndexes.removeAt(position);
    emit removalComplete(d->node(index));
}

bool ViewModel::insertItem(int row, ViewItem *item, const QModelIndex &parent)
{
    ViewModelWriteLocker locker(this);
    ViewItem *parentNode = d->node(parent);
    if (row < 0 || !item || !parent.isValid() || !parentNode)
        return false;
    // A row past the end appends, as ins_child does.
    row = std::min(row, parentNode->children_count());
    if (autoSync()) {
        beginInsertRows(parent, row, row);
        parentNode->ins_child(row, item);
        endInsertRows();
    } else {
        parentNode->ins_child(row, item);
    }
    return true;
}

QList<ViewItem *> ViewModel::removeItems(int row, int count, const QModelIndex &parent)
{
    ViewModelWriteLocker locker(this);
    ViewItem *parentNode = d->node(parent);
    if (row < 0 || count < 0 || !parent.isValid() || !parentNode)
        return {};
    // Views may only hear of rows that exist.
    const int available = parentNode->children_count() - row;
    count = std::min(count, available);
    if (count < 1)
        return {};
    // Announced whatever auto-sync says: views must never keep rows that are gone.
    beginRemoveRows(parent, row, row + count - 1);
    d->pendingIndexes.append(parent);
    const QList<ViewItem *> removed = parentNode->rm_children(row, count);
    endRemoveRows();
    return removed;
}

void ViewModel::sortItems(ViewItem *parentItem, ViewItemCompare compare)
{
    if (!parentItem)
        return;
    ViewModelWriteLocker locker(this);
    parentItem->sort_children(compare);
}

void ViewModel::aboutToDispose(ViewItem *)
{
}

void ViewModel::replace_childitems(ViewItem *parentItem, const QList<ViewItem *> &children)
{
    if (parentItem)
        parentItem->replace_children(children);
}

void ViewModel::refresh()
{
    emit refreshRequested();
}

void ViewModel::relayout(const QModelIndex &index)
{
    emit relayoutRequested(index);
}

void ViewModel::expand(const QModelIndex &index)
{
    emit expandRequested(index);
}

void ViewModel::collapse(const QModelIndex &index)
{
    emit collapseRequested(index);
}

void ViewModel::modify(const QModelIndex &index)
{
    emit modificationRequested(index);
}

ViewModelReadLocker::ViewModelReadLocker(const ViewModel *model)
    : m_model(const_cast<ViewModel *>(model))
{
    relock();
}

ViewModelReadLocker::~ViewModelReadLocker()
{
    unlock();
}

void ViewModelReadLocker::unlock()
{
    if (m_model && m_locked) {
        m_model->d->lock.unlockRead();
        m_locked = false;
    }
}

void ViewModelReadLocker::relock()
{
    if (m_model && !m_locked) {
        m_model->d->lock.lockForRead();
        m_locked = true;
    }
}

ViewModelWriteLocker::ViewModelWriteLocker(ViewModel *model)
    : m_model(model)
{
    relock();
}

ViewModelWriteLocker::~ViewModelWriteLocker()
{
    unlock();
}

void ViewModelWriteLocker::unlock()
{
    if (m_model && m_locked) {
        m_model->d->lock.unlockWrite();
        m_locked = false;
    }
}

void ViewModelWriteLocker::relock()
{
    if (m_model && !m_locked) {
        m_model->d->lock.lockForWrite();
        m_locked = true;
    }
}

} // namespace Velmora::Framework
