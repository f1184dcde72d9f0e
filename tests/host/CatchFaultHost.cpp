#include "CatchFault.h"
#include "FaultFrames.h"

namespace support {

DWORD CatchFaultIn(void (*thunk)(void*), void* context) {
    return host::CallInFaultFrame(thunk, context);
}

}  // namespace support
