#pragma once

#include <stdint.h>

// The one hash of the library. Members, paths and handles are found by it, and their names come
// from documents that anybody may have written: with secrets in it, nobody can write names whose
// hashes meet.

namespace QXJSON {

/// The secrets that a hash depends on.
struct HashKeys {
    uint64_t start, block;
};

/// The secrets of this process: taken from the system when they are first asked for, and the same
/// from then on, in all threads.
HashKeys ProcessHashKeys();

/// The secrets that follow from a number.
HashKeys HashKeysFrom(uint64_t seed);

/// An odd number with its bits well spread.
constexpr uint64_t kGoldenRatio = 0x9E37'79B9'7F4A'7C15;

/// Both halves of a product, in one number: every bit of it depends on all bits of both factors
/// that are not known.
inline uint64_t Fold(uint64_t a, uint64_t b) {
    __extension__ using Product = unsigned __int128;
    const Product product = static_cast<Product>(a) * b;
    return static_cast<uint64_t>(product) ^ static_cast<uint64_t>(product >> 64);
}

/// What a hash table is given: never 0, and with its best bits at the top, where tables look.
inline uint32_t FinishHash(uint64_t hash) {
    const auto finished = static_cast<uint32_t>(hash * kGoldenRatio >> 32);
    return finished != 0 ? finished : 1;
}

/// The hash of a number.
inline uint32_t HashOf(uint64_t number, const HashKeys& keys) {
    return FinishHash(Fold(number ^ keys.block, keys.start));
}

}  // namespace QXJSON
