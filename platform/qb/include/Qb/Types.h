// Fixed-width integer names used across the platform interfaces.
#pragma once

#include <cstdint>

namespace Qb {

typedef std::int8_t int8;
typedef std::uint8_t uint8;
typedef std::int16_t int16;
typedef std::uint16_t uint16;
typedef std::int32_t int32;
typedef std::uint32_t uint32;
typedef std::int64_t int64;
typedef std::uint64_t uint64;

// Milliseconds of CLOCK_MONOTONIC truncated to 32 bits; 0 when the clock cannot be read.
uint32 TickMs();

}  // namespace Qb
