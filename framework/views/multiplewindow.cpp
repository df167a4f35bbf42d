#include "views/multiplewindow.h"

#include "core/lazyicon.h"
#include "model/viewitem.h"
#include "types/itemtype.h"
#include "views/projectfrontpage.h"

#include <QtCore/qpointer.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qtabbar.h>
#include <QtWidgets/qtabwidget.h>

namespace Velmora::Framework {

class MultipleWindowPrivate
{
public:
    struct View
    {
        QPointer<QWidget> widget;
        QIcon icon;
        QString title;
        bool visible = true;
        // Set for the editor of an item; the tab then follows the item.
        QPointer<ViewItem> item;
    };

    explicit MultipleWindowPrivate(MultipleWindow *window)
        : q(window)
    {
    }

    View *at(int index) { return index >= 0 && index < views.size() ? &views[index] : nullptr; }
    int indexOf(const QWidget *widget) const
    {
        for (int index = 0; index < views.size(); ++index) {
            if (widget && views.at(index).widget == widget)
                return index;
        }
        return -1;
    }
    // Where a view's tab goes: after the front page and the shown views before it.
    int tabPosition(int index) const
    {
        int position = frontPageVisible ? 1 : 0;
        for (int before = 0; before < index; ++before) {
            if (views.at(before).visible && views.at(before).widget)
                ++position;
        }
        return position;
    }
    void showTab(int index);
    QString titleOf(const View &view) const;
    void closeTab(int tab);
    void currentTabChanged();

    MultipleWindow *q;
    QTabWidget *tabs = nullptr;
    ProjectFrontPage *frontPage = nullptr;
    bool frontPageVisible = false;
    QList<View> views;
};

void MultipleWindowPrivate::showTab(int index)
{
    View &view = views[index];
    if (tabs->indexOf(view.widget) >= 0)
        return;
    const int tab = tabs->insertTab(tabPosition(index), view.widget, view.icon, titleOf(view));
    tabs->setTabToolTip(tab, view.item ? view.item->getItemPath() : QString());
}

QString MultipleWindowPrivate::titleOf(const View &view) const
{
    QString title = view.title;
    if (view.item) {
        title = view.widget->windowTitle();
        if (title.isEmpty())
            title = view.item->getDispName();
        // The usual "[*]" placeholder, filled the way QWidget fills window titles.
        const ItemType *type = view.item->getType();
        const bool modified = view.widget->isWindowModified()
                              || (type && type->isItemModified(view.item));
        if (title.contains(QLatin1String("[*]")))
            title.replace(QLatin1String("[*]"), modified ? QStringLiteral("*") : QString());
        else if (modified)
            title += QLatin1Char('*');
    }
    return title;
}

void MultipleWindowPrivate::closeTab(int tab)
{
    QWidget *widget = tabs->widget(tab);
    if (widget == frontPage) {
        q->setFrontPageVisible(false);
        return;
    }
    const int index = indexOf(widget);
    if (index < 0)
        return;
    // Editors go back to their factory, which opens them again; views only hide.
    if (views.at(index).item)
        q->removeView(index);
    else
        q->setViewVisible(index, false);
}

void MultipleWindowPrivate::currentTabChanged()
{
    QWidget *widget = tabs->currentWidget();
    const int index = indexOf(widget);
    ViewItem *item = index >= 0 ? views.at(index).item.data() : nullptr;
    emit q->currentViewChanged(index >= 0 ? widget : nullptr);
    emit q->currentItemChanged(item);
    emit q->statusChanged(index >= 0 ? titleOf(views.at(index)) : QString());
}

MultipleWindow::MultipleWindow(QWidget *parent)
    : QWidget(parent)
    , d(new MultipleWindowPrivate(this))
{
    setObjectName(QStringLiteral("MultipleWindow"));
    d->tabs = new QTabWidget(this);
    d->tabs->setDocumentMode(true);
    d->tabs->setTabsClosable(true);
    d->tabs->setMovable(false);
    d->tabs->setUsesScrollButtons(true);
    d->tabs->tabBar()->setElideMode(Qt::ElideRight);
    d->frontPage = new ProjectFrontPage(this);
    d->frontPage->hide();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->tabs);

    connect(d->tabs, &QTabWidget::tabCloseRequested, this, [this](int tab) { d->closeTab(tab); });
    connect(d->tabs, &QTabWidget::currentChanged, this, [this] { d->currentTabChanged(); });
    connect(d->frontPage, &ProjectFrontPage::newProjectRequested, this,
            &MultipleWindow::signalNewProject);
    connect(d->frontPage, &ProjectFrontPage::openProjectRequested, this,
            [this] { emit signalOpenProject(QString()); });
    connect(d->frontPage, &ProjectFrontPage::openSolutionRequested, this,
            &MultipleWindow::signalOpenSolution);
}

MultipleWindow::~MultipleWindow()
{
    for (const MultipleWindowPrivate::View &view : std::as_const(d->views)) {
        if (!view.widget)
            continue;
        // The views die with the tabs, after the private part this window listens with.
        disconnect(view.widget, &QObject::destroyed, this, nullptr);
        // Editors belong to their factories, which may outlive this window.
        if (view.item) {
            d->tabs->removeTab(d->tabs->indexOf(view.widget));
            view.widget->setParent(nullptr);
        }
    }
}

