#include "FuzzSupport.h"

#include <cstdio>
#include <cstdlib>

namespace Fuzz {

namespace {

void AbortOnFailure(const std::string& message)
{
    std::fprintf(stderr, "%s\n", message.c_str());
    std::abort();
}

FailHandler g_handler = AbortOnFailure;

}  // namespace

void SetFailHandler(FailHandler handler)
{
    g_handler = handler != nullptr ? handler : AbortOnFailure;
}

void Fail(const char* condition, const char* file, int line, const std::string& detail)
{
    g_handler(std::string(file) + ":" + std::to_string(line) + ": invariant broken: " + condition +
              (detail.empty() ? "" : " (" + detail + ")"));
    std::abort();  // a handler that returns is not allowed to continue the target
}

CChunker::CChunker(const uint8_t* data, size_t size)
    : m_pStream(size > 0 ? data + 1 : data),
      m_uSize(size > 0 ? size - 1 : 0),
      m_uPos(0),
      m_uMaxChunk(1),
      m_uState(1)
{
    static const size_t kMaxChunks[8] = {1, 2, 3, 5, 8, 16, 64, 256};
    const uint8_t seed = size > 0 ? data[0] : 0;
    m_uMaxChunk = kMaxChunks[seed & 7];
    m_uState = 0x9E3779B9u ^ (static_cast<uint32_t>(seed) * 0x01000193u);
}

uint32_t CChunker::Random()
{
    // xorshift32: small, and the same on every platform.
    m_uState ^= m_uState << 13;
    m_uState ^= m_uState >> 17;
    m_uState ^= m_uState << 5;
    return m_uState;
}

bool CChunker::Next(const uint8_t*& chunk, size_t& length)
{
    if (m_uPos >= m_uSize) {
        return false;
    }
    length = 1 + Random() % m_uMaxChunk;
    if (length > m_uSize - m_uPos) {
        length = m_uSize - m_uPos;
    }
    chunk = m_pStream + m_uPos;
    m_uPos += length;
    return true;
}

}  // namespace Fuzz
