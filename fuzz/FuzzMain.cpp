// The libFuzzer entry of one target; FP_FUZZ_ENTRY names the target's function.
#include <stdio.h>  // fopencookie

#include <cstdio>

#include "Targets.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // The code under test prints progress lines to stdout; libFuzzer reports on stderr.
    // Descriptor 1 goes to /dev/null (for C++ streams and raw writes); stdio's stdout then
    // becomes a stream that drops what it is given, since the progress lines are flushed one
    // by one and a system call per key was a sixth of the keypad target's time.
    if (std::freopen("/dev/null", "w", stdout) == nullptr) {
        std::perror("/dev/null");
    }
    cookie_io_functions_t discard = {};
    discard.write = [](void*, const char*, size_t size) -> ssize_t { return static_cast<ssize_t>(size); };
    if (FILE* sink = fopencookie(nullptr, "w", discard)) {
        stdout = sink;  // glibc's stdout is a variable: every module sees the new stream
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return Fuzz::FP_FUZZ_ENTRY(data, size);
}
