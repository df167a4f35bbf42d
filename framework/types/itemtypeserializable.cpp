#include "types/itemtypeserializable.h"

namespace Velmora::Framework {

ItemTypeSerializable::ItemTypeSerializable(QObject *parent)
    : ItemType(parent)
{
}

ItemTypeSerializable::~ItemTypeSerializable() = default;

bool ItemTypeSerializable::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

bool ItemTypeSerializable::serialize(ViewItem *, QIODevice *)
{
    return true;
}

bool ItemTypeSerializable::deserialize(ViewItem *, QIODevice *)
{
    return true;
}

} // namespace Velmora::Framework
