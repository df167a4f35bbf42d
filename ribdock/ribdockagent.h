#pragma once

#include "ribdock_global.h"

#include <QtCore/qobject.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QMainWindow;
QT_END_NAMESPACE

namespace Velmora::Ribdock {

class AddressBar;
class DockContainer;
class RibbonBar;
class RibbonPage;
class RibdockAgentPrivate;

// Dresses a main window: the ribbon bar with the address bar below it on top, the dock
// container around the centre. It also ties ribbon pages to dock workspaces: leaving a bound
// page keeps the dock layout for its workspace, entering one restores the layout kept for its
// workspace. Pages that are not bound leave the layout alone.
class RIBDOCK_EXPORT RibdockAgent : public QObject
{
    Q_OBJECT

public:
    // Becomes a child of the window, which owns everything built here.
    explicit RibdockAgent(QMainWindow *window);
    ~RibdockAgent() override;

    QMainWindow *mainWindow() const;
    RibbonBar *ribbonBar() const;
    AddressBar *addressBar() const;
    DockContainer *dockContainer() const;

    // The page must belong to this agent's ribbon bar. Several pages may share a workspace.
    void bindRibbonPagesAndDockWorkspace(RibbonPage *page, uint workspace);
    // -1 when the page is not bound.
    qint64 workspaceOf(const RibbonPage *page) const;

private:
    std::unique_ptr<RibdockAgentPrivate> const d;
};

} // namespace Velmora::Ribdock
