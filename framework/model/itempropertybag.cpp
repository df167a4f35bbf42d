#include "model/itempropertybag.h"

namespace Velmora::Framework {

class ItemPropertyBagPrivate
{
public:
    QMap<QString, QVariant> properties;
};

ItemPropertyBag::ItemPropertyBag(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<ItemPropertyBagPrivate>())
{
}

ItemPropertyBag::~ItemPropertyBag() = default;

void ItemPropertyBag::set(const QString &key, const QVariant &value)
{
    if (key.isEmpty())
        return;
    d->properties.insert(key, value);
    emit NotifyBagSet(key);
}

void ItemPropertyBag::set(const QString &key, const QString &value)
{
    set(key, QVariant(value));
}

void ItemPropertyBag::set(const QString &key, bool value)
{
    set(key, QVariant(value));
}

void ItemPropertyBag::set(const QString &key, int value)
{
    set(key, QVariant(value));
}

void ItemPropertyBag::set(const QString &key, const char *value)
{
    set(key, QVariant(QString::fromUtf8(value)));
}

bool ItemPropertyBag::get(const QString &key, QVariant *out, const QVariant &defaultValue) const
{
    // An empty key leaves out alone, unlike an absent one; callers rely on the difference.
    if (!out || key.isEmpty())
        return false;
    const auto it = d->properties.constFind(key);
    if (it == d->properties.constEnd()) {
        *out = defaultValue;
        return false;
    }
    *out = it.value();
    return true;
}

bool ItemPropertyBag::getBool(const QString &key, bool defaultValue) const
{
    const auto it = d->properties.constFind(key);
    return it == d->properties.constEnd() ? defaultValue : it.value().toBool();
}

int ItemPropertyBag::getInt(const QString &key, int defaultValue) const
{
    const auto it = d->properties.constFind(key);
    return it == d->properties.constEnd() ? defaultValue : it.value().toInt();
}

QString ItemPropertyBag::getString(const QString &key, const QString &defaultValue) const
{
    const auto it = d->properties.constFind(key);
    return it == d->properties.constEnd() ? defaultValue : it.value().toString();
}

void ItemPropertyBag::remove(const QString &key)
{
    d->properties.remove(key);
}

const QMap<QString, QVariant> &ItemPropertyBag::propertyMap() const
{
    return d->properties;
}

} // namespace Velmora::Framework
