#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>
#include <QtCore/qvariant.h>

#include <memory>

namespace Velmora::Framework {

class DataRegistrarPrivate;

// One value per name; the first registration wins and later changes are announced.
class VELMORA_FRAMEWORK_EXPORT DataRegistrar : public QObject
{
    Q_OBJECT

public:
    DataRegistrar();
    ~DataRegistrar() override;

    // False, keeping the old value, when name is registered already.
    bool registerData(const QString &name, const QVariant &value);
    bool unregisterData(const QString &name);
    bool isRegistered(const QString &name) const;
    // An invalid QVariant for an unknown name.
    QVariant lookup(const QString &name) const;
    // Never creates a name; false when unknown or when value equals the stored one.
    bool setDataValue(const QString &name, const QVariant &value);

Q_SIGNALS:
    void signalDataRegistered(const QString &name);
    void signalDataUnregistered(const QString &name);
    void signalDataValueChanged(const QString &name, const QVariant &value);

private:
    std::unique_ptr<DataRegistrarPrivate> const d;
};

} // namespace Velmora::Framework
