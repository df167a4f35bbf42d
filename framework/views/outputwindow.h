#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>
#include <QtGui/qicon.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class OutputTabWidget;
class OutputWindowPrivate;

// The tabbed text log. Tabs are addressed by a name, which is not the text on the tab; a
// name once added stays known, so a closed tab can be shown again. Pages are never deleted
// here: the window's own pages die with the tab widget, custom pages stay their owner's.
class VELMORA_FRAMEWORK_EXPORT OutputWindow : public QObject
{
    Q_OBJECT

public:
    explicit OutputWindow(QObject *parent = nullptr);
    ~OutputWindow() override;

    // Built without parent, for the host to place; deleted here while it has none.
    OutputTabWidget *tabWidget() const;

    // The tab's index, or -1. A known name shows its tab again and ignores the other
    // arguments. A null widget makes an OutputTab page; a null icon takes the default.
    int addTab(const QString &name, const QIcon &icon, const QString &title, QWidget *widget);
    int addTab(const QString &name, const QString &title, QWidget *widget);
    bool showTab(const QString &name);
    // Hides the tab; the name stays known.
    void removeTab(const QString &name);
    void removeAllTabs();
    // -1 for an unknown name or a page that is destroyed or not shown.
    int findTab(const QString &name) const;
    // Empty when no known page is current.
    QString activeTab() const;
    bool isCustom(const QString &name) const;
    // The page, also while its tab is closed; null for an unknown name. Borrowed.
    QWidget *widgetOf(const QString &name) const;
    // Both do nothing unless name is known and its page is an OutputTab.
    void output(const QString &name, const QString &text);
    void clearTab(const QString &name);
    void setTabIcon(const QString &name, const QIcon &icon);
    void setTabToolTip(const QString &name, const QString &toolTip);

    // The widget that carries the window in the main window (borrowed).
    void setWidget(QWidget *widget);
    QWidget *widget() const;

public Q_SLOTS:
    // Takes the tab at index out of the tab widget; the page is kept.
    void closeTab(int index);

private Q_SLOTS:
    void showContextMenu(int index);
    void closeCurrentTab();

private:
    friend class OutputWindowPrivate;
    // One per name ever added; outlives the closing of its tab.
    struct TabAttributes;

    std::unique_ptr<OutputWindowPrivate> const d;
};

} // namespace Velmora::Framework
