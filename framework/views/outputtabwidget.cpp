#include "views/outputtabwidget.h"

#include "views/outputtabbar.h"

namespace Velmora::Framework {

OutputTabWidget::OutputTabWidget(QWidget *parent)
    : QTabWidget(parent)
    , m_bar(new OutputTabBar(this))
{
    setTabBar(m_bar);
    setTabPosition(QTabWidget::South);
    setDocumentMode(true);
    connect(m_bar, &OutputTabBar::contextMenuTriggered, this,
            &OutputTabWidget::contextMenuTriggered);
}

OutputTabBar *OutputTabWidget::outputTabBar() const
{
    return m_bar;
}

} // namespace Velmora::Framework
