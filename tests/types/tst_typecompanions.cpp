#include "testsupport.h"
#include "scriptedprompts.h"
#include "testtypes.h"

#include "../../examples/generator/exampletypes.h"

#include "core/augmentableregistrar.h"
#include "core/identifiers.h"
#include "types/itemtypesolution.h"
#include "types/typecompanionfile.h"
#include "types/typecompaniongeneric.h"

#include <QtCore/qdir.h>
#include <QtCore/qtemporarydir.h>

#include <memory>
#include <vector>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using Velmora::Tests::ScriptedPrompts;
using Items = QList<ViewItem *>;

class tst_TypeCompanions : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void closeOffersToSaveSeveralUnsaved_data();
    void closeOffersToSaveSeveralUnsaved();
    void openAndSaveMoveToTheFilesFolder();
    void markDirtyOnlyProjectsAndSolutions();

private:
    // A detached, loaded item whose file lies in the temporary folder.
    ViewItem *item(const QString &name, bool dirty = true, const QString &typeId = u"data"_s)
    {
        ViewItem *item = f->items.emplace_back(f->tree.make(typeId, name)).get();
        item->setItemPath(f->dir.filePath(name + u".dat"_s));
        item->getItemData()->setLoaded(true);
        item->getItemData()->setDirty(dirty);
        return item;
    }

    struct Fixture
    {
        Fixture()
        {
            tree.registrar.associate(&augments);
            tree.registrar.registerType(type);
            // Where the framework registers its companions: they serve every file type.
            augments.registerInterface(QLatin1String(Iid::IAugmentableFile), &companion, 0);
        }
        QTemporaryDir dir;
        TypeCompanionFile companion;
        AugmentableRegistrar augments;
        Velmora::Tests::TestTree tree; // its registrar owns the types
        Velmora::Tests::TestFileType *type = new Velmora::Tests::TestFileType;
        std::vector<std::unique_ptr<ViewItem>> items; // freed before the types
        Velmora::Tests::CurrentDirGuard cwd; // the companion moves the process into the folder
    };
    std::unique_ptr<Fixture> f;
};

void tst_TypeCompanions::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    f = std::make_unique<Fixture>();
    QVERIFY(f->dir.isValid());
}

void tst_TypeCompanions::cleanup()
{
    f.reset();
}

void tst_TypeCompanions::closeOffersToSaveSeveralUnsaved_data()
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

void tst_TypeCompanions::closeOffersToSaveSeveralUnsaved()
{
    QFETCH(int, unsaved);
    QFETCH(int, answer);
    QFETCH(bool, closed);
    QFETCH(bool, written);
    Items items{item(u"clean"_s, false)};
    for (int i = 0; i < unsaved; ++i)
        items.append(item(u"n%1"_s.arg(i)));
    ScriptedPrompts prompts;
    prompts.answer(answer);

    // The companion's beforeClose asks; anything but yes or no vetoes the close.
    QCOMPARE(f->type->close(items), closed);
    QCOMPARE(prompts.requests.size(), unsaved > 1 ? 1 : 0);
    for (const ScriptedPrompts::Request &asked : std::as_const(prompts.requests)) {
        QCOMPARE(asked.kind, ScriptedPrompts::Request::Question);
        QCOMPARE(asked.title + u'|' + asked.text,
                 u"Save multiple changes?|2 unsaved files. Save all before closing?"_s);
        QCOMPARE(asked.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    }
    QVERIFY(!QFile::exists(f->dir.filePath(u"clean.dat"_s)));
    for (int i = 0; i < unsaved; ++i) {
        const QString path = f->dir.filePath(u"n%1.dat"_s.arg(i));
        QCOMPARE(QFile::exists(path), written);
        QCOMPARE(items.at(i + 1)->getItemPath(), closed ? QString() : path);
        QCOMPARE(items.at(i + 1)->getItemData()->isDirty(), !closed);
    }
}

void tst_TypeCompanions::openAndSaveMoveToTheFilesFolder()
{
    const QString folder = f->dir.filePath(u"sub"_s);
    QVERIFY(QDir().mkpath(folder));
    ViewItem *x = item(u"x"_s);
    QVERIFY(f->type->save(x, folder + u"/x.dat"_s));
    QCOMPARE(QDir::current(), QDir(folder));

    QVERIFY(QDir::setCurrent(f->dir.path()));
    QVERIFY(f->type->open(x, folder + u"/x.dat"_s));
    QCOMPARE(QDir::current(), QDir(folder));
    // Only a single item tells where to go.
    QVERIFY(!f->companion.afterOpen(Items{x, x}, {}));
}

void tst_TypeCompanions::markDirtyOnlyProjectsAndSolutions()
{
    Velmora::Examples::registerExampleTypes(&f->tree.registrar);
    f->tree.registrar.registerType(new ItemTypeSolution);
    TypeCompanionGeneric companion;
    using Hook = bool (TypeCompanionGeneric::*)(const Items &, const QVariant &);
    for (const Hook hook : {&TypeCompanionGeneric::afterAddNew, &TypeCompanionGeneric::afterCopy,
                            &TypeCompanionGeneric::afterCut}) {
        const Items items{item(u"p"_s, false, u"example.project"_s),
                          item(u"s"_s, false, u"ITypeSolution.Types.Velmora.Orvane"_s),
                          item(u"f"_s, false)};
        QVERIFY((companion.*hook)(items, {}));
        QVERIFY(items.at(0)->getItemData()->isDirty() && items.at(1)->getItemData()->isDirty());
        QVERIFY(!items.at(2)->getItemData()->isDirty());
    }
}

VELMORA_TEST(tst_TypeCompanions);
#include "tst_typecompanions.moc"
