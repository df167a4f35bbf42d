#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>

namespace Velmora::Framework {

class ViewItem;

// A command handler. It stands outside the IBase scheme and has no identifier.
class VELMORA_FRAMEWORK_EXPORT IHandler
{
public:
    virtual ~IHandler() = default;

    // Identifier of the augmentable interface consulted while a command runs.
    virtual QString augmentInterfaceId() = 0;
    // Runs the named command ("cmdAddNew", ...) on items with argument; an empty item list
    // means the current selection. Answers whether the command ran.
    virtual bool handleCommand(const QString &command, const QList<ViewItem *> &items,
                               const QVariant &argument) = 0;
};

} // namespace Velmora::Framework
