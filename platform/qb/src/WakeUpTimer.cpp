#include "Qb/WakeUpTimer.h"

#include <chrono>

namespace Qb {

namespace {
typedef std::chrono::steady_clock Clock;  // CLOCK_MONOTONIC
}

struct CWakeUpTimer::Event {
    IProcessRequests* pSink;
    std::chrono::milliseconds interval;
    bool bRepeat;
    Clock::time_point due;
};

CWakeUpTimer::CWakeUpTimer(int priority)
    : m_uNextId(INVALID_ID),
      m_uRunningId(INVALID_ID),
      m_bStop(false),
      m_thread("wakeuptimer", priority, [this] { Run(); })
{
    m_thread.Start();
}

CWakeUpTimer::~CWakeUpTimer()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bStop = true;
        m_events.clear();
    }
    m_cond.notify_all();
    m_thread.Join();
}

bool CWakeUpTimer::AddEvent(IProcessRequests* sink, uint32 intervalMs, unsigned& id, bool repeat)
{
    if (sink == nullptr) {
        id = INVALID_ID;
        return false;
    }
    auto ev = std::make_shared<Event>();
    ev->pSink = sink;
    // A repeating event of 0 ms would keep the timer thread busy for ever.
    ev->interval = std::chrono::milliseconds(repeat && intervalMs == 0 ? 1 : intervalMs);
    ev->bRepeat = repeat;
    ev->due = Clock::now() + ev->interval;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        // Ids count up and skip INVALID_ID and ids still in use, so a stale id held by a
        // caller does not name a new event until the counter wraps (2^32 events later).
        do {
            ++m_uNextId;
        } while (m_uNextId == INVALID_ID || m_events.count(m_uNextId) != 0 || m_uNextId == m_uRunningId);
        id = m_uNextId;
        m_events[id] = ev;
    }
    m_cond.notify_all();
    return true;
}

bool CWakeUpTimer::RemoveEvent(unsigned& id)
{
    const unsigned target = id;
    id = INVALID_ID;
    if (target == INVALID_ID)
        return false;
    std::unique_lock<std::mutex> lock(m_mutex);
    const bool found = m_events.erase(target) != 0;
    // On the timer thread the running call-back is the caller itself (or another event's,
    // which is not running): waiting would deadlock, and no call can start meanwhile.
    if (std::this_thread::get_id() != m_timerThread)
        m_idle.wait(lock, [&] { return m_uRunningId != target; });
    return found;
}

int CWakeUpTimer::Count()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_events.size());
}

void CWakeUpTimer::Run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_timerThread = std::this_thread::get_id();
    while (!m_bStop) {
        if (m_events.empty()) {
            m_cond.wait(lock);
            continue;
        }
        // Few events are scheduled at once; a scan for the earliest is cheap.
        auto next = m_events.begin();
        for (auto it = m_events.begin(); it != m_events.end(); ++it) {
            if (it->second->due < next->second->due)
                next = it;
        }
        const Clock::time_point now = Clock::now();
        if (next->second->due > now) {
            // A copy: wait_until keeps a reference, and the event may be removed meanwhile.
            const Clock::time_point due = next->second->due;
            m_cond.wait_until(lock, due);
            continue;
        }
        const unsigned id = next->first;
        std::shared_ptr<Event> ev = next->second;
        if (ev->bRepeat) {
            // Keep the period's phase, but after a stall (a slow call-back, a suspended
            // machine) skip the missed periods instead of replaying them in a burst.
            ev->due += ev->interval;
            if (ev->due <= now)
                ev->due = now + ev->interval;
        } else {
            m_events.erase(next);
        }
        m_uRunningId = id;
        lock.unlock();
        ev->pSink->ProcessRequest();
        lock.lock();
        m_uRunningId = INVALID_ID;
        m_idle.notify_all();
    }
}

}  // namespace Qb
