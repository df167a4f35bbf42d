#include "model/viewitem.h"

#include "core/applicationhooks.h"
#include "core/iaggregatable.h"
#include "core/iavailable.h"
#include "core/logging_p.h"
#include "model/itemutils.h"
#include "model/ordereditem.h"
#include "model/viewitembase_p.h"
#include "model/viewmodel.h"
#include "types/itemtype.h"

#include <QtCore/qpointer.h>
#include <QtGui/qaction.h>
#include <QtGui/qguiapplication.h>
#include <QtGui/qpainter.h>
#include <QtGui/qpixmap.h>
#include <QtGui/qscreen.h>
#include <QtWidgets/qmenu.h>

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

namespace Velmora::Framework {

namespace {

bool byName(ViewItem *const &a, ViewItem *const &b)
{
    return a->getItemName() < b->getItemName();
}

ViewItemCompare orDefault(ViewItemCompare compare)
{
    return compare ? compare : &byName;
}

} // namespace

class ViewItemPrivate : public ViewItemBasePrivate
{
public:
    // The row hint is where this node stood in its parent's list when last looked up. Finding
    // a row is a linear search, which makes index()/parent() quadratic over wide trees; the
    // hint is checked before use, so it only ever saves work. It shares one word with the
    // expanded flag (bit 0; the row plus one above it, 0 when there is none), which keeps the
    // whole part within one allocation size class.
    bool expanded() const { return state.load(std::memory_order_relaxed) & 1u; }
    void setExpanded(bool expanded)
    {
        if (expanded)
            state.fetch_or(1u, std::memory_order_relaxed);
        else
            state.fetch_and(~1u, std::memory_order_relaxed);
    }
    int rowHint() const { return int(state.load(std::memory_order_relaxed) >> 1) - 1; }
    // Readers share the hint, and the view may set the flag meanwhile, hence the exchange.
    void setRowHint(int row) const
    {
        quint32 old = state.load(std::memory_order_relaxed);
        while (!state.compare_exchange_weak(old, (quint32(row + 1) << 1) | (old & 1u),
                                            std::memory_order_relaxed)) {
        }
    }

