#include "KeyText.h"

#include <algorithm>
#include <cstring>

#include "common/text/TextLength.h"
#include "common/text/UnitBlocks.h"

namespace QXJSON {
namespace {

/// As many units as fit into a number.
using Units = uint64_t;
constexpr size_t kUnits = sizeof(Units) / sizeof(wchar_t);
/// The bit in which the cases of a letter differ.
constexpr wchar_t kCaseBit = 0x20;

Units LoadUnits(const wchar_t* text) {
    Units units = 0;
    std::memcpy(&units, text, sizeof units);
    return units;
}

/// Up to three units, each at least once, in an order that depends on the length alone.
Units LoadFew(const wchar_t* text, size_t length) {
    if (length == 0) return 0;
    return Units{text[0]} | Units{text[length / 2]} << 16 | Units{text[length - 1]} << 32;
}

UnitBlock LowerAscii(UnitBlock units) {
    return _mm_or_si128(units, _mm_and_si128(InRange(units, 'A', 'Z'), AllUnits(kCaseBit)));
}

/// Two halves of a block.
UnitBlock Both(Units low, Units high) {
    return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
}

template <KeyMatch match>
bool BlocksMatch(UnitBlock a, UnitBlock b) {
    if constexpr (match == KeyMatch::kIgnoreCase) {
        a = LowerAscii(a);
        b = LowerAscii(b);
    }
    return MaskOf(_mm_cmpeq_epi16(a, b)) == 0xFFFF;
}

/// Blocks at the beginning and at the end of `length` units cover the others, or some of them
/// twice.
template <KeyMatch match>
bool AllMatch(const wchar_t* a, const wchar_t* b, size_t length) {
    if (length >= kBlockUnits) {
        const size_t last = length - kBlockUnits;
        for (size_t at = 0; at < last; at += kBlockUnits)
            if (!BlocksMatch<match>(LoadBlock(a + at), LoadBlock(b + at))) return false;
        return BlocksMatch<match>(LoadBlock(a + last), LoadBlock(b + last));
    }
    if (length >= kUnits) {
        const size_t last = length - kUnits;
        return BlocksMatch<match>(Both(LoadUnits(a), LoadUnits(a + last)),
                                  Both(LoadUnits(b), LoadUnits(b + last)));
    }
    return BlocksMatch<match>(Both(LoadFew(a, length), 0), Both(LoadFew(b, length), 0));
}

}  // namespace

std::wstring_view KeyOf(const wchar_t* key) { return {key, CountUnits(key)}; }

bool Matches(const wchar_t* text, std::wstring_view key, KeyMatch match) {
    return match == KeyMatch::kExact
               ? AllMatch<KeyMatch::kExact>(text, key.data(), key.size())
               : AllMatch<KeyMatch::kIgnoreCase>(text, key.data(), key.size());
}

/// Takes eight units at a time, and of the last ones some twice. What was before is in one factor
/// of the next product, and secrets are in both, so that texts have one hash by chance alone.
template <KeyMatch match>
uint32_t HashOf(std::wstring_view text, const HashKeys& keys) {
    const wchar_t* const begin = text.data();
    const size_t length = text.size();
    // A factor with many bits, or a digit could make up for a text that is one unit longer.
    uint64_t hash = keys.start + length * kGoldenRatio;
    const auto mix = [&](UnitBlock units) {
        if constexpr (match == KeyMatch::kIgnoreCase) units = LowerAscii(units);
        const auto low = static_cast<Units>(_mm_cvtsi128_si64(units));
        const auto high = static_cast<Units>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(units, units)));
        hash = Fold(low ^ keys.block, high ^ hash);
    };
    if (length < kUnits) {
        mix(Both(LoadFew(begin, length), 0));
        return FinishHash(hash);
    }
    size_t at = 0;
    for (; length - at > kBlockUnits; at += kBlockUnits) mix(LoadBlock(begin + at));
    const size_t last = length - kUnits;
    mix(Both(LoadUnits(begin + std::min(at, last)), LoadUnits(begin + last)));
    return FinishHash(hash);
}

template uint32_t HashOf<KeyMatch::kIgnoreCase>(std::wstring_view text, const HashKeys& keys);
template uint32_t HashOf<KeyMatch::kExact>(std::wstring_view text, const HashKeys& keys);

}  // namespace QXJSON
