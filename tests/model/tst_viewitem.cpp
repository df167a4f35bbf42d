#include "testsupport.h"
#include "testedmodel.h"
#include "testtypes.h"

#include "core/applicationhooks.h"
#include "core/defaultaggregatable.h"
#include "core/iavailable.h"
#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itemtype.h"

#include <QtCore/qpointer.h>
#include <QtGui/qaction.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Velmora::Tests;

namespace {

class AvailabilityAction : public QAction, public IAvailable
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAvailable)

public:
    using QAction::QAction;
    bool evaluateAvailability(const ViewItem *, const QList<ViewItem *> &) const override
    {
        return available;
    }
    bool evaluateState(const ViewItem *current, const QList<ViewItem *> &selection) override
    {
        evaluations << qMakePair(current, selection);
        setEnabled(false);
        return false;
    }

    bool available = true;
    QList<QPair<const ViewItem *, QList<ViewItem *>>> evaluations;
};

// Adds one entry to every node's menu, as the running application's aggregatables do.
class ExtraEntry : public DefaultAggregatable
{
public:
    bool contextMenu(ViewItem *, const QList<ViewItem *> &, QList<OrderedItem *> &out) override
    {
        out.append(&entry);
        return true;
    }
    OrderedItem entry{0, new QAction(QStringLiteral("Extra"))};
};

class RefusingModel : public TestedModel
{
public:
    using TestedModel::TestedModel;
    bool insertItem(int, ViewItem *, const QModelIndex &) override { return false; }
};

bool byNameInsensitive(ViewItem *const &a, ViewItem *const &b)
{
    return a->getItemName().compare(b->getItemName(), Qt::CaseInsensitive) < 0;
}

} // namespace

class tst_ViewItem : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarnings();
        // root { a { x }, b }, detached: folders a and b, leaf x.
        m_tree = std::make_unique<TestTree>();
        m_root.reset(m_tree->folderItem("root"));
        m_a = m_tree->folderItem("a");
        m_b = m_tree->folderItem("b");
        m_x = m_tree->leafItem("x");
        m_root->addChildItem(m_a);
        m_root->addChildItem(m_b);
        m_a->addChildItem(m_x);
    }
    void cleanup()
    {
        m_root.reset();
        m_tree.reset();
    }

    void refusedReparentingChangesNothing();
    void insertionRowsAndMovesWithinParent();
    void typeThatCannotParentHidesItsChildren();
    void removalClearsParentOnlyThroughModel();
    void removeAndDisposeDefersDeletion();
    void sortAndFindSortedChild_data();
    void sortAndFindSortedChild();
    void childNamesAndScope();
    void expandAndRefreshRequests();
    void destructionTellsTypeParentFirstDepthFirst();
    void contextMenuFiltersOrdersAndNamesSelection();

private:
    void addLeaves(ViewItem *parent, const QStringList &leafNames) const
    {
        for (const QString &name : leafNames)
            parent->addChildItem(m_tree->leafItem(name));
    }

    std::unique_ptr<TestTree> m_tree;
    std::unique_ptr<ViewItem> m_root;
    ViewItem *m_a = nullptr;
    ViewItem *m_b = nullptr;
    ViewItem *m_x = nullptr;
};

void tst_ViewItem::refusedReparentingChangesNothing()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    m_tree->registrar.registerType(new TestType(QStringLiteral("other")));
    std::unique_ptr<ViewItem> other(m_tree->make("other", "o"));

    QTest::ignoreMessage(QtWarningMsg, "ViewItem::addChildItem(): item ptr is null\n");
    m_root->addChildItem(nullptr);
    QTest::ignoreMessage(QtWarningMsg, "ViewItem::insertChildItem(): item ptr is null\n");
    m_root->insertChildItem(nullptr, 0);
    QTest::ignoreMessage(QtWarningMsg, "ViewItem::setParentItem(): parent ptr is null\n");
    m_x->setParentItem(nullptr, 0);
    // The parent's type is asked about the child's type id: a folder takes no "other".
    QTest::ignoreMessage(
        QtWarningMsg, "ViewItem::setParentItem(): item type not allowed as child by the new parent\n");
    m_root->insertChildItem(other.get(), 0);
    QCOMPARE(outline(m_root.get()), "root[a[x],b]");
    QCOMPARE(other->getParentItem(), nullptr);

    // When the model refuses, removal from the old parent came first: the node is the caller's.
    RefusingModel model(nullptr, m_root.release());
    QTest::ignoreMessage(QtWarningMsg, "ViewItem::setParentItem() : fail to insert child");
    m_b->addChildItem(m_x);
    std::unique_ptr<ViewItem> orphan(m_x);
    QCOMPARE(outline(model.rootItem()), "root[a,b]");
    QCOMPARE(orphan->viewModel(), nullptr);
}

