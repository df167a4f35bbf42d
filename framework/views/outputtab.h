#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qtextedit.h>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace Velmora::Framework {

// The read-only text page of one output tab; the newest line is always in view.
class VELMORA_FRAMEWORK_EXPORT OutputTab : public QTextEdit
{
    Q_OBJECT

public:
    explicit OutputTab(QWidget *parent = nullptr);

    QSize sizeHint() const override;

    // Appends text as a new paragraph and scrolls to it; an empty text is ignored.
    void output(const QString &text);
    // The standard text menu with "Clear" before a separator ahead of its last entry. The
    // caller owns the menu.
    QMenu *createContextMenu();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
};

} // namespace Velmora::Framework
