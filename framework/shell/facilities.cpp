#include "shell/facilities.h"

#include "core/augmentableregistrar.h"
#include "core/dataregistrar.h"
#include "core/ieditorfactory.h"
#include "core/ipreviewerfactory.h"
#include "core/launchableregistrar.h"
#include "core/logging_p.h"
#include "core/serviceregistrar.h"
#include "core/sharedvariantregion.h"
#include "core/typeregistrar.h"
#include "dialogs/appbox.h"
#include "dialogs/assistant.h"
#include "dialogs/optionsdialog.h"
#include "dialogs/quickstartwindow.h"
#include "model/itemdata.h"
#include "model/viewitem.h"
#include "ribdock/addressbar.h"
#include "ribdock/dockcontainer.h"
#include "shell/environment.h"
#include "shell/facilities_p.h"
#include "shell/idewindow.h"
#include "shell/logoinfo.h"
#include "types/itemtype.h"
#include "views/multiplewindow.h"
#include "views/outputwindow.h"

#include <QtWidgets/qstatusbar.h>

#include <functional>

namespace Velmora::Framework {

class FacilitiesPrivate
{
public:
    explicit FacilitiesPrivate(Facilities *hub)
        : assistant(hub), ribdock(hub), ribbonBar(hub), appBox(hub), addressBar(hub),
          dockContainer(hub), statusBar(hub), project(hub), multipleWindow(hub),
          sharedVariantRegion(hub), outputWindow(hub), quickStart(hub), optionsWindow(hub),
          solution(hub), dataRegistrar(hub), aggregatableRegistrar(hub), typeRegistrar(hub),
          serviceRegistrar(hub), augmentableRegistrar(hub), launchableRegistrar(hub)
    {
    }

