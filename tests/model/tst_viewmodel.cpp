#include "testsupport.h"
#include "testedmodel.h"
#include "testtypes.h"
#include "worker.h"

#include "model/itemdata.h"
#include "model/itemtypemimecodec.h"
#include "model/viewmodel.h"

#include <QtCore/qmimedata.h>
#include <QtGui/qfont.h>
#include <QtTest/qsignalspy.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

using namespace Velmora::Framework;
using namespace Velmora::Tests;

namespace {

// True when another thread can take the write lock; a hold left here is unwound, so tests end.
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
        ViewModelWriteLocker extra(model);
        ViewModelWriteLocker copy(extra);
    }
    return false;
}

} // namespace

class tst_ViewModel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarnings();
        m_tree = std::make_unique<TestTree>();
        m_file = new RecordingType(QStringLiteral("file"));
        m_tree->folder->addChildType(QStringLiteral("file"), false);
        m_tree->registrar.registerType(m_file);
        // root { f { f1, f2 }, a, b }; the leaves are files.
        ViewItem *root = m_tree->folderItem(QStringLiteral("root"));
        ViewItem *f = m_tree->folderItem(QStringLiteral("f"));
        f->addChildItem(file(QStringLiteral("f1")));
        f->addChildItem(file(QStringLiteral("f2")));
        root->addChildItem(f);
        root->addChildItem(file(QStringLiteral("a")));
        root->addChildItem(file(QStringLiteral("b")));
        m_model = std::make_unique<TestedModel>(nullptr, root);
        m_messages.emplace();
    }
    void cleanup()
    {
        m_messages.reset();
        m_model.reset();
        m_tree.reset();
    }

    void indexesFollowTheTree();
    void dataAnswersByRoleAndColumn();
    void flagsFollowTypeAttributes_data();
    void flagsFollowTypeAttributes();
    void insertionIsAnnouncedOnlyWithAutoSync_data();
    void insertionIsAnnouncedOnlyWithAutoSync();
    void removalIsAlwaysAnnouncedAndConfirmedOnce();
    void sortItemsReordersSilently();
    void renamesAndCurrentRowAreAnnounced();
    void dragAndDropGoThroughTheTypes();
    void destructorDisposesTreeAndLogs();
    void writeHolderReentersAndExtraUnlocksAreHarmless();
    void readersSeeOnlyWholeWrites();

private:
    ViewItem *file(const QString &name) const { return m_tree->make(QStringLiteral("file"), name); }

    std::unique_ptr<TestTree> m_tree;
    RecordingType *m_file = nullptr;
    std::unique_ptr<TestedModel> m_model;
    std::optional<MessageRecorder> m_messages;
};

void tst_ViewModel::indexesFollowTheTree()
{
    ViewItem *root = m_model->rootItem();
    ViewItem *f = root->getChildItemAt(0);

    // The root is the single top-level row, whatever row is asked for.
    QCOMPARE(m_model->rowCount(), 1);
    const QModelIndex top = m_model->index(0, 0);
    QCOMPARE(m_model->index(5, 0), m_model->make(5, 0, root));

    const QModelIndex f2 = m_model->index(1, 0, m_model->index(0, 0, top));
    // calculateIndex pins the root to row 0 and trusts the caller's row elsewhere.
    QCOMPARE(m_model->calculateIndex(7, root), top);
    QCOMPARE(m_model->calculateIndex(4, f), m_model->make(4, 0, f));

    QTest::ignoreMessage(QtWarningMsg, "index: column 1 does not exist");
    QVERIFY(!m_model->index(0, 1, top).isValid());
    const QModelIndex noNode = m_model->make(0, 0, nullptr);
    QTest::ignoreMessage(QtWarningMsg, "parent: valid index without node");
    QVERIFY(!m_model->parent(noNode).isValid());
    QTest::ignoreMessage(QtWarningMsg, "hasChildren: valid index without node");
    QVERIFY(!m_model->hasChildren(noNode));

    // A folder taken out of the root's list still names the root as its parent.
    const QList<ViewItem *> children{f, root->getChildItemAt(1), root->getChildItemAt(2)};
    m_model->replace_childitems(root, children.mid(1));
    QTest::ignoreMessage(QtWarningMsg, "parent: the row was invalid");
    QVERIFY(!m_model->parent(f2).isValid());
    m_model->replace_childitems(root, children);
}

