#pragma once

// Writing a file so that a failed write leaves the previous one as it was.

#include <QtCore/qstring.h>

#include <functional>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Velmora::Framework::Internal {

// Hands write a device for path and replaces the previous file only when write answered true
// and every byte reached the file system; otherwise nothing at path changes. A path that
// names something other than a regular file (a FIFO, a device, a socket, a folder) is refused.
// error, when given, receives the reason of a failure.
bool saveFile(const QString &path, const std::function<bool(QIODevice *)> &write,
              QString *error = nullptr);

} // namespace Velmora::Framework::Internal
