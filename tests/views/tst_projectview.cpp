#include "scriptedprompts.h"
#include "testsupport.h"
#include "testtypes.h"

#include "model/viewitem.h"
#include "views/projectview.h"
#include "views/projectviewmodel.h"

#include <QtGui/qevent.h>
#include <QtGui/qvalidator.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qlineedit.h>

#include <memory>

using namespace Velmora::Framework;
using Velmora::Tests::ScriptedPrompts;

namespace {

class RecordingModel : public ProjectViewModel
{
public:
    using ProjectViewModel::ProjectViewModel;
    // Records only: a filled menu would run modally.
    void populateContextMenu(QMenu *, const QModelIndex &index) override
    {
        menuIndexes.append(index);
    }
    void handleDoubleClick(const QModelIndex &index) override { opened.append(index); }

    QList<QPersistentModelIndex> menuIndexes;
    QList<QPersistentModelIndex> opened;
};

// A leaf type that names its items only "abc" or "abd", fixed up from upper case.
class StrictValidator : public QValidator
{
public:
    State validate(QString &text, int &) const override
    {
        if (text == QLatin1String("abc") || text == QLatin1String("abd"))
            return Acceptable;
        const QString lower = text.toLower();
        return QStringLiteral("abc").startsWith(lower) || QStringLiteral("abd").startsWith(lower)
            ? Intermediate
            : Invalid;
    }
    void fixup(QString &text) const override { text = text.toLower(); }
};

class StrictType : public Velmora::Tests::TestType
{
public:
    using TestType::TestType;
    const QValidator *nameValidator(ViewItem *) const override { return &validator; }

    StrictValidator validator;
};

} // namespace

class tst_ProjectView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup()
    {
        m_view.reset();
        m_tester.reset();
        delete m_model; // destroys the tree
        m_tree.reset();
    }

    void expandedFlagsFollowTheWidget();
    void inPlaceRenameKeepsEditorOpenUntilAcceptable_data();
    void inPlaceRenameKeepsEditorOpenUntilAcceptable();
    void menusAndOpeningGoThroughModel();
    void removalIsConfirmedToTheModel();

private:
    QModelIndex indexOf(ViewItem *item) const { return item->modelIndex(); }

    std::unique_ptr<Velmora::Tests::TestTree> m_tree;
    StrictType *m_strict = nullptr;
    RecordingModel *m_model = nullptr;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
    std::unique_ptr<ProjectView> m_view;
    ViewItem *m_root = nullptr;
    ViewItem *m_folder = nullptr;
    ViewItem *m_leaf = nullptr;
    ViewItem *m_strictLeaf = nullptr;
};

