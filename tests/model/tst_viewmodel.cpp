#include "testsupport.h"
#include "testtypes.h"
#include "worker.h"

#include "model/itemdata.h"
#include "model/itemtypemimecodec.h"
#include "model/viewmodel.h"

#include <QtCore/qmimedata.h>
#include <QtGui/qfont.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

using namespace Velmora::Framework;
using Velmora::Tests::await;
using Velmora::Tests::Semaphore;
using Velmora::Tests::TestType;
using Velmora::Tests::threadTimeout;
using Velmora::Tests::Worker;

namespace {

// Records what the model asks of the type, and makes the hooks the model relies on visible.
class RecordingType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;

    QString composeItemDispName(ViewItemBase *item) const override
    {
        return QLatin1Char('<') + item->getItemName() + QLatin1Char('>');
    }
    ItemData *createDataInstance(QObject *context) override { return new ItemData(context); }
    bool doNameChange(ViewItem *item, const QString &name) override
    {
        calls << QStringLiteral("doNameChange %1 %2").arg(item->getItemName(), name);
        return !refuseRename && TestType::doNameChange(item, name);
    }
    void nameChanged(ViewItem *item, const QString &oldName) override
    {
        calls << QStringLiteral("nameChanged %1 %2").arg(oldName, item->getItemName());
        TestType::nameChanged(item, oldName);
    }
    bool constructMimeData(QMimeData *mime, QList<ViewItem *> items, MimeDataHint hint) override
    {
        for (ViewItem *item : items)
            calls << QStringLiteral("mime ") + item->getItemName();
        return TestType::constructMimeData(mime, items, hint);
    }
    bool performDropAction(ViewItem *target, const QMimeData *mime,
                           Qt::DropAction action) override
    {
        calls << QStringLiteral("drop %1 %2").arg(target->getItemName()).arg(int(action));
        droppedData = mime;
        return acceptDrop;
    }

    QStringList calls;
    bool refuseRename = false;
    bool acceptDrop = true;
    const QMimeData *droppedData = nullptr;
};

// Folders take folders and leaves; leaves take nothing. The registrar owns the types.
struct Fixture
{
    Fixture()
    {
        folder->addChildType(QStringLiteral("folder"), false);
        folder->addChildType(QStringLiteral("leaf"), false);
        registrar.registerType(folder);
        registrar.registerType(leaf);
    }
    ~Fixture() { registrar.deallocateAll(); }

    ViewItem *folderItem(const QString &name) const
    {
        return registrar.createItem(QStringLiteral("folder"), name);
    }
    ViewItem *leafItem(const QString &name) const
    {
        return registrar.createItem(QStringLiteral("leaf"), name);
    }
    // root { f { f1, f2 }, a, b }, detached.
    ViewItem *tree() const
    {
        ViewItem *root = folderItem(QStringLiteral("root"));
        ViewItem *f = folderItem(QStringLiteral("f"));
        f->addChildItem(leafItem(QStringLiteral("f1")));
        f->addChildItem(leafItem(QStringLiteral("f2")));
        root->addChildItem(f);
        root->addChildItem(leafItem(QStringLiteral("a")));
        root->addChildItem(leafItem(QStringLiteral("b")));
        return root;
    }

    TypeRegistrar registrar;
    RecordingType *folder = new RecordingType(QStringLiteral("folder"));
    RecordingType *leaf = new RecordingType(QStringLiteral("leaf"));
};

// createIndex is protected; tests need indexes the model would never hand out.
class ProbeModel : public ViewModel
{
public:
    using ViewModel::ViewModel;
    QModelIndex make(int row, int column, ViewItem *node) const
    {
        return createIndex(row, column, node);
    }
};

ViewItem *nodeOf(const QModelIndex &index)
{
    return static_cast<ViewItem *>(index.internalPointer());
}

QStringList childNames(const ViewModel &model, const QModelIndex &parent)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(parent); ++row)
        names << model.data(model.index(row, 0, parent), Qt::EditRole).toString();
    return names;
}

// Records every message and passes it on, so that QtTest still pins and fails them.
class MessageLog
{
public:
    MessageLog() : m_previous(qInstallMessageHandler(&record)) { s_current = this; }
    ~MessageLog()
    {
        qInstallMessageHandler(m_previous);
        s_current = nullptr;
    }
    QStringList messages;

private:
    static void record(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        s_current->messages << text;
        if (s_current->m_previous)
            s_current->m_previous(type, context, text);
    }
    static inline MessageLog *s_current = nullptr;
    QtMessageHandler m_previous;
};

