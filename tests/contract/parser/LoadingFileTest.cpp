// What only the load of a file can meet: names, files in use, reads that fail; and that the file is
// closed afterwards, whatever happened.

#include <gtest/gtest.h>

#include <cstdio>

#include "ImportPatch.h"
#include "JsonDll.h"
#include "LoadForm.h"
#include "PlainReader.h"
#include "TempFile.h"

namespace {

using model::FromAnsi;
using support::Failure;
using support::ImportPatch;
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

int g_left = 0;    ///< calls that still work
int g_calls = 0;   ///< calls made
int g_closes = 0;  ///< files closed

errno_t OpenSomeTimes(std::FILE** file, const wchar_t* name, const wchar_t* mode) {
    ++g_calls;
    if (g_left-- > 0) return _wfopen_s(file, name, mode);
    *file = nullptr;
    return EACCES;
}

size_t ReadSomeTimes(void* buffer, size_t size, size_t count, std::FILE* file) {
    ++g_calls;
    const size_t read = std::fread(buffer, size, count, file);
    return g_left-- > 0 ? read : read - 1;
}

int CountedClose(std::FILE* file) {
    ++g_closes;
    return std::fclose(file);
}

void Allow(int calls) {
    g_left = calls;
    g_calls = 0;
    g_closes = 0;
}

constexpr int kAll = 1 << 20;
const std::string kAnsi = "[\"some text and \xE9.\",1,2,3]";
constexpr uint64_t kAnsiOffset = 17;  ///< just after the byte that is not UTF-8

TEST(LoadingFile, WhereTheSecondOpenFailsTheFirstErrorStays) {
    const ImportPatch open(support::JsonDll(), "_wfopen_s", &OpenSomeTimes);
    const ImportPatch close(support::JsonDll(), "fclose", &CountedClose);
    ASSERT_TRUE(open.Found() && close.Found());
    const Parser parser = NewParser();
    const TempFile file(kAnsi);

    Allow(0);
    EXPECT_EQ(Failure(20, 0), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(1, g_calls);
    EXPECT_EQ(0, g_closes);

    Allow(1);
    EXPECT_EQ(Failure(12, kAnsiOffset), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(2, g_calls);
    EXPECT_EQ(1, g_closes);

    Allow(2);
    EXPECT_EQ(Success(FromAnsi(kAnsi)), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(2, g_calls);
    EXPECT_EQ(2, g_closes);
}

/// The file is read once more in one piece, which must come in whole.
TEST(LoadingFile, WhereTheSecondReadFallsShortTheFirstErrorStays) {
    const ImportPatch read(support::JsonDll(), "fread", &ReadSomeTimes);
    const ImportPatch close(support::JsonDll(), "fclose", &CountedClose);
    ASSERT_TRUE(read.Found() && close.Found());
    const Parser parser = NewParser();
    const TempFile file(kAnsi);

    Allow(kAll);
    EXPECT_EQ(Success(FromAnsi(kAnsi)), LoadNamed(*parser, file.Name()));
    const int calls = g_calls;

    Allow(calls - 1);
    EXPECT_EQ(Failure(12, kAnsiOffset), LoadNamed(*parser, file.Name()));
    EXPECT_EQ(calls, g_calls);
    EXPECT_EQ(2, g_closes);
    EXPECT_TRUE(file.IsClosed());
}

}  // namespace
