#include "testsupport.h"
#include "scriptedprompts.h"
#include "testedmodel.h"
#include "testtypes.h"

#include "model/viewmodel.h"
#include "types/dialogaddnew.h"
#include "types/itemnaming.h"
#include "types/typeselectmodel.h"

#include <QtCore/qdir.h>
#include <QtCore/qpointer.h>
#include <QtCore/qtemporarydir.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qlineedit.h>
#include <QtWidgets/qlistview.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Velmora::Tests;
using namespace Qt::StringLiterals;
using Items = QList<ViewItem *>;
using Request = ScriptedPrompts::Request;

namespace {

// A container type that can claim names are taken.
class OpsType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;
    using ItemType::genericHandler;
    QStringList taken;
    bool existName(ViewItem *, const QString &name) const override { return taken.contains(name); }
};

// What a request asked, in one comparable line.
QStringList asked(const Request &request)
{
    return {QString::number(request.kind), request.parent ? request.parent->objectName() : u"-"_s,
            request.title, request.text, request.value, request.filter,
            QString::number(request.buttons.toInt())};
}

const QString ok = QString::number(QMessageBox::Ok);
const QString illegal = u"The name is illegal. the name can only consist of numbers, letters, "
                        u"and underscores, and it must start with a letter"_s;

} // namespace

class tst_ItemOperations : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void addNewThroughTheDialog();
    void addRoutinesWarn();
    void addExistingOpensTheFile();
    void removeTakesAFolderWithItsChildOnce();
    void renameFollowsTheNamingRules_data();
    void renameFollowsTheNamingRules();

private:
    // A folder type over two file types, and a tested model over a root folder. The model goes
    // first, while its items' types still exist.
    struct Fixture
    {
        Fixture()
        {
            window.setObjectName(u"window"_s);
            for (const QString &child : {u"folder"_s, u"Data"_s, u"Notes"_s})
                folder.addChildType(child, false);
            for (ItemType *type : std::initializer_list<ItemType *>{&folder, &data, &notes})
                registrar.registerType(type);
        }
        // A detached item; the caller owns it.
        ViewItem *make(const QString &name, const QString &typeId = u"folder"_s) const
        {
            return registrar.createItem(typeId, name);
        }

        QWidget window;
        OpsType folder{u"folder"_s, u"Folder"_s};
        TestFileType data{u"Data"_s};
        TestFileType notes{u"Notes"_s, u".txt"_s, u"Notes (*.txt)"_s};
        TypeRegistrar registrar{&window};
        TestedModel model{nullptr, folder.createItemInstance(u"root"_s, nullptr)};
        ViewItem *root = model.rootItem();
    };
    std::unique_ptr<Fixture> f;
};

void tst_ItemOperations::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    f = std::make_unique<Fixture>();
}

void tst_ItemOperations::cleanup()
{
    f.reset();
}

void tst_ItemOperations::addNewThroughTheDialog()
{
    QSignalSpy expanded(&f->model, &ViewModel::expandRequested);
    QStringList names{u"d1"_s, u"d2"_s, u"cancelled"_s};
    QPointer<QDialog> shown;
    ScriptedPrompts prompts([&](const Request &request) {
        auto *dialog = qobject_cast<DialogAddNew *>(request.dialog);
        if (!(shown = dialog))
            return ScriptedPrompts::Answer{};
        auto *list = dialog->findChild<QListView *>(u"selectItemListView"_s);
        for (int row = 0; row < dialog->model()->rowCount(); ++row) {
            if (dialog->model()->typeAt(row)->getId() == u"Data"_s)
                list->setCurrentIndex(dialog->model()->index(row, 0));
        }
        dialog->findChild<QLineEdit *>(u"nameLineEdit"_s)->setText(names.takeFirst());
        return ScriptedPrompts::Answer{names.isEmpty() ? QDialog::Rejected : QDialog::Accepted, {}};
    });

    QVERIFY(f->folder.addNew(f->root));
    QVERIFY(shown.isNull()); // deleted once answered
    QCOMPARE(expanded.size(), 1);
    QCOMPARE(expanded.at(0).at(0).value<QModelIndex>(), f->root->modelIndex());
    // Only the first child opens the parent; a cancelled dialog adds nothing.
    QVERIFY(f->folder.addNew(f->root));
    QVERIFY(!f->folder.addNew(f->root));
    QVERIFY(shown.isNull());
    QCOMPARE(expanded.size(), 1);
    QCOMPARE(outline(f->root), u"root[d1,d2]"_s);
    // Two parents are one too many: nothing is asked.
    QVERIFY(!f->folder.genericHandler()->handleCommand(u"cmdAddNew"_s,
                                                       {f->root, f->root->getChildItemAt(0)}, {}));
    QCOMPARE(prompts.requests.size(), 3);
}

