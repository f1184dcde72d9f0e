#include "WindowsFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <map>
#include <string>

#include "FileNames.h"
#include "OpenFiles.h"
#include "WindowsHandles.h"
#include "shlwapi.h"

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool Find(const wchar_t* name, struct stat& file) {
    return stat(host::ToHostName(name).c_str(), &file) == 0;
}

/// The access of a mode of fopen, without a plus sign.
host::OpenRequest RequestOf(const wchar_t* mode) {
    const bool writes = mode[0] == L'w';
    const DWORD access = writes ? FILE_SHARE_WRITE : FILE_SHARE_READ;
    return {access, FILE_SHARE_READ | FILE_SHARE_WRITE, writes};
}

}  // namespace

HANDLE CreateFileW(const wchar_t* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES*,
                   DWORD disposition, DWORD, HANDLE) {
    const DWORD reads = access & GENERIC_READ ? FILE_SHARE_READ : 0;
    const DWORD writes = access & GENERIC_WRITE ? FILE_SHARE_WRITE : 0;
    const int file = host::OpenShared(name, {reads | writes, share, disposition == CREATE_ALWAYS});
    return file == -1 ? INVALID_HANDLE_VALUE : host::HandleOf(file);
}

BOOL CopyFileW(const wchar_t* from, const wchar_t* to, BOOL mustBeNew) {
    if (mustBeNew && PathFileExistsW(to)) return FALSE;
    const int source = host::OpenShared(from, {FILE_SHARE_READ, FILE_SHARE_READ, false});
    if (source == -1) return FALSE;
    const int target = host::OpenShared(to, {FILE_SHARE_WRITE, 0, true});
    char block[4096];
    ssize_t count = 0;
    while (target != -1 && (count = read(source, block, sizeof block)) > 0)
        if (write(target, block, static_cast<size_t>(count)) != count) count = -1;
    close(source);
    close(target);
    return target != -1 && count == 0;
}

BOOL DeleteFileW(const wchar_t* name) {
    const int file = host::OpenShared(name, {FILE_SHARE_DELETE, kShareAll, false});
    if (file == -1) return FALSE;
    close(file);
    return unlink(host::ToHostName(name).c_str()) == 0;
}

BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER*, DWORD) {
    return lseek(host::DescriptorOf(file), distance.QuadPart, SEEK_SET) != -1;
}

BOOL SetEndOfFile(HANDLE file) {
    const int descriptor = host::DescriptorOf(file);
    return ftruncate(descriptor, lseek(descriptor, 0, SEEK_CUR)) == 0;
}

DWORD GetFileAttributesW(const wchar_t* name) {
    struct stat file = {};
    if (!Find(name, file)) return INVALID_FILE_ATTRIBUTES;
    const DWORD attributes = (S_ISDIR(file.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0) |
                             (file.st_mode & S_IWUSR ? 0 : FILE_ATTRIBUTE_READONLY);
    return attributes ? attributes : FILE_ATTRIBUTE_NORMAL;
}

BOOL SetFileAttributesW(const wchar_t* name, DWORD attributes) {
    const mode_t mode = attributes & FILE_ATTRIBUTE_READONLY ? 0444 : 0644;
    return chmod(host::ToHostName(name).c_str(), mode) == 0;
}

DWORD GetTempPathW(DWORD capacity, wchar_t* folder) {
    const char* const named = std::getenv("TMPDIR");
    const std::wstring path = host::FromHostName(named ? named : "/tmp") + L'\\';
    if (path.size() >= capacity) return 0;
    folder[path.copy(folder, path.size())] = 0;
    return static_cast<DWORD>(path.size());
}

BOOL PathFileExistsW(const wchar_t* name) {
    struct stat file = {};
    return Find(name, file);
}

errno_t _wfopen_s(std::FILE** file, const wchar_t* name, const wchar_t* mode) {
    *file = _wfopen(name, mode);
    return *file ? 0 : errno;
}

std::FILE* _wfopen(const wchar_t* name, const wchar_t* mode) {
    const int descriptor = host::OpenShared(name, RequestOf(mode));
    if (descriptor != -1) return fdopen(descriptor, mode[0] == L'w' ? "w" : "r");
    errno = EACCES;
    return nullptr;
}

const wchar_t* _wgetenv(const wchar_t* name) {
    static std::map<std::wstring, std::wstring> variables;
    const char* const value = std::getenv(host::ToHostName(name).c_str());
    return value ? (variables[name] = host::FromHostName(value)).c_str() : nullptr;
}
