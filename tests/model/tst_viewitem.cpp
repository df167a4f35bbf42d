#include "testsupport.h"
#include "testtypes.h"

#include "core/iavailable.h"
#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "model/viewitem.h"
#include "model/viewmodel.h"
#include "types/itemtype.h"

#include <QtCore/qpointer.h>
#include <QtGui/qaction.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>

#include <memory>

using namespace Velmora::Framework;
using Velmora::Tests::TestTree;
using Velmora::Tests::TestType;

namespace {

using Tester = QAbstractItemModelTester;
constexpr auto QtTestReporting = QAbstractItemModelTester::FailureReportingMode::QtTest;

// Logs the three disposal calls every node makes on its type when it dies.
class RecordingType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;

    void aboutToDispose(ViewItem *item) override
    {
        log << QStringLiteral("aboutToDispose ") + item->getItemName();
        TestType::aboutToDispose(item);
    }
    void disposeEditorFor(ViewItem *item) override
    {
        log << QStringLiteral("disposeEditorFor ") + item->getItemName();
        TestType::disposeEditorFor(item);
    }
    void disposePropertyBagFor(ViewItem *item) override
    {
        log << QStringLiteral("disposePropertyBagFor ") + item->getItemName();
        TestType::disposePropertyBagFor(item);
    }

    QStringList log;
};

// Gives every node a payload and a default name.
class DataType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;

    QString getDefaultName() const override { return QStringLiteral("Untitled"); }
    ItemData *createDataInstance(QObject *parent) override { return new ItemData(parent); }
};

// An action that decides its own visibility and enabled state.
class AvailabilityAction : public QAction, public IAvailable
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IAvailable)

public:
    AvailabilityAction(const QString &text, bool available, bool enabled,
                       QObject *parent = nullptr)
        : QAction(text, parent), m_available(available), m_enabled(enabled)
    {
    }

    bool evaluateAvailability(const ViewItem *, const QList<ViewItem *> &) const override
    {
        return m_available;
    }
    bool evaluateState(const ViewItem *current, const QList<ViewItem *> &selection) override
    {
        ++stateEvaluations;
        stateCurrent = current;
        stateSelection = selection;
        setEnabled(m_enabled);
        return m_enabled;
    }

    int stateEvaluations = 0;
    const ViewItem *stateCurrent = nullptr;
    QList<ViewItem *> stateSelection;

private:
    bool m_available;
    bool m_enabled;
};

// A model whose insertions always fail.
class RefusingModel : public ViewModel
{
public:
    using ViewModel::ViewModel;
    bool insertItem(int, ViewItem *, const QModelIndex &) override { return false; }
};

QStringList names(const ViewItem *parent)
{
    QStringList result;
    for (int row = 0; row < parent->getChildItemCount(); ++row)
        result << parent->getChildItemAt(row)->getItemName();
    return result;
}

// Actions by text, separators as "-".
QStringList layout(const QMenu &menu)
{
    QStringList result;
    for (const QAction *action : menu.actions())
        result << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return result;
}

void addLeaves(const TestTree &tree, ViewItem *parent, const QStringList &leafNames)
{
    for (const QString &name : leafNames)
        parent->addChildItem(tree.leafItem(name));
}

QList<QVariant> rows(const QModelIndex &parent, int first, int last)
{
    return {QVariant::fromValue(parent), first, last};
}

bool byNameInsensitive(ViewItem *const &a, ViewItem *const &b)
{
    return a->getItemName().compare(b->getItemName(), Qt::CaseInsensitive) < 0;
}

bool byNameDescending(ViewItem *const &a, ViewItem *const &b)
{
    return b->getItemName() < a->getItemName();
}

const ViewItemCompare orderings[] = {nullptr, &byNameInsensitive, &byNameDescending};

} // namespace

