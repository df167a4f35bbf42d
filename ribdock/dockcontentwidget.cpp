#include "dockcontentwidget.h"

#include "ribdocklog_p.h"

#include <QtCore/qpointer.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qsplitter.h>
#include <QtWidgets/qstyle.h>
#include <QtWidgets/qtabbar.h>
#include <QtWidgets/qtabwidget.h>

namespace Velmora::Ribdock {

class DockContentWidgetPrivate
{
public:
    explicit DockContentWidgetPrivate(DockContentWidget *q) : q(q) {}

    DockContentWidget *q;
    QSplitter *splitter = nullptr;
    QList<QTabWidget *> sections;
    QList<QWidget *> views;
    QPointer<QWidget> current;
    bool closable = false;
    bool compact = false;
    // Views whose tab keeps no close button while the others have one.
    QList<const QWidget *> pinned;

    void applyLook(QTabWidget *section) const
    {
        section->setTabsClosable(closable);
        for (const QWidget *view : pinned)
            unpin(section, view);
        section->setTabPosition(compact ? QTabWidget::South : QTabWidget::North);
        // Beside another section, a lone view needs its tab as its name.
        section->setTabBarAutoHide(compact && sections.size() < 2);
    }

    // Takes the close button off view's tab, if the view is in section.
    static void unpin(QTabWidget *section, const QWidget *view)
    {
        const int index = section->indexOf(const_cast<QWidget *>(view));
        if (index < 0 || !section->tabsClosable())
            return;
        QTabBar *bar = section->tabBar();
        const auto side = QTabBar::ButtonPosition(
            bar->style()->styleHint(QStyle::SH_TabBar_CloseButtonPosition, nullptr, bar));
        if (QWidget *button = bar->tabButton(index, side)) {
            bar->setTabButton(index, side, nullptr);
            button->deleteLater();
        }
    }

    QTabWidget *sectionWidget(const QWidget *view) const
    {
        for (QTabWidget *section : sections) {
            if (section->indexOf(const_cast<QWidget *>(view)) >= 0)
                return section;
        }
        return nullptr;
    }

    QTabWidget *openSection()
    {
        auto *section = new QTabWidget(splitter);
        section->setDocumentMode(true);
        section->setMovable(true);
        section->hide();
        splitter->addWidget(section);
        sections.append(section);
        for (QTabWidget *each : std::as_const(sections))
            applyLook(each);
        QObject::connect(section, &QTabWidget::currentChanged, q, [this, section](int index) {
            if (index >= 0)
                makeCurrent(section->widget(index));
        });
        QObject::connect(section, &QTabWidget::tabCloseRequested, q, [this, section](int index) {
            QWidget *view = section->widget(index);
            // The view may refuse; one that deletes itself on close does so later.
            if (!view->close())
                return;
            remove(view);
            emit q->viewClosed(view);
        });
        return section;
    }

    void makeCurrent(QWidget *view)
    {
        if (view == current)
            return;
        current = view;
        emit q->currentViewChanged(view);
    }

    void remove(QWidget *view)
    {
        if (QTabWidget *section = sectionWidget(view)) {
            section->removeTab(section->indexOf(view));
            section->setVisible(section->count() > 0);
        }
        views.removeOne(view);
        if (current == view)
            makeCurrent(nullptr);
    }

