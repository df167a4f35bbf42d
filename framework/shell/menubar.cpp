#include "shell/menubar.h"

#include <QtGui/qevent.h>
#include <QtWidgets/qmainwindow.h>

#include <memory>

namespace Velmora::Framework {

Menubar::Menubar(QWidget *parent)
    : QMenuBar(parent)
{
}

void Menubar::contextMenuEvent(QContextMenuEvent *event)
{
    auto *window = qobject_cast<QMainWindow *>(parentWidget());
    if (!window) {
        // Let the event travel on to the parent.
        event->ignore();
        return;
    }
    const std::unique_ptr<QMenu> menu(window->createPopupMenu());
    if (menu)
        menu->exec(event->globalPos());
}

} // namespace Velmora::Framework
