#pragma once

#include "velmoraframework_global.h"

namespace Velmora::Framework {

class IBase;

// An interface paired with a priority; lower orders come first. The interface is borrowed:
// whoever owns the OrderedIf deletes it, never the interface.
class VELMORA_FRAMEWORK_EXPORT OrderedIf
{
public:
    OrderedIf(IBase *interface, int order);
    OrderedIf(const OrderedIf &other) = default;
    OrderedIf &operator=(const OrderedIf &other) = default;
    virtual ~OrderedIf();

    IBase *iface() const { return m_interface; }
    int order() const { return m_order; }

    // Comparator for std::stable_sort: equal orders keep the order of registration.
    static bool ascendingSort(const OrderedIf *const &a, const OrderedIf *const &b);

private:
    IBase *m_interface;
    int m_order;
};

} // namespace Velmora::Framework
