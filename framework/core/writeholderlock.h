#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qmutex.h>
#include <QtCore/qnamespace.h>
#include <QtCore/qreadwritelock.h>

#include <atomic>

namespace Velmora::Framework {

// The lighter re-entrant lock that the view model embeds: only the write holder may re-enter
// (its reads are counted beside its writes). A non-holder that reads twice relies on the
// underlying lock alone, so it must not do so while a writer may be waiting.
class VELMORA_FRAMEWORK_EXPORT WriteHolderLock
{
public:
    WriteHolderLock() = default;
    ~WriteHolderLock();
    WriteHolderLock(const WriteHolderLock &) = delete;
    WriteHolderLock &operator=(const WriteHolderLock &) = delete;

    bool isWriteLockHolder() const;
    void lockForRead();
    void unlockRead();
    void lockForWrite();
    void unlockWrite();

private:
    QReadWriteLock m_rwLock{QReadWriteLock::NonRecursive};
    // Only the holder ever stores its own id here, so a thread can tell whether it holds the
    // lock from a plain atomic load; the inline thread id spares the read fast path a call.
    std::atomic<Qt::HANDLE> m_writeHolder{nullptr};
    // Touched only by the write holder while it holds the lock: the lock itself orders them.
    int m_holderReadCount = 0;
    int m_writeCount = 0;
    // Held while the write lock changes hands.
    QMutex m_guard;
};

} // namespace Velmora::Framework
