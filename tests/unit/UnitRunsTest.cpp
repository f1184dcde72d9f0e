// Runs of units in UTF-16 text, at every alignment and before the end of a page.

#include "common/text/UnitRuns.h"

#include <gtest/gtest.h>

#include <random>

#include "LastPage.h"

namespace {

using namespace QXJSON;

bool IsBlank(unsigned unit) { return unit == ' ' || unit == '\n' || unit == '\r' || unit == '\t'; }

bool EndsRun(unsigned unit) { return unit < 0x20 || unit == '"' || unit == '\\'; }

TEST(SkipBlanks, EveryUnitAtEveryAlignment) {
    const LastPage page;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        if (IsBlank(unit)) continue;
        const size_t blanks = unit % 19;
        const size_t gap = unit / 19 % 17 * 2;
        std::wstring text;
        for (size_t i = 0; i < blanks; ++i) text += L" \n\r\t"[(unit + i) % 4];
        text += static_cast<wchar_t>(unit);
        if (unit != 0) text += L'\0';
        const wchar_t* const at = Put(page, text, gap);
        ASSERT_EQ(static_cast<std::ptrdiff_t>(blanks), SkipBlanks(at) - at) << unit;
    }
}

TEST(SkipBlanks, EveryNumberOfBlanksAtEveryAlignment) {
    const LastPage page;
    for (const wchar_t end : {L'\0', L'x', L'"', L'\x2020', L'\xA0'})
        for (size_t blanks = 0; blanks < 40; ++blanks)
            for (size_t gap = 0; gap < 34; gap += 2) {
                const std::wstring text = std::wstring(blanks, L' ') + end + L'\0';
                const wchar_t* const at = Put(page, text, gap);
                ASSERT_EQ(static_cast<std::ptrdiff_t>(blanks), SkipBlanks(at) - at) << gap;
            }
}

TEST(EndOfPlainRun, EveryUnitAtEveryAlignment) {
    const LastPage page;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const size_t front = unit % 19;
        const size_t gap = unit / 19 % 17 * 2;
        const std::wstring text =
            std::wstring(front, L'x') + static_cast<wchar_t>(unit) + std::wstring(3, L'y') + L'"';
        const wchar_t* const at = Put(page, text, gap);
        const bool ends = EndsRun(unit) || (unit >= 0xD800 && unit < 0xE000);
        ASSERT_EQ(static_cast<std::ptrdiff_t>(ends ? front : front + 4), EndOfPlainRun(at) - at)
            << unit;
    }
}

TEST(EndOfPlainRun, EveryLengthAtEveryAlignment) {
    const LastPage page;
    for (const wchar_t end : {L'\0', L'"', L'\\', L'\x1F', L'\xDC00'})
        for (size_t length = 0; length < 40; ++length)
            for (size_t gap = 0; gap < 34; gap += 2) {
                const wchar_t* const at = Put(page, std::wstring(length, L'\x8022') + end, gap);
                ASSERT_EQ(static_cast<std::ptrdiff_t>(length), EndOfPlainRun(at) - at) << gap;
            }
}

/// Where a run of well-formed text ends, pair by pair.
size_t PlainWellFormedRun(const std::wstring& text) {
    size_t at = 0;
    for (;;) {
        const unsigned unit = text[at];
        const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
        const bool isPair = isHigh && text[at + 1] >= 0xDC00 && text[at + 1] < 0xE000;
        if (EndsRun(unit) || (unit >= 0xD800 && unit < 0xE000 && !isPair)) return at;
        at += isPair ? 2 : 1;
    }
}

TEST(EndOfWellFormedRun, RandomSurrogates) {
    const LastPage page;
    std::mt19937 random(6);
    constexpr wchar_t kUnits[] = {L'x', 0x20AC, 0xD7FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000};
    int pairs = 0;
    for (int i = 0; i < 100'000; ++i) {
        std::wstring text;
        for (size_t count = random() % 24; count > 0; --count) {
            const wchar_t unit = kUnits[random() % std::size(kUnits)];
            text += unit;
            if (unit == 0xDBFF && random() % 4 != 0) text += L'\xDC00';
        }
        text += L"\"\\\x1F"[random() % 3];
        if (random() % 2 == 0) text.insert(random() % text.size(), 1, L'\0');
        const size_t expected = PlainWellFormedRun(text);
        pairs += static_cast<int>(text.find(L'\xDBFF') < expected);
        const wchar_t* const at = Put(page, text, random() % 17 * 2);
        ASSERT_EQ(static_cast<std::ptrdiff_t>(expected), EndOfWellFormedRun(at) - at)
            << testing::PrintToString(text);
    }
    EXPECT_GT(pairs, 10'000);
}

}  // namespace
