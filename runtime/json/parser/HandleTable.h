#pragma once

#include <stdint.h>

#include <memory>
#include <vector>

#include "../common/JsonTypes.h"

namespace QXJSON {

/// The item handles of one loaded document: dense numbers from 1, in the order in which the values
/// were first asked for; one value has one handle.
///
/// The way from a value to its handle follows the document's memory: values lie side by side, and
/// so do their handles. Memory is cut into stretches of 64 values; each stretch in which a value
/// has a handle has a page of handles, and a walk from value to value stays on one page for long.
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
        return index < count ? blocks[index / kBlock][index % kBlock] : nullptr;
    }

private:
    static constexpr uint32_t kBlock = 1024;   // handles of one block of handleToValue
    static constexpr uintptr_t kStretch = 64;  // values of one stretch of memory

    /// The handles of one stretch; 0 for a value without one.
    struct Page {
        uintptr_t stretch;
        uint32_t handles[kStretch];
    };
    using PageNumber = uint32_t;

    Page& PageOf(uintptr_t stretch);
    PageNumber& SlotOf(uintptr_t stretch);
    void Grow();

    // By handle - 1, in blocks that never move.
    std::vector<std::unique_ptr<JsonValue*[]>> blocks;
    uint32_t count = 0;
    std::vector<std::unique_ptr<Page>> pages;
    // The pages by their stretch: a hash table with open addressing, of a size that is a power of
    // two and at most half full, of page numbers plus 1; 0 is free.
    std::vector<PageNumber> slots;
    Page* lastPage = nullptr;
};

}  // namespace QXJSON
