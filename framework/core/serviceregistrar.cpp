#include "core/serviceregistrar.h"

#include "core/logging_p.h"

#include <QtCore/qmap.h>

namespace Velmora::Framework {

class ServiceRegistrarPrivate
{
public:
    QMap<QString, IBase *> services;
};

ServiceRegistrar::ServiceRegistrar()
    : d(std::make_unique<ServiceRegistrarPrivate>())
{
}

ServiceRegistrar::~ServiceRegistrar() = default;

bool ServiceRegistrar::registerService(const QString &id, IBase *service)
{
    if (id.isEmpty())
        return false;
    if (d->services.contains(id))
        qCWarning(Internal::lcCore,
                  "The Service is already registered. Previous serivce is overwritten.\n");
    d->services.insert(id, service);
    emit serviceRegistered(id);
    return true;
}

IBase *ServiceRegistrar::unregisterService(const QString &id)
{
    const auto it = d->services.constFind(id);
    if (it == d->services.cend()) {
        qCWarning(Internal::lcCore, "Service not registered.\n");
        return nullptr;
    }
    IBase *service = it.value();
    d->services.erase(it);
    if (!service)
        return nullptr;
    emit serviceUnregistered(id);
    return service;
}

bool ServiceRegistrar::isRegistered(const QString &id) const
{
    return d->services.contains(id);
}

IBase *ServiceRegistrar::lookup(const QString &id) const
{
    return d->services.value(id);
}

void ServiceRegistrar::unregisterAll()
{
    d->services.clear();
}

} // namespace Velmora::Framework
