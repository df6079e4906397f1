// Atomic counters.
#pragma once

#include <atomic>

#include "Qb/Types.h"

namespace Qb {

class Atomic {
public:
    explicit Atomic(int32 value = 0) : m_value(value) {}
    int32 Get() const { return m_value.load(); }
    void Set(int32 value) { m_value.store(value); }
    // Return the new value.
    int32 Inc() { return ++m_value; }
    int32 Dec() { return --m_value; }
    int32 Add(int32 n) { return m_value += n; }

private:
    std::atomic<int32> m_value;
};

}  // namespace Qb
