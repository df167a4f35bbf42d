#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

#include <QtCore/qlist.h>
#include <QtGui/qicon.h>

namespace Velmora::Framework {

class OrderedItem;
class ViewItem;

// An item type as a member of the type tree: it gives items their icon and contributes
// context-menu entries.
class VELMORA_FRAMEWORK_EXPORT IAggregatable : public virtual IBase
{
public:
    // state is non-zero for an expanded item.
    virtual QIcon getIcon(ViewItem *item, int state) = 0;
    // Appends the entries for item's context menu to out (borrowed, not owned by out's
    // holder); true when anything was appended.
    virtual bool contextMenu(ViewItem *item, const QList<ViewItem *> &selection,
                             QList<OrderedItem *> &out) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IAggregatable, VELMORA_IID_IAGGREGATABLE)
