#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "Surrogates.h"
#include "UnitBlocks.h"
#include "UnitRuns.h"

// The encodings of output, and what becomes of the characters of strings in them. Each has
//   Unit      what its text consists of
//   Others    which units of a block do not stand for themselves
//   PutOther  writes what begins with such a unit, one character or more; false for a lone
//             surrogate where there are no units for one

namespace QXJSON {

/// How many units of an output one unit of a string becomes at most: \uXXXX.
constexpr size_t kLongestCharacter = 6;

/// Whether two units are a pair of surrogates. A zero follows a string.
inline bool IsPair(const wchar_t* units) {
    return IsHighSurrogate(units[0]) && IsLowSurrogate(units[1]);
}

/// Writes a unit as \uXXXX.
template <class Unit>
void PutHex(Unit*& to, unsigned unit) {
    *to++ = Unit{'\\'};
    *to++ = Unit{'u'};
    for (int shift = 12; shift >= 0; shift -= 4)
        *to++ = static_cast<Unit>("0123456789ABCDEF"[unit >> shift & 0xF]);
}

/// Writes a unit that JSON escapes in every encoding.
template <class Unit>
void PutEscape(Unit*& to, wchar_t unit) {
    static constexpr char kLetters[] =
        "uuuuuuuubtnufruu"
        "uuuuuuuuuuuuuuuu";
    const char letter = unit < 0x20 ? kLetters[unit] : static_cast<char>(unit);
    if (letter == 'u') return PutHex(to, unit);
    *to++ = Unit{'\\'};
    *to++ = static_cast<Unit>(letter);
}

/// UTF-16 as it stands, lone surrogates included.
struct CopiedUtf16 {
    using Unit = wchar_t;

    static UnitMask Others(UnitBlock units) { return RunEnds(units); }

    static bool PutOther(const wchar_t*& from, const wchar_t*, Unit*& to) {
        PutEscape(to, *from++);
        return true;
    }
};

/// UTF-16 that ends at a lone surrogate, as every encoding does that has no units for one.
struct CheckedUtf16 {
    using Unit = wchar_t;

    static UnitMask Others(UnitBlock units) { return RunEnds(units) | SurrogatesIn(units); }

    static bool PutOther(const wchar_t*& from, const wchar_t* end, Unit*& to) {
        if (!IsSurrogate(*from)) return CopiedUtf16::PutOther(from, end, to);
        if (!IsPair(from)) return false;
        *to++ = *from++;
        *to++ = *from++;
        return true;
    }
};

/// What the two encodings of bytes have in common: ASCII, and the rest by `Rules::PutWide`.
template <class Rules>
struct AsciiAnd {
    using Unit = char;

    static UnitMask Others(UnitBlock units) {
        return RunEnds(units) | MaskOf(InRange(units, kBeyond, 0xFFFF));
    }

    static bool PutOther(const wchar_t*& from, const wchar_t* end, Unit*& to) {
        if (*from < kBeyond) {
            PutEscape(to, *from++);
            return true;
        }
        do {
            const bool isPair = IsPair(from);
            if (!isPair && IsSurrogate(*from)) return false;
            Rules::PutWide(from, isPair, to);
            from += isPair ? 2 : 1;
        } while (from != end && *from >= kBeyond);
        return true;
    }

private:
    static constexpr wchar_t kBeyond = 0x80;
};

/// ASCII, with everything beyond it as \uXXXX.
struct EscapedAscii : AsciiAnd<EscapedAscii> {
    static void PutWide(const wchar_t* from, bool isPair, Unit*& to) {
        PutHex(to, from[0]);
        if (isPair) PutHex(to, from[1]);
    }
};

/// UTF-8.
struct EncodedUtf8 : AsciiAnd<EncodedUtf8> {
    static void PutWide(const wchar_t* from, bool isPair, Unit*& to) {
        const unsigned unit = from[0];
        if (isPair) {
            const unsigned character = 0x10000 + ((unit & 0x3FF) << 10 | (from[1] & 0x3FF));
            PutBits(to, 0xF0, character, 18);
        } else if (unit >= 0x800) {
            PutBits(to, 0xE0, unit, 12);
        } else {
            PutBits(to, 0xC0, unit, 6);
        }
    }

private:
    /// Writes the bits of a character, six to a byte; those above `shift` go with the mark.
    static void PutBits(Unit*& to, unsigned mark, unsigned character, int shift) {
        *to++ = static_cast<char>(mark | character >> shift);
        while ((shift -= 6) >= 0) *to++ = static_cast<char>(0x80 | (character >> shift & 0x3F));
    }
};

inline void StoreUnits(wchar_t* to, UnitBlock units) {
    _mm_storeu_si128(reinterpret_cast<UnitBlock*>(to), units);
}
inline void StoreUnits(char* to, UnitBlock units) {
    _mm_storel_epi64(reinterpret_cast<UnitBlock*>(to), _mm_packus_epi16(units, units));
}

/// Copies the first few units of a string, up to the first that does not stand for itself; returns
/// how many. There is room for `count`, which is less than a block.
template <class Encoding>
size_t PutFew(typename Encoding::Unit* to, const wchar_t* from, size_t count) {
    using Unit = typename Encoding::Unit;
    constexpr size_t kHalf = kBlockUnits / 2;
    if (count < kHalf) {
        uint64_t few = 0x0020'0020'0020'0020;
        for (size_t at = count; at-- > 0;) {
            few = few << 16 | from[at];
            to[at] = static_cast<Unit>(from[at]);
        }
        // The other half is zeros, which are written otherwise too: there always is a first.
        const UnitBlock units = _mm_cvtsi64_si128(static_cast<int64_t>(few));
        return std::min<size_t>(count, FirstUnit(Encoding::Others(units)));
    }
    // Two halves, which may have units in common.
    const size_t last = count - kHalf;
    const UnitBlock units = _mm_set_epi64x(static_cast<int64_t>(LoadEight(from + last)),
                                           static_cast<int64_t>(LoadEight(from)));
    Unit both[kBlockUnits];
    StoreUnits(both, units);
    std::memcpy(to, both, kHalf * sizeof(Unit));
    std::memcpy(to + last, both + kHalf, kHalf * sizeof(Unit));
    const UnitMask others = Encoding::Others(units);
    if (others == 0) return count;
    const size_t first = FirstUnit(others);
    return first < kHalf ? first : first - kHalf + last;
}

/// The same of a string of any length. Blocks at the end may cover units a second time.
template <class Encoding>
size_t PutPlain(typename Encoding::Unit* to, const wchar_t* from, size_t count) {
    if (count < kBlockUnits) return PutFew<Encoding>(to, from, count);
    const size_t last = count - kBlockUnits;
    for (size_t at = 0;; at = std::min(at + kBlockUnits, last)) {
        const UnitBlock units = LoadBlock(from + at);
        StoreUnits(to + at, units);
        if (const UnitMask others = Encoding::Others(units)) return at + FirstUnit(others);
        if (at == last) return count;
    }
}

/// Writes a string; false where it ended early. There is room for all of it.
template <class Encoding>
bool PutText(const wchar_t* from, const wchar_t* end, typename Encoding::Unit*& to) {
    while (from != end) {
        const size_t plain = PutPlain<Encoding>(to, from, static_cast<size_t>(end - from));
        from += plain;
        to += plain;
        if (from != end && !Encoding::PutOther(from, end, to)) return false;
    }
    return true;
}

}  // namespace QXJSON