    Facilities::XAssistant assistant;
    Facilities::XRibdock ribdock;
    Facilities::XRibbonBar ribbonBar;
    Facilities::XAppBox appBox;
    Facilities::XAddressBar addressBar;
    Facilities::XDockContainer dockContainer;
    Facilities::XStatusBar statusBar;
    Facilities::XProject project;
    Facilities::XMultipleWindow multipleWindow;
    Facilities::XSharedVariantRegion sharedVariantRegion;
    Facilities::XOutputWindow outputWindow;
    Facilities::XQuickStart quickStart;
    Facilities::XOptionsWindow optionsWindow;
    Facilities::XSolution solution;
    Facilities::xDataRegistrar dataRegistrar;
    Facilities::XAggregatableRegistrar aggregatableRegistrar;
    Facilities::XTypeRegistrar typeRegistrar;
    Facilities::XServiceRegistrar serviceRegistrar;
    Facilities::XAugmentableRegistrar augmentableRegistrar;
    Facilities::XLaunchableRegistrar launchableRegistrar;
    Environment *environment = nullptr;
    QList<UnloadListener *> unloadListeners;
};

namespace {

// An interface part carried in an IBase* slot, as the query protocol hands it out.
template <typename Interface>
IBase *slotOf(Interface *part)
{
    return static_cast<IBase *>(static_cast<void *>(part));
}

} // namespace

Facilities::Facilities(Environment *environment)
    : QObject(environment), d(std::make_unique<FacilitiesPrivate>(this))
{
    d->environment = environment;
    // The assistant, project, data and launchable services are left out on purpose: data
    // values and launchables outlive the providers that registered them.
    for (UnloadListener *listener : std::initializer_list<UnloadListener *>{
             &d->ribdock, &d->ribbonBar, &d->appBox, &d->addressBar, &d->dockContainer,
             &d->statusBar, &d->multipleWindow, &d->sharedVariantRegion, &d->outputWindow,
             &d->quickStart, &d->optionsWindow, &d->solution, &d->aggregatableRegistrar,
             &d->typeRegistrar, &d->serviceRegistrar, &d->augmentableRegistrar})
        registerUnloadListener(listener);
}

Facilities::~Facilities() = default;

Environment *Facilities::environment() const
{
    return d->environment;
}

Facilities::XProject *Facilities::project() const
{
    return &d->project;
}

bool Facilities::queryInterface(const char *iid, IBase **out)
{
    const std::pair<const char *, IBase *> services[] = {
        {Iid::IAssistant, slotOf<IAssistant>(&d->assistant)},
        {Iid::IRibdock, slotOf<IRibdock>(&d->ribdock)},
        {Iid::IRibbonBar, slotOf<IRibbonBar>(&d->ribbonBar)},
        {Iid::IAppBox, slotOf<IAppBox>(&d->appBox)},
        {Iid::IAddressBar, slotOf<IAddressBar>(&d->addressBar)},
        {Iid::IDockContainer, slotOf<IDockContainer>(&d->dockContainer)},
        {Iid::IStatusBar, slotOf<IStatusBar>(&d->statusBar)},
        {Iid::IProject, slotOf<IProject>(&d->project)},
        {Iid::IMultipleWindow, slotOf<IMultipleWindow>(&d->multipleWindow)},
        {Iid::ISharedVariantRegion, slotOf<ISharedVariantRegion>(&d->sharedVariantRegion)},
        {Iid::IOutputWindow, slotOf<IOutputWindow>(&d->outputWindow)},
        {Iid::IQuickStart, slotOf<IQuickStart>(&d->quickStart)},
        {Iid::IOptionsWindow, slotOf<IOptionsWindow>(&d->optionsWindow)},
        {Iid::ISolution, slotOf<ISolution>(&d->solution)},
        {Iid::IDataRegistrar, slotOf<IDataRegistrar>(&d->dataRegistrar)},
        {Iid::IAggregatableRegistrar, slotOf<IAggregatableRegistrar>(&d->aggregatableRegistrar)},
        {Iid::ITypeRegistrar, slotOf<ITypeRegistrar>(&d->typeRegistrar)},
        {Iid::IServiceRegistrar, slotOf<IServiceRegistrar>(&d->serviceRegistrar)},
        {Iid::IAugmentableRegistrar, slotOf<IAugmentableRegistrar>(&d->augmentableRegistrar)},
        {Iid::ILaunchableRegistrar, slotOf<ILaunchableRegistrar>(&d->launchableRegistrar)},
    };
    if (iid) {
        for (const auto &[id, service] : services) {
            if (qstrcmp(iid, id) == 0) {
                *out = service;
                return true;
            }
        }
    }
    return queryByMetaCast(this, iid, out);
}

void Facilities::onUnload(Provider *provider)
{
    // A copy: a listener may register another while it is told.
    const QList<UnloadListener *> listeners = d->unloadListeners;
    for (UnloadListener *listener : listeners) {
        if (listener)
            listener->onUnload(provider);
    }
}

void Facilities::registerUnloadListener(UnloadListener *listener)
{
    if (listener && !d->unloadListeners.contains(listener))
        d->unloadListeners.append(listener);
}

IDEWindow *Facilities::Service::ideWindow() const
{
    Environment *env = environment();
    return env ? qobject_cast<IDEWindow *>(env->mainWindow()) : nullptr;
}

// Assistant, ribbon, app box, address bar, docks and status bar.

bool Facilities::XAssistant::showAssistant(const QString &key)
{
    Assistant *assistant = environment() ? environment()->assistant() : nullptr;
    return assistant && assistant->showAssistant(key);
}

void Facilities::XRibdock::bindRibbonPagesAndDockWorkspace(Ribdock::RibbonPage *page,
                                                           uint workspace)
{
    if (IDEWindow *window = ideWindow())
        window->bindRibbonPagesAndDockWorkspace(page, workspace);
}

Ribdock::RibbonBar *Facilities::XRibbonBar::ribbonBar()
{
    IDEWindow *window = ideWindow();
    return window ? window->ribbonBar() : nullptr;
}

QAction *Facilities::XRibbonBar::findAction(int id)
{
    return environment() ? environment()->findAction(id) : nullptr;
}

QMenu *Facilities::XRibbonBar::fineMenu(int id)
{
    return environment() ? environment()->fineMenu(id) : nullptr;
}

AppBox *Facilities::XAppBox::appBox()
{
    return environment() ? environment()->appBox() : nullptr;
}

Ribdock::AddressBar *Facilities::XAddressBar::addressBar()
{
    IDEWindow *window = ideWindow();
    return window ? window->addressBar() : nullptr;
}

QString Facilities::XAddressBar::path()
{
    Ribdock::AddressBar *bar = addressBar();
    return bar ? bar->path() : QString();
}

void Facilities::XAddressBar::setPath(const QString &path)
{
    if (Ribdock::AddressBar *bar = addressBar())
        bar->setPath(path);
}

QTreeView *Facilities::XAddressBar::treeView()
{
    Ribdock::AddressBar *bar = addressBar();
    return bar ? bar->treeView() : nullptr;
}

Ribdock::DockContainer *Facilities::XDockContainer::dockContainer()
{
    IDEWindow *window = ideWindow();
    return window ? window->dockContainer() : nullptr;
}

namespace {

// The panel of a Qt dock area; -1 for the top and anything else.
int partitionOf(int area)
{
    switch (area) {
    case Qt::LeftDockWidgetArea:
        return Ribdock::DockContainer::Left;
    case Qt::RightDockWidgetArea:
        return Ribdock::DockContainer::Right;
    case Qt::BottomDockWidgetArea:
        return Ribdock::DockContainer::Bottom;
    default:
        return -1;
    }
}

} // namespace

int Facilities::XDockContainer::addView(int area, QWidget *widget, const QString &title,
                                        const QIcon &icon)
{
    Ribdock::DockContainer *container = dockContainer();
    const int partition = partitionOf(area);
    return container && partition >= 0 ? container->addView(partition, widget, title, icon) : -1;
}

int Facilities::XDockContainer::tabifyView(int area, QWidget *widget, const QString &title,
                                           const QIcon &icon)
{
    Ribdock::DockContainer *container = dockContainer();
    const int partition = partitionOf(area);
    return container && partition >= 0 ? container->tabifyView(partition, widget, title, icon)
                                        : -1;
}

Ribdock::DockContentWidget *Facilities::XDockContainer::contentWidget()
{
    Ribdock::DockContainer *container = dockContainer();
    return container ? container->contentWidget() : nullptr;
}

QStatusBar *Facilities::XStatusBar::statusBar()
{
    IDEWindow *window = ideWindow();
    return window ? window->statusBar() : nullptr;
}

// The current project.

bool Facilities::XProject::hasProject()
{
    return !m_name.isEmpty();
}

QString Facilities::XProject::getVersion()
{
    LogoInfo *logo = environment() ? environment()->logoInfo() : nullptr;
    return logo ? logo->getVersion() : QString();
}

QString Facilities::XProject::getProjectPath()
{
    return m_path;
}

int Facilities::XProject::getProjectValue()
{
    return m_value;
}

void Facilities::XProject::setProject(const QString &name, const QString &path, int value)
{
    m_name = name;
    m_path = path;
    m_value = value;
    if (MultipleWindow *window = environment() ? environment()->multipleWindow() : nullptr)
        window->setFrontPageVisible(false);
    lookUpProviderService();
}

void Facilities::XProject::clearProject()
{
    m_name.clear();
    m_path.clear();
    m_value = 0;
    lookUpProviderService();
    if (MultipleWindow *window = environment() ? environment()->multipleWindow() : nullptr)
        window->setFrontPageVisible(true);
}

void Facilities::XProject::lookUpProviderService()
{
    // A domain provider may register its service under this identifier; the project is
    // not handed to it yet, so the answer is only looked up.
    ServiceRegistrar *registrar = environment() ? environment()->serviceRegistrar() : nullptr;
    IBase *service = registrar ? registrar->lookup(QString::fromLatin1(Iid::ITidekitProviderService))
                               : nullptr;
    IBase *providerService = nullptr;
    if (service)
        service->queryInterface(Iid::ITidekitProviderService, &providerService);
}

// Document area, shared variants, output, quick start, options.

namespace {
MultipleWindow *multipleWindowOf(Environment *environment)
{
    return environment ? environment->multipleWindow() : nullptr;
}
OutputWindow *outputWindowOf(Environment *environment)
{
    return environment ? environment->outputWindow() : nullptr;
}
} // namespace

int Facilities::XMultipleWindow::addView(QWidget *widget, const QIcon &icon, const QString &title)
{
    MultipleWindow *window = multipleWindowOf(environment());
    return window ? window->addView(widget, icon, title) : -1;
}

int Facilities::XMultipleWindow::viewCount()
{
    MultipleWindow *window = multipleWindowOf(environment());
    return window ? window->viewCount() : 0;
}

int Facilities::XMultipleWindow::indexOf(QWidget *widget)
{
    MultipleWindow *window = multipleWindowOf(environment());
    return window ? window->indexOf(widget) : -1;
}

bool Facilities::XMultipleWindow::isViewVisible(int index)
{
    MultipleWindow *window = multipleWindowOf(environment());
    return window && window->isViewVisible(index);
}

void Facilities::XMultipleWindow::setViewVisible(int index, bool visible)
{
    if (MultipleWindow *window = multipleWindowOf(environment()))
        window->setViewVisible(index, visible);
}

void Facilities::XMultipleWindow::setCurrentIndex(int index)
{
    if (MultipleWindow *window = multipleWindowOf(environment()))
        window->setCurrentIndex(index);
}

QWidget *Facilities::XMultipleWindow::removeView(int index)
{
    MultipleWindow *window = multipleWindowOf(environment());
    return window ? window->removeView(index) : nullptr;
}

QWidget *Facilities::XMultipleWindow::view(int index)
{
    MultipleWindow *window = multipleWindowOf(environment());
    return window ? window->view(index) : nullptr;
}

void Facilities::XMultipleWindow::setFrontPageVisible(bool visible)
{
    if (MultipleWindow *window = multipleWindowOf(environment()))
        window->setFrontPageVisible(visible);
}

void Facilities::XMultipleWindow::onUnload(Provider *)
{
    if (MultipleWindow *window = multipleWindowOf(environment()))
        window->disposeAllViews();
}

SharedVariantRegion *Facilities::XSharedVariantRegion::sharedVariantRegion()
{
    return environment() ? environment()->sharedVariantRegion() : nullptr;
}

int Facilities::XOutputWindow::addTab(const QString &name, const QIcon &icon,
                                      const QString &title, QWidget *widget)
{
    OutputWindow *window = outputWindowOf(environment());
    return window ? window->addTab(name, icon, title, widget) : -1;
}

int Facilities::XOutputWindow::addTab(const QString &name, const QString &title, QWidget *widget)
{
    OutputWindow *window = outputWindowOf(environment());
    return window ? window->addTab(name, title, widget) : -1;
}

int Facilities::XOutputWindow::findTab(const QString &name)
{
    OutputWindow *window = outputWindowOf(environment());
    return window ? window->findTab(name) : -1;
}

QString Facilities::XOutputWindow::activeTab()
{
    OutputWindow *window = outputWindowOf(environment());
    return window ? window->activeTab() : QString();
}

bool Facilities::XOutputWindow::showTab(const QString &name)
{
    OutputWindow *window = outputWindowOf(environment());
    return window && window->showTab(name);
}

void Facilities::XOutputWindow::closeTab(int index)
{
    if (OutputWindow *window = outputWindowOf(environment()))
        window->closeTab(index);
}

void Facilities::XOutputWindow::removeTab(const QString &name)
{
    if (OutputWindow *window = outputWindowOf(environment()))
        window->removeTab(name);
}

void Facilities::XOutputWindow::setTabIcon(const QString &name, const QIcon &icon)
{
    if (OutputWindow *window = outputWindowOf(environment()))
        window->setTabIcon(name, icon);
}

void Facilities::XOutputWindow::setTabToolTip(const QString &name, const QString &toolTip)
{
    if (OutputWindow *window = outputWindowOf(environment()))
        window->setTabToolTip(name, toolTip);
}

QWidget *Facilities::XOutputWindow::widgetOf(const QString &name)
{
    OutputWindow *window = outputWindowOf(environment());
    return window ? window->widgetOf(name) : nullptr;
}

bool Facilities::XOutputWindow::isCustom(const QString &name)
{
    OutputWindow *window = outputWindowOf(environment());
    return window && window->isCustom(name);
}

void Facilities::XOutputWindow::clearTab(const QString &name)
{
    if (OutputWindow *window = outputWindowOf(environment()))
        window->clearTab(name);
}

void Facilities::XOutputWindow::output(const QString &tab, const QString &text)
{
    if (OutputWindow *window = outputWindowOf(environment()))
        window->output(tab, text);
}

void Facilities::XOutputWindow::onUnload(Provider *)
{
    if (OutputWindow *window = outputWindowOf(environment()))
        window->removeAllTabs();
}

int Facilities::XQuickStart::addPage(QWidget *page, const QString &title)
{
    QuickStartWindow *window = environment() ? environment()->quickStartWindow() : nullptr;
    return window ? window->addPage(page, title) : -1;
}

void Facilities::XQuickStart::removePage(QWidget *page)
{
    QuickStartWindow *window = environment() ? environment()->quickStartWindow() : nullptr;
    if (!page || !window)
        return;
    const int index = window->indexOf(page);
    if (index >= 0)
        window->removePage(index);
}

void Facilities::XQuickStart::onUnload(Provider *)
{
    QuickStartWindow *window = environment() ? environment()->quickStartWindow() : nullptr;
    if (!window)
        return;
    for (int index = window->count() - 1; index >= 0; --index)
        delete window->removePage(index);
}

bool Facilities::XOptionsWindow::registerOptionPage(const OptionTopItem &topItem, OptionPage *page)
{
    OptionsDialog *dialog = environment() ? environment()->optionsDialog() : nullptr;
    return dialog && dialog->registerOptionPage(topItem, page);
}

bool Facilities::XOptionsWindow::unregisterOptionPage(OptionPage *page)
{
    OptionsDialog *dialog = environment() ? environment()->optionsDialog() : nullptr;
    return dialog && dialog->unregisterOptionPage(page);
}

void Facilities::XOptionsWindow::onUnload(Provider *)
{
    if (OptionsDialog *dialog = environment() ? environment()->optionsDialog() : nullptr)
        dialog->unregisterAll();
}

// The solution.

bool Facilities::XSolution::addProject(ViewItem *project)
{
    return addProject(project, -1);
}

bool Facilities::XSolution::addProject(ViewItem *project, int position)
{
    ViewItem *solution = solutionItem();
    if (!project || !solution || !solution->getType() || !project->getType())
        return false;
    if (!solution->getType()->allowedAsChild(solution, project->getType()->getId()))
        return false;
    const bool hadChildren = solution->getChildItemCount() > 0;
    if (position < 0)
        solution->addChildItem(project);
    else
        solution->insertChildItem(project, position);
    if (hadChildren)
        solution->refresh(true);
    else
        solution->setExpanded(true);
    if (ItemData *data = solution->getItemData())
        data->setDirty(true);
    return true;
}

void Facilities::XSolution::removeProject(int index, bool remove)
{
    ViewItem *solution = solutionItem();
    ViewItem *project = solution ? solution->removeChildItemAt(index) : nullptr;
    if (project && remove)
        delete project;
}

bool Facilities::XSolution::isProjectNameUnique(const QString &name)
{
    ViewItem *solution = solutionItem();
    return !name.isEmpty() && solution && solution->isChildNameUnique(name);
}

ViewItem *Facilities::XSolution::solutionItem()
{
    return environment() ? environment()->solutionItem() : nullptr;
}

QList<ViewItem *> Facilities::XSolution::projects()
{
    QList<ViewItem *> found;
    ViewItem *solution = solutionItem();
    const int count = solution ? solution->getChildItemCount() : 0;
    for (int row = 0; row < count; ++row) {
        ViewItem *child = solution->getChildItemAt(row);
        IBase *project = nullptr;
        if (child->getType() && child->getType()->queryInterface(Iid::ITypeProject, &project))
            found.append(child);
    }
    return found;
}

// The registrars.

namespace {
DataRegistrar *dataOf(Environment *environment)
{
    return environment ? environment->dataRegistrar() : nullptr;
}
} // namespace

bool Facilities::xDataRegistrar::registerData(const QString &name, const QVariant &value)
{
    DataRegistrar *registrar = dataOf(environment());
    return registrar && registrar->registerData(name, value);
}

bool Facilities::xDataRegistrar::unregisterData(const QString &name)
{
    DataRegistrar *registrar = dataOf(environment());
    return registrar && registrar->unregisterData(name);
}

bool Facilities::xDataRegistrar::isRegistered(const QString &name)
{
    DataRegistrar *registrar = dataOf(environment());
    return registrar && registrar->isRegistered(name);
}

QVariant Facilities::xDataRegistrar::lookup(const QString &name)
{
    DataRegistrar *registrar = dataOf(environment());
    return registrar ? registrar->lookup(name) : QVariant();
}

bool Facilities::xDataRegistrar::setDataValue(const QString &name, const QVariant &value)
{
    DataRegistrar *registrar = dataOf(environment());
    return registrar && registrar->setDataValue(name, value);
}

void Facilities::XAggregatableRegistrar::registerAggregatable(IAggregatable *aggregatable)
{
    if (!aggregatable)
        return;
    QList<IAggregatable *> *list = environment() ? environment()->aggregatables() : nullptr;
    if (!list) {
        qCWarning(Internal::lcShell,
                  "Facilities::registerAggregatable() : empty aggregatabel list pointer");
        return;
    }
    if (!list->contains(aggregatable))
        list->append(aggregatable);
}

void Facilities::XAggregatableRegistrar::unregisterAggregatable(IAggregatable *aggregatable)
{
    if (!aggregatable)
        return;
    QList<IAggregatable *> *list = environment() ? environment()->aggregatables() : nullptr;
    if (!list) {
        qCWarning(Internal::lcShell,
                  "Facilities::registerAggregatable() : empty aggregatabel list pointer");
        return;
    }
    list->removeOne(aggregatable);
}

void Facilities::XAggregatableRegistrar::onUnload(Provider *)
{
    if (QList<IAggregatable *> *list = environment() ? environment()->aggregatables() : nullptr)
        list->clear();
}

namespace {
TypeRegistrar *typesOf(Environment *environment)
{
    return environment ? environment->typeRegistrar() : nullptr;
}
} // namespace

bool Facilities::XTypeRegistrar::registerType(ItemType *type, const QString &scope)
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar && registrar->registerType(type, scope);
}