// True when another thread can take the write lock. Should this thread still hold it, the
// other thread would wait for ever; the hold is then unwound so that the test still ends.
bool freeForOtherThreads(ViewModel *model)
{
    Semaphore locked;
    Worker other([&] {
        ViewModelWriteLocker locker(model);
        locked.release();
    });
    if (locked.tryAcquire(1, threadTimeout))
        return true;
    for (int i = 0; i < 16 && !locked.tryAcquire(1, 100); ++i) {
        // Both copies unlock: one unlock more than lock.
        ViewModelWriteLocker extra(model);
        ViewModelWriteLocker copy(extra);
    }
    return false;
}

using Tester = QAbstractItemModelTester;
constexpr auto QtTestReporting = QAbstractItemModelTester::FailureReportingMode::QtTest;

} // namespace

class tst_ViewModel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_fx = std::make_unique<Fixture>();
    }
    void cleanup() { m_fx.reset(); }

    void indexesFollowTheTree();
    void dataWarnsOnBadIndexesAndColumns_data();
    void dataWarnsOnBadIndexesAndColumns();
    void dataAnswersEachRole();
    void flagsFollowTypeAttributes_data();
    void flagsFollowTypeAttributes();
    void flagsWarnForNodeWithoutType();

    void insertionIsAnnouncedWithAutoSync();
    void autoSyncSuspensionsNest_data();
    void autoSyncSuspensionsNest();
    void removalIsAlwaysAnnouncedAndConfirmedOnce();
    void sortItemsReordersSilently();
    void setDataRenames_data();
    void setDataRenames();

    void mimeDataEncodesTopmostNodesOnly();
    void dropIsDelegatedToTargetType();
    void destructorDisposesTreeAndLogs_data();
    void destructorDisposesTreeAndLogs();
    void destroyingModelWithoutRootOnlyLogs();
    void currentAndSelectionChanges();

    void writeHolderReentersInAnyOrder_data();
    void writeHolderReentersInAnyOrder();
    void extraUnlocksAreHarmless();
    void slotMayLockAgainUnderSetData();
    void readersSeeOnlyWholeWrites();

private:
    std::unique_ptr<Fixture> m_fx;
};

void tst_ViewModel::indexesFollowTheTree()
{
    ViewModel empty;
    Tester emptyTester(&empty, QtTestReporting);
    QCOMPARE(empty.rowCount(), 0);
    QVERIFY(!empty.hasChildren());
    QVERIFY(!empty.index(0, 0).isValid());

    ProbeModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    ViewItem *root = model.rootItem();
    ViewItem *f = root->getChildItemAt(0);

    // The root is the single top-level row, whatever row is asked for.
    QCOMPARE(model.rowCount(), 1);
    QVERIFY(model.hasChildren());
    const QModelIndex top = model.index(0, 0);
    QCOMPARE(nodeOf(top), root);
    const QModelIndex fifth = model.index(5, 0);
    QVERIFY(fifth.isValid());
    QCOMPARE(fifth.row(), 5);
    QCOMPARE(nodeOf(fifth), root);
    QVERIFY(!model.parent(top).isValid());

    QCOMPARE(model.rowCount(top), 3);
    QCOMPARE(childNames(model, top), QStringList({"f", "a", "b"}));
    const QModelIndex fIndex = model.index(0, 0, top);
    const QModelIndex f2 = model.index(1, 0, fIndex);
    QCOMPARE(nodeOf(f2), f->getChildItemAt(1));
    QCOMPARE(model.parent(f2), fIndex);
    QCOMPARE(model.parent(model.index(2, 0, top)), top);
    QCOMPARE(f->getChildItemAt(1)->modelIndex(), f2);
    QVERIFY(!model.index(3, 0, top).isValid());
    QVERIFY(!model.index(-1, 0, top).isValid());
    QVERIFY(model.hasChildren(fIndex));
    QVERIFY(!model.hasChildren(f2));
    QCOMPARE(model.rowCount(f2), 0);

    // calculateIndex pins the root to row 0 and trusts the caller's row elsewhere.
    QCOMPARE(model.calculateIndex(7, root), top);
    QCOMPARE(model.calculateIndex(4, f), model.make(4, 0, f));

    QTest::ignoreMessage(QtWarningMsg, "index: column 1 does not exist");
    QVERIFY(!model.index(0, 1, top).isValid());
    QTest::ignoreMessage(QtWarningMsg, "index: column -1 does not exist");
    QVERIFY(!model.index(0, -1).isValid());

    const QModelIndex noNode = model.make(0, 0, nullptr);
    QTest::ignoreMessage(QtWarningMsg, "parent: valid index without node");
    QVERIFY(!model.parent(noNode).isValid());
    QTest::ignoreMessage(QtWarningMsg, "hasChildren: valid index without node");
    QVERIFY(!model.hasChildren(noNode));
    QCOMPARE(model.rowCount(noNode), 0);

    // A folder taken out of the root's list still names the root as its parent.
    const QList<ViewItem *> children{f, root->getChildItemAt(1), root->getChildItemAt(2)};
    model.replace_childitems(root, children.mid(1));
    QTest::ignoreMessage(QtWarningMsg, "parent: the row was invalid");
    QVERIFY(!model.parent(f2).isValid());
    model.replace_childitems(root, children);
    QCOMPARE(model.parent(f2), fIndex);
}