void tst_ItemOperations::addRoutinesWarn()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    OpsType loose(u"bare"_s), bare(u"bare"_s);
    f->registrar.registerType(&bare);
    const std::unique_ptr<ViewItem> orphan(loose.createItemInstance(u"o"_s, nullptr));
    const std::unique_ptr<ViewItem> childless(bare.createItemInstance(u"c"_s, nullptr));
    ScriptedPrompts prompts;

    QTest::ignoreMessage(QtWarningMsg, "ItemType::add_new_routine() : null registrar pointer");
    QVERIFY(!loose.addNew(orphan.get()));
    QTest::ignoreMessage(QtWarningMsg, "ItemType::add_new_routine() : no type of child allowed.");
    QVERIFY(!bare.addNew(childless.get()));
    QTest::ignoreMessage(QtWarningMsg,
                         "ItemType::add_existing_routine() : null registrar pointer");
    QVERIFY(!loose.addExisting(orphan.get(), QString()));
    QTest::ignoreMessage(QtWarningMsg,
                         "ItemType::add_existing_routine() : no type of child allowed.");
    QVERIFY(!bare.addExisting(childless.get(), QString()));
    QVERIFY(prompts.requests.isEmpty());
    f->registrar.unregisterType(u"bare"_s);
}

void tst_ItemOperations::addExistingOpensTheFile()
{
    QSignalSpy expanded(&f->model, &ViewModel::expandRequested);
    QTemporaryDir dir;
    QVERIFY(writeFile(dir.filePath(u"a.dat"_s), "a") && writeFile(dir.filePath(u"b.txt"_s), "b")
            && writeFile(dir.filePath(u"c.xyz"_s), "c"));
    ScriptedPrompts prompts;
    prompts.answer(QDialog::Rejected);
    prompts.answer(QDialog::Accepted, dir.filePath(u"b.txt"_s));

    // With a path the first candidate that handles it opens the file, without asking.
    QVERIFY(f->folder.addExisting(f->root, dir.filePath(u"a.dat"_s)));
    QCOMPARE(f->root->getChildItemAt(0)->getItemPath(), dir.filePath(u"a.dat"_s));
    QCOMPARE(expanded.size(), 1);
    // Paths no candidate handles, or that cannot be opened, add nothing.
    QVERIFY(!f->folder.addExisting(f->root, dir.filePath(u"c.xyz"_s)));
    QVERIFY(!f->folder.addExisting(f->root, dir.filePath(u"missing.dat"_s)));
    QVERIFY(prompts.requests.isEmpty());

    // Without one the user chooses; only file candidates filter, each with a line feed.
    QVERIFY(!f->folder.addExisting(f->root, QString()));
    QCOMPARE(asked(prompts.requests.at(0)),
             QStringList({QString::number(Request::OpenFileName), u"window"_s,
                          u"Open A Project File"_s, QString(), QDir::homePath(),
                          u"Data files (*.dat)\nNotes (*.txt)\n"_s, ok}));
    QVERIFY(f->folder.addExisting(f->root, QString()));
    QCOMPARE(outline(f->root), u"root[a,b]"_s);
    QCOMPARE(f->root->getChildItemAt(1)->getType()->getId(), u"Notes"_s);
    QCOMPARE(expanded.size(), 1); // the parent had children already
}

