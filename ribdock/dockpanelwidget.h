#pragma once

#include "ribdock_global.h"

#include <QtGui/qicon.h>
#include <QtWidgets/qdockwidget.h>

namespace Velmora::Ribdock {

class DockContentWidget;

// A dock of the main window holding views as tabs in sections; its title bar shows the
// title of the view last made current.
class RIBDOCK_EXPORT DockPanelWidget : public QDockWidget
{
    Q_OBJECT

public:
    explicit DockPanelWidget(const QString &title, QWidget *parent = nullptr);
    ~DockPanelWidget() override;

    DockContentWidget *content() const;

    // Take ownership of the view and answer its index in the panel, or -1 for a null view.
    // addView() opens a new section, tabifyView() adds a tab to the last one.
    int addView(QWidget *view, const QString &title, const QIcon &icon = QIcon());
    int tabifyView(QWidget *view, const QString &title, const QIcon &icon = QIcon());

private:
    DockContentWidget *m_content;
};

} // namespace Velmora::Ribdock
