#include "Exceptions.h"

#ifndef _MSC_VER
#include <cxxabi.h>
#endif

namespace QXJSON {

#ifdef _MSC_VER

// Microsoft's runtime throws from the stack.
void PrepareExceptions() {}

#else

// The first exception of a thread takes memory that stays with the thread. Taken here, while there
// is some, it does not come from the small reserve for exceptions.
void PrepareExceptions() {
    if (__cxxabiv1::__cxa_get_globals_fast()) return;
    // LCOV_EXCL_START: on this machine a thread has that memory from its beginning
    try {
        throw 0;
    } catch (int) {
    }
}
// LCOV_EXCL_STOP

#endif

}  // namespace QXJSON
