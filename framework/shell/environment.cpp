#include "shell/environment.h"

#include "core/applicationhooks.h"
#include "core/augmentableregistrar.h"
#include "core/dataregistrar.h"
#include "core/hubinterfaces.h"
#include "core/iundosource.h"
#include "core/launchableregistrar.h"
#include "core/lazyicon.h"
#include "core/logging_p.h"
#include "core/prompts.h"
#include "core/serviceregistrar.h"
#include "core/sharedvariantregion.h"
#include "core/typeregistrar.h"
#include "dialogs/appbox.h"
#include "dialogs/assistant.h"
#include "dialogs/exampledialog.h"
#include "dialogs/guidemenu.h"
#include "dialogs/optionpagegeneral.h"
#include "dialogs/optionsdialog.h"
#include "dialogs/quickstartwindow.h"
#include "dialogs/termsofusedialog.h"
#include "model/viewitem.h"
#include "ribdock/addressbar.h"
#include "ribdock/dockcontainer.h"
#include "ribdock/dockcontentwidget.h"
#include "ribdock/ribbonbar.h"
#include "ribdock/ribboncorner.h"
#include "ribdock/ribbongroup.h"
#include "ribdock/ribbonpage.h"
#include "shell/facilities.h"
#include "shell/facilities_p.h"
#include "shell/idewindow.h"
#include "shell/logoinfo.h"
#include "shell/providermanager.h"
#include "shell/qelprovidermanagerdialog.h"
#include "shell/solutionlaunchable.h"
#include "types/itemtypesolution.h"
#include "types/typecompanionfile.h"
#include "types/typecompaniongeneric.h"
#include "views/multiplewindow.h"
#include "views/outlinewindow.h"
#include "views/outputtabwidget.h"
#include "views/outputwindow.h"
#include "views/projectfrontpage.h"
#include "views/projectview.h"
#include "views/projectviewmodel.h"
#include "views/propertywindow.h"

#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qpointer.h>
#include <QtCore/qsettings.h>
#include <QtGui/qaction.h>
#include <QtGui/qscreen.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qmenu.h>
#include <QtWidgets/qstatusbar.h>

#include <array>

namespace Velmora::Framework {

namespace {

const QString lastSolutionKey = QStringLiteral("IDE/LastSolutionPath");

QString styleSheet(const QString &resource)
{
    QFile file(resource);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QIcon icon(const char *resource)
{
    return lazyIcon(QString::fromLatin1(resource)); // none for a null resource
}

} // namespace

class EnvironmentPrivate
{
public:
    explicit EnvironmentPrivate(Environment *q)
        : q(q)
    {
    }

    // One ribbon action: its text, status tip, tool tip, icon and shortcut.
    QAction *makeAction(Environment::ActionId id, const QString &text, const QString &statusTip,
                        const QString &toolTip, const char *iconPath,
                        const QString &shortcut = QString());
    QMenu *makeMenu(Environment::MenuId id, Environment::ActionId owner);
    void setupRibbonBar();
    void setupAddressBar();
    void setupDockContainer();
    void setupEditorArea(Ribdock::DockContentWidget *content);
    void openSolution(const QString &path);
    // Clears the project service once the solution holds no project any more.
    void followProjects();
    IDEWindow *ideWindow() const { return mainWindow.data(); }
    IDockContainer *dockService() const
    {
        return interfaceCast<IDockContainer>(facilities.data());
    }

    Environment *q;
    QString path;
    QPointer<IDEWindow> mainWindow;
    QPointer<Facilities> facilities;
    QPointer<ProviderManager> providerManager;
    QPointer<QuickStartWindow> quickStartWindow;
    QPointer<TypeRegistrar> typeRegistrar;
    QPointer<AugmentableRegistrar> augmentableRegistrar;
    QPointer<LaunchableRegistrar> launchableRegistrar;
    QPointer<ServiceRegistrar> serviceRegistrar;
    QPointer<DataRegistrar> dataRegistrar;
    QPointer<ItemTypeSolution> solutionType;
    QPointer<ViewItem> solutionItem;
    QList<IAggregatable *> aggregatables;
    QPointer<OptionPageGeneral> generalOptionPage;
    QPointer<TypeCompanionFile> fileCompanion;
    QPointer<TypeCompanionGeneric> genericCompanion;
    QPointer<OutputWindow> outputWindow;
    QPointer<OutlineWindow> outlineWindow;
    QPointer<OptionsDialog> optionsDialog;
    QPointer<MultipleWindow> multipleWindow;
    QPointer<QAction> aboutAction;
    QPointer<LogoInfo> logoInfo;
    QPointer<QAction> undoAction;
    QPointer<QAction> redoAction;
    QPointer<QWidget> undoSource;
    QPointer<AppBox> appBox;
    QPointer<Assistant> assistant;
    QPointer<ExampleDialog> exampleDialog;

