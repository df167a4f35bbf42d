#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>

QT_BEGIN_NAMESPACE
class QMimeData;
class QObject;
QT_END_NAMESPACE

namespace Velmora::Framework {

class IAggregatable;
class IBase;

// What the item tree and the item types need of the running application. The environment,
// which sits above them, fills the hook while it is current and clears it when it stops, so
// the lower layers reach the application without depending on the shell.
class VELMORA_FRAMEWORK_EXPORT ApplicationHooks
{
public:
    // All borrowed; the hub and the list must live as long as the environment does.
    static void install(QObject *environment, IBase *facilities,
                        QList<IAggregatable *> *aggregatables);
    static void clear();

    // The current environment; null while none is installed or once it is destroyed.
    static QObject *environment();
    // The current environment's service hub; null without one. Ask it for a service with
    // interfaceCast().
    static IBase *facilities();
    // The current environment's aggregatables, in contribution order; empty without one.
    static QList<IAggregatable *> aggregatables();

    // The pair through which the library makes and frees the mime data it hands to the
    // clipboard: a new, empty object owned by the caller, and its deletion (null is ignored).
    static QMimeData *createClipboardMimeData();
    static void deleteClipboardMimeData(QMimeData *mime);
};

} // namespace Velmora::Framework
