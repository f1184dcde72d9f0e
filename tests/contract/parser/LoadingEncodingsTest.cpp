// Telling encodings apart: texts too short for it, lone surrogates, characters that no encoding
// has.

#include <gtest/gtest.h>

#include "JsonDll.h"
#include "LoadForm.h"

namespace {

using support::AllForms;
using support::Encoding;
using support::Failure;
using support::LoadForm;
using support::LoadOutcome;
using support::NewParser;
using support::Parser;
using support::Success;

constexpr Encoding k8 = Encoding::kUtf8;
constexpr Encoding k16Le = Encoding::kUtf16Le;
constexpr Encoding k16Be = Encoding::kUtf16Be;
constexpr Encoding k32Le = Encoding::kUtf32Le;
constexpr Encoding k32Be = Encoding::kUtf32Be;

LoadOutcome BlankFile(uint64_t offset) { return Failure(1, offset); }
LoadOutcome BlankText() { return Failure(21, 0); }

/// Short texts as bytes. Below four bytes nothing shows the encoding, and they are read as UTF-8:
/// a mark is then an invalid value, and a zero byte ends the text.
struct ShortText {
    Encoding encoding;
    bool mark;
    const wchar_t* text;
    LoadOutcome bytes;
    LoadOutcome file;
};

const ShortText kShortTexts[] = {
    {k8, false, L"5", Failure(3, 0), Failure(3, 0)},
    {k8, false, L"[", Failure(3, 1), Failure(3, 1)},
    {k8, false, L"[]", Success(L"[]"), Success(L"[]")},
    {k8, false, L"{}", Success(L"{}"), Success(L"{}")},
    {k8, false, L"[1]", Success(L"[1]"), Success(L"[1]")},
    {k8, false, L" ", BlankText(), BlankFile(1)},
    {k8, true, L"", Failure(3, 1), Failure(3, 1)},
    {k8, true, L" ", BlankText(), BlankFile(4)},
    {k8, true, L"5", Failure(3, 0), Failure(3, 0)},
    {k8, true, L"[", Failure(3, 4), Failure(3, 4)},
    {k8, true, L"[]", Success(L"[]"), Success(L"[]")},
    {k8, true, L"{}", Success(L"{}"), Success(L"{}")},

    {k16Le, false, L"5", Failure(3, 0), Failure(3, 0)},
    {k16Le, false, L"[", Failure(3, 2), Failure(3, 2)},
    {k16Le, false, L" ", BlankText(), BlankFile(2)},
    {k16Le, false, L"[]", Success(L"[]"), Success(L"[]")},
    {k16Le, false, L"{}", Success(L"{}"), Success(L"{}")},
    {k16Le, true, L"", Failure(3, 1), Failure(3, 1)},
    {k16Le, true, L" ", BlankText(), BlankFile(4)},
    {k16Le, true, L"5", Failure(3, 0), Failure(3, 0)},
    {k16Le, true, L"[", Failure(3, 4), Failure(3, 4)},
    {k16Le, true, L"[]", Success(L"[]"), Success(L"[]")},

    {k16Be, false, L"5", BlankText(), BlankFile(1)},
    {k16Be, false, L"[", BlankText(), BlankFile(1)},
    {k16Be, false, L"[]", Success(L"[]"), Success(L"[]")},
    {k16Be, false, L"{}", Success(L"{}"), Success(L"{}")},
    {k16Be, true, L"", Failure(3, 1), Failure(3, 1)},
    {k16Be, true, L" ", BlankText(), BlankFile(4)},
    {k16Be, true, L"5", Failure(3, 0), Failure(3, 0)},
    {k16Be, true, L"[", Failure(3, 4), Failure(3, 4)},
    {k16Be, true, L"[]", Success(L"[]"), Success(L"[]")},

    {k32Le, false, L"5", Failure(3, 0), Failure(3, 0)},
    {k32Le, false, L"[", Failure(3, 4), Failure(3, 4)},
    {k32Le, false, L" ", BlankText(), BlankFile(4)},
    {k32Le, false, L"[]", Success(L"[]"), Success(L"[]")},
    {k32Le, true, L"", BlankText(), BlankFile(4)},
    {k32Le, true, L"5", Failure(3, 0), Failure(3, 0)},
    {k32Le, true, L"[", Failure(3, 8), Failure(3, 8)},
    {k32Le, true, L"{}", Success(L"{}"), Success(L"{}")},

    {k32Be, false, L"5", Failure(3, 0), Failure(3, 0)},
    {k32Be, false, L"[", Failure(3, 4), Failure(3, 4)},
    {k32Be, false, L" ", BlankText(), BlankFile(4)},
    {k32Be, false, L"[]", Success(L"[]"), Success(L"[]")},
    {k32Be, true, L"", BlankText(), BlankFile(4)},
    {k32Be, true, L"5", Failure(3, 0), Failure(3, 0)},
    {k32Be, true, L"[", Failure(3, 8), Failure(3, 8)},
    {k32Be, true, L"{}", Success(L"{}"), Success(L"{}")},
};

TEST(LoadingEncodings, ShortTexts) {
    const Parser parser = NewParser();
    for (const ShortText& row : kShortTexts) {
        const std::string bytes = support::Encode(row.text, row.encoding, row.mark);
        SCOPED_TRACE(testing::PrintToString(bytes) + " " + NameOf(row.encoding));
        EXPECT_EQ(row.bytes, support::LoadBytes(*parser, bytes));
        EXPECT_EQ(row.file, support::LoadFile(*parser, bytes));
    }
}

TEST(LoadingEncodings, ShortWideTexts) {
    struct Row {
        const wchar_t* text;
        LoadOutcome outcome;
    };
    const Row rows[] = {
        {L" ", BlankText()},
        {L"5", Failure(3, 0)},
        {L"[", Failure(3, 2)},
        {L"[]", Success(L"[]")},
        {L"{}", Success(L"{}")},
        {L"\xFEFF", Failure(3, 1)},
        {L"\xFEFF ", BlankText()},
        {L"\xFEFF[", Failure(3, 4)},
        {L"\xFEFF"
         L"5",
         Failure(3, 0)},
        {L"\xFEFF[]", Success(L"[]")},
    };
    const Parser parser = NewParser();
    for (const Row& row : rows)
        EXPECT_EQ(row.outcome, support::LoadText(*parser, row.text))
            << testing::PrintToString(row.text);
}

TEST(LoadingEncodings, OnlyTheFirstMarkIsSkipped) {
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms()) {
        if (!form.mark) continue;
        const uint64_t second = form.encoding == k8 ? 1 : form.UnitSize();
        EXPECT_EQ(Failure(3, form.MarkSize() + second),
                  support::LoadIn(form, *parser, L"\xFEFF[1,2]"))
            << form;
    }
}

