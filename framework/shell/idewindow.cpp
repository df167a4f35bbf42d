#include "shell/idewindow.h"

#include "ribdock/dockcontainer.h"
#include "ribdock/ribdockagent.h"
#include "shell/environment.h"

#include <QtCore/qcoreapplication.h>
#include <QtCore/qsettings.h>
#include <QtGui/qevent.h>
#include <QtGui/qguiapplication.h>
#include <QtGui/qscreen.h>

namespace Velmora::Framework {

namespace {
const QString geometryKey = QStringLiteral("IDE/geometry");
} // namespace

class IDEWindowPrivate
{
public:
    Ribdock::RibdockAgent *agent = nullptr;
};

IDEWindow::IDEWindow(QWidget *parent)
    : QMainWindow(parent), d(std::make_unique<IDEWindowPrivate>())
{
    // The agent builds the ribbon, the address bar and the docks on this window.
    d->agent = new Ribdock::RibdockAgent(this);
    // Until a geometry is stored: most of the screen, as a desktop program opens.
    if (QScreen *screen = QGuiApplication::primaryScreen()) {
        const QRect available = screen->availableGeometry();
        resize(available.size() * 4 / 5);
        move(available.center() - rect().center());
    }
}

IDEWindow::~IDEWindow() = default;

void IDEWindow::readSettings()
{
    const QVariant stored = QSettings().value(geometryKey);
    if (stored.isValid() && restoreGeometry(stored.toByteArray()))
        return;
    if (stored.isValid())
        qInfo("IDEWindow::readSettings(): ignoring an unreadable window geometry");
    // A first start: most of the screen, centred, rather than the widgets' small natural size.
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        const QRect available = screen->availableGeometry();
        QRect frame(QPoint(), available.size() * 0.85);
        frame.moveCenter(available.center());
        setGeometry(frame);
    }
}

void IDEWindow::writeSettings()
{
    QSettings().setValue(geometryKey, saveGeometry());
}

void IDEWindow::bindRibbonPagesAndDockWorkspace(Ribdock::RibbonPage *page, uint workspace)
{
    d->agent->bindRibbonPagesAndDockWorkspace(page, workspace);
}

Ribdock::RibbonBar *IDEWindow::ribbonBar() const
{
    return d->agent->ribbonBar();
}

Ribdock::AddressBar *IDEWindow::addressBar() const
{
    return d->agent->addressBar();
}

Ribdock::DockContainer *IDEWindow::dockContainer() const
{
    return d->agent->dockContainer();
}

void IDEWindow::closeEvent(QCloseEvent *event)
{
    Environment *environment = Environment::currentEnvironment();
    if (environment && !environment->closeSolution()) {
        event->ignore();
        return;
    }
    writeSettings();
    dockContainer()->saveState();
    event->accept();
    emit ideWindowClosed();
}

void IDEWindow::showEvent(QShowEvent *event)
{
    if (windowTitle().isEmpty())
        setWindowTitle(QCoreApplication::applicationName());
    QMainWindow::showEvent(event);
}

} // namespace Velmora::Framework
