// The memory that GCC's runtime, which is linked in, takes for exceptions: given back at the end of
// the module's life, for a host may load the library and free it again as often as it likes.
#include <windows.h>

#include <cxxabi.h>
#include <cstdlib>

namespace __gnu_cxx {

/// Frees the reserve that exceptions are taken from where there is no memory, 73 KiB. Declared by
/// no header.
void __freeres() noexcept;

}  // namespace __gnu_cxx

namespace {

/// What the runtime knows of a thread's exceptions, as the C++ ABI that GCC follows lays it out.
struct ThreadExceptions {
    void* caught;
    unsigned uncaught;
};

/// Where each thread has its own, which ends with the thread or with the module.
const DWORD slot = FlsAlloc([](void* exceptions) { std::free(exceptions); });

}  // namespace

// In place of GCC's own, which stand on its threads: those take four handles, an index of thread
// storage and 10 KiB for each life of a module, and have no way to give them back.
extern "C" {

__cxxabiv1::__cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return static_cast<__cxxabiv1::__cxa_eh_globals*>(FlsGetValue(slot));
}

__cxxabiv1::__cxa_eh_globals* __cxa_get_globals() noexcept {
    if (auto* const known = __cxa_get_globals_fast()) return known;
    // Without memory for the first exception of a thread there is no way on, here as there:
    // PrepareExceptions sees to it that it comes early.
    void* const exceptions = std::calloc(1, sizeof(ThreadExceptions));
    if (!exceptions || !FlsSetValue(slot, exceptions)) std::abort();
    return static_cast<__cxxabiv1::__cxa_eh_globals*>(exceptions);
}

}  // extern "C"

/// Among the last that runs in the module, when nothing throws any more.
[[gnu::destructor]] static void GiveBackExceptionMemory() {
    FlsFree(slot);
    __gnu_cxx::__freeres();
}
