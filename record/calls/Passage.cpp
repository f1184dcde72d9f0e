#include "Passage.h"

namespace record {

uint64_t StackLeft() {
    ULONG_PTR low = 0;
    ULONG_PTR high = 0;
    GetCurrentThreadStackLimits(&low, &high);
    return reinterpret_cast<ULONG_PTR>(&low) - low;
}

}  // namespace record
