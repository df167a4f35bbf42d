#include "offscreenwindows.h"
#include "scriptedprompts.h"
#include "testsupport.h"
#include "testtypes.h"

#include "../../examples/generator/exampletypes.h"

#include "core/dataregistrar.h"
#include "core/defaultaggregatable.h"
#include "core/defaultgenericaugmentable.h"
#include "core/hubinterfaces.h"
#include "core/iundosource.h"
#include "core/serviceregistrar.h"
#include "core/typeregistrar.h"
#include "dialogs/optionpagegeneral.h"
#include "dialogs/optionsdialog.h"
#include "dialogs/optiontopitem.h"
#include "dialogs/quickstartwindow.h"
#include "ribdock/addressbar.h"
#include "ribdock/ribbonbar.h"
#include "ribdock/ribbongroup.h"
#include "ribdock/ribbonpage.h"
#include "shell/environment.h"
#include "shell/facilities.h"
#include "shell/idewindow.h"
#include "views/multiplewindow.h"
#include "views/outputwindow.h"

#include <QtCore/qloggingcategory.h>
#include <QtCore/qscopeguard.h>
#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qaction.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qmenu.h>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

namespace {

// An undo source that records what the environment tells it.
class RecordingSource : public QWidget, public IUndoSource
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IUndoSource)

public:
    RecordingSource(QString name, QStringList *log)
        : m_name(std::move(name)), m_log(log)
    {
    }
    bool queryInterface(const char *iid, IBase **out) override
    {
        return queryByMetaCast(this, iid, out);
    }
    bool canUndo() const override { return true; }
    bool canRedo() const override { return false; }
    QString undoText() const override { return u"typing"_s; }
    QString redoText() const override { return QString(); }
    void undo() override { m_log->append(m_name + u" undo"_s); }
    void redo() override { m_log->append(m_name + u" redo"_s); }
    void attach(Environment *) override { m_log->append(m_name + u" attach"_s); }
    void detach(Environment *) override { m_log->append(m_name + u" detach"_s); }

private:
    QString m_name;
    QStringList *m_log;
};

class RefusingRemoval : public DefaultGenericAugmentable
{
    Q_OBJECT

public:
    bool canRemove(const QList<ViewItem *> &, const QVariant &) override { return false; }
};

template <typename Interface>
Interface *service(Environment &environment)
{
    return interfaceCast<Interface>(environment.facilities());
}

} // namespace

class tst_Environment : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Keep the user's settings out of reach.
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    }
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_notices = std::make_unique<Velmora::Tests::OffscreenWindowNotices>();
        m_environment = std::make_unique<Environment>();
    }
    void cleanup()
    {
        m_environment.reset();
        m_notices.reset();
        QSettings().clear();
    }
    void hubAnswersByIdentifier();
    void ribbonActions_data();
    void ribbonActions();
    void unloadWithdrawsContributions_data();
    void unloadWithdrawsContributions();
    void aggregatablesAndDocks();
    void projectRules();
    void commandStackFollowsTheFocus();
    void startStopAndSettings();
    void refusedCloseKeepsTheWindow();

private:
    QTemporaryDir m_settings;
    std::unique_ptr<Velmora::Tests::OffscreenWindowNotices> m_notices;
    std::unique_ptr<Environment> m_environment;
};

