#include "FaultFrames.h"

#include <sanitizer/asan_interface.h>
#include <setjmp.h>
#include <signal.h>

#include <cstdio>
#include <cstdlib>
#include <map>

#include "WindowsFaults.h"

namespace host {
namespace {

/// Where a fault goes on; part of the stack frame that waits for it.
struct Frame {
    sigjmp_buf landing;
    Frame* outer;
};

thread_local Frame* innermost = nullptr;

/// Takes a frame off again, however it is left by other ways than a jump.
struct FrameScope {
    explicit FrameScope(Frame& frame) {
        frame.outer = innermost;
        innermost = &frame;
    }
    ~FrameScope() { innermost = innermost->outer; }
};

uint32_t CodeOf(int signal) {
    switch (signal) {
        case SIGFPE:
            return EXCEPTION_INT_DIVIDE_BY_ZERO;
        case SIGILL:
            return EXCEPTION_ILLEGAL_INSTRUCTION;
        default:
            return EXCEPTION_ACCESS_VIOLATION;
    }
}

/// Catches the processor's signals for the life of the program.
class SignalHandlers {
public:
    SignalHandlers() {
        struct sigaction action = {};
        action.sa_sigaction = &OnSignal;
        // The handler is left by a jump that restores no signal mask: the signal must not be
        // blocked.
        action.sa_flags = SA_SIGINFO | SA_NODEFER;
        for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL})
            sigaction(signal, &action, &before[signal]);
    }

private:
    static void OnSignal(int signal, siginfo_t*, void*);

    std::map<int, struct sigaction> before;
};

SignalHandlers handlers;

void SignalHandlers::OnSignal(int signal, siginfo_t*, void*) {
    if (innermost) {
        // The jump restores no signal mask, and the next fault must not find its signal blocked.
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_UNBLOCK, &all, nullptr);
        LeaveFaultFrame(CodeOf(signal));
    }
    // Nobody waits for it. The instruction is repeated under the handler that was there before.
    sigaction(signal, &handlers.before[signal], nullptr);
}

}  // namespace

uint32_t CallInFaultFrame(void (*work)(void*), void* context) {
    Frame frame;
    const FrameScope scope(frame);
    if (const int code = sigsetjmp(frame.landing, 0)) return static_cast<uint32_t>(code);
    work(context);
    return 0;
}

void LeaveFaultFrame(uint32_t code) {
    if (!innermost) {
        std::fprintf(stderr, "exception 0x%08X outside of all fault frames\n", code);
        std::abort();
    }
#if __has_feature(address_sanitizer)
    // The stack below the landing is given up without the function ends that would clean it.
    __asan_handle_no_return();
#endif
    siglongjmp(innermost->landing, static_cast<int>(code));
}

}  // namespace host

void RaiseException(DWORD code, DWORD, DWORD, const ULONG_PTR*) { host::LeaveFaultFrame(code); }
