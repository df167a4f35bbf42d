#include "types/itemtypefolder.h"

namespace Velmora::Framework {

ItemTypeFolder::ItemTypeFolder(QObject *parent)
    : ItemType(parent)
    , m_openIcon(QStringLiteral(":/qelshared/images/16/folderOpend.svg"))
{
    setIcon(QIcon(QStringLiteral(":/qelshared/images/16/folder.svg")));
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
    return state != 0 ? m_openIcon : ItemType::getIcon(item, state);
}

} // namespace Velmora::Framework
