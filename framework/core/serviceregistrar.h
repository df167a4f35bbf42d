#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>

#include <memory>

namespace Velmora::Framework {

class IBase;
class ServiceRegistrarPrivate;

// One service object per identifier; the last registration wins. Services are borrowed:
// the registrar never deletes one.
class VELMORA_FRAMEWORK_EXPORT ServiceRegistrar : public QObject
{
    Q_OBJECT

public:
    ServiceRegistrar();
    ~ServiceRegistrar() override;

    // False for an empty id. Replaces (with a warning) a service registered under id.
    bool registerService(const QString &id, IBase *service);
    // Hands the service back to the caller; null when id is unknown or its service was null.
    IBase *unregisterService(const QString &id);
    bool isRegistered(const QString &id) const;
    IBase *lookup(const QString &id) const;
    // Forgets every service, silently.
    void unregisterAll();

Q_SIGNALS:
    void serviceRegistered(const QString &id);
    void serviceUnregistered(const QString &id);

private:
    std::unique_ptr<ServiceRegistrarPrivate> const d;
};

} // namespace Velmora::Framework
