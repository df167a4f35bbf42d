#include "ribdockagent.h"

#include "addressbar.h"
#include "dockcontainer.h"
#include "ribbonbar.h"
#include "ribbonpage.h"
#include "ribdocklog_p.h"

#include <QtCore/qhash.h>
#include <QtCore/qpointer.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qmainwindow.h>

namespace Velmora::Ribdock {

class RibdockAgentPrivate
{
public:
    QPointer<QMainWindow> window;
    RibbonBar *ribbon = nullptr;
    AddressBar *address = nullptr;
    DockContainer *docks = nullptr;
    QHash<const RibbonPage *, uint> bindings;
    QHash<uint, QByteArray> layouts;
    QPointer<RibbonPage> current;
    // Owns the top widgets only when no window took them.
    std::unique_ptr<QWidget> orphan;

    void switchTo(RibbonPage *page)
    {
        if (current && bindings.contains(current))
            layouts.insert(bindings.value(current), docks->saveLayout());
        current = page;
        if (!page || !bindings.contains(page))
            return;
        const QByteArray kept = layouts.value(bindings.value(page));
        if (!kept.isEmpty())
            docks->restoreLayout(kept);
    }
};

RibdockAgent::RibdockAgent(QMainWindow *window)
    : QObject(window)
    , d(std::make_unique<RibdockAgentPrivate>())
{
    d->window = window;
    auto *top = new QWidget(window);
    auto *layout = new QVBoxLayout(top);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    d->ribbon = new RibbonBar(top);
    d->address = new AddressBar(top);
    layout->addWidget(d->ribbon);
    layout->addWidget(d->address);
    d->docks = new DockContainer(window);
    if (window)
        window->setMenuWidget(top);
    else
        d->orphan.reset(top);

    d->current = d->ribbon->page(d->ribbon->currentIndex());
    connect(d->ribbon, &RibbonBar::currentPageChanged, this,
            [this](int index) { d->switchTo(d->ribbon->page(index)); });
}

RibdockAgent::~RibdockAgent() = default;

QMainWindow *RibdockAgent::mainWindow() const
{
    return d->window;
}

RibbonBar *RibdockAgent::ribbonBar() const
{
    return d->ribbon;
}

AddressBar *RibdockAgent::addressBar() const
{
    return d->address;
}

DockContainer *RibdockAgent::dockContainer() const
{
    return d->docks;
}

void RibdockAgent::bindRibbonPagesAndDockWorkspace(RibbonPage *page, uint workspace)
{
    if (!page || d->ribbon->indexOf(page) < 0) {
        qCWarning(Internal::lcRibdock, "RibdockAgent::bindRibbonPagesAndDockWorkspace(): not a page of this ribbon");
        return;
    }
    d->bindings.insert(page, workspace);
    if (!d->current)
        d->current = d->ribbon->page(d->ribbon->currentIndex());
}

qint64 RibdockAgent::workspaceOf(const RibbonPage *page) const
{
    const auto it = d->bindings.constFind(page);
    return it == d->bindings.constEnd() ? -1 : qint64(it.value());
}

} // namespace Velmora::Ribdock
