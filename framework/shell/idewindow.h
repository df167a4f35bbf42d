#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qmainwindow.h>

#include <memory>

namespace Velmora::Ribdock {
class AddressBar;
class DockContainer;
class RibbonBar;
class RibbonPage;
} // namespace Velmora::Ribdock

namespace Velmora::Framework {

class IDEWindowPrivate;

// The workbench's main window: the ribbon, the address bar and the docks. It keeps its
// geometry in the settings and will not close while the open solution refuses to.
class VELMORA_FRAMEWORK_EXPORT IDEWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit IDEWindow(QWidget *parent = nullptr);
    ~IDEWindow() override;

    // The geometry under "IDE/geometry"; an unreadable value keeps the current one.
    void readSettings();
    void writeSettings();

    // Switching to page restores the dock layout kept for workspace.
    void bindRibbonPagesAndDockWorkspace(Ribdock::RibbonPage *page, uint workspace);
    Ribdock::RibbonBar *ribbonBar() const;
    Ribdock::AddressBar *addressBar() const;
    Ribdock::DockContainer *dockContainer() const;

Q_SIGNALS:
    void ideWindowClosed();

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    std::unique_ptr<IDEWindowPrivate> const d;
};

} // namespace Velmora::Framework
