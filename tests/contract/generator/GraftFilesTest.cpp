// The file that is loaded or grafted: its name, who else uses it, reads that fail, and that it is
// only read, and closed afterwards.

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "FailingFiles.h"
#include "GraftReference.h"
#include "GraftRoute.h"
#include "GraftScene.h"
#include "ImportPatch.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "PlainReader.h"
#include "ProcessUse.h"
#include "TempFile.h"

namespace {

using model::FromAnsi;
using support::Answer;
using support::Arguments;
using support::Asks;
using support::FailingFiles;
using support::FileFunction;
using support::FileRoutes;
using support::GraftScene;
using support::ImportPatch;
using support::JsonOf;
using support::Operation;
using support::TempFile;

Arguments Named(const Operation& route, const wchar_t* fileName) {
    Arguments arguments = GraftScene::Good(route);
    arguments.payload.text = fileName;
    return arguments;
}

void ExpectRefused(const Operation& route, const wchar_t* fileName) {
    GraftScene scene;
    scene.ExpectFailure(-3, route, Named(route, fileName));
    scene.ExpectNextHandle(GraftScene::kNext);
}

void ExpectTaken(const Operation& route, const wchar_t* fileName, const std::wstring& tree) {
    const GraftScene scene;
    EXPECT_EQ(GraftScene::AnswerOf(route), route.call(*scene, Named(route, fileName)));
    EXPECT_EQ(GraftScene::DocumentWith(route, tree), JsonOf(*scene));
}

TEST(GraftFiles, NamesThatDoNotOpen) {
    ASSERT_EQ(5u, FileRoutes().size());
    const TempFile missing;
    const TempFile existing("[1]");
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    const std::wstring names[] = {missing.Name(),
                                  L"",
                                  folder,
                                  missing.Name() + std::wstring(L"\\below.json"),
                                  existing.Name() + std::wstring(L"\\below.json"),
                                  folder + std::wstring(L"no?such.json"),
                                  L"no*such.json",
                                  std::wstring(300, L'n'),
                                  std::wstring(40000, L'n')};
    for (const Operation& route : FileRoutes()) {
        SCOPED_TRACE(route.name);
        ExpectRefused(route, nullptr);
        for (const std::wstring& name : names) {
            SCOPED_TRACE(testing::PrintToString(name));
            ExpectRefused(route, name.c_str());
        }
    }
    EXPECT_FALSE(missing.Exists());
}

TEST(GraftFiles, FilesInUse) {
    for (const Operation& route : FileRoutes()) {
        SCOPED_TRACE(route.name);
        const TempFile file("[1]");
        for (const DWORD share : {0, FILE_SHARE_WRITE, FILE_SHARE_DELETE}) {
            HANDLE other =
                CreateFileW(file.Name(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
            ASSERT_NE(INVALID_HANDLE_VALUE, other);
            ExpectRefused(route, file.Name());
            CloseHandle(other);
        }
        HANDLE reader = CreateFileW(file.Name(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(INVALID_HANDLE_VALUE, reader);
        ExpectTaken(route, file.Name(), L"[1]");
        CloseHandle(reader);
        EXPECT_TRUE(file.IsClosed());
    }
}

/// A file in exclusive use does not matter to a graft that fails before it is needed.
TEST(GraftFiles, AFileInUseUnderAParentOfTheWrongKind) {
    const TempFile file("[1]");
    HANDLE other = CreateFileW(file.Name(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, other);
    for (const Operation& route : FileRoutes()) {
        if (route.asks == Asks::kLoad) continue;
        GraftScene scene;
        Arguments arguments = Named(route, file.Name());
        arguments.handle = GraftScene::kText;
        arguments.path = L"/text";
        scene.ExpectFailure(0, route, arguments);
    }
    CloseHandle(other);
}

TEST(GraftFiles, ReadOnlyFilesAndWhatIsRead) {
    const std::string sources[] = {"[1]", "[1", "5", "[\"\xE9.\"]"};
    for (const Operation& route : FileRoutes()) {
        for (const std::string& bytes : sources) {
            SCOPED_TRACE(testing::Message() << route << testing::PrintToString(bytes));
            const TempFile file(bytes);
            SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_READONLY);
            const GraftScene scene;
            const bool takes = bytes.back() == ']';
            EXPECT_EQ(takes ? 1 : -3, route.call(*scene, Named(route, file.Name())).result);
            SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_NORMAL);
            EXPECT_TRUE(file.IsClosed());
            EXPECT_EQ(bytes, file.Bytes());
        }
    }
}

TEST(GraftFiles, NamesOutsideTheAnsiCodePage) {
    const TempFile file("[1]");
    const std::wstring name = std::wstring(file.Name()) + L" \xE9\x4E2D.json";
    ASSERT_TRUE(CopyFileW(file.Name(), name.c_str(), TRUE));
    for (const Operation& route : FileRoutes()) ExpectTaken(route, name.c_str(), L"[1]");
    EXPECT_TRUE(DeleteFileW(name.c_str()));
}

/// A name that cannot be read faults.
TEST(GraftFiles, ANameThatIsNoMemory) {
    for (const Operation& route : FileRoutes()) {
        GraftScene scene;
        scene.ExpectFailure(-5, route, Named(route, reinterpret_cast<wchar_t*>(uintptr_t{8})));
        scene.ExpectNextHandle(GraftScene::kNext);
    }
}

TEST(GraftFiles, NoHandleStaysOpen) {
    const std::string sources[] = {"[1]", "[1", "5", "", "[\"\xE9.\"]", "[\"\xE9.\"", "\"\xE9.\""};
    const auto takeAll = [&] {
        for (const Operation& route : FileRoutes())
            for (const std::string& bytes : sources) {
                const TempFile file(bytes);
                const GraftScene scene;
                route.call(*scene, Named(route, file.Name()));
                route.call(*scene, Named(route, TempFile().Name()));
                EXPECT_TRUE(DeleteFileW(file.Name()));
            }
    };
    takeAll();
    const DWORD before = support::HandleCount();
    takeAll();
    EXPECT_EQ(before, support::HandleCount());
}

const std::string kAnsi = "[\"some text and \xE9.\",1,2,3]";

TEST(GraftFiles, TheSecondAttemptOpensTheFileAgain) {
    FailingFiles files;
    const TempFile file(kAnsi);
    for (const Operation& route : FileRoutes()) {
        for (const int opens : {0, 1}) {
            SCOPED_TRACE(testing::Message() << route << ", " << opens);
            files.Fail(FileFunction::kOpen, opens + 1);
            ExpectRefused(route, file.Name());
            EXPECT_EQ(opens + 1, files.Calls(FileFunction::kOpen));
            EXPECT_EQ(opens, files.Calls(FileFunction::kClose));
            EXPECT_EQ(L"rb", files.Mode());
        }
        files.Stop();
        ExpectTaken(route, file.Name(), FromAnsi(kAnsi));
        EXPECT_EQ(2, files.Calls(FileFunction::kOpen));
        EXPECT_EQ(2, files.Calls(FileFunction::kClose));
    }
}

/// A document that parses, or fails for any other reason, is opened once.
TEST(GraftFiles, OtherFilesAreOpenedOnce) {
    FailingFiles files;
    for (const Operation& route : FileRoutes()) {
        for (const char* bytes : {"[1]", "[1", "5", "", "[\"\xC3\xA9\"]", "[\xE9]"}) {
            const TempFile file(bytes);
            const GraftScene scene;
            files.Stop();
            route.call(*scene, Named(route, file.Name()));
            EXPECT_EQ(1, files.Calls(FileFunction::kOpen))
                << route << testing::PrintToString(bytes);
        }
    }
}

/// The second attempt reads the file in one piece, which must come in whole.
TEST(GraftFiles, ASecondReadThatFallsShort) {
    FailingFiles files;
    const TempFile file(kAnsi);
    for (const Operation& route : FileRoutes()) {
        SCOPED_TRACE(route.name);
        files.Stop();
        ExpectTaken(route, file.Name(), FromAnsi(kAnsi));
        const int calls = files.Calls(FileFunction::kRead);
        files.ReadOneLess(calls);
        ExpectRefused(route, file.Name());
        EXPECT_EQ(calls, files.Calls(FileFunction::kRead));
        EXPECT_EQ(2, files.Calls(FileFunction::kClose));
        EXPECT_TRUE(file.IsClosed());
    }
}

/// The file is streamed; only the second attempt has it whole.
TEST(GraftFiles, TheFileIsReadInBlocks) {
    static size_t largest = 0;
    using Read = size_t (*)(void*, size_t, size_t, std::FILE*);
    const Read measured = [](void* buffer, size_t size, size_t count, std::FILE* file) {
        largest = std::max(largest, size * count);
        return std::fread(buffer, size, count, file);
    };
    const ImportPatch read(support::JsonDll(), "fread", measured);
    ASSERT_TRUE(read.Found());
    const std::string utf8 = "[\"" + std::string(100000, 'x') + "\xC3\xA9\"]";
    const std::string ansi = "[\"" + std::string(100000, 'x') + "\xE9.\"]";
    for (const Operation& route : FileRoutes()) {
        for (const std::string& bytes : {utf8, ansi}) {
            const TempFile file(bytes);
            const GraftScene scene;
            largest = 0;
            EXPECT_EQ(1, route.call(*scene, Named(route, file.Name())).result);
            EXPECT_EQ(bytes == utf8 ? 2048 : ansi.size(), largest) << route;
        }
    }
}

size_t g_refused = 0;  ///< the size of the allocation that fails
int g_refusals = 0;

void* AllocateOthers(size_t size) {
    if (size < g_refused || size > g_refused + 16) return std::malloc(size);
    ++g_refusals;
    return nullptr;
}

/// Without memory for the whole file there is no second attempt.
TEST(GraftFiles, NoMemoryForTheWholeFile) {
    const std::string bytes = "[\"\xE9.\",\"" + std::string(1234567, 'x') + "\"]";
    const TempFile file(bytes);
    const ImportPatch allocate(support::JsonDll(), "malloc", &AllocateOthers);
    ASSERT_TRUE(allocate.Found());
    for (const Operation& route : FileRoutes()) {
        SCOPED_TRACE(route.name);
        g_refused = bytes.size();
        g_refusals = 0;
        ExpectRefused(route, file.Name());
        EXPECT_GT(g_refusals, 0);
        EXPECT_TRUE(file.IsClosed());
        g_refused = ~size_t{0} - 16;
        ExpectTaken(route, file.Name(), FromAnsi(bytes));
    }
}

}  // namespace
