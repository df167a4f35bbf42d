#include "testsupport.h"
#include "scriptedprompts.h"
#include "testtypes.h"

#include "types/dialogaddnew.h"
#include "types/dialogaddnewproject.h"
#include "types/typeselectmodel.h"

#include <QtCore/qdir.h>
#include <QtCore/qstringlistmodel.h>
#include <QtGui/qpixmap.h>
#include <QtGui/qvalidator.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qgroupbox.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qlistview.h>
#include <QtWidgets/qpushbutton.h>

#include <memory>

using namespace Velmora::Framework;
using Velmora::Tests::TestTree;
using Velmora::Tests::TestType;

namespace {

// A type with its own name validator and icon, recording what nameValidator() was asked for.
class ValidatedType : public TestType
{
    Q_OBJECT

public:
    ValidatedType(const QString &id, const QString &description, const QString &prefix)
        : TestType(id, description, prefix)
    {
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        setIcon(QIcon(pixmap));
    }

    const QValidator *nameValidator(ViewItem *item) const override
    {
        askedFor.append(item);
        return &validator;
    }

    QRegularExpressionValidator validator{QRegularExpression(QStringLiteral("[A-Za-z ]+[0-9]*"))};
    mutable QList<ViewItem *> askedFor;
};

enum DialogKind { ItemDialog, ProjectItemDialog, ProjectDialog };

DialogAddNewBase *makeDialog(int kind, ViewItem *parent, const QList<ItemType *> &candidates)
{
    switch (kind) {
    case ProjectItemDialog:
        return new DialogAddNewProjectItem(parent, candidates);
    case ProjectDialog:
        return new DialogAddNewProject(parent, candidates);
    default:
        return new DialogAddNew(parent, candidates);
    }
}

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
    void init();
    void cleanup();

    void controlsAndTexts_data();
    void controlsAndTexts();
    void proposesFirstFreeName_data();
    void proposesFirstFreeName();
    void selectionChangeResetsNameValidatorAndOk();
    void acceptNeedsTypeAndFreeName_data();
    void acceptNeedsTypeAndFreeName();
    void locationFollowsAttribute();
    void browseForLocation_data();
    void browseForLocation();
    void typeSelectModelRoles();

private:
    std::unique_ptr<TestTree> m_tree;
    std::unique_ptr<ViewItem> m_parent;
    void addChildren(const QStringList &names);
};

void tst_DialogAddNew::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_tree = std::make_unique<TestTree>();
    m_parent.reset(m_tree->folderItem(QStringLiteral("parent")));
}

void tst_DialogAddNew::cleanup()
{
    m_parent.reset();
    m_tree.reset();
}

void tst_DialogAddNew::addChildren(const QStringList &names)
{
    for (const QString &name : names)
        m_parent->addChildItem(m_tree->folderItem(name));
}

void tst_DialogAddNew::controlsAndTexts_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("groupTitle");

    QTest::newRow("item") << int(ItemDialog) << "QelDialogAddNew" << "Add New Item"
                          << "Select Item Type:";
    QTest::newRow("project item") << int(ProjectItemDialog) << "QelDialogAddNewProjectItem"
                                  << "Add New Project Item" << "Select Project Item Type:";
    QTest::newRow("project") << int(ProjectDialog) << "QelDialogAddNewProject"
                             << "Add New Project" << "Select Project Type:";
}

