#pragma once

#include <excpt.h>

#include <cstdint>

#include "common/platform/FaultGuard.h"

namespace replay {

/// The code of an exception of C++, whoever threw it.
constexpr unsigned long kCppException = 0x20474343;
/// Whether a code is that of an exception of C++, of GCC's runtime or of Microsoft's.
constexpr bool IsCpp(unsigned long code) {
    return code == 0xE06D7363 || QXJSON::FaultFilter(code) == EXCEPTION_CONTINUE_SEARCH;
}

/// Throws what has this code.
[[noreturn]] void Throw(unsigned long code);

/// Calls an operation; an exception of C++ becomes its code.
template <class C, class R, class... A>
JSON_SEALED unsigned long CallUnlessCpp(R (C::*function)(A...), R* result, C* target,
                                        A... natives) {
    try {
        *result = (target->*function)(natives...);
        return 0;
    } catch (...) {
        return kCppException;
    }
}

inline int KeepCode(unsigned long code, unsigned long* kept) {
    *kept = code;
    return QXJSON::FaultFilter(code);
}

/// Calls an operation and returns the code of what it threw, 0 for nothing.
template <class C, class R, class... A>
unsigned long CallUnlessThrown(R (C::*function)(A...), R* result, C* target, A... natives) {
    unsigned long code = 0;
    __try {
        return CallUnlessCpp(function, result, target, natives...);
    } __except (KeepCode(GetExceptionCode(), &code)) {
        return code;
    }
}

}  // namespace replay
