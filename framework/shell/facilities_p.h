#pragma once

// The hub's service objects. Each forwards to the object the environment owns, through the
// environment's accessors, and does nothing (answering null, false, empty or -1) while that
// object does not exist.

#include "core/hubinterfaces.h"
#include "shell/facilities.h"
#include "shell/unloadlistener.h"

#include <functional>

namespace Velmora::Framework {

class IDEWindow;

// Shared by the service objects: the hub they belong to.
class Facilities::Service : public UnloadListener
{
public:
    explicit Service(Facilities *hub)
        : m_hub(hub)
    {
    }

protected:
    Environment *environment() const { return m_hub->environment(); }
    // The main window as the workbench's own window; null otherwise.
    IDEWindow *ideWindow() const;

    // A service answers its own interface and IBase by identifier, like the hub does.
    template <typename Interface>
    static bool answer(Interface *self, const char *iid, IBase **out)
    {
        if (qstrcmp(iid, qobject_interface_iid<Interface *>()) == 0)
            *out = static_cast<IBase *>(static_cast<void *>(self));
        else if (qstrcmp(iid, Iid::IBase) == 0)
            *out = self;
        else
            *out = nullptr;
        return *out != nullptr;
    }

private:
    Facilities *m_hub;
};

// The members every service shares: its construction and its answer to the query.
#define VELMORA_HUB_SERVICE(Interface)                                                         \
public:                                                                                        \
    using Service::Service;                                                                    \
    bool queryInterface(const char *iid, IBase **out) override                                 \
    {                                                                                          \
        return answer<Interface>(this, iid, out);                                              \
    }

class Facilities::XAssistant : public Facilities::Service, public IAssistant
{
    VELMORA_HUB_SERVICE(IAssistant)
    bool showAssistant(const QString &key) override;
};

class Facilities::XRibdock : public Facilities::Service, public IRibdock
{
    VELMORA_HUB_SERVICE(IRibdock)
    void bindRibbonPagesAndDockWorkspace(Ribdock::RibbonPage *page, uint workspace) override;
};

class Facilities::XRibbonBar : public Facilities::Service, public IRibbonBar
{
    VELMORA_HUB_SERVICE(IRibbonBar)
    Ribdock::RibbonBar *ribbonBar() override;
    QAction *findAction(int id) override;
    QMenu *fineMenu(int id) override;
};

class Facilities::XAppBox : public Facilities::Service, public IAppBox
{
    VELMORA_HUB_SERVICE(IAppBox)
    AppBox *appBox() override;
};

class Facilities::XAddressBar : public Facilities::Service, public IAddressBar
{
    VELMORA_HUB_SERVICE(IAddressBar)
    Ribdock::AddressBar *addressBar() override;
    QString path() override;
    void setPath(const QString &path) override;
    QTreeView *treeView() override;
};

class Facilities::XDockContainer : public Facilities::Service, public IDockContainer
{
    VELMORA_HUB_SERVICE(IDockContainer)
    Ribdock::DockContainer *dockContainer() override;
    int addView(int area, QWidget *widget, const QString &title, const QIcon &icon) override;
    int tabifyView(int area, QWidget *widget, const QString &title, const QIcon &icon) override;
    Ribdock::DockContentWidget *contentWidget() override;
};

class Facilities::XStatusBar : public Facilities::Service, public IStatusBar
{
    VELMORA_HUB_SERVICE(IStatusBar)
    QStatusBar *statusBar() override;
};

class Facilities::XProject : public Facilities::Service, public IProject
{
    VELMORA_HUB_SERVICE(IProject)
    bool hasProject() override;
    QString getVersion() override;
    QString getProjectPath() override;
    int getProjectValue() override;
    void setProject(const QString &name, const QString &path, int value) override;
    void clearProject() override;
    // The name the project was set with.
    QString projectName() const { return m_name; }

private:
    void lookUpProviderService();

