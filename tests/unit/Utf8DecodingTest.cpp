// UTF-8 in runs and blocks, against a decoder that goes character by character.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "common/text/Utf8Source.h"

namespace {

using namespace QXJSON;

using Decoded = std::optional<std::wstring>;

// ---- The plain way -----------------------------------------------------------------------------

void PutUtf16(std::wstring& out, uint32_t c) {
    if (c < 0x10000) {
        out += static_cast<wchar_t>(c);
        return;
    }
    out += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
    out += static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
}

/// The bytes of a number in the shortest form, whether it is a character or not.
std::string ToUtf8(uint32_t c) {
    const auto following = [&](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) return {static_cast<char>(c)};
    if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), following(0)};
    if (c < 0x10000) return {static_cast<char>(0xE0 | c >> 12), following(6), following(0)};
    return {static_cast<char>(0xF0 | c >> 18), following(12), following(6), following(0)};
}

/// The well-formed sequences beyond ASCII, as the Unicode standard lists them: the ranges of their
/// first two bytes, and how many there are; the others go from 80 to BF.
struct Sequence {
    unsigned firstLow, firstHigh, secondLow, secondHigh;
    size_t length;
};

constexpr Sequence kSequences[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

/// The length of the well-formed sequence at the start of the bytes, or 0.
size_t SequenceAt(std::string_view bytes) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const auto lies = [](unsigned b, unsigned low, unsigned high) { return b >= low && b <= high; };
    if (byte(0) < 0x80) return 1;
    for (const Sequence& s : kSequences) {
        if (bytes.size() < s.length || !lies(byte(0), s.firstLow, s.firstHigh)) continue;
        bool good = lies(byte(1), s.secondLow, s.secondHigh);
        for (size_t i = 2; i < s.length; ++i) good = good && lies(byte(i), 0x80, 0xBF);
        return good ? s.length : 0;
    }
    return 0;
}

/// Decodes up to the first zero; nothing when the bytes before it are not well-formed.
Decoded PlainDecode(std::string_view bytes) {
    std::wstring out;
    while (!bytes.empty() && bytes[0] != 0) {
        const size_t length = SequenceAt(bytes);
        if (length == 0) return std::nullopt;
        uint32_t c = static_cast<unsigned char>(bytes[0]);
        if (length > 1) c &= 0x7Fu >> length;
        for (size_t i = 1; i < length; ++i)
            c = c << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3F);
        PutUtf16(out, c);
        bytes.remove_prefix(length);
    }
    return out;
}

// ---- The fast way ------------------------------------------------------------------------------

/// Gives bytes in pieces of one size.
class Pieces final : public ByteSource {
public:
    Pieces(std::string_view bytes, size_t pieceSize) : rest(bytes), size(pieceSize) {}

    size_t Read(char* block, size_t room) override {
        const size_t count = std::min({room, size, rest.size()});
        std::copy_n(rest.begin(), count, block);
        rest.remove_prefix(count);
        return count;
    }

private:
    std::string_view rest;
    size_t size;
};

constexpr size_t kPieces[] = {1, 2, 3, 16, 17, ByteBlock::kSize};

/// The inside of a string that stands for the bytes up to their first zero: what would end it, or
/// be refused there, as escapes.
std::string InString(std::string_view bytes) {
    std::string text;
    for (const char c : bytes.substr(0, bytes.find('\0'))) {
        char escape[] = "\\u0000";
        std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned char>(c));
        const auto unit = static_cast<unsigned char>(c);
        if (unit < 0x20 || c == '"' || c == '\\')
            text += escape;
        else
            text += c;
    }
    return text + '"';
}

/// Decodes as the library's reader does inside a string.
Decoded Decode(std::string_view bytes, size_t pieceSize) {
    const std::string text = InString(bytes);
    Pieces pieces(text, pieceSize);
    ByteBlock memory;
    Utf8Stream stream(pieces, memory);
    HeapAllocator heap;
    ByteBuffer scratch(&heap, 16);
    Utf8Source source(stream, scratch);
    const char* const behind = source.ReadText(source.Begin());
    if (!behind) return std::nullopt;
    EXPECT_EQ(stream.End(), behind);
    return std::wstring(source.Text());
}

testing::AssertionResult Agrees(std::string_view bytes) {
    const Decoded expected = PlainDecode(bytes);
    for (const size_t size : kPieces) {
        const Decoded decoded = Decode(bytes, size);
        if (decoded == expected) continue;
        return testing::AssertionFailure()
               << testing::PrintToString(std::string(bytes)) << " in pieces of " << size
               << (decoded ? " decodes" : " is refused");
    }
    return testing::AssertionSuccess();
}

TEST(Utf8Decoding, EveryNumberThatTheFormCanHold) {
    int characters = 0;
    for (uint32_t c = 0; c < 0x200000; ++c) {
        const std::string bytes = ToUtf8(c);
        const bool isCharacter = c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
        ASSERT_EQ(isCharacter, PlainDecode(bytes).has_value()) << c;
        ASSERT_EQ(PlainDecode(bytes), Decode(bytes, ByteBlock::kSize)) << c;
        characters += isCharacter ? 1 : 0;
    }
    EXPECT_EQ(0x110000 - 0x800, characters);
}

/// At the end, and before and after what makes up whole steps.
TEST(Utf8Decoding, EveryTwoBytes) {
    const std::string rest(40, 'x');
    for (unsigned first = 0; first < 0x100; ++first)
        for (unsigned second = 0; second < 0x100; ++second) {
            const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
            const std::string before = rest + bytes;
            const std::string behind = bytes + rest;
            for (const std::string& text : {bytes, before, behind})
                ASSERT_EQ(PlainDecode(text), Decode(text, ByteBlock::kSize))
                    << testing::PrintToString(text);
        }
}

