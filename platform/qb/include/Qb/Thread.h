// Joinable thread with an explicit SCHED_RR priority.
#pragma once

#include <pthread.h>

#include <functional>
#include <string>

#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

namespace Qb {

class CThread : private CUncopyable {
public:
    typedef std::function<void()> Body;

    // priority > 0 asks for SCHED_RR at that priority, taken from the thread attributes.
    // When the system refuses the policy (no privilege, a container) the thread starts with
    // inherited scheduling and one warning per process is written to stderr.
    // priority <= 0 starts the thread with inherited scheduling. Priorities beyond the
    // system's SCHED_RR range are clamped to it. Setting the environment variable
    // QB_REFUSE_SCHED_RR (to anything but "" or "0") makes every SCHED_RR request count as
    // refused, so the fallback can be exercised where the system would grant it.
    CThread(const std::string& name, int priority, Body body);
    // Joins the thread if it was started and not yet joined.
    ~CThread();

    // Starts the thread; false (and Handle() stays 0) when it could not be created.
    bool Start();
    // Waits for the body to return; does nothing when not started or already joined.
    void Join();

    // The native handle as a number, 0 when the thread is not started.
    unsigned long Handle() const { return m_bStarted ? static_cast<unsigned long>(m_thread) : 0UL; }
    const std::string& Name() const { return m_strName; }

    // Sleeps the calling thread for ms milliseconds.
    static void Sleep(uint32 ms);
    // The SCHED_RR/SCHED_FIFO priority of the calling thread, 0 under other policies.
    static int GetPriority();

private:
    static void* Trampoline(void* arg);

    std::string m_strName;
    int m_iPriority;
    Body m_body;
    pthread_t m_thread;
    bool m_bStarted;
    bool m_bJoined;
};

}  // namespace Qb
