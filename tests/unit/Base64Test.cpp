// Base64 in both directions, of every length.

#include "common/text/Base64.h"

#include <gtest/gtest.h>

#include <string>

#include "common/ResultCodes.h"

namespace {

using namespace QXJSON;

const uint8_t kBytes[] = {0x00, 0xFF, 0x10, 0x80, 0x7F};

TEST(EncodeBase64, Sizes) {
    struct Row {
        uint32_t size;
        const wchar_t* text;
    };
    const Row rows[] = {{0, L""},     {1, L"AA=="},     {2, L"AP8="},
                        {3, L"AP8Q"}, {4, L"AP8QgA=="}, {5, L"AP8QgH8="}};
    MessageBuffer buffer;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.size);
        const wchar_t* text = nullptr;
        EXPECT_EQ(kSuccess, EncodeBase64(buffer, kBytes, row.size, &text));
        EXPECT_STREQ(row.text, text);
        EXPECT_EQ(buffer.Area(), text);
    }
}

/// One line, however long.
TEST(EncodeBase64, BreaksNoLines) {
    MessageBuffer buffer;
    const std::string bytes(3000, 'x');
    const wchar_t* text = nullptr;
    EXPECT_EQ(kSuccess,
              EncodeBase64(buffer, reinterpret_cast<const uint8_t*>(bytes.data()), 3000, &text));
    std::wstring expected;
    for (int i = 0; i < 1000; ++i) expected += L"eHh4";
    EXPECT_EQ(expected, text);
}

TEST(EncodeBase64, NullPointers) {
    MessageBuffer buffer;
    const wchar_t* const untouched = L"untouched";
    const wchar_t* text = untouched;
    EXPECT_EQ(kPlainFailure, EncodeBase64(buffer, nullptr, 0, &text));
    EXPECT_EQ(kPlainFailure, EncodeBase64(buffer, nullptr, 3, &text));
    EXPECT_EQ(kPlainFailure, EncodeBase64(buffer, kBytes, 3, nullptr));
    EXPECT_EQ(kPlainFailure, EncodeBase64(buffer, nullptr, 3, nullptr));
    EXPECT_EQ(untouched, text);
}

TEST(DecodeBase64, Texts) {
    struct Row {
        const wchar_t* text;
        const char* bytes;  ///< null: no base64
    };
    const Row rows[] = {{L"", ""},        {L"QQ==", "A"},        {L"QUI=", "AB"},
                        {L"QUJD", "ABC"}, {L"QUJDRA==", "ABCD"}, {L"QU JD\r\n", "ABC"},
                        {L"?", nullptr},  {L"QUJD!", nullptr},   {L"\xE9", nullptr}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        MessageBuffer buffer;
        const uint8_t* data = nullptr;
        uint32_t size = 4711;
        const int result = DecodeBase64(buffer, row.text, &data, &size);
        if (!row.bytes) {
            EXPECT_EQ(kWrongKind, result);
            EXPECT_EQ(nullptr, data);
            EXPECT_EQ(4711u, size);
            continue;
        }
        ASSERT_EQ(kSuccess, result);
        EXPECT_EQ(buffer.Area(), data);
        EXPECT_EQ(row.bytes, std::string(data, data + size));
    }
}

TEST(DecodeBase64, NullPointers) {
    MessageBuffer buffer;
    const uint8_t* data = nullptr;
    uint32_t size = 4711;
    EXPECT_EQ(kPlainFailure, DecodeBase64(buffer, nullptr, &data, &size));
    EXPECT_EQ(kPlainFailure, DecodeBase64(buffer, L"QUJD", nullptr, &size));
    EXPECT_EQ(kPlainFailure, DecodeBase64(buffer, L"QUJD", &data, nullptr));
    EXPECT_EQ(kPlainFailure, DecodeBase64(buffer, nullptr, nullptr, nullptr));
    EXPECT_EQ(nullptr, data);
    EXPECT_EQ(4711u, size);
}

/// All bytes, in all lengths of a last group.
TEST(Base64, WhatIsEncodedDecodes) {
    for (const uint32_t size : {255u, 256u, 1000u, 1001u, 1002u}) {
        std::string bytes;
        for (uint32_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 7);
        MessageBuffer from;
        MessageBuffer to;
        const wchar_t* text = nullptr;
        const uint8_t* data = nullptr;
        uint32_t count = 0;
        EXPECT_EQ(kSuccess,
                  EncodeBase64(from, reinterpret_cast<const uint8_t*>(bytes.data()), size, &text));
        EXPECT_EQ(kSuccess, DecodeBase64(to, text, &data, &count));
        EXPECT_EQ(bytes, std::string(data, data + count));
    }
}

}  // namespace