void tst_ProjectView::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_tree = std::make_unique<Velmora::Tests::TestTree>();
    m_strict = new StrictType(QStringLiteral("strict"));
    m_tree->registrar.registerType(m_strict);
    m_tree->folder->addChildType(QStringLiteral("strict"), false);
    m_root = m_tree->folderItem(QStringLiteral("root"));
    m_folder = m_tree->folderItem(QStringLiteral("sub"));
    m_leaf = m_tree->leafItem(QStringLiteral("leaf"));
    m_strictLeaf = m_tree->make(QStringLiteral("strict"), QStringLiteral("abc"));
    m_folder->addChildItem(m_leaf);
    m_root->addChildItem(m_folder);
    m_root->addChildItem(m_strictLeaf);
    m_model = new RecordingModel(nullptr, m_root);
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    m_view = std::make_unique<ProjectView>();
    m_view->setModel(m_model);
    m_view->resize(300, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void tst_ProjectView::expandedFlagsFollowTheWidget()
{
    m_view->expand(indexOf(m_root));
    QVERIFY(m_root->expandedFlag());
    const QModelIndex folder = indexOf(m_folder);
    m_view->expand(folder);
    QVERIFY(m_folder->expandedFlag());
    m_view->collapse(folder);
    QVERIFY(!m_folder->expandedFlag());

    // Without a model, or for an index without node, nothing happens.
    m_view->expandOccurred(QModelIndex());
    ProjectView bare;
    bare.expandOccurred(folder);
    QVERIFY(!m_folder->expandedFlag());

    // The model's requests reach the widget, whose signals set the flags again.
    m_folder->setExpanded(true);
    QVERIFY(m_view->isExpanded(folder));
    m_view->collapseBranch(indexOf(m_root));
    QVERIFY(!m_root->expandedFlag());
    QVERIFY(!m_folder->expandedFlag());
}

void tst_ProjectView::inPlaceRenameKeepsEditorOpenUntilAcceptable_data()
{
    QTest::addColumn<bool>("strict");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("refused");
    // Without a validator the type's canChange decides, silently.
    QTest::newRow("no validator, empty") << false << QString() << "sub" << false;
    QTest::newRow("no validator, any name") << false << "sub 2.txt" << "sub 2.txt" << false;
    QTest::newRow("type's validator, fixed up") << true << "ABD" << "abd" << false;
    QTest::newRow("type's validator, refused") << true << "ab" << "abc" << true;
}

void tst_ProjectView::inPlaceRenameKeepsEditorOpenUntilAcceptable()
{
    QFETCH(bool, strict);
    QFETCH(QString, typed);
    QFETCH(QString, name);
    QFETCH(bool, refused);

    m_view->expand(indexOf(m_root));
    ViewItem *item = strict ? m_strictLeaf : m_folder;
    const QString before = item->getItemName();
    const QModelIndex index = indexOf(item);
    m_view->setCurrentIndex(index);
    m_view->edit(index);
    auto *editor = qobject_cast<QLineEdit *>(m_view->indexWidget(index));
    QVERIFY(editor);
    QCOMPARE(editor->validator(), strict ? &m_strict->validator : nullptr);
    QCOMPARE(editor->text(), before);

    ScriptedPrompts prompts;
    // Set directly: the validator would refuse some of these keystrokes.
    editor->setText(typed);
    QTest::keyClick(editor, Qt::Key_Enter);

    QCOMPARE(item->getItemName(), name);
    if (refused) {
        QCOMPARE(prompts.requests.size(), 1);
        QCOMPARE(prompts.requests.first().title, QStringLiteral("Error"));
        QCOMPARE(prompts.requests.first().text,
                 QStringLiteral("The name \"%1\" is no available. It may be due to a duplicate "
                                "name or an invalid name.").arg(typed));
        QCOMPARE(m_view->indexWidget(index), editor);
        QCOMPARE(editor->selectedText(), typed);
    } else {
        QVERIFY(prompts.requests.isEmpty());
        QTRY_VERIFY(!m_view->indexWidget(index));
    }
}

void tst_ProjectView::menusAndOpeningGoThroughModel()
{
    m_view->expand(indexOf(m_root));
    const QModelIndex folder = indexOf(m_folder);
    const QPoint at = m_view->visualRect(folder).center();
    QContextMenuEvent onRow(QContextMenuEvent::Mouse, at, m_view->viewport()->mapToGlobal(at));
    QApplication::sendEvent(m_view->viewport(), &onRow);
    QCOMPARE(m_model->menuIndexes.size(), 1);
    QCOMPARE(QModelIndex(m_model->menuIndexes.first()), folder);

    const QPoint below(5, m_view->viewport()->height() - 5);
    QContextMenuEvent beside(QContextMenuEvent::Mouse, below, m_view->viewport()->mapToGlobal(below));
    QApplication::sendEvent(m_view->viewport(), &beside);
    QCOMPARE(m_model->menuIndexes.size(), 1);

    // Qt's double click event comes after a click, as a person's does.
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, at);
    m_view->setCurrentIndex(indexOf(m_strictLeaf));
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QCOMPARE(m_model->opened.size(), 2);
    QCOMPARE(QModelIndex(m_model->opened.first()), folder);
    QCOMPARE(QModelIndex(m_model->opened.last()), indexOf(m_strictLeaf));

    // The rename slot asks through the naming dialog, whose rules the types' tests cover.
    ScriptedPrompts prompts;
    prompts.answer(QDialog::Accepted, QStringLiteral("a_1"));
    QVERIFY(QMetaObject::invokeMethod(m_view.get(), "slotEdit", Q_ARG(QModelIndex, folder)));
    QCOMPARE(prompts.requests.size(), 1);
    QCOMPARE(m_folder->getItemName(), QStringLiteral("a_1"));

    // A type's rename command starts editing in place.
    m_model->modify(indexOf(m_strictLeaf));
    QVERIFY(qobject_cast<QLineEdit *>(m_view->indexWidget(indexOf(m_strictLeaf))));
}

void tst_ProjectView::removalIsConfirmedToTheModel()
{
    QSignalSpy settled(m_model, &ViewModel::removalComplete);
    std::unique_ptr<ViewItem> removed(m_folder->removeChildItemAt(0));
    QCOMPARE(removed.get(), m_leaf);
    QCOMPARE(settled.size(), 1);
    QCOMPARE(settled.first().first().value<ViewItem *>(), m_folder);
}

VELMORA_TEST(tst_ProjectView);
#include "tst_projectview.moc"
