#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qmenu.h>

#include <memory>

namespace Velmora::Framework {

class DynamicMenuPrivate;

// A menu of two groups of actions, rebuilt whenever a group changes: the first group, a
// separator when both groups have actions, then the second group.
class VELMORA_FRAMEWORK_EXPORT DynamicMenu : public QMenu
{
    Q_OBJECT

public:
    DynamicMenu(const QString &title, QWidget *parent);
    explicit DynamicMenu(QWidget *parent);
    ~DynamicMenu() override;

    // Null is ignored; an action stands at most once in each group.
    virtual void addAction(QAction *action, bool first);
    // Takes the action out of both groups.
    virtual void removeAction(QAction *action);

protected:
    virtual void refresh();

private:
    std::unique_ptr<DynamicMenuPrivate> const d;
};

} // namespace Velmora::Framework
