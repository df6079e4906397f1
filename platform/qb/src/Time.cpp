#include <time.h>

#include "Qb/Types.h"

namespace Qb {

uint32 TickMs()
{
    timespec ts;
    if (clock_gettime(CLOCK_MONOTONIC, &ts) != 0)
        return 0;
    // Wraps after ~49 days; callers compare with unsigned subtraction.
    return static_cast<uint32>(static_cast<uint64>(ts.tv_sec) * 1000u +
                               static_cast<uint64>(ts.tv_nsec) / 1000000u);
}

}  // namespace Qb
