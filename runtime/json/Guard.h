#pragma once

#include "common/ResultCodes.h"
#include "common/platform/FaultGuard.h"

namespace QXJSON {

/// Returns what `work` returns, or kEscapedFailure when any exception or processor fault escapes
/// it.
template <class Work>
int Guarded(Work&& work) noexcept {
    int result = kEscapedFailure;
    RunsWithoutFault([&] {
        try {
            result = work();
        } catch (...) {
            // Whatever it was: the result says so already.
        }
    });
    return result;
}

}  // namespace QXJSON
