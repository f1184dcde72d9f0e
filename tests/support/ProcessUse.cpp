#include "ProcessUse.h"

#include <windows.h>

#include <cstdint>

namespace support {
namespace {

constexpr uintptr_t kHandleLimit = 0x4000;

}  // namespace

size_t PrivateBytes() {
    size_t bytes = 0;
    MEMORY_BASIC_INFORMATION region = {};
    const char* at = nullptr;
    while (VirtualQuery(at, &region, sizeof region) != 0) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += region.RegionSize;
        at = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
    }
    return bytes;
}

int HandleCount() {
    int count = 0;
    for (uintptr_t handle = 4; handle < kHandleLimit; handle += 4) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags)) ++count;
    }
    return count;
}

}  // namespace support
