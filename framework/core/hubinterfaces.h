#pragma once

// The services of the hub (Facilities). A provider asks the hub for one by its identifier
// and turns the answer into the interface with interfaceCast():
//
//     auto *output = interfaceCast<IOutputWindow>(facilities);
//     if (output)
//         output->output(u"build"_s, u"done"_s);
//
// Every answer is borrowed from the hub and lives as long as the workbench; never delete
// one. Calls that need a window return null, false, an empty string or -1 while the window
// does not exist.

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>
#include <QtGui/qicon.h>

QT_BEGIN_NAMESPACE
class QAction;
class QMenu;
class QStatusBar;
class QTreeView;
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Ribdock {
class AddressBar;
class DockContainer;
class DockContentWidget;
class RibbonBar;
class RibbonPage;
} // namespace Velmora::Ribdock

namespace Velmora::Framework {

class AppBox;
class IAggregatable;
class IEditorFactory;
class ILaunchable;
class IPreviewerFactory;
class ItemType;
class OptionPage;
class OptionTopItem;
class SharedVariantRegion;
class ViewItem;

// The help browser.
class VELMORA_FRAMEWORK_EXPORT IAssistant : public virtual IBase
{
public:
    // Shows the help page for key (a page, an identifier or an index keyword); the home
    // page for an empty key. False when no page matched.
    virtual bool showAssistant(const QString &key) = 0;
};

class VELMORA_FRAMEWORK_EXPORT IRibdock : public virtual IBase
{
public:
    // Switching to page restores the dock layout kept for workspace.
    virtual void bindRibbonPagesAndDockWorkspace(Ribdock::RibbonPage *page, uint workspace) = 0;
};

class VELMORA_FRAMEWORK_EXPORT IRibbonBar : public virtual IBase
{
public:
    virtual Ribdock::RibbonBar *ribbonBar() = 0;
    // The environment's actions and menus by number (see Environment::ActionId).
    virtual QAction *findAction(int id) = 0;
    virtual QMenu *fineMenu(int id) = 0;
};

class VELMORA_FRAMEWORK_EXPORT IAppBox : public virtual IBase
{
public:
    virtual AppBox *appBox() = 0;
};

class VELMORA_FRAMEWORK_EXPORT IAddressBar : public virtual IBase
{
public:
    virtual Ribdock::AddressBar *addressBar() = 0;
    // The folder shown; empty without an address bar.
    virtual QString path() = 0;
    virtual void setPath(const QString &path) = 0;
    virtual QTreeView *treeView() = 0;
};

class VELMORA_FRAMEWORK_EXPORT IDockContainer : public virtual IBase
{
public:
    enum Area { Left = 1, Right = 2, Bottom = 8 };

