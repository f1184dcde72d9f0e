#pragma once

// Types and constants that all parts of the Windows API share.

#include <stddef.h>
#include <stdint.h>

using BOOL = int;
using BYTE = uint8_t;
using UINT = unsigned;
using DWORD = uint32_t;
using DWORD64 = uint64_t;
using ULONG_PTR = uintptr_t;
using SIZE_T = size_t;
using LONGLONG = int64_t;
using HANDLE = void*;
using HMODULE = void*;
using LPVOID = void*;
using errno_t = int;

/// Of its several views, the whole.
struct LARGE_INTEGER {
    LONGLONG QuadPart;
};

constexpr BOOL FALSE = 0;
constexpr BOOL TRUE = 1;
constexpr DWORD MAX_PATH = 260;

// The calling convention is the compiler's own.
#define WINAPI
