#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace Velmora::Tests {

// How long a thread waits for another before the test gives up on it.
constexpr int threadTimeout = 5000;

// A counting semaphore on the standard primitives, which ThreadSanitizer sees (Qt's own
// semaphore and thread joins wait in code built without it).
class Semaphore
{
public:
    void release(int n = 1)
    {
        {
            std::lock_guard<std::mutex> locker(m_mutex);
            m_available += n;
        }
        m_condition.notify_all();
    }

    bool tryAcquire(int n, int milliseconds)
    {
        std::unique_lock<std::mutex> locker(m_mutex);
        if (!m_condition.wait_for(locker, std::chrono::milliseconds(milliseconds),
                                  [&] { return m_available >= n; }))
            return false;
        m_available -= n;
        return true;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    int m_available = 0;
};

// Workers wait on the test's go-ahead, but never for ever: a failed test still ends.
inline void await(Semaphore &semaphore)
{
    semaphore.tryAcquire(1, threadTimeout);
}

// A thread running body, joined when the test leaves, however it leaves.
class Worker
{
public:
    explicit Worker(std::function<void()> body)
        : m_thread(std::move(body))
    {
    }
    ~Worker() { join(); }
    void join()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    std::thread m_thread;
};

} // namespace Velmora::Tests
