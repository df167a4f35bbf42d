#include "core/defaultgenericaugmentable.h"

namespace Velmora::Framework {

DefaultGenericAugmentable::DefaultGenericAugmentable(QObject *parent)
    : QObject(parent)
{
}

DefaultGenericAugmentable::~DefaultGenericAugmentable() = default;

bool DefaultGenericAugmentable::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

bool DefaultGenericAugmentable::canAddNew(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::beforeAddNew(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::afterAddNew(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::canAddExisting(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::beforeAddExisting(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::afterAddExisting(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::canRename(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::beforeRename(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::afterRename(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::canCopy(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::beforeCopy(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::afterCopy(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::canCut(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::beforeCut(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::afterCut(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::canRemove(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::beforeRemove(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::afterRemove(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::canPaste(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::beforePaste(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultGenericAugmentable::afterPaste(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

} // namespace Velmora::Framework
