// Started once per measured start-up by bench_startup: "ours" starts the workbench's
// application as Tessaly does, with its splash, its help collection and the twenty providers
// of the plugins folder beside it; "anchor" a bare QApplication with a QMainWindow. On the
// first pass of the event loop, with the main window shown, it prints the monotonic clock in
// nanoseconds and the number of providers started, and ends. "text" is the anchor with one
// label: the least a window with any text costs, since its first text loads the fonts.
#include "shell/application.h"
#include "shell/environment.h"
#include "shell/providermanager.h"

#include <QtCore/qcoreevent.h>
#include <QtCore/qtimer.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qmainwindow.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
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
    // At once: the report may come from inside the splash's wait, before the event loop runs,
    // where a quit would be lost; shutting down is not measured.
    std::_Exit(0);
}

class ShowWatcher : public QObject
{
public:
    explicit ShowWatcher(std::function<void()> report) : m_report(std::move(report)) {}

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && m_report) {
            QTimer::singleShot(0, this, m_report);
            m_report = nullptr;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_report;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && (std::strcmp(argv[1], "anchor") == 0 || std::strcmp(argv[1], "text") == 0)) {
        QApplication app(argc, argv);
        QMainWindow window;
        if (std::strcmp(argv[1], "text") == 0)
            window.setCentralWidget(new QLabel(QStringLiteral("Tessaly")));
        window.show();
        QTimer::singleShot(0, &app, [] { reportShownAndQuit(0); });
        return app.exec();
    }
    Velmora::Framework::Application app(argc, argv, QStringLiteral("velmora.invalid"),
                                        QStringLiteral("Velmora"),
                                        QStringLiteral("TessalyStartup"));
    app.setIDEWindowTitle(QStringLiteral("Tessaly"));
    app.setLogoConfigPath(QString::fromUtf8(VELMORA_BRANDING_DIR "/aboutlayout.xml"));
    // The splash processes events while the providers start, so the report waits for the main
    // window's show event and then for the next pass of events.
    ShowWatcher watcher([&app] {
        reportShownAndQuit(app.environment()->providerManager()->getPrimaryProviders().size());
    });
    app.environment()->mainWindow()->installEventFilter(&watcher);
    return app.run();
}
