#pragma once

#include "velmoraframework_global.h"
#include "core/ideadlockfreelock.h"

#include <QtCore/qobject.h>

#include <memory>

namespace Velmora::Framework {

class DeadlockFreeLockPrivate;

// Re-entrant reader/writer lock that keeps a read book for every thread, so re-entrant reads
// never touch the underlying lock. It has no meta-object of its own: its query answers only
// "QObject". Destroying a held lock is a caller error.
class VELMORA_FRAMEWORK_EXPORT DeadlockFreeLock : public QObject, public IDeadlockFreeLock
{
public:
    DeadlockFreeLock();
    ~DeadlockFreeLock() override;

    bool queryInterface(const char *iid, IBase **out) override;

    bool isWriteLockHolder() const override;
    void lockForRead() override;
    void lockForWrite() override;
    void unlockRead() override;
    void unlockWrite() override;
    bool tryLockForRead() override;
    bool tryLockForWrite() override;

protected:
    // The helpers below expect the book-keeping mutex to be held by the caller.
    bool amWriteLockHolder() const;
    // Adds one read to the current thread's entry at index (-1: look it up), appending one.
    void incrementReadReference(int index);
    // Removes one read of the current thread; true when that was its last one.
    bool decrementReadReference();

private:
    friend class DeadlockFreeLockPrivate;
    std::unique_ptr<DeadlockFreeLockPrivate> const d;
};

} // namespace Velmora::Framework
