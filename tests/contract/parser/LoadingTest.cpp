// What the three loads return for well-formed and broken text: result, message, offset, document.

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "BytesAtAnEdge.h"
#include "JsonDll.h"
#include "LoadForm.h"
#include "ParserReference.h"

namespace {

using support::AllForms;
using support::BytesAtAnEdge;
using support::Failure;
using support::LoadForm;
using support::LoadOutcome;
using support::NewParser;
using support::Parser;
using support::Success;

struct Accepted {
    const wchar_t* text;
    const wchar_t* tree;
};

constexpr Accepted kAccepted[] = {
    {L"[]", L"[]"},
    {L"{}", L"{}"},
    {L"[1,2]", L"[1,2]"},
    {L" \t\r\n{ \"a\" : [ true , false , null ] }\r\n\t ", L"{\"a\":[true,false,null]}"},
    {L"[NaN,Inf,Infinity,-Inf,-Infinity]", L"[NaN,Infinity,Infinity,-Infinity,-Infinity]"},
    {L"[-NaN]", L"[NaN]"},
    {L"{\"k\":1,\"k\":2}", L"{\"k\":1,\"k\":2}"},
    {L"[0,-0,18446744073709551615,-9223372036854775808]",
     L"[0,0,18446744073709551615,-9223372036854775808]"},
    {L"[1.5,5.0,1e3]", L"[1.5,5.0,1000.0]"},
    {L"[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\"]", L"[\"\\\"\\\\/\\b\\f\\n\\r\\t\xE9\"]"},
    {L"[\"\\uD834\\uDD1E\"]", L"[\"\xD834\xDD1E\"]"},
    {L"[\"\xE9\x20AC\xD834\xDD1E\"]", L"[\"\xE9\x20AC\xD834\xDD1E\"]"},
    {L"[\"a\\u0000b\"]", L"[\"a\\u0000b\"]"},
    {L"[\"\x7F\"]", L"[\"\x7F\"]"},
};

TEST(Loading, AcceptsDocumentsInEveryForm) {
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms())
        for (const Accepted& row : kAccepted)
            EXPECT_EQ(Success(row.tree), support::LoadIn(form, *parser, row.text))
                << form << ": " << testing::PrintToString(row.text);
}

/// A text that no load accepts. RapidJSON reads one unit ahead, so that its offset of an error is
/// just after the unit it stumbles over, or the end of the text.
struct Refused {
    const wchar_t* text;
    int code;
    uint64_t offset;  ///< in units of the encoding, without the mark
};

constexpr Refused kRefused[] = {
    {L"[] 1", 2, 4},
    {L"{} {", 2, 4},
    {L"[1]]", 2, 4},
    {L"[x]", 3, 2},
    {L"[1,]", 3, 4},
    {L"[,1]", 3, 2},
    {L"[[", 3, 2},
    {L"[-]", 3, 3},
    {L"[+1]", 3, 2},
    {L"[.5]", 3, 2},
    {L"[nul]", 3, 5},
    {L"[Null]", 3, 3},
    {L"[tru", 3, 4},
    {L"[falsy]", 3, 6},
    {L"[Inx]", 3, 4},
    {L"[Infinite]", 3, 9},
    {L"[nan]", 3, 3},
    {L"[/**/1]", 3, 2},
    {L"['a']", 3, 2},
    {L"{1}", 4, 2},
    {L"{\"a\":1,}", 4, 8},
    {L"{a:1}", 4, 2},
    {L"{\"a\" 1}", 5, 6},
    {L"{\"a\"", 5, 4},
    {L"{\"a\":1]", 6, 7},
    {L"{\"a\":1", 6, 6},
    {L"{\"a\":1 \"b\":2}", 6, 8},
    {L"[1}", 7, 3},
    {L"[1", 7, 2},
    {L"[1 2]", 7, 4},
    {L"[01]", 7, 3},
    {L"[1/**/]", 7, 3},
    {L"[Infi]", 3, 6},
    {L"[\"\\u00g0\"]", 8, 3},
    {L"[\"\\u12", 8, 3},
    {L"[\"ab\\uD800\\u00g0\"]", 8, 5},
    {L"[\"\\uD800\"]", 9, 3},
    {L"[\"\\uD800x\"]", 9, 3},
    {L"[\"\\uD800\\n\"]", 9, 3},
    {L"[\"\\uD800\\uD800\"]", 9, 3},
    {L"[\"\\uD800\\u0041\"]", 9, 3},
    {L"[\"\\q\"]", 10, 3},
    {L"[\"\\\x20AC\"]", 10, 3},
    {L"[\"a\tb\"]", 10, 4},
    {L"[\"\x01\"]", 10, 3},
    {L"[\"a", 11, 3},
    {L"[\"a]", 11, 4},
    {L"{\"a:1}", 11, 6},
    {L"[1e309]", 13, 2},
    {L"[ -1e309]", 13, 3},
    {L"[1.]", 14, 4},
    {L"[1.", 14, 3},
    {L"[1.e5]", 14, 4},
    {L"[1e]", 15, 4},
    {L"[1e+]", 15, 5},
    {L"[1.5E", 15, 5},
    // A root that is no container: the text is valid JSON, and the code is the library's.
    {L"42", 3, 0},
    {L"-1.5e3", 3, 0},
    {L" 5 ", 3, 0},
    {L"\"text\"", 3, 0},
    {L"\"\"", 3, 0},
    {L"true", 3, 0},
    {L"false", 3, 0},
    {L"null", 3, 0},
    {L"NaN", 3, 0},
    {L"-Infinity", 3, 0},
    // Not reached by the check of the root.
    {L"42 1", 2, 4},
};

