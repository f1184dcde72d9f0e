// The length of zero-terminated text, at every place before the end of a page.

#include "common/text/TextLength.h"

#include <gtest/gtest.h>

#include "LastPage.h"

namespace {

using namespace QXJSON;

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

}  // namespace
