// Counting semaphore with a millisecond wait.
#pragma once

#include <condition_variable>
#include <mutex>

#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

namespace Qb {

class CSemaphore : private CUncopyable {
public:
    explicit CSemaphore(uint32 initialCount = 0);
    ~CSemaphore();

    // Takes one count. timeoutMs < 0 waits for ever. True when taken, false on time-out.
    bool Wait(int32 timeoutMs);
    void Post();
    uint32 Count();

private:
    std::mutex m_mutex;
    std::condition_variable m_cond;
    uint32 m_uCount;
};

}  // namespace Qb
