#pragma once

#include <exception>
#include <memory>
#include <type_traits>

#include "Compiler.h"

#if JSON_HAS_TRY
#include <excpt.h>
#endif

// The platform's part of the library's failure handling: calls that a processor fault ends. A fault
// unwinds the stack to such a call, but no destructor of the frames between runs, so that whatever
// owns something must live outside. C++ exceptions pass through unharmed.
//
// Microsoft's compiler and clang have __try for it; for the others there is a function, with one
// definition for each.

namespace QXJSON {

#if JSON_HAS_TRY

/// Treats every structured exception as a fault, except the C++ exceptions of this compiler's own
/// runtime, which go on.
constexpr int FaultFilter(unsigned long code) {
#ifdef _MSC_VER
    const bool cpp = code == 0xE06D7363;
#else
    // Thrown, passing frames, or forced through them, as GCC's runtime has it.
    const bool cpp = code == 0x20474343 || code == 0x21474343 || code == 0x22474343;
#endif
    return cpp ? EXCEPTION_CONTINUE_SEARCH : EXCEPTION_EXECUTE_HANDLER;
}

/// Calls Function::Call with arguments that need no destructor and returns its result, or `onFault`
/// when a processor fault ends the call. (The function itself as a template argument would have
/// clang write the folder of the sources into the names of symbols.)
///
/// It must be JSON_SEALED: clang catches the faults of calls, not those of the frame with
/// __try itself. That frame must not be noexcept, nor lie in one that is: the unwinder would end
/// the process.
template <class Function, class Result, class... Arguments>
Result UnlessFault(Result onFault, Arguments... arguments) {
    __try {
        return Function::Call(arguments...);
    } __except (FaultFilter(GetExceptionCode())) {
        return onFault;
    }
}

#else

/// Calls `work(context)` and returns true; false when a processor fault ends the call.
bool CallWithoutFault(void (*work)(void*), void* context);

/// Calls Function::Call with the arguments and returns its result, or `onFault` when a processor
/// fault ends the call.
template <class Function, class Result, class... Arguments>
Result UnlessFault(Result onFault, Arguments... arguments) {
    Result result = onFault;
    auto work = [&] { result = Function::Call(arguments...); };
    using Work = decltype(work);
    CallWithoutFault([](void* context) { (*static_cast<Work*>(context))(); }, &work);
    return result;
}

#endif

template <class Work>
struct Done {
    JSON_SEALED static bool Call(Work* work) {
        (*work)();
        return true;
    }
};

/// Does `work` and returns true; false when a processor fault ends it.
template <class Work>
bool RunsWithoutFault(Work&& work) {
    return UnlessFault<Done<std::remove_reference_t<Work>>>(false, std::addressof(work));
}

/// A processor fault that RethrowFaults has turned into a C++ exception. Nothing else throws it: a
/// fault that the contract promises is a real one, raised by RaiseAccessViolation.
class ProcessorFault : public std::exception {};

/// Does `work` on memory of the caller's, which may not be readable: a fault becomes an exception,
/// so that everything alive around `work` is destroyed properly.
template <class Work>
void RethrowFaults(Work&& work) {
    if (!RunsWithoutFault(work)) throw ProcessorFault();
}

/// The processor fault that the contract promises where a place, a key or a text is used without
/// being tested: an access violation, raised on purpose so that no optimiser can take it away. From
/// an operation without a guard it reaches the host. As with every fault, nothing that owns
/// something may be alive in the frames up to the guard or to RethrowFaults.
[[noreturn]] void RaiseAccessViolation();

}  // namespace QXJSON