/// A lone low surrogate written as an escape is no error for RapidJSON; the unit is kept.
TEST(LoadingEncodings, EscapedLowSurrogateStaysAsItIs) {
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms()) {
        EXPECT_EQ(Success(L"[\"\xDC00\",\"a\xDFFFz\"]"),
                  support::LoadIn(form, *parser, L"[\"\\uDC00\",\"a\\uDFFFz\"]"))
            << form;
        EXPECT_EQ(Success(L"{\"\xDC00\":1}"), support::LoadIn(form, *parser, L"{\"\\udc00\":1}"))
            << form;
    }
}

bool IsUtf16(const LoadForm& form) { return form.encoding == k16Le || form.encoding == k16Be; }
bool IsUtf32(const LoadForm& form) { return form.encoding == k32Le || form.encoding == k32Be; }

TEST(LoadingEncodings, RawLoneSurrogatesAreInvalidInUtf16) {
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms()) {
        if (!IsUtf16(form)) continue;
        for (const wchar_t* text : {L"[\"\xD800\"]", L"[\"\xDC00\"]", L"[\"\xDC00\xD800\"]",
                                    L"[\"\xD800\xD800\"]", L"[\"\xD800", L"[\"\xDFFF z\"]"})
            EXPECT_EQ(Failure(12, form.MarkSize() + 3 * 2), support::LoadIn(form, *parser, text))
                << form << ": " << testing::PrintToString(text);
        EXPECT_EQ(Failure(3, form.MarkSize() + 3 * 2), support::LoadIn(form, *parser, L"[ \xD800]"))
            << form;
    }
}

