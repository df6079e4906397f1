#include "Qb/Print.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>

namespace Qb {

namespace {
std::mutex g_printMutex;
}

int MyPrintf(const char* fmt, ...)
{
    // Format first, then write the whole text under one lock, so concurrent callers never
    // interleave within a call and nobody formats while holding the lock.
    char small[256];
    va_list args;
    va_start(args, fmt);
    va_list copy;
    va_copy(copy, args);
    const int n = vsnprintf(small, sizeof small, fmt, args);
    va_end(args);
    if (n < 0) {
        va_end(copy);
        return n;
    }
    std::string big;
    const char* text = small;
    if (static_cast<size_t>(n) >= sizeof small) {
        big.resize(static_cast<size_t>(n) + 1);
        vsnprintf(&big[0], big.size(), fmt, copy);
        text = big.c_str();
    }
    va_end(copy);

    std::lock_guard<std::mutex> lock(g_printMutex);
    fwrite(text, 1, static_cast<size_t>(n), stdout);
    // Flushing once per call covers "flushed at every newline": the call is written whole.
    fflush(stdout);
    return n;
}

}  // namespace Qb
