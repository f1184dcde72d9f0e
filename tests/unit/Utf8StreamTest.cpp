// The fast way for UTF-8 reads block by block and run by run: what matters is what stands across
// the edge of a block, and that nothing malformed gets through.

#include "common/text/Utf8Stream.h"

#include <gtest/gtest.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/writer.h>

#include <cstring>
#include <random>
#include <string>

#include "common/text/TextInput.h"

namespace {

using namespace QXJSON;

constexpr TextRules kRules = {true, false, 1024};

std::wstring TextOf(const JsonValue& value) {
    JsonTextBuffer buffer;
    rapidjson::Writer<JsonTextBuffer, JsonEncoding, JsonEncoding, HeapAllocator,
                      rapidjson::kWriteNanAndInfFlag>
        writer(buffer);
    value.Accept(writer);
    return buffer.GetString();
}

struct Outcome {
    int code;
    uint64_t offset;
    std::wstring tree;

    bool operator==(const Outcome& other) const {
        return code == other.code && offset == other.offset && tree == other.tree;
    }
};

Outcome Loaded(const std::string& bytes) {
    JsonDocument document;
    const LoadStatus status =
        LoadBytes(document, bytes.data(), static_cast<uint32_t>(bytes.size()), kRules);
    return {status.code, status.offset, TextOf(document)};
}

/// What RapidJSON makes of UTF-8, unit by unit.
Outcome Expected(const std::string& bytes) {
    JsonDocument document;
    rapidjson::MemoryStream memory(bytes.data(), bytes.size());
    rapidjson::AutoUTFInputStream<unsigned, rapidjson::MemoryStream> stream(memory,
                                                                            rapidjson::kUTF8);
    document.ParseStream<rapidjson::kParseNanAndInfFlag, rapidjson::AutoUTF<unsigned>>(stream);
    return {document.GetParseError(), document.GetErrorOffset(), TextOf(document)};
}

/// The same through the load of text, which takes what looks like UTF-8 for UTF-8 and makes no
/// second attempt. There is an even number of bytes in it.
Outcome LoadedOnce(const std::string& bytes) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), bytes.size());
    JsonDocument document;
    const LoadStatus status = LoadText(document, text.c_str(), kRules);
    return {status.code, status.offset, TextOf(document)};
}

const std::string kPieces[] = {
    "\xC3\xA9", "\xE2\x82\xAC",   "\xF0\x9D\x84\x9E",      "\\n\\u0041", "\",\"",
    "\",\n  ",  "\", 12.5e3 ,\"", "\", {\"a\" : [ ] },\"", "plain text",
};

TEST(Utf8Stream, ReadsAcrossTheEdgesOfBlocks) {
    for (const std::string& piece : kPieces) {
        const bool opens = piece == "\",\n  ";
        for (size_t front = ByteBlock::kSize - 24; front < ByteBlock::kSize + 4; ++front) {
            const std::string bytes =
                "[\"" + std::string(front, 'x') + piece + (opens ? "1]" : "yz\"]");
            const Outcome outcome = Loaded(bytes);
            EXPECT_EQ(0, outcome.code);
            EXPECT_TRUE(Expected(bytes) == outcome) << front << ": " << piece;
        }
    }
}

TEST(Utf8Stream, ReadsBlanksThatFillBlocks) {
    for (const size_t count : {1, 15, 16, 17, 4094, 4095, 4096, 4097, 20'000}) {
        std::string blanks;
        for (size_t i = 0; i < count; ++i) blanks += " \n\r\t"[i % 4];
        for (const std::string& bytes :
             {blanks + "[1]", "[" + blanks + "1]", "[1" + blanks + "]", "[1]" + blanks, blanks}) {
            EXPECT_TRUE(Expected(bytes) == Loaded(bytes)) << count;
        }
    }
}

TEST(Utf8Stream, EndsAtAZero) {
    for (const char* rest : {"", "]", " garbage"}) {
        const std::string bytes = std::string("[\"a\", 2]") + '\0' + rest;
        EXPECT_TRUE(Expected(bytes) == Loaded(bytes)) << rest;
        EXPECT_EQ(0, Loaded(bytes).code);
    }
}

TEST(Utf8Stream, ReadsEveryCharacter) {
    for (uint32_t c = 0x80; c < 0x110000; c += c < 0x3000 ? 1 : 7) {
        if (c >= 0xD800 && c < 0xE000) continue;
        rapidjson::StringBuffer bytes;
        rapidjson::UTF8<>::Encode(bytes, c);
        const std::string text = std::string("[\"") + bytes.GetString() + "\"]";
        const Outcome outcome = Loaded(text);
        ASSERT_EQ(0, outcome.code) << c;
        ASSERT_TRUE(Expected(text) == outcome) << c;
    }
}

const std::string kBroken[] = {
    "\x80",         "\xC3",     "\xC3-",        "\xE2\x82",    "\xE2\x82-", "\xE2--",
    "\xED\xA0\x80", "\xF0\x9D", "\xF0---",      "\xFF",        "\x01",      "\\q",
    "\\u12g4",      "\\u12",    "\\uD800x",     "\\uD800\\u1", "\",}",      "\" 1",
    "\",tru",       "\",1e999", "\",1.",        "\",-",        "\",2e",     "\",\"\\uD8",
    "\",{\"a\"",    "\",{1",    "\",{\"a\":1]", "\"]]",
};

/// Where an error is reported depends on how far the reader's stream is ahead: at every place
/// around the edge of a block, and of the text.
TEST(Utf8Stream, TellsErrorsAsTheLiteralWayDoes) {
    for (const std::string& piece : kBroken)
        for (const char* const rest : {"", "-", "\"]"})
            for (size_t front = ByteBlock::kSize - 14; front < ByteBlock::kSize + 2; ++front) {
                std::string bytes = "[\"" + std::string(front, 'x') + piece + rest;
                if (bytes.size() % 2 != 0) bytes.insert(0, " ");
                const Outcome outcome = LoadedOnce(bytes);
                EXPECT_NE(0, outcome.code);
                EXPECT_TRUE(Expected(bytes) == outcome)
                    << front << ": " << testing::PrintToString(piece + rest) << ", code "
                    << outcome.code << " at " << outcome.offset;
            }
}

TEST(Utf8Stream, AgreesOnRandomDocuments) {
    std::mt19937 random(7);
    int good = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = "[\"" + std::string(random() % 9000, 'x');
        for (size_t pieces = random() % 40; pieces > 0; --pieces)
            bytes += kPieces[random() % std::size(kPieces)];
        bytes += "\"]";
        const Outcome expected = Expected(bytes);
        good += expected.code == 0;
        ASSERT_TRUE(expected == Loaded(bytes)) << bytes;
    }
    EXPECT_GT(good, 100);
}

}  // namespace
