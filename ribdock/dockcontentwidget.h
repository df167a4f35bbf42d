#pragma once

#include "ribdock_global.h"

#include <QtGui/qicon.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Ribdock {

class DockContentWidgetPrivate;

// Views shown as tabs in sections, the sections split side by side or one above the other.
// A view's index counts every view in the order they were added, across sections.
class RIBDOCK_EXPORT DockContentWidget : public QWidget
{
    Q_OBJECT

public:
    explicit DockContentWidget(QWidget *parent = nullptr);
    ~DockContentWidget() override;

    // Both take ownership of the view and answer its index, or -1 for a null view; a view
    // already here keeps its place and becomes current. addView() opens a new section with
    // the view; tabifyView() adds it as a tab of a section: -1, or a section past the end,
    // is the last one (opened when there is none).
    int addView(QWidget *view, const QString &title, const QIcon &icon = QIcon());
    int tabifyView(QWidget *view, const QString &title, const QIcon &icon = QIcon(), int section = -1);

    int viewCount() const;
    QWidget *view(int index) const;
    int indexOf(const QWidget *view) const;
    int sectionCount() const;
    // -1 for a widget that is no view here.
    int sectionOf(const QWidget *view) const;

    QWidget *currentView() const;
    void setCurrentView(QWidget *view);
    QString viewTitle(const QWidget *view) const;
    void setViewTitle(QWidget *view, const QString &title);
    void setViewIcon(QWidget *view, const QIcon &icon);
    // Removes the view and gives it back without a parent; the caller owns it.
    QWidget *takeView(QWidget *view);

    Qt::Orientation orientation() const;
    void setOrientation(Qt::Orientation orientation);
    // A closable tab asks its view to close(); a view that agrees leaves (viewClosed).
    bool tabsClosable() const;
    void setTabsClosable(bool closable);
    // A view that must stay (a start page, say) keeps no close button on its tab.
    void setViewClosable(QWidget *view, bool closable);
    // Tabs below the views, hidden while a single section holds a single view: for panels,
    // whose title bar names the current view.
    bool isCompact() const;
    void setCompact(bool compact);

    // The sizes of the sections, for a saved layout; false when the state does not fit.
    QByteArray saveState() const;
    bool restoreState(const QByteArray &state);

signals:
    void currentViewChanged(QWidget *view);
    void viewClosed(QWidget *view);

private:
    std::unique_ptr<DockContentWidgetPrivate> const d;
};

} // namespace Velmora::Ribdock