void tst_Environment::hubAnswersByIdentifier()
{
    Facilities *hub = m_environment->facilities();
    IBase *first = nullptr;
    IBase *second = nullptr;
    QVERIFY(hub->queryInterface("IAssitant.Facilities.Velmora.Orvane", &first));
    QVERIFY(hub->queryInterface("IAssitant.Facilities.Velmora.Orvane", &second));
    QCOMPARE(first, second);
    QVERIFY(!hub->queryInterface("IAssistant.Facilities.Velmora.Orvane", &first));
    QCOMPARE(first, nullptr);
    QVERIFY(hub->queryInterface("IBase.Velmora.Orvane", &first));
    QCOMPARE(first, static_cast<IBase *>(hub));

    // Every service reaches the object it stands for.
    QCOMPARE(service<ITypeRegistrar>(*m_environment)->lookup(QString::fromLatin1(Iid::ITypeSolution)),
             m_environment->solutionItem()->getType());
    QCOMPARE(service<ISolution>(*m_environment)->solutionItem(), m_environment->solutionItem());
    QCOMPARE(service<IAddressBar>(*m_environment)->addressBar()->suffixes(), QStringList{u"qprj"_s});
    QCOMPARE(service<IStatusBar>(*m_environment)->statusBar(), m_environment->mainWindow()->statusBar());

    // Help is made when first asked for, and says then that its collection is missing.
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"^Assistant: the help collection .* is missing$"_s));
    QVERIFY(!service<IAssistant>(*m_environment)->showAssistant(u"index"_s));

    // The ribbon's pages: the contextual ones start hidden.
    Velmora::Ribdock::RibbonBar *ribbon = service<IRibbonBar>(*m_environment)->ribbonBar();
    QStringList titles;
    for (int index = 0; index < ribbon->pageCount(); ++index)
        titles.append(ribbon->page(index)->title());
    QCOMPARE(titles, (QStringList{u"Main"_s, u"Plot"_s, u"App"_s, u"Tidekit Script"_s,
                                  u"Tidekit Variant"_s, u"Flowdeck Diagram"_s}));
    for (int index = 0; index < ribbon->pageCount(); ++index)
        QCOMPARE(ribbon->isPageVisible(index), index < 3);
    QStringList groups;
    for (const Velmora::Ribdock::RibbonGroup *group : ribbon->page(0)->groups())
        groups.append(group->title());
    QCOMPARE(groups, (QStringList{u"File"_s, u"Variant"_s, u"Environment"_s, u"ResourceGroup"_s}));

    // The New and Open menus' "Project" items run the project commands.
    QCOMPARE(m_environment->fineMenu(Environment::NewMenu)->actions(),
             QList<QAction *>{m_environment->findAction(Environment::NewProjectAction)});
    QVERIFY(m_environment->fineMenu(Environment::LayoutMenu));
}

void tst_Environment::ribbonActions_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("statusTip");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("shortcut");

    QTest::newRow("new script") << int(Environment::NewScriptAction) << u"New\nScript"_s
                                << u"New a script file"_s << u"New Script File"_s << u"Ctrl+N"_s;
    QTest::newRow("new") << int(Environment::NewAction) << u"New"_s
                         << u"Add a new project or file"_s << u"New Project or File"_s
                         << u"Ctrl+N"_s;
    QTest::newRow("open") << int(Environment::OpenAction) << u"Open"_s
                          << u"Oepn a exist solution, project or file"_s
                          << u"Open Solution, Project or File"_s << u"Ctrl+O"_s;
    QTest::newRow("open project") << int(Environment::OpenProjectAction) << u"Project"_s
                                  << u"Open a exist project to the solution"_s
                                  << u"Open Project"_s << QString();
    QTest::newRow("import") << int(Environment::ImportAction) << u"import"_s
                            << u"Import other software file"_s
                            << u"Import other software file"_s << QString();
    QTest::newRow("plugins") << int(Environment::ViewPluginAction) << u"View\nPlugin"_s
                             << u"View all supported plugins"_s << u"View Plugin"_s << QString();
    QTest::newRow("help") << int(Environment::HelpAction) << u"Help"_s << u"(F1)"_s
                          << u"View help documentation"_s << u"F1"_s;
    QTest::newRow("about") << int(Environment::AboutAction) << u"About"_s << u"About of Velmora"_s
                           << u"About of Velmora"_s << QString();
    QTest::newRow("install app") << int(Environment::InstallAppAction) << u"Install\nApp"_s
                                 << u"Install App"_s << u"Install App"_s << QString();
}

void tst_Environment::ribbonActions()
{
    QFETCH(int, id);
    QAction *action = m_environment->findAction(id);
    QTEST(action->text(), "text");
    QTEST(action->statusTip(), "statusTip");
    QTEST(action->toolTip(), "toolTip");
    QTEST(action->shortcut().toString(), "shortcut");
    QCOMPARE(service<IRibbonBar>(*m_environment)->findAction(id), action);
    QCOMPARE(m_environment->findAction(Environment::ActionCount), nullptr);
}

void tst_Environment::unloadWithdrawsContributions_data()
{
    QTest::addColumn<bool>("takenBack");
    QTest::newRow("left to the hub") << false;
    // As a tidy provider's stop() does: the withdrawal then finds nothing, and says nothing.
    QTest::newRow("taken back first") << true;
}

