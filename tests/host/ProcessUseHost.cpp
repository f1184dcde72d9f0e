#include <sanitizer/allocator_interface.h>

#include <windows.h>

#include "ProcessUse.h"

namespace support {

/// The blocks in use, as the sanitizers' allocator counts them. The memory of the process says
/// little: freed blocks are kept for a while, so that their use can be told.
size_t PrivateBytes() { return __sanitizer_get_current_allocated_bytes(); }

int HandleCount() {
    constexpr int kLimit = 1024;
    int count = 0;
    for (int file = 0; file < kLimit; ++file) {
        DWORD flags = 0;
        if (GetHandleInformation(host::HandleOf(file), &flags)) ++count;
    }
    return count;
}

}  // namespace support
