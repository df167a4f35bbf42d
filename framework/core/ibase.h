#pragma once

#include "velmoraframework_global.h"
#include "core/identifiers.h"

#include <QtCore/qobject.h>

namespace Velmora::Framework {

// Root of the interface scheme. Every interface but IHandler and IAvailable derives from it
// virtually, so an object that implements several interfaces holds one IBase part.
// Interface pointers are borrowed from the object that answered; nobody counts references.
class VELMORA_FRAMEWORK_EXPORT IBase
{
public:
    virtual ~IBase() = default;

    // Writes the part of this object that implements the interface named by iid into *out
    // (null when there is none) and answers whether it is non-null. out must not be null.
    // The pointer written is the named interface's own part carried in an IBase* slot, so turn
    // it into the interface with interfaceCast(), never with static_cast or dynamic_cast.
    virtual bool queryInterface(const char *iid, IBase **out) = 0;
};

// The default query rule of QObject-based implementers: the object's meta-cast of iid
// (its class name, the bare names of its interfaces, their identifiers, then its bases).
VELMORA_FRAMEWORK_EXPORT bool queryByMetaCast(QObject *object, const char *iid, IBase **out);

// Asks object for the interface Interface by its declared identifier; null when absent.
template <typename Interface>
Interface *interfaceCast(IBase *object)
{
    IBase *out = nullptr;
    if (!object || !object->queryInterface(qobject_interface_iid<Interface *>(), &out))
        return nullptr;
    // The slot already holds the interface's own part: reinterpret it, never adjust it.
    return static_cast<Interface *>(static_cast<void *>(out));
}

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IBase, VELMORA_IID_IBASE)