void tst_Environment::unloadWithdrawsContributions()
{
    QFETCH(bool, takenBack);
    Environment &env = *m_environment;
    auto *types = service<ITypeRegistrar>(env);
    QVERIFY(types->registerType(new Velmora::Tests::TestType(u"leaf"_s), QString()));
    DefaultAggregatable serviceObject;
    QVERIFY(service<IServiceRegistrar>(env)->registerService(u"s"_s, &serviceObject));
    QVERIFY(service<IAugmentableRegistrar>(env)->registerInterface(
        QString::fromLatin1(Iid::IAggregatable), &serviceObject, 1));
    QCOMPARE(service<IOutputWindow>(env)->addTab(u"log"_s, u"Log"_s, nullptr), 0);
    auto *page = new OptionPageGeneral;
    QVERIFY(service<IOptionsWindow>(env)->registerOptionPage(OptionTopItem(u"Top"_s), page));
    QCOMPARE(service<IMultipleWindow>(env)->addView(new QWidget, QIcon(), u"View"_s), 0);
    auto *start = new QWidget;
    QCOMPARE(service<IQuickStart>(env)->addPage(start, u"Start"_s), 0);
    QVERIFY(service<IDataRegistrar>(env)->registerData(u"d"_s, 1));
    service<IAggregatableRegistrar>(env)->registerAggregatable(&serviceObject);
    if (takenBack) {
        delete types->unregisterType(u"leaf"_s);
        service<IServiceRegistrar>(env)->unregisterService(u"s"_s);
        QVERIFY(service<IAugmentableRegistrar>(env)->unregisterInterface(
            QString::fromLatin1(Iid::IAggregatable), &serviceObject));
        service<IOutputWindow>(env)->removeTab(u"log"_s);
        QVERIFY(service<IOptionsWindow>(env)->unregisterOptionPage(page));
        delete page;
        service<IQuickStart>(env)->removePage(start);
        delete start;
        service<IAggregatableRegistrar>(env)->unregisterAggregatable(&serviceObject);
    }

    env.facilities()->onUnload(nullptr);

    QVERIFY(!types->isRegistered(u"leaf"_s));
    QVERIFY(!service<IServiceRegistrar>(env)->isRegistered(u"s"_s));
    QVERIFY(service<IAugmentableRegistrar>(env)->getIfList(QString::fromLatin1(Iid::IAggregatable)).isEmpty());
    QCOMPARE(service<IOutputWindow>(env)->findTab(u"log"_s), -1);
    QVERIFY(!env.optionsDialog()->pages().contains(page));
    QCOMPARE(service<IMultipleWindow>(env)->viewCount(), 0);
    QCOMPARE(env.quickStartWindow()->count(), 0);
    QVERIFY(env.aggregatables()->isEmpty());
    // Data outlive the providers; the sample provider's test shows launchables do too.
    QVERIFY(service<IDataRegistrar>(env)->isRegistered(u"d"_s));
}

void tst_Environment::aggregatablesAndDocks()
{
    auto *registrar = service<IAggregatableRegistrar>(*m_environment);
    DefaultAggregatable first, second;
    registrar->registerAggregatable(&first);
    registrar->registerAggregatable(&first);
    registrar->registerAggregatable(&second);
    QCOMPARE(*m_environment->aggregatables(), (QList<IAggregatable *>{&first, &second}));
    registrar->unregisterAggregatable(&first);
    QCOMPARE(*m_environment->aggregatables(), QList<IAggregatable *>{&second});

    auto *docks = service<IDockContainer>(*m_environment);
    auto *view = new QWidget;
    QCOMPARE(docks->addView(Qt::TopDockWidgetArea, view, u"Top"_s, QIcon()), -1);
    QCOMPARE(docks->tabifyView(16, view, u"None"_s, QIcon()), -1);
    QVERIFY(docks->addView(Qt::RightDockWidgetArea, view, u"Right"_s, QIcon()) >= 0);

    // Without an environment the list is missing, and both calls say so.
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    Facilities orphan(nullptr);
    auto *orphanRegistrar = interfaceCast<IAggregatableRegistrar>(&orphan);
    QTest::ignoreMessage(QtWarningMsg,
                         "Facilities::registerAggregatable() : empty aggregatabel list pointer");
    orphanRegistrar->registerAggregatable(&first);
    QTest::ignoreMessage(QtWarningMsg,
                         "Facilities::registerAggregatable() : empty aggregatabel list pointer");
    orphanRegistrar->unregisterAggregatable(&first);
    QCOMPARE(interfaceCast<IDockContainer>(&orphan)->addView(1, nullptr, QString(), QIcon()), -1);

    // The shell's warnings can be silenced; unpinned, failOnWarning fails a warning that is not.
    QLoggingCategory::setFilterRules(u"velmora.framework.shell.warning=false"_s);
    const auto restore = qScopeGuard([] { QLoggingCategory::setFilterRules(QString()); });
    orphanRegistrar->registerAggregatable(&first);
}

