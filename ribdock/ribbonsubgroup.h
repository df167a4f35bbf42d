#pragma once

#include "ribdock_global.h"

#include <QtWidgets/qtoolbutton.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Ribdock {

class RibbonSubgroupPrivate;

// Small buttons and widgets stacked in columns of rowCount() rows, filled top to bottom.
class RIBDOCK_EXPORT RibbonSubgroup : public QWidget
{
    Q_OBJECT

public:
    explicit RibbonSubgroup(QWidget *parent = nullptr);
    ~RibbonSubgroup() override;

    // A small button (16-pixel icon, one line of text) that follows the action; the action is
    // borrowed. An action with a menu opens it by the mode: InstantPopup on any click,
    // MenuButtonPopup only on its arrow.
    QToolButton *addSmallAction(QAction *action,
                                QToolButton::ToolButtonPopupMode mode = QToolButton::InstantPopup);
    // Takes ownership of the widget, which fills one row.
    void addWidget(QWidget *widget);

    int rowCount() const;
    void setRowCount(int rows);

private:
    std::unique_ptr<RibbonSubgroupPrivate> const d;
};

} // namespace Velmora::Ribdock
