#include "core/actionhandler.h"

#include <QtGui/qaction.h>

namespace Velmora::Framework {

ActionHandler::ActionHandler(QObject *parent)
    : QObject(parent)
{
}

ActionHandler::~ActionHandler() = default;

bool ActionHandler::hookupHandler(QAction *action, const QString &command)
{
    if (!action || command.isEmpty())
        return false;
    // Drop an earlier hook first, so that an action hooked twice still fires once.
    disconnect(action, &QAction::triggered, &m_mapper, qOverload<>(&QSignalMapper::map));
    if (!connect(action, &QAction::triggered, &m_mapper, qOverload<>(&QSignalMapper::map)))
        return false;
    m_mapper.setMapping(action, command);
    return true;
}

} // namespace Velmora::Framework
