#include "Qb/Thread.h"

#include <sched.h>
#include <time.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace Qb {

namespace {

std::atomic<bool> g_warned(false);

// Test seam: with QB_REFUSE_SCHED_RR set, a SCHED_RR request is treated as refused by the
// system, so the fallback can be exercised without (or with) privileges.
bool RealTimeRefusedByEnvironment()
{
    const char* v = std::getenv("QB_REFUSE_SCHED_RR");
    return v != nullptr && *v != '\0' && std::strcmp(v, "0") != 0;
}

void WarnOnce(const std::string& name, int priority, int err)
{
    if (g_warned.exchange(true))
        return;
    std::fprintf(stderr,
                 "qbtools: SCHED_RR priority %d refused for thread '%s' (%s); threads run with "
                 "inherited scheduling\n",
                 priority, name.c_str(), std::strerror(err));
}

}  // namespace

CThread::CThread(const std::string& name, int priority, Body body)
    : m_strName(name),
      m_iPriority(priority),
      m_body(std::move(body)),
      m_thread(),
      m_bStarted(false),
      m_bJoined(false)
{
}

CThread::~CThread()
{
    Join();
}

void* CThread::Trampoline(void* arg)
{
    CThread* self = static_cast<CThread*>(arg);
    // The kernel keeps 15 characters of a thread name.
    pthread_setname_np(pthread_self(), self->m_strName.substr(0, 15).c_str());
    if (self->m_body)
        self->m_body();
    return nullptr;
}

bool CThread::Start()
{
    if (m_bStarted && !m_bJoined)
        return false;
    m_bStarted = false;
    m_bJoined = false;

    int rc = EINVAL;
    bool created = false;
    if (m_iPriority > 0) {
        pthread_attr_t attr;
        pthread_attr_init(&attr);
        const int lo = sched_get_priority_min(SCHED_RR);
        const int hi = sched_get_priority_max(SCHED_RR);
        sched_param param;
        std::memset(&param, 0, sizeof param);
        param.sched_priority = m_iPriority < lo ? lo : (m_iPriority > hi ? hi : m_iPriority);
        rc = pthread_attr_setinheritsched(&attr, PTHREAD_EXPLICIT_SCHED);
        if (rc == 0)
            rc = pthread_attr_setschedpolicy(&attr, SCHED_RR);
        if (rc == 0)
            rc = pthread_attr_setschedparam(&attr, &param);
        if (rc == 0)
            rc = RealTimeRefusedByEnvironment() ? EPERM : pthread_create(&m_thread, &attr, Trampoline, this);
        pthread_attr_destroy(&attr);
        created = rc == 0;
        if (!created && rc != EPERM && rc != EINVAL && rc != ENOTSUP)
            return false;  // out of resources: the fallback would fail the same way
        if (!created)
            WarnOnce(m_strName, m_iPriority, rc);
    }
    if (!created) {
        rc = pthread_create(&m_thread, nullptr, Trampoline, this);
        if (rc != 0) {
            std::fprintf(stderr, "qbtools: cannot start thread '%s': %s\n", m_strName.c_str(),
                         std::strerror(rc));
            return false;
        }
    }
    m_bStarted = true;
    return true;
}

void CThread::Join()
{
    if (!m_bStarted || m_bJoined)
        return;
    pthread_join(m_thread, nullptr);
    m_bJoined = true;
}

void CThread::Sleep(uint32 ms)
{
    timespec ts;
    ts.tv_sec = static_cast<time_t>(ms / 1000u);
    ts.tv_nsec = static_cast<long>(ms % 1000u) * 1000000L;
    // Sleep the whole time even when a signal interrupts.
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &ts, &ts) == EINTR) {
    }
}

int CThread::GetPriority()
{
    int policy = 0;
    sched_param param;
    std::memset(&param, 0, sizeof param);
    if (pthread_getschedparam(pthread_self(), &policy, &param) != 0)
        return 0;
    return (policy == SCHED_RR || policy == SCHED_FIFO) ? param.sched_priority : 0;
}

}  // namespace Qb
