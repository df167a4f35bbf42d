#include "dockcontainer.h"

#include "dockcontentwidget.h"
#include "dockpanelwidget.h"
#include "ribdocklog_p.h"

#include <QtCore/qdatastream.h>
#include <QtCore/qiodevice.h>
#include <QtCore/qpointer.h>
#include <QtCore/qsettings.h>
#include <QtWidgets/qmainwindow.h>
#include <QtWidgets/qmenu.h>

namespace Velmora::Ribdock {

namespace {
constexpr quint32 LayoutMagic = 0x52444c59; // "RDLY"
constexpr qint32 LayoutVersion = 1;
constexpr Qt::DockWidgetArea Areas[] = {Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea,
                                        Qt::BottomDockWidgetArea};
} // namespace

class DockContainerPrivate
{
public:
    QPointer<QMainWindow> window;
    DockContentWidget *content = nullptr;
    QList<DockPanelWidget *> panels;
    QAction *panelActions[DockContainer::PartitionCount] = {};
    QMenu *menu = nullptr;
    // Without a window nothing else parents the widgets.
    bool ownsWidgets = false;
};

DockContainer::DockContainer(QMainWindow *window)
    : QObject(window)
    , d(std::make_unique<DockContainerPrivate>())
{
    if (!window)
        qCWarning(Internal::lcRibdock, "DockContainer::DockContainer(): null main window");
    d->window = window;
    d->ownsWidgets = !window;
    d->content = new DockContentWidget(window);
    d->content->setOrientation(Qt::Horizontal);
    d->content->setTabsClosable(true);

    const QString names[] = {tr("Left Panel"), tr("Right Panel"), tr("Bottom Panel")};
    d->menu = new QMenu(tr("Layout"), window);
    for (int i = 0; i < PartitionCount; ++i) {
        auto *panel = new DockPanelWidget(names[i], window);
        // QMainWindow::saveState() tells docks apart by their object names.
        panel->setObjectName(QStringLiteral("ribdockPanel%1").arg(i));
        panel->content()->setOrientation(i == Bottom ? Qt::Horizontal : Qt::Vertical);
        d->panels.append(panel);
        QAction *action = d->menu->addAction(names[i]);
        action->setCheckable(true);
        connect(action, &QAction::triggered, panel, &QWidget::setVisible);
        d->panelActions[i] = action;
    }
    d->menu->addSeparator();
    connect(d->menu->addAction(tr("Restore Default Layout")), &QAction::triggered,
            this, &DockContainer::restoreDefaultLayout);
    connect(d->menu, &QMenu::aboutToShow, this, [this] {
        for (int i = 0; i < PartitionCount; ++i)
            d->panelActions[i]->setChecked(!d->panels.at(i)->isHidden());
    });

    if (window) {
        window->setCentralWidget(d->content);
        window->setDockNestingEnabled(true);
        // The side panels run the full height, the bottom one sits between them.
        window->setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
        window->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    }
    restoreDefaultLayout();
}

DockContainer::~DockContainer()
{
    if (d->ownsWidgets) {
        delete d->content;
        qDeleteAll(d->panels);
        delete d->menu;
    }
}

QMainWindow *DockContainer::mainWindow() const
{
    return d->window;
}

DockContentWidget *DockContainer::contentWidget() const
{
    return d->content;
}

DockPanelWidget *DockContainer::panel(int partition) const
{
    return d->panels.value(partition);
}

int DockContainer::addView(int partition, QWidget *view, const QString &title, const QIcon &icon)
{
    DockPanelWidget *target = panel(partition);
    if (!target) {
        qCWarning(Internal::lcRibdock, "DockContainer::addView(): no partition %d", partition);
        return -1;
    }
    return target->addView(view, title, icon);
}

int DockContainer::tabifyView(int partition, QWidget *view, const QString &title, const QIcon &icon)
{
    DockPanelWidget *target = panel(partition);
    if (!target) {
        qCWarning(Internal::lcRibdock, "DockContainer::tabifyView(): no partition %d", partition);
        return -1;
    }
    return target->tabifyView(view, title, icon);
}

QMenu *DockContainer::layoutMenu() const
{
    return d->menu;
}

void DockContainer::restoreDefaultLayout()
{
    if (!d->window)
        return;
    for (int i = 0; i < PartitionCount; ++i) {
        DockPanelWidget *panel = d->panels.at(i);
        panel->setFloating(false);
        d->window->addDockWidget(Areas[i], panel);
        panel->show();
    }
    d->window->resizeDocks({d->panels.at(Left), d->panels.at(Right)}, {260, 280}, Qt::Horizontal);
    d->window->resizeDocks({d->panels.at(Bottom)}, {200}, Qt::Vertical);
}

QByteArray DockContainer::saveLayout() const
{
    if (!d->window)
        return {};
    QByteArray layout;
    QDataStream stream(&layout, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << LayoutMagic << LayoutVersion << d->window->saveState(LayoutVersion)
           << d->content->saveState();
    for (DockPanelWidget *panel : std::as_const(d->panels))
        stream << panel->content()->saveState();
    return layout;
}

bool DockContainer::restoreLayout(const QByteArray &layout)
{
    QDataStream stream(layout);
    stream.setVersion(QDataStream::Qt_6_4);
    quint32 magic = 0;
    qint32 version = 0;
    QByteArray windowState, contentState;
    QByteArray panelStates[PartitionCount];
    stream >> magic >> version >> windowState >> contentState;
    for (QByteArray &state : panelStates)
        stream >> state;
    // QMainWindow checks its own part whole before it changes anything.
    if (!d->window || magic != LayoutMagic || version != LayoutVersion
        || stream.status() != QDataStream::Ok || !stream.atEnd()
        || !d->window->restoreState(windowState, LayoutVersion)) {
        qCWarning(Internal::lcRibdock, "DockContainer::restoreLayout(): ignoring a corrupt or foreign layout");
        return false;
    }
    // Section sizes only fit while the sections are the same; a mismatch keeps the current ones.
    d->content->restoreState(contentState);
    for (int i = 0; i < PartitionCount; ++i)
        d->panels.at(i)->content()->restoreState(panelStates[i]);
    return true;
}

QString DockContainer::settingsKey()
{
    return QStringLiteral("Ribdock/dockLayout");
}

void DockContainer::saveState() const
{
    QSettings().setValue(settingsKey(), saveLayout());
}

bool DockContainer::updateState()
{
    const QVariant stored = QSettings().value(settingsKey());
    if (!stored.isValid())
        return false;
    return restoreLayout(stored.toByteArray());
}

} // namespace Velmora::Ribdock
