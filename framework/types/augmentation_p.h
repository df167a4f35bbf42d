#pragma once

// The augmentation protocol shared by the item operations: every augmentable registered for
// the type may veto an operation before it runs and is told after it ran.

#include "core/augmentableregistrar.h"
#include "core/ibase.h"
#include "core/typeregistrar.h"
#include "types/itemtype.h"

#include <QtCore/qlist.h>
#include <QtCore/qvariant.h>

namespace Velmora::Framework::Internal {

template <typename Augment>
using AugmentHook = bool (Augment::*)(const QList<ViewItem *> &, const QVariant &);

// The augmentables for an operation on type: first those registered under Augment's own
// identifier, which serve every type (the framework's companions), then those registered
// under type's id; each that answers Augment's identifier, in registration order.
template <typename Augment>
QList<Augment *> augmentablesFor(const ItemType *type)
{
    QList<Augment *> result;
    const TypeRegistrar *registrar = type->registrar();
    const AugmentableRegistrar *augments = registrar ? registrar->augmentRegistrar() : nullptr;
    if (!augments)
        return result;
    const QString interfaceId = QString::fromLatin1(qobject_interface_iid<Augment *>());
    const QList<IBase *> registered =
        augments->getIfList(interfaceId) + augments->getIfList(type->getId());
    for (IBase *iface : registered) {
        if (auto *augmentable = interfaceCast<Augment>(iface))
            result.append(augmentable);
    }
    return result;
}

// Asks every augmentable's can-call, then every before-call (the first false ends it), runs
// routine, and tells every after-call (none when after is null). True when routine ran and
// succeeded; done runs between the routine and the after-calls.
template <typename Augment, typename Routine, typename Done>
bool runAugmented(const QList<Augment *> &augmentables, AugmentHook<Augment> can,
                  AugmentHook<Augment> before, AugmentHook<Augment> after,
                  const QList<ViewItem *> &items, const QVariant &argument, Routine routine,
                  Done done)
{
    if (items.isEmpty())
        return false;
    for (Augment *augmentable : augmentables) {
        if (!(augmentable->*can)(items, argument))
            return false;
    }
    for (Augment *augmentable : augmentables) {
        if (!(augmentable->*before)(items, argument))
            return false;
    }
    if (!routine())
        return false;
    done();
    if (after) {
        for (Augment *augmentable : augmentables)
            (augmentable->*after)(items, argument);
    }
    return true;
}

} // namespace Velmora::Framework::Internal
