#pragma once

#include "ribdock_global.h"

#include <QtGui/qcolor.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Ribdock {

class RibbonBarPrivate;
class RibbonCorner;
class RibbonPage;

// A row of page tabs above the strip of the current page's groups. Double-clicking a tab
// folds the ribbon to its tabs and back; folded, a click on a tab shows its page in a popup. Every action placed on a page is also added to the
// bar itself, so its shortcut works while its page is hidden or not current.
class RIBDOCK_EXPORT RibbonBar : public QWidget
{
    Q_OBJECT

public:
    explicit RibbonBar(QWidget *parent = nullptr);
    ~RibbonBar() override;

    // Pages are owned by the bar and keep their index for good.
    RibbonPage *addPage(const QString &title);
    // A contextual page is drawn in its colour; an invalid colour picks the next one of a
    // small palette.
    RibbonPage *addContextualPage(const QString &title, const QColor &color = QColor());

    int pageCount() const;
    // Null for an index out of range.
    RibbonPage *page(int index) const;
    int indexOf(const RibbonPage *page) const;

    // A hidden page keeps its index; hiding the current page makes a visible one current.
    bool isPageVisible(int index) const;
    void setPageVisible(int index, bool visible);

    int currentIndex() const;
    void setCurrentIndex(int index);

    bool isMinimized() const;
    void setMinimized(bool minimized);

    RibbonCorner *cornerWidget() const;

signals:
    void currentPageChanged(int index);
    void minimizedChanged(bool minimized);

protected:
    void actionEvent(QActionEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    RibbonPage *insertPage(const QString &title, const QColor &color);

    std::unique_ptr<RibbonBarPrivate> const d;
};

} // namespace Velmora::Ribdock
