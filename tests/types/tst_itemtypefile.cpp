#include "testsupport.h"
#include "scriptedprompts.h"
#include "testtypes.h"

#include "../../examples/generator/exampletypes.h"

#include "core/augmentableregistrar.h"
#include "core/defaultfileaugmentable.h"
#include "core/identifiers.h"
#include "types/itemtypesolution.h"
#include "types/typecompanionfile.h"
#include "types/typecompaniongeneric.h"

#include <QtCore/qdir.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qaction.h>
#include <QtWidgets/qmenu.h>

#include <memory>
#include <vector>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using namespace Velmora::Tests;
using Items = QList<ViewItem *>;
using Request = ScriptedPrompts::Request;

namespace {

// Records every file hook as "name:hook" and refuses the one named in veto.
class FileRecorder : public DefaultFileAugmentable
{
public:
    FileRecorder(const char *name, QStringList *log) : m_name(QLatin1String(name)), m_log(log) {}
    QString veto;
    QVariant argument; // the last one seen

#define RECORD(H)                                                                             \
    bool H(const Items &, const QVariant &argument) override                                  \
    {                                                                                         \
        m_log->append(m_name + u':' + QLatin1String(#H));                                    \
        this->argument = argument;                                                            \
        return m_log->last() != veto;                                                        \
    }
    RECORD(canOpen) RECORD(beforeOpen) RECORD(afterOpen)
    RECORD(canSave) RECORD(beforeSave) RECORD(afterSave)
    RECORD(canClose) RECORD(beforeClose) RECORD(afterClose)
    RECORD(canClear) RECORD(beforeClear) RECORD(afterClear)
#undef RECORD

private:
    QString m_name;
    QStringList *m_log;
};

} // namespace

class tst_ItemTypeFile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        f = std::make_unique<Fixture>();
        QVERIFY(f->dir.isValid());
    }
    void cleanup() { f.reset(); }

    void openLoadsAndCloseResets();
    void saveWritesTheFile_data();
    void saveWritesTheFile();
    void saveAsksOnlyWhenItMust();
    void fileMenuEntriesFollowTheFlags();
    void fileProtocolStopsAtAVeto();
    void companionOffersToSaveSeveralUnsaved_data();
    void companionOffersToSaveSeveralUnsaved();
    void companionMovesToTheFilesFolder();
    void companionMarksDirtyOnlyProjectsAndSolutions();

private:
    // A detached item with the name and path, its data not loaded.
    ViewItem *make(const QString &name, const QString &path = {}, bool dirty = true,
                   const QString &typeId = u"data"_s)
    {
        ViewItem *item = f->items.emplace_back(f->registrar.createItem(typeId, name)).get();
        item->setItemPath(path);
        item->getItemData()->setDirty(dirty);
        return item;
    }
    QString file(const QString &name) const { return f->dir.filePath(name); }
    // What a file dialog request asked, in one comparable line.
    QStringList asked(const Request &request) const
    {
        return {QString::number(request.kind), request.title, request.value, request.filter,
                request.parent == &f->window ? u"window"_s : u"other parent"_s};
    }

    struct Fixture
    {
        Fixture()
        {
            registrar.associate(&augments);
            registrar.registerType(type);
        }
        ~Fixture() { registrar.deallocateAll(); }
        QTemporaryDir dir;
        QWidget window;
        TypeCompanionFile companion;
        AugmentableRegistrar augments;
        TypeRegistrar registrar{&window};
        TestFileType *type = new TestFileType; // owned by the registrar
        std::vector<std::unique_ptr<ViewItem>> items; // freed before the types
        CurrentDirGuard cwd; // opening and saving move the process on purpose
    };
    std::unique_ptr<Fixture> f;
};

