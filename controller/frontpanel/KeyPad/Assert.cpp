#include "KeyPad/Assert.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

void FpAssertFail(const char* expr, const char* file, unsigned line, const char* function)
{
    // Build paths are absolute; the message names the source as the tree does, from
    // "controller/" on and without its extension.
    const char* shown = std::strstr(file, "controller/");
    std::string source = shown != nullptr ? shown : file;
    std::string::size_type dot = source.rfind('.');
    if (dot != std::string::npos && source.find('/', dot) == std::string::npos)
        source.erase(dot);
    std::fprintf(stderr, "%s: %s:%u: %s: Assertion `%s' failed.\n", program_invocation_short_name,
                 source.c_str(), line, function, expr);
    std::fflush(stderr);
    std::abort();
}