class tst_ViewItem : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void reparentingRefusalsChangeNothing();
    void negativeRowAppendsAndSubtreeJoinsModel();
    void moveWithinSameParentCountsWithoutTheNode();
    void failedModelInsertLeavesNodeDetached();
    void typeThatCannotParentHidesItsChildren();
    void removeChildItemAtParentField();
    void removeAllChildItems();
    void removeAndDisposeDefersDeletion();
    void sortAndFindSortedChild_data();
    void sortAndFindSortedChild();
    void childNameUniquenessIsCaseSensitive();
    void associatedScopeWalksUpTheTree();
    void expandAndRefreshRequests();
    void destructionTellsTypeParentFirstDepthFirst();
    void payloadDiesWithNode();
    void contextMenuCollapsesSeparatorsAndEvaluatesActions();
    void contextMenuNamesMultipleSelection();
    void iconIsComposed();
};

void tst_ViewItem::reparentingRefusalsChangeNothing()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    TestTree tree;
    tree.registrar.registerType(new TestType(QStringLiteral("other")));
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    ViewItem *a = tree.folderItem(QStringLiteral("a"));
    ViewItem *x = tree.leafItem(QStringLiteral("x"));
    ViewItem *leafParent = tree.leafItem(QStringLiteral("l"));
    root->addChildItem(a);
    root->addChildItem(leafParent);
    a->addChildItem(x);
    std::unique_ptr<ViewItem> other(tree.make(QStringLiteral("other"), QStringLiteral("o")));

    ViewModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);

    QTest::ignoreMessage(QtWarningMsg, "ViewItem::addChildItem(): item ptr is null\n");
    root->addChildItem(nullptr);
    QTest::ignoreMessage(QtWarningMsg, "ViewItem::insertChildItem(): item ptr is null\n");
    root->insertChildItem(nullptr, 0);
    QTest::ignoreMessage(QtWarningMsg, "ViewItem::setParentItem(): parent ptr is null\n");
    x->setParentItem(nullptr, 0);
    const char refused[] =
        "ViewItem::setParentItem(): item type not allowed as child by the new parent\n";
    QTest::ignoreMessage(QtWarningMsg, refused);
    leafParent->addChildItem(x);
    QTest::ignoreMessage(QtWarningMsg, refused);
    root->insertChildItem(other.get(), 0);

    // The refused node stays where it was, and nobody was told of any row.
    QCOMPARE(x->getParentItem(), a);
    QCOMPARE(x->getItemIndex(), 0);
    QCOMPARE(names(a), QStringList{QStringLiteral("x")});
    QCOMPARE(leafParent->getChildItemAt(0), nullptr);
    QCOMPARE(names(root), (QStringList{QStringLiteral("a"), QStringLiteral("l")}));
    QCOMPARE(other->getParentItem(), nullptr);
    QCOMPARE(other->viewModel(), nullptr);
    QCOMPARE(inserted.size(), 0);
    QCOMPARE(removed.size(), 0);
}

void tst_ViewItem::negativeRowAppendsAndSubtreeJoinsModel()
{
    TestTree tree;
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    addLeaves(tree, root, {QStringLiteral("a"), QStringLiteral("b")});
    root->insertChildItem(tree.leafItem(QStringLiteral("c")), -5);
    QCOMPARE(names(root), (QStringList{"a", "b", "c"}));

    ViewModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    ViewItem *sub = tree.folderItem(QStringLiteral("sub"));
    ViewItem *inner = tree.leafItem(QStringLiteral("inner"));
    sub->addChildItem(inner);
    QCOMPARE(inner->viewModel(), nullptr);

    root->insertChildItem(sub, -1);
    QCOMPARE(names(root), (QStringList{"a", "b", "c", "sub"}));
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(inserted.at(0), rows(model.index(0, 0), 3, 3));
    QCOMPARE(sub->getParentItem(), root);
    QCOMPARE(sub->viewModel(), &model);
    QCOMPARE(inner->viewModel(), &model);
    QCOMPARE(inner->modelIndex(), model.index(0, 0, model.index(3, 0, model.index(0, 0))));
}

void tst_ViewItem::moveWithinSameParentCountsWithoutTheNode()
{
    TestTree tree;
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    addLeaves(tree, root, {"a", "b", "c", "d"});
    root->insertChildItem(root->getChildItemAt(0), 2);
    QCOMPARE(names(root), (QStringList{"b", "c", "a", "d"}));

    ViewModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    ViewItem *b = root->getChildItemAt(0);
    root->insertChildItem(b, 3);
    QCOMPARE(names(root), (QStringList{"c", "a", "d", "b"}));
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.at(0), rows(model.index(0, 0), 0, 0));
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(inserted.at(0), rows(model.index(0, 0), 3, 3));
    QCOMPARE(b->getParentItem(), root);
    QCOMPARE(b->viewModel(), &model);
}

