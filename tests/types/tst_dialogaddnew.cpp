#include "testsupport.h"
#include "scriptedprompts.h"
#include "testtypes.h"

#include "types/dialogaddnew.h"
#include "types/dialogaddnewproject.h"
#include "types/typeselectmodel.h"

#include <QtCore/qdir.h>
#include <QtGui/qpixmap.h>
#include <QtGui/qvalidator.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qgroupbox.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qlistview.h>
#include <QtWidgets/qpushbutton.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using Velmora::Tests::TestTree;
using Velmora::Tests::TestType;

namespace {

// A type with a name validator and an icon.
class ValidatedType : public TestType
{
    Q_OBJECT

public:
    ValidatedType(const QString &id, const QString &prefix) : TestType(id, id, prefix)
    {
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        setIcon(QIcon(pixmap));
    }
    const QValidator *nameValidator(ViewItem *) const override { return &validator; }
    QRegularExpressionValidator validator{QRegularExpression(u"[A-Za-z ]+[0-9]*"_s)};
};

template <typename T>
T *control(const QObject *dialog, const char *name)
{
    return dialog->findChild<T *>(QLatin1String(name));
}

} // namespace

class tst_DialogAddNew : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_tree = std::make_unique<TestTree>();
        m_parent.reset(m_tree->folderItem(u"parent"_s));
    }
    void cleanup()
    {
        m_parent.reset();
        m_tree.reset();
    }
    void controlsAndTexts();
    void proposesFirstFreeName_data();
    void proposesFirstFreeName();
    void selectionChangeUpdatesNameAndControls();
    void acceptNeedsTypeAndFreeName_data();
    void acceptNeedsTypeAndFreeName();
    void browseForLocation();
    void typeSelectModelRoles();

private:
    std::unique_ptr<TestTree> m_tree;
    std::unique_ptr<ViewItem> m_parent;
    void addChildren(const QStringList &names)
    {
        for (const QString &name : names)
            m_parent->addChildItem(m_tree->folderItem(name));
    }
};

void tst_DialogAddNew::controlsAndTexts()
{
    TestType a(u"a"_s), b(u"b"_s);
    DialogAddNew item(m_parent.get(), {&a, &b});
    DialogAddNewProject project(m_parent.get(), {&a, &b});
    for (DialogAddNewBase *dialog : {static_cast<DialogAddNewBase *>(&item),
                                     static_cast<DialogAddNewBase *>(&project)}) {
        const bool isProject = dialog == &project;
        QCOMPARE(dialog->objectName(),
                 isProject ? u"QelDialogAddNewProject"_s : u"QelDialogAddNew"_s);
        QCOMPARE(dialog->windowTitle(), isProject ? u"Add New Project"_s : u"Add New Item"_s);
        auto *list = control<QListView>(dialog, "selectItemListView");
        QCOMPARE(qobject_cast<QGroupBox *>(list->parentWidget())->title(),
                 isProject ? u"Select Project Type:"_s : u"Select Item Type:"_s);
    }
}

void tst_DialogAddNew::proposesFirstFreeName_data()
{
    QTest::addColumn<QStringList>("siblings");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("expected");

    QTest::newRow("prefix and 1 taken") << QStringList{"New Folder", "New Folder 1"}
                                        << "New Folder" << "New Folder 2";
    QTest::newRow("gap reused") << QStringList{"New Folder", "New Folder 2"} << "New Folder"
                                << "New Folder 1";
    QTest::newRow("empty prefix taken") << QStringList{"New Item"} << "" << "New Item 1";
}

void tst_DialogAddNew::proposesFirstFreeName()
{
    QFETCH(QStringList, siblings);
    QFETCH(QString, prefix);
    QFETCH(QString, expected);

    addChildren(siblings);
    TestType type(u"t"_s, u"T"_s, prefix);
    QCOMPARE(DialogAddNew(m_parent.get(), {&type}).itemName(), expected);
}

