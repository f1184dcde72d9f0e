// Files that fail in the middle: each call of the C runtime's file functions in turn, alone and
// with all that follow. What comes of it is what the contract has for a file that ends there, does
// not open or cannot be read again; nothing is lost, and the object goes on.

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <string>

#include "Encode.h"
#include "FailingAllocations.h"
#include "FailingFiles.h"
#include "FileLoads.h"
#include "ImportPatch.h"
#include "JsonDll.h"
#include "OutputForm.h"
#include "PackageState.h"
#include "ProcessUse.h"
#include "Selectors.h"
#include "TempFile.h"

namespace {

using support::FailingFiles;
using support::FileFunction;
using support::FileLoad;
using support::FileOutcome;
using support::Generator;
using support::ImportPatch;
using support::kFileLoads;
using support::Package;
using support::TempFile;

constexpr int kAllThatFollow = INT_MAX;

// ---- Loads -------------------------------------------------------------------------------------

struct Content {
    const char* name;
    std::string bytes;
    bool ansi;  ///< read in two attempts
};

std::string Long(const std::string& front) {
    return "{\"" + front + "\":[\"" + std::string(5000, 'x') + "\",1,2]}";
}

const Content kContents[] = {
    {"small", "{\"a\":[1,2,3]}", false},
    {"broken", "{\"a\":[1,2,3]", false},
    {"empty", "", false},
    {"long", Long("a"), false},
    {"long UTF-8", Long("\xC3\xA9"), false},
    {"ANSI", "{\"\xE9.\":[1,2,3]}", true},
    {"broken ANSI", "{\"\xE9.\":[1,2,3]", true},
    {"long ANSI", Long("\xE9."), true},
};

/// Loads one content in one family with each of the calls failing.
class Trials {
public:
    Trials(const FileLoad& aLoad, const Content& content)
        : load(aLoad), bytes(content.bytes), file(content.bytes), isAnsi(content.ansi) {
        whole = load.load(file.Name());
        files.Fail(FileFunction::kOpen, 2);
        firstAttempt = load.load(file.Name());
        files.Fail(FileFunction::kOpen, 1);
        unopened = load.load(file.Name());
        files.Stop();
    }

    void FailEach(FileFunction function, int count) {
        const support::FailingAllocations allocations;
        bool happened = true;
        for (int n = 1; happened; ++n) {
            SCOPED_TRACE(testing::Message() << NameOf(function) << ' ' << n);
            files.Fail(function, n, count);
            const FileOutcome seen = load.load(file.Name());
            happened = files.Happened(function);
            const size_t cut = files.Cut();
            files.Stop();
            Judge(function, n, happened, seen, cut);
            EXPECT_TRUE(file.IsClosed());
            EXPECT_EQ(0, allocations.LiveBlocks()) << "memory is lost";
        }
    }

    const FileOutcome& Whole() const { return whole; }
    const FileOutcome& FirstAttempt() const { return firstAttempt; }
    const FileOutcome& Unopened() const { return unopened; }

private:
    void Judge(FileFunction function, int n, bool happened, const FileOutcome& seen,
               size_t cut) const {
        if (!happened || function == FileFunction::kClose || function == FileFunction::kWrite) {
            EXPECT_EQ(whole, seen);
        } else if (function == FileFunction::kOpen) {
            EXPECT_EQ(n == 1 ? unopened : firstAttempt, seen);
        } else if (function == FileFunction::kRead) {
            const bool isFirst = isAnsi && (seen == whole || seen == firstAttempt);
            EXPECT_TRUE(isFirst || seen == CutAt(cut))
                << seen << " of the first " << cut << " bytes";
        } else {
            EXPECT_TRUE(seen == whole || (isAnsi && seen == firstAttempt)) << seen;
        }
    }

    FileOutcome CutAt(size_t size) const {
        const TempFile part(bytes.substr(0, size));
        return load.load(part.Name());
    }

