#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qobject.h>
#include <QtCore/qvariant.h>

#include <memory>
#include <optional>

namespace Velmora::Framework {

class SharedVariantRegionPrivate;

// The process-wide board of named values. Values are read and written from the GUI thread;
// only the creation of the single instance is locked, and the first call of instanse() must
// come from one thread.
class VELMORA_FRAMEWORK_EXPORT SharedVariantRegion : public QObject
{
    Q_OBJECT

public:
    ~SharedVariantRegion() override;

    static SharedVariantRegion *instanse();

    // False, changing nothing, when name is registered already. Emits nothing.
    bool registerVariant(const QString &name, const QVariant &value, bool canTrigger);
    bool unregisterVariant(const QString &name);
    bool containsVariant(const QString &name) const;
    // Empty for an unknown name; engaged (possibly with an invalid variant) otherwise.
    std::optional<QVariant> variantValue(const QString &name) const;
    // Never creates a name. True for an equal value (without a signal); a change is
    // announced only when the name triggers.
    bool setVariantValue(const QString &name, const QVariant &value);
    bool canTriggered(const QString &name) const;
    // Always answers false, even when the flag was changed: do not test the result.
    bool setCanTriggered(const QString &name, bool canTrigger);
    // Re-announces the current value, whatever the trigger flag says.
    bool focusdTriggerSignal(const QString &name);

public Q_SLOTS:
    void slotSetVariant(const QString &name, const QVariant &value);

Q_SIGNALS:
    void signalVariantChanged(const QString &name, const QVariant &value);

private:
    explicit SharedVariantRegion(QObject *parent = nullptr);

    std::unique_ptr<SharedVariantRegionPrivate> const d;
};

} // namespace Velmora::Framework
