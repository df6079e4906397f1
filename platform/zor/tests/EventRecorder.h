// A sink that records managed events and lets a test wait for them.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Zor/EventSink.h"

class CEventRecorder : public Zor::IManagedEventSink {
public:
    void ManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_values.push_back(name + instance.OidStr() + "=" + value.ToString("<null>"));
        m_threads.push_back(std::this_thread::get_id());
        m_cv.notify_all();
    }

    // True once at least n events arrived within the time.
    bool WaitFor(size_t n, int ms = 3000)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cv.wait_for(lock, std::chrono::milliseconds(ms), [&] { return m_values.size() >= n; });
    }

    // "name.instance=value" of each event, and the thread that delivered it.
    std::vector<std::string> Values()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_values;
    }
    std::vector<std::thread::id> Threads()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_threads;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<std::string> m_values;
    std::vector<std::thread::id> m_threads;
};
