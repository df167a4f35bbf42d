// Shows the tool windows around a small sample solution, as the workbench places them:
//   views_demo            the project, a file open in its editor, properties, outline, output
//   views_demo --front    the document area's start page with recently opened solutions
//   views_demo --editors  as the first, with property editors and an in-place rename open

#include "core/editorfactory.h"
#include "core/ieditor.h"
#include "core/typeregistrar.h"
#include "model/itempropertybag.h"
#include "model/itemutils.h"
#include "model/viewitem.h"
#include "types/itemtype.h"
#include "types/itemtypefolder.h"
#include "core/icontentoutline.h"
#include "views/multiplewindow.h"
#include "views/outlinewindow.h"
#include "views/outputtabwidget.h"
#include "views/outputwindow.h"
#include "views/projectfrontpage.h"
#include "views/projectview.h"
#include "views/projectviewmodel.h"
#include "views/propertymodel.h"
#include "views/propertywindow.h"

#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtGui/qcursor.h>
#include <QtGui/qfontdatabase.h>
#include <QtGui/qstandarditemmodel.h>
#include <QtGui/qtextcursor.h>
#include <QtGui/qtextdocument.h>
#include <QtGui/qtextobject.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qdockwidget.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qplaintextedit.h>
#include <QtWidgets/qstatusbar.h>
#include <QtWidgets/qtreeview.h>

using namespace Velmora::Framework;

namespace {

class DemoType : public ItemType
{
    Q_OBJECT

public:
    DemoType(const QString &id, const QString &description, const QString &icon,
             const QStringList &children)
        : m_id(id)
        , m_description(description)
    {
        setIcon(QIcon(icon));
        for (const QString &child : children)
            addChildType(child, false);
    }
    QString getId() const override { return m_id; }
    QString getDescription() const override { return m_description; }
    QString getDefaultPrefix() const override { return m_description; }

private:
    QString m_id;
    QString m_description;
};

class DemoFolderType : public ItemTypeFolder
{
    Q_OBJECT

public:
    DemoFolderType()
    {
        addChildType(QStringLiteral("demo.folder"), false);
        addChildType(QStringLiteral("demo.file"), false);
    }
    QString getId() const override { return QStringLiteral("demo.folder"); }
};

// A script editor that offers its functions and sections as an outline.
class ScriptEditor : public QPlainTextEdit, public IEditor, public IContentOutline
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IEditor Velmora::Framework::IContentOutline
                     Velmora::Framework::IBase)

public:
    explicit ScriptEditor(const QString &text)
    {
        setPlainText(text);
        setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        setLineWrapMode(QPlainTextEdit::NoWrap);
        QStandardItem *section = nullptr;
        const QStringList lines = text.split(QLatin1Char('\n'));
        for (int line = 0; line < lines.size(); ++line) {
            const QString trimmed = lines.at(line).trimmed();
            QStandardItem *row = nullptr;
            if (trimmed.startsWith(QLatin1String("%% "))) {
                row = section = new QStandardItem(QIcon(QStringLiteral(":/qelshared/images/16/folder.svg")),
                                                  trimmed.mid(3));
                m_outline.appendRow(row);
            } else if (trimmed.startsWith(QLatin1String("function "))) {
                row = new QStandardItem(QIcon(QStringLiteral(":/qelshared/images/16/script.svg")),
                                        trimmed.mid(9).section(QLatin1Char('('), 0, 0).section(QLatin1Char('='), -1).trimmed());
                (section ? section : m_outline.invisibleRootItem())->appendRow(row);
            }
            if (row)
                row->setData(line, Qt::UserRole);
        }
    }
    bool queryInterface(const char *iid, IBase **out) override
    {
        return queryByMetaCast(this, iid, out);
    }
    QAbstractItemModel *outlineModel() override { return &m_outline; }
    void goToOutline(const QModelIndex &index) override
    {
        const QTextBlock block = document()->findBlockByNumber(index.data(Qt::UserRole).toInt());
        setTextCursor(QTextCursor(block));
        centerCursor();
        setFocus();
    }

private:
    QStandardItemModel m_outline;
};

class ScriptFactory : public EditorFactory
{
    Q_OBJECT

public:
    QString name() const override { return QStringLiteral("Script Editor"); }
    QIcon icon() const override { return QIcon(QStringLiteral(":/qelshared/images/16/script.svg")); }
    QString description() const override { return QStringLiteral("Edit the script as text"); }
    bool supportsEmptyInstance() const override { return false; }

protected:
    QWidget *createEditor(ViewItem *item, const QList<EditorInstruction> &) override
    {
        auto *editor = new ScriptEditor(QStringLiteral(
            "%% Set-up\n"
            "function state = initialise(config)\n"
            "    state.time = 0;\n"
            "    state.step = config.step;\n"
            "end\n\n"
            "%% Simulation\n"
            "function state = advance(state, input)\n"
            "    state.time = state.time + state.step;\n"
            "    state.value = filter(input, state);\n"
            "end\n\n"
            "function y = filter(u, state)\n"
            "    y = 0.8 * u + 0.2 * state.value;\n"
            "end\n\n"
            "%% Report\n"
            "function report(state)\n"
            "    printf(\"t = %g, y = %g\\n\", state.time, state.value);\n"
            "end\n"));
        editor->setWindowTitle(item->getItemName());
        return editor;
    }
};

