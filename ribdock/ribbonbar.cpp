#include "ribbonbar.h"

#include "ribbonbutton_p.h"
#include "ribboncorner.h"
#include "ribbonpage.h"
#include "ribdocklog_p.h"

#include <QtCore/qtimer.h>
#include <QtGui/qaction.h>
#include <QtGui/qevent.h>
#include <QtGui/qpainter.h>
#include <QtWidgets/qapplication.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qframe.h>
#include <QtWidgets/qstackedwidget.h>
#include <QtWidgets/qtabbar.h>

#include <iterator>

namespace Velmora::Ribdock {

namespace {

QColor stripColor(const QPalette &palette)
{
    return palette.color(QPalette::Window).lighter(105);
}

QColor lineColor(const QPalette &palette)
{
    QColor color = palette.color(QPalette::Mid);
    color.setAlpha(170);
    return color;
}

// Tabs drawn the ribbon's way: the current tab opens into the strip below it, contextual
// tabs carry a band and a tint of their colour.
class RibbonTabBar : public QTabBar
{
public:
    explicit RibbonTabBar(QWidget *parent)
        : QTabBar(parent)
    {
        setDrawBase(false);
        setExpanding(false);
        setElideMode(Qt::ElideNone);
        setFocusPolicy(Qt::NoFocus);
        setMouseTracking(true);
    }

    bool connected = true;

protected:
    QSize tabSizeHint(int index) const override
    {
        const QFontMetrics metrics = fontMetrics();
        return {metrics.horizontalAdvance(tabText(index)) + 26, metrics.height() + 12};
    }

    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        QTabBar::mouseMoveEvent(event);
        update();
    }

    void leaveEvent(QEvent *event) override
    {
        QTabBar::leaveEvent(event);
        update();
    }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QPoint cursor = mapFromGlobal(QCursor::pos());
        const QColor line = lineColor(palette());
        for (int i = 0; i < count(); ++i) {
            if (!isTabVisible(i))
                continue;
            const QRect r = tabRect(i).adjusted(1, 2, -1, 0);
            const QColor context = tabData(i).value<QColor>();
            const bool current = i == currentIndex();
            const bool hovered = underMouse() && r.contains(cursor);
            if (context.isValid()) {
                QColor tint = context;
                tint.setAlpha(current ? 0 : 38);
                painter.fillRect(r, tint);
            }
            if (current) {
                painter.fillRect(r, connected ? stripColor(palette()) : palette().color(QPalette::Window));
                painter.setPen(line);
                painter.drawLine(r.bottomLeft(), r.topLeft());
                painter.drawLine(r.topLeft(), r.topRight());
                painter.drawLine(r.topRight(), r.bottomRight());
                if (!connected)
                    painter.drawLine(r.bottomLeft(), r.bottomRight());
            } else if (hovered && isTabEnabled(i)) {
                QColor hover = palette().color(QPalette::Highlight);
                hover.setAlpha(28);
                painter.fillRect(r.adjusted(1, 1, -1, 0), hover);
            }
            if (context.isValid())
                painter.fillRect(QRect(r.left(), r.top(), r.width(), 3), context);
            QColor text = context.isValid() ? context.darker(150) : palette().color(QPalette::WindowText);
            if (!isTabEnabled(i))
                text = palette().color(QPalette::Disabled, QPalette::WindowText);
            painter.setPen(text);
            painter.drawText(r.adjusted(0, 2, 0, 0), Qt::AlignCenter, tabText(i));
        }
    }
};

const QColor contextPalette[] = {QColor(0xd9, 0x8c, 0x1a), QColor(0x3c, 0x94, 0x4f),
                                 QColor(0x82, 0x5a, 0xc4), QColor(0xc8, 0x4b, 0x3c),
                                 QColor(0x28, 0x86, 0xa8)};

} // namespace

class RibbonBarPrivate
{
public:
    RibbonTabBar *tabs = nullptr;
    QStackedWidget *stack = nullptr;
    RibbonCorner *corner = nullptr;
    QAction *fold = nullptr;
    QVBoxLayout *layout = nullptr;
    // Shows the current page over the window while the ribbon is folded.
    QFrame *popup = nullptr;
    // Waits out a double-click, which unfolds the ribbon instead.
    QTimer popupDelay;
    bool minimized = false;
    int contextualCount = 0;