void tst_DialogAddNew::controlsAndTexts()
{
    QFETCH(int, kind);
    QFETCH(QString, objectName);
    QFETCH(QString, title);
    QFETCH(QString, groupTitle);

    TestType a(QStringLiteral("a"), QStringLiteral("Alpha")), b(QStringLiteral("b"));
    std::unique_ptr<DialogAddNewBase> dialog(makeDialog(kind, m_parent.get(), {&a, &b}));
    QCOMPARE(dialog->objectName(), objectName);
    QCOMPARE(dialog->windowTitle(), title);
    QCOMPARE(dialog->parentItem(), m_parent.get());

    auto *list = control<QListView>(dialog.get(), "selectItemListView");
    QVERIFY(list);
    QCOMPARE(list->model(), dialog->model());
    QCOMPARE(dialog->model()->types(), (QList<ItemType *>{&a, &b}));
    auto *group = qobject_cast<QGroupBox *>(list->parentWidget());
    QVERIFY(group);
    QCOMPARE(group->title(), groupTitle);

    auto *nameLabel = control<QLabel>(dialog.get(), "nameLabel");
    QVERIFY(nameLabel);
    QCOMPARE(nameLabel->text(), QStringLiteral("Name:"));
    QVERIFY(control<QLineEdit>(dialog.get(), "nameLineEdit"));
    auto *ok = control<QPushButton>(dialog.get(), "okPushButton");
    auto *cancel = control<QPushButton>(dialog.get(), "cancelPushButton");
    QVERIFY(ok && cancel);
    QCOMPARE(ok->text(), QStringLiteral("OK"));
    QCOMPARE(cancel->text(), QStringLiteral("Cancel"));

    // The first candidate is chosen at once, so a name is proposed without a click.
    QCOMPARE(dialog->selectedType(), &a);
    QCOMPARE(dialog->itemName(), QStringLiteral("New Item"));

    auto *locationLabel = control<QLabel>(dialog.get(), "locationLabel");
    auto *browse = control<QPushButton>(dialog.get(), "browsePushButton");
    const bool project = kind == ProjectDialog;
    QCOMPARE(bool(locationLabel), project);
    QCOMPARE(bool(control<QLineEdit>(dialog.get(), "locationLineEdit")), project);
    QCOMPARE(bool(browse), project);
    QCOMPARE(bool(qobject_cast<DialogAddNew *>(dialog.get())), !project);
    if (project) {
        QCOMPARE(locationLabel->text(), QStringLiteral("Location:"));
        QCOMPARE(browse->text(), QStringLiteral("Browse..."));
        QVERIFY(dialog->styleSheet().contains(QStringLiteral("#QelDialogAddNewProject")));
    }

    cancel->click();
    QCOMPARE(dialog->result(), int(QDialog::Rejected));
}

void tst_DialogAddNew::proposesFirstFreeName_data()
{
    QTest::addColumn<QStringList>("siblings");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("expected");

    QTest::newRow("prefix free") << QStringList() << "New Folder" << "New Folder";
    QTest::newRow("prefix and 1 taken") << QStringList{"New Folder", "New Folder 1"}
                                        << "New Folder" << "New Folder 2";
    QTest::newRow("gap reused") << QStringList{"New Folder", "New Folder 2"} << "New Folder"
                                << "New Folder 1";
    QTest::newRow("only numbered taken") << QStringList{"New Folder 1"} << "New Folder"
                                         << "New Folder";
    QTest::newRow("case matters") << QStringList{"new folder"} << "New Folder" << "New Folder";
    QTest::newRow("past nine") << QStringList{"F", "F 1", "F 2", "F 3", "F 4", "F 5", "F 6",
                                              "F 7", "F 8", "F 9"}
                               << "F" << "F 10";
    QTest::newRow("empty prefix") << QStringList() << "" << "New Item";
    QTest::newRow("empty prefix taken") << QStringList{"New Item"} << "" << "New Item 1";
}

void tst_DialogAddNew::proposesFirstFreeName()
{
    QFETCH(QStringList, siblings);
    QFETCH(QString, prefix);
    QFETCH(QString, expected);

    addChildren(siblings);
    TestType type(QStringLiteral("t"), QStringLiteral("T"), prefix);
    DialogAddNew dialog(m_parent.get(), {&type});
    QCOMPARE(dialog.itemName(), expected);
    DialogAddNewProject project(m_parent.get(), {&type});
    QCOMPARE(project.itemName(), expected);

    // Without a parent nothing can clash.
    DialogAddNew orphan(nullptr, {&type});
    QCOMPARE(orphan.itemName(), prefix.isEmpty() ? QStringLiteral("New Item") : prefix);
}

