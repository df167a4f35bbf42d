#include "views/outputtabwidget.h"

#include "views/outputtabbar.h"

namespace Velmora::Framework {

OutputTabWidget::OutputTabWidget(QWidget *parent)
    : QTabWidget(parent)
{
    auto *bar = new OutputTabBar(this);
    setTabBar(bar);
    setTabPosition(QTabWidget::South);
    setDocumentMode(true);
    connect(bar, &OutputTabBar::contextMenuTriggered, this,
            &OutputTabWidget::contextMenuTriggered);
}

OutputTabBar *OutputTabWidget::outputTabBar() const
{
    return static_cast<OutputTabBar *>(tabBar());
}

} // namespace Velmora::Framework
