// Thousands of truncated and mutated documents against RapidJSON itself, run in the test on the
// same data. The random sequence is fixed, so that every run sees the same documents.

#include <gtest/gtest.h>

#include <random>

#include "JsonDll.h"
#include "LoadForm.h"
#include "ParserReference.h"
#include "TempFile.h"

namespace {

using support::Encoding;
using support::kAllEncodings;
using support::NewParser;
using support::Parser;

constexpr const wchar_t* kDocuments[] = {
    L"{\"name\":\"Zo\xEB\",\"size\":[1,-2,3.25,4e5,-6E-7,18446744073709551616],\"on\":true}",
    L"[NaN,-Infinity,Inf,{\"\":null},[],{},\"\\u00e9\\uD834\\uDD1E\\n\",false]",
    L"{\"\x65E5\x672C\":[\"\xD834\xDD1E\",\"\x20AC\"],\"deep\":{\"er\":{\"and\":[[[[0]]]]}}}",
    L" [ 0.1 , 1E+2 , \"\\\\ \\\" \\/ \\b\\f\\r\\t\" , -0 , 2147483648 , 1e308 ] ",
    L"[\"\x3B1\x3B2\x3B3 \\uDC00 text, long enough to be cut in many "
    L"places\",[1,[2,[3]]],{\"a\":{}}]",
};

/// What mutations put in: the characters of the grammar, beginnings and ends of UTF-8 sequences,
/// letters of literals, zero bytes, marks.
const std::string kInserts =
    std::string(
        "[]{},:\"\\/ \t\n0123456789+-.eEINanfitrulsbDd\xC3\xA9\xE2\x82\xED\xA0\xF0\x9D\xF5"
        "\xEF\xBB\xBF\xFE\xFF\x80\x01") +
    '\0';

/// Makes broken documents out of good ones; a unit is a byte or a UTF-16 unit.
template <class Text>
class Mutator {
public:
    explicit Mutator(uint32_t seed) : random(seed) {}

    Text Mutate(Text text) {
        for (size_t left = 1 + Below(3); left > 0; --left) Step(text);
        return text;
    }

private:
    using Unit = typename Text::value_type;

    size_t Below(size_t bound) { return random() % bound; }

    Unit NewUnit() {
        const auto low = static_cast<unsigned char>(kInserts[Below(kInserts.size())]);
        if (sizeof(Unit) == 1 || Below(4) != 0) return static_cast<Unit>(low);
        return static_cast<Unit>(random());
    }

    void Step(Text& text) {
        if (text.empty()) return;
        const size_t at = Below(text.size());
        switch (Below(6)) {
            case 0:
                text.resize(at);
                break;
            case 1:
                text[at] = NewUnit();
                break;
            case 2:
                text.insert(text.begin() + static_cast<std::ptrdiff_t>(at), NewUnit());
                break;
            case 3:
                text.erase(at, 1 + Below(3));
                break;
            case 4:
                text[at] = static_cast<Unit>(text[at] ^ (1u << Below(8 * sizeof(Unit))));
                break;
            default:
                text.insert(at, text.substr(Below(text.size()), 1 + Below(8)));
                break;
        }
    }

