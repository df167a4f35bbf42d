#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qmetatype.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>

namespace Velmora::Framework {

// One instruction handed to an editor when an item is opened. The item type that creates the
// editor chooses the name; the value is a list of variants, a string-keyed map, or empty.
// It lives in core because the editor factories take it; the helpers that fill it are model's.
struct VELMORA_FRAMEWORK_EXPORT EditorInstruction
{
    QString name;
    QVariant value;
};

} // namespace Velmora::Framework

Q_DECLARE_METATYPE(Velmora::Framework::EditorInstruction)
