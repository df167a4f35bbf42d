#include "core/defaultfileaugmentable.h"

namespace Velmora::Framework {

DefaultFileAugmentable::DefaultFileAugmentable(QObject *parent)
    : QObject(parent)
{
}

DefaultFileAugmentable::~DefaultFileAugmentable() = default;

bool DefaultFileAugmentable::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

bool DefaultFileAugmentable::canOpen(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::beforeOpen(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::afterOpen(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::canSave(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::beforeSave(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::afterSave(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::canClose(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::beforeClose(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::afterClose(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::canClear(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::beforeClear(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

bool DefaultFileAugmentable::afterClear(const QList<ViewItem *> &, const QVariant &)
{
    return true;
}

} // namespace Velmora::Framework
