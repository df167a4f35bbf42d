#include "types/viewaction.h"

#include "model/itemutils.h"
#include "model/viewitem.h"
#include "types/itemtypesolution.h"

#include <algorithm>

namespace Velmora::Framework {

namespace {

// The single selected item under the cursor, when its type can take children.
bool singleParentable(const ViewItem *item, const QList<ViewItem *> &selection)
{
    if (!item || selection.size() != 1)
        return false;
    const ItemType *type = item->getType();
    return type && type->canParent();
}

// Whether item's parent must keep it: its type counts the item as a mandatory child.
bool isMandatory(const ViewItem *item)
{
    const ViewItem *parent = item->getParentItem();
    const ItemType *parentType = parent ? parent->getType() : nullptr;
    const ItemType *type = item->getType();
    return parentType && type && parentType->isMandatoryChild(type->getId(), item->getItemName());
}

const ItemTypeFile *fileType(const ViewItem *item)
{
    return item ? qobject_cast<const ItemTypeFile *>(item->getType()) : nullptr;
}

} // namespace

ViewAction::ViewAction(const QIcon &icon, const QString &text, QObject *parent)
    : QAction(icon, text, parent)
{
}

ViewAction::ViewAction(const QString &text, QObject *parent)
    : QAction(text, parent)
{
}

ViewAction::ViewAction(QObject *parent)
    : QAction(parent)
{
}

bool ViewAction::evaluateAvailability(const ViewItem *, const QList<ViewItem *> &) const
{
    return true;
}

bool ViewAction::evaluateState(const ViewItem *item, const QList<ViewItem *> &selection)
{
    const bool enabled = !selection.isEmpty() && isEnabled(item, selection);
    setEnabled(enabled);
    return enabled;
}

bool ViewAction::isEnabled(const ViewItem *, const QList<ViewItem *> &) const
{
    return true;
}

bool AddAction::evaluateAvailability(const ViewItem *, const QList<ViewItem *> &selection) const
{
    return selection.size() < 2;
}

bool AddAction::isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const
{
    return singleParentable(item, selection);
}

class FileActionPrivate
{
public:
    ItemTypeFile::FileMenus menus;
};

FileAction::FileAction(ItemTypeFile::FileMenus menus, const QIcon &icon, const QString &text,
                       QObject *parent)
    : ViewAction(icon, text, parent), d(new FileActionPrivate{menus})
{
}

FileAction::FileAction(ItemTypeFile::FileMenus menus, const QString &text, QObject *parent)
    : ViewAction(text, parent), d(new FileActionPrivate{menus})
{
}

FileAction::FileAction(ItemTypeFile::FileMenus menus, QObject *parent)
    : ViewAction(parent), d(new FileActionPrivate{menus})
{
}

FileAction::~FileAction() = default;

ItemTypeFile::FileMenus FileAction::fileMenus() const
{
    return d->menus;
}

bool FileAction::evaluateAvailability(const ViewItem *, const QList<ViewItem *> &selection) const
{
    return !selection.isEmpty()
        && std::all_of(selection.cbegin(), selection.cend(),
                       [](const ViewItem *selected) { return fileType(selected) != nullptr; });
}

bool FileAction::isEnabled(const ViewItem *, const QList<ViewItem *> &selection) const
{
    ItemTypeFile::FileMenus offered;
    for (const ViewItem *selected : selection) {
        const ItemTypeFile *type = fileType(selected);
        if (!type)
            return false;
        offered |= type->fileMenus();
    }
    return (offered & d->menus).toInt() != 0;
}

bool PasteAction::isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const
{
    return singleParentable(item, selection);
}

bool RemoveAction::isEnabled(const ViewItem *, const QList<ViewItem *> &selection) const
{
    const QList<ViewItem *> roots = ItemUtils::getSelectionWithoutChildren(selection);
    return !roots.isEmpty() && std::none_of(roots.cbegin(), roots.cend(), [](const ViewItem *root) {
        return qobject_cast<const ItemTypeSolution *>(root->getType()) || isMandatory(root);
    });
}

bool RenameAction::isEnabled(const ViewItem *item, const QList<ViewItem *> &selection) const
{
    return item && selection.size() == 1 && !isMandatory(item);
}

} // namespace Velmora::Framework