TEST(LoadingEncodings, RawSurrogatesPassInUtf32) {
    const Parser parser = NewParser();
    const std::wstring text = L"[\"\xDC00\",\"\xD800 \"]";
    for (const LoadForm& form : AllForms()) {
        if (!IsUtf32(form)) continue;
        EXPECT_EQ(Success(text), support::LoadIn(form, *parser, text)) << form;
    }
}

std::string Utf32Unit(uint32_t unit, bool bigEndian) {
    std::string out;
    for (int i = 0; i < 4; ++i) out += static_cast<char>(unit >> 8 * (bigEndian ? 3 - i : i));
    return out;
}

TEST(LoadingEncodings, Utf32EndsAtTheLastCharacterOfUnicode) {
    const Parser parser = NewParser();
    for (const bool bigEndian : {false, true}) {
        const Encoding encoding = bigEndian ? k32Be : k32Le;
        const std::string head = support::Encode(L"[\"", encoding);
        const std::string tail = support::Encode(L"\"]", encoding);
        const std::string last = head + Utf32Unit(0x10FFFF, bigEndian) + tail;
        const std::string behind = head + Utf32Unit(0x110000, bigEndian) + tail;
        const std::string farBehind = head + Utf32Unit(0xFFFFFFFF, bigEndian) + tail;
        SCOPED_TRACE(NameOf(encoding));
        EXPECT_EQ(Success(L"[\"\xDBFF\xDFFF\"]"), support::LoadBytes(*parser, last));
        EXPECT_EQ(Success(L"[\"\xDBFF\xDFFF\"]"), support::LoadFile(*parser, last));
        EXPECT_EQ(Failure(12, 12), support::LoadBytes(*parser, behind));
        EXPECT_EQ(Failure(12, 12), support::LoadFile(*parser, behind));
        EXPECT_EQ(Failure(12, 12), support::LoadBytes(*parser, farBehind));
    }
}

TEST(LoadingEncodings, HalfAUnitAtTheEndCountsAsAUnit) {
    const Parser parser = NewParser();
    const std::string half = support::Encode(L"[1]", k16Le) + ' ';
    EXPECT_EQ(Success(L"[1]"), support::LoadBytes(*parser, half));
    EXPECT_EQ(Success(L"[1]"), support::LoadFile(*parser, half));
    const std::string more = support::Encode(L"[1]", k16Le) + 'x';
    EXPECT_EQ(Failure(2, 7), support::LoadBytes(*parser, more));
    EXPECT_EQ(Failure(2, 7), support::LoadFile(*parser, more));
}

/// Files are read in blocks of 1024 bytes; no character may suffer from lying across two of them.
TEST(LoadingEncodings, CharactersAcrossTheReadBuffersEdge) {
    const Parser parser = NewParser();
    const std::wstring characters = L"\xE9\x20AC\xD834\xDD1E";
    for (const LoadForm& form : AllForms()) {
        if (!form.IsFile()) continue;
        for (const size_t edge : {1024u, 2048u}) {
            const size_t middle = edge / form.UnitSize();
            for (size_t length = middle - 16; length < middle + 2; ++length) {
                const std::wstring document =
                    L"[\"" + std::wstring(length, L'.') + characters + L"\"]";
                EXPECT_EQ(Success(document), support::LoadIn(form, *parser, document))
                    << form << ", " << length << " units in front";
            }
        }
    }
}

/// The end of the file, with the error at it, on both sides of the edge.
TEST(LoadingEncodings, FilesThatEndAtTheReadBuffersEdge) {
    const Parser parser = NewParser();
    for (const LoadForm& form : AllForms()) {
        if (!form.IsFile()) continue;
        const size_t inBuffer = (1024 - form.MarkSize()) / form.UnitSize();
        for (size_t units = inBuffer - 3; units <= inBuffer + 3; ++units) {
            const uint64_t end = form.MarkSize() + units * form.UnitSize();
            const std::wstring blank(units, L' ');
            const std::wstring cut = L"[1" + std::wstring(units - 2, L' ');
            const std::wstring whole = L"[1" + std::wstring(units - 3, L' ') + L"]";
            SCOPED_TRACE(form);
            EXPECT_EQ(Failure(1, end), support::LoadIn(form, *parser, blank)) << units;
            EXPECT_EQ(Failure(7, end), support::LoadIn(form, *parser, cut)) << units;
            EXPECT_EQ(Success(L"[1]"), support::LoadIn(form, *parser, whole)) << units;
        }
    }
}

}  // namespace