    int insert(QWidget *view, const QString &title, const QIcon &icon, QTabWidget *section)
    {
        views.append(view);
        QObject::connect(view, &QObject::destroyed, q, [this, view] {
            views.removeOne(view);
            pinned.removeOne(view);
            for (QTabWidget *s : std::as_const(sections))
                s->setVisible(s->count() > 0);
        });
        section->setCurrentIndex(section->addTab(view, icon, title));
        if (pinned.contains(view))
            unpin(section, view);
        section->show();
        makeCurrent(view);
        return int(views.size()) - 1;
    }
};

DockContentWidget::DockContentWidget(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<DockContentWidgetPrivate>(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    d->splitter = new QSplitter(Qt::Vertical, this);
    d->splitter->setChildrenCollapsible(false);
    layout->addWidget(d->splitter);
}

DockContentWidget::~DockContentWidget()
{
    // The views die with the splitter; nothing is left to tell.
    for (QWidget *view : std::as_const(d->views))
        disconnect(view, &QObject::destroyed, this, nullptr);
}

int DockContentWidget::addView(QWidget *view, const QString &title, const QIcon &icon)
{
    if (!view) {
        qCWarning(Internal::lcRibdock, "DockContentWidget::addView(): null view");
        return -1;
    }
    if (d->views.contains(view)) {
        setCurrentView(view);
        return indexOf(view);
    }
    return d->insert(view, title, icon, d->openSection());
}

int DockContentWidget::tabifyView(QWidget *view, const QString &title, const QIcon &icon, int section)
{
    if (!view) {
        qCWarning(Internal::lcRibdock, "DockContentWidget::tabifyView(): null view");
        return -1;
    }
    if (d->views.contains(view)) {
        setCurrentView(view);
        return indexOf(view);
    }
    // A section past the end is the last one: tabs are never put beside empty sections.
    if (sectionCount() == 0)
        d->openSection();
    if (section < 0 || section >= sectionCount())
        section = sectionCount() - 1;
    return d->insert(view, title, icon, d->sections.at(section));
}

int DockContentWidget::viewCount() const
{
    return int(d->views.size());
}

QWidget *DockContentWidget::view(int index) const
{
    return d->views.value(index);
}

int DockContentWidget::indexOf(const QWidget *view) const
{
    return int(d->views.indexOf(const_cast<QWidget *>(view)));
}

int DockContentWidget::sectionCount() const
{
    return int(d->sections.size());
}

int DockContentWidget::sectionOf(const QWidget *view) const
{
    return int(d->sections.indexOf(d->sectionWidget(view)));
}

QWidget *DockContentWidget::currentView() const
{
    return d->current;
}

void DockContentWidget::setCurrentView(QWidget *view)
{
    if (QTabWidget *section = d->sectionWidget(view)) {
        section->setCurrentWidget(view);
        d->makeCurrent(view);
    }
}

QString DockContentWidget::viewTitle(const QWidget *view) const
{
    QTabWidget *section = d->sectionWidget(view);
    return section ? section->tabText(section->indexOf(const_cast<QWidget *>(view))) : QString();
}

void DockContentWidget::setViewTitle(QWidget *view, const QString &title)
{
    if (QTabWidget *section = d->sectionWidget(view))
        section->setTabText(section->indexOf(view), title);
}

void DockContentWidget::setViewIcon(QWidget *view, const QIcon &icon)
{
    if (QTabWidget *section = d->sectionWidget(view))
        section->setTabIcon(section->indexOf(view), icon);
}

QWidget *DockContentWidget::takeView(QWidget *view)
{
    if (!d->views.contains(view))
        return nullptr;
    disconnect(view, &QObject::destroyed, this, nullptr);
    d->remove(view);
    view->setParent(nullptr);
    return view;
}

Qt::Orientation DockContentWidget::orientation() const
{
    return d->splitter->orientation();
}

void DockContentWidget::setOrientation(Qt::Orientation orientation)
{
    d->splitter->setOrientation(orientation);
}

bool DockContentWidget::tabsClosable() const
{
    return d->closable;
}

void DockContentWidget::setTabsClosable(bool closable)
{
    d->closable = closable;
    for (QTabWidget *section : std::as_const(d->sections))
        d->applyLook(section);
}

void DockContentWidget::setViewClosable(QWidget *view, bool closable)
{
    d->pinned.removeOne(view);
    if (!closable && view)
        d->pinned.append(view);
    if (QTabWidget *section = d->sectionWidget(view))
        d->applyLook(section);
}

bool DockContentWidget::isCompact() const
{
    return d->compact;
}

void DockContentWidget::setCompact(bool compact)
{
    d->compact = compact;
    for (QTabWidget *section : std::as_const(d->sections))
        d->applyLook(section);
}

QByteArray DockContentWidget::saveState() const
{
    return d->splitter->saveState();
}

bool DockContentWidget::restoreState(const QByteArray &state)
{
    return d->splitter->restoreState(state);
}

} // namespace Velmora::Ribdock
