#include "core/applicationhooks.h"

#include <QtCore/qmimedata.h>
#include <QtCore/qpointer.h>

namespace Velmora::Framework {

namespace {
// The list belongs to the environment, so it is only read while the guarded environment lives.
QPointer<QObject> s_environment;
QList<IAggregatable *> *s_aggregatables = nullptr;
} // namespace

void ApplicationHooks::install(QObject *environment, QList<IAggregatable *> *aggregatables)
{
    s_environment = environment;
    s_aggregatables = aggregatables;
}

void ApplicationHooks::clear()
{
    install(nullptr, nullptr);
}

QObject *ApplicationHooks::environment()
{
    return s_environment.data();
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
