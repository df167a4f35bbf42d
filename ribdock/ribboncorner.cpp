#include "ribboncorner.h"

#include <QtCore/qfile.h>
#include <QtGui/qevent.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qtoolbutton.h>

namespace Velmora::Ribdock {

RibbonCorner::RibbonCorner(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("ribbonCorner"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 4, 0);
    layout->setSpacing(1);
    QFile css(QStringLiteral(":/qelshared/styles/dockCorner.css"));
    if (css.open(QIODevice::ReadOnly | QIODevice::Text))
        setStyleSheet(QString::fromUtf8(css.readAll()));
}

RibbonCorner::~RibbonCorner() = default;

void RibbonCorner::actionEvent(QActionEvent *event)
{
    auto *layout = static_cast<QHBoxLayout *>(this->layout());
    QAction *action = event->action();
    switch (event->type()) {
    case QEvent::ActionAdded: {
        auto *button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setIconSize(QSize(16, 16));
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setPopupMode(QToolButton::InstantPopup);
        // actions() already holds the new action at its place.
        layout->insertWidget(int(actions().indexOf(action)), button);
        break;
    }
    case QEvent::ActionRemoved:
        for (int i = 0; i < layout->count(); ++i) {
            auto *button = qobject_cast<QToolButton *>(layout->itemAt(i)->widget());
            if (button && button->defaultAction() == action) {
                delete button;
                break;
            }
        }
        break;
    default:
        break;
    }
    QWidget::actionEvent(event);
}

} // namespace Velmora::Ribdock
