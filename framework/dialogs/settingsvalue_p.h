#pragma once

#include <QtCore/qsettings.h>
#include <QtCore/qstring.h>

namespace Velmora::Framework::Internal {

// Runs read on the given settings (borrowed), or on the application's default settings when
// none were given, so dialogs and tests can point at a store of their own.
template <typename Read>
auto withSettings(QSettings *given, Read read)
{
    if (given)
        return read(*given);
    QSettings defaults;
    return read(defaults);
}

// Reads a Boolean setting. A value that is neither a Boolean nor one of "true", "false", "1"
// and "0" is answered with fallback and one warning naming reader, the key and the value.
bool readBoolSetting(QSettings &settings, const QString &key, bool fallback, const char *reader);

} // namespace Velmora::Framework::Internal
