#pragma once

#include <QtCore/qsemaphore.h>
#include <QtCore/qthread.h>

#include <functional>
#include <memory>

namespace Velmora::Tests {

// How long a thread waits for another before the test gives up on it.
constexpr int threadTimeout = 5000;

// Workers wait on the test's go-ahead, but never for ever: a failed test still ends.
inline void await(QSemaphore &semaphore)
{
    semaphore.tryAcquire(1, threadTimeout);
}

// A thread running body, joined when the test leaves, however it leaves.
struct Worker
{
    explicit Worker(std::function<void()> body)
        : thread(QThread::create(std::move(body)))
    {
        thread->start();
    }
    ~Worker() { thread->wait(); }
    void join() { thread->wait(); }

    std::unique_ptr<QThread> thread;
};

} // namespace Velmora::Tests