    std::mt19937 random;
};

void ExpectAsReference(QXJSON::IJsonParser& parser, const std::string& bytes, bool asFile) {
    SCOPED_TRACE(testing::PrintToString(bytes));
    EXPECT_EQ(model::ReferenceLoadBytes(bytes), support::LoadBytes(parser, bytes));
    if (!asFile) return;
    const support::TempFile file(bytes);
    EXPECT_EQ(model::ReferenceLoadFile(file.Name()),
              support::OutcomeOf(parser, parser.LoadJsonFile(file.Name())));
}

void ExpectAsReference(QXJSON::IJsonParser& parser, const std::wstring& text) {
    EXPECT_EQ(model::ReferenceLoadText(text), support::LoadText(parser, text))
        << testing::PrintToString(text);
}

TEST(LoadingReference, EveryTruncationOfBytes) {
    const Parser parser = NewParser();
    for (const wchar_t* document : kDocuments)
        for (const Encoding encoding : kAllEncodings)
            for (const bool mark : {false, true}) {
                const std::string bytes = support::Encode(document, encoding, mark);
                for (size_t size = 0; size <= bytes.size(); ++size)
                    ExpectAsReference(*parser, bytes.substr(0, size), size % 16 == 0);
            }
}

TEST(LoadingReference, EveryTruncationOfText) {
    const Parser parser = NewParser();
    for (const std::wstring document : kDocuments)
        for (size_t size = 0; size <= document.size(); ++size) {
            ExpectAsReference(*parser, document.substr(0, size));
            ExpectAsReference(*parser, L"\xFEFF" + document.substr(0, size));
        }
}

TEST(LoadingReference, MutatedBytes) {
    const Parser parser = NewParser();
    Mutator<std::string> mutator(20011);
    int count = 0;
    for (int round = 0; round < 80; ++round)
        for (const wchar_t* document : kDocuments)
            for (const Encoding encoding : kAllEncodings)
                for (const bool mark : {false, true}) {
                    const std::string bytes = support::Encode(document, encoding, mark);
                    ExpectAsReference(*parser, mutator.Mutate(bytes), ++count % 8 == 0);
                }
}

/// A closer look at UTF-8, where bytes that are not valid lead to the ANSI code page.
TEST(LoadingReference, MutatedUtf8) {
    const Parser parser = NewParser();
    Mutator<std::string> mutator(20021);
    for (int round = 0; round < 400; ++round)
        for (const wchar_t* document : kDocuments)
            ExpectAsReference(*parser, mutator.Mutate(support::Encode(document, Encoding::kUtf8)),
                              round % 6 == 0);
}

TEST(LoadingReference, MutatedText) {
    const Parser parser = NewParser();
    Mutator<std::wstring> mutator(20023);
    for (int round = 0; round < 800; ++round)
        for (const wchar_t* document : kDocuments)
            ExpectAsReference(*parser, mutator.Mutate(document));
}

void ExpectEveryWayAsReference(QXJSON::IJsonParser& parser, const std::string& bytes) {
    ExpectAsReference(parser, bytes, true);
    ExpectAsReference(parser, std::wstring(bytes.begin(), bytes.end()));
}

/// As integers, as doubles and too large for either, alone and in an array.
TEST(LoadingReference, NumbersOfManyDigits) {
    const Parser parser = NewParser();
    for (const size_t count : {16u, 17u, 18u, 19u, 20u, 21u, 40u, 308u, 309u, 310u, 400u})
        for (const std::string begin : {"", "-", "0.", "-0.000"})
            for (const std::string end : {"", ".5", "e5", "E-400", "x"}) {
                const std::string number = begin + std::string(count, '9') + end;
                ExpectEveryWayAsReference(*parser, number);
                ExpectEveryWayAsReference(*parser, "[" + number + ",1]");
            }
}

/// Each kind of value below more levels than the library's own reader counts.
TEST(LoadingReference, ValuesBelowManyLevels) {
    const Parser parser = NewParser();
    for (const size_t levels : {1u, 100u, 1000u})
        for (const char* end : {"", "]", ",", "x"})
            ExpectEveryWayAsReference(*parser,
                                      std::string(levels, '[') +
                                          "null,true,false,-1,4294967295,-9223372036854775808,"
                                          "18446744073709551615,1.5,\"text\",{\"name\":{}}" +
                                          std::string(levels, ']') + end);
}

/// Every first byte with the second bytes at which UTF-8 begins and ends to be valid.
TEST(LoadingReference, SequencesAtTheEdgesOfUtf8) {
    const Parser parser = NewParser();
    for (int first = 0x80; first <= 0xFF; ++first)
        for (const char second : {'\x7F', '\x80', '\x8F', '\x90', '\x9F', '\xA0', '\xBF', '\xC0'})
            for (const std::string rest : {"", "\x80", "\xBF\xBF", "\x80\x80", "\x80\x7F"}) {
                const std::string sequence = static_cast<char>(first) + (second + rest);
                ExpectAsReference(*parser, "[\"" + sequence + " and what follows\"]", false);
            }
}

/// Files that take several reads, broken anywhere.
TEST(LoadingReference, MutatedLargeFiles) {
    const Parser parser = NewParser();
    std::wstring document = L"[";
    for (int i = 0; i < 12; ++i)
        for (const wchar_t* part : kDocuments) document += std::wstring(part) + L",\n";
    document += L"0]";
    Mutator<std::string> mutator(20029);
    for (int round = 0; round < 30; ++round)
        for (const Encoding encoding : kAllEncodings) {
            const support::TempFile file(mutator.Mutate(support::Encode(document, encoding)));
            EXPECT_EQ(model::ReferenceLoadFile(file.Name()),
                      support::OutcomeOf(*parser, parser->LoadJsonFile(file.Name())))
                << NameOf(encoding) << ", round " << round;
        }
}

}  // namespace