    QPointer<ProjectView> projectView;
    QPointer<PropertyWindow> propertyWindow;
    QPointer<SolutionLaunchable> solutionLaunchable;
    QString closedSolutionPath;
    std::array<QPointer<QAction>, Environment::ActionCount> actions;
    std::array<QPointer<QMenu>, Environment::MenuCount> menus;
};

QAction *EnvironmentPrivate::makeAction(Environment::ActionId id, const QString &text,
                                        const QString &statusTip, const QString &toolTip,
                                        const char *iconPath, const QString &shortcut)
{
    auto *action = new QAction(icon(iconPath), text, ideWindow());
    action->setStatusTip(statusTip);
    action->setToolTip(toolTip);
    if (!shortcut.isEmpty())
        action->setShortcut(QKeySequence(shortcut));
    actions[id] = action;
    return action;
}

QMenu *EnvironmentPrivate::makeMenu(Environment::MenuId id, Environment::ActionId owner)
{
    auto *menu = new QMenu(ideWindow());
    actions[owner]->setMenu(menu);
    menus[id] = menu;
    return menu;
}

void EnvironmentPrivate::setupRibbonBar()
{
    auto *ribbonService = interfaceCast<IRibbonBar>(facilities.data());
    Ribdock::RibbonBar *ribbon = ribbonService ? ribbonService->ribbonBar() : nullptr;
    if (!ribbon)
        return;
    using E = Environment;
    const QString appDir = QCoreApplication::applicationDirPath();

    Ribdock::RibbonPage *mainPage = ribbon->addPage(Environment::tr("Main"));
    Ribdock::RibbonPage *plotPage = ribbon->addPage(Environment::tr("Plot"));
    plotPage->addGroup(Environment::tr("Content"));
    plotPage->addGroup(Environment::tr("Plot"));
    Ribdock::RibbonPage *appPage = ribbon->addPage(Environment::tr("App"));
    // Pages 3, 4 and 5 wait until an editor of their kind asks for them.
    for (const QString &title : {Environment::tr("Tidekit Script"),
                                 Environment::tr("Tidekit Variant"),
                                 Environment::tr("Flowdeck Diagram")})
        ribbon->addContextualPage(title);
    for (int page = 3; page < 6; ++page)
        ribbon->setPageVisible(page, false);

    // File.
    Ribdock::RibbonGroup *file = mainPage->addGroup(Environment::tr("File"));
    file->addLargeAction(makeAction(E::NewScriptAction, Environment::tr("New\nScript"),
                                    Environment::tr("New a script file"),
                                    Environment::tr("New Script File"),
                                    ":/qelshared/images/24/newScript.svg",
                                    QStringLiteral("Ctrl+N")));
    file->addLargeAction(makeAction(E::NewRtScriptAction, Environment::tr("New\nRtScript"),
                                    Environment::tr("New a realtime script file"),
                                    Environment::tr("New Realtime Script File"),
                                    ":/qelshared/images/24/newRtScript.svg"));
    makeAction(E::NewAction, Environment::tr("New"), Environment::tr("Add a new project or file"),
               Environment::tr("New Project or File"), ":/qelshared/images/24/new.svg",
               QStringLiteral("Ctrl+N"));
    QMenu *newMenu = makeMenu(E::NewMenu, E::NewAction);
    QAction *newProject = makeAction(E::NewProjectAction, Environment::tr("Project"),
                                     Environment::tr("Add a new project to the solution"),
                                     Environment::tr("New Project"),
                                     ":/qelshared/images/16/project.svg");
    QObject::connect(newProject, &QAction::triggered, q, &Environment::newProject);
    newMenu->addAction(newProject);
    file->addLargeAction(actions[E::NewAction]);
    makeAction(E::OpenAction, Environment::tr("Open"),
               Environment::tr("Oepn a exist solution, project or file"),
               Environment::tr("Open Solution, Project or File"),
               ":/qelshared/images/24/open.svg", QStringLiteral("Ctrl+O"));
    QMenu *openMenu = makeMenu(E::OpenMenu, E::OpenAction);
    QAction *openProject = makeAction(E::OpenProjectAction, Environment::tr("Project"),
                                      Environment::tr("Open a exist project to the solution"),
                                      Environment::tr("Open Project"),
                                      ":/qelshared/images/16/project.svg");
    QObject::connect(openProject, &QAction::triggered, q, [this] { q->openProject(QString()); });
    openMenu->addAction(openProject);
    file->addLargeAction(actions[E::OpenAction]);
    const QString importTip = Environment::tr("Import other software file");
    file->addSmallAction(makeAction(E::ImportAction, Environment::tr("import"), importTip,
                                    importTip, ":/qelshared/images/16/import.svg"));
    file->addSmallAction(makeAction(E::FindFileAction, Environment::tr("Find File"),
                                    Environment::tr("Find Information"),
                                    Environment::tr("Search for information from files"),
                                    ":/qelshared/images/16/findFile.svg"));
    file->addSmallAction(makeAction(E::FileCompareAction, Environment::tr("File Compare"),
                                    Environment::tr("Compare Model File"),
                                    Environment::tr("Compare the differences between two models"),
                                    ":/qelshared/images/16/fileComparison.svg"));

    // Variant: the providers fill it.
    mainPage->addGroup(Environment::tr("Variant"));

    // Environment.
    Ribdock::RibbonGroup *environment = mainPage->addGroup(Environment::tr("Environment"));
    QAction *layout = makeAction(E::LayoutAction, Environment::tr("Layout"),
                                 Environment::tr("Adjust desktop layout"),
                                 Environment::tr("Adjust Desktop Layout"),
                                 ":/qelshared/images/24/layout.svg");
    if (auto *dock = dockService(); dock && dock->dockContainer()) {
        layout->setMenu(dock->dockContainer()->layoutMenu());
        menus[E::LayoutMenu] = layout->menu();
    }
    environment->addLargeAction(layout);
    QAction *options = makeAction(E::OptionsAction, Environment::tr("options"),
                                  Environment::tr("Specify preset items"),
                                  Environment::tr("Specify Preset Items"),
                                  ":/qelshared/images/16/options.svg");
    QObject::connect(options, &QAction::triggered, q, &Environment::openOptions);
    environment->addSmallAction(options);
    environment->addSmallAction(makeAction(E::SetupPathAction, Environment::tr("Setup Path"),
                                           Environment::tr("Change global search path"),
                                           Environment::tr("Change Path"),
                                           ":/qelshared/images/16/setThePath.svg"));
    environment->addSmallAction(makeAction(E::ParallelAction, Environment::tr("Parallel"),
                                           Environment::tr("Parallel Computing Options"),
                                           Environment::tr("Parallel computing options"),
                                           ":/qelshared/images/16/parallel.svg"));
    QAction *plugins = makeAction(E::ViewPluginAction, Environment::tr("View\nPlugin"),
                                  Environment::tr("View all supported plugins"),
                                  Environment::tr("View Plugin"),
                                  ":/qelshared/images/24/pluginView.svg");
    QObject::connect(plugins, &QAction::triggered, q, &Environment::openProviderManager);
    environment->addLargeAction(plugins);

    // Resources.
    Ribdock::RibbonGroup *resources = mainPage->addGroup(Environment::tr("ResourceGroup"));
    QAction *help = makeAction(E::HelpAction, Environment::tr("Help"), Environment::tr("(F1)"),
                               Environment::tr("View help documentation"),
                               ":/qelshared/images/24/help.svg", QStringLiteral("F1"));
    QObject::connect(help, &QAction::triggered, q, [this] {
        if (Assistant *help = q->assistant())
            help->showAssistant();
    });
    QMenu *helpMenu = makeMenu(E::HelpMenu, E::HelpAction);
    QAction *document = makeAction(E::DocumentAction, Environment::tr("document"),
                                   Environment::tr("Help documentation"),
                                   Environment::tr("Help Documentation"),
                                   ":/qelshared/images/16/document.svg");
    QObject::connect(document, &QAction::triggered, help, &QAction::trigger);
    auto *guide = new GuideMenu(appDir + QStringLiteral("/../../help"), ideWindow());
    guide->setTitle(Environment::tr("guide"));
    menus[E::GuideMenu] = guide;
    helpMenu->addAction(document);
    helpMenu->addMenu(guide);
    resources->addLargeAction(help, QToolButton::MenuButtonPopup);
    resources->addSmallAction(document);
    const QString examplesTip = Environment::tr("Example Projects");
    QAction *examples = makeAction(E::ExamplesAction, Environment::tr("Examples"), examplesTip,
                                   examplesTip, ":/qelshared/images/16/examples.svg");
    QObject::connect(examples, &QAction::triggered, q, [this, appDir] {
        if (!exampleDialog) {
            exampleDialog = new ExampleDialog(
                {appDir + QStringLiteral("/../../tidekit/examples"),
                 appDir + QStringLiteral("/../../flowdeck/examples")},
                ExampleDialog::defaultGroups(), ideWindow());
            QObject::connect(exampleDialog.data(), &ExampleDialog::openRequested, q,
                             [this](const QString &file) {
                                 if (file.endsWith(QLatin1String(".qprj")))
                                     q->openProject(file);
                                 else
                                     openSolution(file);
                             });
        }
        Prompts::exec(exampleDialog);
    });
    resources->addSmallAction(examples);
    resources->addSmallAction(guide->menuAction());
    const QString termsTip = Environment::tr("Terms of use");
    QAction *terms = makeAction(E::TermsOfUseAction, termsTip, termsTip,
                                Environment::tr("Terms of Use"),
                                ":/qelshared/images/16/termsOfUse.svg");
    QObject::connect(terms, &QAction::triggered, q, [this] {
        TermsOfUseDialog dialog(ideWindow());
        Prompts::exec(&dialog);
    });
    resources->addSmallAction(terms);
    const QString aboutTip = Environment::tr("About of Velmora");
    aboutAction = makeAction(E::AboutAction, Environment::tr("About"), aboutTip, aboutTip,
                             ":/qelshared/images/16/about.svg");
    QObject::connect(aboutAction.data(), &QAction::triggered, q, &Environment::openAbout);
    resources->addSmallAction(aboutAction);

    // App.
    Ribdock::RibbonGroup *pack = appPage->addGroup(Environment::tr("Pack"));
    const QString installTip = Environment::tr("Install App");
    QAction *install = makeAction(E::InstallAppAction, Environment::tr("Install\nApp"),
                                  installTip, installTip,
                                  ":/qelshared/images/24/installApp.svg");
    appBox = new AppBox(appDir + QStringLiteral("/customApp.xml"));
    QObject::connect(install, &QAction::triggered, appBox.data(), &AppBox::installApp);
    pack->addLargeAction(install);
    pack->addWidget(appBox);

    // Undo and redo sit with the ribbon's own buttons, as in every ribbon.
    undoAction = makeAction(E::UndoAction, Environment::tr("Undo"), Environment::tr("Undo"),
                            Environment::tr("Undo"), ":/qelshared/images/16/undo.svg",
                            QStringLiteral("Ctrl+Z"));
    redoAction = makeAction(E::RedoAction, Environment::tr("Redo"), Environment::tr("Redo"),
                            Environment::tr("Redo"), ":/qelshared/images/16/redo.svg",
                            QStringLiteral("Ctrl+Y"));
    QObject::connect(undoAction.data(), &QAction::triggered, q, &Environment::undo);
    QObject::connect(redoAction.data(), &QAction::triggered, q, &Environment::redo);
    Ribdock::RibbonCorner *corner = ribbon->cornerWidget();
    const QList<QAction *> cornerActions = corner->actions();
    corner->insertActions(cornerActions.value(0), {undoAction, redoAction});
    corner->setStyleSheet(styleSheet(QStringLiteral(":/qelshared/styles/dockCorner.css")));
    q->updateCommandStack(nullptr);
}

void EnvironmentPrivate::setupAddressBar()
{
    auto *service = interfaceCast<IAddressBar>(facilities.data());
    Ribdock::AddressBar *bar = service ? service->addressBar() : nullptr;
    if (!bar)
        return;
    bar->addSuffix(QStringLiteral("qprj"));
    QObject::connect(bar, &Ribdock::AddressBar::signalFileOpen, q, [this](const QString &file) {
        if (QFileInfo(file).suffix() == QLatin1String("qprj"))
            q->openProject(file);
    });
}

void EnvironmentPrivate::setupDockContainer()
{
    IDockContainer *dock = dockService();
    if (!dock || !dock->dockContainer())
        return;

    // 1. The document area.
    multipleWindow = new MultipleWindow;
    multipleWindow->setStyleSheet(styleSheet(QStringLiteral(":/qelshared/styles/multipleWindow.css")));
    QObject::connect(multipleWindow.data(), &MultipleWindow::signalNewProject, q,
                     &Environment::newProject);
    QObject::connect(multipleWindow.data(), &MultipleWindow::signalOpenProject, q,
                     &Environment::openProject);
    QObject::connect(multipleWindow.data(), &MultipleWindow::signalOpenSolution, q,
                     [this](const QString &file) { openSolution(file); });
    QObject::connect(multipleWindow.data(), &MultipleWindow::progressChanged, q,
                     &Environment::progressChanged);
    QObject::connect(multipleWindow.data(), &MultipleWindow::statusChanged, q,
                     &Environment::statusChanged);
    Ribdock::DockContentWidget *content = dock->contentWidget();
    content->tabifyView(multipleWindow, Environment::tr("File"),
                        icon(":/qelshared/images/24/file.svg"));
    content->setViewClosable(multipleWindow, false);
    // No project is open yet.
    multipleWindow->setFrontPageVisible(true);
    setupEditorArea(content);

    // 2. The tool windows.
    outputWindow = new OutputWindow(q);
    outputWindow->setObjectName(QStringLiteral("MessageLog"));
    dock->addView(IDockContainer::Bottom, outputWindow->tabWidget(), Environment::tr("Output"),
                  icon(":/framework/images/output_tab.png"));
    outputWindow->setWidget(outputWindow->tabWidget());
    optionsDialog = new OptionsDialog(ideWindow());
    optionsDialog->registerOptionPage(OptionPageGeneral::topItem(), generalOptionPage);
    quickStartWindow = new QuickStartWindow;
    outlineWindow = new OutlineWindow;

    // 3. The registrars.
    augmentableRegistrar = new AugmentableRegistrar;
    augmentableRegistrar->setParent(q);
    augmentableRegistrar->registerInterface(QString::fromLatin1(Iid::IAugmentableFile),
                                            fileCompanion, 0);
    augmentableRegistrar->registerInterface(QString::fromLatin1(Iid::IAugmentableGeneric),
                                            genericCompanion, 0);
    launchableRegistrar = new LaunchableRegistrar(q);
    solutionLaunchable = new SolutionLaunchable(q);
    launchableRegistrar->registerLaunchable(solutionLaunchable);
    dataRegistrar = new DataRegistrar;
    dataRegistrar->setParent(q);
    typeRegistrar = new TypeRegistrar(ideWindow());
    typeRegistrar->setParent(q);
    typeRegistrar->associate(augmentableRegistrar);
    serviceRegistrar = new ServiceRegistrar;
    serviceRegistrar->setParent(q);

    // 4. The branding.
    logoInfo = new LogoInfo(q);

    // 5. The solution.
    solutionType = new ItemTypeSolution;
    if (!typeRegistrar->registerType(solutionType, QStringLiteral("default"))) {
        qCWarning(Internal::lcShell, "Failed to register solution type!\n");
        delete solutionType;
    }
    solutionItem = typeRegistrar->createItem(QString::fromLatin1(Iid::ITypeSolution), QString());

    // 6. The project view.
    projectView = new ProjectView;
    projectView->setObjectName(QStringLiteral("ProjectView"));
    auto *model = new ProjectViewModel(projectView, solutionItem);
    model->setObjectName(QStringLiteral("ProjectModel"));
    projectView->setModel(model);
    dock->addView(IDockContainer::Left, projectView, Environment::tr("Projects"),
                  icon(":/qelshared/images/16/project.svg"));
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, q, [this] { followProjects(); });

