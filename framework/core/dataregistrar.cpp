#include "core/dataregistrar.h"

#include <QtCore/qhash.h>

namespace Velmora::Framework {

class DataRegistrarPrivate
{
public:
    QHash<QString, QVariant> data;
};

DataRegistrar::DataRegistrar()
    : d(std::make_unique<DataRegistrarPrivate>())
{
}

DataRegistrar::~DataRegistrar() = default;

bool DataRegistrar::registerData(const QString &name, const QVariant &value)
{
    if (d->data.contains(name))
        return false;
    d->data.insert(name, value);
    emit signalDataRegistered(name);
    return true;
}

bool DataRegistrar::unregisterData(const QString &name)
{
    if (!d->data.remove(name))
        return false;
    emit signalDataUnregistered(name);
    return true;
}

bool DataRegistrar::isRegistered(const QString &name) const
{
    return d->data.contains(name);
}

QVariant DataRegistrar::lookup(const QString &name) const
{
    return d->data.value(name);
}

bool DataRegistrar::setDataValue(const QString &name, const QVariant &value)
{
    const auto it = d->data.find(name);
    if (it == d->data.end() || it.value() == value)
        return false;
    it.value() = value;
    emit signalDataValueChanged(name, value);
    return true;
}

} // namespace Velmora::Framework
