#ifndef ParkedThreads_H
#define ParkedThreads_H

#include <condition_variable>
#include <mutex>
#include <thread>

/// Two threads that wait until the end of the run. With them in the process no library takes the short cuts that it has
/// for programs of a single thread.
class ParkedThreads {
public:
    ParkedThreads() : m_first([this] { Wait(); }), m_second([this] { Wait(); }) {}
    ParkedThreads(const ParkedThreads&) = delete;
    ParkedThreads& operator=(const ParkedThreads&) = delete;

    ~ParkedThreads()
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_isOver = true;
        }
        m_change.notify_all();
        m_first.join();
        m_second.join();
    }

private:
    void Wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_change.wait(lock, [this] { return m_isOver; });
    }

    std::mutex m_mutex;
    std::condition_variable m_change;
    bool m_isOver = false;
    std::thread m_first;
    std::thread m_second;
};

#endif
