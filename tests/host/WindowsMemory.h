#pragma once

// Pages of memory, and the size of a block of the heap.

#include "WindowsTypes.h"

constexpr DWORD MEM_COMMIT = 0x1000;
constexpr DWORD MEM_RESERVE = 0x2000;
constexpr DWORD MEM_RELEASE = 0x8000;
constexpr DWORD PAGE_NOACCESS = 1;
constexpr DWORD PAGE_READONLY = 2;
constexpr DWORD PAGE_READWRITE = 4;

extern "C" {
void* VirtualAlloc(void* address, SIZE_T size, DWORD type, DWORD protection);
/// `before` receives PAGE_READWRITE, whatever there was.
BOOL VirtualProtect(void* address, SIZE_T size, DWORD protection, DWORD* before);
BOOL VirtualFree(void* address, SIZE_T size, DWORD type);

/// Of the C runtime.
size_t _msize(void* block);
}
