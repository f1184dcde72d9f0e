#include "Files.h"

#include <windows.h>
// Uses what <windows.h> declares.
#include <shlwapi.h>

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "Failure.h"
#include "Progress.h"

namespace tool {
namespace {

std::wstring FullName(const std::wstring& name) {
    std::wstring full(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), 0);
    if (full.empty()) return name;
    full.resize(
        GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
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
    while (const size_t count = std::fread(block, 1, sizeof block, file)) {
        bytes.append(block, count);
        ProgressBy(count);
    }
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

std::optional<std::wstring> WhyUnreadable(const std::wstring& name) {
    if (IsFolder(name)) return L"is a folder";
    if (OpenFile(_wfopen(Openable(name).c_str(), L"rb"))) return std::nullopt;
    if (errno == ENOENT) return L"no such file";
    return kUnreadable;
}

namespace {

constexpr wchar_t kUnwritable[] = L": the file cannot be written";

bool Exists(const std::wstring& name) {
    return GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Whether the folder that a file is to be in does not exist.
bool LacksFolder(const std::wstring& fullName) {
    const bool isDevice = fullName.compare(0, 4, L"\\\\.\\") == 0;
    return !isDevice && !IsFolder(fullName.substr(0, fullName.find_last_of(L'\\') + 1));
}

/// Creates a file that was not there. It can be deleted while it is open.
std::FILE* CreateNew(const std::wstring& name) {
    const HANDLE created = CreateFileW(name.c_str(), GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (created == INVALID_HANDLE_VALUE) return nullptr;
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(created), _O_BINARY);
    if (descriptor == -1) {
        CloseHandle(created);
        return nullptr;
    }
    std::FILE* const file = _wfdopen(descriptor, L"wb");
    if (!file) _close(descriptor);
    return file;
}

/// The name of the file that is to be deleted when the user interrupts the program.
std::wstring& Unfinished() {
    static std::wstring name;
    return name;
}

/// Called on a thread of its own, after which the program ends.
BOOL WINAPI DeleteUnfinished(DWORD) {
    DeleteFileW(Unfinished().c_str());
    return FALSE;
}

}  // namespace

ReplacementFile::ReplacementFile(const std::wstring& other) : label(other) {
    if (IsFolder(other)) throw Failure{other + L": is a folder"};
    const std::wstring full = FullName(other);
    if (LacksFolder(full)) throw Failure{other + L": its folder does not exist"};
    name = Openable(full + L".jsontool-" + std::to_wstring(GetCurrentProcessId()));
    file.reset(CreateNew(name));
    if (!file) throw Failure{other + kUnwritable};
    Unfinished() = name;
    SetConsoleCtrlHandler(DeleteUnfinished, TRUE);
}

ReplacementFile::~ReplacementFile() {
    SetConsoleCtrlHandler(DeleteUnfinished, FALSE);
    file.reset();
    if (!name.empty() && !isInPlace) DeleteFileW(name.c_str());
}

void ReplacementFile::Close() {
    const bool whole = std::fflush(file.get()) == 0 && !std::ferror(file.get());
    if (std::fclose(file.release()) != 0 || !whole) throw Failure{label + kUnwritable};
}

void ReplacementFile::Replace() {
    Close();
    const std::wstring target = Openable(FullName(label));
    if (Exists(target))
        ReplaceExisting(target);
    else if (!MoveFileExW(name.c_str(), target.c_str(), 0))
        throw Failure{label + kUnwritable};
    isInPlace = true;
}

void ReplacementFile::ReplaceExisting(const std::wstring& target) const {
    // The existing file passes its rights and attributes on to the new one. It is kept until all is
    // done, because Windows can fail between removing the one and putting the other in its place.
    const std::wstring old = name + L".old";
    if (ReplaceFileW(target.c_str(), name.c_str(), old.c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS,
                     nullptr, nullptr)) {
        if (!DeleteFileW(old.c_str()) && Exists(old))
            throw Failure{label + L": written, but what it held before cannot be removed from " +
                          old};
        return;
    }
    if (!Exists(target) && Exists(old) && !MoveFileExW(old.c_str(), target.c_str(), 0))
        throw Failure{label + L": the file cannot be written; what it held is in " + old};
    if (!MoveFileExW(name.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING))
        throw Failure{label + kUnwritable};
}

}  // namespace tool
