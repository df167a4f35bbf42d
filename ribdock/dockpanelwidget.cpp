#include "dockpanelwidget.h"

#include "dockcontentwidget.h"

namespace Velmora::Ribdock {

DockPanelWidget::DockPanelWidget(const QString &title, QWidget *parent)
    : QDockWidget(title, parent)
    , m_content(new DockContentWidget(this))
{
    m_content->setCompact(true);
    setWidget(m_content);
    const QString name = title;
    connect(m_content, &DockContentWidget::currentViewChanged, this, [this, name](QWidget *view) {
        const QString text = m_content->viewTitle(view);
        setWindowTitle(text.isEmpty() ? name : text);
    });
}

DockPanelWidget::~DockPanelWidget() = default;

DockContentWidget *DockPanelWidget::content() const
{
    return m_content;
}

int DockPanelWidget::addView(QWidget *view, const QString &title, const QIcon &icon)
{
    return m_content->addView(view, title, icon);
}

int DockPanelWidget::tabifyView(QWidget *view, const QString &title, const QIcon &icon)
{
    return m_content->tabifyView(view, title, icon);
}

} // namespace Velmora::Ribdock
