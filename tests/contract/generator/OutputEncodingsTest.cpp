// Characters in each form of output: as RapidJSON's own writers put them, and byte by byte where it
// can be said in a line.

#include <gtest/gtest.h>

#include "OutputForm.h"
#include "OutputReference.h"

namespace {

using model::ReferenceArrayOf;
using support::ExpectAllForms;
using support::Generator;
using support::GeneratorOf;
using support::OutputForm;
using support::WriteIn;
using support::Written;

/// The bytes of a literal that may contain zeros.
template <size_t size>
std::string Bytes(const char (&literal)[size]) {
    return std::string(literal, size - 1);
}

struct Literal {
    const wchar_t* json;
    std::string mark;
    int32_t selector;
    std::string bytes;
};

const std::string kUtf16LeMark = "\xFF\xFE";
const std::string kUtf8Mark = "\xEF\xBB\xBF";
const std::string kUtf16BeMark = "\xFE\xFF";

const Literal kLiterals[] = {
    {L"{\"a\":1}", "", 0, "{\"a\":1}"},
    {L"{\"a\":1}", kUtf16LeMark, 1,
     Bytes("{\0\"\0a\0\"\0:\0"
           "1\0}\0")},
    {L"{\"a\":1}", kUtf8Mark, 2, "{\"a\":1}"},
    {L"{\"a\":1}", kUtf16BeMark, 3,
     Bytes("\0{\0\"\0a\0\"\0:\0"
           "1\0}")},
    {L"[\"\xE9\"]", "", 0, "[\"\\u00E9\"]"},
    {L"[\"\xE9\"]", kUtf16LeMark, 1, Bytes("[\0\"\0\xE9\0\"\0]\0")},
    {L"[\"\xE9\"]", kUtf8Mark, 2, "[\"\xC3\xA9\"]"},
    {L"[\"\xE9\"]", kUtf16BeMark, 3, Bytes("\0[\0\"\0\xE9\0\"\0]")},
    {L"[\"\xD834\xDD1E\"]", "", 0, "[\"\\uD834\\uDD1E\"]"},
    {L"[\"\xD834\xDD1E\"]", kUtf16LeMark, 1, Bytes("[\0\"\0\x34\xD8\x1E\xDD\"\0]\0")},
    {L"[\"\xD834\xDD1E\"]", kUtf8Mark, 2, "[\"\xF0\x9D\x84\x9E\"]"},
    {L"[\"\xD834\xDD1E\"]", kUtf16BeMark, 3, Bytes("\0[\0\"\xD8\x34\xDD\x1E\0\"\0]")},
    {L"[\"\\u0000\\u001f\x7F\x80\xFFFF\"]", "", 0, "[\"\\u0000\\u001F\x7F\\u0080\\uFFFF\"]"},
    {L"[\"\\u0000\\u001f\x7F\x80\xFFFF\"]", kUtf8Mark, 2,
     "[\"\\u0000\\u001F\x7F\xC2\x80\xEF\xBF\xBF\"]"},
    {L"[\"\\b\\f\\n\\r\\t\\\"\\\\\\/\"]", "", 0, "[\"\\b\\f\\n\\r\\t\\\"\\\\/\"]"},
    {L"{\"\x4E2D\":\"\xFEFF\"}", "", 0, "{\"\\u4E2D\":\"\\uFEFF\"}"},
    {L"{\"\x4E2D\":\"\xFEFF\"}", kUtf16LeMark, 1,
     Bytes("{\0\"\0\x2D\x4E\"\0:\0\"\0\xFF\xFE\"\0}\0")},
    {L"{\"\x4E2D\":\"\xFEFF\"}", kUtf8Mark, 2, "{\"\xE4\xB8\xAD\":\"\xEF\xBB\xBF\"}"},
    {L"{\"\x4E2D\":\"\xFEFF\"}", kUtf16BeMark, 3,
     Bytes("\0{\0\"\x4E\x2D\0\"\0:\0\"\xFE\xFF\0\"\0}")},
};

/// A mark stands in files only.
TEST(OutputEncodings, ByteByByte) {
    for (const Literal& literal : kLiterals) {
        SCOPED_TRACE(testing::PrintToString(literal.json));
        SCOPED_TRACE(literal.selector);
        const Generator generator = GeneratorOf(literal.json);
        EXPECT_EQ((Written{1, literal.bytes}),
                  WriteIn({OutputForm::kBytes, literal.selector}, *generator));
        EXPECT_EQ((Written{1, literal.mark + literal.bytes}),
                  WriteIn({OutputForm::kFile, literal.selector}, *generator));
    }
}

const wchar_t* const kDocuments[] = {
    L"[]",
    L"{}",
    L"{\"\":\"\"}",
    L"[\"\xE9\x4E2D\x2028\x2029\xFFFD\xFFFE\xFFFF\xFEFF\"]",
    L"[\"\xD800\xDC00\xD800\xDFFF\xDBFF\xDC00\xDBFF\xDFFF\"]",
    L"{\"\xE9\":{\"\xD834\xDD1E\":[\"\\u0000\",{\"\\u0000\":\"\\uDBFF\\uDFFF\"}]}}",
    L"[\"\\u0001\\u0007\\b\\t\\n\\u000b\\f\\r\\u000e\\u001f \x7F\x80\x9F\xA0\"]",
    L"[\"\\\"\\\\\\/\",\"</script>\",\"'`&\"]",
};

TEST(OutputEncodings, EveryFormWritesAsRapidJsonDoes) {
    for (const wchar_t* json : kDocuments) {
        SCOPED_TRACE(testing::PrintToString(json));
        ExpectAllForms(model::Parse(json), *GeneratorOf(json));
    }
}

void Append(model::Document& document, const std::wstring& text) {
    auto& allocator = document.GetAllocator();
    const auto length = static_cast<rapidjson::SizeType>(text.size());
    document.PushBack(model::Document::ValueType(text.data(), length, allocator), allocator);
}

/// Adds the text to both documents.
void Append(model::Document& document, QXJSON::IJsonGenerator& generator,
            const std::wstring& text) {
    uint32_t handle = 0;
    Append(document, text);
    EXPECT_EQ(1, generator.AddArrayItemString(1, text.c_str(), &handle));
}

TEST(OutputEncodings, EveryCharacterOfTheBasicPlane) {
    const Generator generator = GeneratorOf(L"[]");
    model::Document document = model::Parse(L"[]");
    for (unsigned block = 0; block < 0x10000; block += 0x100) {
        if (block >= 0xD800 && block < 0xE000) continue;
        std::wstring text;
        for (unsigned unit = block; unit < block + 0x100; ++unit)
            if (unit != 0) text += static_cast<wchar_t>(unit);
        Append(document, *generator, text);
    }
    ExpectAllForms(document, *generator);
}

TEST(OutputEncodings, CharactersOfEveryFurtherPlane) {
    const Generator generator = GeneratorOf(L"[]");
    model::Document document = model::Parse(L"[]");
    for (unsigned high = 0xD800; high < 0xDC00; ++high) {
        std::wstring text;
        for (const unsigned low : {0xDC00u, 0xDC01u, 0xDD55u, 0xDFFEu, 0xDFFFu})
            text += {static_cast<wchar_t>(high), static_cast<wchar_t>(low)};
        Append(document, *generator, text);
    }
    ExpectAllForms(document, *generator);
}

/// Surrogates without their other half.
const std::wstring kLoneSurrogates[] = {
    L"\xD800",
    L"\xDBFF",
    L"\xDC00",
    L"\xDFFF",
    L"a\xD800",
    L"\xD800z",
    L"a\xDC00z",
    L"\xDC00\xD800",
    L"\xD800\xD800\xDC00",
    L"\xD834\xDD1E\xDD1E",
    std::wstring(255, L'x') + L"\xDC00",
    std::wstring(256, L'x') + L"\xDC00",
    std::wstring(257, L'x') + L"\xDC00",
    std::wstring(600, L'\xE9') + L"\xD800" + std::wstring(600, L'y'),
};

Generator GeneratorOfText(const std::wstring& text) {
    uint32_t handle = 0;
    Generator generator = GeneratorOf(L"[]");
    EXPECT_EQ(1, generator->AddArrayItemString(1, text.c_str(), &handle));
    return generator;
}

/// An encoding that has no way to write one ends the output there; text takes it as it is.
TEST(OutputEncodings, LoneSurrogates) {
    for (const std::wstring& text : kLoneSurrogates) {
        SCOPED_TRACE(testing::PrintToString(text));
        const Generator generator = GeneratorOfText(text);
        ExpectAllForms(ReferenceArrayOf(text), *generator);
        EXPECT_EQ(L"[\"" + text + L"\"]", support::JsonOf(*generator));
    }
}

TEST(OutputEncodings, LoneSurrogatesInKeys) {
    const Generator generator = GeneratorOf(L"{}");
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->AddObjectItemInt(1, L"k\xD800", 1, &handle));
    model::Document document = model::Parse(L"{}");
    model::Document::ValueType key(L"k\xD800", document.GetAllocator());
    document.AddMember(key, 1, document.GetAllocator());
    ExpectAllForms(document, *generator);
}

/// Nothing of an output that ended early shows in the ones after it.
TEST(OutputEncodings, AWholeDocumentFollowsOneThatEndedEarly) {
    const Generator generator = GeneratorOfText(L"a\xD800");
    for (const OutputForm& form : support::AllOutputForms()) {
        WriteIn(form, *generator);
        uint32_t root = 0;
        ASSERT_EQ(1, generator->LoadJsonString(L"[[\"b\"],{\"c\":1}]", &root));
        ExpectAllForms(model::Parse(L"[[\"b\"],{\"c\":1}]"), *generator);
        ASSERT_EQ(1, generator->LoadJsonString(L"[]", &root));
        ASSERT_EQ(1, generator->AddArrayItemString(1, L"a\xD800", &root));
    }
}

}  // namespace