uint64_t ExpectedOffset(const LoadForm& form, const Refused& row) {
    return row.offset == 0 ? 0 : form.MarkSize() + row.offset * form.UnitSize();
}

/// Only U+20AC of the table has more than one unit, and only in UTF-8, where it stands after the
/// offset.
TEST(Loading, RefusesBrokenTextInEveryFormWithCodeAndOffset) {
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms())
        for (const Refused& row : kRefused)
            EXPECT_EQ(Failure(row.code, ExpectedOffset(form, row)),
                      support::LoadIn(form, *parser, row.text))
                << form << ": " << testing::PrintToString(row.text);
}

TEST(Loading, BlankIsEmptyTextButAnEmptyDocumentInAFile) {
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms()) {
        for (const std::wstring text : {L"    ", L"\t\r\n \t\r\n "}) {
            const uint64_t end = form.MarkSize() + text.size() * form.UnitSize();
            EXPECT_EQ(form.IsFile() ? Failure(1, end) : Failure(21, 0),
                      support::LoadIn(form, *parser, text))
                << form << ": " << testing::PrintToString(text);
        }
    }
}

TEST(Loading, NoTextAtAll) {
    const Parser parser = NewParser();
    EXPECT_EQ(Failure(21, 0), support::LoadBytes(*parser, ""));
    EXPECT_EQ(Failure(21, 0), support::LoadText(*parser, L""));
    EXPECT_EQ(Failure(1, 0), support::LoadFile(*parser, ""));
}

TEST(Loading, NullArguments) {
    const Parser parser = NewParser();
    EXPECT_EQ(Failure(18, 0), support::OutcomeOf(*parser, parser->LoadJsonBytes(nullptr, 0)));
    EXPECT_EQ(Failure(18, 0), support::OutcomeOf(*parser, parser->LoadJsonBytes(nullptr, 10)));
    EXPECT_EQ(Failure(18, 0), support::OutcomeOf(*parser, parser->LoadJsonString(nullptr)));
    EXPECT_EQ(Failure(19, 0), support::OutcomeOf(*parser, parser->LoadJsonFile(nullptr)));
}

TEST(Loading, TextEndsAtItsFirstZeroUnit) {
    const Parser parser = NewParser();
    const std::wstring text(L"[1,2]\0]broken", 13);
    for (const LoadForm& form : AllForms())
        EXPECT_EQ(Success(L"[1,2]"), support::LoadIn(form, *parser, text)) << form;
    const std::wstring cut(L"[1,\0 2]", 7);
    for (const LoadForm& form : AllForms()) {
        // Text ends at its zero; bytes go on after the zero, over which the reader stumbles.
        const uint64_t units = form.route == support::Route::kText ? 3 : 4;
        EXPECT_EQ(Failure(3, form.MarkSize() + units * form.UnitSize()),
                  support::LoadIn(form, *parser, cut))
            << form;
    }
}

TEST(Loading, NothingBehindTheLengthIsRead) {
    struct Row {
        const char* bytes;
        LoadOutcome outcome;
    };
    const Row rows[] = {
        {"", Failure(21, 0)},
        {"5", Failure(3, 0)},
        {"[", Failure(3, 1)},
        {"[]", Success(L"[]")},
        {"[1]", Success(L"[1]")},
        {"[1,2]", Success(L"[1,2]")},
        {"[\"a", Failure(11, 3)},
        {"[\"\xE9", model::ReferenceLoadBytes("[\"\xE9")},
        {"[\"\xE9\"]", model::ReferenceLoadBytes("[\"\xE9\"]")},
    };
    const Parser parser = NewParser();
    for (const Row& row : rows) {
        const support::BytesAtAnEdge bytes(row.bytes);
        const auto length = static_cast<uint32_t>(std::strlen(row.bytes));
        EXPECT_EQ(row.outcome,
                  support::OutcomeOf(*parser, parser->LoadJsonBytes(bytes.Begin(), length)))
            << row.bytes;
    }
}