void tst_DialogAddNew::selectionChangeUpdatesNameAndControls()
{
    addChildren({u"Doc"_s});
    ValidatedType validated(u"v"_s, u"Doc"_s);
    TestType fixed(u"p"_s, u"P"_s, u"Sheet"_s);
    fixed.setItemTypeAttributes(fixed.itemTypeAttributes() & ~ItemType::LocationChoosable);
    DialogAddNewProject dialog(m_parent.get(), {&validated, &fixed});
    auto *list = control<QListView>(&dialog, "selectItemListView");
    auto *name = control<QLineEdit>(&dialog, "nameLineEdit");
    const auto enabled = [&dialog] {
        return QList<bool>{control<QLineEdit>(&dialog, "locationLineEdit")->isEnabled(),
                           control<QPushButton>(&dialog, "browsePushButton")->isEnabled(),
                           control<QPushButton>(&dialog, "okPushButton")->isEnabled()};
    };
    QCOMPARE(name->text(), u"Doc 1"_s);
    QCOMPARE(name->validator(), &validated.validator);
    QCOMPARE(enabled(), (QList<bool>{true, true, true}));

    // A typed name is replaced by the next type's proposal, and the validator goes too.
    dialog.setItemName(u"Mine"_s);
    QVERIFY(dialog.setSelectedType(&fixed));
    QCOMPARE(name->text(), u"Sheet"_s);
    QCOMPARE(name->validator(), nullptr);
    QCOMPARE(enabled(), (QList<bool>{false, false, true}));
    TestType stranger(u"s"_s);
    QVERIFY(!dialog.setSelectedType(&stranger));
    QVERIFY(!dialog.setSelectedType(nullptr));
    QCOMPARE(dialog.selectedType(), &fixed);

    list->setCurrentIndex(QModelIndex());
    QVERIFY(name->text().isEmpty());
    QCOMPARE(enabled(), (QList<bool>{false, false, false}));
}

void tst_DialogAddNew::acceptNeedsTypeAndFreeName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("noType");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("free name") << "Fresh" << false << true;
    QTest::newRow("sibling's name") << "Taken" << false << false;
    QTest::newRow("empty name") << "" << false << false;
    QTest::newRow("no type") << "Fresh" << true << false;
}

void tst_DialogAddNew::acceptNeedsTypeAndFreeName()
{
    QFETCH(QString, name);
    QFETCH(bool, noType);
    QFETCH(bool, accepted);

    addChildren({u"Taken"_s});
    TestType type(u"t"_s);
    DialogAddNew dialog(m_parent.get(), {&type});
    QSignalSpy finished(&dialog, &QDialog::finished);
    if (noType)
        control<QListView>(&dialog, "selectItemListView")->setCurrentIndex(QModelIndex());
    dialog.setItemName(name);
    dialog.accept(); // OK may be disabled; the check behind it must hold anyway
    // Staying open means the dialog never finished, with either result.
    QCOMPARE(finished.size(), accepted ? 1 : 0);
    QCOMPARE(dialog.result(), accepted ? int(QDialog::Accepted) : int(QDialog::Rejected));
}

void tst_DialogAddNew::browseForLocation()
{
    TestType type(u"project"_s);
    DialogAddNewProject dialog(m_parent.get(), {&type});
    Velmora::Tests::ScriptedPrompts prompts;
    prompts.answer(QDialog::Accepted, u"/data/projects"_s);
    prompts.answer(QDialog::Rejected);
    auto *browse = control<QPushButton>(&dialog, "browsePushButton");
    control<QLineEdit>(&dialog, "locationLineEdit")->clear();
    browse->click();
    QCOMPARE(dialog.location(), u"/data/projects"_s);
    browse->click(); // cancelled: the location stays
    QCOMPARE(dialog.location(), u"/data/projects"_s);

    const PromptRequest &request = prompts.requests.at(0);
    QCOMPARE(request.kind, PromptRequest::ExistingDirectory);
    QCOMPARE(request.title, u"Choose a location for the project"_s);
    QCOMPARE(request.options, QFileDialog::Options(QFileDialog::ShowDirsOnly));
    QCOMPARE(request.value, QDir::currentPath()); // the field was empty
    QCOMPARE(prompts.requests.at(1).value, u"/data/projects"_s);
}

void tst_DialogAddNew::typeSelectModelRoles()
{
    TestType plain(u"p"_s, u"Plain"_s);
    ValidatedType withIcon(u"With icon"_s, QString());
    TypeSelectModel model({&plain, &withIcon});
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const QModelIndex second = model.index(1, 0);
    QCOMPARE(model.data(second, Qt::DecorationRole).value<QIcon>().cacheKey(),
             withIcon.getIcon(nullptr, 0).cacheKey());
    QVERIFY(!model.data(second, Qt::EditRole).isValid());
    QCOMPARE(model.typeAt(second), &withIcon);
}

VELMORA_TEST(tst_DialogAddNew);
#include "tst_dialogaddnew.moc"
