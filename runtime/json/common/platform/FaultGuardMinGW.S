# bool CallWithFaultHandler(void (*work)(void*), void* context)
#
# GCC has no __try. This function calls `work` from a frame with a structured exception handler of its
# own (FaultHandler in FaultGuardMinGW.cpp), which unwinds a fault to FaultLanding with 0 as the result.

    .text
    .globl  CallWithFaultHandler
    .def    CallWithFaultHandler; .scl 2; .type 32; .endef
    .seh_proc CallWithFaultHandler
CallWithFaultHandler:
    subq    $40, %rsp
    .seh_stackalloc 40
    .seh_handler FaultHandler, @except
    .seh_endprologue
    movq    %rcx, %rax
    movq    %rdx, %rcx
    call    *%rax
    movl    $1, %eax
    .globl  FaultLanding
FaultLanding:
    addq    $40, %rsp
    ret
    .seh_endproc
