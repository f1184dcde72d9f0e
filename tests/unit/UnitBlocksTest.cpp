// What is done to whole blocks of units, for every number of units.

#include "common/text/UnitBlocks.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace QXJSON;

TEST(CopyUnits, CopiesAsManyAsItIsTold) {
    for (size_t length = 0; length < 40; ++length) {
        std::wstring from, to(42, L'-');
        for (size_t i = 0; i < length + 2; ++i) from += static_cast<wchar_t>(0x2020 + i);
        CopyUnits(&to[1], from.data(), length);
        EXPECT_EQ(L'-' + from.substr(0, length) + std::wstring(41 - length, L'-'), to);
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

}  // namespace
