// What only the load of a file can meet: names, files in use, reads that fail; and that the file is
// closed afterwards, whatever happened.

#include <gtest/gtest.h>

#include <cstdio>

#include "FailingFiles.h"
#include "JsonDll.h"
#include "LoadForm.h"
#include "PlainReader.h"
#include "TempFile.h"

namespace {

using model::FromAnsi;
using support::FailingFiles;
using support::Failure;
using support::FileFunction;
using support::LoadOutcome;
using support::NewParser;
using support::Parser;
using support::Success;
using support::TempFile;

LoadOutcome LoadNamed(QXJSON::IJsonParser& parser, const std::wstring& name) {
    return support::OutcomeOf(parser, parser.LoadJsonFile(name.c_str()));
}

TEST(LoadingFile, NamesThatDoNotOpen) {
    const Parser parser = NewParser();
    const TempFile missing;
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring names[] = {missing.Name(),  L"",
                                  folder,          missing.Name() + std::wstring(L"\\below.json"),
                                  L"no?such*name", std::wstring(40000, L'n')};
    for (const std::wstring& name : names)
        EXPECT_EQ(Failure(20, 0), LoadNamed(*parser, name)) << testing::PrintToString(name);
    EXPECT_FALSE(missing.Exists());
}

TEST(LoadingFile, AFileInExclusiveUseCountsAsMissing) {
    const Parser parser = NewParser();
    const TempFile file("[1]");
    HANDLE other = CreateFileW(file.Name(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, other);
    EXPECT_EQ(Failure(20, 0), LoadNamed(*parser, file.Name()));
    CloseHandle(other);
    EXPECT_EQ(Success(L"[1]"), LoadNamed(*parser, file.Name()));
}

TEST(LoadingFile, ReadOnlyFilesLoad) {
    const Parser parser = NewParser();
    const TempFile file("[1]");
    SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Success(L"[1]"), LoadNamed(*parser, file.Name()));
    SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ("[1]", file.Bytes());
}

/// The mode is binary: neither a Ctrl+Z nor line ends change what is read.
TEST(LoadingFile, BytesAreReadAsTheyAre) {
    const Parser parser = NewParser();
    EXPECT_EQ(Failure(10, 4), support::LoadFile(*parser, "[\"a\x1A\"]"));
    EXPECT_EQ(Failure(3, 6), support::LoadFile(*parser, "\r\n[\r\nx]"));
    const std::string wide = support::Encode(L"[\"\x0A0D\x1A1A\"]", support::Encoding::kUtf16Le);
    EXPECT_EQ(Success(L"[\"\x0A0D\x1A1A\"]"), support::LoadFile(*parser, wide));
}

/// Documents for each way through the load.
const std::string kWays[] = {
    "[1,2]",        // well-formed
    "[1,",          // a syntax error
    "",             // nothing at all
    "5",            // a root that is no container
    "[\"\xE9.\"]",  // good as ANSI text
    "[\"\xE9.\",",  // a syntax error as ANSI text
    std::string(200000, '['),
    "[\"\xE9.\"," + std::string(200000, '['),
};

TEST(LoadingFile, IsClosedAfterwards) {
    const Parser parser = NewParser();
    for (const std::string& bytes : kWays) {
        SCOPED_TRACE(testing::PrintToString(bytes.substr(0, 20)));
        TempFile file(bytes);
        parser->LoadJsonFile(file.Name());
        EXPECT_TRUE(file.IsClosed());
        EXPECT_TRUE(DeleteFileW(file.Name()));
        EXPECT_FALSE(file.Exists());
    }
}

/// That an open file shows is what the test above relies on.
TEST(LoadingFile, AnOpenFileIsNotClosed) {
    const TempFile file("[1]");
    std::FILE* open = _wfopen(file.Name(), L"rb");
    ASSERT_NE(nullptr, open);
    EXPECT_FALSE(file.IsClosed());
    std::fclose(open);
    EXPECT_TRUE(file.IsClosed());
}

const std::string kAnsi = "[\"some text and \xE9.\",1,2,3]";
constexpr uint64_t kAnsiOffset = 17;  ///< just after the byte that is not UTF-8

TEST(LoadingFile, WhereTheSecondOpenFailsTheFirstErrorStays) {
    FailingFiles files;
    const Parser parser = NewParser();
    const TempFile file(kAnsi);

    files.Fail(FileFunction::kOpen, 1);
    EXPECT_EQ(Failure(20, 0), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(1, files.Calls(FileFunction::kOpen));
    EXPECT_EQ(0, files.Calls(FileFunction::kClose));

    files.Fail(FileFunction::kOpen, 2);
    EXPECT_EQ(Failure(12, kAnsiOffset), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(2, files.Calls(FileFunction::kOpen));
    EXPECT_EQ(1, files.Calls(FileFunction::kClose));

    files.Stop();
    EXPECT_EQ(Success(FromAnsi(kAnsi)), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(2, files.Calls(FileFunction::kOpen));
    EXPECT_EQ(2, files.Calls(FileFunction::kClose));
}

/// The file is read once more in one piece, which must come in whole.
TEST(LoadingFile, WhereTheSecondReadFallsShortTheFirstErrorStays) {
    FailingFiles files;
    const Parser parser = NewParser();
    const TempFile file(kAnsi);
    EXPECT_EQ(Success(FromAnsi(kAnsi)), LoadNamed(*parser, file.Name()));
    const int calls = files.Calls(FileFunction::kRead);

    files.ReadOneLess(calls);
    EXPECT_EQ(Failure(12, kAnsiOffset), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(calls, files.Calls(FileFunction::kRead));
    EXPECT_EQ(2, files.Calls(FileFunction::kClose));
    EXPECT_TRUE(file.IsClosed());
}

}  // namespace
