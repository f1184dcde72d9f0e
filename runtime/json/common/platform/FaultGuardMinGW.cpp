#include <windows.h>

#include "FaultGuard.h"

extern "C" {

bool CallWithFaultHandler(void (*work)(void*), void* context);
extern char FaultLanding[];

/// The language handler of CallWithFaultHandler's frame.
EXCEPTION_DISPOSITION FaultHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT*,
                                   DISPATCHER_CONTEXT* dispatcher) {
    // The codes with which GCC's runtime throws and unwinds: not a fault, somebody else's business.
    constexpr DWORD kGccExceptionMask = 0xFF'FFFF;
    constexpr DWORD kGccException = 0x47'4343;  // "GCC"
    const bool unwinding = (record->ExceptionFlags & EXCEPTION_UNWIND) != 0;
    if (unwinding || (record->ExceptionCode & kGccExceptionMask) == kGccException)
        return ExceptionContinueSearch;

    RtlUnwindEx(frame, FaultLanding, record, nullptr, dispatcher->ContextRecord,
                dispatcher->HistoryTable);
    return ExceptionContinueSearch;  // not reached: RtlUnwindEx goes on at the landing
}
}

namespace QXJSON {

bool CallWithoutFault(void (*work)(void*), void* context) {
    return CallWithFaultHandler(work, context);
}

}  // namespace QXJSON
