#include "model/itemtypemimecodec.h"

#include <QtCore/qbytearray.h>
#include <QtCore/qdatastream.h>
#include <QtCore/qendian.h>
#include <QtCore/qiodevice.h>
#include <QtCore/qmimedata.h>

namespace Velmora::Framework {

namespace {

constexpr quint32 extendedSize = 0xFFFFFFFE; // a 64-bit count follows
constexpr quint32 nullString = 0xFFFFFFFF;

// Reads Qt's data-stream list of strings from data without trusting any declared size: the
// payload may come from another process through the clipboard. QDataStream's own list reader
// reserves the declared count up front, so a forged count would allocate gigabytes. Here
// every count and length is held against the bytes that are really left. False when damaged.
bool readStringList(const QByteArray &data, QStringList &out)
{
    qsizetype pos = 0;
    const auto readU32 = [&](quint32 &value) {
        if (data.size() - pos < 4)
            return false;
        value = qFromBigEndian<quint32>(data.constData() + pos);
        pos += 4;
        return true;
    };

    quint32 shortCount = 0;
    if (!readU32(shortCount) || shortCount == nullString)
        return false;
    qint64 count = shortCount;
    if (shortCount == extendedSize) {
        if (data.size() - pos < 8)
            return false;
        count = qFromBigEndian<qint64>(data.constData() + pos);
        pos += 8;
    }
    // Every string takes at least its 4-byte length.
    if (count < 0 || count > (data.size() - pos) / 4)
        return false;

    QStringList strings;
    strings.reserve(qsizetype(count));
    for (qint64 i = 0; i < count; ++i) {
        quint32 bytes = 0;
        if (!readU32(bytes))
            return false;
        if (bytes == nullString) {
            strings.append(QString());
            continue;
        }
        // UTF-16 comes in whole code units; a length beyond the payload also catches the
        // 64-bit string sizes of newer stream versions, which no identifier needs.
        if ((bytes & 1) != 0 || bytes > quint64(data.size() - pos))
            return false;
        QString text(qsizetype(bytes / 2), Qt::Uninitialized);
        qFromBigEndian<char16_t>(data.constData() + pos, bytes / 2, text.data());
        pos += bytes;
        strings.append(text);
    }
    out = strings;
    return true;
}

} // namespace

QString ItemTypeMimeCodec::mimeType()
{
    return QStringLiteral("application/vnd.framework.itemtype.iid");
}

bool ItemTypeMimeCodec::encode(QMimeData *mime, QStringList &ids, const QString &id)
{
    if (!mime)
        return false;
    ids.append(id);
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream << ids;
    mime->setData(mimeType(), data);
    return true;
}

bool ItemTypeMimeCodec::decode(const QMimeData *mime, QStringList &ids)
{
    if (!mime || !mime->hasFormat(mimeType()))
        return false;
    if (!readStringList(mime->data(mimeType()), ids))
        ids.clear();
    return true;
}

} // namespace Velmora::Framework
