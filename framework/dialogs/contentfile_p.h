#pragma once

#include <QtCore/qstring.h>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace Velmora::Framework::Internal {

// The canonical path of the existing file that relative names inside folder; empty, with the
// reason in *reason, when it is absolute, missing or leads outside folder (".." or a link).
QString resolveInside(const QString &folder, const QString &relative, QString *reason);

// Whether the file at path is small enough to read whole; *reason says why not.
bool fitsReadLimit(const QString &path, qint64 limit, QString *reason);

// The text of an ini value, trimmed. Ini files split unquoted values at commas into lists;
// a description with a comma in it is still one text.
QString iniText(const QSettings &ini, const QString &key);

} // namespace Velmora::Framework::Internal
