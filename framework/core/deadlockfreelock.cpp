#include "core/deadlockfreelock.h"
#include "core/deadlockfreelock_p.h"

#include "core/logging_p.h"
#include "core/rwlocktracing_p.h"

#include <QtCore/qlist.h>
#include <QtCore/qmutex.h>
#include <QtCore/qreadwritelock.h>
#include <QtCore/qthread.h>
#include <QtCore/qvarlengtharray.h>

#include <algorithm>
#include <utility>

namespace Velmora::Framework {

namespace {

// QThread::currentThread() reaches Qt's thread data through the general TLS model, a call
// per lookup; a thread's QThread never changes, so each thread keeps its own in one load.
QThread *currentThread()
{
#if defined(__GNUC__)
    static thread_local QThread *current __attribute__((tls_model("initial-exec"))) = nullptr;
#else
    static thread_local QThread *current = nullptr;
#endif
    if (!current)
        current = QThread::currentThread();
    return current;
}

} // namespace

class DeadlockFreeLockPrivate
{
public:
    ~DeadlockFreeLockPrivate() { Internal::forgetRw(rwLock); }

    static const DeadlockFreeLockPrivate *get(const DeadlockFreeLock &lock) { return lock.d.get(); }

    // The helpers below expect guard to be held.
    bool isHolder(QThread *thread) const { return writeCount > 0 && writeHolder == thread; }

    Q_ALWAYS_INLINE int indexOfReader(QThread *thread) const
    {
        for (int i = 0; i < readers.size(); ++i) {
            if (readers.at(i).first == thread)
                return i;
        }
        return -1;
    }

    Q_ALWAYS_INLINE void addRead(QThread *thread, int index)
    {
        if (index == -1)
            index = indexOfReader(thread);
        if (index >= 0)
            ++readers[index].second;
        else
            readers.append({thread, 1});
    }

    // A thread must not drop a read it does not hold; that is not checked.
    Q_ALWAYS_INLINE bool dropRead(QThread *thread)
    {
        const int index = indexOfReader(thread);
        if (--readers[index].second != 0)
            return false;
        // The later readers move up one place, keeping their order.
        std::copy(readers.begin() + index + 1, readers.end(), readers.begin() + index);
        readers.removeLast();
        return true;
    }

    QReadWriteLock rwLock{QReadWriteLock::NonRecursive};
    QThread *writeHolder = nullptr;
    int writeCount = 0;
    // Never held while blocking on rwLock, so a blocked thread does not stop the book-keeping.
    mutable QMutex guard;
    // Threads in the order of their first read, each with its depth. The writer's reads add
    // and drop its entry on every query, so the few threads that read at once are kept inline:
    // no allocation, and appending and dropping stay a few instructions.
    QVarLengthArray<std::pair<QThread *, int>, 8> readers;
};

DeadlockFreeLock::DeadlockFreeLock()
    : d(std::make_unique<DeadlockFreeLockPrivate>())
{
}

DeadlockFreeLock::~DeadlockFreeLock() = default;

bool DeadlockFreeLock::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

bool DeadlockFreeLock::isWriteLockHolder() const
{
    QThread *const current = currentThread();
    QMutexLocker locker(&d->guard);
    return d->writeCount != 0 && d->writeHolder == current;
}

bool DeadlockFreeLock::amWriteLockHolder() const
{
    return d->isHolder(currentThread());
}

void DeadlockFreeLock::incrementReadReference(int index)
{
    d->addRead(currentThread(), index);
}

bool DeadlockFreeLock::decrementReadReference()
{
    return d->dropRead(currentThread());
}

QList<std::pair<QThread *, int>> Internal::readerBook(const DeadlockFreeLock &lock)
{
    const DeadlockFreeLockPrivate *d = DeadlockFreeLockPrivate::get(lock);
    QMutexLocker locker(&d->guard);
    return QList<std::pair<QThread *, int>>(d->readers.cbegin(), d->readers.cend());
}

void DeadlockFreeLock::lockForRead()
{
    QThread *const current = currentThread();
    d->guard.lock();
    if (d->isHolder(current)) {
        // The writer's reads are books only; rwLock stays in write mode.
        d->addRead(current, -1);
        d->guard.unlock();
        return;
    }
    const int index = d->indexOfReader(current);
    // A re-entrant read must not queue behind a waiting writer, so it skips rwLock.
    if (index == -1 && !Internal::tryLockRw(d->rwLock, Internal::LockMode::Read)) {
        d->guard.unlock();
        Internal::lockRw(d->rwLock, Internal::LockMode::Read);
        d->guard.lock();
    }
    d->addRead(current, index);
    d->guard.unlock();
}

bool DeadlockFreeLock::tryLockForRead()
{
    QThread *const current = currentThread();
    QMutexLocker locker(&d->guard);
    if (d->isHolder(current)) {
        d->addRead(current, -1);
        return true;
    }
    const int index = d->indexOfReader(current);
    if (index == -1 && !Internal::tryLockRw(d->rwLock, Internal::LockMode::Read))
        return false;
    d->addRead(current, index);
    return true;
}

void DeadlockFreeLock::lockForWrite()
{
    QThread *const current = currentThread();
    d->guard.lock();
    if (d->isHolder(current)) {
        ++d->writeCount;
        d->guard.unlock();
        return;
    }
    d->guard.unlock();
    Internal::lockRw(d->rwLock, Internal::LockMode::Write);
    QMutexLocker locker(&d->guard);
    d->writeHolder = current;
    ++d->writeCount;
}

bool DeadlockFreeLock::tryLockForWrite()
{
    QThread *const current = currentThread();
    QMutexLocker locker(&d->guard);
    if (!d->isHolder(current)) {
        if (!Internal::tryLockRw(d->rwLock, Internal::LockMode::Write))
            return false;
        d->writeHolder = current;
    }
    ++d->writeCount;
    return true;
}

void DeadlockFreeLock::unlockRead()
{
    QThread *const current = currentThread();
    d->guard.lock();
    if (d->isHolder(current)) {
        d->dropRead(current);
        d->guard.unlock();
        return;
    }
    const bool last = d->dropRead(current);
    d->guard.unlock();
    if (last)
        Internal::unlockRw(d->rwLock, Internal::LockMode::Read);
}

void DeadlockFreeLock::unlockWrite()
{
    QThread *const current = currentThread();
    d->guard.lock();
    if (!d->isHolder(current)) {
        d->guard.unlock();
        qCDebug(Internal::lcCore, "Error: Non-holder thread attempt to unlock the write lock");
        return;
    }
    if (--d->writeCount != 0) {
        d->guard.unlock();
        return;
    }
    d->writeHolder = nullptr;
    d->guard.unlock();
    Internal::unlockRw(d->rwLock, Internal::LockMode::Write);
}

} // namespace Velmora::Framework
