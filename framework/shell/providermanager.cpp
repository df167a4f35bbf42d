#include "shell/providermanager.h"

#include "core/ibase.h"
#include "core/logging_p.h"
#include "shell/facilities.h"
#include "shell/provider.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qmap.h>
#include <QtCore/qpluginloader.h>
#include <QtCore/qpointer.h>

#include <algorithm>
#include <initializer_list>

namespace Velmora::Framework {

using ProviderInfo = ProviderManager::ProviderInfo;

namespace {

bool isUsable(const ProviderInfo &info)
{
    return info.state == 0 && info.provider;
}

// Libraries are "x.dll" on Windows and "libx.so" or "libx.so.1" elsewhere.
bool isCandidate(const QFileInfo &file)
{
    return file.suffix() == QLatin1String("dll")
        || file.completeSuffix().contains(QLatin1String("so"));
}

// A copy with its own storage: a name built from a literal points into the plug-in library,
// which may be unmapped while the name is still needed.
QString ownedName(const Provider *provider)
{
    const QString name = provider->name();
    return QString(name.constData(), name.size());
}

// The splash screen shows these, so they are translated; step is a template with %1 for
// the provider's name.
QString progress(const char *step, const Provider *provider)
{
    return ProviderManager::tr(step).arg(provider->name());
}

// Calls fn for every usable entry of the lists, list by list; lastFirst walks each backwards.
template <typename Fn>
void forEachUsable(std::initializer_list<const QList<ProviderInfo> *> lists, bool lastFirst, Fn fn)
{
    for (const QList<ProviderInfo> *list : lists) {
        const qsizetype count = list->size();
        for (qsizetype i = 0; i < count; ++i) {
            const ProviderInfo &info = list->at(lastFirst ? count - 1 - i : i);
            if (isUsable(info))
                fn(info.provider);
        }
    }
}

} // namespace

class ProviderManagerPrivate
{
public:
    QList<ProviderInfo> primary;
    QList<ProviderInfo> secondary;
    QList<ProviderInfo> disabled;
    QMap<QString, QPluginLoader *> loaders;
    QPointer<Facilities> facilities;
};

ProviderManager::ProviderManager(Facilities *facilities)
    : d(std::make_unique<ProviderManagerPrivate>())
{
    d->facilities = facilities;
}

ProviderManager::~ProviderManager()
{
    unloadAll();
}

void ProviderManager::loadAll(const QString &folder)
{
    QDir dir(folder);
    if (folder.isEmpty() || !dir.exists() || !d->facilities)
        return;

    const QFileInfoList files = dir.entryInfoList(QDir::Files, QDir::Unsorted);
    for (const QFileInfo &file : files) {
        if (isCandidate(file))
            load(file.absoluteFilePath());
    }

    // Providers keep the order in which their libraries were loaded: the comparison only
    // moves entries without a provider behind the others.
    const auto present = [](const ProviderInfo &a, const ProviderInfo &b) {
        return a.provider && !b.provider;
    };
    std::stable_sort(d->primary.begin(), d->primary.end(), present);
    std::stable_sort(d->secondary.begin(), d->secondary.end(), present);
    std::stable_sort(d->disabled.begin(), d->disabled.end(), present);

    IBase *base = nullptr;
    d->facilities->queryInterface(Iid::IBase, &base);

    forEachUsable({&d->primary, &d->secondary}, false, [&](Provider *provider) {
        emit statusChanged(progress(QT_TR_NOOP("Initializing %1..."), provider));
        provider->init(base);
    });
    forEachUsable({&d->primary, &d->secondary}, false, [&](Provider *provider) {
        emit statusChanged(progress(QT_TR_NOOP("Starting %1..."), provider));
        provider->start();
    });
    emit statusChanged(QString());
}

void ProviderManager::shutdownAll()
{
    // Copies: a provider may reach the manager while it stops.
    const QList<ProviderInfo> primary = d->primary;
    const QList<ProviderInfo> secondary = d->secondary;

    forEachUsable({&secondary, &primary}, true, [&](Provider *provider) {
        emit statusChanged(progress(QT_TR_NOOP("Stopping %1..."), provider));
        provider->stop();
    });
    forEachUsable({&secondary, &primary}, true, [&](Provider *provider) {
        emit statusChanged(progress(QT_TR_NOOP("Unloading %1..."), provider));
        provider->shutdown();
    });
    // One notification with no provider: the hub withdraws what every provider contributed.
    if (d->facilities)
        d->facilities->onUnload(nullptr);
    emit statusChanged(QString());
}

QList<ProviderInfo> &ProviderManager::getPrimaryProviders()
{
    return d->primary;
}

QList<ProviderInfo> &ProviderManager::getSecondaryProviders()
{
    return d->secondary;
}

Facilities *ProviderManager::facilities() const
{
    return d->facilities;
}

void ProviderManager::setFacilites(Facilities *facilities)
{
    d->facilities = facilities;
}

void ProviderManager::load(const QString &file)
{
    auto *loader = new QPluginLoader(file, this);
    auto *provider = qobject_cast<Provider *>(loader->instance());
    if (!provider) {
        qCDebug(Internal::lcShell, "====================");
        qCDebug(Internal::lcShell, "%s", qPrintable(loader->errorString()));
        delete loader;
        return;
    }

    const QString name = ownedName(provider);
    if (d->loaders.contains(name)) {
        // The first library of a name wins; the second stays mapped until the manager goes.
        qCWarning(Internal::lcShell, "ProviderManager::load() : Provider %s already loaded.",
                  qPrintable(name));
        return;
    }
    d->loaders.insert(name, loader);

    const ProviderInfo info{0, provider};
    switch (provider->type()) {
    case 0:
        d->primary.append(info);
        break;
    case 1:
        d->secondary.append(info);
        break;
    default:
        d->disabled.append(info);
        break;
    }
}

void ProviderManager::unload(Provider *provider)
{
    if (!provider)
        return;
    const QString name = ownedName(provider);
    delete provider;
    QPluginLoader *loader = d->loaders.take(name);
    if (!loader)
        return;
    // Refused while another loader still holds the library.
    if (!loader->unload())
        qCWarning(Internal::lcShell, "Cannot unload proivder '%s'", qPrintable(name));
    delete loader;
}

void ProviderManager::unloadAll()
{
    forEachUsable({&d->secondary, &d->primary}, true,
                  [this](Provider *provider) { unload(provider); });
    d->secondary.clear();
    d->primary.clear();
}

} // namespace Velmora::Framework