void tst_ItemTypeFile::openLoadsAndCloseResets()
{
    const QString path = file(u"a.DAT"_s), broken = file(u"broken.dat"_s);
    QVERIFY(writeFile(path, "alpha") && writeFile(broken, "broken"));
    ViewItem *given = make(u"g"_s), *chosen = make(u"c"_s);
    ScriptedPrompts prompts;
    prompts.answer(QDialog::Rejected);
    prompts.answer(QDialog::Accepted, path);

    QVERIFY(f->type->open(given, path));
    // Without a path the user chooses one; cancelling leaves the item alone.
    QVERIFY(!f->type->open(Items{chosen}));
    QCOMPARE(chosen->getItemName(), u"c"_s);
    QVERIFY(f->type->open(Items{chosen}));
    QCOMPARE(prompts.requests.size(), 2);
    QCOMPARE(asked(prompts.requests.at(1)),
             QStringList({QString::number(Request::OpenFileName), u"Choose a file to open from"_s,
                          QDir::homePath(), u"Data files (*.dat)"_s, u"window"_s}));
    for (ViewItem *item : {given, chosen}) {
        QCOMPARE(item->getItemName() + u'|' + item->getItemPath(), u"alpha|"_s + path);
        QVERIFY(item->getItemData()->isLoaded() && !item->getItemData()->isDirty());
    }

    // The answer is the last deserialize's: an earlier failure is hidden by a later success.
    ViewItem *failed = make(u"b"_s, broken);
    QVERIFY(f->type->open(Items{failed, make(u"a"_s, path)}));
    QCOMPARE(failed->getItemName(), u"b"_s);
    QVERIFY(!failed->getItemData()->isLoaded() && failed->getItemData()->isDirty());
    QVERIFY(!f->type->open(Items{make(u"a2"_s, path), failed}));

    given->getItemData()->setDirty(true);
    QVERIFY(f->type->close(given));
    QCOMPARE(given->getItemName() + u'|' + given->getItemPath(), f->type->getDefaultName() + u'|');
    QVERIFY(!given->getItemData()->isLoaded() && !given->getItemData()->isDirty());
}

void tst_ItemTypeFile::saveWritesTheFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("written"); // the one file in the folder, holding "old" before
    QTest::addColumn<bool>("saved");

    QTest::newRow("another extension is replaced") << u"n"_s << u"a.txt"_s << u"a.dat"_s << true;
    QTest::newRow("no extension gets one") << u"n"_s << u"a"_s << u"a.dat"_s << true;
    QTest::newRow("the right extension in capitals stays") << u"n"_s << u"b.DAT"_s << u"b.DAT"_s
                                                           << true;
    QTest::newRow("a failed save keeps the old file") << u"unwritable"_s << u"b.dat"_s
                                                      << u"b.dat"_s << false;
}

void tst_ItemTypeFile::saveWritesTheFile()
{
    QFETCH(QString, name);
    QFETCH(QString, path);
    QFETCH(QString, written);
    QFETCH(bool, saved);
    // Relative paths, so that no dot in the temporary folder's name plays a part.
    QVERIFY(QDir::setCurrent(f->dir.path()));
    QVERIFY(writeFile(written, "old"));
    ViewItem *item = make(name, path);
    ScriptedPrompts prompts;

    QCOMPARE(f->type->save(item, QString()), saved);
    QVERIFY(prompts.requests.isEmpty());
    QCOMPARE(QDir::current().entryList(QDir::Files), QStringList{written});
    QCOMPARE(readFile(written), saved ? name.toUtf8() : QByteArray("old"));
    QCOMPARE(item->getItemPath(), saved ? written : path);
    QCOMPARE(item->getItemData()->isDirty(), !saved);
}