void tst_ViewItem::failedModelInsertLeavesNodeDetached()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    TestTree tree;
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    ViewItem *from = tree.folderItem(QStringLiteral("from"));
    ViewItem *to = tree.folderItem(QStringLiteral("to"));
    root->addChildItem(from);
    root->addChildItem(to);
    from->addChildItem(tree.leafItem(QStringLiteral("x")));

    RefusingModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QPointer<ViewItem> x = from->getChildItemAt(0);
    QTest::ignoreMessage(QtWarningMsg, "ViewItem::setParentItem() : fail to insert child");
    to->addChildItem(x);

    // Removal from the old parent came first; the node is now the caller's.
    std::unique_ptr<ViewItem> orphan(x.data());
    QCOMPARE(removed.size(), 1);
    QCOMPARE(from->getChildItemCount(), 0);
    QCOMPARE(to->getChildItemCount(), 0);
    QCOMPARE(orphan->getParentItem(), nullptr);
    QCOMPARE(orphan->viewModel(), nullptr);
    orphan.reset();
    QVERIFY(x.isNull());
}

void tst_ViewItem::typeThatCannotParentHidesItsChildren()
{
    TestTree tree;
    std::unique_ptr<ViewItem> box(tree.folderItem(QStringLiteral("box")));
    ViewItem *child = tree.leafItem(QStringLiteral("x"));
    box->addChildItem(child);
    QPointer<ViewItem> guard(child);
    tree.folder->removeChildType(QStringLiteral("folder"));
    tree.folder->removeChildType(QStringLiteral("leaf"));
    QVERIFY(!tree.folder->canParent());

    QCOMPARE(box->getChildItemCount(), 0);
    QCOMPARE(box->removeChildItemAt(0), nullptr);
    QVERIFY(box->removeAllChildItems().isEmpty());
    box->removeAndDisposeAllChildItems();
    QCOMPARE(child->getParentItem(), box.get());
    QCOMPARE(child->getItemIndex(), 0);

    // The hidden child is still owned, and dies with its holder.
    box.reset();
    QVERIFY(guard.isNull());
}

void tst_ViewItem::removeChildItemAtParentField()
{
    TestTree tree;
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    ViewItem *a = tree.folderItem(QStringLiteral("a"));
    ViewItem *b = tree.folderItem(QStringLiteral("b"));
    root->addChildItem(a);
    root->addChildItem(b);
    addLeaves(tree, a, {QStringLiteral("x")});
    ViewItem *x = a->getChildItemAt(0);

    // Detached: the removed node still names its old parent...
    QCOMPARE(root->removeChildItemAt(-1), nullptr);
    QCOMPARE(root->removeChildItemAt(2), nullptr);
    QCOMPARE(root->removeChildItemAt(0), a);
    QCOMPARE(a->getParentItem(), root);
    QCOMPARE(a->getItemIndex(), -1);
    QCOMPARE(names(root), QStringList{QStringLiteral("b")});
    // ...until it is inserted elsewhere, which leaves the old parent alone.
    b->addChildItem(a);
    QCOMPARE(a->getParentItem(), b);
    QCOMPARE(names(root), QStringList{QStringLiteral("b")});

    ViewModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    const QModelIndex bIndex = model.index(0, 0, model.index(0, 0));
    std::unique_ptr<ViewItem> taken(b->removeChildItemAt(0));
    QCOMPARE(taken.get(), a);
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.at(0), rows(bIndex, 0, 0));
    // Through the model the field is cleared and the whole subtree detached.
    QCOMPARE(a->getParentItem(), nullptr);
    QCOMPARE(a->viewModel(), nullptr);
    QCOMPARE(x->viewModel(), nullptr);
    QCOMPARE(x->getParentItem(), a);
    QVERIFY(!x->modelIndex().isValid());
}

