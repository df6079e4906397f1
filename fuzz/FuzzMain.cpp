// The libFuzzer entry of one target; FP_FUZZ_ENTRY names the target's function.
#include <cstdio>

#include "Targets.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // The code under test prints progress lines to stdout; libFuzzer reports on stderr.
    if (std::freopen("/dev/null", "w", stdout) == nullptr) {
        std::perror("/dev/null");
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return Fuzz::FP_FUZZ_ENTRY(data, size);
}
