#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework {

// Opens what the command line names: files by extension, options by a leading minus sign.
// Register one through ILaunchableRegistrar; list ILaunchable in the class's Q_INTERFACES.
class VELMORA_FRAMEWORK_EXPORT ILaunchable : public virtual IBase
{
public:
    ~ILaunchable() override = default;

    // File extensions it opens, without the dot; compared in lower case.
    virtual QList<QString> getExtensions() = 0;
    // Option names it understands, without the minus sign; register them in lower case, since
    // arguments are matched as written.
    virtual QList<QString> getOptionNames() = 0;
    // Opens the arguments (whole paths and "-name=value" options) claimed for it.
    virtual bool launch(const QList<QString> &arguments) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::ILaunchable, VELMORA_IID_ILAUNCHABLE)
