#include "types/itemtypefolder.h"

#include "core/lazyicon.h"

namespace Velmora::Framework {

class ItemTypeFolderPrivate
{
public:
    QIcon openIcon = lazyIcon(QStringLiteral(":/qelshared/images/16/folderOpend.svg"));
};

ItemTypeFolder::ItemTypeFolder(QObject *parent)
    : ItemType(parent)
    , d(std::make_unique<ItemTypeFolderPrivate>())
{
    setIcon(lazyIcon(QStringLiteral(":/qelshared/images/16/folder.svg")));
}

ItemTypeFolder::~ItemTypeFolder() = default;

bool ItemTypeFolder::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QString ItemTypeFolder::getDescription() const
{
    return tr("Folder");
}

QString ItemTypeFolder::getDefaultPrefix() const
{
    return tr("New Folder");
}

QIcon ItemTypeFolder::getIcon(ViewItem *item, int state)
{
    return state != 0 ? d->openIcon : ItemType::getIcon(item, state);
}

} // namespace Velmora::Framework
