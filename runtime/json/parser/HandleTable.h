#pragma once

#include <stdint.h>

#include <memory>
#include <vector>

#include "common/platform/Compiler.h"
#include "common/search/Hash.h"
#include "common/search/HashTable.h"
#include "common/values/JsonTypes.h"

namespace QXJSON {

/// The item handles of one loaded document: dense numbers from 1, in the order in which the values
/// were first asked for; one value has one handle.
///
/// The first few are simply listed. Of more, both ways follow the document's memory. Memory is cut
/// into stretches of 64 values, and each stretch in which a value has a handle has a page: a handle
/// leads to a page and a place on it, a value's address to its place on the page of its stretch. A
/// walk from value to value stays on few pages for long, and is issued handles that lie close
/// together: a page keeps their distances.
class HandleTable {
public:
    /// The handle of a value, issued now if it has none yet.
    uint32_t HandleOf(JsonValue& value) {
        return paged ? HandleOnPage(value) : HandleInList(value);
    }

    /// The value of a handle, or null for a number that was never issued.
    JsonValue* ValueOf(uint32_t handle) const {
        // A handle of 0 wraps around and is out of range like any unknown one.
        const uint32_t index = handle - 1;
        if (index >= count) return nullptr;
        if (index < kFew) return few[index];
        const PackedAddress packed = blocks[index / kBlock][index % kBlock];
        const uintptr_t begin = pages[packed / kSteps].stretch * kStretch * sizeof(JsonValue);
        return reinterpret_cast<JsonValue*>(begin + packed % kSteps * alignof(JsonValue));
    }

    /// What looking for pages has cost: slots looked at or written.
    uint64_t Work() const { return slots.Work(); }  // LCOV_EXCL_LINE: for unit tests
    /// What the table holds.
    size_t Bytes() const;

private:
    static constexpr uint32_t kFew = 16;      // handles that are listed
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

    /// A page as a walk comes back to it. No value lies in the stretch 0.
    struct RecentPage {
        uintptr_t stretch;
        Handles* handles;
        PageNumber number;
    };

    /// The handle of a place, or 0.
    static uint32_t Known(const Handles& handles, uint32_t place) {
        if (handles.absolute) return handles.absolute[place];
        const uint32_t distance = handles.distances[place];
        return distance != 0 ? handles.base + distance : 0;
    }
    static void Note(Handles& handles, uint32_t place, uint32_t handle) {
        const uint32_t distance = handle - handles.base;
        if (handles.absolute || distance > UINT16_MAX)
            NoteFar(handles, place, handle);
        else
            handles.distances[place] = static_cast<uint16_t>(distance);
    }
    uint32_t HandleOnPage(JsonValue& value) {
        const auto address = reinterpret_cast<uintptr_t>(&value);
        // Values do not overlap, so that no two of them share this number.
        const uintptr_t number = address / sizeof(JsonValue);
        const uintptr_t stretch = number / kStretch;
        const auto place = static_cast<uint32_t>(number % kStretch);
        RecentPage& page = recent[stretch % kRecent];
        if (page.stretch != stretch) TurnTo(stretch, page);
        if (const uint32_t known = Known(*page.handles, place)) return known;
        if (count == room) AddBlock();
        Note(*page.handles, place, count + 1);
        const auto step = static_cast<uint32_t>(address / alignof(JsonValue) % kSteps);
        blocks[count / kBlock][count % kBlock] = page.number * kSteps + step;
        return ++count;
    }

    // What is rare, apart from what is not.
    JSON_NEVER_INLINE uint32_t HandleInList(JsonValue& value);
    void StartPages();
    void EndPages();
    JSON_NEVER_INLINE static void NoteFar(Handles& handles, uint32_t place, uint32_t handle);
    JSON_NEVER_INLINE void TurnTo(uintptr_t stretch, RecentPage& page);
    JSON_NEVER_INLINE void AddBlock();
    PageNumber PageOf(uintptr_t stretch);
    PageNumber AddPage(uintptr_t stretch, uint32_t hash);

    uint32_t count = 0;
    bool paged = false;  // there are, or were, more handles than the list has room for
    JsonValue* few[kFew];
    std::vector<std::unique_ptr<PackedAddress[]>> blocks;  // by handle - 1; blocks never move
    uint32_t room = 0;                                     // for handles, in the blocks
    std::vector<Page> pages;
    HashTable<Slot> slots;  // of the pages, by their stretch
    HashKeys keys = ProcessHashKeys();
    // The pages that were used last: a walk goes to and fro between a container's children and
    // theirs.
    static constexpr uintptr_t kRecent = 16;
    RecentPage recent[kRecent];
};

}  // namespace QXJSON
