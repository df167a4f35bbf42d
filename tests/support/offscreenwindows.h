#pragma once

#include <QtCore/qlogging.h>
#include <QtCore/qstring.h>

namespace Velmora::Tests {

// The offscreen platform warns that it cannot size or raise windows each time a window is
// shown; those notices say nothing about our code. Drops exactly them for the guard's life
// and passes everything else on to QtTest, which still pins and fails on warnings.
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
