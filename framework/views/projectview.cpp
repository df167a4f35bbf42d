#include "views/projectview.h"

#include "model/itemutils.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itemnaming.h"
#include "types/itemtype.h"
#include "views/projectdelegate.h"

#include <QtCore/qmimedata.h>
#include <QtCore/qpointer.h>
#include <QtGui/qdrag.h>
#include <QtGui/qevent.h>
#include <QtWidgets/qmenu.h>

#include <utility>

namespace Velmora::Framework {

class ProjectViewPrivate
{
public:
    explicit ProjectViewPrivate(ProjectView *view)
        : q(view)
    {
    }

    ViewItem *nodeAt(const QModelIndex &index) const
    {
        if (!model || !index.isValid() || index.model() != model)
            return nullptr;
        return static_cast<ViewItem *>(index.internalPointer());
    }
    ViewItem *currentNode() const { return nodeAt(q->currentIndex()); }
    void confirmRemovals();

    ProjectView *q;
    ProjectDelegate *delegate = nullptr;
    QPointer<ViewModel> model;
    // Parents of removals the model waits to hear back about.
    QList<QPersistentModelIndex> removalParents;
    bool baseSwapped = false;
};

void ProjectViewPrivate::confirmRemovals()
{
    const QList<QPersistentModelIndex> parents = std::exchange(removalParents, {});
    for (const QPersistentModelIndex &parent : parents) {
        if (model && parent.isValid())
            model->expanded(parent);
    }
}

ProjectView::ProjectView(QWidget *parent)
    : QTreeView(parent)
    , d(new ProjectViewPrivate(this))
{
    d->delegate = new ProjectDelegate(this);
    setItemDelegate(d->delegate);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    connect(this, &QTreeView::expanded, this, &ProjectView::expandOccurred);
    connect(this, &QTreeView::collapsed, this, &ProjectView::collapseOccurred);
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        if (d->model)
            d->model->handleDoubleClick(index);
    });
    connect(d->delegate, &QAbstractItemDelegate::closeEditor, this,
            &ProjectView::slotDelegateEditorClosed);
}

ProjectView::~ProjectView()
{
    // An open editor closes while the widget goes; its signals must not reach this part.
    disconnect(d->delegate, nullptr, this, nullptr);
    if (d->model)
        disconnect(d->model.data(), nullptr, this, nullptr);
}

void ProjectView::setModel(QAbstractItemModel *model)
{
    if (d->model)
        disconnect(d->model.data(), nullptr, this, nullptr);
    d->removalParents.clear();
    QTreeView::setModel(model);
    d->model = qobject_cast<ViewModel *>(model);
    ViewModel *viewModel = d->model.data();
    if (!viewModel)
        return;
    connect(viewModel, &ViewModel::refreshRequested, this, [this] {
        relayout(QModelIndex());
        viewport()->update();
    });
    connect(viewModel, &ViewModel::relayoutRequested, this, &ProjectView::relayout);
    connect(viewModel, &ViewModel::expandRequested, this, &QTreeView::expand);
    connect(viewModel, &ViewModel::collapseRequested, this, &QTreeView::collapse);
    // A type's rename command asks for editing in place.
    connect(viewModel, &ViewModel::modificationRequested, this,
            qOverload<const QModelIndex &>(&QAbstractItemView::edit));
    connect(viewModel, &QAbstractItemModel::rowsRemoved, this, [this] { d->confirmRemovals(); });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, viewModel,
            &ViewModel::handleCurrentChanged);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, viewModel,
            &ViewModel::handleSelectionChanged);
    // Rows open as their nodes remember.
    relayout(QModelIndex());
}

QList<ViewItem *> ProjectView::getSelectedItems() const
{
    if (!d->model)
        return {};
    return ItemUtils::getItemsFromIndexes(selectionModel()->selectedRows());
}

void ProjectView::slotEdit(const QModelIndex &index)
{
    if (ViewItem *node = d->nodeAt(index))
        ItemNaming::rename(node, this);
}

void ProjectView::slotDelegateEditorClosed(QWidget *, QAbstractItemDelegate::EndEditHint)
{
    // A rename may move the row; keep it in sight and take the keyboard back.
    if (currentIndex().isValid())
        scrollTo(currentIndex());
    setFocus();
}

void ProjectView::expandOccurred(const QModelIndex &index)
{
    if (ViewItem *node = d->nodeAt(index)) {
        node->setExpandedFlag(true);
        update(index); // the icon shows the open state
    }
}

void ProjectView::collapseOccurred(const QModelIndex &index)
{
    if (ViewItem *node = d->nodeAt(index)) {
        node->setExpandedFlag(false);
        update(index);
    }
}

