#pragma once

// Files by name, with the rules of sharing and the read-only attribute of Windows, which count for
// the administrator too.

#include <cstdio>

#include "WindowsTypes.h"

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr int FILE_SHARE_READ = 1;
constexpr int FILE_SHARE_WRITE = 2;
constexpr int FILE_SHARE_DELETE = 4;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 1;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

constexpr DWORD FILE_BEGIN = 0;

/// Who may use a file; nobody asks here.
struct SECURITY_ATTRIBUTES;

/// A found file: only its name, of all that Windows reports.
struct WIN32_FIND_DATAW {
    wchar_t cFileName[MAX_PATH];
};

extern "C" {
HANDLE CreateFileW(const wchar_t* name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD attributes, HANDLE pattern);
BOOL CopyFileW(const wchar_t* from, const wchar_t* to, BOOL mustBeNew);
BOOL DeleteFileW(const wchar_t* name);
/// Counts from the file's beginning, and says nothing of the place.
BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* place, DWORD origin);
BOOL SetEndOfFile(HANDLE file);
DWORD GetFileAttributesW(const wchar_t* name);
BOOL SetFileAttributesW(const wchar_t* name, DWORD attributes);
DWORD GetTempPathW(DWORD capacity, wchar_t* folder);

/// The pattern is a folder, a backslash and a name with *.
HANDLE FindFirstFileW(const wchar_t* pattern, WIN32_FIND_DATAW* found);
BOOL FindNextFileW(HANDLE search, WIN32_FIND_DATAW* found);
BOOL FindClose(HANDLE search);

// Of the C runtime. Files of these may be opened by anybody else for reading and writing, and not
// be deleted while they are open.
errno_t _wfopen_s(std::FILE** file, const wchar_t* name, const wchar_t* mode);
std::FILE* _wfopen(const wchar_t* name, const wchar_t* mode);
const wchar_t* _wgetenv(const wchar_t* name);
}
