#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qstring.h>
#include <QtCore/qstringlist.h>

QT_BEGIN_NAMESPACE
class QMimeData;
QT_END_NAMESPACE

namespace Velmora::Framework {

// Writes and reads the item-type identifiers carried by copied or dragged nodes: a Qt data
// stream list of strings (default stream version, big-endian) under mimeType(). The list is
// in order of contribution and may repeat an identifier.
class VELMORA_FRAMEWORK_EXPORT ItemTypeMimeCodec
{
public:
    // "application/vnd.framework.itemtype.iid"
    static QString mimeType();

    // Appends id to the caller's ids, then stores all of ids in mime, replacing the entry.
    // False, touching nothing, for a null mime.
    static bool encode(QMimeData *mime, QStringList &ids, const QString &id);
    // False, leaving ids untouched, when mime is null or has no entry. Otherwise replaces ids
    // with the stored list and answers true, also for a damaged payload (ids is empty then).
    static bool decode(const QMimeData *mime, QStringList &ids);
};

} // namespace Velmora::Framework
