// Files around and beyond the size of the read buffer, which is 2048 bytes. The routes take turns.

#include <gtest/gtest.h>

#include "Encode.h"
#include "GraftRoute.h"
#include "GraftScene.h"

namespace {

using support::Encode;
using support::Encoding;
using support::ExpectAsReference;
using support::FileRoutes;
using support::GraftSource;
using support::Operation;

constexpr size_t kBuffer = 2048;

/// Takes the bytes in through the next of the routes; whether they were a tree.
bool NextTakes(const std::string& bytes) {
    static size_t turn = 0;
    const Operation& route = FileRoutes()[turn++ % FileRoutes().size()];
    return ExpectAsReference(route, GraftSource(route, bytes));
}

/// A document of so many bytes of UTF-8.
std::string DocumentOf(size_t size) {
    const std::string front = "{\"k\":[\"";
    const std::string back = "\",12345]}";
    return front + std::string(size - front.size() - back.size(), 'x') + back;
}

TEST(GraftLargeFiles, EverySizeAroundTheBuffer) {
    for (const size_t buffers : {1u, 2u, 3u}) {
        for (size_t size = buffers * kBuffer - 6; size <= buffers * kBuffer + 6; ++size) {
            SCOPED_TRACE(size);
            EXPECT_TRUE(NextTakes(DocumentOf(size)));
            EXPECT_FALSE(NextTakes(DocumentOf(size) + "]"));
            EXPECT_FALSE(NextTakes(DocumentOf(size).substr(0, size - 1)));
            EXPECT_FALSE(NextTakes(DocumentOf(size) + "\xC3"));
        }
    }
}

/// Characters of several bytes at every offset from the buffer's edge.
TEST(GraftLargeFiles, CharactersAcrossTheEdge) {
    for (const Encoding encoding : support::kAllEncodings) {
        for (const bool mark : {false, true}) {
            for (size_t front = 0; front < 8; ++front) {
                SCOPED_TRACE(testing::Message()
                             << NameOf(encoding) << (mark ? " with a mark, " : ", ") << front
                             << " characters in front");
                std::wstring text = L"[\"" + std::wstring(front, L'x');
                for (int i = 0; i < 500; ++i) text += L"\x4E2D\xD834\xDD1E\xE9";
                text += L"\"]";
                EXPECT_TRUE(NextTakes(Encode(text, encoding, mark)));
            }
        }
    }
}

/// Tokens of each kind across the edge.
TEST(GraftLargeFiles, TokensAcrossTheEdge) {
    for (size_t blanks = kBuffer - 60; blanks <= kBuffer; ++blanks) {
        const std::string bytes = std::string(blanks, ' ') +
                                  "{\"key\":-12.5e+3,\"a\":[true,false,null,NaN,-Infinity],"
                                  "\"\\u00e9\\n\":\"\\uD834\\uDD1E\"}";
        SCOPED_TRACE(blanks);
        EXPECT_TRUE(NextTakes(bytes));
    }
}

TEST(GraftLargeFiles, Megabytes) {
    std::wstring text = L"[0";
    for (int i = 0; i < 60000; ++i) text += L",{\"k\":[" + std::to_wstring(i) + L",\"\xE9\"]}";
    text += L"]";
    for (const Encoding encoding : {Encoding::kUtf8, Encoding::kUtf16Le})
        for (const Operation& route : FileRoutes())
            EXPECT_TRUE(ExpectAsReference(route, GraftSource(route, Encode(text, encoding))));
}

}  // namespace
