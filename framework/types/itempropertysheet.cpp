#include "types/itempropertysheet.h"

#include "types/itemtype.h"

namespace Velmora::Framework {

ItemPropertySheet::ItemPropertySheet(ItemType *type)
    : m_type(type)
{
}

ItemPropertySheet::~ItemPropertySheet() = default;

ItemType *ItemPropertySheet::type() const
{
    return m_type.data();
}

} // namespace Velmora::Framework
