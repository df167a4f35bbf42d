#include "core/logging_p.h"

namespace Velmora::Framework::Internal {
Q_LOGGING_CATEGORY(lcCore, "velmora.framework.core")
Q_LOGGING_CATEGORY(lcModel, "velmora.framework.model")
Q_LOGGING_CATEGORY(lcTypes, "velmora.framework.types")
Q_LOGGING_CATEGORY(lcViews, "velmora.framework.views")
Q_LOGGING_CATEGORY(lcDialogs, "velmora.framework.dialogs")
Q_LOGGING_CATEGORY(lcShell, "velmora.framework.shell")
} // namespace Velmora::Framework::Internal
