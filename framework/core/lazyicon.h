#pragma once

#include "velmoraframework_global.h"

#include <QtGui/qicon.h>

namespace Velmora::Framework {

// An icon that reads its file when it is first drawn or measured, not when it is made: a
// workbench makes dozens of icons for pages, menus and panels that start hidden, and parsing
// every one of them would sit on the way to the first window.
VELMORA_FRAMEWORK_EXPORT QIcon lazyIcon(const QString &fileName);

} // namespace Velmora::Framework