void tst_ViewModel::dataAnswersByRoleAndColumn()
{
    ViewItem *a = m_model->rootItem()->getChildItemAt(1);
    const QModelIndex index = a->modelIndex();

    QCOMPARE(m_model->data(index, Qt::DisplayRole), QVariant("<a>"));
    QCOMPARE(m_model->data(index, Qt::EditRole), QVariant("a"));
    a->setItemPath(QStringLiteral("/work/a.txt"));
    QCOMPARE(m_model->data(index, Qt::ToolTipRole), QVariant("/work/a.txt"));
    QCOMPARE(m_model->data(index, Qt::UserRole), QVariant(QString::number(quintptr(a), 10)));
    QVERIFY(!m_model->data(index, Qt::FontRole).isValid());
    a->getItemData()->setDirty(true);
    QCOMPARE(m_model->data(index, Qt::FontRole).value<QFont>().weight(), QFont::Bold);

    // Column 1 equals the column count and is answered; only a greater column is refused.
    QCOMPARE(m_model->data(m_model->make(1, 1, a), Qt::DisplayRole), QVariant("<a>"));
    QTest::ignoreMessage(QtWarningMsg, "data: invalid display value column 2");
    QVERIFY(!m_model->data(m_model->make(1, 2, a), Qt::EditRole).isValid());
    QTest::ignoreMessage(QtWarningMsg, "data: the index was not valid");
    QVERIFY(!m_model->data(QModelIndex()).isValid());
    QTest::ignoreMessage(QtWarningMsg, "data: the item does not exist");
    QVERIFY(!m_model->data(m_model->make(1, 0, nullptr)).isValid());
}