ItemType *Facilities::XTypeRegistrar::unregisterType(const QString &id)
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar ? registrar->unregisterType(id) : nullptr;
}

bool Facilities::XTypeRegistrar::isRegistered(const QString &id)
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar && registrar->isRegistered(id);
}

ItemType *Facilities::XTypeRegistrar::lookup(const QString &id)
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar ? registrar->lookup(id) : nullptr;
}

QList<ItemType *> Facilities::XTypeRegistrar::findAll(const QString &iid, const QString &scope)
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar ? registrar->findAll(iid, scope) : QList<ItemType *>();
}

QString Facilities::XTypeRegistrar::scope(const QString &id)
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar ? registrar->scope(id) : QString();
}

ViewItem *Facilities::XTypeRegistrar::createItem(const QString &id, const QString &name,
                                                 QObject *parent)
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar ? registrar->createItem(id, name, parent) : nullptr;
}

QWidget *Facilities::XTypeRegistrar::widgetParent()
{
    TypeRegistrar *registrar = typesOf(environment());
    return registrar ? registrar->widgetParent() : nullptr;
}

bool Facilities::XTypeRegistrar::onType(const QString &typeId, const QString &factory,
                                        const std::function<void(ItemType *)> &call)
{
    ItemType *type = typeId.isEmpty() || factory.isEmpty() ? nullptr : lookup(typeId);
    if (type)
        call(type);
    return type;
}