void tst_ViewItem::removeAllChildItems()
{
    TestTree tree;
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    addLeaves(tree, root, {"a", "b", "c"});
    const QList<ViewItem *> before = {root->getChildItemAt(0), root->getChildItemAt(1),
                                      root->getChildItemAt(2)};

    const QList<ViewItem *> detached = root->removeAllChildItems();
    QCOMPARE(detached, before);
    QCOMPARE(root->getChildItemCount(), 0);
    QCOMPARE(detached.at(1)->getParentItem(), root);
    QVERIFY(root->removeAllChildItems().isEmpty());
    qDeleteAll(detached);

    ViewItem *sub = tree.folderItem(QStringLiteral("sub"));
    addLeaves(tree, sub, {QStringLiteral("x")});
    root->addChildItem(sub);
    addLeaves(tree, root, {QStringLiteral("d")});
    ViewModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);

    const QList<ViewItem *> attached = root->removeAllChildItems();
    QCOMPARE(attached.size(), 2);
    QCOMPARE(attached.at(0), sub);
    QCOMPARE(attached.at(1)->getItemName(), QStringLiteral("d"));
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.at(0), rows(model.index(0, 0), 0, 1));
    for (ViewItem *node : attached) {
        QCOMPARE(node->getParentItem(), nullptr);
        QCOMPARE(node->viewModel(), nullptr);
    }
    QCOMPARE(sub->getChildItemAt(0)->viewModel(), nullptr);
    qDeleteAll(attached);
}

void tst_ViewItem::removeAndDisposeDefersDeletion()
{
    for (const bool attached : {false, true}) {
        TestTree tree;
        ViewItem *root = tree.folderItem(QStringLiteral("root"));
        ViewItem *sub = tree.folderItem(QStringLiteral("sub"));
        root->addChildItem(sub);
        addLeaves(tree, sub, {QStringLiteral("x")});
        addLeaves(tree, root, {QStringLiteral("y")});
        std::unique_ptr<ViewItem> rootOwner(attached ? nullptr : root);
        ViewModel model(nullptr, attached ? root : nullptr);
        Tester tester(&model, QtTestReporting);
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        QSignalSpy subGone(sub, &QObject::destroyed);
        QSignalSpy xGone(sub->getChildItemAt(0), &QObject::destroyed);
        QSignalSpy yGone(root->getChildItemAt(1), &QObject::destroyed);

        root->removeAndDisposeAllChildItems();
        QCOMPARE(root->getChildItemCount(), 0);
        QCOMPARE(removed.size(), attached ? 1 : 0);
        // Still alive: a caller up the stack may hold them.
        QCOMPARE(subGone.size(), 0);
        QCOMPARE(yGone.size(), 0);
        QTRY_COMPARE(subGone.size(), 1);
        QTRY_COMPARE(yGone.size(), 1);
        QCOMPARE(xGone.size(), 1);
    }
}

void tst_ViewItem::sortAndFindSortedChild_data()
{
    QTest::addColumn<QStringList>("children");
    QTest::addColumn<int>("ordering"); // index into orderings; -1 leaves the list unsorted
    QTest::addColumn<bool>("attached");
    QTest::addColumn<QStringList>("sorted");
    QTest::addColumn<QString>("probe");
    QTest::addColumn<QString>("found");

    const QStringList mixed = {"b", "C", "a", "B"};
    const QStringList byCodeUnit = {"B", "C", "a", "b"};
    QTest::newRow("default ordering compares code units")
        << mixed << 0 << false << byCodeUnit << "a" << "a";
    QTest::newRow("default ordering through the model")
        << mixed << 0 << true << byCodeUnit << "b" << "b";
    QTest::newRow("default ordering is case-sensitive")
        << mixed << 0 << false << byCodeUnit << "A" << QString();
    QTest::newRow("case-insensitive ordering")
        << QStringList{"b", "C", "a", "D"} << 1 << false << QStringList{"a", "b", "C", "D"}
        << "c" << "C";
    QTest::newRow("descending ordering")
        << mixed << 2 << false << QStringList{"b", "a", "C", "B"} << "C" << "C";
    // A binary search over an unsorted list misses "d", though it is there.
    QTest::newRow("unsorted list misses an existing child")
        << QStringList{"d", "a", "c"} << -1 << false << QStringList{"d", "a", "c"} << "d"
        << QString();
}

