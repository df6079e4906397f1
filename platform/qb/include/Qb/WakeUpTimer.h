// One timer thread that calls sinks after an interval, once or repeatedly.
#pragma once

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "Qb/Thread.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

namespace Qb {

// Receiver of timer call-backs.
class IProcessRequests : private CUncopyable {
public:
    virtual ~IProcessRequests() = default;
    // Called on the timer thread when an event of this sink is due.
    virtual void ProcessRequest() = 0;
};

class CWakeUpTimer : private CUncopyable {
public:
    // constexpr (implicitly inline): callers may bind it by reference, as test macros do.
    static constexpr unsigned INVALID_ID = 0;

    // priority > 0: the timer thread runs SCHED_RR at that priority where allowed.
    explicit CWakeUpTimer(int priority = 0);
    // Stops the thread; pending events are dropped without being called. Never destroy the
    // timer from one of its own call-backs.
    ~CWakeUpTimer();

    // Schedules sink->ProcessRequest() after intervalMs (monotonic clock), then every
    // intervalMs while repeat is true (a repeating interval of 0 counts as 1 ms). Sets id to
    // the new event's identifier (never INVALID_ID) and returns true; false (and id =
    // INVALID_ID) for a null sink. A late call-back keeps the period's phase; periods missed
    // entirely are skipped, not replayed in a burst.
    bool AddEvent(IProcessRequests* sink, uint32 intervalMs, unsigned& id, bool repeat);

    // Removes the event and sets id = INVALID_ID. Safe from inside a call-back (also removing
    // itself) and from other threads; when it returns on another thread, the call-back of
    // that event is not running and will not run again, so it waits for a running call-back:
    // never call it while holding a lock that the call-back takes. False for an unknown id.
    bool RemoveEvent(unsigned& id);

    // Number of scheduled events.
    int Count();

private:
    struct Event;
    void Run();

    std::mutex m_mutex;              // guards everything below but m_thread
    std::condition_variable m_cond;  // wakes the timer thread
    std::condition_variable m_idle;  // signalled when a call-back returns
    std::map<unsigned, std::shared_ptr<Event>> m_events;
    unsigned m_uNextId;
    unsigned m_uRunningId;  // event whose call-back is running, INVALID_ID if none
    std::thread::id m_timerThread;
    bool m_bStop;
    CThread m_thread;  // last: starts once the state above exists
};

}  // namespace Qb
