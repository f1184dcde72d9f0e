// The memory that GCC's runtime, which is linked in, takes for exceptions: given back when the
// library is unloaded, because a host may load and unload it as often as it likes.
#include <windows.h>

#include <cxxabi.h>
#include <cstdlib>

namespace __gnu_cxx {

/// Frees the reserve of 73 KiB from which exceptions are made when there is no other memory. No
/// header declares it.
void __freeres() noexcept;

}  // namespace __gnu_cxx

namespace {

/// What the runtime knows of a thread's exceptions, as the C++ ABI that GCC follows lays it out.
struct ThreadExceptions {
    void* caught;
    unsigned uncaught;
};

/// Each thread has its own record, which is freed with the thread or with the module.
const DWORD slot = FlsAlloc([](void* exceptions) { std::free(exceptions); });

}  // namespace

// In place of GCC's own functions, which use its threads: those take four handles, an index of
// thread storage and 10 KiB each time that the module is loaded, and cannot give them back.
extern "C" {

__cxxabiv1::__cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return static_cast<__cxxabiv1::__cxa_eh_globals*>(FlsGetValue(slot));
}

__cxxabiv1::__cxa_eh_globals* __cxa_get_globals() noexcept {
    if (auto* const known = __cxa_get_globals_fast()) return known;
    // A thread without memory for its first exception cannot go on, with GCC's functions as with
    // this one: PrepareExceptions makes this call early.
    void* const exceptions = std::calloc(1, sizeof(ThreadExceptions));
    if (!exceptions || !FlsSetValue(slot, exceptions)) std::abort();
    return static_cast<__cxxabiv1::__cxa_eh_globals*>(exceptions);
}

}  // extern "C"

/// Runs among the last functions of the module, when nothing throws any more.
[[gnu::destructor]] static void GiveBackExceptionMemory() {
    FlsFree(slot);
    __gnu_cxx::__freeres();
}
