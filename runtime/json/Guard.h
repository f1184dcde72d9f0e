#pragma once

#include "common/ResultCodes.h"
#include "common/platform/FaultGuard.h"

namespace QXJSON {

/// `work` with its arguments, as a function of its own: -5 when a C++ exception escapes it.
template <class Work, class... Arguments>
struct UnlessException {
    // What is to be done comes last: mostly it is empty, and the arguments stay in the registers
    // in which they came.
    JSON_SEALED static int Call(Arguments... arguments, Work work) {
        try {
            return work(arguments...);
        } catch (...) {
            return kEscapedFailure;
        }
    }
};

/// Returns `work(arguments...)`, or kEscapedFailure when any exception or processor fault escapes
/// it. The arguments are passed on as they are, mostly in registers, as are those of an operation.
template <class Work, class... Arguments>
int Guarded(Work work, Arguments... arguments) {
    return UnlessFault<UnlessException<Work, Arguments...>>(int{kEscapedFailure}, arguments...,
                                                            work);
}

}  // namespace QXJSON
