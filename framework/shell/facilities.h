#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qobject.h>

#include <memory>

namespace Velmora::Framework {

class Environment;
class FacilitiesPrivate;
class Provider;
class UnloadListener;

// The one object through which providers reach the framework: ask it for an interface by
// identifier. It also tells the objects that withdraw providers' contributions when the
// providers unload.
class VELMORA_FRAMEWORK_EXPORT Facilities : public QObject, public IBase
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IBase)

public:
    // The environment owns the hub.
    explicit Facilities(Environment *environment);
    ~Facilities() override;

    Environment *environment() const;

    bool queryInterface(const char *iid, IBase **out) override;

    // Tells every unload listener, in registration order; null means all providers.
    void onUnload(Provider *provider);

    // The service objects, one per interface the hub answers (see facilities_p.h).
    class Service;
    class XAssistant;
    class XRibdock;
    class XRibbonBar;
    class XAppBox;
    class XAddressBar;
    class XDockContainer;
    class XStatusBar;
    class XProject;
    class XMultipleWindow;
    class XSharedVariantRegion;
    class XOutputWindow;
    class XQuickStart;
    class XOptionsWindow;
    class XSolution;
    class xDataRegistrar;
    class XAggregatableRegistrar;
    class XTypeRegistrar;
    class XServiceRegistrar;
    class XAugmentableRegistrar;
    class XLaunchableRegistrar;

    // The project service, for the environment's own use of what it was told.
    XProject *project() const;

private:
    // Null and listeners already known are ignored.
    void registerUnloadListener(UnloadListener *listener);

    std::unique_ptr<FacilitiesPrivate> const d;
};

} // namespace Velmora::Framework