void tst_ViewItem::sortAndFindSortedChild()
{
    QFETCH(QStringList, children);
    QFETCH(int, ordering);
    QFETCH(bool, attached);
    QFETCH(QString, probe);
    QFETCH(QString, found);

    TestTree tree;
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    addLeaves(tree, root, children);
    std::unique_ptr<ViewItem> rootOwner(attached ? nullptr : root);
    ViewModel model(nullptr, attached ? root : nullptr);
    Tester tester(&model, QtTestReporting);

    const ViewItemCompare compare = ordering < 0 ? nullptr : orderings[ordering];
    if (ordering >= 0)
        root->sortChildren(compare);
    QTEST(names(root), "sorted");

    std::unique_ptr<ViewItem> probeItem(tree.leafItem(probe));
    const ViewItem *match = root->findSortedChild(probeItem.get(), compare);
    QCOMPARE(match ? match->getItemName() : QString(), found);
    if (match)
        QCOMPARE(match->getParentItem(), root);
}

void tst_ViewItem::childNameUniquenessIsCaseSensitive()
{
    TestTree tree;
    std::unique_ptr<ViewItem> root(tree.folderItem(QStringLiteral("root")));
    QVERIFY(root->isChildNameUnique(QStringLiteral("Readme")));
    addLeaves(tree, root.get(), {"Readme", "readme"});
    QCOMPARE(root->getChildItemCount(), 2);
    QVERIFY(!root->isChildNameUnique(QStringLiteral("Readme")));
    QVERIFY(!root->isChildNameUnique(QStringLiteral("readme")));
    QVERIFY(root->isChildNameUnique(QStringLiteral("README")));
    QVERIFY(root->isChildNameUnique(QStringLiteral("Read")));
}

void tst_ViewItem::associatedScopeWalksUpTheTree()
{
    TestTree tree;
    tree.registrar.registerType(new TestType(QStringLiteral("sim.root")), QStringLiteral("Sim"));
    tree.registrar.registerType(new TestType(QStringLiteral("sim.inner")), QStringLiteral("Inner"));
    tree.registrar.lookup(QStringLiteral("sim.root"))->addChildType(QStringLiteral("folder"), false);
    tree.registrar.lookup(QStringLiteral("sim.inner"))->addChildType(QStringLiteral("leaf"), false);
    tree.folder->addChildType(QStringLiteral("sim.inner"), false);

    std::unique_ptr<ViewItem> root(tree.make(QStringLiteral("sim.root"), QStringLiteral("root")));
    ViewItem *folder = tree.folderItem(QStringLiteral("folder"));
    ViewItem *inner = tree.make(QStringLiteral("sim.inner"), QStringLiteral("inner"));
    ViewItem *deep = tree.leafItem(QStringLiteral("deep"));
    ViewItem *inInner = tree.leafItem(QStringLiteral("inInner"));
    root->addChildItem(folder);
    folder->addChildItem(deep);
    folder->addChildItem(inner);
    inner->addChildItem(inInner);
    std::unique_ptr<ViewItem> loose(tree.leafItem(QStringLiteral("loose")));

    QCOMPARE(root->associatedScope(), QStringLiteral("Sim"));
    QCOMPARE(deep->associatedScope(), QStringLiteral("Sim"));
    QCOMPARE(inner->associatedScope(), QStringLiteral("Inner"));
    QCOMPARE(inInner->associatedScope(), QStringLiteral("Inner"));
    QCOMPARE(loose->associatedScope(), QString());
}

