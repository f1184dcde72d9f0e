#include "HandleTable.h"

namespace QXJSON {

void HandleTable::Clear() {
    handleToValue.clear();
    valueToHandle.clear();
}

uint32_t HandleTable::HandleOf(JsonValue& value) {
    if (handleToValue.size() + 1 > valueToHandle.size() / 4 * 3) Grow();
    uint32_t& slot = valueToHandle[SlotOf(value)];
    if (slot == 0) {
        handleToValue.push_back(&value);
        slot = static_cast<uint32_t>(handleToValue.size());
    }
    return slot;
}

/// The slot that holds the value's handle, or else the free one where it belongs.
size_t HandleTable::SlotOf(const JsonValue& value) const {
    // Values are 16 bytes and lie side by side: multiplying by the golden ratio spreads them.
    const uint64_t hash =
        reinterpret_cast<uintptr_t>(&value) / sizeof(JsonValue) * 0x9E37'79B9'7F4A'7C15;
    const size_t mask = valueToHandle.size() - 1;
    size_t slot = static_cast<size_t>(hash >> 32) & mask;
    while (valueToHandle[slot] != 0 && ValueOf(valueToHandle[slot]) != &value)
        slot = (slot + 1) & mask;
    return slot;
}

void HandleTable::Grow() {
    constexpr size_t kFirstSize = 16;
    std::vector<uint32_t> bigger(valueToHandle.empty() ? kFirstSize : valueToHandle.size() * 2);
    valueToHandle.swap(bigger);
    for (size_t i = 0; i < handleToValue.size(); ++i)
        valueToHandle[SlotOf(*handleToValue[i])] = static_cast<uint32_t>(i + 1);
}

}  // namespace QXJSON
