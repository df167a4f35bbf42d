#include "core/sharedvariantregion.h"

#include <QtCore/qhash.h>
#include <QtCore/qmutex.h>
#include <QtCore/qscopedpointer.h>

namespace Velmora::Framework {

class SharedVariantRegionPrivate
{
public:
    QHash<QString, QVariant> variants;
    QHash<QString, bool> triggers;
};

namespace {
QScopedPointer<SharedVariantRegion> s_instance;
QMutex s_mutex;
} // namespace

SharedVariantRegion::SharedVariantRegion(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<SharedVariantRegionPrivate>())
{
}

SharedVariantRegion::~SharedVariantRegion() = default;

SharedVariantRegion *SharedVariantRegion::instanse()
{
    if (!s_instance.isNull())
        return s_instance.data();
    QMutexLocker locker(&s_mutex);
    s_instance.reset(new SharedVariantRegion);
    return s_instance.data();
}

bool SharedVariantRegion::registerVariant(const QString &name, const QVariant &value,
                                          bool canTrigger)
{
    if (d->variants.contains(name))
        return false;
    d->variants.insert(name, value);
    d->triggers.insert(name, canTrigger);
    return true;
}

bool SharedVariantRegion::unregisterVariant(const QString &name)
{
    if (!d->variants.remove(name))
        return false;
    d->triggers.remove(name);
    return true;
}

bool SharedVariantRegion::containsVariant(const QString &name) const
{
    return d->variants.contains(name);
}

std::optional<QVariant> SharedVariantRegion::variantValue(const QString &name) const
{
    const auto it = d->variants.constFind(name);
    if (it == d->variants.cend())
        return std::nullopt;
    return it.value();
}

bool SharedVariantRegion::setVariantValue(const QString &name, const QVariant &value)
{
    const auto it = d->variants.find(name);
    if (it == d->variants.end())
        return false;
    if (it.value() == value)
        return true;
    it.value() = value;
    if (d->triggers.value(name))
        emit signalVariantChanged(name, value);
    return true;
}

bool SharedVariantRegion::canTriggered(const QString &name) const
{
    return d->variants.contains(name) && d->triggers.value(name);
}

bool SharedVariantRegion::setCanTriggered(const QString &name, bool canTrigger)
{
    if (d->variants.contains(name))
        d->triggers.insert(name, canTrigger);
    return false;
}

bool SharedVariantRegion::focusdTriggerSignal(const QString &name)
{
    const auto it = d->variants.constFind(name);
    if (it == d->variants.cend())
        return false;
    emit signalVariantChanged(name, it.value());
    return true;
}

void SharedVariantRegion::slotSetVariant(const QString &name, const QVariant &value)
{
    setVariantValue(name, value);
}

} // namespace Velmora::Framework
