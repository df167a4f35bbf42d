#include "shell/facilities.h"

#include "shell/environment.h"
#include "shell/unloadlistener.h"

namespace Velmora::Framework {

class FacilitiesPrivate
{
public:
    Environment *environment = nullptr;
    QList<UnloadListener *> unloadListeners;
};

Facilities::Facilities(Environment *environment)
    : QObject(environment), d(std::make_unique<FacilitiesPrivate>())
{
    d->environment = environment;
}

Facilities::~Facilities() = default;

Environment *Facilities::environment() const
{
    return d->environment;
}

bool Facilities::queryInterface(const char *iid, IBase **out)
{
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

} // namespace Velmora::Framework