void tst_ViewItem::expandAndRefreshRequests()
{
    TestTree tree;
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    ViewItem *sub = tree.folderItem(QStringLiteral("sub"));
    ViewItem *empty = tree.folderItem(QStringLiteral("empty"));
    ViewItem *leaf = tree.leafItem(QStringLiteral("leaf"));
    root->addChildItem(sub);
    root->addChildItem(empty);
    root->addChildItem(leaf);
    addLeaves(tree, sub, {QStringLiteral("x")});
    sub->setExpanded(true);
    QVERIFY(!sub->expandedFlag());

    ViewModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    QSignalSpy expand(&model, &ViewModel::expandRequested);
    QSignalSpy collapse(&model, &ViewModel::collapseRequested);
    const QModelIndex rootIndex = model.index(0, 0);

    sub->setExpanded(true);
    QVERIFY(sub->expandedFlag());
    QCOMPARE(expand.size(), 1);
    QCOMPARE(expand.at(0).at(0).value<QModelIndex>(), model.index(0, 0, rootIndex));
    sub->setExpanded(false);
    QVERIFY(!sub->expandedFlag());
    QCOMPARE(collapse.size(), 1);
    QCOMPARE(collapse.at(0).at(0).value<QModelIndex>(), model.index(0, 0, rootIndex));
    root->setExpanded(true);
    QCOMPARE(expand.size(), 2);
    QCOMPARE(expand.at(1).at(0).value<QModelIndex>(), rootIndex);

    leaf->setExpanded(true);
    empty->setExpanded(true);
    QVERIFY(!leaf->expandedFlag());
    QVERIFY(!empty->expandedFlag());
    QCOMPARE(expand.size(), 2);

    // A collapsed node cannot be relaid out alone: the whole view refreshes.
    QSignalSpy refreshed(&model, &ViewModel::refreshRequested);
    QSignalSpy relayout(&model, &ViewModel::relayoutRequested);
    sub->refresh(true);
    QCOMPARE(refreshed.size(), 1);
    QCOMPARE(relayout.size(), 0);
    sub->setExpanded(true);
    sub->refresh(true);
    QCOMPARE(refreshed.size(), 1);
    QCOMPARE(relayout.size(), 1);
    QCOMPARE(relayout.at(0).at(0).value<QModelIndex>(), model.index(0, 0, rootIndex));
    sub->refresh(false);
    QCOMPARE(refreshed.size(), 2);

    // Once detached, asking to expand clears the remembered state.
    std::unique_ptr<ViewItem> taken(root->removeChildItemAt(0));
    QVERIFY(taken->expandedFlag());
    taken->setExpanded(true);
    QVERIFY(!taken->expandedFlag());
    taken->refresh(false);
    QCOMPARE(expand.size(), 3);
    QCOMPARE(refreshed.size(), 2);
}

void tst_ViewItem::destructionTellsTypeParentFirstDepthFirst()
{
    TestTree tree;
    auto *type = new RecordingType(QStringLiteral("node"));
    type->addChildType(QStringLiteral("node"), false);
    tree.registrar.registerType(type);
    auto make = [&](const QString &name) { return tree.make(QStringLiteral("node"), name); };
    ViewItem *root = make(QStringLiteral("root"));
    ViewItem *a = make(QStringLiteral("a"));
    root->addChildItem(a);
    a->addChildItem(make(QStringLiteral("a1")));
    a->addChildItem(make(QStringLiteral("a2")));
    root->addChildItem(make(QStringLiteral("b")));
    QPointer<ItemPropertyBag> bag = a->getPropertyBag();
    QVERIFY(bag);
    QCOMPARE(a->getPropertyBag(), bag.data());

    delete root;
    QStringList expected;
    for (const char *name : {"root", "a", "a1", "a2", "b"}) {
        const QString node = QString::fromLatin1(name);
        expected << QStringLiteral("aboutToDispose ") + node
                 << QStringLiteral("disposeEditorFor ") + node
                 << QStringLiteral("disposePropertyBagFor ") + node;
    }
    QCOMPARE(type->log, expected);
    QVERIFY(bag.isNull());
    QVERIFY(type->getPropertyBagMap().isEmpty());
}

