#pragma once

#include <exception>
#include <type_traits>

namespace QXJSON {

/// Calls `work(context)` and returns true. A processor fault inside ends the call with false: the
/// stack is unwound to here, but no destructor of the frames between runs, so that whatever owns
/// something must live outside. C++ exceptions pass through unharmed.
///
/// The platform's part of the library's failure handling: one definition per compiler.
bool RunsWithoutFault(void (*work)(void*), void* context);

/// The same for anything that can be called without arguments.
template <class Work>
bool RunsWithoutFault(Work&& work) {
    using Callable = std::remove_reference_t<Work>;
    return RunsWithoutFault([](void* context) { (*static_cast<Callable*>(context))(); }, &work);
}

/// A processor fault, as a C++ exception: what RethrowFaults makes of one. Nothing else throws it;
/// a fault that the contract promises is raised by RaiseAccessViolation, as the real one that it
/// stands for.
class ProcessorFault : public std::exception {};

/// Does `work` on memory that the caller handed in, and which may not be readable: a fault becomes
/// an exception, so that everything alive around `work` is destroyed properly.
template <class Work>
void RethrowFaults(Work&& work) {
    if (!RunsWithoutFault([&] { work(); })) throw ProcessorFault();
}

/// The processor fault that the contract promises where a place, a key or a text is used without
/// being tested: an access violation, raised on purpose so that no optimiser can take it away. A
/// host meets it as one where there is no guard. As with every fault, nothing that owns something
/// may be alive in the frames up to the guard or to RethrowFaults.
[[noreturn]] void RaiseAccessViolation();

}  // namespace QXJSON
