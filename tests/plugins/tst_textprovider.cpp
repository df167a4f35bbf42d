#include "offscreenwindows.h"
#include "testsupport.h"
#include "testtypes.h"

#include "core/hubinterfaces.h"
#include "core/icontentoutline.h"
#include "core/launchableregistrar.h"
#include "model/itemdata.h"
#include "model/viewitem.h"
#include "ribdock/dockcontentwidget.h"
#include "shell/environment.h"
#include "shell/facilities.h"
#include "shell/providermanager.h"
#include "types/itemtypefile.h"
#include "views/outputtab.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qloggingcategory.h>
#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qtextdocument.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtWidgets/qplaintextedit.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;
using namespace Velmora::Tests;

namespace {

template <typename Interface>
Interface *service(Environment &environment)
{
    return interfaceCast<Interface>(environment.facilities());
}

// Every item below parent as "name=path", depth first.
QStringList paths(ViewItem *parent)
{
    QStringList out;
    for (int row = 0; row < parent->getChildItemCount(); ++row) {
        ViewItem *child = parent->getChildItemAt(row);
        out << child->getItemName() + u'=' + child->getItemPath();
        out << paths(child);
    }
    return out;
}

} // namespace

// The sample provider as the workbench loads it, from a "plugins" folder.
class tst_TextProvider : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    }
    void init();
    void cleanup()
    {
        if (m_environment)
            m_environment->stop(); // shuts the providers down
        m_environment.reset();
        m_notices.reset();
        m_dir.reset();
        QSettings().clear();
    }
    void pathsAndBytesSurviveARoundTrip();
    void opensFromTheCommandLine();
    void shutdownWithdrawsOnce();

private:
    QTemporaryDir m_settings;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Velmora::Tests::OffscreenWindowNotices> m_notices;
    std::unique_ptr<Environment> m_environment;
};

void tst_TextProvider::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_dir = std::make_unique<QTemporaryDir>();
    const QString plugins = m_dir->filePath(u"plugins"_s);
    QVERIFY(QDir().mkpath(plugins));
    const QString library = QStringLiteral(VELMORA_TEXTPROVIDER);
    QVERIFY(QFile::copy(library, plugins + u'/' + QFileInfo(library).fileName()));

    m_notices = std::make_unique<Velmora::Tests::OffscreenWindowNotices>();
    m_environment = std::make_unique<Environment>();
    // Started, so that the library finds it as the running one.
    m_environment->start(qApp);
    m_environment->providerManager()->loadAll(plugins);
    QCOMPARE(m_environment->providerManager()->getPrimaryProviders().size(), 1);
}

