// The file that an output goes to: its name, what was there before, who else uses it, and that it
// is closed afterwards.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>

#include "BytesAtAnEdge.h"
#include "FailingFiles.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "ProcessUse.h"
#include "TempFile.h"

namespace {

using support::FileForms;
using support::FileFunction;
using support::Generator;
using support::GeneratorOf;
using support::OutputForm;
using support::SaveIn;
using support::TempFile;

std::wstring TempFolder() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    return folder;
}

bool Exists(const std::wstring& name) {
    return GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Every file form with every kind of root: the name is looked at before the document.
template <class Check>
void ForAllOutputs(const Check& check) {
    const Generator generators[] = {GeneratorOf(L"{\"a\":1}"), GeneratorOf(L"[1]"),
                                    support::NewGenerator()};
    for (const Generator& generator : generators) {
        for (const OutputForm& form : FileForms()) {
            SCOPED_TRACE(testing::Message() << form);
            check(form, *generator);
        }
        check({OutputForm::kFile, 4}, *generator);
        check({OutputForm::kIndentedFile, 0, 2}, *generator);
    }
}

TEST(OutputFiles, NoName) {
    ForAllOutputs([](const OutputForm& form, QXJSON::IJsonGenerator& generator) {
        EXPECT_EQ(0, SaveIn(form, generator, nullptr));
        EXPECT_EQ(0, SaveIn(form, generator, L""));
    });
}

TEST(OutputFiles, NamesThatCannotBeUsed) {
    const TempFile missing;
    const std::wstring names[] = {
        missing.Name() + std::wstring(L"\\below.json"),
        missing.Name() + std::wstring(L"\\"),
        TempFolder(),
        TempFolder() + L"no?such.json",
        TempFolder() + L"no*such.json",
        TempFolder() + L"no|such.json",
        TempFolder() + std::wstring(300, L'n'),
        std::wstring(40000, L'n'),
        L"?:\\nowhere.json",
    };
    for (const std::wstring& name : names) {
        SCOPED_TRACE(testing::PrintToString(name));
        const bool existed = Exists(name);
        ForAllOutputs([&](const OutputForm& form, QXJSON::IJsonGenerator& generator) {
            EXPECT_EQ(0, SaveIn(form, generator, name.c_str()));
            EXPECT_EQ(existed, Exists(name));
        });
    }
    EXPECT_FALSE(missing.Exists());
}

TEST(OutputFiles, AFileBelowAFile) {
    const TempFile file("content");
    const std::wstring name = file.Name() + std::wstring(L"\\below.json");
    ForAllOutputs([&](const OutputForm& form, QXJSON::IJsonGenerator& generator) {
        EXPECT_EQ(0, SaveIn(form, generator, name.c_str()));
    });
    EXPECT_EQ("content", file.Bytes());
}

TEST(OutputFiles, WhatWasThereBeforeIsReplaced) {
    const Generator generator = GeneratorOf(L"[1]");
    for (const OutputForm& form : FileForms()) {
        const std::string expected = *support::ReferenceIn(form, model::Parse(L"[1]")).bytes;
        for (const size_t size : {0u, 1u, 3u, 100u, 100000u}) {
            const TempFile file(std::string(size, '#'));
            EXPECT_EQ(1, SaveIn(form, *generator, file.Name()));
            EXPECT_EQ(expected, file.Bytes()) << form << " over " << size << " bytes";
            EXPECT_EQ(1, SaveIn(form, *generator, file.Name()));
            EXPECT_EQ(expected, file.Bytes()) << form << ", once more";
        }
    }
}

TEST(OutputFiles, NamesOutsideTheAnsiCodePage) {
    const Generator generator = GeneratorOf(L"[1]");
    const std::wstring name = std::wstring(TempFile().Name()) + L" \xE9\x4E2D.json";
    EXPECT_EQ(1, generator->SaveToFile(name.c_str(), 0));
    EXPECT_EQ("[1]", support::ReadFileBytes(name));
    EXPECT_EQ(1, generator->SaveToFileEx(name.c_str(), 0, 0));
    EXPECT_EQ("[\n    1\n]", support::ReadFileBytes(name));
    EXPECT_TRUE(DeleteFileW(name.c_str()));
}

/// How somebody else has the file open, and what a save then returns. The file must open for
/// reading while nobody writes it, and then for writing.
struct Use {
    const char* name;
    DWORD access;
    DWORD share;
    int result;
};

constexpr DWORD kShareNothing = 0;
constexpr DWORD kShareReading = FILE_SHARE_READ;
constexpr DWORD kShareWriting = FILE_SHARE_WRITE;
constexpr DWORD kShareBoth = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr DWORD kShareAll = kShareBoth | FILE_SHARE_DELETE;

const Use kUses[] = {
    {"reads alone", GENERIC_READ, kShareNothing, 0},
    {"reads and lets read", GENERIC_READ, kShareReading, 0},
    {"reads and lets write", GENERIC_READ, kShareWriting, 0},
    {"reads and lets read and write", GENERIC_READ, kShareBoth, 1},
    {"reads and lets do everything", GENERIC_READ, kShareAll, 1},
    {"writes alone", GENERIC_WRITE, kShareNothing, 0},
    {"writes and lets read", GENERIC_WRITE, kShareReading, 0},
    {"writes and lets do everything", GENERIC_WRITE, kShareAll, 0},
    {"reads and writes alone", GENERIC_READ | GENERIC_WRITE, kShareNothing, 0},
    {"reads and writes and lets do everything", GENERIC_READ | GENERIC_WRITE, kShareAll, 0},
};

TEST(OutputFiles, FilesInUse) {
    const std::string before = "what was there before";
    const Generator generator = GeneratorOf(L"[1]");
    for (const Use& use : kUses) {
        SCOPED_TRACE(use.name);
        for (const OutputForm& form : FileForms()) {
            const TempFile file(before);
            HANDLE other = CreateFileW(file.Name(), use.access, use.share, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr);
            ASSERT_NE(INVALID_HANDLE_VALUE, other);
            EXPECT_EQ(use.result, SaveIn(form, *generator, file.Name())) << form;
            CloseHandle(other);
            EXPECT_TRUE(file.IsClosed());
            EXPECT_EQ(use.result == 0, before == file.Bytes()) << form;
            EXPECT_EQ(1, SaveIn(form, *generator, file.Name())) << form;
            EXPECT_NE(before, file.Bytes()) << form;
        }
    }
}

bool OpensForWriting(const wchar_t* name) {
    HANDLE file = CreateFileW(name, GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}

/// Systems exist that let their administrator write such files all the same.
TEST(OutputFiles, ReadOnlyFiles) {
    const Generator generator = GeneratorOf(L"[1]");
    for (const OutputForm& form : FileForms()) {
        const TempFile file("before");
        SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_READONLY);
        const bool opens = OpensForWriting(file.Name());
        EXPECT_EQ(opens ? 1 : 0, SaveIn(form, *generator, file.Name())) << form;
        EXPECT_EQ(opens, file.Bytes() != "before") << form;
        SetFileAttributesW(file.Name(), FILE_ATTRIBUTE_NORMAL);
    }
}

/// Whether a new file can be made is tried out first; what that made is gone again when the file
/// cannot be opened afterwards.
TEST(OutputFiles, AFileThatDoesNotOpenIsNotLeftBehind) {
    support::FailingFiles files;
    ForAllOutputs([&](const OutputForm& form, QXJSON::IJsonGenerator& generator) {
        const TempFile missing;
        const TempFile existing("before");
        files.Fail(FileFunction::kOpen, 1);
        EXPECT_EQ(0, SaveIn(form, generator, missing.Name()));
        EXPECT_FALSE(missing.Exists());
        EXPECT_EQ(0, SaveIn(form, generator, existing.Name()));
        EXPECT_EQ("before", existing.Bytes());
        EXPECT_EQ(2, files.Calls(FileFunction::kOpen));
        EXPECT_EQ(L"wb", files.Mode());
    });
}

TEST(OutputFiles, AFileThatCannotBeUsedIsNotOpened) {
    const support::FailingFiles files;
    const TempFile file("before");
    HANDLE other = CreateFileW(file.Name(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, other);
    ForAllOutputs([&](const OutputForm& form, QXJSON::IJsonGenerator& generator) {
        EXPECT_EQ(0, SaveIn(form, generator, nullptr));
        EXPECT_EQ(0, SaveIn(form, generator, L""));
        EXPECT_EQ(0, SaveIn(form, generator, file.Name()));
    });
    EXPECT_EQ(0, files.Calls(FileFunction::kOpen));
    CloseHandle(other);
    EXPECT_EQ("before", file.Bytes());
}

TEST(OutputFiles, NoHandleStaysOpen) {
    const TempFile file("before");
    const std::wstring bad = file.Name() + std::wstring(L"\\below.json");
    const auto save = [&] {
        ForAllOutputs([&](const OutputForm& form, QXJSON::IJsonGenerator& generator) {
            SaveIn(form, generator, file.Name());
            SaveIn(form, generator, TempFile().Name());
            SaveIn(form, generator, bad.c_str());
            SaveIn(form, generator, TempFolder().c_str());
        });
    };
    save();
    const DWORD before = support::HandleCount();
    save();
    EXPECT_EQ(before, support::HandleCount());
    EXPECT_TRUE(file.IsClosed());
}

/// A name that cannot be read, or not to its end, has no length; the generator goes on.
TEST(OutputFiles, NamesThatAreNoMemory) {
    const support::BytesAtAnEdge noEnd(std::string("n\0a\0m\0e\0", 8));
    ForAllOutputs([&](const OutputForm& form, QXJSON::IJsonGenerator& generator) {
        for (const auto* name : {reinterpret_cast<const wchar_t*>(uintptr_t{8}),
                                 reinterpret_cast<const wchar_t*>(noEnd.Begin())})
            EXPECT_EQ(0, SaveIn(form, generator, name));
    });
    const Generator generator = GeneratorOf(L"[1]");
    EXPECT_EQ(0, generator->SaveToFile(reinterpret_cast<const wchar_t*>(uintptr_t{8}), 2));
    support::ExpectAllForms(model::Parse(L"[1]"), *generator);
}

}  // namespace
