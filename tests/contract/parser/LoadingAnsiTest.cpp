// Text that is not valid UTF-8 is read again in the system's ANSI code page. Which characters that
// gives depends on the machine; the expectations go through the same code page.

#include <gtest/gtest.h>

#include "BytesAtAnEdge.h"
#include "JsonDll.h"
#include "LoadForm.h"
#include "ParserReference.h"
#include "PlainReader.h"

namespace {

using model::FromAnsi;
using support::Failure;
using support::LoadOutcome;
using support::NewParser;
using support::Parser;
using support::Success;

const std::string kMark = "\xEF\xBB\xBF";

void ExpectBytesAndFile(const LoadOutcome& expected, const std::string& bytes) {
    const Parser parser = NewParser();
    SCOPED_TRACE(testing::PrintToString(bytes));
    EXPECT_EQ(expected, support::LoadBytes(*parser, bytes));
    EXPECT_EQ(expected, support::LoadFile(*parser, bytes));
}

/// A character of its own after the invalid byte keeps two-byte code pages from eating a quote.
TEST(LoadingAnsi, TextThatIsNotUtf8IsReadInTheAnsiCodePage) {
    for (const std::string bytes :
         {"[\"\xE9.\"]", "{\"\xE9t\xE9.\":\"\xFC \"}", "[\"\xC3\xA9 \xE9.\",[1,{}]]",
          "[\"\xED\xA0\x80.\"]", "[\"\xF5.\"]", "[\"\xC0\x80.\"]", "[\"\x80.\"]"}) {
        ExpectBytesAndFile(Success(FromAnsi(bytes)), bytes);
    }
}

TEST(LoadingAnsi, EAcuteOfWindows1252) {
    const Parser parser = NewParser();
    const LoadOutcome outcome = support::LoadBytes(*parser, "[\"\xE9\"]");
    if (GetACP() == 1252)
        EXPECT_EQ(Success(L"[\"\xE9\"]"), outcome);
    else
        EXPECT_EQ(model::ReferenceLoadBytes("[\"\xE9\"]"), outcome);
}

TEST(LoadingAnsi, ValidUtf8IsNeverReadAsAnsi) {
    ExpectBytesAndFile(Success(L"[\"\xE9\"]"), "[\"\xC3\xA9\"]");
    ExpectBytesAndFile(Success(L"[\"\xE9\"]"), kMark + "[\"\xC3\xA9\"]");
}

/// The second attempt takes the bytes as they are: a mark is then text before the document.
TEST(LoadingAnsi, AMarkInFrontMakesTheSecondAttemptFail) {
    ExpectBytesAndFile(Failure(3, 0), kMark + "[\"\xE9.\"]");
}

TEST(LoadingAnsi, ErrorsAreThoseOfTheSecondAttemptInUtf16Units) {
    struct Row {
        const char* bytes;
        int code;
        const wchar_t* at;  ///< what stands at the offset
    };
    const Row rows[] = {
        {"[\"\xE9.\",NaN]", 3, L"NaN"},
        {"[\"\xE9.\",Inf]", 3, L"Inf"},
        {"[\"\xE9.\",Infinity]", 3, L"Infinity"},
        {"[NaN,\"\xE9.\"]", 3, L"NaN"},
        {"[\"\xE9.\",]", 3, L"]"},
        {"[\"\xE9.\"] 1", 2, L"1"},
        {"{\"\xE9.\" 1}", 5, L"1"},
        {"{\"\xE9.\":1 2}", 6, L"2"},
        {"[\"\xE9.\" 2]", 7, L"2"},
        {"[\"\xE9.\",\"\\u00g0\"]", 8, L"\\"},
        {"[\"\xE9.\",\"\\uD800\"]", 9, L"\\"},
        {"[\"\xE9.\",\"\\q\"]", 10, L"\\"},
        {"[\"\xE9.\",\"\t\"]", 10, L"\t"},
        {"[\"\xE9.\",1e309]", 13, L"1e"},
        {"[\"\xE9.\",1.]", 14, L"]"},
        {"[\"\xE9.\",1e]", 15, L"]"},
    };
    for (const Row& row : rows)
        ExpectBytesAndFile(Failure(row.code, FromAnsi(row.bytes).find(row.at)), row.bytes);
    const std::string open = "[\"\xE9.";
    ExpectBytesAndFile(Failure(11, FromAnsi(open).size()), open);
}

TEST(LoadingAnsi, ARootThatIsNoContainerIsRefused) {
    ExpectBytesAndFile(Failure(3, 0), "\"\xE9.\"");
    ExpectBytesAndFile(Failure(3, 0), kMark + "\"\xE9.\"");
}

/// NaN is refused by the second attempt alone.
TEST(LoadingAnsi, SpecialNumbersNeedUtf8) {
    ExpectBytesAndFile(Success(L"[\"\xE9\",NaN]"), "[\"\xC3\xA9\",NaN]");
    const std::string bytes = "[\"\xE9.\",-Infinity]";
    ExpectBytesAndFile(Failure(3, FromAnsi(bytes).find(L"Infinity")), bytes);
}

TEST(LoadingAnsi, OnlyAnInvalidStringLeadsToTheSecondAttempt) {
    ExpectBytesAndFile(Failure(3, 2), "[\xE9]");
    ExpectBytesAndFile(Failure(2, 4), "[] \xE9");
    ExpectBytesAndFile(Failure(3, 4), "[1,]\"\xE9\"");
    ExpectBytesAndFile(Failure(12, 6),
                       support::Encode(L"[\"\xDC00\"]", support::Encoding::kUtf16Le));
}

TEST(LoadingAnsi, WideTextHasNoSecondAttempt) {
    const Parser parser = NewParser();
    // Read as UTF-8, as nothing shows the encoding of this text, its units are: [ " U+00E9 - ...
    const std::wstring text = {0x225B, 0x2DE9, 0x5D22};
    EXPECT_EQ(Failure(12, 3), support::LoadText(*parser, text));
}

/// The document ends at the first zero, the second attempt as well.
TEST(LoadingAnsi, AZeroByteEndsTheDocument) {
    const std::string bytes("[\"\xE9.\"]\0]", 8);
    ExpectBytesAndFile(Success(FromAnsi("[\"\xE9.\"]")), bytes);
}

/// Files larger than the read buffer, with the invalid byte in each part of it.
TEST(LoadingAnsi, LargeFiles) {
    const Parser parser = NewParser();
    for (const size_t front : {0u, 1000u, 1020u, 1021u, 1022u, 1023u, 1024u, 5000u, 100000u}) {
        const std::string bytes =
            "[\"" + std::string(front, '-') + "\xE9.\",\"" + std::string(3000, '+') + "\"]";
        EXPECT_EQ(Success(FromAnsi(bytes)), support::LoadFile(*parser, bytes)) << front;
        EXPECT_EQ(Success(FromAnsi(bytes)), support::LoadBytes(*parser, bytes)) << front;
    }
}

/// A length that is negative to the system stands for zero-terminated text.
TEST(LoadingAnsi, ALengthBeyondThoseOfTheSystem) {
    const Parser parser = NewParser();
    for (const std::string bytes : {"[\"\xE9.\"]", "[\"\xE9.\",]"}) {
        const LoadOutcome expected = model::ReferenceLoadBytes(bytes);
        const support::BytesAtAnEdge text(bytes + '\0');
        for (const uint32_t length : {0xFFFFFFFFu, 0xFFFFFFFEu, 0x80000000u})
            EXPECT_EQ(expected,
                      support::OutcomeOf(*parser, parser->LoadJsonBytes(text.Begin(), length)))
                << bytes << ' ' << length;
    }
}

}  // namespace
