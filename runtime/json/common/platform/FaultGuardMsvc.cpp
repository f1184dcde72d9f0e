// The fault guard for Microsoft's compiler. It has never been built on this project's own machines,
// which have no such compiler.
#include <windows.h>

#include "FaultGuard.h"

namespace QXJSON {
namespace {

/// Takes everything but a C++ exception of this compiler.
int Filter(DWORD code) {
    constexpr DWORD kCppException = 0xE06D7363;
    return code == kCppException ? EXCEPTION_CONTINUE_SEARCH : EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

bool RunsWithoutFault(void (*work)(void*), void* context) {
    __try {
        work(context);
        return true;
    } __except (Filter(GetExceptionCode())) {
        return false;
    }
}

}  // namespace QXJSON
