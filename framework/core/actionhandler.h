#pragma once

#include "velmoraframework_global.h"
#include "core/ihandler.h"

#include <QtCore/qobject.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QAction;
class QSignalMapper;
QT_END_NAMESPACE

namespace Velmora::Framework {

class ActionHandlerPrivate;

// Base of the command handlers: ties actions to command names, so one handler serves any
// number of actions. Connect mapper()'s mappedString signal to the code that runs commands.
class VELMORA_FRAMEWORK_EXPORT ActionHandler : public QObject, public IHandler
{
    Q_OBJECT

public:
    explicit ActionHandler(QObject *parent = nullptr);
    ~ActionHandler() override;

    // Maps action's triggered signal to command. False for a null action, an empty command or
    // a connection that could not be made. Hooking an action again maps it to the new command.
    bool hookupHandler(QAction *action, const QString &command);

    QSignalMapper *mapper();

protected:
    // Reserved for the derived handler (the item type it serves); null until set. Borrowed.
    QObject *context() const;
    void setContext(QObject *context);

private:
    std::unique_ptr<ActionHandlerPrivate> const d;
};

} // namespace Velmora::Framework
