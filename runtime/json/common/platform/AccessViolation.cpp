#include <windows.h>

#include "FaultGuard.h"

namespace QXJSON {

void RaiseAccessViolation() {
    const ULONG_PTR readingNull[] = {0, 0};
    RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 2, readingNull);
    std::terminate();  // only a handler that continues a noncontinuable exception gets here
}

}  // namespace QXJSON