/// Each lead byte with following bytes at the edges of all ranges, cut off at every place.
TEST(Utf8Decoding, EdgesOfAllRanges) {
    constexpr unsigned char kEdges[] = {0x00, 0x7F, 0x80, 0x8F, 0x90, 0x9F,
                                        0xA0, 0xBF, 0xC0, 0xC2, 0xFF};
    for (unsigned lead = 0x80; lead < 0x100; ++lead)
        for (const unsigned char second : kEdges)
            for (const unsigned char third : kEdges)
                for (const unsigned char fourth : kEdges) {
                    const char all[] = {static_cast<char>(lead), static_cast<char>(second),
                                        static_cast<char>(third), static_cast<char>(fourth)};
                    for (size_t size = 1; size <= 4; ++size) {
                        const std::string_view bytes(all, size);
                        ASSERT_EQ(PlainDecode(bytes), Decode(bytes, 3))
                            << testing::PrintToString(std::string(bytes));
                    }
                }
}

/// A character of each length in each place of ASCII text of each length.
TEST(Utf8Decoding, OneCharacterAmongAscii) {
    for (const std::string& character :
         {std::string("\xC3\xA9"), std::string("\xE2\x82\xAC"), std::string("\xF0\x9D\x84\x9E"),
          std::string(1, '\0'), std::string("\xED\xA0\x80"), std::string("\xE9"), std::string("\\"),
          std::string("\"\x1F")})
        for (size_t length = 0; length < 40; ++length)
            for (size_t at = 0; at <= length; ++at) {
                std::string bytes(length, 'x');
                ASSERT_TRUE(Agrees(bytes.insert(at, character)));
            }
}

std::string RandomText(std::mt19937& random) {
    std::string bytes;
    for (size_t runs = 1 + random() % 6; runs > 0; --runs) {
        const uint32_t limit = std::min(0x80u << (random() % 15), 0x10FFFFu);
        for (size_t count = random() % 24; count > 0; --count)
            bytes += ToUtf8(1 + random() % limit);
    }
    return bytes;
}

TEST(Utf8Decoding, RandomAndMutatedText) {
    std::mt19937 random(8);
    int refused = 0;
    constexpr int kTexts = 20'000;
    for (int i = 0; i < kTexts; ++i) {
        std::string bytes = RandomText(random);
        for (size_t mutations = random() % 3; mutations > 0 && !bytes.empty(); --mutations)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        refused += PlainDecode(bytes) ? 0 : 1;
        ASSERT_TRUE(Agrees(bytes));
    }
    EXPECT_GT(refused, kTexts / 10);
    EXPECT_LT(refused, kTexts / 10 * 9);
}

TEST(Utf8Decoding, RandomBytes) {
    std::mt19937 random(9);
    for (int i = 0; i < 20'000; ++i) {
        std::string bytes(random() % 20, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        ASSERT_TRUE(Agrees(bytes));
    }
}

/// Runs and characters across the ends of blocks.
TEST(Utf8Decoding, LongText) {
    std::mt19937 random(10);
    for (int i = 0; i < 50; ++i) {
        std::string bytes;
        while (bytes.size() < 3 * ByteBlock::kSize)
            bytes += std::string(random() % 3000, 'x') + RandomText(random);
        ASSERT_TRUE(Agrees(bytes));
        bytes[random() % bytes.size()] = static_cast<char>(random());
        ASSERT_TRUE(Agrees(bytes));
    }
}

bool IsBlank(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }

void ExpectBlanksSkipped(size_t blanks, char last, size_t pieceSize) {
    std::string bytes;
    for (size_t i = 0; i < blanks; ++i) bytes += " \n\r\t"[i % 4];
    bytes += last;
    Pieces pieces(bytes, pieceSize);
    ByteBlock memory;
    Utf8Stream stream(pieces, memory);
    HeapAllocator heap;
    ByteBuffer scratch(&heap, 16);
    Utf8Source source(stream, scratch);
    const char* const behind = source.PassBlanks(source.Begin());
    ASSERT_EQ(last, *behind) << "pieces of " << pieceSize;
    stream.GoOn(behind);
    ASSERT_EQ(blanks, stream.Tell()) << "pieces of " << pieceSize << ", before " << int{last};
}

/// Any number of blanks before any byte, in blocks of any size.
TEST(Utf8Decoding, SkipsBlanks) {
    for (const size_t size : kPieces) {
        for (unsigned last = 0; last < 0x100; ++last) {
            if (IsBlank(static_cast<char>(last))) continue;
            for (const size_t blanks : {0u, 1u, 2u, 15u, 16u, 17u, 40u})
                ExpectBlanksSkipped(blanks, static_cast<char>(last), size);
        }
        for (const size_t blanks : {4095u, 4096u, 4097u, 8192u, 9000u})
            ExpectBlanksSkipped(blanks, 'x', size);
    }
}

/// At its end a stream gives zeroes, however often it is asked.
TEST(Utf8Decoding, StaysAtItsEnd) {
    for (const std::string& bytes : {std::string(), std::string("[]"), std::string("  \n"),
                                     std::string(ByteBlock::kSize, ' ')})
        for (const size_t size : kPieces) {
            Pieces pieces(bytes, size);
            ByteBlock memory;
            Utf8Stream stream(pieces, memory);
            for (const char c : bytes) EXPECT_EQ(c, stream.Take());
            for (int i = 0; i < 3; ++i) {
                EXPECT_EQ(0, stream.Take());
                EXPECT_EQ(bytes.size(), stream.Tell());
            }
        }
}

}  // namespace
