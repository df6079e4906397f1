#include "Qb/Semaphore.h"

#include <chrono>

namespace Qb {

CSemaphore::CSemaphore(uint32 initialCount) : m_uCount(initialCount) {}

CSemaphore::~CSemaphore() = default;

bool CSemaphore::Wait(int32 timeoutMs)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    auto available = [this] { return m_uCount > 0; };
    if (timeoutMs < 0) {
        m_cond.wait(lock, available);
    } else if (!m_cond.wait_for(lock, std::chrono::milliseconds(timeoutMs), available)) {
        return false;
    }
    --m_uCount;
    return true;
}

void CSemaphore::Post()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        ++m_uCount;
    }
    m_cond.notify_one();
}

uint32 CSemaphore::Count()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_uCount;
}

}  // namespace Qb
