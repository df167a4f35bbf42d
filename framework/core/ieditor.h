#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

namespace Velmora::Framework {

// Marks a widget as an editor that an editor factory may keep and hand out again. It carries
// no operations: a widget is an editor when its meta-cast answers the identifier, so list
// IEditor in the widget's Q_INTERFACES.
class VELMORA_FRAMEWORK_EXPORT IEditor : public virtual IBase
{
public:
    ~IEditor() override = default;
};

} // namespace Velmora::Framework

Q_DECLARE_INTERFACE(Velmora::Framework::IEditor, VELMORA_IID_IEDITOR)
