#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

namespace Velmora::Framework {

// The solution item type: the root of the tree, whose children are projects. Its work is done
// through its file and generic operations.
class VELMORA_FRAMEWORK_EXPORT ITypeSolution : public virtual IBase
{
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::ITypeSolution, VELMORA_IID_ITYPESOLUTION)
