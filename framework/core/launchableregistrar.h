#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>

#include <memory>

namespace Velmora::Framework {

class ILaunchable;
class LaunchableRegistrarPrivate;

// Sorts command-line arguments out to the launchables that claim them. Launchables are
// borrowed; when two claim the same extension or option, the first registration keeps it.
class VELMORA_FRAMEWORK_EXPORT LaunchableRegistrar : public QObject
{
    Q_OBJECT

public:
    explicit LaunchableRegistrar(QObject *parent = nullptr);
    ~LaunchableRegistrar() override;

    // False for null; a launchable already registered is not entered again.
    bool registerLaunchable(ILaunchable *launchable);
    // False when the launchable was not registered.
    bool unregisterLaunchable(ILaunchable *launchable);
    // Every launchable the extension and option tables refer to, each once.
    QList<ILaunchable *> getLaunchables() const;
    void unregisterAll();

    // Hands the claimed arguments to one launchable only, the first of those that claimed
    // any, and answers its result; false when nobody claimed anything.
    bool launch(const QList<QString> &arguments);

private:
    std::unique_ptr<LaunchableRegistrarPrivate> const d;
};

} // namespace Velmora::Framework
