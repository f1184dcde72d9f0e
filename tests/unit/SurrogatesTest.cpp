// Whether UTF-16 text is well-formed, against a loop over its units.

#include "common/text/Surrogates.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace QXJSON;

/// How many units stand before the first lone surrogate, one unit at a time.
size_t PlainWellFormedLength(const std::wstring& text) {
    const auto isHigh = [](wchar_t c) { return c >= 0xD800 && c <= 0xDBFF; };
    const auto isLow = [](wchar_t c) { return c >= 0xDC00 && c <= 0xDFFF; };
    size_t at = 0;
    while (at < text.size()) {
        if (isLow(text[at])) break;
        if (!isHigh(text[at])) {
            ++at;
        } else if (at + 1 < text.size() && isLow(text[at + 1])) {
            at += 2;
        } else {
            break;
        }
    }
    return at;
}

TEST(WellFormedLength, EveryUnit) {
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        for (const size_t front : {0u, 7u, 8u, 12u}) {
            std::wstring text(front, L'x');
            text += static_cast<wchar_t>(unit);
            text.append(9, L'y');
            ASSERT_EQ(PlainWellFormedLength(text), WellFormedLength(text)) << unit << ' ' << front;
        }
}

TEST(WellFormedLength, RandomSurrogates) {
    constexpr wchar_t kUnits[] = {L'a',   0xD7FF, 0xD800, 0xDBFF, 0xDC00,
                                  0xDFFF, 0xE000, 0xFFFF, 0xD834, 0xDD1E};
    std::mt19937 random(16);
    size_t whole = 0;
    for (int i = 0; i < 200'000; ++i) {
        std::wstring text(random() % 8, L'-');
        for (size_t pieces = random() % 20; pieces > 0; --pieces) {
            const size_t kind = random() % 24;
            if (kind < std::size(kUnits) && kind > 7 - random() % 8)
                text += kUnits[kind];
            else if (kind < 16)
                text += L"\xD834\xDD1E";
            else
                text.append(kind - 12, L'x');
        }
        const size_t expected = PlainWellFormedLength(text);
        whole += expected == text.size();
        ASSERT_EQ(expected, WellFormedLength(text)) << testing::PrintToString(text);
    }
    EXPECT_GT(whole, 5'000u);
    EXPECT_LT(whole, 195'000u);
}

}  // namespace