    const FileLoad& load;
    const std::string bytes;
    const TempFile file;
    const bool isAnsi;
    FailingFiles files;
    FileOutcome whole;
    FileOutcome firstAttempt;
    FileOutcome unopened;
};

void FailEveryCallOfEveryLoad() {
    for (const FileLoad& load : kFileLoads)
        for (const Content& content : kContents) {
            SCOPED_TRACE(testing::Message() << load.name << ", " << content.name);
            Trials trials(load, content);
            const bool tells = content.ansi && trials.Whole().result == 1;
            EXPECT_EQ(tells, trials.FirstAttempt().result != trials.Whole().result);
            EXPECT_NE(1, trials.Unopened().result);
            for (const FileFunction function :
                 {FileFunction::kOpen, FileFunction::kRead, FileFunction::kSeek,
                  FileFunction::kTell, FileFunction::kClose})
                for (const int count : {1, kAllThatFollow}) trials.FailEach(function, count);
        }
}

TEST(FileFaults, Loads) {
    FailEveryCallOfEveryLoad();  // the system takes some handles with its first files
    const int handles = support::HandleCount();
    FailEveryCallOfEveryLoad();
    EXPECT_EQ(handles, support::HandleCount());
}

size_t g_read = 0;  ///< bytes

size_t CountedRead(void* buffer, size_t size, size_t count, std::FILE* file) {
    const size_t read = std::fread(buffer, size, count, file);
    g_read += read;
    return read;
}

int NoSeek(std::FILE*, long, int) {
    ADD_FAILURE() << "a file was to be rewound";
    return -1;
}

/// Nothing is read twice and nothing is skipped, so that what cannot be rewound loads as well.
TEST(FileFaults, AFileIsReadOnceAndInItsOrder) {
    const ImportPatch read(support::JsonDll(), "fread", &CountedRead);
    const ImportPatch seek(support::JsonDll(), "fseek", &NoSeek);
    ASSERT_TRUE(read.Found() && seek.Found());
    EXPECT_FALSE(ImportPatch(support::JsonDll(), "rewind", &std::rewind).Found());
    for (const FileLoad& load : kFileLoads)
        for (const support::Encoding encoding : support::kAllEncodings)
            for (const wchar_t* const text :
                 {L"{\"a\":[1,\"\xE9\"]}", L"{\"a\":[1,\"\xE9\"", L"12"}) {
                SCOPED_TRACE(testing::Message() << load.name << ", " << NameOf(encoding));
                const std::string bytes = support::Encode(text, encoding);
                const TempFile file(bytes);
                g_read = 0;
                load.load(file.Name());
                EXPECT_EQ(bytes.size(), g_read);
            }
}

// ---- Files that change between the two attempts ------------------------------------------------

const std::string* g_next =
    nullptr;  ///< what the file holds for the second attempt; null: it is gone
int g_opens = 0;

errno_t OpenAndChange(std::FILE** file, const wchar_t* name, const wchar_t* mode) {
    if (++g_opens == 2) {
        DeleteFileW(name);
        std::FILE* const changed = g_next ? _wfopen(name, L"wb") : nullptr;
        if (changed) {
            std::fwrite(g_next->data(), 1, g_next->size(), changed);
            std::fclose(changed);
        }
    }
    return _wfopen_s(file, name, mode);
}

FileOutcome LoadChanging(const FileLoad& load, const std::string& before,
                         const std::string* after) {
    const TempFile file(before);
    g_next = after;
    g_opens = 0;
    const FileOutcome seen = load.load(file.Name());
    EXPECT_EQ(2, g_opens);
    EXPECT_EQ(after != nullptr, file.IsClosed());
    return seen;
}

const std::string kAnsi = "{\"some text and \xE9.\":1}";

/// The second attempt reads what is there then, and nothing else; where nothing is, the error of
/// the first stays.
TEST(FileFaults, AFileThatChangesBetweenTheAttempts) {
    const ImportPatch open(support::JsonDll(), "_wfopen_s", &OpenAndChange);
    ASSERT_TRUE(open.Found());
    const std::string nothing;
    const std::string other = "{\"\xE9.\":[2]}";
    const std::string longer = Long("\xE9.");
    for (const FileLoad& load : kFileLoads) {
        SCOPED_TRACE(load.name);
        const support::FailingAllocations allocations;
        const FileOutcome gone = LoadChanging(load, kAnsi, nullptr);
        EXPECT_NE(1, gone.result);
        if (load.tells) {
            EXPECT_EQ(12, gone.code);
            EXPECT_EQ(kAnsi.find('\xE9') + 1, gone.offset);
        }
        EXPECT_EQ(gone, LoadChanging(load, kAnsi, &nothing));
        for (const std::string* const next : {&other, &longer})
            EXPECT_EQ(LoadChanging(load, *next, next), LoadChanging(load, kAnsi, next));
        EXPECT_EQ(0, allocations.LiveBlocks());
    }
}

// ---- Conversions that fail ---------------------------------------------------------------------

int g_conversions = 0;  ///< calls that still work

int ConvertSomeTimes(UINT codePage, DWORD flags, const char* bytes, int size, wchar_t* text,
                     int capacity) {
    if (g_conversions-- <= 0) return 0;
    return MultiByteToWideChar(codePage, flags, bytes, size, text, capacity);
}

/// Whether it is measured or done that fails, the first error stays.
TEST(FileFaults, AConversionFromTheAnsiCodePage) {
    const ImportPatch convert(support::JsonDll(), "MultiByteToWideChar", &ConvertSomeTimes);
    ASSERT_TRUE(convert.Found());
    for (const FileLoad& load : kFileLoads)
        for (const int good : {0, 1}) {
            SCOPED_TRACE(testing::Message() << load.name << ", " << good);
            const TempFile file(kAnsi);
            const support::FailingAllocations allocations;
            g_conversions = good;
            const FileOutcome outcome = load.load(file.Name());
            EXPECT_NE(1, outcome.result);
            if (load.tells) {
                EXPECT_EQ(12, outcome.code);
                EXPECT_EQ(kAnsi.find('\xE9') + 1, outcome.offset);
            }
            EXPECT_EQ(0, allocations.LiveBlocks());
            g_conversions = 2;
            EXPECT_EQ(1, load.load(file.Name()).result);
        }
}

// ---- Saves -------------------------------------------------------------------------------------

constexpr const wchar_t* kSaved = L"{\"a\":[1,\"\xE9\",{\"b\":null}]}";

int SavePackage(const wchar_t* name, int32_t encoding) {
    const Package package = support::LoadedPackage(kSaved);
    const int result = package->SaveToFile(name, encoding);
    EXPECT_EQ(kSaved, support::PackageText(*package));
    return result;
}

int SaveGenerator(const wchar_t* name, int32_t encoding) {
    const Generator generator = support::GeneratorOf(kSaved);
    const int result = generator->SaveToFile(name, encoding);
    EXPECT_EQ(kSaved, support::JsonOf(*generator));
    return result;
}

int SaveGeneratorIndented(const wchar_t* name, int32_t encoding) {
    const Generator generator = support::GeneratorOf(kSaved);
    const int result = generator->SaveToFileEx(name, encoding, 1);
    EXPECT_EQ(kSaved, support::JsonOf(*generator));
    return result;
}

struct Save {
    const char* name;
    int (*save)(const wchar_t* name, int32_t encoding);
};

const Save kSaves[] = {
    {"package", &SavePackage},
    {"generator", &SaveGenerator},
    {"generator, indented", &SaveGeneratorIndented},
};

std::string BytesOf(const Save& save, int32_t encoding) {
    const TempFile file;
    EXPECT_EQ(1, save.save(file.Name(), encoding));
    return file.Bytes();
}

/// A save over `before` with failing calls. The test looks at what was written, not at the result;
/// but a file that does not open is left alone.
void SaveWithFailure(const Save& save, int32_t encoding, FileFunction function, bool happened,
                     const TempFile& file, int result) {
    const std::string whole = BytesOf(save, encoding);
    const std::string bytes = file.Bytes();
    EXPECT_TRUE(file.IsClosed());
    if (happened && function == FileFunction::kOpen) {
        EXPECT_EQ(0, result);
        EXPECT_EQ("before", bytes);
    } else if (happened && function == FileFunction::kWrite) {
        EXPECT_EQ(1, result);
        EXPECT_LT(bytes.size(), whole.size());
    } else {
        EXPECT_EQ(1, result);
        EXPECT_EQ(whole, bytes);
    }
}

TEST(FileFaults, Saves) {
    FailingFiles files;
    for (const Save& save : kSaves)
        for (const int32_t encoding : support::kAllSelectors)
            for (const FileFunction function :
                 {FileFunction::kOpen, FileFunction::kWrite, FileFunction::kSeek,
                  FileFunction::kTell, FileFunction::kClose})
                for (const int count : {1, kAllThatFollow}) {
                    const support::FailingAllocations allocations;
                    bool happened = true;
                    for (int n = 1; happened; ++n) {
                        SCOPED_TRACE(testing::Message() << save.name << ", encoding " << encoding
                                                        << ", " << NameOf(function) << ' ' << n);
                        const TempFile file("before");
                        files.Fail(function, n, count);
                        const int result = save.save(file.Name(), encoding);
                        happened = files.Happened(function);
                        files.Stop();
                        SaveWithFailure(save, encoding, function, happened, file, result);
                        EXPECT_EQ(0, allocations.LiveBlocks()) << "memory is lost";
                    }
                }
}

/// A disk that takes nothing leaves an empty file, and 1.
TEST(FileFaults, AFullDisk) {
    using Write = size_t (*)(const void*, size_t, size_t, std::FILE*);
    const Write refuse = [](const void*, size_t, size_t, std::FILE*) -> size_t { return 0; };
    const ImportPatch write(support::JsonDll(), "fwrite", refuse);
    ASSERT_TRUE(write.Found());
    for (const Save& save : kSaves)
        for (const int32_t encoding : support::kAllSelectors) {
            SCOPED_TRACE(testing::Message() << save.name << ", encoding " << encoding);
            const TempFile file("before");
            EXPECT_EQ(1, save.save(file.Name(), encoding));
            EXPECT_EQ("", file.Bytes());
            EXPECT_TRUE(file.IsClosed());
        }
}

HANDLE WINAPI CreateNothing(const wchar_t*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD,
                            HANDLE) {
    return INVALID_HANDLE_VALUE;
}

/// The name is tried out first: where that fails nothing is opened, and nothing changes.
TEST(FileFaults, NamesThatDoNotProveUsable) {
    const ImportPatch create(support::JsonDll(), "CreateFileW", &CreateNothing);
    ASSERT_TRUE(create.Found());
    for (const Save& save : kSaves) {
        SCOPED_TRACE(save.name);
        const TempFile file("before");
        const TempFile missing;
        EXPECT_EQ(0, save.save(file.Name(), 2));
        EXPECT_EQ(0, save.save(missing.Name(), 2));
        EXPECT_EQ("before", file.Bytes());
        EXPECT_FALSE(missing.Exists());
    }
}

}  // namespace
