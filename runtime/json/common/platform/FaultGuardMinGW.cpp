#include <windows.h>

#include "FaultGuard.h"

extern "C" {

bool CallWithFaultHandler(void (*work)(void*), void* context);
extern char FaultLanding[];

/// The language handler of CallWithFaultHandler's frame.
EXCEPTION_DISPOSITION FaultHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT*,
                                   DISPATCHER_CONTEXT* dispatcher) {
    // An exception that GCC's runtime throws, passes through frames or forces through them: not a
    // fault.
    const DWORD code = record->ExceptionCode;
    const bool gcc = code == 0x20474343 || code == 0x21474343 || code == 0x22474343;
    const bool unwinding = (record->ExceptionFlags & EXCEPTION_UNWIND) != 0;
    if (unwinding || gcc) return ExceptionContinueSearch;

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
