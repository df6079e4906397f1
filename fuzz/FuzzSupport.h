// Shared pieces of the fuzz targets: invariant checks that work both under libFuzzer (abort,
// so the fuzzer keeps the input) and in the replay test (a test failure), and the splitting
// of an input into the chunks a reader would see.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Fuzz {

// Called when an invariant does not hold. The default prints and aborts; the replay test
// installs one that throws, so that one bad input fails one test and the run goes on.
typedef void (*FailHandler)(const std::string& message);
void SetFailHandler(FailHandler handler);
[[noreturn]] void Fail(const char* condition, const char* file, int line, const std::string& detail);

// Splits input into chunks of random size, as a socket read hands them over. Byte 0 of the
// input is not part of the stream: it seeds the chunk sizes and the other random choices,
// so one input always replays the same way. Its low three bits choose the largest chunk.
class CChunker {
public:
    CChunker(const uint8_t* data, size_t size);

    const uint8_t* Stream() const { return m_pStream; }
    size_t StreamSize() const { return m_uSize; }
    // The next chunk (at least one byte); false once the stream is used up.
    bool Next(const uint8_t*& chunk, size_t& length);
    // The next number of the input's own sequence.
    uint32_t Random();

private:
    const uint8_t* m_pStream;
    size_t m_uSize;
    size_t m_uPos;
    size_t m_uMaxChunk;
    uint32_t m_uState;
};

}  // namespace Fuzz

#define FUZZ_CHECK(condition, detail)                                          \
    do {                                                                       \
        if (!(condition)) {                                                    \
            ::Fuzz::Fail(#condition, __FILE__, __LINE__, std::string(detail)); \
        }                                                                      \
    } while (false)
