#include "testsupport.h"
#include "scriptedprompts.h"
#include "testedmodel.h"
#include "testtypes.h"

#include "core/augmentableregistrar.h"
#include "core/defaultgenericaugmentable.h"
#include "model/itemdata.h"
#include "model/ordereditem.h"
#include "model/viewmodel.h"
#include "types/dialogaddnew.h"
#include "types/itemnaming.h"
#include "types/typeselectmodel.h"

#include <QtCore/qdir.h>
#include <QtCore/qmimedata.h>
#include <QtCore/qpointer.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qaction.h>
#include <QtGui/qclipboard.h>
#include <QtGui/qguiapplication.h>
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

// What a request asked, in one comparable line.
QStringList asked(const Request &request)
{
    return {QString::number(request.kind), request.parent ? request.parent->objectName() : u"-"_s,
            request.title, request.text, request.value, request.filter,
            QString::number(request.buttons.toInt())};
}

// The augmentation protocol as it ran: "who:hook" or "routine", each with its arguments.
struct Log
{
    QStringList hooks;
    QList<Items> items;
    QVariantList arguments;
    void add(const QString &hook, const Items &list, const QVariant &argument)
    {
        hooks << hook;
        items << list;
        arguments << argument;
    }
};

// The calls of one operation ("Remove") with the recorders "first" and "second" attached.
QStringList protocol(const QString &op, bool withAfter = true)
{
    QStringList hooks{u"first:can"_s + op, u"second:can"_s + op, u"first:before"_s + op,
                      u"second:before"_s + op, op.toLower() + u"_routine"_s};
    if (withAfter)
        hooks << u"first:after"_s + op << u"second:after"_s + op;
    return hooks;
}

// Records every hook it is asked and refuses the one named in veto.
class Recorder : public DefaultGenericAugmentable
{
public:
    Recorder(const QString &name, Log *log) : m_name(name), m_log(log) {}
    QString veto;

