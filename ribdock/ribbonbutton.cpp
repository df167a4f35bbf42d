#include "ribbonbutton_p.h"

#include "ribbonbar.h"

#include <QtGui/qevent.h>
#include <QtGui/qpainter.h>
#include <QtGui/qpainterpath.h>
#include <QtWidgets/qmenu.h>
#include <QtWidgets/qstyleoption.h>
#include <QtWidgets/qtooltip.h>

namespace Velmora::Ribdock::Internal {

namespace {
constexpr int LargeIcon = 24;
constexpr int SmallIcon = 16;
constexpr int Pad = 4;
constexpr int ArrowWidth = 7;
constexpr int RowGap = 2;
} // namespace

void paintMenuArrow(QPainter *painter, const QPointF &centre, const QColor &color)
{
    QPainterPath arrow;
    arrow.moveTo(centre + QPointF(-3.5, -1.5));
    arrow.lineTo(centre + QPointF(3.5, -1.5));
    arrow.lineTo(centre + QPointF(0, 2));
    arrow.closeSubpath();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(arrow, color);
    painter->restore();
}

RibbonButton::RibbonButton(QAction *action, Size size, ToolButtonPopupMode mode, QWidget *parent)
    : QToolButton(parent)
    , m_size(size)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setIconSize(size == Size::Large ? QSize(LargeIcon, LargeIcon) : QSize(SmallIcon, SmallIcon));
    setToolButtonStyle(size == Size::Large ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon);
    setDefaultAction(action);
    // After setDefaultAction, which picks a split button for any action with a menu.
    setPopupMode(mode);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A button's shortcut dies with its hidden page; the bar keeps it alive.
    for (QWidget *ancestor = parent; ancestor; ancestor = ancestor->parentWidget()) {
        if (auto *bar = qobject_cast<RibbonBar *>(ancestor)) {
            bar->addAction(action);
            break;
        }
    }
}

int RibbonButton::largeHeight(const QFontMetrics &metrics)
{
    return Pad + LargeIcon + Pad + 2 * metrics.height() + Pad;
}

int RibbonButton::smallHeight(const QFontMetrics &metrics)
{
    return (largeHeight(metrics) - 2 * RowGap) / 3;
}

bool RibbonButton::hasMenu() const
{
    return menu() || (defaultAction() && QMenu::menuInAction(defaultAction()));
}

bool RibbonButton::isSplit() const
{
    return hasMenu() && popupMode() == MenuButtonPopup;
}

QStringList RibbonButton::lines() const
{
    // setDefaultAction() doubles every '&' so that none becomes a mnemonic.
    QString plain = text();
    plain.replace(QLatin1String("&&"), QLatin1String("&"));
    if (m_size == Size::Small)
        return {plain.simplified()};
    QStringList result = plain.split(QLatin1Char('\n'));
    while (result.size() > 2)
        result[1] += QLatin1Char(' ') + result.takeAt(2);
    return result;
}

QSize RibbonButton::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const QStringList texts = lines();
    const bool arrow = hasMenu();
    if (m_size == Size::Large) {
        int width = 0;
        for (int i = 0; i < texts.size(); ++i) {
            int lineWidth = metrics.horizontalAdvance(texts.at(i));
            // The arrow follows the last line, or sits alone on the second one.
            if (arrow && i == texts.size() - 1 && texts.size() > 1)
                lineWidth += ArrowWidth + Pad;
            width = qMax(width, lineWidth);
        }
        return {qMax(width + 3 * Pad, LargeIcon + 4 * Pad), largeHeight(metrics)};
    }
    int width = Pad + SmallIcon + Pad;
    if (!texts.constFirst().isEmpty())
        width += metrics.horizontalAdvance(texts.constFirst()) + Pad;
    if (arrow)
        width += ArrowWidth + Pad + (isSplit() ? Pad : 0);
    return {width, smallHeight(metrics)};
}

QSize RibbonButton::minimumSizeHint() const
{
    return sizeHint();
}

QRect RibbonButton::menuArea() const
{
    if (m_size == Size::Large)
        return QRect(0, Pad + LargeIcon + Pad, width(), height() - 2 * Pad - LargeIcon);
    return QRect(width() - ArrowWidth - 2 * Pad, 0, ArrowWidth + 2 * Pad, height());
}

bool RibbonButton::hitButton(const QPoint &pos) const
{
    if (isSplit())
        return rect().contains(pos) && !menuArea().contains(pos);
    return rect().contains(pos);
}

