#include "model/editorinstruction.h"

namespace Velmora::Framework {

namespace {

// Only a payload of exactly this type counts as a list or a map; a payload that merely
// converts (a string list, say) belongs to somebody else and is left alone.
bool holdsList(const EditorInstruction &instruction)
{
    return instruction.value.typeId() == QMetaType::QVariantList;
}

bool holdsMap(const EditorInstruction &instruction)
{
    return instruction.value.typeId() == QMetaType::QVariantMap;
}

void rename(EditorInstruction &instruction, const QString &name)
{
    if (name.isEmpty() || instruction.name == name)
        return;
    // A payload filled under another name means something else; renaming drops it.
    instruction.value = QVariant();
    instruction.name = name;
}

void clearInstruction(EditorInstruction &instruction)
{
    instruction.name = QString();
    instruction.value = QVariant();
}

} // namespace

void ListInstructionHelper::setName(EditorInstruction &instruction, const QString &name)
{
    rename(instruction, name);
}

void ListInstructionHelper::clear(EditorInstruction &instruction)
{
    clearInstruction(instruction);
}

void ListInstructionHelper::addObject(EditorInstruction &instruction, const QVariant &object)
{
    if (instruction.value.isValid() && !holdsList(instruction))
        return;
    QVariantList objects = instruction.value.toList();
    objects.append(object);
    instruction.value = objects;
}

void ListInstructionHelper::removeObject(EditorInstruction &instruction, const QVariant &object)
{
    if (!holdsList(instruction))
        return;
    QVariantList objects = instruction.value.toList();
    if (objects.removeOne(object))
        instruction.value = objects;
}

QVariantList ListInstructionHelper::getObjects(const EditorInstruction &instruction)
{
    return holdsList(instruction) ? instruction.value.toList() : QVariantList();
}

void MapInstructionHelper::setName(EditorInstruction &instruction, const QString &name)
{
    rename(instruction, name);
}

void MapInstructionHelper::clear(EditorInstruction &instruction)
{
    clearInstruction(instruction);
}

void MapInstructionHelper::addValue(EditorInstruction &instruction, const QString &key,
                                    const QVariant &value)
{
    if (instruction.value.isValid() && !holdsMap(instruction))
        return;
    QVariantMap map = instruction.value.toMap();
    map.insert(key, value);
    instruction.value = map;
}

void MapInstructionHelper::removeValue(EditorInstruction &instruction, const QString &key)
{
    if (!holdsMap(instruction))
        return;
    QVariantMap map = instruction.value.toMap();
    if (map.remove(key))
        instruction.value = map;
}

QVariant MapInstructionHelper::getValue(const EditorInstruction &instruction, const QString &key)
{
    return holdsMap(instruction) ? instruction.value.toMap().value(key) : QVariant();
}

QStringList MapInstructionHelper::getKeys(const EditorInstruction &instruction)
{
    return holdsMap(instruction) ? instruction.value.toMap().keys() : QStringList();
}

QVariantMap MapInstructionHelper::getMap(const EditorInstruction &instruction)
{
    return holdsMap(instruction) ? instruction.value.toMap() : QVariantMap();
}

} // namespace Velmora::Framework
