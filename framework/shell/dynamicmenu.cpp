#include "shell/dynamicmenu.h"

namespace Velmora::Framework {

class DynamicMenuPrivate
{
public:
    QList<QAction *> first;
    QList<QAction *> second;
};

DynamicMenu::DynamicMenu(const QString &title, QWidget *parent)
    : QMenu(title, parent), d(std::make_unique<DynamicMenuPrivate>())
{
}

DynamicMenu::DynamicMenu(QWidget *parent)
    : QMenu(parent), d(std::make_unique<DynamicMenuPrivate>())
{
}

DynamicMenu::~DynamicMenu() = default;

void DynamicMenu::addAction(QAction *action, bool first)
{
    if (!action)
        return;
    QList<QAction *> &group = first ? d->first : d->second;
    if (group.contains(action))
        return;
    group.append(action);
    refresh();
}

void DynamicMenu::removeAction(QAction *action)
{
    if (!action)
        return;
    const bool fromFirst = d->first.removeOne(action);
    const bool fromSecond = d->second.removeOne(action);
    if (fromFirst || fromSecond)
        refresh();
}

void DynamicMenu::refresh()
{
    clear();
    for (QAction *action : std::as_const(d->first)) {
        if (action)
            QMenu::addAction(action);
    }
    if (!d->first.isEmpty() && !d->second.isEmpty())
        addSeparator();
    for (QAction *action : std::as_const(d->second)) {
        if (action)
            QMenu::addAction(action);
    }
}

} // namespace Velmora::Framework
