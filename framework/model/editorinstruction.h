#pragma once

#include "velmoraframework_global.h"
#include "core/editorinstruction.h"

#include <QtCore/qstringlist.h>

namespace Velmora::Framework {

// Fills an instruction whose value is a list of variants.
class VELMORA_FRAMEWORK_EXPORT ListInstructionHelper
{
public:
    // An empty name is ignored; a different name clears the instruction first.
    static void setName(EditorInstruction &instruction, const QString &name);
    static void clear(EditorInstruction &instruction);
    // Appends when the value is empty or a list; does nothing for any other value.
    static void addObject(EditorInstruction &instruction, const QVariant &object);
    // Removes the first equal element of a list value.
    static void removeObject(EditorInstruction &instruction, const QVariant &object);
    static QVariantList getObjects(const EditorInstruction &instruction);
};

// Fills an instruction whose value is a string-keyed map of variants.
class VELMORA_FRAMEWORK_EXPORT MapInstructionHelper
{
public:
    // An empty name is ignored; a different name clears the instruction first.
    static void setName(EditorInstruction &instruction, const QString &name);
    static void clear(EditorInstruction &instruction);
    // Sets key when the value is empty or a map; does nothing for any other value.
    static void addValue(EditorInstruction &instruction, const QString &key, const QVariant &value);
    static void removeValue(EditorInstruction &instruction, const QString &key);
    // An empty variant when the value is not a map or has no such key.
    static QVariant getValue(const EditorInstruction &instruction, const QString &key);
    static QStringList getKeys(const EditorInstruction &instruction);
    static QVariantMap getMap(const EditorInstruction &instruction);
};

} // namespace Velmora::Framework