void tst_ViewModel::dataWarnsOnBadIndexesAndColumns_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");
    QTest::addColumn<QString>("warning");

    // column -1 stands for the invalid index, -2 for a valid index without node.
    QTest::newRow("invalid index") << -1 << int(Qt::DisplayRole) << QVariant()
                                   << "data: the index was not valid";
    QTest::newRow("index without node") << -2 << int(Qt::EditRole) << QVariant()
                                        << "data: the item does not exist";
    QTest::newRow("display, column 1 equals the count: answered")
        << 1 << int(Qt::DisplayRole) << QVariant("<a>") << QString();
    QTest::newRow("edit, column 1 answered")
        << 1 << int(Qt::EditRole) << QVariant("a") << QString();
    QTest::newRow("tool tip, column 1 answered")
        << 1 << int(Qt::ToolTipRole) << QVariant("<a>") << QString();
    QTest::newRow("display, column 2") << 2 << int(Qt::DisplayRole) << QVariant()
                                       << "data: invalid display value column 2";
    QTest::newRow("edit, column 2") << 2 << int(Qt::EditRole) << QVariant()
                                    << "data: invalid display value column 2";
    QTest::newRow("tool tip, column 3") << 3 << int(Qt::ToolTipRole) << QVariant()
                                        << "data: invalid display value column 3";
    QTest::newRow("decoration, column 1: empty")
        << 1 << int(Qt::DecorationRole) << QVariant() << QString();
}

void tst_ViewModel::dataWarnsOnBadIndexesAndColumns()
{
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(QVariant, expected);
    QFETCH(QString, warning);

    ProbeModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    ViewItem *a = model.rootItem()->getChildItemAt(1);
    const QModelIndex index = column == -1 ? QModelIndex()
                            : column == -2 ? model.make(1, 0, nullptr)
                                           : model.make(1, column, a);
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, warning.toUtf8().constData());
    QCOMPARE(model.data(index, role), expected);
}

void tst_ViewModel::dataAnswersEachRole()
{
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    const QModelIndex a = model.index(1, 0, model.index(0, 0));
    ViewItem *node = nodeOf(a);

    QCOMPARE(model.data(a, Qt::DisplayRole), QVariant("<a>"));
    QCOMPARE(model.data(a, Qt::EditRole), QVariant("a"));
    // Without a path the tool tip is the display name.
    QCOMPARE(model.data(a, Qt::ToolTipRole), QVariant("<a>"));
    node->setItemPath(QStringLiteral("/work/a.txt"));
    QCOMPARE(model.data(a, Qt::ToolTipRole), QVariant("/work/a.txt"));
    QCOMPARE(model.data(a, Qt::DisplayRole), QVariant("<a>"));

    QVERIFY(!model.data(a, Qt::FontRole).isValid());
    node->getItemData()->setDirty(true);
    const QVariant font = model.data(a, Qt::FontRole);
    QCOMPARE(font.typeId(), int(QMetaType::QFont));
    QCOMPARE(font.value<QFont>().weight(), QFont::Bold);

    QCOMPARE(model.data(a, Qt::UserRole), QVariant(QString::number(quintptr(node), 10)));
    QCOMPARE(model.data(a, Qt::DecorationRole).typeId(), int(QMetaType::QIcon));
    QVERIFY(!model.data(a, Qt::StatusTipRole).isValid());
    QVERIFY(!model.data(a, Qt::UserRole + 1).isValid());
}

