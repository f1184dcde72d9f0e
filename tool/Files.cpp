#include "Files.h"

#include <windows.h>
// Uses what <windows.h> declares.
#include <shlwapi.h>

#include <algorithm>
#include <cstdio>
#include <memory>

#include "Failure.h"

namespace tool {
namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

std::wstring FullName(const std::wstring& name) {
    std::wstring full(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), 0);
    if (full.empty()) return name;
    full.resize(
        GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

std::wstring NewTemporaryName() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    static int count = 0;
    return folder + (L"jsontool-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                     std::to_wstring(++count) + L".json");
}

void Collect(const std::wstring& folder, const std::wstring& pattern, FoundFiles& found) {
    struct Closer {
        using pointer = HANDLE;
        void operator()(HANDLE search) const { FindClose(search); }
    };
    WIN32_FIND_DATAW entry;
    const HANDLE first = FindFirstFileW(Openable(folder + L"\\*").c_str(), &entry);
    if (first == INVALID_HANDLE_VALUE) {
        if (GetLastError() != ERROR_FILE_NOT_FOUND) found.unlisted.push_back(folder);
        return;
    }
    const std::unique_ptr<void, Closer> search(first);

    std::vector<std::wstring> here, below;
    do {
        const std::wstring name = entry.cFileName;
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
            if (PathMatchSpecW(name.c_str(), pattern.c_str())) here.push_back(name);
        } else if (name != L"." && name != L".." &&
                   !(entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)) {
            below.push_back(name);  // links could lead in circles
        }
    } while (FindNextFileW(search.get(), &entry));
    if (GetLastError() != ERROR_NO_MORE_FILES) found.unlisted.push_back(folder);

    std::sort(here.begin(), here.end());
    std::sort(below.begin(), below.end());
    for (const std::wstring& name : here) found.files.push_back(folder + L"\\" + name);
    for (const std::wstring& name : below) Collect(folder + L"\\" + name, pattern, found);
}

}  // namespace

std::wstring Openable(const std::wstring& name) {
    // The smallest of the limits: that of folders.
    constexpr size_t kLongest = MAX_PATH - 12;
    const std::wstring full = FullName(name);
    if (full.size() < kLongest || full.compare(0, 4, L"\\\\?\\") == 0) return name;
    if (full.compare(0, 2, L"\\\\") == 0) return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

std::optional<std::string> ReadAll(std::FILE* file) {
    std::string bytes;
    char block[64 * 1024];
    while (const size_t count = std::fread(block, 1, sizeof block, file))
        bytes.append(block, count);
    if (std::ferror(file)) return std::nullopt;
    return bytes;
}

std::optional<std::string> ReadBytes(const std::wstring& name) {
    const OpenFile file(_wfopen(Openable(name).c_str(), L"rb"));
    if (!file) return std::nullopt;
    return ReadAll(file.get());
}

bool IsFolder(const std::wstring& name) {
    const DWORD attributes = GetFileAttributesW(Openable(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

FoundFiles FilesBelow(const std::wstring& folder, const std::wstring& pattern) {
    std::wstring bare = folder;
    while (bare.size() > 1 && (bare.back() == L'\\' || bare.back() == L'/')) bare.pop_back();
    FoundFiles found;
    Collect(bare, pattern, found);
    return found;
}

TemporaryFile::TemporaryFile() : name(NewTemporaryName()) {}

TemporaryFile::TemporaryFile(const std::wstring& neighbour)
    : name(Openable(FullName(neighbour) + L".jsontool-" + std::to_wstring(GetCurrentProcessId()))) {
}

TemporaryFile::~TemporaryFile() { DeleteFileW(name.c_str()); }

bool TemporaryFile::Fill(const std::string& bytes) const {
    const OpenFile file(_wfopen(name.c_str(), L"wb"));
    const bool whole =
        file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    return whole && std::fflush(file.get()) == 0;
}

void TemporaryFile::Replace(const std::wstring& other) const {
    const std::wstring target = Openable(FullName(other));
    // An existing file passes its rights and attributes on to the new one. It is kept until all is
    // done, because Windows can fail between removing the one and putting the other in its place.
    const std::wstring old = name + L".old";
    if (!ReplaceFileW(target.c_str(), name.c_str(), old.c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS,
                      nullptr, nullptr) &&
        !MoveFileExW(name.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING))
        throw Failure{other + L": the file cannot be written"};
    DeleteFileW(old.c_str());
}

}  // namespace tool
