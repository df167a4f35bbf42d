#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qtabbar.h>

namespace Velmora::Framework {

// The output window's tab bar: a right click on an enabled tab makes it current and asks
// for the tab's menu; a click beside the tabs passes on.
class VELMORA_FRAMEWORK_EXPORT OutputTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit OutputTabBar(QWidget *parent = nullptr);

Q_SIGNALS:
    void contextMenuTriggered(int index);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
};

} // namespace Velmora::Framework
