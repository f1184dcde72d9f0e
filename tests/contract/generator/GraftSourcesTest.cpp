// What may be loaded and grafted: every source goes through both loads and all eight grafts, and is
// compared with what RapidJSON makes of it.

#include <gtest/gtest.h>

#include <cwchar>

#include "Encode.h"
#include "GraftReference.h"
#include "GraftRoute.h"
#include "GraftScene.h"

namespace {

using model::Taken;
using support::AllGraftRoutes;
using support::Encode;
using support::Encoding;
using support::ExpectAsReference;
using support::GraftSource;
using support::Operation;

struct Row {
    const wchar_t* json;
    Taken::Kind kind;
};

const Row kRows[] = {
    {L"{}", Taken::kContainer},
    {L"[]", Taken::kContainer},
    {L" [ 1 , 2 ] \r\n\t", Taken::kContainer},
    {L"{\"a\":{\"b\":[null,true,false,\"text\",{}]},\"\":[]}", Taken::kContainer},
    {L"{\"a\":1,\"a\":2}", Taken::kContainer},
    {L"[0,-0,-0.0,1.5,1e300,18446744073709551615,18446744073709551616,-9223372036854775808]",
     Taken::kContainer},
    {L"[0.1234567890123456789012345678901234567890,123456789012345678901234567890]",
     Taken::kContainer},
    {L"[2.2250738585072011e-308,9007199254740993.0,8.98846567431158e307]", Taken::kContainer},
    {L"[NaN,Inf,-Inf,Infinity,-Infinity]", Taken::kContainer},
    {L"{\"a\":NaN,\"b\":-Infinity}", Taken::kContainer},
    {L"[\"\\u00e9\\uD834\\uDD1E\\u0000\\b\\f\\n\\r\\t\\/\\\\\\\"\"]", Taken::kContainer},
    {L"[\"\\uDC00\"]", Taken::kContainer},
    {L"{\"\xE9\x4E2D\":\"\xD834\xDD1E\xFFFF\"}", Taken::kContainer},
    {L"\xFEFF{\"a\":1}", Taken::kContainer},
    {L"5", Taken::kScalar},
    {L"-1.5", Taken::kScalar},
    {L" \"text\" ", Taken::kScalar},
    {L"\"\"", Taken::kScalar},
    {L"true", Taken::kScalar},
    {L"false", Taken::kScalar},
    {L"null", Taken::kScalar},
    {L"NaN", Taken::kScalar},
    {L"-Infinity", Taken::kScalar},
    {L"\xFEFF"
     L"12345",
     Taken::kScalar},
    {L"", Taken::kBroken},
    {L" ", Taken::kBroken},
    {L" \r\n\t", Taken::kBroken},
    {L"\xFEFF", Taken::kBroken},
    {L"\xFEFF\xFEFF[]", Taken::kBroken},
    {L"[", Taken::kBroken},
    {L"{", Taken::kBroken},
    {L"]", Taken::kBroken},
    {L"[1,]", Taken::kBroken},
    {L"{\"a\":1,}", Taken::kBroken},
    {L"{\"a\" 1}", Taken::kBroken},
    {L"{a:1}", Taken::kBroken},
    {L"{1:1}", Taken::kBroken},
    {L"[1 2]", Taken::kBroken},
    {L"[1}", Taken::kBroken},
    {L"[1]]", Taken::kBroken},
    {L"{}{}", Taken::kBroken},
    {L"{} 1", Taken::kBroken},
    {L"1 []", Taken::kBroken},
    {L"[1] // one", Taken::kBroken},
    {L"/* none */ []", Taken::kBroken},
    {L"['a']", Taken::kBroken},
    {L"[\"a]", Taken::kBroken},
    {L"[\"\t\"]", Taken::kBroken},
    {L"[\"\\x\"]", Taken::kBroken},
    {L"[\"\\u12g4\"]", Taken::kBroken},
    {L"[\"\\uD800\"]", Taken::kBroken},
    {L"[\"\\uD800\\u0041\"]", Taken::kBroken},
    {L"[\"\xD800\"]", Taken::kBroken},
    {L"[01]", Taken::kBroken},
    {L"[+1]", Taken::kBroken},
    {L"[1.]", Taken::kBroken},
    {L"[1e]", Taken::kBroken},
    {L"[1e309]", Taken::kBroken},
    {L"[nan]", Taken::kBroken},
    {L"[Infinit]", Taken::kBroken},
    {L"[nul]", Taken::kBroken},
    {L"[True]", Taken::kBroken},
    {L"\xE9[]", Taken::kBroken},
};

/// A file that ends in a lone surrogate is not UTF-8, and is tried as ANSI text.
bool IsTriedAgain(const Row& row, const Operation& route) {
    return ReadsFile(route) && std::wcschr(row.json, L'\xD800') != nullptr;
}

TEST(GraftSources, Texts) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::PrintToString(row.json));
        for (const Operation& route : AllGraftRoutes()) {
            const GraftSource source(route, std::wstring(row.json));
            ExpectAsReference(route, source);
            const Taken::Kind kind = IsTriedAgain(row, route) ? Taken::kContainer : row.kind;
            EXPECT_EQ(kind, model::ReferenceTake(route, source).kind) << route;
        }
    }
}

