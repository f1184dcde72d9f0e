// Whether a file can be written, found out without touching it.

#include "common/platform/File.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace {

using QXJSON::CanWriteFile;

std::wstring TempFolder() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    return folder;
}

/// A name of this process's own in the folder for temporary files; what has it is removed in the
/// end.
class TempName {
public:
    TempName()
        : name(TempFolder() + L"json_dll_unit_" + std::to_wstring(GetCurrentProcessId()) +
               L".tmp") {
        Remove();
    }
    ~TempName() { Remove(); }
    TempName(const TempName&) = delete;
    TempName& operator=(const TempName&) = delete;

    const wchar_t* Text() const { return name.c_str(); }
    std::wstring With(const wchar_t* more) const { return name + more; }
    bool Exists() const { return GetFileAttributesW(Text()) != INVALID_FILE_ATTRIBUTES; }
    HANDLE Open(DWORD access, DWORD share, DWORD disposition) const {
        return CreateFileW(Text(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
    }
    void Create() const { CloseHandle(Open(GENERIC_WRITE, 0, CREATE_ALWAYS)); }

private:
    void Remove() const {
        SetFileAttributesW(Text(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(Text());
    }

    std::wstring name;
};

TEST(CanWriteFile, NoName) {
    EXPECT_FALSE(CanWriteFile(nullptr));
    EXPECT_FALSE(CanWriteFile(L""));
}

TEST(CanWriteFile, ANewFileIsNotLeftBehind) {
    const TempName name;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(CanWriteFile(name.Text()));
        EXPECT_FALSE(name.Exists());
    }
}

TEST(CanWriteFile, NamesThatCannotBe) {
    const TempName name;
    for (const std::wstring& bad : {name.With(L"\\below"), name.With(L"?"), TempFolder() + L"no*",
                                    TempFolder() + std::wstring(300, L'n'), TempFolder()})
        EXPECT_FALSE(CanWriteFile(bad.c_str())) << testing::PrintToString(bad);
    EXPECT_FALSE(name.Exists());
}

/// A file that is there must open for reading, and stays as it is.
TEST(CanWriteFile, AFileThatExists) {
    struct Row {
        const char* name;
        DWORD access;  ///< how somebody else has it open; 0: nobody has
        DWORD share;
        bool can;
    };
    const Row rows[] = {
        {"is closed", 0, 0, true},
        {"is read and may be read", GENERIC_READ, FILE_SHARE_READ, true},
        {"is read by one alone", GENERIC_READ, 0, false},
        {"is read and may only be written", GENERIC_READ, FILE_SHARE_WRITE, false},
        {"is written", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, false},
    };
    const TempName name;
    name.Create();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const HANDLE other = row.access ? name.Open(row.access, row.share, OPEN_EXISTING) : nullptr;
        ASSERT_NE(INVALID_HANDLE_VALUE, other);
        EXPECT_EQ(row.can, CanWriteFile(name.Text()));
        if (other) CloseHandle(other);
        EXPECT_TRUE(name.Exists());
    }
}

/// It is tried for reading only.
TEST(CanWriteFile, AReadOnlyFileWillDo) {
    const TempName name;
    name.Create();
    SetFileAttributesW(name.Text(), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(CanWriteFile(name.Text()));
    EXPECT_TRUE(name.Exists());
}

TEST(CanWriteFile, ClosesWhatItOpens) {
    const TempName name;
    EXPECT_TRUE(CanWriteFile(name.Text()));
    name.Create();
    EXPECT_TRUE(CanWriteFile(name.Text()));
    const HANDLE alone = name.Open(GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_NE(INVALID_HANDLE_VALUE, alone);
    CloseHandle(alone);
}

TEST(OpenFile, NamesAndModes) {
    const TempName name;
    EXPECT_EQ(nullptr, QXJSON::OpenFile(nullptr, L"rb"));
    EXPECT_EQ(nullptr, QXJSON::OpenFile(L"", L"wb"));
    EXPECT_EQ(nullptr, QXJSON::OpenFile(name.Text(), L"rb"));
    {
        const QXJSON::File file = QXJSON::OpenFile(name.Text(), L"wb");
        ASSERT_NE(nullptr, file);
        EXPECT_EQ(2u, std::fwrite("\r\n", 1, 2, file.get()));
    }
    const QXJSON::File file = QXJSON::OpenFile(name.Text(), L"rb");
    ASSERT_NE(nullptr, file);
    char bytes[4] = {};
    EXPECT_EQ(2u, std::fread(bytes, 1, sizeof bytes, file.get()));
    EXPECT_STREQ("\r\n", bytes);
}

}  // namespace