void tst_ViewModel::flagsFollowTypeAttributes_data()
{
    QTest::addColumn<uint>("attributes");
    QTest::addColumn<Qt::ItemFlags>("expected");

    QTest::newRow("none") << 0u << Qt::ItemFlags();
    QTest::newRow("default: selectable, editable, enabled")
        << 0x63u << (Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    QTest::newRow("drag and drop") << 0x0Cu << (Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled);
    QTest::newRow("checkable") << 0x10u << Qt::ItemFlags(Qt::ItemIsUserCheckable);
    QTest::newRow("all six")
        << 0x3Fu
        << (Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled
            | Qt::ItemIsDropEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    QTest::newRow("location choosable is no item flag") << 0x40u << Qt::ItemFlags();
}

void tst_ViewModel::flagsFollowTypeAttributes()
{
    QFETCH(uint, attributes);
    QFETCH(Qt::ItemFlags, expected);

    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    m_fx->leaf->setItemTypeAttributes(ItemType::ItemTypeAttributes::fromInt(attributes));
    QCOMPARE(model.flags(model.index(1, 0, model.index(0, 0))), expected);

    QTest::ignoreMessage(QtDebugMsg, "invalid index");
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags());
}

void tst_ViewModel::flagsWarnForNodeWithoutType()
{
    auto *type = new RecordingType(QStringLiteral("transient"));
    ViewModel model(nullptr, type->createItemInstance(QStringLiteral("orphan"), nullptr));
    Tester tester(&model, QtTestReporting);
    delete type;
    QTest::ignoreMessage(QtWarningMsg, "flags: item with no type");
    QCOMPARE(model.flags(model.index(0, 0)), Qt::ItemFlags());
}

void tst_ViewModel::insertionIsAnnouncedWithAutoSync()
{
    ProbeModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    QSignalSpy aboutToInsert(&model, &QAbstractItemModel::rowsAboutToBeInserted);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    ViewItem *root = model.rootItem();
    const QModelIndex top = model.index(0, 0);

    ViewItem *g = m_fx->folderItem(QStringLiteral("g"));
    g->addChildItem(m_fx->leafItem(QStringLiteral("g1")));
    root->insertChildItem(g, 1);
    QCOMPARE(aboutToInsert.size(), 1);
    QCOMPARE(inserted.size(), 1);
    for (const QList<QVariant> &arguments : {aboutToInsert.at(0), inserted.at(0)}) {
        QCOMPARE(arguments.at(0).value<QModelIndex>(), top);
        QCOMPARE(arguments.at(1).toInt(), 1);
        QCOMPARE(arguments.at(2).toInt(), 1);
    }
    QCOMPARE(childNames(model, top), QStringList({"f", "g", "a", "b"}));
    // The inserted subtree is attached as a whole.
    QCOMPARE(g->viewModel(), &model);
    QCOMPARE(g->getChildItemAt(0)->viewModel(), &model);

    root->getChildItemAt(0)->addChildItem(m_fx->leafItem(QStringLiteral("f3")));
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(inserted.at(1).at(0).value<QModelIndex>(), model.index(0, 0, top));
    QCOMPARE(inserted.at(1).at(1).toInt(), 2);

    std::unique_ptr<ViewItem> stray(m_fx->leafItem(QStringLiteral("stray")));
    QVERIFY(!model.insertItem(-1, stray.get(), top));
    QVERIFY(!model.insertItem(0, nullptr, top));
    QVERIFY(!model.insertItem(0, stray.get(), QModelIndex()));
    QVERIFY(!model.insertItem(0, stray.get(), model.make(0, 0, nullptr)));
    QCOMPARE(inserted.size(), 2);
    QCOMPARE(stray->getParentItem(), nullptr);
    QCOMPARE(stray->viewModel(), nullptr);
}

void tst_ViewModel::autoSyncSuspensionsNest_data()
{
    QTest::addColumn<QList<bool>>("calls");
    QTest::addColumn<bool>("announced");

    QTest::newRow("one suspension") << QList<bool>{false} << false;
    QTest::newRow("two suspensions, one resume") << QList<bool>{false, false, true} << false;
    QTest::newRow("two suspensions, two resumes") << QList<bool>{false, false, true, true} << true;
    QTest::newRow("a third resume stays on") << QList<bool>{false, false, true, true, true} << true;
    QTest::newRow("a resume at zero banks nothing") << QList<bool>{true, false} << false;
}

void tst_ViewModel::autoSyncSuspensionsNest()
{
    QFETCH(QList<bool>, calls);
    QFETCH(bool, announced);

    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    for (bool on : calls)
        model.setAutoSync(on);
    QCOMPARE(model.autoSync(), announced);

    model.rootItem()->addChildItem(m_fx->leafItem(QStringLiteral("c")));
    QCOMPARE(inserted.size(), announced ? 1 : 0);
    // Inserted either way.
    QCOMPARE(childNames(model, model.index(0, 0)), QStringList({"f", "a", "b", "c"}));
    QCOMPARE(model.rootItem()->getChildItemAt(3)->viewModel(), &model);
}

void tst_ViewModel::removalIsAlwaysAnnouncedAndConfirmedOnce()
{
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    QSignalSpy aboutToRemove(&model, &QAbstractItemModel::rowsAboutToBeRemoved);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy complete(&model, &ViewModel::removalComplete);
    ViewItem *root = model.rootItem();
    const QModelIndex top = model.index(0, 0);
    model.setAutoSync(false);

    std::unique_ptr<ViewItem> f(root->removeChildItemAt(0));
    QVERIFY(f);
    QCOMPARE(f->getItemName(), "f");
    QCOMPARE(aboutToRemove.size(), 1);
    QCOMPARE(removed.size(), 1);
    for (const QList<QVariant> &arguments : {aboutToRemove.at(0), removed.at(0)}) {
        QCOMPARE(arguments.at(0).value<QModelIndex>(), top);
        QCOMPARE(arguments.at(1).toInt(), 0);
        QCOMPARE(arguments.at(2).toInt(), 0);
    }
    // Comes out detached, subtree included.
    QCOMPARE(f->getParentItem(), nullptr);
    QCOMPARE(f->viewModel(), nullptr);
    QCOMPARE(f->getChildItemAt(0)->viewModel(), nullptr);

    QList<ViewItem *> rest = model.removeItems(0, 2, top);
    QCOMPARE(rest.size(), 2);
    QCOMPARE(rest.at(0)->getItemName(), "a");
    QCOMPARE(rest.at(1)->getItemName(), "b");
    QCOMPARE(removed.at(1).at(2).toInt(), 1);
    QCOMPARE(model.rowCount(top), 0);
    qDeleteAll(rest);

    QVERIFY(model.removeItems(-1, 1, top).isEmpty());
    QVERIFY(model.removeItems(0, -1, top).isEmpty());
    QVERIFY(model.removeItems(0, 1, QModelIndex()).isEmpty());
    QCOMPARE(removed.size(), 2);

    // Two removals under the root: confirmed twice, then no more; every part must match.
    model.expanded(model.index(5, 0));
    QCOMPARE(complete.size(), 0);
    model.expanded(top);
    model.expanded(top);
    model.expanded(top);
    QCOMPARE(complete.size(), 2);
    QCOMPARE(complete.at(0).at(0).value<ViewItem *>(), root);
}

void tst_ViewModel::sortItemsReordersSilently()
{
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    QSignalSpy aboutToLayout(&model, &QAbstractItemModel::layoutAboutToBeChanged);
    QSignalSpy layout(&model, &QAbstractItemModel::layoutChanged);
    QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

    const QModelIndex top = model.index(0, 0);
    model.sortItems(model.rootItem(), nullptr);
    QCOMPARE(childNames(model, top), QStringList({"a", "b", "f"}));
    model.sortItems(model.rootItem(), [](ViewItem *const &x, ViewItem *const &y) {
        return x->getItemName() > y->getItemName();
    });
    QCOMPARE(childNames(model, top), QStringList({"f", "b", "a"}));
    model.sortItems(nullptr, nullptr);
    QCOMPARE(aboutToLayout.size() + layout.size() + moved.size() + changed.size(), 0);
}

void tst_ViewModel::setDataRenames_data()
{
    QTest::addColumn<QString>("newName");
    QTest::addColumn<uint>("attributes");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("refuse");
    QTest::addColumn<QStringList>("calls");

    const uint editable = 0x63;
    const int edit = Qt::EditRole;
    const QStringList renamed{"doNameChange a n", "nameChanged a n", "dataChanged", "itemSelected"};
    QTest::newRow("new name") << "n" << editable << 0 << edit << false << renamed;
    QTest::newRow("letter case is a new name")
        << "A" << editable << 0 << edit << false
        << QStringList{"doNameChange a A", "nameChanged a A", "dataChanged", "itemSelected"};
    QTest::newRow("same name changes nothing")
        << "a" << editable << 0 << edit << false << QStringList();
    QTest::newRow("type refuses")
        << "n" << editable << 0 << edit << true << QStringList{"doNameChange a n"};
    QTest::newRow("type not editable") << "n" << 0x21u << 0 << edit << false << QStringList();
    QTest::newRow("display role")
        << "n" << editable << 0 << int(Qt::DisplayRole) << false << QStringList();
    QTest::newRow("user role")
        << "n" << editable << 0 << int(Qt::UserRole) << false << QStringList();
    QTest::newRow("column 1") << "n" << editable << 1 << edit << false << QStringList();
}

void tst_ViewModel::setDataRenames()
{
    QFETCH(QString, newName);
    QFETCH(uint, attributes);
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(bool, refuse);
    QFETCH(QStringList, calls);

    ProbeModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    RecordingType *type = m_fx->leaf;
    type->refuseRename = refuse;
    type->setItemTypeAttributes(ItemType::ItemTypeAttributes::fromInt(attributes));
    ViewItem *a = model.rootItem()->getChildItemAt(1);
    const QModelIndex index = model.make(1, 0, a);
    connect(&model, &QAbstractItemModel::dataChanged, type,
            [&](const QModelIndex &from, const QModelIndex &to, const QList<int> &roles) {
                QCOMPARE(from, index);
                QCOMPARE(to, index);
                QVERIFY(roles.isEmpty());
                type->calls << "dataChanged";
            });
    connect(&model, &ViewModel::itemSelected, type, [&](ViewItem *item) {
        QCOMPARE(item, a);
        type->calls << "itemSelected";
    });

    const bool renamed = calls.size() > 1;
    QCOMPARE(model.setData(model.make(1, column, a), newName, role), renamed);
    QCOMPARE(type->calls, calls);
    QCOMPARE(a->getItemName(), renamed ? newName : QStringLiteral("a"));
}

void tst_ViewModel::mimeDataEncodesTopmostNodesOnly()
{
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    QCOMPARE(model.mimeTypes(), QStringList{"application/vnd.framework.itemtype.iid"});
    QCOMPARE(model.supportedDropActions(), Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);

    // f2 goes with its folder; b has no selected ancestor.
    const QModelIndex top = model.index(0, 0);
    const QModelIndex f = model.index(0, 0, top);
    std::unique_ptr<QMimeData> mime(
        model.mimeData({model.index(1, 0, f), f, model.index(2, 0, top)}));
    QVERIFY(mime);
    QStringList ids;
    QVERIFY(ItemTypeMimeCodec::decode(mime.get(), ids));
    QCOMPARE(ids, QStringList({"folder", "leaf"}));
    QCOMPARE(m_fx->folder->calls, QStringList{"mime f"});
    QCOMPARE(m_fx->leaf->calls, QStringList{"mime b"});
}

void tst_ViewModel::dropIsDelegatedToTargetType()
{
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    const QModelIndex f = model.index(0, 0, model.index(0, 0));
    QMimeData mime;

    QVERIFY(model.dropMimeData(&mime, Qt::MoveAction, 1, 0, f));
    m_fx->folder->acceptDrop = false;
    QVERIFY(!model.dropMimeData(&mime, Qt::LinkAction, 0, 0, f));
    QVERIFY(!model.dropMimeData(&mime, Qt::CopyAction, 0, 0, QModelIndex()));
    QCOMPARE(m_fx->folder->calls, QStringList({"drop f 2", "drop f 4"}));
    QCOMPARE(m_fx->folder->droppedData, &mime);
    QVERIFY(m_fx->leaf->calls.isEmpty());
}

void tst_ViewModel::destructorDisposesTreeAndLogs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");

    QTest::newRow("no name") << QString() << "Deleting ViewModel";
    QTest::newRow("named") << "projects" << "Deleting ViewModel (projects)...";
    QTest::newRow("name in UTF-8") << "Übersicht" << "Deleting ViewModel (Übersicht)...";
}

