#pragma once

#include "velmoraframework_global.h"
#include "core/ibase.h"

namespace Velmora::Framework {

// A reader/writer lock that the thread holding it may re-enter: the write holder may read and
// write again, a reader may read again even while a writer waits. A reader cannot upgrade.
class VELMORA_FRAMEWORK_EXPORT IDeadlockFreeLock : public virtual IBase
{
public:
    virtual bool isWriteLockHolder() const = 0;
    virtual void lockForRead() = 0;
    virtual void lockForWrite() = 0;
    virtual void unlockRead() = 0;
    virtual void unlockWrite() = 0;
    virtual bool tryLockForRead() = 0;
    virtual bool tryLockForWrite() = 0;
};

} // namespace Velmora::Framework
