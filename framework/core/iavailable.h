#pragma once

#include "velmoraframework_global.h"
#include "core/identifiers.h"

#include <QtCore/qlist.h>
#include <QtCore/qobject.h>

namespace Velmora::Framework {

class ViewItem;

// Decides whether an action or menu applies to the current selection. It stands outside the
// IBase scheme; its implementers' meta-casts recognise the identifier.
class VELMORA_FRAMEWORK_EXPORT IAvailable
{
public:
    virtual ~IAvailable() = default;

    // Whether the action is shown at all.
    virtual bool evaluateAvailability(const ViewItem *current,
                                      const QList<ViewItem *> &selection) const = 0;
    // Whether it is enabled (and, for a checkable action, its checked state).
    virtual bool evaluateState(const ViewItem *current, const QList<ViewItem *> &selection) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IAvailable, VELMORA_IID_IAVAILABLE)
