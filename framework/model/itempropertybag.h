#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qmap.h>
#include <QtCore/qobject.h>
#include <QtCore/qstring.h>
#include <QtCore/qvariant.h>

#include <memory>

namespace Velmora::Framework {

class ItemPropertyBagPrivate;

// A node's named property values, kept in ascending key order. The item type that made the
// bag owns it, one per node.
class VELMORA_FRAMEWORK_EXPORT ItemPropertyBag : public QObject
{
    Q_OBJECT

public:
    explicit ItemPropertyBag(QObject *parent = nullptr);
    ~ItemPropertyBag() override;

    // An empty key stores nothing and emits nothing. Otherwise replaces the value and emits
    // NotifyBagSet(key), also when the value did not change.
    void set(const QString &key, const QVariant &value);
    void set(const QString &key, const QString &value);
    void set(const QString &key, bool value);
    void set(const QString &key, int value);
    // Without it a string literal would pick the bool overload and store true.
    void set(const QString &key, const char *value);

    // False when out is null or key is empty (out untouched then), or key is absent (out is
    // set to defaultValue then). True with the stored value otherwise.
    bool get(const QString &key, QVariant *out, const QVariant &defaultValue = QVariant()) const;
    // The default only for an empty or absent key; a stored value that does not convert
    // yields QVariant's own answer (false, 0, empty).
    bool getBool(const QString &key, bool defaultValue = false) const;
    int getInt(const QString &key, int defaultValue = 0) const;
    QString getString(const QString &key, const QString &defaultValue = QString()) const;

    // Silent: listeners of NotifyBagSet must refresh on their own after a removal.
    void remove(const QString &key);
    const QMap<QString, QVariant> &propertyMap() const;

Q_SIGNALS:
    void NotifyBagSet(const QString &key);

private:
    std::unique_ptr<ItemPropertyBagPrivate> const d;
};

} // namespace Velmora::Framework
