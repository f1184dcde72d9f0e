// Files that are not valid UTF-8 are read again in the system's ANSI code page. Which characters
// that gives depends on the machine; the expectations go through the same code page.

#include <gtest/gtest.h>

#include "PackageState.h"
#include "PlainReader.h"
#include "TempFile.h"

namespace {

using model::FromAnsi;
using support::Encoding;
using support::LoadPackageFile;
using support::NewPackage;
using support::Package;
using support::PackageArrayRoot;
using support::PackageLoaded;
using support::PackageOutcome;
using support::PackageRefused;

const std::string kMark = "\xEF\xBB\xBF";

void ExpectFile(const PackageOutcome& expected, const std::string& bytes) {
    const Package package = NewPackage();
    EXPECT_EQ(expected, LoadPackageFile(*package, bytes)) << testing::PrintToString(bytes);
}

/// A character of its own after the invalid byte keeps two-byte code pages from eating a quote.
TEST(PackageLoadAnsi, FilesThatAreNotUtf8) {
    for (const std::string bytes :
         {"{\"a\":\"\xE9.\"}", "{\"\xE9t\xE9.\":\"\xFC \"}", "{\"a\":[\"\xC3\xA9 \xE9.\",{}]}",
          "{\"a\":\"\xED\xA0\x80.\"}", "{\"a\":\"\x80.\",\"b\":\"\xF5.\"}"})
        ExpectFile(PackageLoaded(FromAnsi(bytes)), bytes);
}

TEST(PackageLoadAnsi, ValidUtf8IsNeverReadAsAnsi) {
    ExpectFile(PackageLoaded(L"{\"a\":\"\xE9\"}"), "{\"a\":\"\xC3\xA9\"}");
    ExpectFile(PackageLoaded(L"{\"a\":\"\xE9\"}"), kMark + "{\"a\":\"\xC3\xA9\"}");
}

/// The mark has told the encoding and is text of the second attempt.
TEST(PackageLoadAnsi, AMarkInFrontMakesTheSecondAttemptFail) {
    ExpectFile(PackageRefused(3, 0), kMark + "{\"a\":\"\xE9.\"}");
}

TEST(PackageLoadAnsi, OtherRoots) {
    ExpectFile(PackageArrayRoot(), "[\"\xE9.\"]");
    ExpectFile(PackageArrayRoot(), "[{\"a\":\"\xE9.\"}]");
    ExpectFile(PackageRefused(22, 0), "\"\xE9.\"");
}

TEST(PackageLoadAnsi, ErrorsAreThoseOfTheSecondAttemptInUtf16Units) {
    struct Row {
        const char* bytes;
        int code;
        const wchar_t* at;  ///< what stands at the offset
    };
    const Row rows[] = {
        {"{\"a\":\"\xE9.\"} 1", 2, L"1"},
        {"{\"a\":[\"\xE9.\",]}", 3, L"]"},
        // Numbers that are not finite are refused by both attempts.
        {"{\"a\":\"\xE9.\",\"b\":NaN}", 3, L"NaN"},
        {"{\"a\":\"\xE9.\",\"b\":-Infinity}", 3, L"Infinity"},
        {"{\"a\":\"\xE9.\",1}", 4, L"1"},
        {"{\"\xE9.\" 1}", 5, L"1"},
        {"{\"\xE9.\":1 2}", 6, L"2"},
        {"[\"\xE9.\" 2]", 7, L"2"},
        {"{\"a\":\"\xE9.\",\"b\":\"\\u00g0\"}", 8, L"\\"},
        {"{\"a\":\"\xE9.\",\"b\":\"\\uD800\"}", 9, L"\\"},
        {"{\"a\":\"\xE9.\",\"b\":\"\\q\"}", 10, L"\\"},
        {"{\"a\":\"\xE9.\",\"b\":1e309}", 13, L"1e"},
        {"{\"a\":\"\xE9.\",\"b\":1.}", 14, L"}"},
        {"{\"a\":\"\xE9.\",\"b\":1e}", 15, L"}"},
    };
    for (const Row& row : rows)
        ExpectFile(PackageRefused(row.code, FromAnsi(row.bytes).find(row.at)), row.bytes);
    const std::string open = "{\"a\":\"\xE9.";
    ExpectFile(PackageRefused(11, FromAnsi(open).size()), open);
}

/// The first attempt reads up to its first error, whichever it is.
TEST(PackageLoadAnsi, OnlyAnInvalidStringLeadsToTheSecondAttempt) {
    ExpectFile(PackageRefused(3, 6), "{\"a\":\xE9}");
    ExpectFile(PackageRefused(2, 4), "{} \xE9");
    ExpectFile(PackageRefused(4, 8), "{\"a\":1,}\"\xE9\"");
    ExpectFile(PackageRefused(3, 6), "{\"a\":NaN,\"b\":\"\xE9.\"}");
    ExpectFile(PackageRefused(12, 14), support::Encode(L"{\"a\":\"\xDC00\"}", Encoding::kUtf16Le));
}

TEST(PackageLoadAnsi, WideTextHasNoSecondAttempt) {
    // Read as UTF-8, as nothing shows the encoding of this text: {"a":"\xE9-"}
    const std::wstring text = {0x227B, 0x2261, 0x223A, 0x2DE9, 0x7D22};
    const Package package = NewPackage();
    EXPECT_EQ(PackageRefused(12, 7), support::LoadPackageText(*package, text));
}

TEST(PackageLoadAnsi, AZeroByteEndsTheDocument) {
    const std::string bytes("{\"a\":\"\xE9.\"}\0]", 13);
    ExpectFile(PackageLoaded(FromAnsi("{\"a\":\"\xE9.\"}")), bytes);
}

/// Files larger than the read buffer, with the invalid byte in each part of it.
TEST(PackageLoadAnsi, LargeFiles) {
    const Package package = NewPackage();
    for (const size_t front :
         {0u, 1000u, 1015u, 1016u, 1017u, 1018u, 1019u, 1024u, 5000u, 100000u}) {
        const std::string bytes = "{\"a\":\"" + std::string(front, '-') + "\xE9.\",\"b\":\"" +
                                  std::string(3000, '+') + "\"}";
        EXPECT_TRUE(PackageLoaded(FromAnsi(bytes)) == LoadPackageFile(*package, bytes)) << front;
    }
}

}  // namespace
