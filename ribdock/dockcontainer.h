#pragma once

#include "ribdock_global.h"

#include <QtCore/qobject.h>
#include <QtGui/qicon.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QMenu;
QT_END_NAMESPACE

namespace Velmora::Ribdock {

class DockContainerPrivate;
class DockContentWidget;
class DockPanelWidget;

// The docks of a main window: the content widget in the centre and three panels built on
// QDockWidget, partitions 0 (left), 1 (right) and 2 (bottom).
class RIBDOCK_EXPORT DockContainer : public QObject
{
    Q_OBJECT

public:
    enum Partition { Left = 0, Right = 1, Bottom = 2, PartitionCount = 3 };

    // Places the content widget and the panels on the window, whose child it becomes.
    explicit DockContainer(QMainWindow *window);
    ~DockContainer() override;

    QMainWindow *mainWindow() const;
    DockContentWidget *contentWidget() const;
    // Null for a partition that does not exist.
    DockPanelWidget *panel(int partition) const;

    // Take ownership of the view; answer its index in the panel, or -1 for a partition that
    // does not exist or a null view. addView() opens a new section of the panel,
    // tabifyView() adds a tab to its last section.
    int addView(int partition, QWidget *view, const QString &title, const QIcon &icon = QIcon());
    int tabifyView(int partition, QWidget *view, const QString &title, const QIcon &icon = QIcon());

    // Shows or hides each panel and restores the default layout; owned by the container.
    QMenu *layoutMenu() const;
    void restoreDefaultLayout();

    // The whole dock layout as bytes. A corrupt or foreign state is refused with a warning
    // and the layout stays as it was.
    QByteArray saveLayout() const;
    bool restoreLayout(const QByteArray &layout);

    // The layout kept in the default QSettings under settingsKey(). updateState() answers
    // false, keeping the current layout, when nothing usable is stored.
    static QString settingsKey();
    void saveState() const;
    bool updateState();

private:
    std::unique_ptr<DockContainerPrivate> const d;
};

} // namespace Velmora::Ribdock