void tst_ViewItem::insertionRowsAndMovesWithinParent()
{
    addLeaves(m_root.get(), {"c", "d"});
    // Any negative row appends; a node moved within its parent leaves first, so the row
    // counts without it.
    m_root->insertChildItem(m_tree->leafItem("e"), -5);
    m_root->insertChildItem(m_a, 2);
    QCOMPARE(outline(m_root.get()), "root[b,c,a[x],d,e]");

    TestedModel model(nullptr, m_root.release());
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    ViewItem *root = model.rootItem();
    root->insertChildItem(m_b, 3);
    QCOMPARE(outline(root), "root[c,a[x],d,b,e]");
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.at(0), rows(model.index(0, 0), 0, 0));
    QCOMPARE(inserted.at(0), rows(model.index(0, 0), 3, 3));
    root->insertChildItem(m_tree->leafItem("f"), -1);
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(inserted.at(1), rows(model.index(0, 0), 5, 5));
}

void tst_ViewItem::typeThatCannotParentHidesItsChildren()
{
    QPointer<ViewItem> x = m_x;
    m_tree->folder->removeChildType(QStringLiteral("folder"));
    m_tree->folder->removeChildType(QStringLiteral("leaf"));
    QCOMPARE(m_a->getChildItemCount(), 0);
    QCOMPARE(m_a->removeChildItemAt(0), nullptr);
    m_a->removeAndDisposeAllChildItems();
    QCOMPARE(m_x->getItemIndex(), 0);
    // Hidden children are still owned, and die with their holder.
    m_root.reset();
    QVERIFY(x.isNull());
}

void tst_ViewItem::removalClearsParentOnlyThroughModel()
{
    // Detached: a removed node still names its old parent...
    QCOMPARE(m_root->removeChildItemAt(-1), nullptr);
    QCOMPARE(m_root->removeChildItemAt(2), nullptr);
    QCOMPARE(m_root->removeChildItemAt(0), m_a);
    QCOMPARE(m_a->getParentItem(), m_root.get());
    QCOMPARE(m_a->getItemIndex(), -1);
    // ...until it is inserted elsewhere, which leaves the old parent alone.
    m_b->addChildItem(m_a);
    QCOMPARE(outline(m_root.get()), "root[b[a[x]]]");
    QCOMPARE(m_b->removeAllChildItems(), QList<ViewItem *>{m_a});
    QCOMPARE(m_a->getParentItem(), m_b);
    m_b->addChildItem(m_a);
    addLeaves(m_root.get(), {"c"});

    TestedModel model(nullptr, m_root.release());
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    std::unique_ptr<ViewItem> taken(m_b->removeChildItemAt(0));
    QCOMPARE(taken.get(), m_a);
    QCOMPARE(removed.at(0), rows(m_b->modelIndex(), 0, 0));
    // Through the model the field is cleared and the whole subtree detached.
    QCOMPARE(m_a->getParentItem(), nullptr);
    QCOMPARE(m_x->viewModel(), nullptr);
    const QList<ViewItem *> all = model.rootItem()->removeAllChildItems();
    QCOMPARE(all.size(), 2);
    QCOMPARE(removed.at(1), rows(model.index(0, 0), 0, 1));
    QCOMPARE(all.at(1)->viewModel(), nullptr);
    qDeleteAll(all);
}

void tst_ViewItem::removeAndDisposeDefersDeletion()
{
    TestedModel model(nullptr, m_root.release());
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy aGone(m_a, &QObject::destroyed);
    QSignalSpy xGone(m_x, &QObject::destroyed);

    model.rootItem()->removeAndDisposeAllChildItems();
    QCOMPARE(removed.size(), 1);
    // Still alive: a caller up the stack may hold them.
    QCOMPARE(aGone.size(), 0);
    QTRY_COMPARE(aGone.size(), 1);
    QCOMPARE(xGone.size(), 1);
}

