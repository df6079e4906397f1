#include "KeyPad/Assert.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

void FpAssertFail(const char* expr, const char* file, unsigned line, const char* function)
{
    // Build paths are absolute; the message names the file as the source tree does.
    const char* shown = std::strstr(file, "controller/");
    std::fprintf(stderr, "%s: %s:%u: %s: Assertion `%s' failed.\n", program_invocation_short_name,
                 shown != nullptr ? shown : file, line, function, expr);
    std::fflush(stderr);
    std::abort();
}
