// The library's own reader against RapidJSON's, bit by bit: through the loads of text, of bytes and
// of files, for what it reads itself, for what it leaves to RapidJSON, and for every way from the
// one to the other.

#include <gtest/gtest.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/memorystream.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "LastPage.h"
#include "SameTree.h"
#include "common/text/TextInput.h"
#include "common/text/Utf8Stream.h"

namespace {

using namespace QXJSON;

constexpr TextRules kRules = {true, false, 1024};

struct Loaded {
    explicit Loaded(const wchar_t* text) { status = LoadText(document, text, kRules); }
    explicit Loaded(const std::string& bytes) {
        status = LoadBytes(document, bytes.data(), static_cast<uint32_t>(bytes.size()), kRules);
    }

    JsonDocument document;
    LoadStatus status;
};

/// RapidJSON's reader with its own detection of encodings: what the loads have to do.
struct Plain {
    explicit Plain(const std::string& bytes) {
        rapidjson::MemoryStream memory(bytes.data(), bytes.size());
        rapidjson::AutoUTFInputStream<unsigned, rapidjson::MemoryStream> stream(memory,
                                                                                rapidjson::kUTF8);
        document.ParseStream<rapidjson::kParseNanAndInfFlag, rapidjson::AutoUTF<unsigned>>(stream);
    }

