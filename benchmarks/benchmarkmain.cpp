// A Qt application around Google Benchmark's runner: the code measured needs one.
#include "benchsupport.h"

#include <QtCore/qlogging.h>
#include <QtWidgets/qapplication.h>

#include <benchmark/benchmark.h>

namespace {
// The code measured reports its tear-down at debug level; that is noise here.
void dropDebugMessages(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtDebugMsg)
        qt_message_output(type, context, text);
}
} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler(dropDebugMessages);
    Velmora::Benchmarks::keepFreedMemory();
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    for (const auto &routine : Velmora::Benchmarks::endRoutines())
        routine();
    benchmark::Shutdown();
    return 0;
}