void tst_ItemTypeFile::saveAsksOnlyWhenItMust()
{
    ViewItem *item = make(u"p"_s, file(u"p.dat"_s));
    ScriptedPrompts prompts;
    prompts.answer(QDialog::Accepted, file(u"q.dat"_s));

    // Save as, from the item's menu, asks although the item has a path, and starts there.
    QMenu menu;
    item->contextMenu(&menu);
    QAction *saveAs = nullptr;
    for (QAction *action : menu.actions())
        saveAs = action->text() == u"Save 'p' &As..."_s ? action : saveAs;
    QVERIFY(saveAs);
    saveAs->trigger();
    QCOMPARE(prompts.requests.size(), 1);
    QCOMPARE(asked(prompts.requests.at(0)),
             QStringList({QString::number(Request::SaveFileName), u"Choose a file to save to"_s,
                          file(u"p.dat"_s), u"Data files (*.dat)"_s, u"window"_s}));
    QCOMPARE(readFile(file(u"q.dat"_s)), QByteArray("p"));
    QCOMPARE(item->getItemPath(), file(u"q.dat"_s));

    // A plain save uses the path; without one it asks from the current folder.
    QVERIFY(f->type->save(Items{item}));
    QCOMPARE(prompts.requests.size(), 1);
    QVERIFY(!f->type->save(make(u"fresh"_s), QString()));
    QCOMPARE(prompts.requests.size(), 2);
    QCOMPARE(prompts.requests.at(1).value, QDir::currentPath());
}

void tst_ItemTypeFile::fileMenuEntriesFollowTheFlags()
{
    ViewItem *item = make(u"n"_s);
    const auto texts = [&] { return menuTexts(f->type, item, {item}); };
    // defMenus 0xAC keeps cut, copy and remove of the generic entries.
    const QStringList generic{u"-"_s, u"Cu&t"_s, u"Cop&y"_s, u"Remo&ve"_s};
    QCOMPARE(texts(), QStringList({u"-"_s, u"-"_s, u"&Save _name_"_s, u"Save _name_ &As..."_s,
                                   u"&Close _name_"_s}) + generic);
    QVERIFY(f->type->setProperty("fileMenus", 0x9u));
    QCOMPARE(texts(), QStringList({u"-"_s, u"-"_s, u"&Open..."_s, u"&Close _name_"_s}) + generic);
}

void tst_ItemTypeFile::fileProtocolStopsAtAVeto()
{
    QStringList log;
    FileRecorder first("first", &log), second("second", &log);
    // Registered out of turn under the file augment identifier: the priorities decide.
    const QString iid = QLatin1String(Iid::IAugmentableFile);
    QVERIFY(f->augments.registerInterface(iid, &second, 2)
            && f->augments.registerInterface(iid, &first, 1));
    const auto hooks = [](const QString &operation, int count = 6) {
        QStringList names;
        for (const QString &stage : {u"can"_s, u"before"_s, u"after"_s}) {
            for (const QString &who : {u"first:"_s, u"second:"_s})
                names << who + stage + operation;
        }
        return names.mid(0, count);
    };
    const QString path = file(u"a.dat"_s);
    QVERIFY(writeFile(path, "alpha"));
    ViewItem *item = make(u"n"_s, path);

    // Open and save pass the path as a one-entry list; close passes nothing.
    QVERIFY(f->type->open(item, path));
    QCOMPARE(first.argument, QVariant(QStringList{path}));
    QVERIFY(f->type->close(item));
    QCOMPARE(first.argument, QVariant());
    QVERIFY(f->type->clear(item));
    QCOMPARE(log, hooks(u"Open"_s) + hooks(u"Close"_s) + hooks(u"Clear"_s));

    // A refusal by the second before-call runs neither the routine nor any after-call.
    log.clear();
    second.veto = u"second:beforeSave"_s;
    QVERIFY(!f->type->save(item, path));
    QCOMPARE(log, hooks(u"Save"_s, 4));
    QCOMPARE(first.argument, QVariant(QStringList{path}));
    QCOMPARE(readFile(path), QByteArray("alpha"));
}

