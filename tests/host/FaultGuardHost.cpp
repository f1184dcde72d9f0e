// The fault guard of the host build.
#include "FaultFrames.h"
#include "common/platform/FaultGuard.h"

namespace QXJSON {

bool CallWithoutFault(void (*work)(void*), void* context) {
    return host::CallInFaultFrame(work, context) == 0;
}

}  // namespace QXJSON
