#include "core/deadlockfreelock.h"

#include "core/rwlocktracing_p.h"

#include <QtCore/qlist.h>
#include <QtCore/qmutex.h>
#include <QtCore/qreadwritelock.h>
#include <QtCore/qthread.h>

#include <utility>

namespace Velmora::Framework {

class DeadlockFreeLockPrivate
{
public:
    ~DeadlockFreeLockPrivate() { Internal::forgetRw(rwLock); }

    int indexOfReader(QThread *thread) const
    {
        for (int i = 0; i < readers.size(); ++i) {
            if (readers.at(i).first == thread)
                return i;
        }
        return -1;
    }

    QReadWriteLock rwLock{QReadWriteLock::NonRecursive};
    QThread *writeHolder = nullptr;
    int writeCount = 0;
    // Never held while blocking on rwLock, so a blocked thread does not stop the book-keeping.
    mutable QMutex guard;
    // Threads in the order of their first read, each with its depth.
    QList<std::pair<QThread *, int>> readers;
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
    QMutexLocker locker(&d->guard);
    return d->writeCount != 0 && d->writeHolder == QThread::currentThread();
}

bool DeadlockFreeLock::amWriteLockHolder() const
{
    return d->writeCount > 0 && d->writeHolder == QThread::currentThread();
}

void DeadlockFreeLock::incrementReadReference(int index)
{
    if (index == -1)
        index = d->indexOfReader(QThread::currentThread());
    if (index >= 0)
        ++d->readers[index].second;
    else
        d->readers.append({QThread::currentThread(), 1});
}

bool DeadlockFreeLock::decrementReadReference()
{
    // A thread must not unlock a read it does not hold; that is not checked.
    const int index = d->indexOfReader(QThread::currentThread());
    if (--d->readers[index].second != 0)
        return false;
    d->readers.removeAt(index);
    return true;
}

QList<std::pair<QThread *, int>> DeadlockFreeLock::readerBook() const
{
    QMutexLocker locker(&d->guard);
    return d->readers;
}

void DeadlockFreeLock::lockForRead()
{
    d->guard.lock();
    if (amWriteLockHolder()) {
        // The writer's reads are books only; rwLock stays in write mode.
        incrementReadReference(-1);
        d->guard.unlock();
        return;
    }
    const int index = d->indexOfReader(QThread::currentThread());
    // A re-entrant read must not queue behind a waiting writer, so it skips rwLock.
    if (index == -1 && !Internal::tryLockRw(d->rwLock, Internal::LockMode::Read)) {
        d->guard.unlock();
        Internal::lockRw(d->rwLock, Internal::LockMode::Read);
        d->guard.lock();
    }
    incrementReadReference(index);
    d->guard.unlock();
}

bool DeadlockFreeLock::tryLockForRead()
{
    QMutexLocker locker(&d->guard);
    if (amWriteLockHolder()) {
        incrementReadReference(-1);
        return true;
    }
    const int index = d->indexOfReader(QThread::currentThread());
    if (index == -1 && !Internal::tryLockRw(d->rwLock, Internal::LockMode::Read))
        return false;
    incrementReadReference(index);
    return true;
}

void DeadlockFreeLock::lockForWrite()
{
    d->guard.lock();
    if (amWriteLockHolder()) {
        ++d->writeCount;
        d->guard.unlock();
        return;
    }
    d->guard.unlock();
    Internal::lockRw(d->rwLock, Internal::LockMode::Write);
    QMutexLocker locker(&d->guard);
    d->writeHolder = QThread::currentThread();
    ++d->writeCount;
}

bool DeadlockFreeLock::tryLockForWrite()
{
    QMutexLocker locker(&d->guard);
    if (!amWriteLockHolder()) {
        if (!Internal::tryLockRw(d->rwLock, Internal::LockMode::Write))
            return false;
        d->writeHolder = QThread::currentThread();
    }
    ++d->writeCount;
    return true;
}

void DeadlockFreeLock::unlockRead()
{
    d->guard.lock();
    if (amWriteLockHolder()) {
        decrementReadReference();
        d->guard.unlock();
        return;
    }
    const bool last = decrementReadReference();
    d->guard.unlock();
    if (last)
        Internal::unlockRw(d->rwLock, Internal::LockMode::Read);
}

void DeadlockFreeLock::unlockWrite()
{
    d->guard.lock();
    if (!amWriteLockHolder()) {
        d->guard.unlock();
        qDebug("Error: Non-holder thread attempt to unlock the write lock");
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
