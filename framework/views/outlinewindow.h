#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qwidget.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace Velmora::Framework {

class IContentOutline;
class OutlineWindowPrivate;

// Shows the structure of the current editor, when it offers one (IContentOutline), and
// "No outline" otherwise; activating a row moves the editor there.
class VELMORA_FRAMEWORK_EXPORT OutlineWindow : public QWidget
{
    Q_OBJECT

public:
    explicit OutlineWindow(QWidget *parent = nullptr);
    ~OutlineWindow() override;

    // The editor shown, or null.
    QWidget *editor() const;
    bool hasOutline() const;
    QTreeView *treeView() const;

public Q_SLOTS:
    // Borrowed; any widget, of which only IContentOutline implementers have an outline.
    void setEditor(QWidget *editor);
    // Shows only the rows whose text contains text, with their ancestors.
    void setFilterText(const QString &text);

private:
    std::unique_ptr<OutlineWindowPrivate> const d;
};

} // namespace Velmora::Framework
