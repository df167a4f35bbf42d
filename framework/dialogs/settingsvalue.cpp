#include "settingsvalue_p.h"

#include "core/logging_p.h"

namespace Velmora::Framework::Internal {

bool readBoolSetting(QSettings &settings, const QString &key, bool fallback, const char *reader)
{
    const QVariant value = settings.value(key);
    if (!value.isValid())
        return fallback;
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    // Ini files and the registry hand Booleans back as text.
    const QString text = value.toString().trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("0"))
        return false;
    qCWarning(Internal::lcDialogs, "%s: unreadable value \"%s\" for %s, using %s", reader,
              qPrintable(value.toString()), qPrintable(key), fallback ? "true" : "false");
    return fallback;
}

} // namespace Velmora::Framework::Internal