void tst_DialogAddNew::selectionChangeResetsNameValidatorAndOk()
{
    addChildren({QStringLiteral("Doc")});
    ValidatedType validated(QStringLiteral("v"), QStringLiteral("V"), QStringLiteral("Doc"));
    TestType plain(QStringLiteral("p"), QStringLiteral("P"), QStringLiteral("Sheet"));
    DialogAddNew dialog(m_parent.get(), {&validated, &plain});
    auto *list = control<QListView>(&dialog, "selectItemListView");
    auto *name = control<QLineEdit>(&dialog, "nameLineEdit");
    auto *ok = control<QPushButton>(&dialog, "okPushButton");
    QVERIFY(list && name && ok);

    QCOMPARE(name->text(), QStringLiteral("Doc 1"));
    QCOMPARE(name->validator(), &validated.validator);
    QCOMPARE(validated.askedFor, (QList<ViewItem *>{nullptr}));
    QVERIFY(ok->isEnabled());

    // A typed name is replaced by the next type's proposal, and its validator goes too.
    name->setText(QStringLiteral("Mine"));
    list->setCurrentIndex(dialog.model()->index(1, 0));
    QCOMPARE(dialog.selectedType(), &plain);
    QCOMPARE(dialog.itemName(), QStringLiteral("Sheet"));
    QCOMPARE(name->validator(), nullptr);
    QVERIFY(ok->isEnabled());

    list->setCurrentIndex(QModelIndex());
    QCOMPARE(dialog.selectedType(), nullptr);
    QVERIFY(dialog.itemName().isEmpty());
    QVERIFY(!ok->isEnabled());

    list->setCurrentIndex(dialog.model()->index(0, 0));
    QCOMPARE(dialog.itemName(), QStringLiteral("Doc 1"));
    QVERIFY(ok->isEnabled());

    // Nothing to choose from: nothing proposed, nothing to accept.
    DialogAddNew empty(m_parent.get(), {});
    QCOMPARE(empty.selectedType(), nullptr);
    QVERIFY(empty.itemName().isEmpty());
    QVERIFY(!control<QPushButton>(&empty, "okPushButton")->isEnabled());
}

void tst_DialogAddNew::acceptNeedsTypeAndFreeName_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("noType");
    QTest::addColumn<bool>("accepted");

    for (const int kind : {int(ItemDialog), int(ProjectDialog)}) {
        const QByteArray tag = kind == ItemDialog ? "item: " : "project: ";
        QTest::newRow((tag + "free name").constData()) << kind << "Fresh" << false << true;
        QTest::newRow((tag + "sibling's name").constData()) << kind << "Taken" << false << false;
        QTest::newRow((tag + "differs in case").constData()) << kind << "taken" << false << true;
        QTest::newRow((tag + "empty name").constData()) << kind << "" << false << false;
        QTest::newRow((tag + "no type").constData()) << kind << "Fresh" << true << false;
    }
}

void tst_DialogAddNew::acceptNeedsTypeAndFreeName()
{
    QFETCH(int, kind);
    QFETCH(QString, name);
    QFETCH(bool, noType);
    QFETCH(bool, accepted);

    addChildren({QStringLiteral("Taken")});
    TestType type(QStringLiteral("t"), QStringLiteral("T"), QStringLiteral("Taken"));
    std::unique_ptr<DialogAddNewBase> dialog(makeDialog(kind, m_parent.get(), {&type}));
    QSignalSpy acceptedSpy(dialog.get(), &QDialog::accepted);
    QSignalSpy finishedSpy(dialog.get(), &QDialog::finished);

    auto *ok = control<QPushButton>(dialog.get(), "okPushButton");
    if (noType)
        control<QListView>(dialog.get(), "selectItemListView")->setCurrentIndex(QModelIndex());
    control<QLineEdit>(dialog.get(), "nameLineEdit")->setText(name);
    // A disabled OK cannot be clicked; the check behind it must still hold.
    if (ok->isEnabled())
        ok->click();
    else
        dialog->accept();

    // Staying open means the dialog never finished, with either result.
    QCOMPARE(acceptedSpy.size(), accepted ? 1 : 0);
    QCOMPARE(finishedSpy.size(), accepted ? 1 : 0);
    QCOMPARE(dialog->result(), accepted ? int(QDialog::Accepted) : int(QDialog::Rejected));
    // What the parent's type reads afterwards.
    QCOMPARE(dialog->itemName(), name);
    QCOMPARE(dialog->selectedType(), noType ? nullptr : static_cast<ItemType *>(&type));
}

void tst_DialogAddNew::locationFollowsAttribute()
{
    TestType fixed(QStringLiteral("fixed")), choosable(QStringLiteral("choosable"));
    fixed.setItemTypeAttributes(fixed.itemTypeAttributes() & ~ItemType::LocationChoosable);
    QVERIFY(choosable.testAttribute(ItemType::LocationChoosable));
    DialogAddNewProject dialog(m_parent.get(), {&fixed, &choosable});
    auto *list = control<QListView>(&dialog, "selectItemListView");
    auto *location = control<QLineEdit>(&dialog, "locationLineEdit");
    auto *browse = control<QPushButton>(&dialog, "browsePushButton");
    auto *ok = control<QPushButton>(&dialog, "okPushButton");
    QVERIFY(list && location && browse && ok);

    // The first candidate's state is applied while the dialog is being built.
    QCOMPARE(dialog.selectedType(), &fixed);
    QVERIFY(!location->isEnabled());
    QVERIFY(!browse->isEnabled());
    QVERIFY(ok->isEnabled());

    list->setCurrentIndex(dialog.model()->index(1, 0));
    QVERIFY(location->isEnabled());
    QVERIFY(browse->isEnabled());
    QVERIFY(ok->isEnabled());

    list->setCurrentIndex(QModelIndex());
    QVERIFY(!location->isEnabled());
    QVERIFY(!browse->isEnabled());
    QVERIFY(!ok->isEnabled());

    DialogAddNewProject empty(m_parent.get(), {});
    QVERIFY(!control<QLineEdit>(&empty, "locationLineEdit")->isEnabled());
    QVERIFY(!control<QPushButton>(&empty, "browsePushButton")->isEnabled());
    QVERIFY(!control<QPushButton>(&empty, "okPushButton")->isEnabled());
}

