#include "types/viewmenu.h"

namespace Velmora::Framework {

ViewMenu::ViewMenu(const QString &title, QWidget *parent)
    : QMenu(title, parent)
{
}

ViewMenu::ViewMenu(QWidget *parent)
    : QMenu(parent)
{
}

bool ViewMenu::evaluateAvailability(const ViewItem *, const QList<ViewItem *> &) const
{
    return true;
}

bool ViewMenu::evaluateState(const ViewItem *item, const QList<ViewItem *> &selection)
{
    const bool enabled = !selection.isEmpty() && isEnabled(item, selection);
    setEnabled(enabled);
    return enabled;
}

bool ViewMenu::isEnabled(const ViewItem *, const QList<ViewItem *> &) const
{
    return true;
}

} // namespace Velmora::Framework
