#pragma once

#include <emmintrin.h>
#include <stdint.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "common/platform/Compiler.h"

// UTF-16 text eight units at a time.

namespace QXJSON {

/// Eight units.
using UnitBlock = __m128i;
/// Two bits for each unit of a block.
using UnitMask = unsigned;

constexpr size_t kBlockUnits = 8;
constexpr uintptr_t kBlockBytes = sizeof(UnitBlock);

/// An aligned block never reaches into a page that the text does not, so that it does no harm to
/// look at units before a text or after its end; only an address sanitizer would object.
JSON_NO_ADDRESS_SANITIZER inline UnitBlock LoadAligned(const wchar_t* block) {
    return _mm_load_si128(reinterpret_cast<const UnitBlock*>(block));
}

inline UnitBlock LoadBlock(const void* units) {
    return _mm_loadu_si128(static_cast<const UnitBlock*>(units));
}

/// A block that lies in one page with the beginning of the text, and may reach beyond its end.
JSON_NO_ADDRESS_SANITIZER inline UnitBlock LoadInPage(const wchar_t* units) {
    return _mm_loadu_si128(reinterpret_cast<const UnitBlock*>(units));
}

/// The same unit eight times.
inline UnitBlock AllUnits(int unit) { return _mm_set1_epi16(static_cast<short>(unit)); }

/// Whether each unit lies in [first, last].
inline UnitBlock InRange(UnitBlock units, int first, int last) {
    const UnitBlock distance = _mm_sub_epi16(units, AllUnits(first));
    return _mm_cmpeq_epi16(_mm_subs_epu16(distance, AllUnits(last - first)), _mm_setzero_si128());
}

/// Whether each unit is the given one.
inline UnitBlock EqualTo(UnitBlock units, int unit) {
    return _mm_cmpeq_epi16(units, AllUnits(unit));
}

/// Whether the one or the other holds for each unit.
inline UnitBlock Either(UnitBlock a, UnitBlock b) { return _mm_or_si128(a, b); }

inline UnitMask MaskOf(UnitBlock flags) { return static_cast<UnitMask>(_mm_movemask_epi8(flags)); }

/// Units from 0xD800 to 0xDFFF.
inline UnitMask SurrogatesIn(UnitBlock units) {
    return MaskOf(EqualTo(_mm_and_si128(units, AllUnits(0xF800)), 0xD800));
}

/// The first unit of a mask that is not empty.
inline unsigned FirstUnit(UnitMask mask) { return TrailingZeros(mask) / sizeof(wchar_t); }

/// The lower half of a block as bytes; what does not fit into one becomes 0 or 255.
inline uint64_t AsBytes(UnitBlock units) {
    return static_cast<uint64_t>(_mm_cvtsi128_si64(_mm_packus_epi16(units, units)));
}

/// Whether so many bytes from here lie in one page: where the first of them can be read, all can.
inline bool InOnePage(const void* bytes, size_t count) {
    constexpr uintptr_t kPage = 4096;
    return reinterpret_cast<uintptr_t>(bytes) % kPage <= kPage - count;
}

/// Eight bytes from here.
inline uint64_t LoadEight(const void* bytes) {
    uint64_t eight = 0;
    std::memcpy(&eight, bytes, sizeof eight);
    return eight;
}

/// Copies units; for the short runs of most texts a call of memcpy costs more than the copy.
inline void CopyUnits(wchar_t* to, const wchar_t* from, size_t count) {
    constexpr size_t kHalf = kBlockUnits / 2;
    const auto copy = [=](size_t at, auto bytes) { std::memcpy(to + at, from + at, bytes); };
    if (count >= kBlockUnits) {
        // What the last block has in common with the one before is copied twice.
        const size_t last = count - kBlockUnits;
        for (size_t at = 0; at < last; at += kBlockUnits) copy(at, kBlockBytes);
        copy(last, kBlockBytes);
    } else if (count >= kHalf) {
        copy(0, kBlockBytes / 2);
        copy(count - kHalf, kBlockBytes / 2);
    } else {
        for (size_t at = 0; at < count; ++at) to[at] = from[at];
    }
}

/// Reverses the bytes of units of any size.
template <class Unit>
void SwapBytes(Unit* units, size_t count) {
    size_t at = 0;
    if constexpr (sizeof(Unit) == sizeof(wchar_t)) {
        for (; count - at >= kBlockUnits; at += kBlockUnits) {
            const UnitBlock block = LoadBlock(units + at);
            _mm_storeu_si128(reinterpret_cast<UnitBlock*>(units + at),
                             _mm_or_si128(_mm_slli_epi16(block, 8), _mm_srli_epi16(block, 8)));
        }
    }
    for (; at < count; ++at) {
        auto* const bytes = reinterpret_cast<unsigned char*>(units + at);
        std::reverse(bytes, bytes + sizeof(Unit));
    }
}

/// Whether a text has the alignment of its units, so that aligned blocks hold whole ones.
inline bool IsAligned(const wchar_t* text) {
    return reinterpret_cast<uintptr_t>(text) % sizeof(wchar_t) == 0;
}

/// The first unit of an aligned text that a test of blocks finds; there must be one.
template <class Test>
JSON_NO_ADDRESS_SANITIZER inline const wchar_t* FindUnit(const wchar_t* text, Test test) {
    // In numbers, because the block may begin before the text's memory.
    const auto address = reinterpret_cast<uintptr_t>(text);
    const uintptr_t ahead = address % kBlockBytes;
    const auto* block = reinterpret_cast<const wchar_t*>(address - ahead);
    UnitMask found = test(LoadAligned(block)) >> ahead << ahead;
    while (found == 0) found = test(LoadAligned(block += kBlockUnits));
    return block + FirstUnit(found);
}

}  // namespace QXJSON