    void showPopup(RibbonBar *bar)
    {
        if (!popup) {
            popup = new QFrame(bar, Qt::Popup);
            popup->setFrameShape(QFrame::Box);
            QPalette palette = popup->palette();
            palette.setColor(QPalette::Window, stripColor(bar->palette()));
            palette.setColor(QPalette::WindowText, lineColor(bar->palette()));
            popup->setPalette(palette);
            popup->setAutoFillBackground(true);
            auto *popupLayout = new QVBoxLayout(popup);
            popupLayout->setContentsMargins(1, 1, 1, 1);
            // No size limits on the top-level: the strip's fixed height sizes it.
            popupLayout->setSizeConstraint(QLayout::SetNoConstraint);
            popup->installEventFilter(bar);
        }
        popup->layout()->addWidget(stack);
        stack->show();
        const QPoint origin = bar->mapToGlobal(QPoint(0, tabs->geometry().bottom() + 1));
        popup->setGeometry(QRect(origin, QSize(bar->width(), stack->height() + 2)));
        popup->show();
    }

    void closePopup()
    {
        if (popup && popup->isVisible())
            popup->hide();
    }

    void updateFoldAction()
    {
        fold->setIcon(QIcon(minimized ? QStringLiteral(":/qelshared/images/16/ribbonUnfold.svg")
                                      : QStringLiteral(":/qelshared/images/16/ribbonFold.svg")));
        fold->setText(minimized ? RibbonBar::tr("Expand the Ribbon") : RibbonBar::tr("Collapse the Ribbon"));
        fold->setToolTip(fold->text() + RibbonBar::tr(" (or double-click a tab)"));
    }
};

RibbonBar::RibbonBar(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<RibbonBarPrivate>())
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 2, 0, 0);
    layout->setSpacing(0);
    d->layout = layout;

    auto *row = new QHBoxLayout;
    row->setContentsMargins(4, 0, 0, 0);
    row->setSpacing(0);
    d->tabs = new RibbonTabBar(this);
    row->addWidget(d->tabs, 0, Qt::AlignBottom);
    row->addStretch(1);
    d->corner = new RibbonCorner(this);
    row->addWidget(d->corner, 0, Qt::AlignVCenter);
    layout->addLayout(row);

    d->stack = new QStackedWidget(this);
    // One line of buttons, the group titles and the margins around them.
    const QFontMetrics metrics = fontMetrics();
    d->stack->setFixedHeight(Internal::RibbonButton::largeHeight(metrics) + metrics.height() + 10);
    layout->addWidget(d->stack);

    d->fold = new QAction(this);
    d->updateFoldAction();
    d->corner->addAction(d->fold);
    connect(d->fold, &QAction::triggered, this, [this] { setMinimized(!d->minimized); });

    connect(d->tabs, &QTabBar::currentChanged, this, [this](int index) {
        d->stack->setCurrentIndex(index);
        update();
        emit currentPageChanged(index);
    });
    connect(d->tabs, &QTabBar::tabBarClicked, this, [this](int index) {
        if (!d->minimized || index < 0)
            return;
        if (d->popup && d->popup->isVisible() && index == currentIndex()) {
            d->closePopup();
            return;
        }
        d->tabs->setCurrentIndex(index);
        d->popupDelay.start();
    });
    d->popupDelay.setSingleShot(true);
    d->popupDelay.setInterval(QApplication::doubleClickInterval());
    connect(&d->popupDelay, &QTimer::timeout, this, [this] { d->showPopup(this); });
    connect(d->tabs, &QTabBar::tabBarDoubleClicked, this, [this](int index) {
        d->popupDelay.stop();
        if (index >= 0)
            setMinimized(!d->minimized);
    });
}

RibbonBar::~RibbonBar()
{
    // Children go after d does; an open popup hidden on its way out must not reach the filter.
    if (d->popup)
        d->popup->removeEventFilter(this);
}

RibbonPage *RibbonBar::addPage(const QString &title)
{
    return insertPage(title, QColor());
}

RibbonPage *RibbonBar::addContextualPage(const QString &title, const QColor &color)
{
    const int count = int(std::size(contextPalette));
    return insertPage(title, color.isValid() ? color : contextPalette[d->contextualCount++ % count]);
}

