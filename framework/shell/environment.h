#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QAction;
class QApplication;
class QMainWindow;
class QMenu;
QT_END_NAMESPACE

namespace Velmora::Framework {

class AppBox;
class Assistant;
class AugmentableRegistrar;
class DataRegistrar;
class EnvironmentPrivate;
class Facilities;
class IAggregatable;
class LaunchableRegistrar;
class LogoInfo;
class MultipleWindow;
class OptionsDialog;
class OutlineWindow;
class OutputWindow;
class ProjectView;
class PropertyWindow;
class ProviderManager;
class QuickStartWindow;
class ServiceRegistrar;
class SharedVariantRegion;
class TypeRegistrar;
class ViewItem;

// The single object that owns the running workbench: the service hub, the provider manager,
// the registrars, the main window with its ribbon, address bar and docks, the tool windows,
// the solution item and the undo and redo commands. Every accessor answers null once its
// object is gone.
class VELMORA_FRAMEWORK_EXPORT Environment : public QObject
{
    Q_OBJECT

public:
    // The ribbon's actions, by the numbers findAction() takes.
    enum ActionId {
        NewScriptAction,
        NewRtScriptAction,
        NewAction,
        NewProjectAction,
        OpenAction,
        OpenProjectAction,
        ImportAction,
        FindFileAction,
        FileCompareAction,
        LayoutAction,
        OptionsAction,
        SetupPathAction,
        ParallelAction,
        ViewPluginAction,
        HelpAction,
        DocumentAction,
        ExamplesAction,
        TermsOfUseAction,
        AboutAction,
        InstallAppAction,
        UndoAction,
        RedoAction,
        ActionCount
    };
    // The ribbon's menus, by the numbers fineMenu() takes.
    enum MenuId { NewMenu, OpenMenu, HelpMenu, GuideMenu, LayoutMenu, MenuCount };

    Environment();
    ~Environment() override;

    // The environment between start and stop; null otherwise.
    static Environment *currentEnvironment();

    // Loads and starts the providers of the "plugins" folder beside the application.
    void start(QApplication *app);
    void afterShow(QApplication *app);
    // Remembers the solution and shuts the providers down.
    void stop();
    // Asks the solution type to close the solution; true when nothing is open.
    bool closeSolution();

    void setIDEWindowTitle(const QString &title);
    QString getIDEWindowTitle() const;

    QAction *findAction(int id) const;
    // The name is kept as plug-ins call it.
    QMenu *fineMenu(int id) const;
    // Shows widget as a dialog of the main window, deleted when it closes.
    void createAndShowDialog(QWidget *widget);

    // The application folder while started; empty otherwise.
    QString path() const;
    Facilities *facilities() const;
    QMainWindow *mainWindow() const;
    ProviderManager *providerManager() const;
    MultipleWindow *multipleWindow() const;
    OutputWindow *outputWindow() const;
    OutlineWindow *outlineWindow() const;
    OptionsDialog *optionsDialog() const;
    QuickStartWindow *quickStartWindow() const;
    ProjectView *projectView() const;
    PropertyWindow *propertyWindow() const;
    LogoInfo *logoInfo() const;
    AppBox *appBox() const;
    Assistant *assistant() const;
    TypeRegistrar *typeRegistrar() const;
    DataRegistrar *dataRegistrar() const;
    ServiceRegistrar *serviceRegistrar() const;
    LaunchableRegistrar *launchableRegistrar() const;
    AugmentableRegistrar *augmentableRegistrar() const;
    SharedVariantRegion *sharedVariantRegion() const;
    ViewItem *solutionItem() const;
    // Borrowed aggregatables, in the order in which they contribute.
    QList<IAggregatable *> *aggregatables();

public Q_SLOTS:
    // Hands the command line to the launchables, after the main window is shown.
    void processArguments();
    void undo();
    void redo();
    // Follows the editor that has the focus; its IUndoSource drives Undo and Redo.
    void updateCommandStack(QWidget *widget);
    void openOptions();
    void openProviderManager();
    void openAbout();

Q_SIGNALS:
    void progressChanged(const QString &text);
    void statusChanged(const QString &text);

private Q_SLOTS:
    void newProject();
    void openProject(const QString &path);

private:
    friend class EnvironmentPrivate;
    std::unique_ptr<EnvironmentPrivate> const d;
};

} // namespace Velmora::Framework
