#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>
#include <QtCore/qstring.h>

#include <memory>

namespace Velmora::Framework {

class Facilities;
class Provider;
class ProviderManagerPrivate;

// Finds the provider libraries of a folder, loads them, and runs their lives: every provider
// is initialised before any is started, primary providers before secondary ones, and shutdown
// runs in the exact reverse order. The libraries stay mapped until the manager is destroyed.
class VELMORA_FRAMEWORK_EXPORT ProviderManager : public QObject
{
    Q_OBJECT

public:
    struct ProviderInfo
    {
        int state = 0; // 0 OK, 1 disabled, anything else unknown
        Provider *provider = nullptr; // borrowed: it belongs to its plug-in loader
    };

    // facilities is borrowed; without it loadAll() does nothing.
    explicit ProviderManager(Facilities *facilities);
    // Deletes every primary and secondary provider and unloads its library.
    ~ProviderManager() override;

    // Loads every file of folder whose last suffix is "dll" or whose suffixes contain "so"
    // (x.dll, libx.so, libx.so.1), in the order the file system lists them, then initialises
    // and starts the providers. Does nothing for a folder that does not exist.
    void loadAll(const QString &folder);
    // Stops, then shuts down every provider, last first; then tells the hub that all
    // providers are going.
    void shutdownAll();

    // Only entries with state 0 and a provider take part in the providers' lives.
    QList<ProviderInfo> &getPrimaryProviders();
    QList<ProviderInfo> &getSecondaryProviders();

    Facilities *facilities() const;
    void setFacilites(Facilities *facilities);

signals:
    // Progress for the splash screen and the status bar; empty when a pass is done.
    void statusChanged(const QString &text);

private:
    void load(const QString &file);
    void unload(Provider *provider);
    void unloadAll();

    std::unique_ptr<ProviderManagerPrivate> const d;
};

} // namespace Velmora::Framework