RibbonPage *RibbonBar::insertPage(const QString &title, const QColor &color)
{
    auto *page = new RibbonPage(title, d->stack);
    page->setContextColor(color);
    d->stack->addWidget(page);
    const int index = d->tabs->addTab(title);
    d->tabs->setTabData(index, color);
    connect(page, &RibbonPage::titleChanged, this, [this, page](const QString &text) {
        d->tabs->setTabText(indexOf(page), text);
    });
    connect(page, &RibbonPage::contextColorChanged, this, [this, page](const QColor &context) {
        d->tabs->setTabData(indexOf(page), context);
        d->tabs->update();
    });
    return page;
}

int RibbonBar::pageCount() const
{
    return d->stack->count();
}

RibbonPage *RibbonBar::page(int index) const
{
    return qobject_cast<RibbonPage *>(d->stack->widget(index));
}

int RibbonBar::indexOf(const RibbonPage *page) const
{
    return d->stack->indexOf(const_cast<RibbonPage *>(page));
}

bool RibbonBar::isPageVisible(int index) const
{
    return index >= 0 && index < pageCount() && d->tabs->isTabVisible(index);
}

void RibbonBar::setPageVisible(int index, bool visible)
{
    if (index < 0 || index >= pageCount()) {
        qCWarning(Internal::lcRibdock, "RibbonBar::setPageVisible(): no page %d", index);
        return;
    }
    // Left of the page first, as contextual pages follow the ones they belong to; picked
    // before hiding, since QTabBar would step through every page right of it.
    if (!visible && index == currentIndex()) {
        for (int step = 1; step < pageCount(); ++step) {
            if (isPageVisible(index - step)) {
                d->tabs->setCurrentIndex(index - step);
                break;
            }
            if (isPageVisible(index + step)) {
                d->tabs->setCurrentIndex(index + step);
                break;
            }
        }
    }
    d->tabs->setTabVisible(index, visible);
    update();
}

int RibbonBar::currentIndex() const
{
    return d->tabs->currentIndex();
}

void RibbonBar::setCurrentIndex(int index)
{
    if (!isPageVisible(index)) {
        qCWarning(Internal::lcRibdock, "RibbonBar::setCurrentIndex(): no visible page %d", index);
        return;
    }
    d->tabs->setCurrentIndex(index);
}

bool RibbonBar::isMinimized() const
{
    return d->minimized;
}

void RibbonBar::setMinimized(bool minimized)
{
    if (minimized == d->minimized)
        return;
    d->minimized = minimized;
    d->popupDelay.stop();
    d->closePopup();
    d->stack->setVisible(!minimized);
    d->tabs->connected = !minimized;
    d->updateFoldAction();
    update();
    emit minimizedChanged(minimized);
}

RibbonCorner *RibbonBar::cornerWidget() const
{
    return d->corner;
}

void RibbonBar::actionEvent(QActionEvent *event)
{
    // A command picked from the folded ribbon's popup closes it, as a menu would.
    if (event->type() == QEvent::ActionAdded)
        connect(event->action(), &QAction::triggered, this, [this] { d->closePopup(); });
    else if (event->type() == QEvent::ActionRemoved)
        disconnect(event->action(), &QAction::triggered, this, nullptr);
    QWidget::actionEvent(event);
}

bool RibbonBar::eventFilter(QObject *watched, QEvent *event)
{
    // The strip goes back under the tabs once the popup is gone, however it closed.
    if (watched == d->popup && event->type() == QEvent::Hide) {
        d->layout->addWidget(d->stack);
        d->stack->setVisible(!d->minimized);
    }
    return QWidget::eventFilter(watched, event);
}

void RibbonBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QPalette pal = palette();
    painter.fillRect(rect(), pal.color(QPalette::Window));
    painter.setPen(lineColor(pal));
    if (d->minimized) {
        painter.drawLine(0, height() - 1, width(), height() - 1);
        return;
    }
    const QRect strip = d->stack->geometry();
    painter.fillRect(strip, stripColor(pal));
    // The strip's top edge stops under the current tab, which opens into it.
    QRect tab = d->tabs->tabRect(d->tabs->currentIndex()).adjusted(1, 0, -1, 0);
    tab.translate(d->tabs->mapTo(this, QPoint()));
    const int y = strip.top();
    if (tab.isValid() && tab.width() > 0) {
        painter.drawLine(0, y, tab.left() - 1, y);
        painter.drawLine(tab.right() + 1, y, width(), y);
    } else {
        painter.drawLine(0, y, width(), y);
    }
    painter.drawLine(0, strip.bottom(), width(), strip.bottom());
}

} // namespace Velmora::Ribdock
