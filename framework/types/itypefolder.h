#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

namespace Velmora::Framework {

// Folder item types: they only group children.
class VELMORA_FRAMEWORK_EXPORT ITypeFolder : public virtual IBase
{
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::ITypeFolder, VELMORA_IID_ITYPEFOLDER)
