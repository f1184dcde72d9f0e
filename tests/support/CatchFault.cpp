#include "CatchFault.h"

// GCC has no __try, so the frame that catches is written in assembler. Its handler unwinds to the
// landing label, where the exception's code is in eax; without an exception eax is cleared.
asm(R"(
    .text
    .globl  CatchFaultFrame
    .def    CatchFaultFrame; .scl 2; .type 32; .endef
    .seh_proc CatchFaultFrame
CatchFaultFrame:
    subq    $40, %rsp
    .seh_stackalloc 40
    .seh_endprologue
    .seh_handler CatchFaultHandler, @except
    movq    %rcx, %rax
    movq    %rdx, %rcx
    call    *%rax
    xorl    %eax, %eax
    .globl  CatchFaultLanding
CatchFaultLanding:
    addq    $40, %rsp
    ret
    .seh_endproc
)");

extern "C" {

DWORD CatchFaultFrame(void (*thunk)(void*), void* context);
extern char CatchFaultLanding;

EXCEPTION_DISPOSITION CatchFaultHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT* context,
                                        DISPATCHER_CONTEXT* dispatcher) {
    constexpr DWORD kAnyUnwind = 0x66;
    if ((record->ExceptionFlags & kAnyUnwind) == 0) {
        const DWORD64 code = record->ExceptionCode;
        RtlUnwindEx(frame, &CatchFaultLanding, record, reinterpret_cast<void*>(code), context,
                    dispatcher->HistoryTable);
    }
    return ExceptionContinueSearch;
}
}

namespace support {

DWORD CatchFaultIn(void (*thunk)(void*), void* context) { return CatchFaultFrame(thunk, context); }

}  // namespace support
