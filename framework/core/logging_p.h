#pragma once

#include <QtCore/qloggingcategory.h>

// One category per layer, so users select or silence the library's messages with
// QT_LOGGING_RULES (e.g. "velmora.framework.model.debug=false"). Not public API.
namespace Velmora::Framework::Internal {
Q_DECLARE_LOGGING_CATEGORY(lcCore)
Q_DECLARE_LOGGING_CATEGORY(lcModel)
Q_DECLARE_LOGGING_CATEGORY(lcTypes)
Q_DECLARE_LOGGING_CATEGORY(lcViews)
Q_DECLARE_LOGGING_CATEGORY(lcDialogs)
Q_DECLARE_LOGGING_CATEGORY(lcShell)
} // namespace Velmora::Framework::Internal
