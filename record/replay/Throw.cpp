#include <windows.h>

#include "Faults.h"

namespace replay {

void Throw(unsigned long code) {
    if (IsCpp(code)) throw static_cast<int>(code);
    if (code == EXCEPTION_ACCESS_VIOLATION) QXJSON::RaiseAccessViolation();
    RaiseException(code, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    std::terminate();  // only a handler that continues a noncontinuable exception gets here
}

}  // namespace replay
