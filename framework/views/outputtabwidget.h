#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qtabwidget.h>

namespace Velmora::Framework {

class OutputTabBar;

// The output window's tabs, shown along the bottom edge.
class VELMORA_FRAMEWORK_EXPORT OutputTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit OutputTabWidget(QWidget *parent = nullptr);

    OutputTabBar *outputTabBar() const;

Q_SIGNALS:
    // Repeats the tab bar's signal.
    void contextMenuTriggered(int index);
};

} // namespace Velmora::Framework
