// Started once per measured start-up by bench_startup: "ours" starts the workbench's
// application as Tessaly does, with its splash, its help collection and the twenty providers
// of the plugins folder beside it; "anchor" a bare QApplication with a QMainWindow. On the
// first pass of the event loop, with the main window shown, it prints the monotonic clock in
// nanoseconds and the number of providers started, and quits.
#include "shell/application.h"
#include "shell/environment.h"
#include "shell/providermanager.h"

#include <QtCore/qtimer.h>
#include <QtWidgets/qmainwindow.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>

namespace {

// Prints the time and the number of providers that started.
void reportShownAndQuit(qsizetype providers)
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::printf("%lld %lld\n", static_cast<long long>(now.tv_sec) * 1000000000LL + now.tv_nsec,
                static_cast<long long>(providers));
    std::fflush(stdout);
    QCoreApplication::quit();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], "anchor") == 0) {
        QApplication app(argc, argv);
        QMainWindow window;
        window.show();
        QTimer::singleShot(0, &app, [] { reportShownAndQuit(0); });
        return app.exec();
    }
    Velmora::Framework::Application app(argc, argv, QStringLiteral("velmora.invalid"),
                                        QStringLiteral("Velmora"),
                                        QStringLiteral("TessalyStartup"));
    app.setIDEWindowTitle(QStringLiteral("Tessaly"));
    app.setLogoConfigPath(QString::fromUtf8(VELMORA_BRANDING_DIR "/aboutlayout.xml"));
    // Queued before run() queues the command line, so it runs first on the loop's first pass.
    QTimer::singleShot(0, &app, [&app] {
        reportShownAndQuit(app.environment()->providerManager()->getPrimaryProviders().size());
    });
    return app.run();
}
