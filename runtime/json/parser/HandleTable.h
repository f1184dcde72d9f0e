#pragma once

#include <stdint.h>

#include <memory>
#include <vector>

#include "common/search/Hash.h"
#include "common/search/HashTable.h"
#include "common/values/JsonTypes.h"

namespace QXJSON {

/// The item handles of one loaded document: dense numbers from 1, in the order in which the values
/// were first asked for; one value has one handle.
///
/// Both ways follow the document's memory. Memory is cut into stretches of 64 values, and each
/// stretch in which a value has a handle has a page: a handle leads to a page and a place on it, a
/// value's address to its place on the page of its stretch. A walk from value to value stays on few
/// pages for long, and is issued handles that lie close together: a page keeps their distances.
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
        if (index >= count) return nullptr;
        const PackedAddress packed = blocks[index / kBlock][index % kBlock];
        const uintptr_t begin = pages[packed / kSteps].stretch * kStretch * sizeof(JsonValue);
        return reinterpret_cast<JsonValue*>(begin + packed % kSteps * alignof(JsonValue));
    }

    /// What looking for pages has cost: slots looked at or written.
    uint64_t Work() const { return slots.Work(); }
    /// What the table holds.
    size_t Bytes() const;

private:
    static constexpr uint32_t kBlock = 1024;  // handles of one block
    static constexpr uint32_t kStretch = 64;  // values of one stretch of memory

    /// Where a value can begin in a stretch: at every multiple of its alignment, which is half of
    /// its size.
    static constexpr uint32_t kSteps = kStretch * sizeof(JsonValue) / alignof(JsonValue);

    /// The number of a page times kSteps, plus the step of the value in its stretch.
    using PackedAddress = uint32_t;
    using PageNumber = uint32_t;

    /// The handles of the values in one stretch.
    struct Handles {
        uint32_t base = 0;                  // one less than the first handle that was issued here
        uint16_t distances[kStretch] = {};  // from the base; 0 for a value without a handle
        // The handles themselves, once one of them is too far from the base.
        std::unique_ptr<uint32_t[]> absolute;
    };

    struct Page {
        uintptr_t stretch;
        std::unique_ptr<Handles> handles;
    };

    struct Slot {
        uint32_t hash;
        PageNumber page;
    };

    static uint32_t Known(const Handles& handles, uint32_t place);
    static void Note(Handles& handles, uint32_t place, uint32_t handle);
    PageNumber PageOf(uintptr_t stretch);
    PageNumber AddPage(uintptr_t stretch, uint32_t hash);

    std::vector<std::unique_ptr<PackedAddress[]>> blocks;  // by handle - 1; blocks never move
    uint32_t count = 0;
    std::vector<Page> pages;
    HashTable<Slot> slots;  // of the pages, by their stretch
    HashKeys keys = ProcessHashKeys();
    // The pages that were used last: a walk goes to and fro between a container's children and
    // theirs.
    static constexpr uintptr_t kRecent = 16;
    PageNumber recent[kRecent] = {};
};

}  // namespace QXJSON