void tst_ViewItem::sortAndFindSortedChild_data()
{
    QTest::addColumn<QStringList>("children");
    QTest::addColumn<int>("ordering"); // 0: default, 1: case-insensitive, -1: left unsorted
    QTest::addColumn<QString>("sorted");
    QTest::addColumn<QString>("probe");
    QTest::addColumn<QString>("found");

    QTest::newRow("default ordering: case-sensitive code units")
        << QStringList{"b", "C", "a", "B"} << 0 << "b[B,C,a,b]" << "a" << "a";
    QTest::newRow("case-insensitive ordering")
        << QStringList{"b", "C", "a", "D"} << 1 << "b[a,b,C,D]" << "c" << "C";
    // A binary search over an unsorted list misses "d", though it is there.
    QTest::newRow("unsorted list misses an existing child")
        << QStringList{"d", "a", "c"} << -1 << "b[d,a,c]" << "d" << QString();
}

void tst_ViewItem::sortAndFindSortedChild()
{
    QFETCH(QStringList, children);
    QFETCH(int, ordering);
    QFETCH(QString, probe);

    addLeaves(m_b, children);
    const ViewItemCompare compare = ordering == 1 ? &byNameInsensitive : nullptr;
    if (ordering >= 0)
        m_b->sortChildren(compare);
    QTEST(outline(m_b), "sorted");
    // Each child finds its new row.
    for (int row = 0; row < m_b->getChildItemCount(); ++row)
        QCOMPARE(m_b->getChildItemAt(row)->getItemIndex(), row);

    std::unique_ptr<ViewItem> probeItem(m_tree->leafItem(probe));
    const ViewItem *match = m_b->findSortedChild(probeItem.get(), compare);
    QTEST(match ? match->getItemName() : QString(), "found");
}

void tst_ViewItem::childNamesAndScope()
{
    auto *scoped = new TestType(QStringLiteral("scoped"));
    scoped->addChildType(QStringLiteral("folder"), false);
    m_tree->registrar.registerType(scoped, QStringLiteral("Sim"));
    std::unique_ptr<ViewItem> top(m_tree->make("scoped", "top"));
    top->addChildItem(m_root.release());
    addLeaves(m_b, {"Readme", "readme"});

    // Names differing in letter case coexist.
    QVERIFY(!m_b->isChildNameUnique(QStringLiteral("readme")));
    QVERIFY(m_b->isChildNameUnique(QStringLiteral("README")));
    // A type without a scope takes its ancestors'.
    QCOMPARE(m_x->associatedScope(), QStringLiteral("Sim"));
    std::unique_ptr<ViewItem> loose(m_tree->leafItem("loose"));
    QCOMPARE(loose->associatedScope(), QString());
}

void tst_ViewItem::expandAndRefreshRequests()
{
    m_a->setExpanded(true);
    QVERIFY(!m_a->expandedFlag()); // detached
    TestedModel model(nullptr, m_root.release());
    QSignalSpy expand(&model, &ViewModel::expandRequested);
    QSignalSpy collapse(&model, &ViewModel::collapseRequested);
    QSignalSpy refreshed(&model, &ViewModel::refreshRequested);
    QSignalSpy relayout(&model, &ViewModel::relayoutRequested);

    // A collapsed node cannot be relaid out alone: the whole view refreshes.
    m_a->refresh(true);
    QCOMPARE(refreshed.size(), 1);
    m_a->setExpanded(true);
    QVERIFY(m_a->expandedFlag());
    QCOMPARE(expand.at(0).at(0).value<QModelIndex>(), m_a->modelIndex());
    // A sibling inserted in front moves the node; it keeps its flag and finds its new row.
    {
        ViewModelWriteLocker locker(&model);
        model.rootItem()->insertChildItem(m_tree->leafItem("first"), 0);
    }
    QCOMPARE(m_a->getItemIndex(), 1);
    QVERIFY(m_a->expandedFlag());
    m_a->refresh(true);
    QCOMPARE(refreshed.size(), 1);
    QCOMPARE(relayout.at(0).at(0).value<QModelIndex>(), m_a->modelIndex());
    m_a->setExpanded(false);
    QCOMPARE(collapse.at(0).at(0).value<QModelIndex>(), m_a->modelIndex());

    // Nothing to expand: a folder without children, or a leaf.
    m_b->setExpanded(true);
    m_x->setExpanded(true);
    QVERIFY(!m_b->expandedFlag());
    QVERIFY(!m_x->expandedFlag());
    QCOMPARE(expand.size(), 1);
}

