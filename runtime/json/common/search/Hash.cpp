// rand_s is the system's source of random numbers in the C runtime; it is declared on demand.
#define _CRT_RAND_S  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
#include "Hash.h"

#include <stdlib.h>
#include <windows.h>

#include <atomic>

namespace QXJSON {
namespace {

/// 0 until it is drawn. (A constant of a function would be drawn under a lock, which a fault in
/// between leaves taken.)
std::atomic<uint64_t> processSeed{0};

/// A number that nobody outside of the process can foresee, and never 0.
uint64_t DrawSeed() {
    unsigned low = 0, high = 0;
    // Where the system refuses, the address that it loaded the library at has to do.
    if (rand_s(&low) != 0 || rand_s(&high) != 0) low = GetCurrentProcessId();
    const uint64_t drawn = uint64_t{high} << 32 | low;
    return (drawn ^ reinterpret_cast<uintptr_t>(&processSeed)) | 1;
}

}  // namespace

HashKeys HashKeysFrom(uint64_t seed) {
    const auto next = [&seed] {
        seed += kGoldenRatio;
        const uint64_t mixed = Fold(seed, 0xD6E8'FEB8'6659'FD93);
        return mixed ^ mixed >> 29;
    };
    HashKeys keys{};
    keys.start = next();
    keys.block = next();
    return keys;
}

HashKeys ProcessHashKeys() {
    uint64_t seed = processSeed.load(std::memory_order_relaxed);
    if (seed == 0) {
        const uint64_t drawn = DrawSeed();
        // Of two threads that draw at a time one wins: `seed` becomes the other's number.
        if (processSeed.compare_exchange_strong(seed, drawn)) seed = drawn;
    }
    return HashKeysFrom(seed);
}

}  // namespace QXJSON
