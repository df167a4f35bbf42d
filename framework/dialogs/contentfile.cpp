#include "contentfile_p.h"

#include <QtCore/qdir.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qsettings.h>

namespace Velmora::Framework::Internal {

QString resolveInside(const QString &folder, const QString &relative, QString *reason)
{
    if (relative.isEmpty() || QDir::isAbsolutePath(relative)) {
        *reason = QStringLiteral("\"%1\" is not a path inside the folder").arg(relative);
        return QString();
    }
    const QString root = QFileInfo(folder).canonicalFilePath();
    const QFileInfo file(QDir(folder).filePath(relative));
    const QString canonical = file.canonicalFilePath();
    if (canonical.isEmpty() || !file.isFile()) {
        *reason = QStringLiteral("\"%1\" does not exist").arg(relative);
        return QString();
    }
    // Compared after resolving links, so neither ".." nor a link can leave the folder.
    if (root.isEmpty() || !canonical.startsWith(root + QLatin1Char('/'))) {
        *reason = QStringLiteral("\"%1\" points outside the folder").arg(relative);
        return QString();
    }
    return canonical;
}

bool fitsReadLimit(const QString &path, qint64 limit, QString *reason)
{
    const QFileInfo info(path);
    if (!info.isFile()) {
        *reason = QStringLiteral("%1 is missing").arg(info.fileName());
        return false;
    }
    if (info.size() > limit) {
        *reason = QStringLiteral("%1 is larger than %2 bytes").arg(info.fileName()).arg(limit);
        return false;
    }
    return true;
}

QString iniText(const QSettings &ini, const QString &key)
{
    const QVariant value = ini.value(key);
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().join(QLatin1String(", ")).trimmed();
    return value.toString().trimmed();
}

} // namespace Velmora::Framework::Internal