void tst_ViewItem::destructionTellsTypeParentFirstDepthFirst()
{
    auto *type = new RecordingType(QStringLiteral("node"));
    type->addChildType(QStringLiteral("node"), false);
    m_tree->registrar.registerType(type);
    ViewItem *root = m_tree->make("node", "root");
    ViewItem *a = m_tree->make("node", "a");
    root->addChildItem(a);
    a->addChildItem(m_tree->make("node", "a1"));
    a->addChildItem(m_tree->make("node", "a2"));
    root->addChildItem(m_tree->make("node", "b"));
    QPointer<ItemPropertyBag> bag = a->getPropertyBag();
    QPointer<ItemData> data = a->getItemData();
    // reset() clears the payload and the path, and takes the type's default name.
    data->setDirty(true);
    a->setItemPath(QStringLiteral("/tmp/a"));
    a->reset();
    QVERIFY(!data->isDirty());
    QVERIFY(a->getItemPath().isEmpty());
    // A payload deleted elsewhere first is not deleted again.
    delete root->getChildItemAt(1)->getItemData();

    delete root;
    QStringList expected;
    for (const QString node : {"root", "Untitled", "a1", "a2", "b"})
        expected << "aboutToDispose " + node << "disposeEditorFor " + node
                 << "disposePropertyBagFor " + node;
    QCOMPARE(type->calls, expected);
    QVERIFY(bag.isNull());
    QVERIFY(data.isNull());
}

void tst_ViewItem::contextMenuFiltersOrdersAndNamesSelection()
{
    ItemType *type = m_tree->leaf;
    type->setDefMenus(ItemType::CopyMenu);
    auto *open = new AvailabilityAction(QStringLiteral("Open _name_ now"));
    auto *hidden = new AvailabilityAction(QStringLiteral("Hidden"));
    hidden->available = false;
    auto *send = new QMenu(QStringLiteral("Send _name_"));
    auto *inner = new AvailabilityAction(QStringLiteral("Inner"), send);
    send->addAction(inner);
    type->addMenuSeperator(1);
    type->addMenuItem(open, 20);
    type->addMenuItem(hidden, 21);
    type->addMenuSeperator(22);
    type->addMenuItem(send, 40);
    type->addMenuItem(new QAction(QStringLiteral("Keep _NAME_")), 70000);
    addLeaves(m_b, {"a.m", "b.m"});
    ViewItem *a = m_b->getChildItemAt(0);
    ViewItem *b = m_b->getChildItemAt(1);

    // Detached, the selection is the node itself. No separator leads or doubles; unavailable
    // entries go; the states of sub-menu actions are evaluated too.
    QMenu menu;
    QVERIFY(!a->contextMenu(&menu));
    QStringList shown;
    for (const QAction *action : menu.actions())
        shown << (action->isSeparator() ? QStringLiteral("-") : action->text());
    QCOMPARE(shown,
             QStringList({"Open 'a.m' now", "-", "Send 'a.m'", "-", "Cop&y", "Keep _NAME_"}));
    QCOMPARE(open->evaluations, (QList<QPair<const ViewItem *, QList<ViewItem *>>>{{a, {a}}}));
    QVERIFY(!open->isEnabled());
    QVERIFY(!inner->isEnabled());

    // Two selected: the name of the clicked node, marked as one of several. The template, not
    // the text the last menu left, is substituted.
    TestedModel model(nullptr, m_root.release());
    model.handleSelectionChanged(QItemSelection(a->modelIndex(), b->modelIndex()), {});
    QMenu multiple;
    b->contextMenu(&multiple);
    QCOMPARE(open->text(), QStringLiteral("Open 'b.m,...' now"));

    // The installed application's aggregatables contribute, and only while it lives.
    ExtraEntry extra;
    QList<IAggregatable *> aggregatables{&extra};
    auto environment = std::make_unique<QObject>();
    ApplicationHooks::install(environment.get(), nullptr, &aggregatables);
    QMenu withExtra, afterwards;
    a->contextMenu(&withExtra);
    environment.reset();
    a->contextMenu(&afterwards);
    ApplicationHooks::clear();
    QCOMPARE(withExtra.actions().first()->text(), QStringLiteral("Extra"));
    QCOMPARE(afterwards.actions().first()->text(), QStringLiteral("Open 'a.m,...' now"));
}

VELMORA_TEST(tst_ViewItem);
#include "tst_viewitem.moc"
