// Keys against loops that are as plain as can be: every length, every unit, at all addresses.

#include "common/search/KeyText.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace {

using namespace QXJSON;

constexpr size_t kLongest = 40;
constexpr wchar_t kAlphabet[] = {L'a', L'Z', L'0', L'9', L'_', 0xC4, 0x130, 0xD83D};

wchar_t LowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool PlainlyMatches(std::wstring_view a, std::wstring_view b, KeyMatch match) {
    for (size_t i = 0; i < a.size(); ++i)
        if (match == KeyMatch::kExact ? a[i] != b[i] : LowerAscii(a[i]) != LowerAscii(b[i]))
            return false;
    return true;
}

std::wstring TextOfLength(size_t length) {
    std::wstring text;
    while (text.size() < length) text += kAlphabet[text.size() * 7 % std::size(kAlphabet)];
    return text;
}

constexpr HashKeys kKeys = {0x0123'4567'89AB'CDEF, 0xFEDC'BA98'7654'3210};

uint32_t Hash(std::wstring_view text, KeyMatch match) {
    return match == KeyMatch::kExact ? HashOf<KeyMatch::kExact>(text, kKeys)
                                     : HashOf<KeyMatch::kIgnoreCase>(text, kKeys);
}

/// Compares in both ways, from both sides. What matches has one hash, and what does not another
/// (that of these texts, under these keys).
void ExpectAsPlain(std::wstring_view a, std::wstring_view b) {
    SCOPED_TRACE(testing::PrintToString(a) + " and " + testing::PrintToString(b));
    for (const KeyMatch match : {KeyMatch::kIgnoreCase, KeyMatch::kExact}) {
        const bool expected = PlainlyMatches(a, b, match);
        EXPECT_EQ(Matches(a.data(), b, match), expected);
        EXPECT_EQ(Matches(b.data(), a, match), expected);
        EXPECT_EQ(Hash(a, match) == Hash(b, match), expected);
    }
}

TEST(KeyText, HasTheLengthOfItsTerminator) {
    for (size_t length = 0; length <= kLongest; ++length)
        for (size_t ahead = 0; ahead < 8; ++ahead) {
            const std::wstring text = std::wstring(ahead, L'x') + TextOfLength(length);
            EXPECT_EQ(KeyOf(text.c_str() + ahead), std::wstring_view(text).substr(ahead));
        }
}

TEST(KeyText, MatchesItselfAtEveryLength) {
    for (size_t length = 0; length <= kLongest; ++length) {
        const std::wstring text = TextOfLength(length);
        ExpectAsPlain(text, std::wstring(text));
    }
}

TEST(KeyText, EveryUnitCounts) {
    for (size_t length = 1; length <= kLongest; ++length)
        for (size_t at = 0; at < length; ++at)
            for (const wchar_t other : {L'A', L'z', L'\u00E4', L'\0'}) {
                const std::wstring text = TextOfLength(length);
                std::wstring changed = text;
                changed[at] = other;
                ExpectAsPlain(text, changed);
            }
}

TEST(KeyText, OnlyAsciiLettersHaveCases) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        for (const size_t length : {size_t{1}, size_t{5}, size_t{9}}) {
            const std::wstring text(length, static_cast<wchar_t>(unit));
            // The unit with which it would be one letter if all of them had cases as ASCII has.
            const std::wstring other(length, static_cast<wchar_t>(unit ^ 0x20));
            ExpectAsPlain(text, other);
        }
}

TEST(KeyText, UnitsBehindTheKeyDoNotCount) {
    for (size_t length = 0; length <= kLongest; ++length) {
        const std::wstring text = TextOfLength(length) + L"behind";
        const std::wstring other = TextOfLength(length) + L"BEFORE";
        ExpectAsPlain(std::wstring_view(text).substr(0, length),
                      std::wstring_view(other).substr(0, length));
    }
}

/// Not exact, but a hash that is the same for most texts would make every search a scan.
TEST(KeyText, HashesTellKeysApart) {
    std::set<uint32_t> hashes;
    constexpr size_t kCount = 20000;
    for (size_t i = 0; i < kCount; ++i)
        hashes.insert(Hash(L"key" + std::to_wstring(i), KeyMatch::kIgnoreCase));
    EXPECT_GT(hashes.size(), kCount - 20);
}

}  // namespace
