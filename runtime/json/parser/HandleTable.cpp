#include "HandleTable.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace QXJSON {

void HandleTable::Clear() {
    blocks.clear();
    count = 0;
    pages.clear();
    slots.clear();
    std::fill(std::begin(recent), std::end(recent), 0);
}

uint32_t HandleTable::HandleOf(JsonValue& value) {
    const auto address = reinterpret_cast<uintptr_t>(&value);
    // Values do not overlap, so that no two of them share this number.
    const uintptr_t number = address / sizeof(JsonValue);
    const uintptr_t stretch = number / kStretch;
    const auto place = static_cast<uint32_t>(number % kStretch);
    PageNumber& page = recent[stretch % kRecent];
    if (pages.empty() || pages[page].stretch != stretch) page = PageOf(stretch);
    Handles& handles = *pages[page].handles;
    if (const uint32_t known = Known(handles, place)) return known;
    if (count == blocks.size() * kBlock) {
        std::unique_ptr<Location[]> block(new Location[kBlock]);
        blocks.push_back(std::move(block));
    }
    Note(handles, place, count + 1);
    const auto step = static_cast<uint32_t>(address / alignof(JsonValue) % kSteps);
    blocks[count / kBlock][count % kBlock] = page * kSteps + step;
    return ++count;
}

/// The handle of a place, or 0.
uint32_t HandleTable::Known(const Handles& handles, uint32_t place) {
    if (handles.absolute) return handles.absolute[place];
    const uint32_t distance = handles.distances[place];
    return distance != 0 ? handles.base + distance : 0;
}

void HandleTable::Note(Handles& handles, uint32_t place, uint32_t handle) {
    const uint32_t distance = handle - handles.base;
    if (!handles.absolute && distance > UINT16_MAX) {
        auto absolute = std::make_unique<uint32_t[]>(kStretch);
        for (uint32_t i = 0; i < kStretch; ++i) absolute[i] = Known(handles, i);
        handles.absolute = std::move(absolute);
    }
    if (handles.absolute)
        handles.absolute[place] = handle;
    else
        handles.distances[place] = static_cast<uint16_t>(distance);
}

HandleTable::PageNumber HandleTable::PageOf(uintptr_t stretch) {
    if (pages.size() >= slots.size() / 2) Grow();
    PageNumber& slot = SlotOf(stretch);
    if (slot == 0) {
        constexpr size_t kMostPages = UINT32_MAX / kSteps;
        // LCOV_EXCL_START: takes a document of 32 GiB
        if (pages.size() == kMostPages) throw std::bad_alloc();
        // LCOV_EXCL_STOP
        auto handles = std::make_unique<Handles>();
        handles->base = count;
        pages.push_back({stretch, std::move(handles)});
        slot = static_cast<PageNumber>(pages.size());
    }
    return slot - 1;
}

/// The slot that holds the page of a stretch, or else the free one where it belongs.
HandleTable::PageNumber& HandleTable::SlotOf(uintptr_t stretch) {
    constexpr uint64_t kGoldenRatio = 0x9E37'79B9'7F4A'7C15;
    const size_t mask = slots.size() - 1;
    size_t slot = static_cast<size_t>(stretch * kGoldenRatio >> 32) & mask;
    while (slots[slot] != 0 && pages[slots[slot] - 1].stretch != stretch) slot = (slot + 1) & mask;
    return slots[slot];
}

void HandleTable::Grow() {
    constexpr size_t kFirstSize = 16;
    std::vector<PageNumber> bigger(slots.empty() ? kFirstSize : slots.size() * 2);
    slots.swap(bigger);
    for (size_t i = 0; i < pages.size(); ++i)
        SlotOf(pages[i].stretch) = static_cast<PageNumber>(i + 1);
}

}  // namespace QXJSON