// A project read back finds every file where it was, and saving changes no file's bytes
// unless its text was edited.
void tst_TextProvider::pathsAndBytesSurviveARoundTrip()
{
    const QDir dir(m_dir->filePath(u"notes"_s));
    const QString projectFile = dir.filePath(u"notes.qprj"_s);
    // Not UTF-8, with CR LF and no final newline: only an untouched copy keeps these bytes.
    const QByteArray latin1("caf\xe9\r\nna\xefve");
    const QByteArray markdown("# Title\n\n## Part\ntext\n");
    QVERIFY(dir.mkpath(u"docs/deep"_s));
    QVERIFY(writeFile(dir.filePath(u"read me.txt"_s), latin1));
    QVERIFY(writeFile(dir.filePath(u"docs/deep/guide.md"_s), markdown));
    QVERIFY(writeFile(projectFile, R"(<?xml version="1.0" encoding="UTF-8"?>
<project name="Notes">
    <item typeid="sample.text" name="read me.txt" path=""/>
    <item typeid="sample.folder" name="docs" path="">
        <item typeid="sample.folder" name="deep" path="">
            <item typeid="sample.text" name="guide.md" path="/elsewhere/guide.md"/>
        </item>
    </item>
</project>
)"));
    auto *types = service<ITypeRegistrar>(*m_environment);
    auto *projectType = interfaceCast<ITypeFile>(types->lookup(u"sample.project"_s));
    const auto openProject = [&] {
        std::unique_ptr<ViewItem> project(types->createItem(u"sample.project"_s, QString(), nullptr));
        if (project && !projectType->open(project.get(), projectFile))
            project.reset();
        return project;
    };
    const QStringList expected{u"read me.txt="_s + dir.filePath(u"read me.txt"_s),
                               u"docs="_s + dir.filePath(u"docs"_s),
                               u"deep="_s + dir.filePath(u"docs/deep"_s),
                               u"guide.md="_s + dir.filePath(u"docs/deep/guide.md"_s)};

    const std::unique_ptr<ViewItem> first = openProject();
    QVERIFY(first);
    QCOMPARE(paths(first.get()), expected);
    ViewItem *text = first->getChildItemAt(0);
    ViewItem *guide = first->getChildItemAt(1)->getChildItemAt(0)->getChildItemAt(0);
    auto *fileType = interfaceCast<ITypeFile>(text->getType());
    // One file read and saved, one saved without being read: both keep their bytes.
    QVERIFY(fileType->open(text, QString()));
    QVERIFY(fileType->save(QList<ViewItem *>{text, guide}));
    QVERIFY(projectType->save(first.get(), QString()));
    QCOMPARE(readFile(dir.filePath(u"read me.txt"_s)), latin1);
    QCOMPARE(readFile(dir.filePath(u"docs/deep/guide.md"_s)), markdown);

    const std::unique_ptr<ViewItem> second = openProject();
    QVERIFY(second);
    QCOMPARE(paths(second.get()), expected);

    // An edit reaches the file as UTF-8, and only that file changes.
    ViewItem *guideAgain = second->getChildItemAt(1)->getChildItemAt(0)->getChildItemAt(0);
    auto *editor = qobject_cast<QPlainTextEdit *>(guideAgain->getEditor(QString(), {}));
    QVERIFY(editor);
    editor->document()->setPlainText(u"# Caf\u00e9\n"_s);
    QVERIFY(guideAgain->getItemData()->isDirty());
    QVERIFY(fileType->save(guideAgain, QString()));
    QVERIFY(!guideAgain->getItemData()->isDirty());
    QCOMPARE(readFile(dir.filePath(u"docs/deep/guide.md"_s)), QByteArray("# Caf\xc3\xa9\n"));
    QCOMPARE(readFile(dir.filePath(u"read me.txt"_s)), latin1);
}

// What "Tessaly notes.md" does: the file opens in a document tab with its outline, the
// output tab logs it, and an edit marks the tab.
void tst_TextProvider::opensFromTheCommandLine()
{
    const QString file = m_dir->filePath(u"notes.md"_s);
    QVERIFY(writeFile(file, "# One\n## Two\n# Three\n"));
    Environment &env = *m_environment;
    QVERIFY(env.launchableRegistrar()->launch({file, u"other.txt"_s}));

    auto *content = service<IDockContainer>(env)->contentWidget();
    auto *editor = qobject_cast<QPlainTextEdit *>(content->currentView());
    QVERIFY(editor);
    QCOMPARE(content->viewTitle(editor), u"notes.md"_s);
    auto *outline = qobject_cast<IContentOutline *>(editor);
    QAbstractItemModelTester tester(outline->outlineModel());
    QAbstractItemModel *model = outline->outlineModel();
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->index(0, 0).data().toString(), u"One"_s);
    QCOMPARE(model->index(0, 0, model->index(0, 0)).data().toString(), u"Two"_s);
    outline->goToOutline(model->index(1, 0));
    QCOMPARE(editor->textCursor().blockNumber(), 2);

    auto *output = qobject_cast<OutputTab *>(service<IOutputWindow>(env)->widgetOf(u"TextProvider"_s));
    QVERIFY(output->toPlainText().contains(u"Opened "_s + QDir::toNativeSeparators(file)));
    editor->insertPlainText(u"x"_s);
    QCOMPARE(content->viewTitle(editor), u"notes.md*"_s);
}

// The provider withdraws its launchable and data itself; the hub withdraws its types once.
void tst_TextProvider::shutdownWithdrawsOnce()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    Environment &env = *m_environment;
    QVERIFY(service<IDataRegistrar>(env)->isRegistered(u"TextProvider/extensions"_s));
    QCOMPARE(env.launchableRegistrar()->getLaunchables().size(), 2);

    {
        // The type registrar's withdrawal writes one debug line each time it runs.
        QLoggingCategory::setFilterRules(u"*.debug=true"_s);
        Velmora::Tests::MessageRecorder messages;
        env.providerManager()->shutdownAll();
        QLoggingCategory::setFilterRules(QString());
        QCOMPARE(messages.texts.count(u"Deallocating..."_s), 1);
    }
    QVERIFY(!service<ITypeRegistrar>(env)->isRegistered(u"sample.text"_s));
    QVERIFY(!service<IDataRegistrar>(env)->isRegistered(u"TextProvider/extensions"_s));
    QCOMPARE(env.launchableRegistrar()->getLaunchables().size(), 1);
    m_environment.reset(); // unloads the library
}

VELMORA_TEST(tst_TextProvider);

#include "tst_textprovider.moc"