    virtual Ribdock::DockContainer *dockContainer() = 0;
    // area is a Qt dock area: left, right or bottom; anything else (top too) answers -1.
    // The container takes the widget; the answer is its index in the panel.
    virtual int addView(int area, QWidget *widget, const QString &title, const QIcon &icon) = 0;
    virtual int tabifyView(int area, QWidget *widget, const QString &title,
                           const QIcon &icon) = 0;
    // The central document area's container of editor tabs.
    virtual Ribdock::DockContentWidget *contentWidget() = 0;
};

class VELMORA_FRAMEWORK_EXPORT IStatusBar : public virtual IBase
{
public:
    virtual QStatusBar *statusBar() = 0;
};

// The project that runs now. At most one project runs at a time.
class VELMORA_FRAMEWORK_EXPORT IProject : public virtual IBase
{
public:
    virtual bool hasProject() = 0;
    // The framework's version string.
    virtual QString getVersion() = 0;
    virtual QString getProjectPath() = 0;
    // The project's row in the solution.
    virtual int getProjectValue() = 0;
    virtual void setProject(const QString &name, const QString &path, int value) = 0;
    virtual void clearProject() = 0;
};

class VELMORA_FRAMEWORK_EXPORT IMultipleWindow : public virtual IBase
{
public:
    virtual int addView(QWidget *widget, const QIcon &icon, const QString &title) = 0;
    virtual int viewCount() = 0;
    virtual int indexOf(QWidget *widget) = 0;
    virtual bool isViewVisible(int index) = 0;
    virtual void setViewVisible(int index, bool visible) = 0;
    virtual void setCurrentIndex(int index) = 0;
    virtual QWidget *removeView(int index) = 0;
    virtual QWidget *view(int index) = 0;
    virtual void setFrontPageVisible(bool visible) = 0;
};

class VELMORA_FRAMEWORK_EXPORT ISharedVariantRegion : public virtual IBase
{
public:
    virtual SharedVariantRegion *sharedVariantRegion() = 0;
};

// Named tabs of text; a name is not the text on the tab.
class VELMORA_FRAMEWORK_EXPORT IOutputWindow : public virtual IBase
{
public:
    virtual int addTab(const QString &name, const QIcon &icon, const QString &title,
                       QWidget *widget) = 0;
    virtual int addTab(const QString &name, const QString &title, QWidget *widget) = 0;
    virtual int findTab(const QString &name) = 0;
    virtual QString activeTab() = 0;
    virtual bool showTab(const QString &name) = 0;
    virtual void closeTab(int index) = 0;
    virtual void removeTab(const QString &name) = 0;
    virtual void setTabIcon(const QString &name, const QIcon &icon) = 0;
    virtual void setTabToolTip(const QString &name, const QString &toolTip) = 0;
    virtual QWidget *widgetOf(const QString &name) = 0;
    virtual bool isCustom(const QString &name) = 0;
    virtual void clearTab(const QString &name) = 0;
    virtual void output(const QString &tab, const QString &text) = 0;
};

class VELMORA_FRAMEWORK_EXPORT IQuickStart : public virtual IBase
{
public:
    // The window takes the page; removePage deletes nothing and hands it back.
    virtual int addPage(QWidget *page, const QString &title) = 0;
    virtual void removePage(QWidget *page) = 0;
};

class VELMORA_FRAMEWORK_EXPORT IOptionsWindow : public virtual IBase
{
public:
    // The dialog takes the page; unregistering hands it back.
    virtual bool registerOptionPage(const OptionTopItem &topItem, OptionPage *page) = 0;
    virtual bool unregisterOptionPage(OptionPage *page) = 0;
};

class VELMORA_FRAMEWORK_EXPORT ISolution : public virtual IBase
{
public:
    virtual bool addProject(ViewItem *project) = 0;
    // position -1 appends.
    virtual bool addProject(ViewItem *project, int position) = 0;
    // Takes the project at index out of the solution, deleting it when remove is set.
    virtual void removeProject(int index, bool remove) = 0;
    virtual bool isProjectNameUnique(const QString &name) = 0;
    virtual ViewItem *solutionItem() = 0;
    virtual QList<ViewItem *> projects() = 0;
};

class VELMORA_FRAMEWORK_EXPORT IDataRegistrar : public virtual IBase
{
public:
    virtual bool registerData(const QString &name, const QVariant &value) = 0;
    virtual bool unregisterData(const QString &name) = 0;
    virtual bool isRegistered(const QString &name) = 0;
    virtual QVariant lookup(const QString &name) = 0;
    virtual bool setDataValue(const QString &name, const QVariant &value) = 0;
};

class VELMORA_FRAMEWORK_EXPORT IAggregatableRegistrar : public virtual IBase
{
public:
    virtual void registerAggregatable(IAggregatable *aggregatable) = 0;
    virtual void unregisterAggregatable(IAggregatable *aggregatable) = 0;
};

// Item types are registered under the identifier their getId() answers; a project file's
// type attributes name those identifiers. A type's children are looked up in the scope it
// was registered in, and the workbench's solution type is registered in the scope
// "default": register project types (and their children's types) there. The registrar owns
// the types it holds.
class VELMORA_FRAMEWORK_EXPORT ITypeRegistrar : public virtual IBase
{
public:
    virtual bool registerType(ItemType *type, const QString &scope) = 0;
    virtual ItemType *unregisterType(const QString &id) = 0;
    virtual bool isRegistered(const QString &id) = 0;
    virtual ItemType *lookup(const QString &id) = 0;
    virtual QList<ItemType *> findAll(const QString &iid, const QString &scope) = 0;
    virtual QString scope(const QString &id) = 0;
    virtual ViewItem *createItem(const QString &id, const QString &name, QObject *parent) = 0;
    virtual QWidget *widgetParent() = 0;
    // The factory is registered under its own name(); false for an empty type id, a null
    // factory or a type that is not registered.
    virtual bool registerEditorFactory(const QString &typeId, IEditorFactory *factory) = 0;
    virtual bool unregisterEditorFactory(const QString &typeId, const QString &factory) = 0;
    virtual bool setDefaultEditorFactory(const QString &typeId, const QString &factory) = 0;
    virtual bool registerPreviewerFactory(const QString &typeId, IPreviewerFactory *factory) = 0;
    virtual bool unregisterPreviewerFactory(const QString &typeId, const QString &factory) = 0;
    virtual bool setDefaultPreviewerFactory(const QString &typeId, const QString &factory) = 0;
};

class VELMORA_FRAMEWORK_EXPORT IServiceRegistrar : public virtual IBase
{
public:
    virtual bool registerService(const QString &id, IBase *service) = 0;
    virtual IBase *unregisterService(const QString &id) = 0;
    virtual bool isRegistered(const QString &id) = 0;
    virtual IBase *lookup(const QString &id) = 0;
};

// Companions are registered under "IAugmentableFile.Augments.Velmora.Orvane" (file types) or
// "IAugmentableGeneric.Augments.Velmora.Orvane" (every type); lower orders are asked first.
class VELMORA_FRAMEWORK_EXPORT IAugmentableRegistrar : public virtual IBase
{
public:
    virtual bool registerInterface(const QString &id, IBase *iface, int order) = 0;
    virtual bool unregisterInterface(const QString &id, IBase *iface) = 0;
    virtual QList<IBase *> getIfList(const QString &id) = 0;
};

class VELMORA_FRAMEWORK_EXPORT ILaunchableRegistrar : public virtual IBase
{
public:
    virtual bool registerLaunchable(ILaunchable *launchable) = 0;
    virtual bool unregisterLaunchable(ILaunchable *launchable) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IAssistant, VELMORA_IID_IASSISTANT)
Q_DECLARE_INTERFACE(Velmora::Framework::IRibdock, VELMORA_IID_IRIBDOCK)
Q_DECLARE_INTERFACE(Velmora::Framework::IRibbonBar, VELMORA_IID_IRIBBONBAR)
Q_DECLARE_INTERFACE(Velmora::Framework::IAppBox, VELMORA_IID_IAPPBOX)
Q_DECLARE_INTERFACE(Velmora::Framework::IAddressBar, VELMORA_IID_IADDRESSBAR)
Q_DECLARE_INTERFACE(Velmora::Framework::IDockContainer, VELMORA_IID_IDOCKCONTAINER)
Q_DECLARE_INTERFACE(Velmora::Framework::IStatusBar, VELMORA_IID_ISTATUSBAR)
Q_DECLARE_INTERFACE(Velmora::Framework::IProject, VELMORA_IID_IPROJECT)
Q_DECLARE_INTERFACE(Velmora::Framework::IMultipleWindow, VELMORA_IID_IMULTIPLEWINDOW)
Q_DECLARE_INTERFACE(Velmora::Framework::ISharedVariantRegion, VELMORA_IID_ISHAREDVARIANTREGION)
Q_DECLARE_INTERFACE(Velmora::Framework::IOutputWindow, VELMORA_IID_IOUTPUTWINDOW)
Q_DECLARE_INTERFACE(Velmora::Framework::IQuickStart, VELMORA_IID_IQUICKSTART)
Q_DECLARE_INTERFACE(Velmora::Framework::IOptionsWindow, VELMORA_IID_IOPTIONSWINDOW)
Q_DECLARE_INTERFACE(Velmora::Framework::ISolution, VELMORA_IID_ISOLUTION)
Q_DECLARE_INTERFACE(Velmora::Framework::IDataRegistrar, VELMORA_IID_IDATAREGISTRAR)
Q_DECLARE_INTERFACE(Velmora::Framework::IAggregatableRegistrar, VELMORA_IID_IAGGREGATABLEREGISTRAR)
Q_DECLARE_INTERFACE(Velmora::Framework::ITypeRegistrar, VELMORA_IID_ITYPEREGISTRAR)
Q_DECLARE_INTERFACE(Velmora::Framework::IServiceRegistrar, VELMORA_IID_ISERVICEREGISTRAR)
Q_DECLARE_INTERFACE(Velmora::Framework::IAugmentableRegistrar, VELMORA_IID_IAUGMENTABLEREGISTRAR)
Q_DECLARE_INTERFACE(Velmora::Framework::ILaunchableRegistrar, VELMORA_IID_ILAUNCHABLEREGISTRAR)
