#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

namespace Velmora::Framework {

class ViewItem;

// Project item types: stored in a project file of their own, holding a tree of items.
class VELMORA_FRAMEWORK_EXPORT ITypeProject : public virtual IBase
{
public:
    // False keeps the type out of the new-project dialog.
    virtual bool isPrincipal() const = 0;
    // Places a new project item under parent, after any questions the type wants to ask;
    // false cancels (the caller then deletes item).
    virtual bool newItemWizard(ViewItem *parent, ViewItem *item) = 0;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::ITypeProject, VELMORA_IID_ITYPEPROJECT)
