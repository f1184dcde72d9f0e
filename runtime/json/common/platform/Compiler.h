#pragma once

#include <stdint.h>

// What compilers spell differently. Nothing else in the shared sources belongs to one of them.

#if defined(_MSC_VER) && !defined(__clang__)

#include <intrin.h>

#define JSON_ALWAYS_INLINE __forceinline
#define JSON_NEVER_INLINE __declspec(noinline)
#define JSON_NO_ADDRESS_SANITIZER __declspec(no_sanitize_address)
/// A function that takes its arguments as they are written: no optimiser may put a part of it into
/// its callers.
#define JSON_SEALED __declspec(noinline)

#else

#define JSON_ALWAYS_INLINE [[gnu::always_inline]]
#define JSON_NEVER_INLINE [[gnu::noinline]]
#define JSON_NO_ADDRESS_SANITIZER [[gnu::no_sanitize_address]]
#ifdef __clang__
// Somebody unknown may call what is "used", so that its parameters stay as they are.
#define JSON_SEALED [[gnu::noinline, gnu::used]]
#else
#define JSON_SEALED [[gnu::noipa]]
#endif

#endif

/// Whether there is __try: everywhere on Windows but in GCC.
#if defined(_WIN32) && (defined(_MSC_VER) || defined(__clang__))
#define JSON_HAS_TRY 1
#else
#define JSON_HAS_TRY 0
#endif

namespace QXJSON {

/// How many zero bits follow the lowest one of a number that is not 0.
inline unsigned TrailingZeros(uint64_t number) {
#if defined(_MSC_VER) && !defined(__clang__)
    unsigned long index = 0;
    _BitScanForward64(&index, number);
    return index;
#else
    return static_cast<unsigned>(__builtin_ctzll(number));
#endif
}

}  // namespace QXJSON
