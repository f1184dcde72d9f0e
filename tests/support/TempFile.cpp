#include "TempFile.h"

#include <windows.h>

#include <cstdio>
#include <memory>

namespace support {
namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

std::wstring NewName() {
    static int count = 0;
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    return folder + (L"json_dll_test_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
                     std::to_wstring(++count) + L".json");
}

}  // namespace

TempFile::TempFile() : name(NewName()) {}

TempFile::TempFile(const std::string& bytes) : TempFile() {
    File file(_wfopen(Name(), L"wb"));
    if (!bytes.empty()) std::fwrite(bytes.data(), 1, bytes.size(), file.get());
}

bool TempFile::Extend(uint64_t size) {
    HANDLE file = CreateFileW(Name(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    LARGE_INTEGER end = {};
    end.QuadPart = static_cast<LONGLONG>(size);
    const bool extended =
        SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0 && SetEndOfFile(file) != 0;
    CloseHandle(file);
    return extended;
}

TempFile::~TempFile() { DeleteFileW(Name()); }

bool TempFile::Exists() const { return GetFileAttributesW(Name()) != INVALID_FILE_ATTRIBUTES; }

bool TempFile::IsClosed() const {
    HANDLE file = CreateFileW(Name(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}

std::string TempFile::Bytes() const { return ReadFileBytes(name); }

std::string ReadFileBytes(const std::wstring& name) {
    std::string bytes;
    if (File file{_wfopen(name.c_str(), L"rb")}) {
        char block[65536];
        while (size_t count = std::fread(block, 1, sizeof block, file.get()))
            bytes.append(block, count);
    }
    return bytes;
}

}  // namespace support
