#include "core/ibase.h"

namespace Velmora::Framework {

bool queryByMetaCast(QObject *object, const char *iid, IBase **out)
{
    // The meta-cast answers the address of the named part; the protocol carries it unchanged.
    *out = object ? static_cast<IBase *>(object->qt_metacast(iid)) : nullptr;
    return *out != nullptr;
}

} // namespace Velmora::Framework