    // 7. The property window.
    propertyWindow = new PropertyWindow;
    propertyWindow->setStyleSheet(styleSheet(QStringLiteral(":/qelshared/styles/propertyWindow.css")));
    dock->addView(IDockContainer::Right, propertyWindow, Environment::tr("Property"),
                  icon(":/qelshared/images/24/attribute.svg"));
    dock->tabifyView(IDockContainer::Right, outlineWindow, Environment::tr("Outline"), QIcon());
    propertyWindow->watch(typeRegistrar);
    QObject::connect(multipleWindow.data(), &MultipleWindow::currentItemChanged,
                     propertyWindow.data(), &PropertyWindow::setItem);
    QObject::connect(model, &ViewModel::itemSelected, propertyWindow.data(),
                     &PropertyWindow::setItem);
    QObject::connect(propertyWindow.data(), &PropertyWindow::propertyChanged,
                     multipleWindow.data(), &MultipleWindow::updateItem);
}

void EnvironmentPrivate::setupEditorArea(Ribdock::DockContentWidget *content)
{
    content->setTabsClosable(true);
    // The editor in front drives the outline and the undo and redo commands.
    QObject::connect(content, &Ribdock::DockContentWidget::currentViewChanged, q,
                     [this](QWidget *view) {
                         if (outlineWindow)
                             outlineWindow->setEditor(view);
                         q->updateCommandStack(view);
                     });
}

void EnvironmentPrivate::openSolution(const QString &file)
{
    if (!solutionType || !solutionItem || file.isEmpty())
        return;
    if (!q->closeSolution())
        return;
    if (solutionType->open(solutionItem, file))
        ProjectFrontPage::addRecentSolution(file);
}

void EnvironmentPrivate::followProjects()
{
    Facilities::XProject *project = facilities ? facilities->project() : nullptr;
    if (!project || !project->hasProject())
        return;
    if (auto *solution = interfaceCast<ISolution>(facilities.data());
        solution && solution->projects().isEmpty())
        project->clearProject();
}

Environment::Environment()
    : d(std::make_unique<EnvironmentPrivate>(this))
{
    d->facilities = new Facilities(this);
    d->providerManager = new ProviderManager(d->facilities);
    d->providerManager->setParent(this);
    connect(d->providerManager.data(), &ProviderManager::statusChanged, this,
            &Environment::progressChanged);
    d->generalOptionPage = new OptionPageGeneral;
    d->fileCompanion = new TypeCompanionFile(this);
    d->genericCompanion = new TypeCompanionGeneric(this);
    d->mainWindow = new IDEWindow;

    QStatusBar *status = d->mainWindow->statusBar();
    status->setStyleSheet(styleSheet(QStringLiteral(":/qelshared/styles/statudBar.css")));
    status->setAcceptDrops(false);
    connect(this, &Environment::statusChanged, status, [status](const QString &text) {
        status->showMessage(text);
    });

    d->setupRibbonBar();
    d->setupAddressBar();
    d->setupDockContainer();
    SharedVariantRegion::instanse();
}

Environment::~Environment()
{
    if (currentEnvironment() == this)
        ApplicationHooks::clear();
    // The solution's nodes go before the types that describe them.
    delete d->projectView;
    delete d->solutionItem;
    delete d->mainWindow;
    delete d->assistant;
    delete d->quickStartWindow;
    delete d->generalOptionPage;
    if (d->typeRegistrar)
        d->typeRegistrar->deallocateAll();
}

Environment *Environment::currentEnvironment()
{
    // The lower layers know the current environment only through the core hook.
    return qobject_cast<Environment *>(ApplicationHooks::environment());
}

void Environment::start(QApplication *app)
{
    if (!app) {
        qCWarning(Internal::lcShell, "MxFramework::start : framework already started for path, %s.",
                  qPrintable(d->path));
        return;
    }
    ApplicationHooks::install(this, d->facilities, &d->aggregatables);
    d->path = QCoreApplication::applicationDirPath();
    d->providerManager->loadAll(d->path + QStringLiteral("/plugins"));
    if (IDEWindow *window = d->ideWindow())
        window->readSettings();
    if (d->aboutAction)
        d->aboutAction->setEnabled(d->logoInfo && d->logoInfo->isValid());
    const bool showQuickStart =
        QSettings().value(QuickStartWindow::onStartSettingPath(), true).toBool();
    if (showQuickStart && d->quickStartWindow && d->quickStartWindow->count() > 0) {
        QuickStartWindow *window = d->quickStartWindow;
        window->setParent(d->mainWindow, Qt::Dialog);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        if (QScreen *screen = QGuiApplication::primaryScreen()) {
            QRect frame = window->frameGeometry();
            frame.moveCenter(screen->geometry().center());
            window->move(frame.topLeft());
        }
    }
    connect(app, &QCoreApplication::aboutToQuit, this, &Environment::stop, Qt::UniqueConnection);
}

void Environment::afterShow(QApplication *)
{
    IDEWindow *window = d->ideWindow();
    if (!window)
        return;
    window->readSettings();
    window->dockContainer()->updateState();
    if (d->quickStartWindow && d->quickStartWindow->parentWidget() == window)
        d->quickStartWindow->show();
}

void Environment::stop()
{
    // Closing the main window closes the solution before the application quits, so the
    // solution closed last is remembered when none is open any more.
    const QString open = d->solutionItem ? d->solutionItem->getItemPath() : QString();
    const QString last = open.isEmpty() ? d->closedSolutionPath : open;
    if (!last.isEmpty())
        QSettings().setValue(lastSolutionKey, last);
    if (d->providerManager)
        d->providerManager->shutdownAll();
    d->path.clear();
    if (currentEnvironment() == this)
        ApplicationHooks::clear();
}

void Environment::processArguments()
{
    if (!d->launchableRegistrar)
        return;
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (d->launchableRegistrar->launch(arguments))
        return;
    // Nothing on the command line: reopen the last solution when the user asked for it.
    QSettings settings;
    if (settings.value(OptionPageGeneral::reopenLastSolutionSettingPath(), false).toBool()) {
        const QString last = settings.value(lastSolutionKey).toString();
        if (QFileInfo(last).isFile())
            d->openSolution(last);
    }
}

bool Environment::closeSolution()
{
    if (!d->solutionType || !d->solutionItem)
        return true;
    const QString path = d->solutionItem->getItemPath();
    if (!d->solutionType->close(d->solutionItem))
        return false;
    if (!path.isEmpty())
        d->closedSolutionPath = path;
    return true;
}

void Environment::newProject()
{
    auto *project = interfaceCast<IProject>(d->facilities.data());
    if (project && project->hasProject()) {
        Prompts::critical(d->mainWindow, tr("Error"),
                          tr("Velmora can only execute one project, please remove the "
                             "currentproject before creating a new one."));
        return;
    }
    if (d->solutionType && d->solutionItem)
        d->solutionType->addNew(d->solutionItem);
}

void Environment::openProject(const QString &path)
{
    auto *project = interfaceCast<IProject>(d->facilities.data());
    const QString openPath = project ? project->getProjectPath() : QString();
    QString chosen = path;
    bool closed = true;
    if (project && project->hasProject()) {
        if (chosen.isNull()) {
            auto *address = interfaceCast<IAddressBar>(d->facilities.data());
            chosen = Prompts::getOpenFileName(d->mainWindow, tr("Open Project"),
                                              address ? address->path() : QString(),
                                              tr("Project files(*.qprj)"));
        }
        if (chosen == openPath) {
            Prompts::information(d->mainWindow, tr("Infomation"),
                                 tr("Project \"") + d->facilities->project()->projectName()
                                     + tr("\" has been opened!"));
            return;
        }
        closed = false;
        if (d->solutionType && d->solutionItem) {
            const QList<ViewItem *> projects = interfaceCast<ISolution>(d->facilities.data())->projects();
            closed = projects.isEmpty() || d->solutionType->remove(projects, true);
        }
    }
    if (d->solutionType && d->solutionItem && closed)
        d->solutionType->addExisting(d->solutionItem, chosen);
}

namespace {
// The widget's undo source, by the meta-cast its Q_INTERFACES give.
IUndoSource *undoSourceOf(QWidget *widget)
{
    return widget ? static_cast<IUndoSource *>(widget->qt_metacast(Iid::IUndoSource)) : nullptr;
}
} // namespace

void Environment::undo()
{
    if (IUndoSource *source = undoSourceOf(d->undoSource))
        source->undo();
}

void Environment::redo()
{
    if (IUndoSource *source = undoSourceOf(d->undoSource))
        source->redo();
}

void Environment::updateCommandStack(QWidget *widget)
{
    IUndoSource *candidate = undoSourceOf(widget);
    IUndoSource *current = undoSourceOf(d->undoSource);
    if (candidate && candidate != current) {
        if (current)
            current->detach(this);
        d->undoSource = widget;
        current = candidate;
        current->attach(this);
    }
    if (!d->undoAction || !d->redoAction)
        return;
    const bool canUndo = current && current->canUndo();
    const bool canRedo = current && current->canRedo();
    d->undoAction->setText(canUndo ? tr("Undo") + QLatin1Char(' ') + current->undoText()
                                   : tr("Undo"));
    d->redoAction->setText(canRedo ? tr("Redo") + QLatin1Char(' ') + current->redoText()
                                   : tr("Redo"));
    d->undoAction->setEnabled(canUndo);
    d->redoAction->setEnabled(canRedo);
}

void Environment::openOptions()
{
    if (d->optionsDialog)
        Prompts::exec(d->optionsDialog);
}

void Environment::openProviderManager()
{
    if (!d->providerManager)
        return;
    QelProviderManagerDialog dialog(d->providerManager, d->mainWindow);
    Prompts::exec(&dialog);
}

void Environment::openAbout()
{
    if (d->logoInfo)
        d->logoInfo->showAboutBox();
}

void Environment::setIDEWindowTitle(const QString &title)
{
    if (d->mainWindow)
        d->mainWindow->setWindowTitle(title);
}

QString Environment::getIDEWindowTitle() const
{
    return d->mainWindow ? d->mainWindow->windowTitle() : QString();
}

QAction *Environment::findAction(int id) const
{
    return id >= 0 && id < ActionCount ? d->actions[id].data() : nullptr;
}

QMenu *Environment::fineMenu(int id) const
{
    return id >= 0 && id < MenuCount ? d->menus[id].data() : nullptr;
}

void Environment::createAndShowDialog(QWidget *widget)
{
    if (!widget || !d->mainWindow)
        return;
    widget->setParent(d->mainWindow, Qt::Dialog);
    widget->setAttribute(Qt::WA_DeleteOnClose);
    widget->show();
}

QString Environment::path() const { return d->path; }
Facilities *Environment::facilities() const { return d->facilities; }
QMainWindow *Environment::mainWindow() const { return d->mainWindow; }
ProviderManager *Environment::providerManager() const { return d->providerManager; }
MultipleWindow *Environment::multipleWindow() const { return d->multipleWindow; }
OutputWindow *Environment::outputWindow() const { return d->outputWindow; }
OutlineWindow *Environment::outlineWindow() const { return d->outlineWindow; }
OptionsDialog *Environment::optionsDialog() const { return d->optionsDialog; }
QuickStartWindow *Environment::quickStartWindow() const { return d->quickStartWindow; }
ProjectView *Environment::projectView() const { return d->projectView; }
PropertyWindow *Environment::propertyWindow() const { return d->propertyWindow; }
LogoInfo *Environment::logoInfo() const { return d->logoInfo; }
AppBox *Environment::appBox() const { return d->appBox; }
Assistant *Environment::assistant() const
{
    // Made when help is first asked for: opening the help collection is the slowest part
    // of a start, and a missing one is worth a message only to someone who wants help.
    if (!d->assistant) {
        d->assistant = new Assistant(QCoreApplication::applicationDirPath()
                                     + QStringLiteral("/help/velmora.qhc"));
    }
    return d->assistant;
}
TypeRegistrar *Environment::typeRegistrar() const { return d->typeRegistrar; }
DataRegistrar *Environment::dataRegistrar() const { return d->dataRegistrar; }
ServiceRegistrar *Environment::serviceRegistrar() const { return d->serviceRegistrar; }
LaunchableRegistrar *Environment::launchableRegistrar() const { return d->launchableRegistrar; }
AugmentableRegistrar *Environment::augmentableRegistrar() const { return d->augmentableRegistrar; }
SharedVariantRegion *Environment::sharedVariantRegion() const { return SharedVariantRegion::instanse(); }
ViewItem *Environment::solutionItem() const { return d->solutionItem; }

QList<IAggregatable *> *Environment::aggregatables()
{
    return &d->aggregatables;
}

} // namespace Velmora::Framework
