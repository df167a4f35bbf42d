#pragma once

#include "velmoraframework_global.h"
#include "model/viewitem.h"

#include <QtCore/qabstractitemmodel.h>
#include <QtCore/qitemselectionmodel.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace Velmora::Framework {

class ViewModelPrivate;
class ViewModelReadLocker;
class ViewModelWriteLocker;

// Shows one tree of nodes to Qt views and is the only path by which a shown tree changes.
// Its lock is re-entrant for the writer: a thread holding the write locker may take any
// number of read and write lockers. A reader cannot upgrade, and only the writer's reads are
// counted: a thread that holds a read locker and calls a model query (which reads again)
// blocks for ever once a writer waits in between, so readers on other threads walk the nodes
// directly while they hold the locker.
// The model's own calls take the lock themselves (the item-model queries, setData,
// insertItem, removeItems, sortItems, disposeAllItems); ViewItem's calls never do, so a
// caller changing or walking a shown tree through ViewItem holds a locker around them.
class VELMORA_FRAMEWORK_EXPORT ViewModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    // Attaches root's whole tree; disposeAllItems() and the destructor destroy it.
    explicit ViewModel(QObject *parent = nullptr, ViewItem *root = nullptr);
    ~ViewModel() override;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;
    Qt::DropActions supportedDropActions() const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    virtual QModelIndexList findItems(const QString &text, Qt::MatchFlags flags) const;
    virtual void disposeAllItems();
    virtual void populateContextMenu(QMenu *menu, const QModelIndex &index);
    virtual void handleDoubleClick(const QModelIndex &index);
    virtual void handleCurrentChanged(const QModelIndex &current, const QModelIndex &previous);
    virtual void handleSelectionChanged(const QItemSelection &selected,
                                        const QItemSelection &deselected);
    // A view reports a parent index back after a removal under it.
    virtual void expanded(const QModelIndex &index);
    // Inserts item (and its subtree) at row under parent; announced while auto-sync is on.
    virtual bool insertItem(int row, ViewItem *item, const QModelIndex &parent);
    // Always announced. The removed nodes, detached, in their former order; caller owns them.
    virtual QList<ViewItem *> removeItems(int row, int count, const QModelIndex &parent);
    // Reorders without notifying views; call refresh() or relayout() afterwards.
    virtual void sortItems(ViewItem *parentItem, ViewItemCompare compare);
    virtual void aboutToDispose(ViewItem *item);
    // Replaces the list at once, with no lock and no notice: for callers resetting the model.
    virtual void replace_childitems(ViewItem *parentItem, const QList<ViewItem *> &children);

    ViewItem *rootItem() const;
    bool autoSync() const;
    // Suspensions nest: n calls with false need n calls with true.
    void setAutoSync(bool on);
    QModelIndex calculateIndex(int row, ViewItem *item) const;
    QList<ViewItem *> selectedItems() const;

    void refresh();
    void relayout(const QModelIndex &index);
    void expand(const QModelIndex &index);
    void collapse(const QModelIndex &index);
    void modify(const QModelIndex &index);

Q_SIGNALS:
    void refreshRequested();
    void relayoutRequested(const QModelIndex &index);
    void expandRequested(const QModelIndex &index);
    void collapseRequested(const QModelIndex &index);
    void modificationRequested(const QModelIndex &index);
    void itemSelected(Velmora::Framework::ViewItem *item);
    void removalComplete(Velmora::Framework::ViewItem *item);

private:
    friend class ViewModelReadLocker;
    friend class ViewModelWriteLocker;

    std::unique_ptr<ViewModelPrivate> const d;
};

// Holds the model's read lock from construction (or relock) to unlock or destruction.
// A null model makes every operation a no-op.
class VELMORA_FRAMEWORK_EXPORT ViewModelReadLocker
{
public:
    explicit ViewModelReadLocker(const ViewModel *model);
    // Copies share the model; only one of them may unlock.
    ViewModelReadLocker(const ViewModelReadLocker &other) = default;
    ViewModelReadLocker &operator=(const ViewModelReadLocker &other) = default;
    virtual ~ViewModelReadLocker();

    void unlock();
    void relock();

private:
    ViewModel *m_model;
    bool m_locked = false;
};

// Holds the model's write lock from construction (or relock) to unlock or destruction.
// A null model makes every operation a no-op.
class VELMORA_FRAMEWORK_EXPORT ViewModelWriteLocker
{
public:
    explicit ViewModelWriteLocker(ViewModel *model);
    // Copies share the model; only one of them may unlock.
    ViewModelWriteLocker(const ViewModelWriteLocker &other) = default;
    ViewModelWriteLocker &operator=(const ViewModelWriteLocker &other) = default;
    virtual ~ViewModelWriteLocker();

    void unlock();
    void relock();

private:
    ViewModel *m_model;
    bool m_locked = false;
};

} // namespace Velmora::Framework

Q_DECLARE_METATYPE(Velmora::Framework::ViewItem *)
