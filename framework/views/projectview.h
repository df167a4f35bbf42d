#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtWidgets/qabstractitemdelegate.h>
#include <QtWidgets/qtreeview.h>

#include <memory>

namespace Velmora::Framework {

class ProjectViewPrivate;
class ViewItem;
class ViewModel;

// The tree of the solution. It keeps the nodes' expanded flags in step with the rows, asks
// the model for context menus and for opening items, drags the selection as item data and
// renames through the naming rules (slotEdit) or in place (edit, F2).
class VELMORA_FRAMEWORK_EXPORT ProjectView : public QTreeView
{
    Q_OBJECT

public:
    explicit ProjectView(QWidget *parent = nullptr);
    ~ProjectView() override;

    // Expects a ViewModel; other models are shown but get none of the node behaviour.
    void setModel(QAbstractItemModel *model) override;
    QList<ViewItem *> getSelectedItems() const;

public Q_SLOTS:
    // Renames the index's node through the rename dialog and its naming rules.
    void slotEdit(const QModelIndex &index);
    void slotDelegateEditorClosed(QWidget *editor, QAbstractItemDelegate::EndEditHint hint);
    void expandOccurred(const QModelIndex &index);
    void collapseOccurred(const QModelIndex &index);
    // Collapses index and every row below it.
    void collapseBranch(const QModelIndex &index);
    // Expands again, below index, the rows whose nodes are flagged expanded.
    void relayout(const QModelIndex &index);
    // Marks the view as a drop target by exchanging its base and alternate base colours.
    void swapBaseColor(bool swapped);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void startDrag(Qt::DropActions supportedActions) override;

protected Q_SLOTS:
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    friend class ProjectViewPrivate;
    std::unique_ptr<ProjectViewPrivate> const d;
};

} // namespace Velmora::Framework