QDockWidget *dock(QMainWindow *window, const QString &title, QWidget *content,
                  Qt::DockWidgetArea area)
{
    auto *panel = new QDockWidget(title, window);
    panel->setObjectName(title);
    panel->setWidget(content);
    window->addDockWidget(area, panel);
    return panel;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Velmora"));
    QCoreApplication::setApplicationName(QStringLiteral("Workbench"));
    QTemporaryDir scratch;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, scratch.path());
    const bool front = app.arguments().contains(QStringLiteral("--front"));
    const bool editors = app.arguments().contains(QStringLiteral("--editors"));

    TypeRegistrar registrar;
    registrar.registerType(new DemoType(QStringLiteral("demo.solution"), QStringLiteral("Solution"),
                                        QStringLiteral(":/qelshared/images/16/solution.svg"),
                                        {QStringLiteral("demo.project")}));
    registrar.registerType(new DemoType(QStringLiteral("demo.project"), QStringLiteral("Project"),
                                        QStringLiteral(":/qelshared/images/16/project.svg"),
                                        {QStringLiteral("demo.folder"), QStringLiteral("demo.file")}));
    registrar.registerType(new DemoFolderType);
    auto *fileType = new DemoType(QStringLiteral("demo.file"), QStringLiteral("Script"),
                                  QStringLiteral(":/qelshared/images/16/script.svg"), {});
    registrar.registerType(fileType);
    ScriptFactory factory;
    fileType->registerEditorFactory(factory.name(), &factory);

    const auto make = [&](const QString &type, const QString &name, ViewItem *parent) {
        ViewItem *item = registrar.createItem(type, name);
        if (parent)
            parent->addChildItem(item);
        return item;
    };
    ViewItem *solution = make(QStringLiteral("demo.solution"), QStringLiteral("Controls"), nullptr);
    ViewItem *plant = make(QStringLiteral("demo.project"), QStringLiteral("PlantModel"), solution);
    ViewItem *sources = make(QStringLiteral("demo.folder"), QStringLiteral("sources"), plant);
    ViewItem *simulate = make(QStringLiteral("demo.file"), QStringLiteral("simulate.m"), sources);
    ViewItem *controller = make(QStringLiteral("demo.file"), QStringLiteral("controller.m"), sources);
    make(QStringLiteral("demo.file"), QStringLiteral("plant_dynamics.m"), sources);
    ViewItem *data = make(QStringLiteral("demo.folder"), QStringLiteral("data"), plant);
    make(QStringLiteral("demo.file"), QStringLiteral("parameters.m"), data);
    make(QStringLiteral("demo.file"), QStringLiteral("README.txt"), plant);
    ViewItem *tests = make(QStringLiteral("demo.project"), QStringLiteral("ControllerTests"), solution);
    make(QStringLiteral("demo.file"), QStringLiteral("test_step_response.m"), tests);
    simulate->setItemPath(QStringLiteral("/home/user/Controls/PlantModel/sources/simulate.m"));

    ItemPropertyBag *bag = simulate->getPropertyBag();
    bag->set(QStringLiteral("Author"), QStringLiteral("R. Okafor"));
    bag->set(QStringLiteral("Read only"), false);
    bag->set(QStringLiteral("Tab width"), 4);
    bag->set(QStringLiteral("Created"), QVariant(QDate(2026, 3, 14)));
    bag->set(QStringLiteral("Run at"), QVariant(QTime(9, 30)));
    bag->set(QStringLiteral("Highlight"), QVariant(QColor(255, 214, 102)));
    bag->set(QStringLiteral("Font"), QVariant(QFont(QStringLiteral("DejaVu Sans Mono"), 10)));
    bag->set(QStringLiteral("Plot origin"), QVariant(QPoint(40, 20)));
    bag->set(QStringLiteral("Plot area"), QVariant(QRect(0, 0, 640, 480)));
    bag->set(QStringLiteral("Icon size"), QVariant(QSize(16, 16)));
    bag->set(QStringLiteral("Size policy"),
             QVariant::fromValue(QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred)));
    bag->set(QStringLiteral("Cursor"), QVariant(QCursor(Qt::IBeamCursor)));
    bag->set(QStringLiteral("Alignment"), QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter));
    bag->set(QStringLiteral("Tags"), QVariant(QStringList{QStringLiteral("model"), QStringLiteral("plant")}));
    bag->set(QStringLiteral("Solver"), QVariant(QVariantMap{{QStringLiteral("method"), QStringLiteral("ode45")},
                                                           {QStringLiteral("tolerance"), 1e-6}}));

    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Workbench"));
    auto *documents = new MultipleWindow;
    window.setCentralWidget(documents);

    auto *model = new ProjectViewModel(&window, solution);
    model->setObjectName(QStringLiteral("ProjectModel"));
    auto *projectView = new ProjectView;
    projectView->setObjectName(QStringLiteral("ProjectView"));
    projectView->setModel(model);
    QDockWidget *projectPanel = dock(&window, QStringLiteral("Project"), projectView,
                                     Qt::LeftDockWidgetArea);

    auto *properties = new PropertyWindow;
    properties->watch(&registrar);
    QDockWidget *propertyPanel = dock(&window, QStringLiteral("Property"), properties,
                                      Qt::RightDockWidgetArea);
    auto *outline = new OutlineWindow;
    QDockWidget *outlinePanel = dock(&window, QStringLiteral("Outline"), outline,
                                     Qt::RightDockWidgetArea);
    window.splitDockWidget(propertyPanel, outlinePanel, Qt::Vertical);

    OutputWindow output(&window);
    dock(&window, QStringLiteral("Output"), output.tabWidget(), Qt::BottomDockWidgetArea);
    output.addTab(QStringLiteral("build"), QStringLiteral("Build"), nullptr);
    output.addTab(QStringLiteral("messages"), QStringLiteral("Messages"), nullptr);
    output.output(QStringLiteral("messages"), QStringLiteral("Solution Controls loaded: 2 projects."));
    for (const char *line : {"Checking PlantModel...", "  sources/simulate.m: ok",
                             "  sources/controller.m: ok", "  sources/plant_dynamics.m: ok",
                             "  data/parameters.m: 1 warning: unused variable 'gain2'",
                             "Checking ControllerTests...", "  test_step_response.m: ok",
                             "Done: 5 files, 0 errors, 1 warning."}) {
        output.output(QStringLiteral("build"), QString::fromLatin1(line));
    }
    output.showTab(QStringLiteral("build"));

    QObject::connect(model, &ViewModel::itemSelected, properties, &PropertyWindow::setItem);
    QObject::connect(documents, &MultipleWindow::currentItemChanged, properties,
                     [properties](ViewItem *item) {
                         if (item)
                             properties->setItem(item);
                     });
    QObject::connect(documents, &MultipleWindow::currentViewChanged, outline,
                     &OutlineWindow::setEditor);
    QObject::connect(properties, &PropertyWindow::propertyChanged, documents,
                     &MultipleWindow::updateItem);
    QObject::connect(projectView, &QAbstractItemView::doubleClicked, documents,
                     [documents](const QModelIndex &index) {
                         const QList<ViewItem *> items = ItemUtils::getItemsFromIndexes({index});
                         if (!items.isEmpty())
                             documents->editItem(items.first());
                     });
    QObject::connect(documents, &MultipleWindow::statusChanged, window.statusBar(),
                     [&window](const QString &text) { window.statusBar()->showMessage(text); });

    documents->addView(new QWidget, QIcon(QStringLiteral(":/qelshared/images/16/project.svg")),
                       QStringLiteral("Welcome"));
    documents->setViewVisible(0, false);
    if (front) {
        for (const char *name : {"Controls", "PowerGrid", "Thermal"}) {
            const QString path = scratch.filePath(QString::fromLatin1(name) + QStringLiteral(".sln-qel"));
            QFile file(path);
            file.open(QIODevice::WriteOnly);
            ProjectFrontPage::addRecentSolution(path);
        }
        documents->setFrontPageVisible(true);
    } else {
        projectView->expandAll();
        documents->editItem(simulate);
        projectView->setCurrentIndex(simulate->modelIndex());
    }
    if (editors) {
        QTreeView *tree = properties->treeView();
        for (int row = 0; row < tree->model()->rowCount(); ++row) {
            const QModelIndex value = tree->model()->index(row, PropertyModel::ValueColumn);
            if (tree->model()->flags(value) & Qt::ItemIsEditable)
                tree->openPersistentEditor(value);
        }
        projectView->edit(controller->modelIndex());
    }

    window.resize(1400, 900);
    window.resizeDocks({propertyPanel, outlinePanel}, {520, 260}, Qt::Vertical);
    window.resizeDocks({projectPanel, propertyPanel}, {260, 360}, Qt::Horizontal);
    window.show();
    const int result = app.exec();
    fileType->unregisterEditorFactory(factory.name());
    return result;
}

#include "main.moc"
