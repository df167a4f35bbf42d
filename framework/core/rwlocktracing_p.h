#pragma once

// Qt's reader/writer lock waits inside code built without ThreadSanitizer, so the sanitizer
// cannot see it order threads and would report every access it guards. The locks built on it
// take and release it through these helpers, which tell the sanitizer when it is active and
// cost nothing otherwise.

#include <QtCore/qreadwritelock.h>

#if defined(__SANITIZE_THREAD__)
#  define VELMORA_TSAN 1
#elif defined(__has_feature)
#  if __has_feature(thread_sanitizer)
#    define VELMORA_TSAN 1
#  endif
#endif

#ifdef VELMORA_TSAN
#  include <sanitizer/tsan_interface.h>
#endif

namespace Velmora::Framework::Internal {

enum class LockMode { Read, Write };

#ifdef VELMORA_TSAN
inline unsigned tsanFlags(LockMode mode)
{
    return mode == LockMode::Read ? __tsan_mutex_read_lock : 0u;
}
#endif

inline void lockRw(QReadWriteLock &lock, LockMode mode)
{
#ifdef VELMORA_TSAN
    __tsan_mutex_pre_lock(&lock, tsanFlags(mode));
#endif
    if (mode == LockMode::Read)
        lock.lockForRead();
    else
        lock.lockForWrite();
#ifdef VELMORA_TSAN
    __tsan_mutex_post_lock(&lock, tsanFlags(mode), 0);
#endif
}

// Tries without waiting: a zero time-out, asked for directly, which spares the argument-less
// overload's extra call on every outermost read.
inline bool tryLockRw(QReadWriteLock &lock, LockMode mode)
{
#ifdef VELMORA_TSAN
    __tsan_mutex_pre_lock(&lock, tsanFlags(mode) | __tsan_mutex_try_lock);
#endif
    const bool locked = mode == LockMode::Read ? lock.tryLockForRead(0) : lock.tryLockForWrite(0);
#ifdef VELMORA_TSAN
    __tsan_mutex_post_lock(&lock, tsanFlags(mode) | __tsan_mutex_try_lock
                               | (locked ? 0u : __tsan_mutex_try_lock_failed), 0);
#endif
    return locked;
}

inline void unlockRw(QReadWriteLock &lock, LockMode mode)
{
#ifdef VELMORA_TSAN
    __tsan_mutex_pre_unlock(&lock, tsanFlags(mode));
#endif
    lock.unlock();
#ifdef VELMORA_TSAN
    __tsan_mutex_post_unlock(&lock, tsanFlags(mode));
#endif
}

// Called before the lock's memory goes away, so that it may hold another object later.
inline void forgetRw([[maybe_unused]] QReadWriteLock &lock)
{
#ifdef VELMORA_TSAN
    __tsan_mutex_destroy(&lock, 0);
#endif
}

} // namespace Velmora::Framework::Internal
