#include "NestingGuard.h"

#include <windows.h>

namespace QXJSON {

// Enough for a system call or the dispatch of an exception, which copies the processor's whole
// state onto the stack, and little enough to leave a thread of 256 KiB most of what it has.
constexpr uintptr_t kReserve = 48 * 1024;

StackFloor::StackFloor() {
    ULONG_PTR low = 0, high = 0;
    GetCurrentThreadStackLimits(&low, &high);
    floor = low + kReserve;
}

}  // namespace QXJSON