void ProjectView::collapseBranch(const QModelIndex &index)
{
    if (!model() || !index.isValid())
        return;
    const int rows = model()->rowCount(index);
    for (int row = 0; row < rows; ++row)
        collapseBranch(model()->index(row, 0, index));
    collapse(index);
}

void ProjectView::relayout(const QModelIndex &index)
{
    if (!d->model)
        return;
    if (ViewItem *node = d->nodeAt(index)) {
        if (!node->expandedFlag())
            return;
        expand(index);
    }
    const int rows = d->model->rowCount(index);
    for (int row = 0; row < rows; ++row)
        relayout(d->model->index(row, 0, index));
}

void ProjectView::swapBaseColor(bool swapped)
{
    if (d->baseSwapped == swapped)
        return;
    d->baseSwapped = swapped;
    QPalette colours = palette();
    const QBrush base = colours.brush(QPalette::Base);
    colours.setBrush(QPalette::Base, colours.brush(QPalette::AlternateBase));
    colours.setBrush(QPalette::AlternateBase, base);
    setPalette(colours);
}

void ProjectView::contextMenuEvent(QContextMenuEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (!d->model || !index.isValid()) {
        event->ignore();
        return;
    }
    QMenu menu(this);
    d->model->populateContextMenu(&menu, index);
    if (!menu.isEmpty())
        menu.exec(event->globalPos());
    event->accept();
}

void ProjectView::keyPressEvent(QKeyEvent *event)
{
    ViewItem *node = state() == EditingState ? nullptr : d->currentNode();
    ItemType *type = node ? node->getType() : nullptr;
    if (!type) {
        QTreeView::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        d->model->handleDoubleClick(currentIndex());
    else if (event->key() == Qt::Key_F2)
        slotEdit(currentIndex());
    else if (event->matches(QKeySequence::Delete))
        type->remove(getSelectedItems(), true);
    else if (event->matches(QKeySequence::Copy))
        type->copy(getSelectedItems());
    else if (event->matches(QKeySequence::Cut))
        type->cut(getSelectedItems());
    else if (event->matches(QKeySequence::Paste))
        type->paste(node);
    else
        return QTreeView::keyPressEvent(event);
    event->accept();
}

void ProjectView::mousePressEvent(QMouseEvent *event)
{
    // A click beside the rows clears the selection, so no command acts on a stale one.
    if (!indexAt(event->position().toPoint()).isValid()) {
        clearSelection();
        setCurrentIndex(QModelIndex());
    }
    QTreeView::mousePressEvent(event);
}

void ProjectView::dragEnterEvent(QDragEnterEvent *event)
{
    QTreeView::dragEnterEvent(event);
    swapBaseColor(event->isAccepted());
}

void ProjectView::dragLeaveEvent(QDragLeaveEvent *event)
{
    swapBaseColor(false);
    QTreeView::dragLeaveEvent(event);
}

void ProjectView::dropEvent(QDropEvent *event)
{
    swapBaseColor(false);
    QTreeView::dropEvent(event);
}

QItemSelectionModel::SelectionFlags ProjectView::selectionCommand(const QModelIndex &index,
                                                                  const QEvent *event) const
{
    // A right click inside the selection keeps it, so the menu acts on all of it.
    if (event && event->type() == QEvent::MouseButtonPress
        && static_cast<const QMouseEvent *>(event)->button() == Qt::RightButton
        && selectionModel() && selectionModel()->isSelected(index)) {
        return QItemSelectionModel::NoUpdate;
    }
    return QTreeView::selectionCommand(index, event);
}

void ProjectView::startDrag(Qt::DropActions supportedActions)
{
    if (!d->model)
        return;
    QModelIndexList indexes;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex &index : selected) {
        if (d->model->flags(index).testFlag(Qt::ItemIsDragEnabled))
            indexes.append(index);
    }
    if (indexes.isEmpty())
        return;
    // The model encodes the item types and leaves out rows whose ancestor is dragged too.
    QMimeData *mime = d->model->mimeData(indexes);
    if (!mime)
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(mime);
    const QIcon icon = indexes.first().data(Qt::DecorationRole).value<QIcon>();
    if (!icon.isNull())
        drag->setPixmap(icon.pixmap(QSize(16, 16), devicePixelRatioF()));
    drag->exec(supportedActions, defaultDropAction());
}

void ProjectView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    QTreeView::rowsInserted(parent, start, end);
    // Nodes that arrive flagged open (read from a project file) open in the view too.
    for (int row = start; row <= end; ++row)
        relayout(model()->index(row, 0, parent));
}

void ProjectView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    if (parent.isValid())
        d->removalParents.append(parent);
    QTreeView::rowsAboutToBeRemoved(parent, start, end);
}

} // namespace Velmora::Framework
