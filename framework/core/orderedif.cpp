#include "core/orderedif.h"

namespace Velmora::Framework {

OrderedIf::OrderedIf(IBase *interface, int order)
    : m_interface(interface)
    , m_order(order)
{
}

OrderedIf::~OrderedIf() = default;

bool OrderedIf::ascendingSort(const OrderedIf *const &a, const OrderedIf *const &b)
{
    return a->order() < b->order();
}

} // namespace Velmora::Framework
