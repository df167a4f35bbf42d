#include "core/actionhandler.h"

#include <QtCore/qsignalmapper.h>
#include <QtGui/qaction.h>

namespace Velmora::Framework {

class ActionHandlerPrivate
{
public:
    QSignalMapper mapper;
    QObject *context = nullptr;
};

ActionHandler::ActionHandler(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<ActionHandlerPrivate>())
{
}

ActionHandler::~ActionHandler() = default;

bool ActionHandler::hookupHandler(QAction *action, const QString &command)
{
    if (!action || command.isEmpty())
        return false;
    // Drop an earlier hook first, so that an action hooked twice still fires once.
    disconnect(action, &QAction::triggered, &d->mapper, qOverload<>(&QSignalMapper::map));
    if (!connect(action, &QAction::triggered, &d->mapper, qOverload<>(&QSignalMapper::map)))
        return false;
    d->mapper.setMapping(action, command);
    return true;
}

QSignalMapper *ActionHandler::mapper()
{
    return &d->mapper;
}

QObject *ActionHandler::context() const
{
    return d->context;
}

void ActionHandler::setContext(QObject *context)
{
    d->context = context;
}

} // namespace Velmora::Framework