void tst_ItemTypeFile::companionOffersToSaveSeveralUnsaved_data()
{
    QTest::addColumn<int>("unsaved");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("written");

    // A single unsaved item closes without a question and without saving: intended.
    QTest::newRow("one unsaved") << 1 << 0 << true << false;
    QTest::newRow("two unsaved, yes") << 2 << int(QMessageBox::Yes) << true << true;
    QTest::newRow("two unsaved, no") << 2 << int(QMessageBox::No) << true << false;
    QTest::newRow("two unsaved, cancel") << 2 << int(QMessageBox::Cancel) << false << false;
    QTest::newRow("two unsaved, box closed") << 2 << int(QMessageBox::NoButton) << false << false;
}

void tst_ItemTypeFile::companionOffersToSaveSeveralUnsaved()
{
    QFETCH(int, unsaved);
    QFETCH(int, answer);
    QFETCH(bool, closed);
    QFETCH(bool, written);
    // Where the framework registers the file companion: it serves every file type.
    f->augments.registerInterface(QLatin1String(Iid::IAugmentableFile), &f->companion, 0);
    Items items{make(u"clean"_s, file(u"clean.dat"_s), false)};
    for (int i = 0; i < unsaved; ++i)
        items.append(make(u"n%1"_s.arg(i), file(u"n%1.dat"_s.arg(i))));
    ScriptedPrompts prompts;
    prompts.answer(answer);

    // The companion's beforeClose asks; anything but yes or no vetoes the close.
    QCOMPARE(f->type->close(items), closed);
    QCOMPARE(prompts.requests.size(), unsaved > 1 ? 1 : 0);
    for (const Request &asked : std::as_const(prompts.requests)) {
        QCOMPARE(asked.kind, Request::Question);
        QCOMPARE(asked.title + u'|' + asked.text,
                 u"Save multiple changes?|2 unsaved files. Save all before closing?"_s);
        QCOMPARE(asked.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    }
    QVERIFY(!QFile::exists(file(u"clean.dat"_s)));
    for (int i = 0; i < unsaved; ++i) {
        const QString path = file(u"n%1.dat"_s.arg(i));
        QCOMPARE(QFile::exists(path), written);
        QCOMPARE(items.at(i + 1)->getItemPath(), closed ? QString() : path);
        QCOMPARE(items.at(i + 1)->getItemData()->isDirty(), !closed);
    }
}

void tst_ItemTypeFile::companionMovesToTheFilesFolder()
{
    f->augments.registerInterface(QLatin1String(Iid::IAugmentableFile), &f->companion, 0);
    const QString folder = file(u"sub"_s);
    QVERIFY(QDir().mkpath(folder));
    ViewItem *x = make(u"x"_s);
    QVERIFY(f->type->save(x, folder + u"/x.dat"_s));
    QCOMPARE(QDir::current(), QDir(folder));

    QVERIFY(QDir::setCurrent(f->dir.path()));
    QVERIFY(f->type->open(x, folder + u"/x.dat"_s));
    QCOMPARE(QDir::current(), QDir(folder));
    // Only a single item tells where to go.
    QVERIFY(!f->companion.afterOpen(Items{x, x}, {}));
}

void tst_ItemTypeFile::companionMarksDirtyOnlyProjectsAndSolutions()
{
    Velmora::Examples::registerExampleTypes(&f->registrar);
    f->registrar.registerType(new ItemTypeSolution);
    TypeCompanionGeneric companion;
    using Hook = bool (TypeCompanionGeneric::*)(const Items &, const QVariant &);
    for (const Hook hook : {&TypeCompanionGeneric::afterAddNew, &TypeCompanionGeneric::afterCopy,
                            &TypeCompanionGeneric::afterCut}) {
        const Items items{make(u"p"_s, {}, false, u"example.project"_s),
                          make(u"s"_s, {}, false, u"ITypeSolution.Types.Velmora.Orvane"_s),
                          make(u"f"_s, {}, false)};
        QVERIFY((companion.*hook)(items, {}));
        QVERIFY(items.at(0)->getItemData()->isDirty() && items.at(1)->getItemData()->isDirty());
        QVERIFY(!items.at(2)->getItemData()->isDirty());
    }
}

VELMORA_TEST(tst_ItemTypeFile);
#include "tst_itemtypefile.moc"
