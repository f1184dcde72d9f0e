// The memory for exceptions, in place of that of GCC's runtime, which is linked in. GCC's takes a
// reserve of 73 KiB each time that the module is loaded, which a host may do as often as it likes,
// and memory for the lock of that reserve when it is first needed: there is none then, and the
// process would end.
#include <windows.h>

#include <cxxabi.h>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <functional>

namespace {

/// What exceptions are made from when there is no other memory: a few places, which different
/// threads may take at the same time.
class Reserve {
public:
    static constexpr size_t kPlace = 512;

    /// Null when the size or the number of exceptions is greater than anything that the library
    /// throws.
    void* Take(size_t size) {
        if (size > kPlace) return nullptr;
        for (size_t i = 0; i < kPlaces; ++i)
            if (!taken[i].exchange(true)) return places[i];
        return nullptr;
    }

    /// False for memory that is not of the reserve.
    bool GiveBack(void* place) {
        auto* const begin = &places[0][0];
        auto* const at = static_cast<unsigned char*>(place);
        const std::less<> before;
        if (before(at, begin) || !before(at, begin + sizeof places)) return false;
        taken[static_cast<size_t>(at - begin) / kPlace] = false;
        return true;
    }

private:
    static constexpr size_t kPlaces = 32;
    alignas(16) unsigned char places[kPlaces][kPlace];
    std::atomic<bool> taken[kPlaces];
};

Reserve reserve;

void* Allocate(size_t size) {
    void* const memory = std::malloc(size);
    return memory ? memory : reserve.Take(size);
}

void Free(void* memory) {
    if (!reserve.GiveBack(memory)) std::free(memory);
}

/// Room for what the runtime notes of an exception, before the object that is thrown: by the C++
/// ABI that GCC follows it is found from that object, and may have more room than it needs (160
/// bytes).
constexpr size_t kRecord = 256;

/// What the runtime knows of a thread's exceptions, as that ABI lays it out.
struct ThreadExceptions {
    void* caught;
    unsigned uncaught;
};

/// Each thread has its own record, which is freed with the thread or with the module.
const DWORD slot = FlsAlloc([](void* exceptions) { Free(exceptions); });

}  // namespace

extern "C" {

void* __cxa_allocate_exception(size_t size) noexcept {
    void* const memory = Allocate(kRecord + size);
    if (!memory) std::terminate();
    return static_cast<char*>(std::memset(memory, 0, kRecord)) + kRecord;
}

void __cxa_free_exception(void* thrown) noexcept { Free(static_cast<char*>(thrown) - kRecord); }

// GCC's own functions use its threads: those take four handles, an index of thread storage and
// 10 KiB each time that the module is loaded, and cannot give them back.

__cxxabiv1::__cxa_eh_globals* __cxa_get_globals_fast() noexcept {
    return static_cast<__cxxabiv1::__cxa_eh_globals*>(FlsGetValue(slot));
}

__cxxabiv1::__cxa_eh_globals* __cxa_get_globals() noexcept {
    if (auto* const known = __cxa_get_globals_fast()) return known;
    // A thread whose first exception finds nowhere to be noted cannot go on, with GCC's functions
    // as with this one: PrepareExceptions makes this call early.
    void* const exceptions = Allocate(sizeof(ThreadExceptions));
    if (!exceptions) std::abort();
    std::memset(exceptions, 0, sizeof(ThreadExceptions));
    if (!FlsSetValue(slot, exceptions)) std::abort();
    return static_cast<__cxxabiv1::__cxa_eh_globals*>(exceptions);
}

}  // extern "C"

/// Runs among the last functions of the module, when nothing throws any more.
[[gnu::destructor]] static void GiveBackExceptionMemory() { FlsFree(slot); }
