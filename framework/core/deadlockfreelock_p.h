#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qlist.h>

#include <utility>

QT_BEGIN_NAMESPACE
class QThread;
QT_END_NAMESPACE

namespace Velmora::Framework {

class DeadlockFreeLock;

namespace Internal {

// A copy of the lock's read book: each reading thread with its depth, in the order of their
// first read. Takes the book-keeping mutex itself. For tests; not part of the interface.
VELMORA_FRAMEWORK_EXPORT QList<std::pair<QThread *, int>> readerBook(const DeadlockFreeLock &lock);

} // namespace Internal
} // namespace Velmora::Framework