void tst_DialogAddNew::browseForLocation_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("expectedStart");
    QTest::addColumn<QString>("expectedLocation");

    const QString current = QDir::currentPath();
    QTest::newRow("empty field starts in the current folder")
        << QString() << "/data/projects" << current << "/data/projects";
    QTest::newRow("typed location is the start")
        << "/data/old" << "/data/new" << "/data/old" << "/data/new";
    QTest::newRow("cancelled keeps the location") << "/data/old" << QString() << "/data/old"
                                                  << "/data/old";
    QTest::newRow("cancelled from empty field") << QString() << QString() << current
                                                << QString();
}

void tst_DialogAddNew::browseForLocation()
{
    QFETCH(QString, typed);
    QFETCH(QString, answer);
    QFETCH(QString, expectedStart);
    QFETCH(QString, expectedLocation);

    TestType type(QStringLiteral("project"));
    DialogAddNewProject dialog(m_parent.get(), {&type});
    control<QLineEdit>(&dialog, "locationLineEdit")->setText(typed);

    Velmora::Tests::ScriptedPrompts prompts;
    prompts.answer(answer.isEmpty() ? QDialog::Rejected : QDialog::Accepted, answer);
    control<QPushButton>(&dialog, "browsePushButton")->click();

    QCOMPARE(prompts.requests.size(), 1);
    const PromptRequest &request = prompts.requests.at(0);
    QCOMPARE(request.kind, PromptRequest::ExistingDirectory);
    QCOMPARE(request.parent, &dialog);
    QCOMPARE(request.title, QStringLiteral("Choose a location for the project"));
    QCOMPARE(request.value, expectedStart);
    QCOMPARE(request.options, QFileDialog::Options(QFileDialog::ShowDirsOnly));
    QCOMPARE(dialog.location(), expectedLocation);
}

void tst_DialogAddNew::typeSelectModelRoles()
{
    ValidatedType withIcon(QStringLiteral("i"), QStringLiteral("With icon"), QString());
    TestType plain(QStringLiteral("p"), QStringLiteral("Plain"));
    TypeSelectModel model({&withIcon, &plain});
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);

    QCOMPARE(model.rowCount(), 2);
    const QModelIndex first = model.index(0, 0), second = model.index(1, 0);
    QCOMPARE(model.rowCount(first), 0);
    QCOMPARE(model.data(first).toString(), QStringLiteral("With icon"));
    QCOMPARE(model.data(second, Qt::DisplayRole).toString(), QStringLiteral("Plain"));
    const QVariant decoration = model.data(first, Qt::DecorationRole);
    QCOMPARE(decoration.typeId(), QMetaType::QIcon);
    QCOMPARE(decoration.value<QIcon>().cacheKey(), withIcon.getIcon(nullptr, 0).cacheKey());
    for (const int role : {int(Qt::EditRole), int(Qt::ToolTipRole), int(Qt::UserRole)})
        QVERIFY2(!model.data(first, role).isValid(), qPrintable(QString::number(role)));
    QVERIFY(!model.data(QModelIndex()).isValid());
    QVERIFY(!(model.flags(first) & Qt::ItemIsEditable));

    QCOMPARE(model.typeAt(first), &withIcon);
    QCOMPARE(model.typeAt(1), &plain);
    QCOMPARE(model.typeAt(2), nullptr);
    QCOMPARE(model.typeAt(-1), nullptr);
    QCOMPARE(model.typeAt(QModelIndex()), nullptr);
    // Rows of another model do not name our types.
    QStringListModel other({QStringLiteral("x")});
    QCOMPARE(model.typeAt(other.index(0, 0)), nullptr);
}

VELMORA_TEST(tst_DialogAddNew);
#include "tst_dialogaddnew.moc"
