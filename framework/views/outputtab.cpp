#include "views/outputtab.h"

#include <QtGui/qevent.h>
#include <QtGui/qtextcursor.h>
#include <QtWidgets/qmenu.h>

namespace Velmora::Framework {

OutputTab::OutputTab(QWidget *parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    // Log lines are plain text; markup in them must show as typed.
    setAcceptRichText(false);
}

QSize OutputTab::sizeHint() const
{
    return QSize(100, 100);
}

void OutputTab::output(const QString &text)
{
    if (text.isEmpty())
        return;
    // Through a cursor rather than append(), which would read text that looks like HTML as HTML.
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!document()->isEmpty())
        cursor.insertBlock();
    cursor.insertText(text);
    moveCursor(QTextCursor::End);
    ensureCursorVisible();
}

QMenu *OutputTab::createContextMenu()
{
    QMenu *menu = createStandardContextMenu();
    const QList<QAction *> actions = menu->actions();
    QAction *separator = actions.isEmpty() ? menu->addSeparator()
                                           : menu->insertSeparator(actions.last());
    auto *clear = new QAction(tr("Clear"), menu);
    clear->setToolTip(tr("Clear"));
    clear->setStatusTip(tr("Clear the content of this output tab"));
    clear->setEnabled(!document()->isEmpty());
    connect(clear, &QAction::triggered, this, &QTextEdit::clear);
    menu->insertAction(separator, clear);
    return menu;
}

void OutputTab::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createContextMenu();
    menu->exec(event->globalPos());
    delete menu;
}

} // namespace Velmora::Framework