LoadOutcome LoadLength(QXJSON::IJsonParser& parser, const std::string& bytes, uint32_t length) {
    const BytesAtAnEdge edge(bytes);
    return support::OutcomeOf(parser, parser.LoadJsonBytes(edge.Begin(), length));
}

/// A length may go beyond the zero at the end of a text, and beyond the memory that it is in:
/// nothing after the zero is read.
TEST(Loading, NothingBehindAZeroIsRead) {
    const std::wstring texts[] = {L"[1]",
                                  L"{\"a\":[\"\xE9\"]}",
                                  L"[1,",
                                  L"[\"abc",
                                  L"12345",
                                  L"[1] 2",
                                  L"[\"" + std::wstring(6000, L'x') + L"\"]",
                                  L"[\"" + std::wstring(6000, L'x')};
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms()) {
        if (form.route != support::Route::kBytes) continue;
        for (const std::wstring& text : texts) {
            const std::string bytes = form.Bytes(text + L'\0');
            const LoadOutcome expected =
                model::ReferenceLoadBytes(bytes + std::string(form.UnitSize(), ' '));
            for (const uint32_t more : {1u, 10u, 4096u, 0x10000u, 0x7FFF0000u, 0xFFFF0000u})
                EXPECT_EQ(expected,
                          LoadLength(*parser, bytes, static_cast<uint32_t>(bytes.size()) + more))
                    << form << ": " << testing::PrintToString(text.substr(0, 9)) << ' ' << more;
        }
    }
}

TEST(Loading, ATextThatEndsNowhereAnswersMinusFive) {
    const Parser parser = NewParser();
    for (const char* const bytes : {"[1]", "[", "[\"abc", "[\"\xC3", "[\"\xE9.\"]"}) {
        const auto length = static_cast<uint32_t>(std::strlen(bytes));
        for (const uint32_t more : {1u, 4096u, 0xFFFF0000u})
            EXPECT_EQ(support::Escaped(), LoadLength(*parser, bytes, length + more)) << bytes;
    }
    EXPECT_EQ(Success(L"[1]"), support::LoadText(*parser, L"[1]"));
}

TEST(Loading, ALengthCutsTheTextShort) {
    const Parser parser = NewParser();
    EXPECT_EQ(Success(L"[1]"), support::OutcomeOf(*parser, parser->LoadJsonBytes("[1]]]]", 3)));
    EXPECT_EQ(Failure(7, 2), support::OutcomeOf(*parser, parser->LoadJsonBytes("[1]]]]", 2)));
    EXPECT_EQ(Failure(21, 0), support::OutcomeOf(*parser, parser->LoadJsonBytes("[1]", 0)));
}

TEST(Loading, TheCallersTextMayGoAfterTheLoad) {
    const Parser parser = NewParser();
    std::string bytes = "[\"some text\",{\"a name\":\"and more\"}]";
    std::wstring text(bytes.begin(), bytes.end());
    const std::wstring tree = text;

    EXPECT_EQ(1, parser->LoadJsonBytes(bytes.data(), static_cast<uint32_t>(bytes.size())));
    bytes.assign(bytes.size(), 'x');
    EXPECT_EQ(tree, support::TreeOf(*parser));

    EXPECT_EQ(1, parser->LoadJsonString(text.c_str()));
    text.assign(text.size(), L'x');
    EXPECT_EQ(tree, support::TreeOf(*parser));
}

/// A caller may cut a text out of a larger buffer wherever it stands.
TEST(Loading, TextAtAnOddAddress) {
    const std::wstring text = L"[\"caf\u00E9 \xD83D\xDE00\", 12.5, {\"a\": null}]";
    std::vector<char> memory(1 + (text.size() + 1) * sizeof(wchar_t));
    std::memcpy(memory.data() + 1, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    const auto* const odd = reinterpret_cast<const wchar_t*>(memory.data() + 1);

    const Parser aligned = NewParser();
    EXPECT_EQ(1, aligned->LoadJsonString(text.c_str()));
    const Parser parser = NewParser();
    EXPECT_EQ(1, parser->LoadJsonString(odd));
    EXPECT_EQ(support::TreeOf(*aligned), support::TreeOf(*parser));
}

}  // namespace
