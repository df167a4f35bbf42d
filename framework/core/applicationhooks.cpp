#include "core/applicationhooks.h"

#include <QtCore/qmimedata.h>
#include <QtCore/qpointer.h>

namespace Velmora::Framework {

namespace {
// The list belongs to the environment, so it is only read while the guarded environment lives.
QPointer<QObject> s_environment;
IBase *s_facilities = nullptr;
QList<IAggregatable *> *s_aggregatables = nullptr;
} // namespace

void ApplicationHooks::install(QObject *environment, IBase *facilities,
                               QList<IAggregatable *> *aggregatables)
{
    s_environment = environment;
    s_facilities = facilities;
    s_aggregatables = aggregatables;
}

void ApplicationHooks::clear()
{
    install(nullptr, nullptr, nullptr);
}

QObject *ApplicationHooks::environment()
{
    return s_environment.data();
}

IBase *ApplicationHooks::facilities()
{
    return s_environment ? s_facilities : nullptr;
}

QList<IAggregatable *> ApplicationHooks::aggregatables()
{
    return s_environment && s_aggregatables ? *s_aggregatables : QList<IAggregatable *>();
}

QMimeData *ApplicationHooks::createClipboardMimeData()
{
    return new QMimeData;
}

void ApplicationHooks::deleteClipboardMimeData(QMimeData *mime)
{
    delete mime;
}

} // namespace Velmora::Framework
