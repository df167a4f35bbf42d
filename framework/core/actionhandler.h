#pragma once

#include "velmoraframework_global.h"
#include "core/ihandler.h"

#include <QtCore/qobject.h>
#include <QtCore/qsignalmapper.h>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

namespace Velmora::Framework {

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

    QSignalMapper *mapper() { return &m_mapper; }

protected:
    // Reserved for the derived handler (the item type it serves); null until set. Borrowed.
    QObject *context() const { return m_context; }
    void setContext(QObject *context) { m_context = context; }

private:
    QSignalMapper m_mapper;
    QObject *m_context = nullptr;
};

} // namespace Velmora::Framework