void tst_ViewModel::flagsFollowTypeAttributes_data()
{
    QTest::addColumn<uint>("attributes");
    QTest::addColumn<Qt::ItemFlags>("expected");
    QTest::newRow("default: selectable, editable, enabled")
        << 0x63u << (Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    QTest::newRow("drag") << 0x04u << Qt::ItemFlags(Qt::ItemIsDragEnabled);
    QTest::newRow("drop, checkable") << 0x18u << (Qt::ItemIsDropEnabled | Qt::ItemIsUserCheckable);
    QTest::newRow("location choosable is no item flag") << 0x40u << Qt::ItemFlags();
}

void tst_ViewModel::flagsFollowTypeAttributes()
{
    QFETCH(uint, attributes);
    m_file->setItemTypeAttributes(ItemType::ItemTypeAttributes::fromInt(attributes));
    QTEST(m_model->flags(m_model->index(1, 0, m_model->index(0, 0))), "expected");

    QTest::ignoreMessage(QtDebugMsg, "invalid index");
    QCOMPARE(m_model->flags(QModelIndex()), Qt::ItemFlags());
    delete m_tree->registrar.unregisterType(QStringLiteral("file"));
    QTest::ignoreMessage(QtWarningMsg, "flags: item with no type");
    QCOMPARE(m_model->flags(m_model->index(1, 0, m_model->index(0, 0))), Qt::ItemFlags());
}

void tst_ViewModel::insertionIsAnnouncedOnlyWithAutoSync_data()
{
    QTest::addColumn<QList<bool>>("calls");
    QTest::addColumn<bool>("announced");
    QTest::newRow("always on") << QList<bool>{} << true;
    QTest::newRow("two suspensions, one resume") << QList<bool>{false, false, true} << false;
    QTest::newRow("two suspensions, two resumes") << QList<bool>{false, false, true, true} << true;
    QTest::newRow("a resume at zero banks nothing") << QList<bool>{true, false} << false;
}

void tst_ViewModel::insertionIsAnnouncedOnlyWithAutoSync()
{
    QFETCH(QList<bool>, calls);
    QFETCH(bool, announced);
    QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
    for (bool on : calls)
        m_model->setAutoSync(on);
    QCOMPARE(m_model->autoSync(), announced);

    ViewItem *g = m_tree->folderItem(QStringLiteral("g"));
    g->addChildItem(file(QStringLiteral("g1")));
    m_model->rootItem()->insertChildItem(g, 1);
    // Inserted and attached, subtree included, either way.
    QCOMPARE(outline(m_model->rootItem()), "root[f[f1,f2],g[g1],a,b]");
    QCOMPARE(g->getChildItemAt(0)->viewModel(), m_model.get());
    QCOMPARE(inserted.size(), announced ? 1 : 0);
    if (announced)
        QCOMPARE(inserted.at(0), rows(m_model->index(0, 0), 1, 1));

    std::unique_ptr<ViewItem> stray(file(QStringLiteral("stray")));
    QVERIFY(!m_model->insertItem(-1, stray.get(), m_model->index(0, 0)));
    QVERIFY(!m_model->insertItem(0, stray.get(), QModelIndex()));
    QCOMPARE(inserted.size(), announced ? 1 : 0);
}

void tst_ViewModel::removalIsAlwaysAnnouncedAndConfirmedOnce()
{
    QSignalSpy removed(m_model.get(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy complete(m_model.get(), &ViewModel::removalComplete);
    const QModelIndex top = m_model->index(0, 0);
    m_model->setAutoSync(false);

    const QList<ViewItem *> taken = m_model->removeItems(1, 2, top);
    QCOMPARE(taken.size(), 2);
    QCOMPARE(removed.at(0), rows(top, 1, 2));
    qDeleteAll(taken);
    QVERIFY(m_model->removeItems(-1, 1, top).isEmpty());
    QVERIFY(m_model->removeItems(0, 1, QModelIndex()).isEmpty());
    QCOMPARE(removed.size(), 1);

    // Confirmed once, when the very parent index comes back.
    m_model->expanded(m_model->index(5, 0));
    QCOMPARE(complete.size(), 0);
    m_model->expanded(top);
    m_model->expanded(top);
    QCOMPARE(complete.size(), 1);
}

void tst_ViewModel::sortItemsReordersSilently()
{
    QSignalSpy layout(m_model.get(), &QAbstractItemModel::layoutAboutToBeChanged);
    QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
    m_model->sortItems(m_model->rootItem(), nullptr);
    QCOMPARE(outline(m_model->rootItem()), "root[a,b,f[f1,f2]]");
    m_model->sortItems(nullptr, nullptr);
    QCOMPARE(layout.size() + moved.size(), 0);
}

void tst_ViewModel::renamesAndCurrentRowAreAnnounced()
{
    ViewItem *a = m_model->rootItem()->getChildItemAt(1);
    const QModelIndex index = a->modelIndex();
    QStringList &calls = m_file->calls;
    connect(m_model.get(), &QAbstractItemModel::dataChanged, this,
            [&](const QModelIndex &from, const QModelIndex &to, const QList<int> &roles) {
                QVERIFY(from == index && to == index && roles.isEmpty());
                calls << "dataChanged";
            });
    // The slot may lock the model again: the writer re-enters.
    connect(m_model.get(), &ViewModel::itemSelected, this, [&](ViewItem *item) {
        ViewModelReadLocker reader(m_model.get());
        ViewModelWriteLocker writer(m_model.get());
        calls << "itemSelected " + m_model->data(item->modelIndex(), Qt::EditRole).toString();
    });

    // Only the edit role of column 0 renames, and only to a different name.
    QVERIFY(!m_model->setData(index, "n", Qt::DisplayRole));
    QVERIFY(!m_model->setData(m_model->make(1, 1, a), "n"));
    QVERIFY(!m_model->setData(index, "a"));
    QCOMPARE(calls, QStringList());
    m_file->refuseRename = true;
    QVERIFY(!m_model->setData(index, "n"));
    QCOMPARE(calls, QStringList{"doNameChange a n"});
    m_file->refuseRename = false;
    calls.clear();
    QVERIFY(m_model->setData(index, "A"));
    QCOMPARE(calls, QStringList({"doNameChange a A", "nameChanged a A", "dataChanged",
                                 "itemSelected A"}));
    QVERIFY(freeForOtherThreads(m_model.get()));

    m_file->setItemTypeAttributes(ItemType::ItemTypeAttributes::fromInt(0x21)); // not editable
    QVERIFY(!m_model->setData(index, "n"));
    QCOMPARE(a->getItemName(), "A");

    // A view's current row is announced too (under the read lock: a slot must not write).
    disconnect(m_model.get(), &ViewModel::itemSelected, this, nullptr);
    QSignalSpy selected(m_model.get(), &ViewModel::itemSelected);
    m_model->handleCurrentChanged(index, QModelIndex());
    m_model->handleCurrentChanged(QModelIndex(), index);
    QCOMPARE(selected.size(), 2);
    QCOMPARE(selected.at(0).at(0).value<ViewItem *>(), a);
    QCOMPARE(selected.at(1).at(0).value<ViewItem *>(), nullptr);
}

void tst_ViewModel::dragAndDropGoThroughTheTypes()
{
    QCOMPARE(m_model->mimeTypes(), QStringList{"application/vnd.framework.itemtype.iid"});

    // f2 goes with its folder: one id per node left.
    const QModelIndex top = m_model->index(0, 0);
    const QModelIndex f = m_model->index(0, 0, top);
    std::unique_ptr<QMimeData> mime(
        m_model->mimeData({m_model->index(1, 0, f), f, m_model->index(2, 0, top)}));
    QStringList ids;
    QVERIFY(ItemTypeMimeCodec::decode(mime.get(), ids));
    QCOMPARE(ids, QStringList({"folder", "file"}));

    const QModelIndex a = m_model->index(1, 0, top);
    QVERIFY(m_model->dropMimeData(mime.get(), Qt::MoveAction, 1, 0, a));
    m_file->acceptDrop = false;
    QVERIFY(!m_model->dropMimeData(mime.get(), Qt::LinkAction, 0, 0, a));
    QVERIFY(!m_model->dropMimeData(mime.get(), Qt::CopyAction, 0, 0, QModelIndex()));
    QCOMPARE(m_file->calls, QStringList({"drop a 2", "drop a 4"}));
}

void tst_ViewModel::destructorDisposesTreeAndLogs()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    ViewItem *root = m_model->rootItem();
    QSignalSpy rootGone(root, &QObject::destroyed);
    QSignalSpy leafGone(root->getChildItemAt(0)->getChildItemAt(1), &QObject::destroyed);
    m_model->setObjectName("Übersicht");
    QTest::ignoreMessage(QtDebugMsg, "Deleting ViewModel (Übersicht)...");
    m_model.reset();
    QCOMPARE(rootGone.size(), 1);
    QCOMPARE(leafGone.size(), 1);

    // A root destroyed elsewhere is not destroyed again.
    root = m_tree->folderItem(QStringLiteral("lone"));
    auto model = std::make_unique<TestedModel>(nullptr, root);
    delete root;
    QCOMPARE(model->rowCount(), 0);
    QVERIFY(!model->hasChildren());
    MessageRecorder::texts.clear();
    QTest::ignoreMessage(QtDebugMsg, "Deleting ViewModel");
    model.reset();
    QCOMPARE(MessageRecorder::texts, QStringList{"Deleting ViewModel"});
}

void tst_ViewModel::writeHolderReentersAndExtraUnlocksAreHarmless()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    const QModelIndex top = m_model->index(0, 0);
    {
        ViewModelWriteLocker outer(m_model.get());
        ViewModelReadLocker reader(m_model.get());
        ViewModelWriteLocker inner(m_model.get());
        outer.unlock(); // the outer write ends first
        QCOMPARE(m_model->rowCount(top), 3); // queries re-enter whatever this thread holds
        reader.unlock();
        reader.unlock(); // the locker remembers: nothing is released twice
        inner.unlock();
        QVERIFY(freeForOtherThreads(m_model.get()));
        outer.relock();
        reader.relock();
        inner.relock();
    }
    QVERIFY(freeForOtherThreads(m_model.get()));
    QCOMPARE(MessageRecorder::texts, QStringList());
}

void tst_ViewModel::readersSeeOnlyWholeWrites()
{
    // Each write adds or removes two leaves of f at once: a reader counts 6 or 8 nodes, never 7.
    ViewItem *root = m_model->rootItem();
    ViewItem *f = root->getChildItemAt(0);
    Semaphore start, finished;
    std::atomic<bool> writing{true};
    std::atomic<int> faults{0};
    const auto read = [&] {
        await(start);
        for (int walk = 0; writing || walk < 20; ++walk) {
            int nodes = 0;
            {
                // Only the nodes under the locker: a model query would read-lock again, which
                // a waiting writer blocks.
                ViewModelReadLocker locker(m_model.get());
                std::function<void(const ViewItem *)> visit = [&](const ViewItem *node) {
                    ++nodes;
                    for (int row = 0; row < node->getChildItemCount(); ++row) {
                        const ViewItem *child = node->getChildItemAt(row);
                        if (child && child->getParentItem() == node && child->getItemIndex() == row)
                            visit(child);
                        else
                            ++faults;
                    }
                };
                visit(root);
            }
            // Single queries, each under its own read lock.
            const QModelIndex fIndex = m_model->index(0, 0, m_model->index(0, 0));
            const int leaves = m_model->rowCount(fIndex);
            if ((nodes != 6 && nodes != 8) || (leaves != 2 && leaves != 4)
                || m_model->parent(fIndex) != m_model->index(0, 0))
                ++faults;
        }
        finished.release();
    };
    Worker first(read), second(read);
    start.release(2);
    for (int write = 0; write < 300; ++write) {
        ViewItem *front = file(QStringLiteral("front"));
        ViewItem *back = file(QStringLiteral("back"));
        {
            ViewModelWriteLocker locker(m_model.get());
            f->insertChildItem(front, 0);
            f->addChildItem(back);
        }
        ViewModelWriteLocker locker(m_model.get());
        delete f->removeChildItemAt(3);
        delete f->removeChildItemAt(0);
    }
    writing = false;
    QVERIFY(finished.tryAcquire(2, threadTimeout));
    QCOMPARE(faults.load(), 0);
}

VELMORA_TEST(tst_ViewModel);
#include "tst_viewmodel.moc"
