#include "model/viewitemref.h"

namespace Velmora::Framework {

ViewItemRef::ViewItemRef(ViewItem *target)
    : ViewItem(target ? target->getType() : nullptr,
               target ? target->getItemName() : QString())
    , m_target(target)
{
}

ViewItemRef::~ViewItemRef() = default;

ViewItemRef &ViewItemRef::operator=(ViewItem &target)
{
    retarget(&target);
    return *this;
}

ViewItemRef &ViewItemRef::operator=(const ViewItemRef &other)
{
    if (&other != this)
        retarget(other.item());
    return *this;
}

void ViewItemRef::retarget(ViewItem *target)
{
    m_target = target;
    if (!target)
        return;
    setType(target->getType());
    setItemName(target->getItemName());
}

ViewItem *ViewItemRef::item() const
{
    return m_target.data();
}

bool ViewItemRef::isNull() const
{
    return m_target.isNull();
}

bool ViewItemRef::operator==(const ViewItemRef &other) const
{
    return item() == other.item();
}

bool ViewItemRef::operator==(const ViewItem &node) const
{
    return item() == &node;
}

ItemData *ViewItemRef::getItemData() const
{
    ViewItem *target = item();
    return target ? target->getItemData() : nullptr;
}

QWidget *ViewItemRef::getEditor(const QString &editorId,
                                const QList<EditorInstruction> &instructions)
{
    ViewItem *target = item();
    return target ? target->getEditor(editorId, instructions) : nullptr;
}

ItemPropertyBag *ViewItemRef::getPropertyBag()
{
    ViewItem *target = item();
    return target ? target->getPropertyBag() : nullptr;
}

} // namespace Velmora::Framework
