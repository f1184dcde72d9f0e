#pragma once

#include <stdint.h>

#include "UnitBlocks.h"

// Decimal digits in text, eight at a time.

namespace QXJSON {

/// The digits in front of what is none.
struct Digits {
    unsigned count;  ///< at most eight
    uint32_t number;
};

constexpr unsigned kMostDigits = 8;

/// The same of eight bytes, the first of which is the lowest.
inline Digits DigitsOf(uint64_t bytes) {
    constexpr uint64_t kEach = 0x0101'0101'0101'0101;
    constexpr uint64_t kTopBits = 0x80 * kEach;
    uint64_t digits = bytes ^ '0' * kEach;
    // The lowest byte that is more than 9 gets or has its top bit; those above it do not count.
    const uint64_t others = ((digits + (0x7F - 9) * kEach) | digits) & kTopBits;
    const unsigned count = others != 0 ? TrailingZeros(others) / 8 : kMostDigits;
    if (count == 0) return {0, 0};
    // As if zeros stood in front; then neighbours are joined, and pairs, and fours.
    digits <<= 8 * (kMostDigits - count);
    digits = digits * (10 << 8 | 1) >> 8;
    digits = (digits & 0x00FF'00FF'00FF'00FF) * (100 << 16 | 1) >> 16;
    digits = (digits & 0x0000'FFFF'0000'FFFF) * (uint64_t{10'000} << 32 | 1) >> 32;
    return {count, static_cast<uint32_t>(digits)};
}

/// The digits from here in UTF-8, whose next eight bytes must be readable.
inline Digits DigitsAt(const char* bytes) { return DigitsOf(LoadEight(bytes)); }

/// The digits from here in UTF-16 text, whose next eight units must lie in one page.
inline Digits DigitsAt(const wchar_t* units) {
    // What does not fit into a byte becomes one that is no digit.
    return DigitsOf(AsBytes(LoadInPage(units)));
}

}  // namespace QXJSON
