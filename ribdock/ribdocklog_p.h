#pragma once

#include <QtCore/qloggingcategory.h>

namespace Velmora::Ribdock::Internal {
Q_DECLARE_LOGGING_CATEGORY(lcRibdock)
} // namespace Velmora::Ribdock::Internal
