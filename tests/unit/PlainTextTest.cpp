// The fast ways through UTF-16 text, against loops that are as plain as can be.

#include "common/PlainText.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
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

// ---- Blocks and pages --------------------------------------------------------------------------

/// A page that nothing readable follows.
class LastPage {
public:
    static constexpr size_t kSize = 0x10000;  // whatever the size of the system's pages

    LastPage()
        : begin(static_cast<char*>(
              VirtualAlloc(nullptr, 2 * kSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))) {
        DWORD before = 0;
        VirtualProtect(begin + kSize, kSize, PAGE_NOACCESS, &before);
    }
    ~LastPage() { VirtualFree(begin, 0, MEM_RELEASE); }
    LastPage(const LastPage&) = delete;
    LastPage& operator=(const LastPage&) = delete;

    char* End() const { return begin + kSize; }

private:
    char* begin;
};

/// Puts units, terminated or not, so that `gap` bytes are left to the end of the page.
const wchar_t* Put(const LastPage& page, const std::wstring& units, size_t gap) {
    const size_t size = units.size() * sizeof(wchar_t);
    char* const at = page.End() - gap - size;
    std::memset(page.End() - 256, 0xAB, 256);
    std::memcpy(at, units.data(), size);
    return reinterpret_cast<const wchar_t*>(at);
}

/// Even addresses, and odd ones.
TEST(LengthOf, NearTheEndOfAPage) {
    const LastPage page;
    for (size_t length = 0; length < 60; ++length)
        for (size_t gap = 0; gap < 40; ++gap) {
            std::wstring text(length, L'x');
            const wchar_t* const at = Put(page, text + L'\0', gap);
            ASSERT_EQ(length, LengthOf(at)) << gap << " bytes from the end";
        }
}

TEST(LengthOf, UnitsWithAZeroByteAreNoEnd) {
    const LastPage page;
    for (size_t gap = 0; gap < 20; ++gap)
        ASSERT_EQ(4u, LengthOf(Put(page, std::wstring(L"\x0100\x00FF\xFF00\x0001\0", 5), gap)));
}

/// Text whose end cannot be read has no length.
TEST(LengthOf, WithoutAnEnd) {
    const LastPage page;
    for (size_t length = 0; length < 40; ++length)
        for (const size_t gap : {0u, 1u})
            ASSERT_EQ(0u, LengthOf(Put(page, std::wstring(length, L'x'), gap))) << length;
    EXPECT_EQ(0u, LengthOf(reinterpret_cast<const wchar_t*>(uintptr_t{8})));
    EXPECT_EQ(0u, LengthOf(reinterpret_cast<const wchar_t*>(uintptr_t{9})));
    EXPECT_EQ(0u, LengthOf(nullptr));
}

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

TEST(EndOfRun, EveryUnitAtEveryAlignment) {
    const LastPage page;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const size_t front = unit % 19;
        const size_t gap = unit / 19 % 17 * 2;
        const std::wstring text =
            std::wstring(front, L'x') + static_cast<wchar_t>(unit) + std::wstring(3, L'y') + L'"';
        const wchar_t* const at = Put(page, text, gap);
        const auto expected = static_cast<std::ptrdiff_t>(EndsRun(unit) ? front : front + 4);
        ASSERT_EQ(expected, EndOfRun(at) - at) << unit;
        const bool surrogate = unit >= 0xD800 && unit < 0xE000;
        ASSERT_EQ(surrogate ? static_cast<std::ptrdiff_t>(front) : expected, EndOfPlainRun(at) - at)
            << unit;
        ASSERT_EQ(unit >= 0x80 ? static_cast<std::ptrdiff_t>(front) : expected,
                  EndOfAsciiRun(at) - at)
            << unit;
        ASSERT_EQ(!EndsRun(unit) && unit < 0x80, IsPlainAscii(static_cast<wchar_t>(unit))) << unit;
    }
}

TEST(CopyUnits, CopiesAsManyAsItIsTold) {
    for (size_t length = 0; length < 40; ++length) {
        std::wstring from, to(42, L'-');
        for (size_t i = 0; i < length + 2; ++i) from += static_cast<wchar_t>(0x2020 + i);
        CopyUnits(&to[1], from.data(), length);
        EXPECT_EQ(L'-' + from.substr(0, length) + std::wstring(41 - length, L'-'), to);
    }
}

TEST(NarrowUnits, NarrowsAsManyAsItIsTold) {
    for (size_t length = 0; length < 40; ++length) {
        std::wstring from;
        std::string expected = "-", to(42, '-');
        for (size_t i = 0; i < length + 2; ++i) from += static_cast<wchar_t>(0x20 + i);
        expected.append(from.begin(), from.begin() + static_cast<std::ptrdiff_t>(length));
        NarrowUnits(&to[1], from.data(), length);
        EXPECT_EQ(expected + std::string(41 - length, '-'), to);
    }
}

TEST(SwapBytes, OfUnitsOfEverySize) {
    for (size_t length = 0; length < 20; ++length) {
        std::string bytes(length, 'x');
        std::u16string units, swappedUnits;
        std::u32string wide, swappedWide;
        for (size_t i = 0; i < length; ++i) {
            const auto low = static_cast<char16_t>(i + 1);
            units += static_cast<char16_t>(0xF100 + low);
            swappedUnits += static_cast<char16_t>(low << 8 | 0xF1);
            wide += static_cast<char32_t>(0xF2345600 + low);
            swappedWide += static_cast<char32_t>(low << 24 | 0x5634F2);
        }
        SwapBytes(bytes.data(), length);
        SwapBytes(units.data(), length);
        SwapBytes(wide.data(), length);
        EXPECT_EQ(std::string(length, 'x'), bytes);
        EXPECT_TRUE(swappedUnits == units) << length;
        EXPECT_TRUE(swappedWide == wide) << length;
    }
}

TEST(EndOfRun, EveryLengthAtEveryAlignment) {
    const LastPage page;
    for (const wchar_t end : {L'\0', L'"', L'\\', L'\x1F'})
        for (size_t length = 0; length < 40; ++length)
            for (size_t gap = 0; gap < 34; gap += 2) {
                const wchar_t* const at = Put(page, std::wstring(length, L'\x8022') + end, gap);
                ASSERT_EQ(static_cast<std::ptrdiff_t>(length), EndOfRun(at) - at) << gap;
            }
}

}  // namespace