void RibbonButton::mousePressEvent(QMouseEvent *event)
{
    // Qt's own split-button hit test assumes its layout, not ours.
    if (event->button() == Qt::LeftButton && isSplit() && menuArea().contains(event->position().toPoint())) {
        showMenu();
        return;
    }
    if (isSplit()) {
        QAbstractButton::mousePressEvent(event);
        return;
    }
    QToolButton::mousePressEvent(event);
}

void RibbonButton::actionEvent(QActionEvent *event)
{
    QToolButton::actionEvent(event);
    // A new text may need another width; the layout asks again.
    if (event->type() == QEvent::ActionChanged)
        updateGeometry();
}

bool RibbonButton::event(QEvent *event)
{
    // Ribbon buttons show no shortcut of their own, so their tip names it.
    if (event->type() == QEvent::ToolTip && defaultAction() && !defaultAction()->shortcut().isEmpty()
        && !toolTip().isEmpty()) {
        const QString shortcut = defaultAction()->shortcut().toString(QKeySequence::NativeText);
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           QStringLiteral("%1 (%2)").arg(toolTip(), shortcut), this);
        return true;
    }
    return QToolButton::event(event);
}

void RibbonButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const bool enabled = isEnabled();
    const bool hovered = enabled && (option.state & QStyle::State_MouseOver);
    const bool sunken = enabled && (isDown() || isChecked() || (option.state & QStyle::State_Sunken));
    const QColor highlight = palette().color(QPalette::Highlight);

    if (hovered || sunken) {
        painter.setRenderHint(QPainter::Antialiasing);
        QColor fill = highlight;
        fill.setAlpha(sunken ? 70 : 32);
        QColor border = highlight;
        border.setAlpha(sunken ? 170 : 110);
        painter.setPen(border);
        painter.setBrush(fill);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        if (isSplit() && hovered) {
            const QRect area = menuArea();
            painter.setPen(border);
            if (m_size == Size::Large)
                painter.drawLine(QPointF(1, area.top() - 0.5), QPointF(width() - 1, area.top() - 0.5));
            else
                painter.drawLine(QPointF(area.left() + 0.5, 1), QPointF(area.left() + 0.5, height() - 1));
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

    const QIcon::Mode mode = !enabled ? QIcon::Disabled : (hovered ? QIcon::Active : QIcon::Normal);
    const QIcon::State state = isChecked() ? QIcon::On : QIcon::Off;
    const int extent = m_size == Size::Large ? LargeIcon : SmallIcon;
    const QPixmap pixmap = icon().pixmap(QSize(extent, extent), devicePixelRatioF(), mode, state);
    const QColor textColor = palette().color(enabled ? QPalette::Active : QPalette::Disabled,
                                             QPalette::ButtonText);
    painter.setPen(textColor);
    const QFontMetrics metrics = fontMetrics();
    const QStringList texts = lines();

    if (m_size == Size::Large) {
        const QRect iconRect((width() - extent) / 2, Pad, extent, extent);
        if (!pixmap.isNull())
            painter.drawPixmap(iconRect, pixmap);
        int y = iconRect.bottom() + 1 + Pad;
        for (int i = 0; i < texts.size(); ++i) {
            const bool last = i == texts.size() - 1;
            const int lineWidth = metrics.horizontalAdvance(texts.at(i));
            const bool arrowHere = hasMenu() && last && texts.size() > 1;
            const int total = lineWidth + (arrowHere ? ArrowWidth + Pad : 0);
            const int x = (width() - total) / 2;
            painter.drawText(QRect(x, y, lineWidth, metrics.height()), Qt::AlignCenter, texts.at(i));
            if (arrowHere)
                paintMenuArrow(&painter, QPointF(x + lineWidth + Pad + ArrowWidth / 2.0, y + metrics.height() / 2.0), textColor);
            y += metrics.height();
        }
        if (hasMenu() && texts.size() == 1)
            paintMenuArrow(&painter, QPointF(width() / 2.0, y + metrics.height() / 2.0), textColor);
        return;
    }

    const QRect iconRect(Pad, (height() - extent) / 2, extent, extent);
    if (!pixmap.isNull())
        painter.drawPixmap(iconRect, pixmap);
    const int textLeft = iconRect.right() + 1 + Pad;
    const int textRight = hasMenu() ? menuArea().left() : width() - Pad;
    painter.drawText(QRect(textLeft, 0, textRight - textLeft, height()),
                     Qt::AlignLeft | Qt::AlignVCenter, texts.constFirst());
    if (hasMenu())
        paintMenuArrow(&painter, QPointF(menuArea().center().x() + 0.5, height() / 2.0 + 0.5), textColor);
}

} // namespace Velmora::Ribdock::Internal