void tst_ViewModel::destructorDisposesTreeAndLogs()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QFETCH(QString, name);
    QFETCH(QString, message);

    auto *model = new ViewModel(nullptr, m_fx->tree());
    new Tester(model, QtTestReporting, model);
    model->setObjectName(name);
    QSignalSpy rootGone(model->rootItem(), &QObject::destroyed);
    QSignalSpy leafGone(model->rootItem()->getChildItemAt(0)->getChildItemAt(1),
                        &QObject::destroyed);
    QTest::ignoreMessage(QtDebugMsg, message.toUtf8().constData());
    delete model;
    QCOMPARE(rootGone.size(), 1);
    QCOMPARE(leafGone.size(), 1);
}

void tst_ViewModel::destroyingModelWithoutRootOnlyLogs()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    ViewItem *root = m_fx->tree();
    auto model = std::make_unique<ViewModel>(nullptr, root);
    new Tester(model.get(), QtTestReporting, model.get());
    QSignalSpy reset(model.get(), &QAbstractItemModel::modelAboutToBeReset);
    delete root;
    QCOMPARE(model->rootItem(), nullptr);
    QCOMPARE(model->rowCount(), 0);

    MessageLog log;
    QTest::ignoreMessage(QtDebugMsg, "Deleting ViewModel");
    model.reset();
    QCOMPARE(log.messages, QStringList{"Deleting ViewModel"});
    QCOMPARE(reset.size(), 0);
}

