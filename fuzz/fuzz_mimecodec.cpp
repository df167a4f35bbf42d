// Feeds the input to the clipboard codec's decoder; what decodes must encode and decode back
// to the same list.

#include "model/itemtypemimecodec.h"

#include <QtCore/qmimedata.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using Velmora::Framework::ItemTypeMimeCodec;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QMimeData mime;
    mime.setData(ItemTypeMimeCodec::mimeType(),
                 QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    QStringList ids;
    if (!ItemTypeMimeCodec::decode(&mime, ids))
        std::abort(); // the entry is there, so decoding must answer true
    if (ids.isEmpty())
        return 0;
    QStringList written = ids.mid(0, ids.size() - 1);
    QMimeData again;
    ItemTypeMimeCodec::encode(&again, written, ids.last());
    QStringList read;
    if (!ItemTypeMimeCodec::decode(&again, read) || read != ids)
        std::abort();
    return 0;
}
