#include "HandleTable.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace QXJSON {

uint32_t HandleTable::HandleInList(JsonValue& value) {
    JsonValue* const* const end = few + count;
    JsonValue* const* const found = std::find(static_cast<JsonValue* const*>(few), end, &value);
    if (found != end) return static_cast<uint32_t>(found - few) + 1;
    if (count < kFew) {
        few[count] = &value;
        return ++count;
    }
    StartPages();
    return HandleOnPage(value);
}

/// Issues the handles that are listed once more, on pages.
void HandleTable::StartPages() {
    std::fill(std::begin(recent), std::end(recent), RecentPage());
    paged = true;
    count = 0;
    try {
        for (JsonValue* const value : few) HandleOnPage(*value);
    } catch (...) {
        EndPages();
        throw;
    }
}

/// Has the list in place of pages that were not finished.
void HandleTable::EndPages() {
    paged = false;
    count = kFew;
    blocks.clear();
    room = 0;
    pages.clear();
    slots.Clear();
}

void HandleTable::NoteFar(Handles& handles, uint32_t place, uint32_t handle) {
    if (!handles.absolute) {
        auto absolute = std::make_unique<uint32_t[]>(kStretch);
        for (uint32_t i = 0; i < kStretch; ++i) absolute[i] = Known(handles, i);
        handles.absolute = std::move(absolute);
    }
    handles.absolute[place] = handle;
}

void HandleTable::TurnTo(uintptr_t stretch, RecentPage& page) {
    const PageNumber number = PageOf(stretch);
    page = {stretch, pages[number].handles.get(), number};
}

void HandleTable::AddBlock() {
    std::unique_ptr<PackedAddress[]> block(new PackedAddress[kBlock]);
    blocks.push_back(std::move(block));
    room += kBlock;
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

// LCOV_EXCL_START: the unit tests ask for it, to count what things cost
size_t HandleTable::Bytes() const {
    size_t bytes = blocks.size() * kBlock * sizeof(PackedAddress) + slots.Bytes() +
                   pages.capacity() * sizeof(Page) + pages.size() * sizeof(Handles);
    for (const Page& page : pages)
        if (page.handles->absolute) bytes += kStretch * sizeof(uint32_t);
    return bytes;
}
// LCOV_EXCL_STOP

}  // namespace QXJSON
