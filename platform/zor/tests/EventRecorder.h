// A sink that records managed events and lets a test wait for them.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Zor/EventSink.h"

struct RecordedEvent {
    std::string name;
    std::string instance;
    std::string value;
    std::thread::id thread;
};

class CEventRecorder : public Zor::IManagedEventSink {
public:
    void ManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_events.push_back(
            RecordedEvent{name, instance.OidStr(), value.ToString("<null>"), std::this_thread::get_id()});
        m_cv.notify_all();
    }

    // True once at least n events arrived within the time.
    bool WaitFor(size_t n, int ms = 3000)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cv.wait_for(lock, std::chrono::milliseconds(ms), [&] { return m_events.size() >= n; });
    }

    std::vector<RecordedEvent> Events()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_events;
    }

    std::vector<std::string> Values()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        std::vector<std::string> out;
        for (const auto& e : m_events) {
            out.push_back(e.name + e.instance + "=" + e.value);
        }
        return out;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<RecordedEvent> m_events;
};
