#pragma once

#include <stdint.h>

#include <vector>

#include "../common/JsonTypes.h"

namespace QXJSON {

/// The item handles of one loaded document: dense numbers from 1, in the order in which the values
/// were first asked for; one value has one handle.
class HandleTable {
public:
    /// Forgets all handles; the next one is 1 again.
    void Clear();

    /// The handle of a value, issued now if it has none yet.
    uint32_t HandleOf(JsonValue& value);

    /// The value of a handle, or null for a number that was never issued.
    JsonValue* ValueOf(uint32_t handle) const {
        // A handle of 0 wraps around and is out of range like any unknown one.
        const uint32_t index = handle - 1;
        return index < handleToValue.size() ? handleToValue[index] : nullptr;
    }

private:
    size_t SlotOf(const JsonValue& value) const;
    void Grow();

    std::vector<JsonValue*> handleToValue;  // by handle - 1
    // A hash table with open addressing, of a size that is a power of two and at most three
    // quarters full: handles by the address of their value, 0 where a slot is free.
    std::vector<uint32_t> valueToHandle;
};

}  // namespace QXJSON