void tst_ViewModel::currentAndSelectionChanges()
{
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    QSignalSpy selected(&model, &ViewModel::itemSelected);
    const QModelIndex top = model.index(0, 0);
    const QModelIndex f = model.index(0, 0, top);
    const QModelIndex a = model.index(1, 0, top);
    const QModelIndex b = model.index(2, 0, top);

    model.handleCurrentChanged(a, QModelIndex());
    model.handleCurrentChanged(QModelIndex(), a);
    QCOMPARE(selected.size(), 2);
    QCOMPARE(selected.at(0).at(0).value<ViewItem *>(), nodeOf(a));
    QCOMPARE(selected.at(1).at(0).value<ViewItem *>(), nullptr);

    const auto names = [&model] {
        QStringList result;
        for (ViewItem *item : model.selectedItems())
            result << item->getItemName();
        result.sort();
        return result;
    };
    QVERIFY(model.selectedItems().isEmpty());
    model.handleSelectionChanged(QItemSelection(f, a), QItemSelection());
    QCOMPARE(names(), QStringList({"a", "f"}));
    // Deselection is applied before selection.
    model.handleSelectionChanged(QItemSelection(b, b), QItemSelection(f, f));
    QCOMPARE(names(), QStringList({"a", "b"}));
    model.handleSelectionChanged(QItemSelection(a, a), QItemSelection(a, b));
    QCOMPARE(names(), QStringList({"a"}));
}

