#include "core/writeholderlock.h"

#include "core/logging_p.h"
#include "core/rwlocktracing_p.h"

#include <QtCore/qthread.h>

namespace Velmora::Framework {

WriteHolderLock::~WriteHolderLock()
{
    Internal::forgetRw(m_rwLock);
}

bool WriteHolderLock::isWriteLockHolder() const
{
    // The holder test is "write count non-zero and holder is current". The holder id is set
    // after the count rises and cleared before it falls to zero, so the id alone answers it
    // for the current thread.
    return m_writeHolder.load(std::memory_order_relaxed) == QThread::currentThreadId();
}

void WriteHolderLock::lockForRead()
{
    if (isWriteLockHolder()) {
        ++m_holderReadCount;
        return;
    }
    Internal::lockRw(m_rwLock, Internal::LockMode::Read);
}

void WriteHolderLock::unlockRead()
{
    if (!isWriteLockHolder()) {
        Internal::unlockRw(m_rwLock, Internal::LockMode::Read);
        return;
    }
    if (m_holderReadCount == 0) {
        qCDebug(Internal::lcCore,
                "Error: Holder thread attempt to unlock read while refcount is already 0");
        return;
    }
    --m_holderReadCount;
}

void WriteHolderLock::lockForWrite()
{
    if (isWriteLockHolder()) {
        ++m_writeCount;
        return;
    }
    Internal::lockRw(m_rwLock, Internal::LockMode::Write);
    QMutexLocker locker(&m_guard);
    ++m_writeCount;
    m_writeHolder.store(QThread::currentThreadId(), std::memory_order_relaxed);
}

void WriteHolderLock::unlockWrite()
{
    if (!isWriteLockHolder()) {
        qCDebug(Internal::lcCore, "Error: Non-holder thread attempt to unlock the write lock");
        return;
    }
    // As in lockForWrite, only the holder touches its count, so a nested unlock needs no guard.
    if (m_writeCount > 1) {
        --m_writeCount;
        return;
    }
    QMutexLocker locker(&m_guard);
    --m_writeCount;
    m_writeHolder.store(nullptr, std::memory_order_relaxed);
    // Releasing never blocks, so it is safe under the guard.
    Internal::unlockRw(m_rwLock, Internal::LockMode::Write);
    if (m_holderReadCount != 0)
        qCDebug(Internal::lcCore, "Non-zero write holder read count at write unlock");
}

} // namespace Velmora::Framework