void tst_Environment::projectRules()
{
    Velmora::Tests::ScriptedPrompts prompts;
    auto *project = service<IProject>(*m_environment);
    MultipleWindow *documents = m_environment->multipleWindow();
    QVERIFY(!project->hasProject());
    project->setProject(u"P"_s, u"/w/P.qprj"_s, 0);
    QVERIFY(project->hasProject());
    QVERIFY(!documents->isFrontPageVisible());

    // A second project is refused; the open one is not opened twice.
    m_environment->findAction(Environment::NewProjectAction)->trigger();
    prompts.answer(QMessageBox::Ok);
    QMetaObject::invokeMethod(m_environment.get(), "openProject", Q_ARG(QString, u"/w/P.qprj"_s));
    QCOMPARE(prompts.requests.size(), 2);
    QCOMPARE(prompts.requests.at(0).kind, Velmora::Framework::PromptRequest::Critical);
    QCOMPARE(prompts.requests.at(0).title, u"Error"_s);
    QCOMPARE(prompts.requests.at(0).text,
             u"Velmora can only execute one project, please remove the currentproject before "
             "creating a new one."_s);
    QCOMPARE(prompts.requests.at(1).title, u"Infomation"_s);
    QCOMPARE(prompts.requests.at(1).text, u"Project \"P\" has been opened!"_s);

    project->clearProject();
    QVERIFY(!project->hasProject());
    QCOMPARE(project->getProjectPath(), QString());
    QVERIFY(documents->isFrontPageVisible());
    QVERIFY(m_environment->closeSolution());
}

void tst_Environment::commandStackFollowsTheFocus()
{
    QStringList log;
    RecordingSource first(u"first"_s, &log), second(u"second"_s, &log);
    QWidget plain;
    QAction *undo = m_environment->findAction(Environment::UndoAction);
    QAction *redo = m_environment->findAction(Environment::RedoAction);
    QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    QCOMPARE(undo->text(), u"Undo"_s);

    m_environment->updateCommandStack(&first);
    m_environment->updateCommandStack(&plain);
    QCOMPARE(undo->text(), u"Undo typing"_s);
    QVERIFY(undo->isEnabled() && !redo->isEnabled());
    undo->trigger();
    m_environment->updateCommandStack(&second);
    redo->trigger();
    QCOMPARE(log, (QStringList{u"first attach"_s, u"first undo"_s, u"first detach"_s,
                               u"second attach"_s}));
}

void tst_Environment::startStopAndSettings()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QTest::ignoreMessage(QtWarningMsg, "MxFramework::start : framework already started for path, .");
    m_environment->start(nullptr);
    QCOMPARE(Environment::currentEnvironment(), nullptr);

    m_environment->start(qApp);
    QCOMPARE(Environment::currentEnvironment(), m_environment.get());
    QCOMPARE(m_environment->path(), QCoreApplication::applicationDirPath());
    // The quick-start window stays hidden without pages.
    QVERIFY(!m_environment->quickStartWindow()->parentWidget());
    m_environment->stop();
    QCOMPARE(Environment::currentEnvironment(), nullptr);
    QVERIFY(m_environment->path().isEmpty());
    // No solution was open, so none is remembered.
    QVERIFY(!QSettings().contains(u"IDE/LastSolutionPath"_s));
}

void tst_Environment::refusedCloseKeepsTheWindow()
{
    // A solution whose project refuses to go cannot close, and neither can the window.
    auto *types = service<ITypeRegistrar>(*m_environment);
    QVERIFY(types->registerType(new Velmora::Examples::ExampleProjectType, u"default"_s));
    QVERIFY(service<ISolution>(*m_environment)
                ->addProject(types->createItem(u"example.project"_s, u"P"_s, nullptr)));
    RefusingRemoval refusing;
    QVERIFY(service<IAugmentableRegistrar>(*m_environment)
                ->registerInterface(QString::fromLatin1(Iid::IAugmentableGeneric), &refusing, 1));
    m_environment->start(qApp);
    auto *window = qobject_cast<IDEWindow *>(m_environment->mainWindow());
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(!window->close());
    QVERIFY(window->isVisible());
    QVERIFY(!QSettings().contains(u"IDE/geometry"_s));

    service<IAugmentableRegistrar>(*m_environment)
        ->unregisterInterface(QString::fromLatin1(Iid::IAugmentableGeneric), &refusing);
    QVERIFY(window->close());
    QVERIFY(QSettings().contains(u"IDE/geometry"_s));
    m_environment->stop();
}

VELMORA_TEST(tst_Environment);
#include "tst_environment.moc"
