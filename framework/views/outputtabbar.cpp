#include "views/outputtabbar.h"

#include <QtGui/qevent.h>

namespace Velmora::Framework {

OutputTabBar::OutputTabBar(QWidget *parent)
    : QTabBar(parent)
{
}

void OutputTabBar::contextMenuEvent(QContextMenuEvent *event)
{
    // From the last tab down, so the tab drawn on top wins where rectangles overlap.
    for (int index = count() - 1; index >= 0; --index) {
        if (isTabEnabled(index) && tabRect(index).contains(event->pos())) {
            setCurrentIndex(index);
            emit contextMenuTriggered(index);
            event->accept();
            return;
        }
    }
    event->ignore();
}

} // namespace Velmora::Framework