void tst_ViewModel::writeHolderReentersInAnyOrder_data()
{
    // W, X: write lockers; R, S: read lockers. Upper case locks (creates or relocks), lower
    // case unlocks. The holder's reads end before its last write.
    QTest::addColumn<QString>("script");
    QTest::newRow("read inside write") << "WRrw";
    QTest::newRow("write, read, write; released inside out") << "WRXxrw";
    QTest::newRow("outer write released first") << "WXRwrx";
    QTest::newRow("reads interleaved with writes") << "WRXSrxsw";
    QTest::newRow("read after the inner write ends") << "WXxRrw";
    QTest::newRow("relocked lockers") << "WRrRrwWw";
}

void tst_ViewModel::writeHolderReentersInAnyOrder()
{
    QFETCH(QString, script);

    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    std::map<QChar, std::unique_ptr<ViewModelWriteLocker>> writers;
    std::map<QChar, std::unique_ptr<ViewModelReadLocker>> readers;
    MessageLog log;
    for (const QChar step : script) {
        const QChar name = step.toUpper();
        const bool write = name == u'W' || name == u'X';
        if (step.isUpper() && write) {
            if (auto &locker = writers[name])
                locker->relock();
            else
                locker = std::make_unique<ViewModelWriteLocker>(&model);
        } else if (step.isUpper()) {
            if (auto &locker = readers[name])
                locker->relock();
            else
                locker = std::make_unique<ViewModelReadLocker>(&model);
        } else if (write) {
            writers[name]->unlock();
        } else {
            readers[name]->unlock();
        }
        // Model queries re-enter whatever this thread holds.
        QCOMPARE(model.rowCount(model.index(0, 0)), 3);
    }
    QVERIFY(freeForOtherThreads(&model));
    writers.clear();
    readers.clear();
    QVERIFY(freeForOtherThreads(&model));
    QCOMPARE(log.messages, QStringList());
}

void tst_ViewModel::extraUnlocksAreHarmless()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    MessageLog log;
    {
        // A locker remembers that it unlocked. Were it to release again, the plain reader
        // would free a lock it no longer holds, and the writer's reader would eat the count
        // of another.
        ViewModelReadLocker reader(&model);
        reader.unlock();
        reader.unlock();
        ViewModelWriteLocker writer(&model);
        ViewModelReadLocker first(&model);
        ViewModelReadLocker second(&model);
        second.unlock();
        second.unlock();
    }
    QVERIFY(freeForOtherThreads(&model));
    QCOMPARE(log.messages, QStringList());

    // Copies do not share that memory: the lock reports the second release and ignores it.
    {
        ViewModelWriteLocker writer(&model);
        ViewModelReadLocker reader(&model);
        ViewModelReadLocker readerCopy(reader);
        reader.unlock();
        QTest::ignoreMessage(
            QtDebugMsg, "Error: Holder thread attempt to unlock read while refcount is already 0");
        readerCopy.unlock();
        ViewModelWriteLocker writerCopy(writer);
        writer.unlock();
        QTest::ignoreMessage(QtDebugMsg,
                             "Error: Non-holder thread attempt to unlock the write lock");
        writerCopy.unlock();
    }
    QVERIFY(freeForOtherThreads(&model));
    QCOMPARE(log.messages.size(), 2);

    ViewModelReadLocker nullReader(nullptr);
    nullReader.unlock();
    nullReader.relock();
    ViewModelWriteLocker nullWriter(nullptr);
    nullWriter.unlock();
    nullWriter.relock();
    QCOMPARE(log.messages.size(), 2);
}

