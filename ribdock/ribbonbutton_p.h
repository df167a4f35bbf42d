#pragma once

#include <QtWidgets/qtoolbutton.h>

namespace Velmora::Ribdock::Internal {

// The one button of the ribbon: follows its default action live (text, icon, tips, enabled,
// checked, menu) and paints itself in the ribbon's large (24-pixel icon, two text lines) or
// small (16-pixel icon, one line) form.
class RibbonButton : public QToolButton
{
public:
    enum class Size { Large, Small };

    RibbonButton(QAction *action, Size size, ToolButtonPopupMode mode, QWidget *parent);

    Size buttonSize() const { return m_size; }

    // Heights shared by everything that lines up with the buttons: three small rows fill
    // exactly one large button.
    static int largeHeight(const QFontMetrics &metrics);
    static int smallHeight(const QFontMetrics &metrics);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void actionEvent(QActionEvent *event) override;
    bool hitButton(const QPoint &pos) const override;

private:
    bool hasMenu() const;
    bool isSplit() const;
    QRect menuArea() const;
    QStringList lines() const;

    Size m_size;
};

// Paints the small down-pointing triangle of menu buttons and drop-downs.
void paintMenuArrow(QPainter *painter, const QPointF &centre, const QColor &color);

} // namespace Velmora::Ribdock::Internal
