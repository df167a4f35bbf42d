// A gallery of every widget of the ribbon, dock and address-bar library, laid out the way the
// workbench uses them.
//   ribdock_gallery [--page N] [--folded] [--path FOLDER]
#include <ribdock/ribdock.h>

#include <QtCore/qcommandlineparser.h>
#include <QtCore/qdir.h>
#include <QtGui/qaction.h>
#include <QtGui/qactiongroup.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qcombobox.h>
#include <QtWidgets/qheaderview.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qlistwidget.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qmenu.h>
#include <QtWidgets/qplaintextedit.h>
#include <QtWidgets/qspinbox.h>
#include <QtWidgets/qstatusbar.h>
#include <QtWidgets/qtablewidget.h>
#include <QtWidgets/qtreewidget.h>

using namespace Velmora::Ribdock;

namespace {

QIcon icon(const char *name)
{
    return QIcon(QStringLiteral(":/gallery/icons/%1.svg").arg(QLatin1String(name)));
}

QAction *action(QObject *parent, const QString &text, const char *iconName, const QString &statusTip,
                const QString &toolTip = QString(), const QKeySequence &shortcut = QKeySequence())
{
    auto *result = new QAction(iconName ? icon(iconName) : QIcon(), text, parent);
    result->setStatusTip(statusTip);
    result->setToolTip(toolTip.isEmpty() ? statusTip : toolTip);
    result->setShortcut(shortcut);
    return result;
}

void fillMainPage(RibbonPage *page, QMainWindow *window, DockContainer *docks)
{
    RibbonGroup *file = page->addGroup(QObject::tr("File"));
    file->addLargeAction(action(window, QObject::tr("New\nScript"), "script", QObject::tr("New a script file"),
                                QObject::tr("New Script File"), QKeySequence(QStringLiteral("Ctrl+N"))));
    file->addLargeAction(action(window, QObject::tr("New\nRtScript"), "realtime",
                                QObject::tr("New a realtime script file"), QObject::tr("New Realtime Script File")));
    QAction *newAction = action(window, QObject::tr("New"), "new", QObject::tr("Add a new project or file"),
                                QObject::tr("New Project or File"));
    auto *newMenu = new QMenu(window);
    newMenu->addAction(icon("project"), QObject::tr("Project"));
    newAction->setMenu(newMenu);
    file->addLargeAction(newAction);
    QAction *openAction = action(window, QObject::tr("Open"), "open", QObject::tr("Open a solution, project or file"),
                                 QObject::tr("Open Solution, Project or File"), QKeySequence(QStringLiteral("Ctrl+O")));
    auto *openMenu = new QMenu(window);
    openMenu->addAction(icon("project"), QObject::tr("Project"));
    openAction->setMenu(openMenu);
    file->addLargeAction(openAction);
    file->addSmallAction(action(window, QObject::tr("import"), "import", QObject::tr("Import other software file")));
    file->addSmallAction(action(window, QObject::tr("Find File"), "find", QObject::tr("Find Information")));
    QAction *compare = action(window, QObject::tr("File Compare"), "compare", QObject::tr("Compare Model File"));
    compare->setEnabled(false); // greyed out, as an action with nothing to compare is
    file->addSmallAction(compare);

    RibbonGroup *environment = page->addGroup(QObject::tr("Environment"));
    QAction *layout = action(window, QObject::tr("Layout"), "layout", QObject::tr("Adjust desktop layout"),
                             QObject::tr("Adjust Desktop Layout"));
    layout->setMenu(docks->layoutMenu());
    environment->addLargeAction(layout);
    environment->addSmallAction(action(window, QObject::tr("options"), "options", QObject::tr("Specify preset items")));
    environment->addSmallAction(action(window, QObject::tr("Setup Path"), "path", QObject::tr("Change global search path")));
    environment->addSmallAction(action(window, QObject::tr("Parallel"), "parallel", QObject::tr("Parallel Computing Options")));
    environment->addLargeAction(action(window, QObject::tr("View\nPlugin"), "plugin", QObject::tr("View all supported plugins")));

    RibbonGroup *resources = page->addGroup(QObject::tr("ResourceGroup"));
    QAction *help = action(window, QObject::tr("Help"), "help", QObject::tr("(F1)"),
                           QObject::tr("View help documentation"), QKeySequence(Qt::Key_F1));
    auto *helpMenu = new QMenu(window);
    helpMenu->addAction(icon("document"), QObject::tr("document"));
    helpMenu->addAction(icon("about"), QObject::tr("About"));
    help->setMenu(helpMenu);
    resources->addLargeAction(help, QToolButton::MenuButtonPopup);
    resources->addSmallAction(action(window, QObject::tr("document"), "document", QObject::tr("Help documentation")));
    resources->addSmallAction(action(window, QObject::tr("Examples"), "project", QObject::tr("Example Projects")));
    auto *guide = new QMenu(QObject::tr("guide"), window);
    guide->addAction(QObject::tr("Getting started.pdf"));
    guide->addAction(QObject::tr("Scripting reference.pdf"));
    resources->addSmallAction(guide->menuAction());
    resources->addSmallAction(action(window, QObject::tr("Terms of use"), "document", QObject::tr("Terms of use")));
    resources->addSmallAction(action(window, QObject::tr("About"), "about", QObject::tr("About of Velmora")));
}

void fillPlotPage(RibbonPage *page, QMainWindow *window)
{
    RibbonGroup *content = page->addGroup(QObject::tr("Content"));
    RibbonGallery *gallery = content->addGallery();
    gallery->setColumnCount(3);
    auto *styles = new QActionGroup(window);
    const std::pair<const char *, QString> kinds[] = {
        {"plot", QObject::tr("Line")}, {"bars", QObject::tr("Bars")}, {"scatter", QObject::tr("Scatter")},
        {"plot", QObject::tr("Steps")}, {"bars", QObject::tr("Stacked")}, {"scatter", QObject::tr("Bubbles")}};
    for (const auto &[iconName, text] : kinds) {
        QAction *kind = action(window, text, iconName, QObject::tr("Plot the selection as %1").arg(text));
        kind->setCheckable(true);
        styles->addAction(kind);
        gallery->addItem(kind);
    }
    styles->actions().constFirst()->setChecked(true);

    RibbonGroup *plot = page->addGroup(QObject::tr("Plot"));
    plot->addLargeAction(action(window, QObject::tr("New\nFigure"), "plot", QObject::tr("Open an empty figure")));
    RibbonSubgroup *axes = plot->addSubgroup();
    auto *scale = new QComboBox;
    scale->addItems({QObject::tr("Linear axes"), QObject::tr("Logarithmic axes")});
    axes->addWidget(scale);
    auto *points = new QSpinBox;
    points->setRange(10, 100000);
    points->setValue(500);
    points->setSuffix(QObject::tr(" points"));
    axes->addWidget(points);
    QAction *grid = action(window, QObject::tr("Grid lines"), "options", QObject::tr("Show grid lines"));
    grid->setCheckable(true);
    grid->setChecked(true);
    axes->addSmallAction(grid);
}

void fillAppPage(RibbonPage *page, QMainWindow *window)
{
    RibbonGroup *pack = page->addGroup(QObject::tr("Pack"));
    pack->addLargeAction(action(window, QObject::tr("Install\nApp"), "install", QObject::tr("Install App")));
    auto *apps = new QListWidget;
    apps->setViewMode(QListView::IconMode);
    apps->setIconSize(QSize(24, 24));
    apps->setFlow(QListView::LeftToRight);
    apps->setFixedSize(220, 66);
    for (const QString &name : {QObject::tr("Curve Fit"), QObject::tr("Signal"), QObject::tr("Control")})
        apps->addItem(new QListWidgetItem(icon("package"), name));
    pack->addWidget(apps);
}

void fillDocks(DockContainer *docks)
{
    auto *projects = new QTreeWidget;
    projects->setHeaderHidden(true);
    auto *solution = new QTreeWidgetItem(projects, {QObject::tr("Solution 'rotor'")});
    for (const QString &name : {QObject::tr("dynamics.qprj"), QObject::tr("controller.qprj")}) {
        auto *project = new QTreeWidgetItem(solution, {name});
        project->setIcon(0, icon("project"));
        new QTreeWidgetItem(project, {QObject::tr("model.m")});
        new QTreeWidgetItem(project, {QObject::tr("parameters.m")});
    }
    projects->expandAll();
    docks->addView(DockContainer::Left, projects, QObject::tr("Projects"), icon("project"));

    auto *properties = new QTableWidget(4, 2);
    properties->setHorizontalHeaderLabels({QObject::tr("Property"), QObject::tr("Value")});
    properties->verticalHeader()->hide();
    properties->horizontalHeader()->setStretchLastSection(true);
    const QStringList names = {QObject::tr("Name"), QObject::tr("Path"), QObject::tr("Modified"), QObject::tr("Size")};
    const QStringList values = {QObject::tr("model.m"), QObject::tr("dynamics/model.m"), QObject::tr("No"), QObject::tr("2 KB")};
    for (int row = 0; row < names.size(); ++row) {
        properties->setItem(row, 0, new QTableWidgetItem(names.at(row)));
        properties->setItem(row, 1, new QTableWidgetItem(values.at(row)));
    }
    docks->addView(DockContainer::Right, properties, QObject::tr("Property"));

    auto *output = new QPlainTextEdit;
    output->setReadOnly(true);
    output->setPlainText(QObject::tr("Loaded 2 projects.\nRunning model.m ... done in 0.4 s."));
    docks->addView(DockContainer::Bottom, output, QObject::tr("Output"));
    docks->tabifyView(DockContainer::Bottom, new QPlainTextEdit, QObject::tr("Command"));
    docks->addView(DockContainer::Bottom, new QListWidget, QObject::tr("Outline"));
    docks->panel(DockContainer::Bottom)->content()->setCurrentView(output);

    DockContentWidget *content = docks->contentWidget();
    auto *script = new QPlainTextEdit;
    script->setPlainText(QStringLiteral("% rotor dynamics\nomega = 2*pi*50;\nt = 0:1e-3:1;\ny = sin(omega*t);\nplot(t, y);\n"));
    content->tabifyView(script, QObject::tr("model.m"), icon("document"));
    content->tabifyView(new QPlainTextEdit, QObject::tr("parameters.m"), icon("document"));
    content->setCurrentView(script);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setOrganizationName(QStringLiteral("Velmora"));
    QApplication::setApplicationName(QStringLiteral("Ribdock Gallery"));

    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption pageOption(QStringLiteral("page"), QStringLiteral("The ribbon page to show."),
                                        QStringLiteral("N"), QStringLiteral("0"));
    const QCommandLineOption foldedOption(QStringLiteral("folded"), QStringLiteral("Fold the ribbon to its tabs."));
    const QCommandLineOption pathOption(QStringLiteral("path"), QStringLiteral("The address bar's folder."),
                                        QStringLiteral("FOLDER"), QDir::currentPath());
    parser.addOptions({pageOption, foldedOption, pathOption});
    parser.process(app);

    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Ribdock Gallery"));
    RibdockAgent agent(&window);
    RibbonBar *ribbon = agent.ribbonBar();
    fillMainPage(ribbon->addPage(QObject::tr("Main")), &window, agent.dockContainer());
    fillPlotPage(ribbon->addPage(QObject::tr("Plot")), &window);
    fillAppPage(ribbon->addPage(QObject::tr("App")), &window);
    const QColor tidekit(0xd9, 0x8c, 0x1a);
    ribbon->addContextualPage(QObject::tr("Tidekit Script"), tidekit)->addGroup(QObject::tr("Run"))
        ->addLargeAction(action(&window, QObject::tr("Run\nScript"), "realtime", QObject::tr("Run the script")));
    ribbon->addContextualPage(QObject::tr("Tidekit Variant"), tidekit);
    ribbon->addContextualPage(QObject::tr("Flowdeck Diagram"));
    ribbon->setPageVisible(4, false);
    ribbon->setPageVisible(5, false);
    ribbon->cornerWidget()->addAction(action(&window, QObject::tr("Help"), "about", QObject::tr("About this gallery")));

    AddressBar *address = agent.addressBar();
    address->addSuffix(QStringLiteral("qprj"));
    address->setPath(parser.value(pathOption));
    QObject::connect(address, &AddressBar::signalFileOpen, &window, [&window](const QString &path) {
        window.statusBar()->showMessage(QObject::tr("Open %1").arg(QDir::toNativeSeparators(path)), 4000);
    });

    fillDocks(agent.dockContainer());
    agent.bindRibbonPagesAndDockWorkspace(ribbon->page(0), 0);
    agent.bindRibbonPagesAndDockWorkspace(ribbon->page(1), 1);

    ribbon->setCurrentIndex(parser.value(pageOption).toInt());
    ribbon->setMinimized(parser.isSet(foldedOption));
    window.statusBar()->showMessage(QObject::tr("Ready"));
    window.resize(1400, 860);
    window.show();
    return app.exec();
}
