#pragma once

#include "velmoraframework_global.h"
#include "model/editorinstruction.h"

#include <QtCore/qlist.h>
#include <QtGui/qicon.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Framework {

class MultipleWindowPrivate;
class ProjectFrontPage;
class ViewItem;

// The central document area: views and item editors as tabs with icon and title, and the
// project front page while no project is open. View indexes count the views in the order
// they were added, whether their tab is shown or not; the front page is not a view.
class VELMORA_FRAMEWORK_EXPORT MultipleWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MultipleWindow(QWidget *parent = nullptr);
    ~MultipleWindow() override;

    // Takes ownership of widget and shows it as the current tab; the view's index, or -1
    // for null. A widget already shown answers its index.
    int addView(QWidget *widget, const QIcon &icon, const QString &title);
    int viewCount() const;
    // -1 when widget is not a view here.
    int indexOf(QWidget *widget) const;
    bool isViewVisible(int index) const;
    // A hidden view keeps its index; its tab comes back where it was.
    void setViewVisible(int index, bool visible);
    void setCurrentIndex(int index);
    // Hands the view back to the caller, without parent; null for a bad index.
    QWidget *removeView(int index);
    // Null for a bad index.
    QWidget *view(int index) const;
    // Deletes every view, editors included.
    void disposeAllViews();

    void setFrontPageVisible(bool visible);
    bool isFrontPageVisible() const;
    ProjectFrontPage *frontPage() const;

    // Opens item in its type's editor (the default one for an empty factoryId), once per
    // item: an item already open is brought to the front. The editor, or null when the type
    // has none. The editor stays its factory's; closing its tab only takes it out.
    QWidget *editItem(ViewItem *item, const QString &factoryId = QString(),
                      const QList<EditorInstruction> &instructions = {});
    // The item whose editor is current; null for a plain view or none.
    ViewItem *currentItem() const;

public Q_SLOTS:
    // Shows the item's editor again with its current name, icon and modified state.
    void updateItem(ViewItem *item);

Q_SIGNALS:
    void signalNewProject();
    // An empty path asks the user for the file.
    void signalOpenProject(const QString &path);
    void signalOpenSolution(const QString &path);
    void progressChanged(const QString &text);
    void statusChanged(const QString &text);
    // The item whose editor became current, or null.
    void currentItemChanged(ViewItem *item);
    // The view or editor whose tab became current; null for the front page or none.
    void currentViewChanged(QWidget *view);

private:
    friend class MultipleWindowPrivate;
    std::unique_ptr<MultipleWindowPrivate> const d;
};

} // namespace Velmora::Framework
