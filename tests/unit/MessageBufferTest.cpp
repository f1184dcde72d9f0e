// The buffer for texts that are returned: how it grows, and that it is empty when reserved.

#include "common/messages/MessageBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "common/messages/MessageCatalogue.h"

namespace {

using namespace QXJSON;

constexpr uint32_t kInitialSize = 512;
/// The largest area of these tests.
constexpr uint32_t kLarge = 100'000;

uint8_t* BytesOf(const MessageBuffer& buffer) { return static_cast<uint8_t*>(buffer.Area()); }

bool IsZero(const MessageBuffer& buffer) {
    const uint8_t* const bytes = BytesOf(buffer);
    return std::all_of(bytes, bytes + buffer.Size(), [](uint8_t byte) { return byte == 0; });
}

/// Reserves, and fills what was reserved, as the users of the buffer do.
void Fill(MessageBuffer& buffer, uint32_t size) {
    ASSERT_TRUE(buffer.Reserve(size));
    std::memset(buffer.Area(), 0xAB, size);
}

TEST(MessageBuffer, StartsWithZeroes) {
    const MessageBuffer buffer;
    ASSERT_NE(nullptr, buffer.Area());
    EXPECT_EQ(kInitialSize, buffer.Size());
    EXPECT_TRUE(IsZero(buffer));
}

/// Sizes asked for in a row, and the size of the area after each.
TEST(MessageBuffer, GrowsAndNeverShrinks) {
    struct Row {
        uint32_t asked;
        uint32_t size;
    };
    const Row rows[] = {{0, 512},     {1, 512},     {511, 512},       {512, 512},
                        {513, 513},   {512, 513},   {2000, 2000},     {0, 2000},
                        {1999, 2000}, {2001, 2001}, {kLarge, kLarge}, {1, kLarge}};
    MessageBuffer buffer;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.asked);
        const void* const before = buffer.Area();
        const bool fits = row.asked <= buffer.Size();
        EXPECT_TRUE(buffer.Reserve(row.asked));
        EXPECT_EQ(row.size, buffer.Size());
        ASSERT_NE(nullptr, buffer.Area());
        if (fits) {
            EXPECT_EQ(before, buffer.Area()) << "there was room";
        }
        EXPECT_TRUE(IsZero(buffer));
        std::memset(buffer.Area(), 0xAB, row.asked);
    }
}

/// Whatever was returned before is gone, be it larger or smaller than what is asked for.
TEST(MessageBuffer, IsZeroAfterReserve) {
    constexpr uint32_t kSizes[] = {0, 1, 511, 512, 513, 4096};
    for (const uint32_t before : kSizes)
        for (const uint32_t next : kSizes) {
            MessageBuffer buffer;
            Fill(buffer, before);
            EXPECT_TRUE(buffer.Reserve(next));
            EXPECT_TRUE(IsZero(buffer)) << before << " bytes, then " << next;
        }
}

TEST(MessageBuffer, IsZeroAfterFetchMessage) {
    for (const uint32_t before : {0u, 1u, 512u, 4096u}) {
        MessageBuffer buffer;
        Fill(buffer, before);
        const wchar_t* text = nullptr;
        EXPECT_TRUE(buffer.FetchMessage(kEmptyText, &text));
        EXPECT_STREQ(L"The string is empty.", text);
        EXPECT_TRUE(IsZero(buffer)) << before;
        EXPECT_EQ(std::max(kInitialSize, before), buffer.Size());
    }
}

/// The text is the catalogue's own and not the buffer's.
TEST(MessageBuffer, FetchedTextsOutliveTheBuffer) {
    const wchar_t* text = nullptr;
    {
        MessageBuffer buffer;
        EXPECT_TRUE(buffer.FetchMessage(kNoError, &text));
        EXPECT_NE(static_cast<const void*>(text), buffer.Area());
    }
    EXPECT_EQ(LookUpMessage(kNoError), text);
    MessageBuffer buffer;
    for (const int code : {-5, 23}) {
        EXPECT_TRUE(buffer.FetchMessage(code, &text));
        EXPECT_STREQ(L"", text) << code;
    }
}

TEST(MessageBuffer, CopiesMessages) {
    MessageBuffer buffer;
    for (int code = 0; code < kMessageCount; ++code) {
        Fill(buffer, kInitialSize);
        const wchar_t* const copy = buffer.CopyMessage(code);
        EXPECT_EQ(buffer.Area(), copy);
        EXPECT_STREQ(LookUpMessage(code), copy);
        const size_t bytes = (std::wcslen(copy) + 1) * sizeof(wchar_t);
        EXPECT_TRUE(std::all_of(BytesOf(buffer) + bytes, BytesOf(buffer) + kInitialSize,
                                [](uint8_t byte) { return byte == 0; }));
    }
    for (const int code : {-5, -1, kMessageCount}) EXPECT_EQ(nullptr, buffer.CopyMessage(code));
}

}  // namespace
