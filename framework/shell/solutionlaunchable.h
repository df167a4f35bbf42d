#pragma once

#include "velmoraframework_global.h"
#include "core/ilaunchable.h"

#include <QtCore/qobject.h>

namespace Velmora::Framework {

// Opens a solution file named on the command line into the current environment's solution.
class VELMORA_FRAMEWORK_EXPORT SolutionLaunchable : public QObject, public ILaunchable
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IBase Velmora::Framework::ILaunchable)

public:
    explicit SolutionLaunchable(QObject *parent = nullptr);

    bool queryInterface(const char *iid, IBase **out) override;
    // "sln-qel".
    QList<QString> getExtensions() override;
    QList<QString> getOptionNames() override;
    // Opens the first argument; true once it was handed to the solution type, whatever the
    // type made of it.
    bool launch(const QList<QString> &arguments) override;
};

} // namespace Velmora::Framework
