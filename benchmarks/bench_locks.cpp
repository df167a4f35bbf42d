// The re-entrant locks beside the Qt lock they wrap: uncontended read and write pairs, reads
// nested in a read or a write the thread already holds, and the throughput of one reader and
// one writer on two threads. The anchor is a plain QReadWriteLock; the recursive one is shown
// for reference.

#include "benchsupport.h"

#include "core/deadlockfreelock.h"
#include "core/writeholderlock.h"
#include "model/viewmodel.h"

#include <QtCore/qreadwritelock.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <string>

using namespace Velmora::Framework;
using namespace Velmora::Benchmarks;

namespace {

template <QReadWriteLock::RecursionMode mode>
struct QtLock
{
    static constexpr bool reentrantInWrite = false;

    void lockForRead() { lock.lockForRead(); }
    void unlockRead() { lock.unlock(); }
    void lockForWrite() { lock.lockForWrite(); }
    void unlockWrite() { lock.unlock(); }

    QReadWriteLock lock{mode};
};

using Anchor = QtLock<QReadWriteLock::NonRecursive>;
using Recursive = QtLock<QReadWriteLock::Recursive>;

struct DeadlockFree : DeadlockFreeLock
{
    static constexpr bool reentrantInWrite = true;
};

struct WriteHolder : WriteHolderLock
{
    static constexpr bool reentrantInWrite = true;
};

// The model's lockers, taken and dropped as the model's own queries do.
struct ModelLockers
{
    static constexpr bool reentrantInWrite = true;

    void lockForRead() { read.emplace(&model); }
    void unlockRead() { read.reset(); }
    void lockForWrite() { write.emplace(&model); }
    void unlockWrite() { write.reset(); }

    ViewModel model;
    std::optional<ViewModelReadLocker> read;
    std::optional<ViewModelWriteLocker> write;
};

// The pairs measured construct their lockers in place, as code using them does.
template <class Lock>
void readPair(Lock &lock)
{
    if constexpr (std::is_same_v<Lock, ModelLockers>) {
        ViewModelReadLocker locker(&lock.model);
        benchmark::ClobberMemory();
    } else {
        lock.lockForRead();
        benchmark::ClobberMemory();
        lock.unlockRead();
    }
}

template <class Lock>
void writePair(Lock &lock)
{
    if constexpr (std::is_same_v<Lock, ModelLockers>) {
        ViewModelWriteLocker locker(&lock.model);
        benchmark::ClobberMemory();
    } else {
        lock.lockForWrite();
        benchmark::ClobberMemory();
        lock.unlockWrite();
    }
}

template <class Lock>
void readPairs(benchmark::State &state)
{
    Lock lock;
    for (auto _ : state)
        readPair(lock);
    reportPerItem(state, 1);
}

template <class Lock>
void writePairs(benchmark::State &state)
{
    Lock lock;
    for (auto _ : state)
        writePair(lock);
    reportPerItem(state, 1);
}

// A read pair while this thread already holds a read.
template <class Lock>
void nestedInRead(benchmark::State &state)
{
    Lock lock;
    lock.lockForRead();
    for (auto _ : state)
        readPair(lock);
    lock.unlockRead();
    reportPerItem(state, 1);
}

// A read pair while this thread holds the write lock: what every model query costs while the
// tree is changed.
template <class Lock>
void nestedInWrite(benchmark::State &state)
{
    Lock lock;
    lock.lockForWrite();
    for (auto _ : state)
        readPair(lock);
    lock.unlockWrite();
    reportPerItem(state, 1);
}

// Thread 0 writes, thread 1 reads, on one lock, each as many pairs as the other: the figure is
// the time per pair of either kind, from the pairs of both threads over the wall-clock time.
template <class Lock>
void readerAndWriter(benchmark::State &state)
{
    static std::unique_ptr<Lock> lock;
    // Made before the threads meet at the start of the loop, dropped after they meet at its end.
    if (state.thread_index() == 0)
        lock = std::make_unique<Lock>();
    const bool writer = state.thread_index() == 0;
    for (auto _ : state) {
        if (writer)
            writePair(*lock);
        else
            readPair(*lock);
    }
    reportPerItem(state, 1);
    if (state.thread_index() == 0)
        lock.reset();
}

using Function = void (*)(benchmark::State &);

benchmark::internal::Benchmark *add(const std::string &operation, const char *kind,
                                    Function function)
{
    const std::string name = operation + '/' + kind;
    return repeated(benchmark::RegisterBenchmark(name.c_str(), function)->MinTime(0.1));
}

// Every operation for each lock in turn, so that each figure sits beside its anchor's.
template <class Lock>
void addOperation(const std::string &operation, const char *kind)
{
    if (operation == "read_pair")
        add(operation, kind, &readPairs<Lock>);
    else if (operation == "write_pair")
        add(operation, kind, &writePairs<Lock>);
    else if (operation == "nested_read")
        add(operation, kind, &nestedInRead<Lock>);
    else if (operation == "nested_read_in_write" && Lock::reentrantInWrite)
        add(operation, kind, &nestedInWrite<Lock>);
    else if (operation == "reader_writer")
        add(operation, kind, &readerAndWriter<Lock>)->Threads(2)->UseRealTime()->MinTime(0.2);
}

const bool registered = [] {
    for (const char *operation :
         {"read_pair", "write_pair", "nested_read", "nested_read_in_write", "reader_writer"}) {
        addOperation<Anchor>(operation, "anchor");
        addOperation<Recursive>(operation, "recursive");
        addOperation<DeadlockFree>(operation, "deadlockfree");
        addOperation<WriteHolder>(operation, "writeholder");
        addOperation<ModelLockers>(operation, "model");
    }
    return true;
}();

} // namespace
