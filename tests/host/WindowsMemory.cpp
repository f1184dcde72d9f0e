#include "WindowsMemory.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <map>
#include <mutex>

namespace {

int ProtectionOf(DWORD protection) {
    switch (protection) {
        case PAGE_NOACCESS:
            return PROT_NONE;
        case PAGE_READONLY:
            return PROT_READ;
        default:
            return PROT_READ | PROT_WRITE;
    }
}

/// The pages that VirtualAlloc gave out, by address: VirtualFree is not told their size.
std::map<void*, SIZE_T> areas;
std::mutex areasMutex;

}  // namespace

void* VirtualAlloc(void* address, SIZE_T size, DWORD, DWORD protection) {
    void* const area =
        mmap(address, size, ProtectionOf(protection), MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (area == MAP_FAILED) return nullptr;
    const std::lock_guard lock(areasMutex);
    areas[area] = size;
    return area;
}

BOOL VirtualProtect(void* address, SIZE_T size, DWORD protection, DWORD* before) {
    // Windows protects all pages that the range touches.
    const auto page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    const uintptr_t at = reinterpret_cast<uintptr_t>(address);
    const uintptr_t first = at & ~(page - 1);
    *before = PAGE_READWRITE;
    return mprotect(reinterpret_cast<void*>(first), at + size - first, ProtectionOf(protection)) ==
           0;
}

BOOL VirtualFree(void* address, SIZE_T, DWORD) {
    const std::lock_guard lock(areasMutex);
    const auto area = areas.find(address);
    if (area == areas.end()) return FALSE;
    munmap(address, area->second);
    areas.erase(area);
    return TRUE;
}

size_t _msize(void* block) { return malloc_usable_size(block); }