    // First, so that it fills the base part's tail.
    mutable std::atomic<quint32> state{0};
    ViewItem *parent = nullptr;
    QList<ViewItem *> children;
    QPointer<ViewModel> model;
};

ViewItem::ViewItem(ItemType *type)
    : ViewItem(type, QString())
{
}

ViewItem::ViewItem(ItemType *type, const QString &name)
    : ViewItemBase(*new ViewItemPrivate, type, name)
{
}

ViewItemPrivate *ViewItem::d_func() const
{
    return static_cast<ViewItemPrivate *>(d.get());
}

ViewItem::~ViewItem()
{
    if (ItemType *type = getType()) {
        type->aboutToDispose(this);
        type->disposeEditorFor(this);
        type->disposePropertyBagFor(this);
    }
    d_func()->parent = nullptr;
    const QList<ViewItem *> children = std::exchange(d_func()->children, {});
    for (ViewItem *child : children)
        delete child;
    // The base cannot delete the extended part through its own type, so it is taken back
    // here, with the payload that the base would otherwise dispose of.
    delete d->itemData.data();
    delete static_cast<ViewItemPrivate *>(d.release());
}

ViewItem *ViewItem::getParentItem() const
{
    return d_func()->parent;
}

ViewItem *ViewItem::getChildItemAt(int row)
{
    return child_at(row);
}

const ViewItem *ViewItem::getChildItemAt(int row) const
{
    return child_at(row);
}

int ViewItem::getChildItemCount() const
{
    return children_count();
}

int ViewItem::getItemIndex() const
{
    return item_index();
}

ViewItem *ViewItem::child_at(int row) const
{
    // Bounded by the count views see, so a type that cannot parent shows no children.
    return row >= 0 && row < children_count() ? d_func()->children.at(row) : nullptr;
}

int ViewItem::children_count() const
{
    ItemType *type = getType();
    return type && type->canParent() ? int(d_func()->children.size()) : 0;
}

int ViewItem::item_index() const
{
    if (!d_func()->parent)
        return -1;
    const QList<ViewItem *> &siblings = d_func()->parent->d_func()->children;
    const int count = int(siblings.size());
    int hint = d_func()->rowHint();
    if (hint >= 0 && hint < count && siblings.at(hint) == this)
        return hint;
    // Siblings coming and going shift a node only a little, so search outward from the hint.
    hint = std::clamp(hint, 0, std::max(count - 1, 0));
    for (int distance = 0; distance < count; ++distance) {
        for (const int row : {hint - distance, hint + distance}) {
            if (row >= 0 && row < count && siblings.at(row) == this) {
                d_func()->setRowHint(row);
                return row;
            }
        }
        if (hint - distance <= 0 && hint + distance >= count - 1)
            break;
    }
    return -1;
}

void ViewItem::addChildItem(ViewItem *child)
{
    if (!child) {
        qCWarning(Internal::lcModel, "ViewItem::addChildItem(): item ptr is null\n");
        return;
    }
    child->setParentItem(this, -1);
}

void ViewItem::insertChildItem(ViewItem *child, int row)
{
    if (!child) {
        qCWarning(Internal::lcModel, "ViewItem::insertChildItem(): item ptr is null\n");
        return;
    }
    child->setParentItem(this, row);
}

void ViewItem::setParentItem(ViewItem *newParent, int row)
{
    if (!newParent) {
        qCWarning(Internal::lcModel, "ViewItem::setParentItem(): parent ptr is null\n");
        return;
    }
    ItemType *parentType = newParent->getType();
    ItemType *type = getType();
    if (!parentType || !type || !parentType->allowedAsChild(newParent, type->getId())) {
        qCWarning(Internal::lcModel,
                  "ViewItem::setParentItem(): item type not allowed as child by the new parent\n");
        return;
    }
    if (d_func()->parent)
        d_func()->parent->removeChildItemAt(getItemIndex());
    if (row < 0)
        row = newParent->getChildItemCount();
    if (ViewModel *model = newParent->viewModel()) {
        if (!model->insertItem(row, this, newParent->modelIndex()))
            qCWarning(Internal::lcModel, "ViewItem::setParentItem() : fail to insert child");
    } else {
        newParent->ins_child(row, this);
    }
}

void ViewItem::ins_child(int row, ViewItem *child)
{
    if (row < 0 || !child)
        return;
    // A row past the end appends, as the end itself does.
    row = std::min(row, int(d_func()->children.size()));
    child->d_func()->parent = this;
    d_func()->children.insert(row, child);
    child->d_func()->setRowHint(row);
    if (ViewModel *model = d_func()->model.data())
        child->set_model(model, true);
}

ViewItem *ViewItem::removeChildItemAt(int row)
{
    ItemType *type = getType();
    if (row < 0 || !type || !type->canParent() || row >= getChildItemCount())
        return nullptr;
    QPointer<ViewItem> removed;
    if (ViewModel *model = d_func()->model.data()) {
        const QList<ViewItem *> nodes = model->removeItems(row, 1, modelIndex());
        if (nodes.size() == 1)
            removed = nodes.first();
    } else {
        // The parent field stays as it was; inserting the node elsewhere overwrites it.
        removed = d_func()->children.takeAt(row);
    }
    return removed.data();
}

QList<ViewItem *> ViewItem::rm_children(int first, int count)
{
    QList<ViewItem *> removed;
    if (first < 0 || count < 1 || first + count - 1 < first)
        return removed;
    const int last = std::min(first + count - 1, int(d_func()->children.size()) - 1);
    for (int row = last; row >= first; --row) {
        ViewItem *node = d_func()->children.takeAt(row);
        if (!node)
            continue;
        node->set_model(nullptr, true);
        node->d_func()->parent = nullptr;
        removed.prepend(node);
    }
    return removed;
}

QList<ViewItem *> ViewItem::removeAllChildItems()
{
    ItemType *type = getType();
    if (!type || !type->canParent() || d_func()->children.isEmpty())
        return {};
    if (ViewModel *model = d_func()->model.data())
        return model->removeItems(0, getChildItemCount(), modelIndex());
    // Detached: the nodes keep their parent field and model link.
    return std::exchange(d_func()->children, {});
}

void ViewItem::removeAndDisposeAllChildItems()
{
    const QList<ViewItem *> removed = removeAllChildItems();
    for (ViewItem *node : removed)
        node->deleteLater();
}

void ViewItem::replace_children(const QList<ViewItem *> &children)
{
    d_func()->children = children;
}

void ViewItem::sortChildren(ViewItemCompare compare)
{
    if (ViewModel *model = d_func()->model.data())
        model->sortItems(this, compare);
    else
        sort_children(compare);
}

void ViewItem::sort_children(ViewItemCompare compare)
{
    QList<ViewItem *> &children = d_func()->children;
    if (compare) {
        std::sort(children.begin(), children.end(), compare);
    } else {
        // The names sit beside their nodes in one array, so that comparing does not chase
        // every node's pointers. Nobody renames a node while its parent sorts.
        std::vector<std::pair<QStringView, ViewItem *>> named;
        named.reserve(size_t(children.size()));
        for (ViewItem *child : std::as_const(children))
            named.emplace_back(child->d_func()->itemName, child);
        std::sort(named.begin(), named.end(), [](const auto &a, const auto &b) {
            return a.first.compare(b.first) < 0;
        });
        for (qsizetype row = 0; row < children.size(); ++row)
            children[row] = named[size_t(row)].second;
    }
    for (int row = 0; row < children.size(); ++row)
        children.at(row)->d_func()->setRowHint(row);
}

ViewItem *ViewItem::findSortedChild(ViewItem *probe, ViewItemCompare compare) const
{
    compare = orDefault(compare);
    const QList<ViewItem *> &children = d_func()->children;
    const auto it = std::lower_bound(children.cbegin(), children.cend(), probe, compare);
    if (it != children.cend() && !compare(probe, *it))
        return *it;
    return nullptr;
}

void ViewItem::set_parent(ViewItem *parent)
{
    d_func()->parent = parent;
}

void ViewItem::set_model(ViewModel *model, bool recursive)
{
    d_func()->model = model;
    if (!recursive)
        return;
    const int count = getChildItemCount();
    for (int row = 0; row < count; ++row) {
        if (ViewItem *child = d_func()->children.at(row))
            child->set_model(model, true);
    }
}

QString ViewItem::associatedScope() const
{
    for (const ViewItem *node = this; node; node = node->d_func()->parent) {
        const ItemType *type = node->getType();
        const QString scope = type ? type->scope() : QString();
        if (!scope.isEmpty())
            return scope;
    }
    return QString();
}

QWidget *ViewItem::getEditor(const QString &editorId, const QList<EditorInstruction> &instructions)
{
    ItemType *type = getType();
    if (!type)
        return nullptr;
    return editorId.isEmpty() ? type->createItemEditor(this, instructions)
                              : type->createItemEditor(editorId, this, instructions);
}

ItemPropertyBag *ViewItem::getPropertyBag()
{
    ItemType *type = getType();
    return type ? type->getPropertyBag(this) : nullptr;
}

bool ViewItem::isChildNameUnique(const QString &name) const
{
    return std::none_of(d_func()->children.cbegin(), d_func()->children.cend(),
                        [&name](const ViewItem *child) { return child->getItemName() == name; });
}

ViewModel *ViewItem::viewModel() const
{
    return d_func()->model.data();
}

QModelIndex ViewItem::modelIndex() const
{
    ViewModel *model = d_func()->model.data();
    if (!model)
        return QModelIndex();
    return model->calculateIndex(getItemIndex(), const_cast<ViewItem *>(this));
}

void ViewItem::setExpanded(bool expand)
{
    ViewModel *model = d_func()->model.data();
    ItemType *type = getType();
    if (model && type && type->canParent() && getChildItemCount() > 0) {
        const QModelIndex index = model->calculateIndex(getItemIndex(), this);
        if (index.isValid()) {
            d_func()->setExpanded(expand);
            if (expand)
                model->expand(index);
            else
                model->collapse(index);
        }
        return;
    }
    d_func()->setExpanded(false);
}

bool ViewItem::expandedFlag() const
{
    return d_func()->expanded();
}

void ViewItem::setExpandedFlag(bool expanded)
{
    d_func()->setExpanded(expanded);
}

void ViewItem::refresh(bool relayoutOnly)
{
    ViewModel *model = d_func()->model.data();
    if (!model)
        return;
    if (relayoutOnly && d_func()->expanded()) {
        const QModelIndex index = modelIndex();
        if (index.isValid()) {
            model->relayout(index);
            return;
        }
    }
    model->refresh();
}

QIcon ViewItem::getIcon(int mode) const
{
    int ratio = 1;
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        ratio = std::max(1, int(screen->devicePixelRatio()));
    const QPixmap background(QStringLiteral(":/qelshared/images/16/viewItemBackgroun.png"));
    QPixmap canvas = background.scaled(background.size() * ratio);
    QPainter painter(&canvas);
    auto *self = const_cast<ViewItem *>(this);
    if (ItemType *type = getType()) {
        const QIcon icon = type->getIcon(self, mode);
        painter.drawPixmap(4 * ratio, 0, icon.pixmap(QSize(16, 16) * ratio));
    }
    for (IAggregatable *aggregatable : ApplicationHooks::aggregatables()) {
        const QIcon overlay = aggregatable ? aggregatable->getIcon(self, mode) : QIcon();
        if (!overlay.isNull())
            painter.drawPixmap(0, 0, overlay.pixmap(canvas.size()));
    }
    painter.end();
    canvas.setDevicePixelRatio(ratio);
    return QIcon(canvas);
}

bool ViewItem::contextMenu(QMenu *menu)
{
    const QList<ViewItem *> selection = ItemUtils::getSelectedItems(this);
    QList<OrderedItem *> entries;
    if (ItemType *type = getType())
        type->contextMenu(this, selection, entries);
    for (IAggregatable *aggregatable : ApplicationHooks::aggregatables()) {
        if (aggregatable)
            aggregatable->contextMenu(this, selection, entries);
    }
    if (entries.isEmpty() || !menu)
        return false;
    std::stable_sort(entries.begin(), entries.end(), &OrderedItem::ascendingSort);
    populate(menu, selection, entries);
    evaluateActionState(menu, selection);
    return false;
}

void ViewItem::populate(QMenu *menu, const QList<ViewItem *> &selection,
                        const QList<OrderedItem *> &entries)
{
    const bool multiple = selection.size() >= 2;
    bool added = false;
    bool separatorLast = false;
    for (const OrderedItem *entry : entries) {
        QObject *object = entry->object();
        if (!object) {
            // Separators never lead the menu and never follow each other.
            if (added && !separatorLast) {
                menu->addSeparator();
                separatorLast = true;
            }
            continue;
        }
        if (auto *available = qobject_cast<IAvailable *>(object)) {
            if (!available->evaluateAvailability(this, selection))
                continue;
        }
        if (auto *action = qobject_cast<QAction *>(object)) {
            subSpecialTags(action, entry->text(), multiple);
            menu->addAction(action);
        } else if (auto *subMenu = qobject_cast<QMenu *>(object)) {
            subSpecialTags(subMenu->menuAction(), entry->text(), multiple);
            menu->addMenu(subMenu);
        } else {
            continue;
        }
        added = true;
        separatorLast = false;
    }
}

void ViewItem::evaluateActionState(QMenu *menu, const QList<ViewItem *> &selection)
{
    if (auto *available = qobject_cast<IAvailable *>(menu))
        available->evaluateState(this, selection);
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (auto *subMenu = action->menu<QMenu *>())
            evaluateActionState(subMenu, selection);
        else if (auto *available = qobject_cast<IAvailable *>(action))
            available->evaluateState(this, selection);
    }
}

void ViewItem::subSpecialTags(QAction *action, const QString &text, bool multiple) const
{
    static const QString tag = QStringLiteral("_name_");
    if (!action || !text.contains(tag))
        return;
    const QString pattern = multiple ? QStringLiteral("'%1,...'") : QStringLiteral("'%1'");
    QString substituted = text;
    substituted.replace(tag, pattern.arg(getItemName()));
    action->setText(substituted);
}

} // namespace Velmora::Framework
