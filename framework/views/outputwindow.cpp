#include "views/outputwindow.h"

#include "views/outputtab.h"
#include "views/outputtabbar.h"
#include "views/outputtabwidget.h"

#include <QtCore/qmap.h>
#include <QtCore/qpointer.h>
#include <QtGui/qcursor.h>
#include <QtWidgets/qaction.h>
#include <QtWidgets/qmenu.h>

namespace Velmora::Framework {

struct OutputWindow::TabAttributes
{
    bool custom = false;
    QPointer<QWidget> widget;
    QString title;
    QString toolTip;
    QIcon icon;
};

class OutputWindowPrivate
{
public:
    using TabAttributes = OutputWindow::TabAttributes;

    TabAttributes *find(const QString &name) const
    {
        return name.isEmpty() ? nullptr : tabs.value(name);
    }
    OutputTab *page(const QString &name) const
    {
        const TabAttributes *attributes = find(name);
        return attributes ? qobject_cast<OutputTab *>(attributes->widget.data()) : nullptr;
    }
    bool showTab(TabAttributes *attributes);
    // The bar stays hidden while there is nothing to choose from.
    void updateTabBar() { tabWidget->tabBar()->setVisible(tabWidget->count() > 0); }

    QPointer<OutputTabWidget> tabWidget;
    QMap<QString, TabAttributes *> tabs;
    QMenu *contextMenu = nullptr;
    QAction *closeAction = nullptr;
    QPointer<QWidget> host;
};

bool OutputWindowPrivate::showTab(TabAttributes *attributes)
{
    if (!attributes || !attributes->widget)
        return false;
    int index = tabWidget->indexOf(attributes->widget);
    if (index < 0) {
        index = tabWidget->addTab(attributes->widget, attributes->icon, attributes->title);
        if (index >= 0 && !attributes->toolTip.isEmpty())
            tabWidget->setTabToolTip(index, attributes->toolTip);
        updateTabBar();
    }
    if (index < 0)
        return false;
    tabWidget->setCurrentIndex(index);
    return true;
}

OutputWindow::OutputWindow(QObject *parent)
    : QObject(parent)
    , d(new OutputWindowPrivate)
{
    setObjectName(QStringLiteral("MessageLog"));
    d->tabWidget = new OutputTabWidget;
    d->contextMenu = new QMenu(d->tabWidget);
    d->closeAction = new QAction(tr("&Close Tab"), this);
    d->closeAction->setToolTip(tr("Close Tab"));
    d->closeAction->setStatusTip(tr("Close the output tab"));
    d->contextMenu->addAction(d->closeAction);
    d->tabWidget->tabBar()->hide();
    connect(d->tabWidget.data(), &OutputTabWidget::contextMenuTriggered, this,
            &OutputWindow::showContextMenu);
    connect(d->closeAction, &QAction::triggered, this, &OutputWindow::closeCurrentTab);
}

OutputWindow::~OutputWindow()
{
    qDeleteAll(d->tabs);
    if (d->tabWidget && !d->tabWidget->parent())
        delete d->tabWidget.data();
}

OutputTabWidget *OutputWindow::tabWidget() const
{
    return d->tabWidget.data();
}

int OutputWindow::addTab(const QString &name, const QIcon &icon, const QString &title,
                         QWidget *widget)
{
    if (d->tabs.contains(name)) {
        TabAttributes *attributes = d->tabs.value(name);
        return d->showTab(attributes) ? d->tabWidget->indexOf(attributes->widget) : -1;
    }
    auto *attributes = new OutputWindow::TabAttributes;
    attributes->custom = widget != nullptr;
    attributes->widget = widget ? widget : new OutputTab;
    attributes->title = title;
    attributes->icon = icon.isNull() ? QIcon(QStringLiteral(":/framework/images/output_tab.png"))
                                     : icon;
    const int index = d->tabWidget->addTab(attributes->widget, attributes->icon, title);
    if (index < 0) {
        if (!attributes->custom)
            delete attributes->widget.data();
        delete attributes;
        return index;
    }
    d->tabs.insert(name, attributes);
    d->tabWidget->setCurrentIndex(index);
    d->updateTabBar();
    return index;
}

int OutputWindow::addTab(const QString &name, const QString &title, QWidget *widget)
{
    return addTab(name, QIcon(), title, widget);
}

bool OutputWindow::showTab(const QString &name)
{
    return d->showTab(d->find(name));
}

void OutputWindow::removeTab(const QString &name)
{
    const TabAttributes *attributes = d->find(name);
    if (!attributes || !attributes->widget)
        return;
    closeTab(d->tabWidget->indexOf(attributes->widget));
}

void OutputWindow::removeAllTabs()
{
    const QStringList names = d->tabs.keys();
    for (const QString &name : names)
        removeTab(name);
}

void OutputWindow::closeTab(int index)
{
    if (index < 0 || index >= d->tabWidget->count())
        return;
    d->tabWidget->removeTab(index);
    d->updateTabBar();
}

int OutputWindow::findTab(const QString &name) const
{
    const TabAttributes *attributes = d->find(name);
    if (!attributes || !attributes->widget)
        return -1;
    return d->tabWidget->indexOf(attributes->widget);
}

QString OutputWindow::activeTab() const
{
    const QWidget *current = d->tabWidget->currentWidget();
    if (!current)
        return QString();
    for (auto it = d->tabs.cbegin(); it != d->tabs.cend(); ++it) {
        if (it.value()->widget == current)
            return it.key();
    }
    return QString();
}

bool OutputWindow::isCustom(const QString &name) const
{
    const TabAttributes *attributes = d->find(name);
    return attributes && attributes->custom;
}

QWidget *OutputWindow::widgetOf(const QString &name) const
{
    const TabAttributes *attributes = d->find(name);
    return attributes ? attributes->widget.data() : nullptr;
}

void OutputWindow::output(const QString &name, const QString &text)
{
    if (OutputTab *page = d->page(name))
        page->output(text);
}

void OutputWindow::clearTab(const QString &name)
{
    if (OutputTab *page = d->page(name))
        page->clear();
}

void OutputWindow::setTabIcon(const QString &name, const QIcon &icon)
{
    TabAttributes *attributes = d->find(name);
    if (!attributes)
        return;
    attributes->icon = icon;
    const int index = findTab(name);
    if (index >= 0)
        d->tabWidget->setTabIcon(index, icon);
}

void OutputWindow::setTabToolTip(const QString &name, const QString &toolTip)
{
    TabAttributes *attributes = d->find(name);
    if (!attributes)
        return;
    attributes->toolTip = toolTip;
    const int index = findTab(name);
    if (index >= 0)
        d->tabWidget->setTabToolTip(index, toolTip);
}

void OutputWindow::setWidget(QWidget *widget)
{
    d->host = widget;
}

QWidget *OutputWindow::widget() const
{
    return d->host.data();
}

void OutputWindow::showContextMenu(int index)
{
    if (index < 0 || index >= d->tabWidget->count())
        return;
    d->contextMenu->exec(QCursor::pos());
}

void OutputWindow::closeCurrentTab()
{
    closeTab(d->tabWidget->currentIndex());
}

} // namespace Velmora::Framework
