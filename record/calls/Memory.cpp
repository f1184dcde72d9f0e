#include "Memory.h"

#include <algorithm>

namespace record {
namespace {

constexpr DWORD kWritable =
    PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
constexpr DWORD kReadable = kWritable | PAGE_READONLY | PAGE_EXECUTE_READ;

/// How many of the bytes from an address on have one of these protections.
size_t BytesWith(DWORD protections, const void* address, size_t wanted) {
    const KeptLastError kept;
    const char* const begin = static_cast<const char*>(address);
    const char* at = begin;
    MEMORY_BASIC_INFORMATION region = {};
    while (static_cast<size_t>(at - begin) < wanted && VirtualQuery(at, &region, sizeof region)) {
        const bool fits = region.State == MEM_COMMIT && (region.Protect & protections) &&
                          !(region.Protect & PAGE_GUARD);
        if (!fits) break;
        at = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
    }
    return std::min(wanted, static_cast<size_t>(at - begin));
}

}  // namespace

size_t ReadableBytes(const void* address, size_t wanted) {
    return BytesWith(kReadable, address, wanted);
}

bool IsWritable(const void* address, size_t size) {
    return BytesWith(kWritable, address, size) == size;
}

}  // namespace record