    // The registrar only takes an interface under an id that it answers.
    bool queryInterface(const char *iid, IBase **out) override
    {
        if (qstrcmp(iid, "node") != 0)
            return DefaultGenericAugmentable::queryInterface(iid, out);
        *out = static_cast<IAugmentableGeneric *>(this);
        return true;
    }

#define RECORD(method)                                                                        \
    bool method(const Items &items, const QVariant &argument) override                        \
    {                                                                                         \
        m_log->add(m_name + u':' + QLatin1String(#method), items, argument);                  \
        return m_log->hooks.last() != veto;                                                   \
    }
    RECORD(canRename) RECORD(beforeRename) RECORD(afterRename)
    RECORD(canCopy) RECORD(beforeCopy) RECORD(afterCopy)
    RECORD(canCut) RECORD(beforeCut) RECORD(afterCut)
    RECORD(canRemove) RECORD(beforeRemove) RECORD(afterRemove)
    RECORD(canPaste) RECORD(beforePaste) RECORD(afterPaste)
#undef RECORD
    const QString m_name;
    Log *const m_log;
};

// A container type whose items carry data, that can claim names are taken, and whose
// routines write to the log when it has one.
class OpsType : public TestType
{
    Q_OBJECT

public:
    using TestType::TestType;
    using ItemType::dispatch;
    using ItemType::genericHandler;
    Log *log = nullptr;
    QStringList taken;
    ItemData *createDataInstance(QObject *parent) override { return new ItemData(parent); }
    bool existName(ViewItem *, const QString &name) const override { return taken.contains(name); }

protected:
#define ROUTINE(routine)                                                                      \
    bool routine(const Items &items, const QVariant &argument) override                       \
    {                                                                                         \
        if (log)                                                                              \
            log->add(QLatin1String(#routine), items, argument);                               \
        return TestType::routine(items, argument);                                            \
    }
    ROUTINE(cut_routine) ROUTINE(copy_routine) ROUTINE(paste_routine)
    ROUTINE(remove_routine) ROUTINE(rename_routine)
#undef ROUTINE
};

const QString ok = QString::number(QMessageBox::Ok);
const QString illegal = u"The name is illegal. the name can only consist of numbers, letters, "
                        u"and underscores, and it must start with a letter"_s;

} // namespace

class tst_ItemOperations : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        f = std::make_unique<Fixture>();
    }
    void cleanup() { f.reset(); }

    void addNewThroughTheDialog();
    void addRoutinesWarn();
    void addExistingOpensTheFile();
    void removeTakesAFolderWithItsChildOnce();
    void renameFollowsTheNamingRules_data();
    void renameFollowsTheNamingRules();
    void propertiesCommand();
    void removeRunsTheProtocolUnlessVetoed_data();
    void removeRunsTheProtocolUnlessVetoed();
    void renameAfterCallComesFromNameChange();
    void baseTypeCannotCutCopyOrPaste();

private:
    // A folder type over two file types, and a tested model over a root folder. The model goes
    // first, while its items' types still exist.
    struct Fixture
    {
        Fixture()
        {
            registrar.associate(&augments);
            window.setObjectName(u"window"_s);
            for (const QString &child : {u"folder"_s, u"Data"_s, u"Notes"_s})
                folder.addChildType(child, false);
            for (ItemType *type : std::initializer_list<ItemType *>{&folder, &data, &notes})
                registrar.registerType(type);
        }
        // The type "node" that accepts its own kind, with the recorders "first" and "second".
        OpsType *protocolType()
        {
            node.log = &log;
            node.addChildType(u"node"_s, false);
            registrar.registerType(&node);
            augments.registerInterface(u"node"_s, &second, 2); // out of turn: the order decides
            augments.registerInterface(u"node"_s, &first, 1);
            return &node;
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
        OpsType node{u"node"_s}; // registered by protocolType()
        Log log;
        Recorder first{u"first"_s, &log}, second{u"second"_s, &log};
        AugmentableRegistrar augments;
        TypeRegistrar registrar{&window};
        TestedModel model{nullptr, folder.createItemInstance(u"root"_s, nullptr)};
        ViewItem *root = model.rootItem();
    };
    std::unique_ptr<Fixture> f;
};

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

void tst_ItemOperations::propertiesCommand()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    OpsType *type = f->protocolType();
    QSignalSpy requested(&f->registrar, &TypeRegistrar::propertyWindowRequested);
    QAction *properties = type->propertiesAction();
    QCOMPARE(properties->text() + u'|' + properties->toolTip() + u'|' + properties->statusTip(),
             u"P&roperties|Properties|Show the property window"_s);
    QTest::ignoreMessage(QtDebugMsg, "Properties menu item selected");
    properties->trigger();
    QCOMPARE(requested.size(), 1);
    QVERIFY(!type->dispatch(u"cmdUnknown"_s));
}

void tst_ItemOperations::removeRunsTheProtocolUnlessVetoed_data()
{
    QTest::addColumn<int>("refusing"); // index in the protocol of the call that answers false

    QTest::newRow("nobody refuses") << -1;
    QTest::newRow("first refuses at can") << 0;
    QTest::newRow("second refuses at can") << 1;
    QTest::newRow("first refuses before") << 2;
    QTest::newRow("second refuses before") << 3;
}

void tst_ItemOperations::removeRunsTheProtocolUnlessVetoed()
{
    QFETCH(int, refusing);
    OpsType *type = f->protocolType();
    std::unique_ptr<ViewItem> root(f->make(u"root"_s, u"node"_s));
    ViewItem *child = f->make(u"child"_s, u"node"_s);
    root->addChildItem(child);
    QObject recording; // ends the connection with the test
    connect(child, &QObject::destroyed, &recording, [this] { f->log.hooks << u"deleted"_s; });
    QStringList expected = protocol(u"Remove"_s) << u"deleted"_s;
    if (refusing >= 0)
        expected = expected.mid(0, refusing + 1);
    f->first.veto = f->second.veto = refusing >= 0 ? expected.last() : QString();
    // Without a context item there is no selection, and an empty list fails.
    QVERIFY(!type->dispatch(u"cmdRemove"_s));

    // As the menu's action does: the selection around the item the menu was opened on.
    QList<OrderedItem *> entries;
    type->contextMenu(child, {child}, entries);
    QVERIFY(type->dispatch(u"cmdRemove"_s) == (refusing < 0));
    QCOMPARE(f->log.hooks, expected); // deleted only after everyone was told
    QCOMPARE(f->log.items.first(), Items{child});
    QCOMPARE(root->getChildItemCount(), refusing >= 0 ? 1 : 0);
}

void tst_ItemOperations::renameAfterCallComesFromNameChange()
{
    OpsType *type = f->protocolType();
    ViewItem *root = f->make(u"root"_s, u"node"_s), *child = f->make(u"old"_s, u"node"_s);
    root->addChildItem(child);
    TestedModel model(nullptr, root);
    QSignalSpy editing(&model, &ViewModel::modificationRequested);

    QVERIFY(type->rename(child, u"renamed"_s));
    QCOMPARE(f->log.hooks, protocol(u"Rename"_s, false));
    // The routine only starts the editing; the after-calls follow the actual change.
    QCOMPARE(editing.size(), 1);
    QCOMPARE(editing.at(0).at(0).value<QModelIndex>(), child->modelIndex());
    QVERIFY(model.setData(child->modelIndex(), u"renamed"_s, Qt::EditRole));
    QCOMPARE(f->log.hooks, protocol(u"Rename"_s));
    QCOMPARE(f->log.items, QList<Items>(7, Items{child}));
    QCOMPARE(f->log.arguments, QVariantList(7, u"renamed"_s));
}

void tst_ItemOperations::baseTypeCannotCutCopyOrPaste()
{
    OpsType *type = f->protocolType();
    std::unique_ptr<ViewItem> item(f->make(u"n"_s, u"node"_s));
    QClipboard *clipboard = QGuiApplication::clipboard();
    auto *held = new QMimeData;
    held->setText(u"held"_s);
    clipboard->setMimeData(held);
    QVERIFY(!type->cut(item.get()));
    QVERIFY(!type->copy(Items{item.get()}));
    QVERIFY(!type->paste(item.get()));
    QCOMPARE(f->log.hooks, protocol(u"Cut"_s, false) + protocol(u"Copy"_s, false)
                              + protocol(u"Paste"_s, false));
    // Cut and copy hand everyone a fresh mime data to fill, paste the clipboard's.
    for (int i = 0; i < f->log.hooks.size(); ++i) {
        QMimeData *mime = f->log.arguments.at(i).value<QMimeData *>();
        QVERIFY2(mime && (mime == held) == (i >= 10), qPrintable(f->log.hooks.at(i)));
    }
    // The base routines leave the clipboard alone.
    QCOMPARE(clipboard->mimeData(), held);
    QCOMPARE(clipboard->text(), u"held"_s);
    clipboard->clear();
}

VELMORA_TEST(tst_ItemOperations);
#include "tst_itemoperations.moc"