bool Facilities::XTypeRegistrar::registerEditorFactory(const QString &typeId,
                                                       IEditorFactory *factory)
{
    return factory && onType(typeId, factory->name(), [factory](ItemType *type) {
        type->registerEditorFactory(factory->name(), factory);
    });
}

bool Facilities::XTypeRegistrar::unregisterEditorFactory(const QString &typeId,
                                                         const QString &factory)
{
    return onType(typeId, factory, [&](ItemType *type) { type->unregisterEditorFactory(factory); });
}

bool Facilities::XTypeRegistrar::setDefaultEditorFactory(const QString &typeId,
                                                         const QString &factory)
{
    return onType(typeId, factory, [&](ItemType *type) { type->setDefaultEditorFactory(factory); });
}

bool Facilities::XTypeRegistrar::registerPreviewerFactory(const QString &typeId,
                                                          IPreviewerFactory *factory)
{
    return factory && onType(typeId, factory->name(), [factory](ItemType *type) {
        type->registerPreviewerFactory(factory->name(), factory);
    });
}

bool Facilities::XTypeRegistrar::unregisterPreviewerFactory(const QString &typeId,
                                                            const QString &factory)
{
    return onType(typeId, factory,
                  [&](ItemType *type) { type->unregisterPreviewerFactory(factory); });
}

