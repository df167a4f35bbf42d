#pragma once

#include "ribdock_global.h"

#include <QtWidgets/qwidget.h>

namespace Velmora::Ribdock {

// The right end of the ribbon's tab row: one small icon button per action added with
// QWidget::addAction(), in order. Styled by ":/qelshared/styles/dockCorner.css".
class RIBDOCK_EXPORT RibbonCorner : public QWidget
{
    Q_OBJECT

public:
    explicit RibbonCorner(QWidget *parent = nullptr);
    ~RibbonCorner() override;

protected:
    void actionEvent(QActionEvent *event) override;
};

} // namespace Velmora::Ribdock