    PlainDocument document;
};

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

template <class Document>
testing::AssertionResult Agrees(const Loaded& loaded, const Document& expected) {
    if (loaded.status.code != expected.GetParseError() ||
        loaded.status.offset != expected.GetErrorOffset())
        return testing::AssertionFailure()
               << "code " << loaded.status.code << " at " << loaded.status.offset << ", not "
               << expected.GetParseError() << " at " << expected.GetErrorOffset();
    if (!SameTree(loaded.document, expected)) return testing::AssertionFailure() << "other values";
    return testing::AssertionSuccess();
}

/// Text of ASCII, as text and as bytes.
testing::AssertionResult Agrees(const std::string& ascii) {
    const std::string padded =
        ascii.size() < 4 ? ascii + std::string(4 - ascii.size(), ' ') : ascii;
    const Plain expected(padded);
    const auto inBytes = Agrees(Loaded(padded), expected.document);
    if (!inBytes) return testing::AssertionFailure() << ascii << " in bytes: " << inBytes.message();
    const std::wstring text = Wide(padded);
    const std::string units(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    const auto inText = Agrees(Loaded(text.c_str()), Plain(units).document);
    if (!inText) return testing::AssertionFailure() << ascii << " in text: " << inText.message();
    return testing::AssertionSuccess();
}

// ---- Numbers -----------------------------------------------------------------------------------

/// A number for RapidJSON to take as it is, whatever RapidJSON makes of it.
testing::AssertionResult NumberAgrees(const std::string& number) {
    return Agrees("[" + number + "," + number + "]");
}

std::string Digits(std::mt19937& random, size_t count) {
    std::string digits;
    for (; count > 0; --count) digits += static_cast<char>('0' + random() % 10);
    return digits;
}

TEST(DirectReaderNumbers, EveryNumberOfDigits) {
    std::mt19937 random(1);
    for (size_t whole = 1; whole < 44; ++whole)
        for (size_t fraction = 0; fraction < 44; ++fraction)
            for (const char* const exponent : {"", "e5", "E-20", "e+300", "e-330", "e290"}) {
                std::string number = random() % 2 ? "-" : "";
                number += static_cast<char>('1' + random() % 9) + Digits(random, whole - 1);
                if (fraction > 0) number += "." + Digits(random, fraction);
                ASSERT_TRUE(NumberAgrees(number + exponent));
            }
}

TEST(DirectReaderNumbers, EveryNumberOfZeros) {
    std::mt19937 random(2);
    for (size_t zeros = 0; zeros < 340; ++zeros)
        for (const size_t digits : {0u, 1u, 2u, 9u, 16u, 17u, 18u, 19u, 25u}) {
            ASSERT_TRUE(NumberAgrees("0." + std::string(zeros, '0') + Digits(random, digits)));
            ASSERT_TRUE(
                NumberAgrees("-7" + std::string(zeros, '0') + "." + Digits(random, digits)));
        }
}

TEST(DirectReaderNumbers, EveryExponent) {
    std::mt19937 random(3);
    for (int exponent = -700; exponent < 330; ++exponent)
        for (const char* const digits : {"1", "0", "-0", "9.99", "0.001", "12345678901234567890"})
            ASSERT_TRUE(NumberAgrees(digits + std::string("e") + std::to_string(exponent)));
    for (const char* const exponent :
         {"e99999", "e-99999", "e214748363", "e-214748363", "e-214748364", "e-2147483647",
          "e-99999999999999999999", "e000000000000000000001", "e-00000000000000000000000012"})
        for (const char* const digits : {"1", "0", "-3.5"})
            ASSERT_TRUE(NumberAgrees(std::string(digits) + exponent));
}

TEST(DirectReaderNumbers, EdgesOfTheTypes) {
    for (const char* const edge : {"0",
                                   "9",
                                   "10",
                                   "99999999",
                                   "100000000",
                                   "2147483647",
                                   "2147483648",
                                   "2147483649",
                                   "4294967295",
                                   "4294967296",
                                   "999999999999999999",
                                   "1000000000000000000",
                                   "9007199254740991",
                                   "9007199254740992",
                                   "9007199254740993",
                                   "90071992547409919",
                                   "90071992547409920",
                                   "9223372036854775807",
                                   "9223372036854775808",
                                   "9223372036854775809",
                                   "18446744073709551615",
                                   "18446744073709551616",
                                   "99999999999999999999"})
        for (const char* const behind : {"", ".0", ".5", ".0000000000000000000001", "e0", "E+1"})
            for (const char* const sign : {"", "-"})
                ASSERT_TRUE(NumberAgrees(std::string(sign) + edge + behind));
    for (const int digits : {307, 308, 309, 310, 400})
        for (const char* const behind : {"", ".5", "e1", "e-200"})
            for (const char first : {'1', '2'})
                ASSERT_TRUE(
                    NumberAgrees(first + std::string(static_cast<size_t>(digits), '7') + behind));
}

TEST(DirectReaderNumbers, WhatIsNone) {
    for (const char* const text :
         {"-",   "+1",   "01",        "-01",       "1.",    "1.e5",  ".5",   "1e",   "1e+",
          "1e-", "1E",   "-.5",       "0x10",      "1.5.5", "1e5e5", "--1",  "NaN",  "-NaN",
          "Inf", "-Inf", "Infinity",  "-Infinity", "Na",    "N",     "In",   "Infi", "Infinit",
          "-I",  "-N",   "Infinityy", "nan",       "inf",   "0NaN",  "1Inf", "12 3", "1-2"})
        ASSERT_TRUE(NumberAgrees(text));
}

std::string RandomNumber(std::mt19937& random) {
    std::string number = random() % 2 ? "-" : "";
    number += random() % 4 ? static_cast<char>('1' + random() % 9) + Digits(random, random() % 20)
                           : std::string("0");
    if (random() % 3) number += "." + Digits(random, 1 + random() % 22);
    if (random() % 4 == 0)
        number +=
            (random() % 2 ? "e" : "E-") + std::to_string(random() % (random() % 2 ? 400 : 30));
    return number;
}

/// A campaign asks for more of them by JSON_RANDOM_NUMBERS.
TEST(DirectReaderNumbers, RandomOnes) {
    const char* const asked = std::getenv("JSON_RANDOM_NUMBERS");
    const long count = asked ? std::atol(asked) : 200'000;
    std::mt19937 random(asked ? std::random_device()() : 4);
    constexpr long kTogether = 100;
    for (long i = 0; i < count; i += kTogether) {
        std::string text = "[0";
        for (int n = 0; n < kTogether; ++n) text += "," + RandomNumber(random);
        ASSERT_TRUE(Agrees(text + "]"));
    }
}

// ---- Documents ---------------------------------------------------------------------------------

std::string FileBytes(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::wstring FromUtf8(const std::string& bytes) {
    rapidjson::StringStream source(bytes.c_str());
    JsonTextBuffer text;
    while (source.Peek() != 0)
        rapidjson::Transcoder<rapidjson::UTF8<>, JsonEncoding>::Transcode(source, text);
    return text.GetString();
}

/// The three large documents, where they are at hand.
TEST(DirectReader, LargeDocuments) {
    const char* const folder = std::getenv("JSON_TEST_DATA");
    for (const char* const name : {"canada.json", "citm_catalog.json", "twitter.json"}) {
        const std::string bytes = folder ? FileBytes(std::string(folder) + "/" + name) : "[]  ";
        if (bytes.empty()) continue;
        const Plain expected(bytes);
        EXPECT_TRUE(Agrees(Loaded(bytes), expected.document)) << name;
        EXPECT_TRUE(Agrees(Loaded(FromUtf8(bytes).c_str()), expected.document)) << name;
    }
}

const std::string kPieces[] = {
    "null",
    "true",
    "false",
    "0",
    "-12.5e3",
    "123456789",
    "65.613616999999977",
    "[]",
    "{}",
    "[ ]",
    "{\t}",
    "\"\"",
    "\"text\"",
    "\"a text of some length, longer than two steps\"",
    "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u20AC\\uD834\\uDD1E\\u0000\"",
    "[1, 2 ,3]",
    "{\"a\":1,\"b\" : {\"c\":[[],{}]}}",
    "NaN",
    "-Infinity",
    "{\"key of some length\":\"and text\"}",
};

/// Any number of blanks around every piece, so that it meets the edges of blocks at every place.
TEST(DirectReader, EveryPieceAtEveryPlace) {
    for (const std::string& piece : kPieces)
        for (size_t blanks = 0; blanks < 40; ++blanks) {
            ASSERT_TRUE(Agrees("[" + std::string(blanks, ' ') + piece + "\n]"));
            ASSERT_TRUE(Agrees("{\"a\":" + std::string(blanks, '\n') + piece + ",\"b\":0}"));
        }
    for (const std::string& piece : kPieces)
        for (size_t front = ByteBlock::kSize - 70; front < ByteBlock::kSize + 3; ++front)
            ASSERT_TRUE(
                Agrees("[\"" + std::string(front, 'x') + "\"," + piece + "," + piece + "]"));
}

/// Strings of every length after every number of blanks.
TEST(DirectReader, EveryRunAtEveryPlace) {
    for (const char* const end : {"\"", "\\n\"", "\\u00e9x\"", "\x01\"", ""})
        for (size_t length = 0; length < 40; ++length)
            for (size_t blanks = 0; blanks < 18; ++blanks)
                ASSERT_TRUE(Agrees("[" + std::string(blanks, ' ') + "\"" +
                                   std::string(length, 'x') + end + "]"));
}

TEST(DirectReader, DepthsAroundItsOwn) {
    for (const size_t depth : {1u, 2u, 255u, 256u, 257u, 300u, 1000u})
        for (const std::string inner : {"", "1", "1,[]", "1 2", "{\"a\":[0]}"}) {
            const std::string open(depth, '[');
            const std::string close(depth, ']');
            EXPECT_TRUE(Agrees(open + inner + close)) << depth;
            EXPECT_TRUE(Agrees(open + inner + close.substr(1))) << depth;
            EXPECT_TRUE(Agrees(open + inner + close + "]")) << depth;
        }
    std::string text = "[]";
    for (int depth = 0; depth < 300; ++depth) text = "{\"a\":0,\"b\":" + text + ",\"c\":[1,2]}";
    EXPECT_TRUE(Agrees(text));
}

/// Something that is refused at every place of a document, in the place of what stands there and in
/// front of it.
TEST(DirectReader, GoesOnFromEveryPlace) {
    const std::string document =
        " { \"key\" : [ 1 , \"text\\n\" , [ ] , { } , { \"a\" : 0 , \"b\" : true } ] , \"k\" : "
        "null } ";
    for (const char* const odd : {"",
                                  "x",
                                  "NaN",
                                  "\\uDC00",
                                  "\\uD800",
                                  "\\q",
                                  "\"",
                                  ",",
                                  "]",
                                  "}",
                                  ":",
                                  "[",
                                  "{",
                                  "1e999",
                                  "\x01",
                                  "-",
                                  "{\"a\":NaN,\"b\":[1,2]}",
                                  "//",
                                  "\"\\uDC00\"",
                                  "\"a\\uDC00b\":1,"})
        for (size_t at = 0; at <= document.size(); ++at)
            for (const size_t length : {0u, 1u, 4u}) {
                std::string text = document;
                text.replace(at, length, odd);
                ASSERT_TRUE(Agrees(text)) << at;
            }
    for (size_t end = 0; end <= document.size(); ++end)
        ASSERT_TRUE(Agrees(document.substr(0, end))) << end;
}

std::string RandomValue(std::mt19937& random, int depth) {
    const size_t kind = random() % (depth > 0 ? 12 : 8);
    if (kind < 4) return RandomNumber(random);
    if (kind < 8) return kPieces[random() % std::size(kPieces)];
    std::string text;
    for (size_t count = random() % 5; count > 0; --count) {
        if (!text.empty()) text += random() % 2 ? "," : " ,\n  ";
        if (kind < 10) text += "\"" + std::string(random() % 20, 'k') + "\": ";
        text += RandomValue(random, depth - 1);
    }
    return kind < 10 ? "{" + text + "}" : "[" + text + "]";
}

TEST(DirectReader, RandomDocumentsAndMutations) {
    std::mt19937 random(5);
    int good = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::string text = "[" + std::string(random() % 5000, ' ') + RandomValue(random, 6) + "]";
        for (size_t mutations = random() % 3; mutations > 0; --mutations)
            text[random() % text.size()] = "\"\\,:[]{}01eE.-+ tnN\x01"[random() % 20];
        good += Plain(text).document.HasParseError() ? 0 : 1;
        ASSERT_TRUE(Agrees(text)) << text;
    }
    EXPECT_GT(good, 5'000);
}

// ---- The end of readable memory ----------------------------------------------------------------

/// Text that ends with its page, at every distance, is read whole and not beyond.
TEST(DirectReader, TextThatEndsWithItsPage) {
    const LastPage page;
    for (const std::string& piece : kPieces)
        for (const char* const rest : {"]", "", "]x"})
            for (size_t gap = 0; gap < 34; gap += 2) {
                std::string ascii = "[1," + piece + rest;
                const std::wstring text = Wide(ascii) + L'\0';
                const wchar_t* const at = Put(page, text, gap);
                const std::string units(reinterpret_cast<const char*>(at), ascii.size() * 2);
                ASSERT_TRUE(Agrees(Loaded(at), Plain(units).document)) << ascii << gap;
            }
}

/// Bytes end with their page, or at a zero before the end of their length.
TEST(DirectReader, BytesThatEndWithTheirPage) {
    const LastPage page;
    for (const std::string& piece : kPieces)
        for (size_t gap = 0; gap < 34; ++gap) {
            const std::string ascii = "[1," + piece + "]";
            char* const at = page.End() - gap - ascii.size();
            std::memcpy(at, ascii.data(), ascii.size());
            std::memset(at + ascii.size(), 0, gap);
            JsonDocument document;
            const auto length = static_cast<uint32_t>(ascii.size() + (gap > 0 ? 100'000 : 0));
            EXPECT_EQ(kNoError, LoadBytes(document, at, length, kRules).code);
            EXPECT_TRUE(SameTree(document, Plain(ascii).document)) << ascii << gap;
        }
}

}  // namespace