const std::wstring kText =
    L"{\"\xE9\":[\"\xD834\xDD1E\x4E2D\",1.5,NaN,{\"\":\"\\u00e9\"}],\"z\":null}";

/// Text that holds the bytes of another encoding is read like a file that holds them. The four
/// bytes of a unit of UTF-32 hold a zero that ends the text.
TEST(GraftSources, EveryEncodingWithAndWithoutAMark) {
    for (const Encoding encoding : support::kAllEncodings) {
        for (const bool mark : {false, true}) {
            SCOPED_TRACE(testing::Message() << NameOf(encoding) << (mark ? " with a mark" : ""));
            std::string bytes = Encode(kText, encoding, mark);
            if (bytes.size() % 2 != 0) bytes += ' ';
            const bool isWide = encoding == Encoding::kUtf32Le || encoding == Encoding::kUtf32Be;
            for (const Operation& route : AllGraftRoutes())
                EXPECT_EQ(ReadsFile(route) || !isWide,
                          ExpectAsReference(route, GraftSource(route, bytes)));
        }
    }
}

/// Sources that end too early, down to those too short to tell their encoding; each through one
/// route from a file and one from text, which take turns.
TEST(GraftSources, EveryPrefix) {
    const std::wstring text = L"[\"\xE9\xD834\xDD1E\",{\"a\":1}]";
    size_t turn = 0;
    int good = 0;
    for (const Encoding encoding : support::kAllEncodings) {
        for (const bool mark : {false, true}) {
            const std::string bytes = Encode(text, encoding, mark);
            for (size_t size = 0; size <= bytes.size(); ++size, ++turn) {
                SCOPED_TRACE(testing::Message() << size << " bytes of " << NameOf(encoding)
                                                << (mark ? " with a mark" : ""));
                for (const auto* routes : {&support::FileRoutes(), &support::TextRoutes()}) {
                    const Operation& route = (*routes)[turn % routes->size()];
                    const bool isTree =
                        ExpectAsReference(route, GraftSource(route, bytes.substr(0, size)));
                    good += isTree ? 1 : 0;
                }
            }
        }
    }
    // Whole they are good in 10 ways as a file and in 6 as text; the last bytes of some are zeros
    // that need not be there.
    EXPECT_GE(good, 10 + 6);
}

/// Sources whose first four bytes mislead: marks of nothing, patterns of no encoding.
TEST(GraftSources, BeginningsThatMislead) {
    const std::string beginnings[] = {
        std::string("\xFF\xFE", 2),
        std::string("\xFE\xFF", 2),
        std::string("\xEF\xBB\xBF", 3),
        std::string("\xEF\xBB", 2),
        std::string("\xFF\xFE\0\0", 4),
        std::string("\0\0\xFE\xFF", 4),
        std::string("\xFF\xFE[\0]\0", 6),
        std::string("\xFE\xFF\0[\0]", 6),
        std::string("\xFF\xFE[]", 4),
        std::string("\xFE\xFF[]", 4),
        std::string("\xEF\xBB\xBF[\0]\0", 7),
        std::string("[\0]", 3),
        std::string("[\0\0]", 4),
        std::string("\0[]\0", 4),
        std::string("[]\0\0", 4),
        std::string("[]\0\0[]", 6),
        std::string("[1]\0", 4),
        std::string("[1]\0x", 5),
        std::string("[\0]\0\0\0[\0", 8),
        std::string("\0\0\0[", 4),
        std::string("\0[\0]", 4),
        std::string("[\0\0\0]\0\0\0", 8),
        std::string("\0\0\0[\0\0\0]", 8),
        std::string("{\0}\0\xFF\xFE", 6),
    };
    for (const std::string& bytes : beginnings) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        for (const Operation& route : AllGraftRoutes())
            ExpectAsReference(route, GraftSource(route, bytes));
    }
}

/// Bytes are read as they are: line ends and end-of-file characters of text mode mean nothing.
TEST(GraftSources, FilesAreBinary) {
    const std::string sources[] = {"\r\n[\r\n1\r\n]\r\n", "[1]\x1A", "[\"\x1A\"]",
                                   Encode(L"[\"\x0A0D\x1A1A\x0D0A\"]", Encoding::kUtf16Le),
                                   Encode(L"[\"\x0A0D\x1A1A\x0D0A\"]", Encoding::kUtf16Be, true)};
    for (const std::string& bytes : sources)
        for (const Operation& route : support::FileRoutes())
            ExpectAsReference(route, GraftSource(route, bytes));
}

}  // namespace
