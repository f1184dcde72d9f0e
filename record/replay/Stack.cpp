#include "Stack.h"

#include <malloc.h>

#include <algorithm>

#include "calls/Passage.h"

namespace replay {
namespace {

/// What nests deep enough for any stack has so many bytes.
constexpr size_t kLeastData = 512;
/// A stack that is short of what the library keeps in reserve, where anything may meet its end.
constexpr uint64_t kLittle = 96 * 1024;
/// With less than this the library cannot return from a fault, so that no recorder saw it.
constexpr uint64_t kLeast = 32 * 1024;
/// What the way from here to the operation needs itself.
constexpr uint64_t kOwn = 2048;

/// The stack that the call had; 0 where that is unknown.
uint64_t StackOf(const Call& call) {
    if (!call.end) return 0;
    Values after(call.end);
    for (Value value = after.Next(); value.tag != Tag::kEnd; value = after.Next())
        if (value.tag == Tag::kStack) return value.number;
    return 0;
}

size_t DataOf(const RecordHeader* record) {
    Values values(record);
    size_t size = 0;
    for (Value value = values.Next(); value.tag != Tag::kEnd; value = values.Next())
        size += value.DataSize();
    return size;
}

/// What a call was given, by the host and by delegates.
size_t DataGivenTo(const Calls& calls, uint32_t index) {
    const Call& call = calls.all[index];
    size_t size = DataOf(call.begin);
    for (uint32_t inside = call.firstInside; inside != kNone; inside = calls.all[inside].next)
        if (calls.all[inside].end) size += DataOf(calls.all[inside].end);
    return size;
}

}  // namespace

void WithStackOf(const Calls& calls, uint32_t call, const std::function<void()>& work) {
    const uint64_t recorded = StackOf(calls.all[call]);
    const uint64_t wanted = std::max(recorded, kLeast) + kOwn;
    const uint64_t left = record::StackLeft();
    const bool mayMatter =
        recorded > 0 && (wanted < kLittle || DataGivenTo(calls, call) >= kLeastData);
    if (mayMatter && wanted < left) {
        volatile char* const used = static_cast<char*>(alloca(left - wanted));
        used[0] = 1;
    }
    work();
}

}  // namespace replay