    QString m_name;
    QString m_path;
    qint32 m_value = 0;
};

class Facilities::XMultipleWindow : public Facilities::Service, public IMultipleWindow
{
    VELMORA_HUB_SERVICE(IMultipleWindow)
    int addView(QWidget *widget, const QIcon &icon, const QString &title) override;
    int viewCount() override;
    int indexOf(QWidget *widget) override;
    bool isViewVisible(int index) override;
    void setViewVisible(int index, bool visible) override;
    void setCurrentIndex(int index) override;
    QWidget *removeView(int index) override;
    QWidget *view(int index) override;
    void setFrontPageVisible(bool visible) override;
    void onUnload(Provider *provider) override;
};

class Facilities::XSharedVariantRegion : public Facilities::Service, public ISharedVariantRegion
{
    VELMORA_HUB_SERVICE(ISharedVariantRegion)
    SharedVariantRegion *sharedVariantRegion() override;
};

class Facilities::XOutputWindow : public Facilities::Service, public IOutputWindow
{
    VELMORA_HUB_SERVICE(IOutputWindow)
    int addTab(const QString &name, const QIcon &icon, const QString &title,
               QWidget *widget) override;
    int addTab(const QString &name, const QString &title, QWidget *widget) override;
    int findTab(const QString &name) override;
    QString activeTab() override;
    bool showTab(const QString &name) override;
    void closeTab(int index) override;
    void removeTab(const QString &name) override;
    void setTabIcon(const QString &name, const QIcon &icon) override;
    void setTabToolTip(const QString &name, const QString &toolTip) override;
    QWidget *widgetOf(const QString &name) override;
    bool isCustom(const QString &name) override;
    void clearTab(const QString &name) override;
    void output(const QString &tab, const QString &text) override;
    void onUnload(Provider *provider) override;
};

class Facilities::XQuickStart : public Facilities::Service, public IQuickStart
{
    VELMORA_HUB_SERVICE(IQuickStart)
    int addPage(QWidget *page, const QString &title) override;
    void removePage(QWidget *page) override;
    void onUnload(Provider *provider) override;
};

class Facilities::XOptionsWindow : public Facilities::Service, public IOptionsWindow
{
    VELMORA_HUB_SERVICE(IOptionsWindow)
    bool registerOptionPage(const OptionTopItem &topItem, OptionPage *page) override;
    bool unregisterOptionPage(OptionPage *page) override;
    void onUnload(Provider *provider) override;
};

class Facilities::XSolution : public Facilities::Service, public ISolution
{
    VELMORA_HUB_SERVICE(ISolution)
    bool addProject(ViewItem *project) override;
    bool addProject(ViewItem *project, int position) override;
    void removeProject(int index, bool remove) override;
    bool isProjectNameUnique(const QString &name) override;
    ViewItem *solutionItem() override;
    QList<ViewItem *> projects() override;
};

class Facilities::xDataRegistrar : public Facilities::Service, public IDataRegistrar
{
    VELMORA_HUB_SERVICE(IDataRegistrar)
    bool registerData(const QString &name, const QVariant &value) override;
    bool unregisterData(const QString &name) override;
    bool isRegistered(const QString &name) override;
    QVariant lookup(const QString &name) override;
    bool setDataValue(const QString &name, const QVariant &value) override;
};

class Facilities::XAggregatableRegistrar : public Facilities::Service, public IAggregatableRegistrar
{
    VELMORA_HUB_SERVICE(IAggregatableRegistrar)
    void registerAggregatable(IAggregatable *aggregatable) override;
    void unregisterAggregatable(IAggregatable *aggregatable) override;
    void onUnload(Provider *provider) override;
};

class Facilities::XTypeRegistrar : public Facilities::Service, public ITypeRegistrar
{
    VELMORA_HUB_SERVICE(ITypeRegistrar)
    bool registerType(ItemType *type, const QString &scope) override;
    ItemType *unregisterType(const QString &id) override;
    bool isRegistered(const QString &id) override;
    ItemType *lookup(const QString &id) override;
    QList<ItemType *> findAll(const QString &iid, const QString &scope) override;
    QString scope(const QString &id) override;
    ViewItem *createItem(const QString &id, const QString &name, QObject *parent) override;
    QWidget *widgetParent() override;
    bool registerEditorFactory(const QString &typeId, IEditorFactory *factory) override;
    bool unregisterEditorFactory(const QString &typeId, const QString &factory) override;
    bool setDefaultEditorFactory(const QString &typeId, const QString &factory) override;
    bool registerPreviewerFactory(const QString &typeId, IPreviewerFactory *factory) override;
    bool unregisterPreviewerFactory(const QString &typeId, const QString &factory) override;
    bool setDefaultPreviewerFactory(const QString &typeId, const QString &factory) override;
    void onUnload(Provider *provider) override;

private:
    // Calls call with the registered type named typeId when both strings are given, and
    // answers whether it did.
    bool onType(const QString &typeId, const QString &factory,
                const std::function<void(ItemType *)> &call);
};

class Facilities::XServiceRegistrar : public Facilities::Service, public IServiceRegistrar
{
    VELMORA_HUB_SERVICE(IServiceRegistrar)
    bool registerService(const QString &id, IBase *service) override;
    IBase *unregisterService(const QString &id) override;
    bool isRegistered(const QString &id) override;
    IBase *lookup(const QString &id) override;
    void onUnload(Provider *provider) override;
};

class Facilities::XAugmentableRegistrar : public Facilities::Service, public IAugmentableRegistrar
{
    VELMORA_HUB_SERVICE(IAugmentableRegistrar)
    bool registerInterface(const QString &id, IBase *iface, int order) override;
    bool unregisterInterface(const QString &id, IBase *iface) override;
    QList<IBase *> getIfList(const QString &id) override;
    void onUnload(Provider *provider) override;
};

class Facilities::XLaunchableRegistrar : public Facilities::Service, public ILaunchableRegistrar
{
    VELMORA_HUB_SERVICE(ILaunchableRegistrar)
    bool registerLaunchable(ILaunchable *launchable) override;
    bool unregisterLaunchable(ILaunchable *launchable) override;
    void onUnload(Provider *provider) override;
};

#undef VELMORA_HUB_SERVICE

} // namespace Velmora::Framework
