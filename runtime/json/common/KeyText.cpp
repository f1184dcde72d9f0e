#include "KeyText.h"

#include <cstring>

#include "PlainText.h"
#include "UnitBlocks.h"

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
    const auto both = [](Units low, Units high) {
        return _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
    };
    if (length >= kUnits) {
        const size_t last = length - kUnits;
        return BlocksMatch<match>(both(LoadUnits(a), LoadUnits(a + last)),
                                  both(LoadUnits(b), LoadUnits(b + last)));
    }
    return BlocksMatch<match>(both(LoadFew(a, length), 0), both(LoadFew(b, length), 0));
}

}  // namespace

std::wstring_view KeyOf(const wchar_t* key) { return {key, CountUnits(key)}; }

bool Matches(const wchar_t* text, std::wstring_view key, KeyMatch match) {
    return match == KeyMatch::kExact
               ? AllMatch<KeyMatch::kExact>(text, key.data(), key.size())
               : AllMatch<KeyMatch::kIgnoreCase>(text, key.data(), key.size());
}

/// The case bit is set in every unit. (Units that are no letters lose it too, which only makes some
/// more hashes equal.) Of the last units some may count twice.
uint32_t HashOf(std::wstring_view text) {
    constexpr Units kCaseBits = kCaseBit * Units{0x0001'0001'0001'0001};
    constexpr uint64_t kFactor = 0x9E37'79B9'7F4A'7C15;
    uint64_t hash = text.size() * kFactor;
    const auto mix = [&](Units units) {
        hash = (hash ^ (units | kCaseBits)) * kFactor;
        hash ^= hash >> 32;
    };
    if (text.size() < kUnits) {
        mix(LoadFew(text.data(), text.size()));
    } else {
        const size_t last = text.size() - kUnits;
        for (size_t at = 0; at < last; at += kUnits) mix(LoadUnits(text.data() + at));
        mix(LoadUnits(text.data() + last));
    }
    return static_cast<uint32_t>(hash ^ hash >> 29);
}

}  // namespace QXJSON
