// Progress lines on standard output.
#pragma once

namespace Qb {

// printf to stdout; output is flushed at every newline (and at the end of each call), and
// concurrent calls never interleave within one call.
int MyPrintf(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

}  // namespace Qb