void tst_ViewModel::slotMayLockAgainUnderSetData()
{
    ViewModel model(nullptr, m_fx->tree());
    Tester tester(&model, QtTestReporting);
    QStringList seen;
    connect(&model, &ViewModel::itemSelected, this, [&](ViewItem *item) {
        ViewModelReadLocker reader(&model);
        ViewModelWriteLocker writer(&model);
        seen << item->getItemName()
             << model.data(model.index(1, 0, model.index(0, 0)), Qt::EditRole).toString()
             << QString::number(model.rowCount(model.index(0, 0)));
    });
    QVERIFY(model.setData(model.index(1, 0, model.index(0, 0)), QStringLiteral("renamed")));
    QCOMPARE(seen, QStringList({"renamed", "renamed", "3"}));
    QVERIFY(freeForOtherThreads(&model));
}

void tst_ViewModel::readersSeeOnlyWholeWrites()
{
    // Three folders of two leaves; each write adds or removes two leaves at once, so a reader
    // counts 10 or 12 nodes, never 11. No tester here: it would query from the writing thread.
    ViewItem *root = m_fx->folderItem(QStringLiteral("root"));
    for (int i = 0; i < 3; ++i) {
        ViewItem *folder = m_fx->folderItem(QStringLiteral("d%1").arg(i));
        folder->addChildItem(m_fx->leafItem(QStringLiteral("x")));
        folder->addChildItem(m_fx->leafItem(QStringLiteral("y")));
        root->addChildItem(folder);
    }
    ViewModel model(nullptr, root);

    // Readers walk for as long as the writer writes, and at least a few times.
    constexpr int writes = 300;
    constexpr int minimumWalks = 20;
    Semaphore start, finished;
    std::atomic<bool> writing{true};
    std::mutex faultMutex;
    QStringList faults;
    const auto fault = [&](const QString &text) {
        std::lock_guard<std::mutex> locker(faultMutex);
        if (faults.size() < 10)
            faults << text;
    };

    const auto read = [&] {
        await(start);
        for (int walk = 0; writing.load() || walk < minimumWalks; ++walk) {
            int nodes = 0;
            {
                // A walk under the locker uses the nodes only: the model's queries take the read
                // lock again, which a waiting writer would block.
                ViewModelReadLocker locker(&model);
                std::function<void(const ViewItem *)> visit = [&](const ViewItem *node) {
                    ++nodes;
                    for (int row = 0; row < node->getChildItemCount(); ++row) {
                        const ViewItem *child = node->getChildItemAt(row);
                        if (child && child->getParentItem() == node
                            && child->getItemIndex() == row)
                            visit(child);
                        else
                            fault(QStringLiteral("%1: child %2 misplaced")
                                      .arg(node->getItemName()).arg(row));
                    }
                };
                visit(root);
            }
            if (nodes != 10 && nodes != 12)
                fault(QStringLiteral("walk saw %1 nodes").arg(nodes));

            // Single queries, each under its own read lock, on nodes that are never removed.
            const QModelIndex top = model.index(0, 0);
            if (model.rowCount() != 1 || nodeOf(top) != root || model.rowCount(top) != 3)
                fault(QStringLiteral("top level changed"));
            for (int row = 0; row < 3; ++row) {
                const QModelIndex folder = model.index(row, 0, top);
                const int leaves = model.rowCount(folder);
                if (model.parent(folder) != top || (leaves != 2 && leaves != 4)
                    || model.data(folder).toString() != QStringLiteral("<d%1>").arg(row))
                    fault(QStringLiteral("folder %1 inconsistent").arg(row));
            }
        }
        finished.release();
    };
    Worker first(read), second(read);
    start.release(2);
    for (int write = 0; write < writes; ++write) {
        ViewItem *folder = root->getChildItemAt(write % 3);
        ViewItem *front = m_fx->leafItem(QStringLiteral("front"));
        ViewItem *back = m_fx->leafItem(QStringLiteral("back"));
        {
            ViewModelWriteLocker locker(&model);
            folder->insertChildItem(front, 0);
            folder->addChildItem(back);
        }
        ViewModelWriteLocker locker(&model);
        delete folder->removeChildItemAt(3);
        delete folder->removeChildItemAt(0);
    }
    writing = false;
    QVERIFY(finished.tryAcquire(2, threadTimeout));
    first.join();
    second.join();
    QCOMPARE(faults, QStringList());
    QCOMPARE(model.rowCount(model.index(0, 0)), 3);
}

VELMORA_TEST(tst_ViewModel);
#include "tst_viewmodel.moc"
