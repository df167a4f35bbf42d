#pragma once

#include "velmoraframework_global.h"
#include "model/editorinstruction.h"
#include "model/viewitembase.h"

#include <QtCore/qabstractitemmodel.h>
#include <QtCore/qlist.h>
#include <QtGui/qicon.h>

QT_BEGIN_NAMESPACE
class QAction;
class QMenu;
QT_END_NAMESPACE

namespace Velmora::Framework {

class ItemPropertyBag;
class OrderedItem;
class ViewItem;
class ViewItemPrivate;
class ViewModel;

// Orders two nodes: true when a sorts before b. Null means by name, case-sensitively.
using ViewItemCompare = bool (*)(ViewItem *const &a, ViewItem *const &b);

// A node of the solution tree. A parent owns its children. While a model shows the tree,
// every structural change goes through the model (callers hold its write locker); a
// detached tree is changed directly.
class VELMORA_FRAMEWORK_EXPORT ViewItem : public ViewItemBase
{
    Q_OBJECT

public:
    ~ViewItem() override;

    ViewItem *getParentItem() const;
    // Null for a row outside the children.
    ViewItem *getChildItemAt(int row);
    const ViewItem *getChildItemAt(int row) const;
    // 0 for a node whose type cannot parent, whatever it holds.
    int getChildItemCount() const;
    // The row in the parent's children; -1 without a parent.
    int getItemIndex() const;

    // Logs and ignores a null child. The child moves from its old parent, if any.
    virtual void addChildItem(ViewItem *child);
    // Any negative row appends.
    virtual void insertChildItem(ViewItem *child, int row);
    // The one path by which a node enters a parent; the parent's type must accept it.
    void setParentItem(ViewItem *newParent, int row);
    // The removed child, which the caller now owns, or null.
    virtual ViewItem *removeChildItemAt(int row);
    virtual void sortChildren(ViewItemCompare compare);
    // The scope of the nearest type up the tree that names one.
    virtual QString associatedScope() const;
    // Binary search in children already sorted by compare; null when no equal child.
    virtual ViewItem *findSortedChild(ViewItem *probe, ViewItemCompare compare) const;
    // The removed children, in their former order; the caller owns them.
    virtual QList<ViewItem *> removeAllChildItems();
    // Removes every child and deletes it once control returns to the event loop.
    virtual void removeAndDisposeAllChildItems();
    virtual QWidget *getEditor(const QString &editorId,
                               const QList<EditorInstruction> &instructions);
    // The type keeps one bag per node.
    virtual ItemPropertyBag *getPropertyBag();

    // Case-sensitive.
    bool isChildNameUnique(const QString &name) const;
    ViewModel *viewModel() const;
    // Invalid while detached.
    QModelIndex modelIndex() const;
    void setExpanded(bool expand);
    bool expandedFlag() const;
    void refresh(bool relayoutOnly);
    QIcon getIcon(int mode) const;
    // Fills menu with the entries of the type and the environment's aggregatables for
    // this node and the current selection. Answers false.
    bool contextMenu(QMenu *menu);

protected:
    explicit ViewItem(ItemType *type);
    ViewItem(ItemType *type, const QString &name);
    void setExpandedFlag(bool expanded);

private:
    friend class ItemType;
    // The project view mirrors the user's expanding and collapsing into the flag.
    friend class ProjectView;
    friend class ViewModel;

    ViewItem *child_at(int row) const;
    int children_count() const;
    int item_index() const;
    void ins_child(int row, ViewItem *child);
    QList<ViewItem *> rm_children(int first, int count);
    void replace_children(const QList<ViewItem *> &children);
    void sort_children(ViewItemCompare compare);
    void set_parent(ViewItem *parent);
    void set_model(ViewModel *model, bool recursive);

    void populate(QMenu *menu, const QList<ViewItem *> &selection,
                  const QList<OrderedItem *> &entries);
    void evaluateActionState(QMenu *menu, const QList<ViewItem *> &selection);
    void subSpecialTags(QAction *action, const QString &text, bool multiple) const;

    // The base's private part, which a node extends.
    ViewItemPrivate *d_func() const;
};

} // namespace Velmora::Framework