bool Facilities::XTypeRegistrar::setDefaultPreviewerFactory(const QString &typeId,
                                                            const QString &factory)
{
    return onType(typeId, factory,
                  [&](ItemType *type) { type->setDefaultPreviewerFactory(factory); });
}

void Facilities::XTypeRegistrar::onUnload(Provider *)
{
    if (TypeRegistrar *registrar = typesOf(environment()))
        registrar->deallocateAll();
}

bool Facilities::XServiceRegistrar::registerService(const QString &id, IBase *service)
{
    ServiceRegistrar *registrar = environment() ? environment()->serviceRegistrar() : nullptr;
    return registrar && registrar->registerService(id, service);
}

IBase *Facilities::XServiceRegistrar::unregisterService(const QString &id)
{
    ServiceRegistrar *registrar = environment() ? environment()->serviceRegistrar() : nullptr;
    return registrar ? registrar->unregisterService(id) : nullptr;
}

bool Facilities::XServiceRegistrar::isRegistered(const QString &id)
{
    ServiceRegistrar *registrar = environment() ? environment()->serviceRegistrar() : nullptr;
    return registrar && registrar->isRegistered(id);
}

IBase *Facilities::XServiceRegistrar::lookup(const QString &id)
{
    ServiceRegistrar *registrar = environment() ? environment()->serviceRegistrar() : nullptr;
    return registrar ? registrar->lookup(id) : nullptr;
}

