#include "HandleTable.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace QXJSON {

void HandleTable::Clear() {
    blocks.clear();
    count = 0;
    pages.clear();
    slots.Clear();
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
        std::unique_ptr<PackedAddress[]> block(new PackedAddress[kBlock]);
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
    const uint32_t hash = HashOf(stretch, keys);
    const Slot* const slot =
        slots.Find(hash, [&](const Slot& known) { return pages[known.page].stretch == stretch; });
    return slot ? slot->page : AddPage(stretch, hash);
}

HandleTable::PageNumber HandleTable::AddPage(uintptr_t stretch, uint32_t hash) {
    constexpr size_t kMostPages = UINT32_MAX / kSteps;
    // LCOV_EXCL_START: takes a document of 32 GiB
    if (pages.size() == kMostPages) throw std::bad_alloc();
    // LCOV_EXCL_STOP
    slots.Reserve(slots.Size() + 1);
    auto handles = std::make_unique<Handles>();
    handles->base = count;
    pages.push_back({stretch, std::move(handles)});
    const auto page = static_cast<PageNumber>(pages.size() - 1);
    slots.Insert({hash, page});
    return page;
}

size_t HandleTable::Bytes() const {
    size_t bytes = blocks.size() * kBlock * sizeof(PackedAddress) + slots.Bytes() +
                   pages.capacity() * sizeof(Page) + pages.size() * sizeof(Handles);
    for (const Page& page : pages)
        if (page.handles->absolute) bytes += kStretch * sizeof(uint32_t);
    return bytes;
}

}  // namespace QXJSON