void tst_ViewItem::payloadDiesWithNode()
{
    TestTree tree;
    tree.registrar.registerType(new DataType(QStringLiteral("data")));
    std::unique_ptr<ViewItem> node(tree.make(QStringLiteral("data"), QStringLiteral("n")));
    QPointer<ItemData> data = node->getItemData();
    QVERIFY(data);

    data->setDirty(true);
    node->setItemPath(QStringLiteral("/tmp/n"));
    node->reset();
    QVERIFY(!data->isDirty());
    QVERIFY(node->getItemPath().isEmpty());
    QCOMPARE(node->getItemName(), QStringLiteral("Untitled"));

    node.reset();
    QVERIFY(data.isNull());

    // A payload deleted elsewhere first is not deleted again.
    node.reset(tree.make(QStringLiteral("data"), QStringLiteral("m")));
    delete node->getItemData();
    QCOMPARE(node->getItemData(), nullptr);
    node.reset();
}

void tst_ViewItem::contextMenuCollapsesSeparatorsAndEvaluatesActions()
{
    TestTree tree;
    ItemType *type = tree.leaf;
    type->setDefMenus(ItemType::CopyMenu);
    auto *open = new AvailabilityAction(QStringLiteral("Open _name_"), true, false);
    auto *hidden = new AvailabilityAction(QStringLiteral("Hidden _name_"), false, true);
    auto *send = new QMenu(QStringLiteral("Send _name_"));
    auto *inner = new AvailabilityAction(QStringLiteral("Inner"), true, false, send);
    send->addAction(inner);
    type->addMenuSeperator(1);
    type->addMenuItem(open, 20);
    type->addMenuItem(hidden, 21);
    type->addMenuSeperator(22);
    type->addMenuItem(send, 40);
    type->addMenuItem(new QAction(QStringLiteral("Keep _NAME_")), 70000);
    std::unique_ptr<ViewItem> node(tree.leafItem(QStringLiteral("a.m")));

    QMenu menu;
    QVERIFY(!node->contextMenu(&menu));
    QCOMPARE(layout(menu), (QStringList{"Open 'a.m'", "-", "Send 'a.m'", "-", "Cop&y",
                                        "Keep _NAME_"}));
    QVERIFY(!open->isEnabled());
    QCOMPARE(open->stateEvaluations, 1);
    QCOMPARE(open->stateCurrent, node.get());
    QCOMPARE(open->stateSelection, QList<ViewItem *>{node.get()});
    QCOMPARE(hidden->stateEvaluations, 0);
    // Actions of sub-menus are evaluated too.
    QCOMPARE(inner->stateEvaluations, 1);
    QVERIFY(!inner->isEnabled());
}

void tst_ViewItem::contextMenuNamesMultipleSelection()
{
    TestTree tree;
    tree.leaf->setDefMenus({});
    auto *open = new QAction(QStringLiteral("Open _name_ now"));
    tree.leaf->addMenuItem(open, 20);
    ViewItem *root = tree.folderItem(QStringLiteral("root"));
    addLeaves(tree, root, {"a.m", "b.m"});
    ViewItem *a = root->getChildItemAt(0);
    ViewItem *b = root->getChildItemAt(1);
    ViewModel model(nullptr, root);
    Tester tester(&model, QtTestReporting);
    const QModelIndex aIndex = a->modelIndex(), bIndex = b->modelIndex();

    model.handleSelectionChanged(QItemSelection(aIndex, aIndex), {});
    QMenu single;
    a->contextMenu(&single);
    QVERIFY(single.actions().contains(open));
    QCOMPARE(open->text(), QStringLiteral("Open 'a.m' now"));

    // The template, not the text left by the last menu, is substituted.
    model.handleSelectionChanged(QItemSelection(bIndex, bIndex), {});
    QMenu multipleOnA;
    a->contextMenu(&multipleOnA);
    QCOMPARE(open->text(), QStringLiteral("Open 'a.m,...' now"));
    QMenu multipleOnB;
    b->contextMenu(&multipleOnB);
    QCOMPARE(open->text(), QStringLiteral("Open 'b.m,...' now"));
}

void tst_ViewItem::iconIsComposed()
{
    TestTree tree;
    std::unique_ptr<ViewItem> node(tree.leafItem(QStringLiteral("n")));
    for (const int mode : {0, 1}) {
        const QIcon icon = node->getIcon(mode);
        QVERIFY(!icon.isNull());
        QVERIFY(!icon.pixmap(16, 16).isNull());
    }
}

VELMORA_TEST(tst_ViewItem);
#include "tst_viewitem.moc"
