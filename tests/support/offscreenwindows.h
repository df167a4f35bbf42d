#pragma once

#include <QtCore/qlogging.h>
#include <QtCore/qstring.h>

namespace Velmora::Tests {

// Drops, for the guard's life, the offscreen platform's notices that it cannot size or raise
// a shown window: they say nothing about our code. Everything else still reaches QtTest.
class OffscreenWindowNotices
{
public:
    OffscreenWindowNotices() { s_previous = qInstallMessageHandler(&handle); }
    ~OffscreenWindowNotices() { qInstallMessageHandler(s_previous); }

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (type == QtWarningMsg && text.startsWith(QLatin1String("This plugin does not support ")))
            return;
        if (s_previous)
            s_previous(type, context, text);
    }
    static inline QtMessageHandler s_previous = nullptr;
};

} // namespace Velmora::Tests
