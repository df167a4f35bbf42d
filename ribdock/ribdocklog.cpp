#include "ribdocklog_p.h"

namespace Velmora::Ribdock::Internal {
Q_LOGGING_CATEGORY(lcRibdock, "velmora.ribdock")
} // namespace Velmora::Ribdock::Internal