void tst_ItemOperations::removeTakesAFolderWithItsChildOnce()
{
    ViewItem *folder = f->make(u"f"_s);
    ViewItem *child = f->make(u"c"_s, u"Data"_s);
    folder->addChildItem(child);
    f->root->addChildItem(folder);
    f->root->addChildItem(f->make(u"s"_s, u"Data"_s));
    QSignalSpy removedRows(&f->model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy folderGone(folder, &QObject::destroyed);
    QSignalSpy childGone(child, &QObject::destroyed);

    QVERIFY(f->folder.remove(Items{child, folder}, true));
    QCOMPARE(removedRows.size(), 1);
    QCOMPARE(removedRows.at(0), rows(f->root->modelIndex(), 0, 0));
    QTRY_COMPARE(folderGone.size(), 1);
    QCOMPARE(childGone.size(), 1);
    QCOMPARE(outline(f->root), u"root[s]"_s);
}

void tst_ItemOperations::renameFollowsTheNamingRules_data()
{
    QTest::addColumn<QString>("name"); // "_a" and "dup" are taken
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("refusal");

    const QString longest = u"a"_s + QString(30, u'b');
    QTest::newRow("empty") << QString() << true << u"The name cannot be empty"_s;
    QTest::newRow("31 characters") << longest << true << QString();
    QTest::newRow("32 characters") << longest + u'c' << true
                                   << u"The name is too long, please limit it to 32 characters"_s;
    QTest::newRow("starts with a digit") << u"1abc"_s << true << illegal;
    QTest::newRow("hyphen") << u"a-b"_s << true << illegal;
    QTest::newRow("underscore and digit") << u"a_1"_s << true << QString();
    QTest::newRow("illegal before taken") << u"_a"_s << true << illegal;
    QTest::newRow("taken before unchangeable")
        << u"dup"_s << false << u"Name can not be duplicated within the project"_s;
    QTest::newRow("type refuses the change")
        << u"fine"_s << false << u"The input name id not available"_s;
}

void tst_ItemOperations::renameFollowsTheNamingRules()
{
    QFETCH(QString, name);
    QFETCH(bool, editable);
    QFETCH(QString, refusal);
    f->folder.taken = QStringList{u"_a"_s, u"dup"_s};
    ItemType::ItemTypeAttributes attributes = f->folder.itemTypeAttributes();
    f->folder.setItemTypeAttributes(attributes.setFlag(ItemType::Editable, editable));
    ViewItem *item = f->make(u"old"_s);
    f->root->addChildItem(item);
    QSignalSpy changed(&f->model, &QAbstractItemModel::dataChanged);
    ScriptedPrompts prompts;
    prompts.answer(QDialog::Rejected);
    prompts.answer(QDialog::Accepted, name);

    QVERIFY(!ItemNaming::rename(item, &f->window)); // cancelled: nothing happens
    QCOMPARE(prompts.requests.size(), 1);
    QCOMPARE(ItemNaming::rename(item, &f->window), refusal.isEmpty());
    QCOMPARE(asked(prompts.requests.at(1)),
             QStringList({QString::number(Request::Text), u"window"_s, u"Rename"_s,
                          u"Please input new name:"_s, u"old"_s, QString(), ok}));
    QCOMPARE(prompts.requests.size(), refusal.isEmpty() ? 2 : 3);
    if (!refusal.isEmpty()) {
        QCOMPARE(asked(prompts.requests.at(2)),
                 QStringList({QString::number(Request::Critical), u"window"_s, u"Error"_s,
                              refusal, QString(), QString(), ok}));
    }
    QCOMPARE(item->getItemName(), refusal.isEmpty() ? name : u"old"_s);
    QCOMPARE(changed.size(), refusal.isEmpty() ? 1 : 0);
}

VELMORA_TEST(tst_ItemOperations);
#include "tst_itemoperations.moc"
