#include "core/savefile_p.h"

#include <QtCore/qfileinfo.h>
#include <QtCore/qsavefile.h>

namespace Velmora::Framework::Internal {

bool saveFile(const QString &path, const std::function<bool(QIODevice *)> &write,
              QString *error)
{
    const auto fail = [error](const QString &reason) {
        if (error)
            *error = reason;
        return false;
    };
    // Renaming over a device or a FIFO would replace it, as root even /dev/null.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return fail(QStringLiteral("not a regular file"));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(file.errorString());
    // Writes are buffered, so a full disk may only show when the buffer is flushed, and some
    // Qt versions rename the short file over the old one in commit() all the same.
    if (!write(&file) || !file.flush() || file.error() != QFileDevice::NoError) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return fail(reason);
    }
    return file.commit() || fail(file.errorString());
}

} // namespace Velmora::Framework::Internal