void Facilities::XServiceRegistrar::onUnload(Provider *)
{
    if (ServiceRegistrar *registrar = environment() ? environment()->serviceRegistrar() : nullptr)
        registrar->unregisterAll();
}

bool Facilities::XAugmentableRegistrar::registerInterface(const QString &id, IBase *iface,
                                                          int order)
{
    AugmentableRegistrar *registrar =
        environment() ? environment()->augmentableRegistrar() : nullptr;
    return registrar && registrar->registerInterface(id, iface, order);
}

bool Facilities::XAugmentableRegistrar::unregisterInterface(const QString &id, IBase *iface)
{
    AugmentableRegistrar *registrar =
        environment() ? environment()->augmentableRegistrar() : nullptr;
    return registrar && registrar->unregisterInterface(id, iface);
}

QList<IBase *> Facilities::XAugmentableRegistrar::getIfList(const QString &id)
{
    AugmentableRegistrar *registrar =
        environment() ? environment()->augmentableRegistrar() : nullptr;
    return registrar ? registrar->getIfList(id) : QList<IBase *>();
}

void Facilities::XAugmentableRegistrar::onUnload(Provider *)
{
    if (AugmentableRegistrar *registrar =
            environment() ? environment()->augmentableRegistrar() : nullptr)
        registrar->deallocateAll();
}

bool Facilities::XLaunchableRegistrar::registerLaunchable(ILaunchable *launchable)
{
    LaunchableRegistrar *registrar = environment() ? environment()->launchableRegistrar() : nullptr;
    return registrar && registrar->registerLaunchable(launchable);
}

bool Facilities::XLaunchableRegistrar::unregisterLaunchable(ILaunchable *launchable)
{
    LaunchableRegistrar *registrar = environment() ? environment()->launchableRegistrar() : nullptr;
    return registrar && registrar->unregisterLaunchable(launchable);
}

void Facilities::XLaunchableRegistrar::onUnload(Provider *)
{
    if (LaunchableRegistrar *registrar =
            environment() ? environment()->launchableRegistrar() : nullptr)
        registrar->unregisterAll();
}

} // namespace Velmora::Framework