int MultipleWindow::addView(QWidget *widget, const QIcon &icon, const QString &title)
{
    if (!widget)
        return -1;
    int index = d->indexOf(widget);
    if (index < 0) {
        d->views.append({widget, icon, title, true, nullptr});
        index = d->views.size() - 1;
        // A view deleted elsewhere leaves the list; later indexes move up.
        connect(widget, &QObject::destroyed, this, [this](QObject *gone) {
            for (int at = 0; at < d->views.size(); ++at) {
                if (!d->views.at(at).widget || d->views.at(at).widget == gone) {
                    d->views.removeAt(at);
                    --at;
                }
            }
        });
    }
    d->views[index].visible = true;
    d->showTab(index);
    d->tabs->setCurrentWidget(widget);
    return index;
}

int MultipleWindow::viewCount() const
{
    return d->views.size();
}

int MultipleWindow::indexOf(QWidget *widget) const
{
    return d->indexOf(widget);
}

bool MultipleWindow::isViewVisible(int index) const
{
    const auto *view = d->at(index);
    return view && view->visible;
}

void MultipleWindow::setViewVisible(int index, bool visible)
{
    MultipleWindowPrivate::View *view = d->at(index);
    if (!view || !view->widget)
        return;
    view->visible = visible;
    if (visible)
        d->showTab(index);
    else if (const int tab = d->tabs->indexOf(view->widget); tab >= 0)
        d->tabs->removeTab(tab);
}

void MultipleWindow::setCurrentIndex(int index)
{
    MultipleWindowPrivate::View *view = d->at(index);
    if (!view || !view->widget)
        return;
    setViewVisible(index, true);
    d->tabs->setCurrentWidget(view->widget);
}

QWidget *MultipleWindow::removeView(int index)
{
    MultipleWindowPrivate::View *view = d->at(index);
    if (!view)
        return nullptr;
    QWidget *widget = view->widget.data();
    d->views.removeAt(index);
    if (widget) {
        // Also the title signal of an editor, which a later opening connects again.
        disconnect(widget, nullptr, this, nullptr);
        if (const int tab = d->tabs->indexOf(widget); tab >= 0)
            d->tabs->removeTab(tab);
        widget->hide();
        widget->setParent(nullptr);
    }
    return widget;
}

QWidget *MultipleWindow::view(int index) const
{
    const auto *view = d->at(index);
    return view ? view->widget.data() : nullptr;
}

void MultipleWindow::disposeAllViews()
{
    const QList<MultipleWindowPrivate::View> views = std::exchange(d->views, {});
    for (const MultipleWindowPrivate::View &view : views) {
        if (!view.widget)
            continue;
        disconnect(view.widget, &QObject::destroyed, this, nullptr);
        if (const int tab = d->tabs->indexOf(view.widget); tab >= 0)
            d->tabs->removeTab(tab);
        // The widget may be the one whose signal led here.
        view.widget->hide();
        view.widget->deleteLater();
    }
}

void MultipleWindow::setFrontPageVisible(bool visible)
{
    if (d->frontPageVisible == visible)
        return;
    d->frontPageVisible = visible;
    if (visible) {
        d->tabs->insertTab(0, d->frontPage, lazyIcon(QStringLiteral(":/qelshared/images/16/solution.svg")),
                           tr("Start Page"));
        d->tabs->setCurrentIndex(0);
    } else {
        d->tabs->removeTab(d->tabs->indexOf(d->frontPage));
        d->frontPage->hide();
    }
}

bool MultipleWindow::isFrontPageVisible() const
{
    return d->frontPageVisible;
}

ProjectFrontPage *MultipleWindow::frontPage() const
{
    return d->frontPage;
}

QWidget *MultipleWindow::editItem(ViewItem *item, const QString &factoryId,
                                  const QList<EditorInstruction> &instructions)
{
    if (!item)
        return nullptr;
    for (int index = 0; index < d->views.size(); ++index) {
        if (d->views.at(index).item == item && d->views.at(index).widget) {
            setCurrentIndex(index);
            return d->views.at(index).widget;
        }
    }
    emit progressChanged(tr("Opening %1...").arg(item->getDispName()));
    QWidget *editor = item->getEditor(factoryId, instructions);
    emit progressChanged(QString());
    if (!editor) {
        emit statusChanged(tr("No editor can open %1").arg(item->getDispName()));
        return nullptr;
    }
    // The factory hands out the editor it already made when the item is opened again.
    const int existing = d->indexOf(editor);
    if (existing >= 0) {
        d->views[existing].item = item;
        setCurrentIndex(existing);
        return editor;
    }
    const int index = addView(editor, item->getIcon(0), item->getDispName());
    d->views[index].item = item;
    updateItem(item);
    connect(editor, &QWidget::windowTitleChanged, this, [this, item] { updateItem(item); });
    d->currentTabChanged();
    return editor;
}

ViewItem *MultipleWindow::currentItem() const
{
    const int index = d->indexOf(d->tabs->currentWidget());
    return index >= 0 ? d->views.at(index).item.data() : nullptr;
}

void MultipleWindow::updateItem(ViewItem *item)
{
    for (const MultipleWindowPrivate::View &view : std::as_const(d->views)) {
        if (!item || view.item != item || !view.widget)
            continue;
        const int tab = d->tabs->indexOf(view.widget);
        if (tab < 0)
            continue;
        d->tabs->setTabText(tab, d->titleOf(view));
        d->tabs->setTabIcon(tab, item->getIcon(0));
        d->tabs->setTabToolTip(tab, item->getItemPath());
    }
}

} // namespace Velmora::Framework
