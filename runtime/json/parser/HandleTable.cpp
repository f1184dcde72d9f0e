#include "HandleTable.h"

namespace QXJSON {

void HandleTable::Clear() {
    blocks.clear();
    count = 0;
    pages.clear();
    slots.clear();
    lastPage = nullptr;
}

uint32_t HandleTable::HandleOf(JsonValue& value) {
    // Values do not overlap, so that no two of them share this number.
    const uintptr_t number = reinterpret_cast<uintptr_t>(&value) / sizeof(JsonValue);
    const uintptr_t stretch = number / kStretch;
    if (!lastPage || lastPage->stretch != stretch) lastPage = &PageOf(stretch);
    uint32_t& handle = lastPage->handles[number % kStretch];
    if (handle != 0) return handle;
    if (count == blocks.size() * kBlock) {
        std::unique_ptr<JsonValue*[]> block(new JsonValue*[kBlock]);
        blocks.push_back(std::move(block));
    }
    blocks[count / kBlock][count % kBlock] = &value;
    return handle = ++count;
}

HandleTable::Page& HandleTable::PageOf(uintptr_t stretch) {
    if (pages.size() >= slots.size() / 2) Grow();
    PageNumber& slot = SlotOf(stretch);
    if (slot == 0) {
        pages.push_back(std::make_unique<Page>());
        pages.back()->stretch = stretch;
        slot = static_cast<PageNumber>(pages.size());
    }
    return *pages[slot - 1];
}

/// The slot that holds the page of a stretch, or else the free one where it belongs.
HandleTable::PageNumber& HandleTable::SlotOf(uintptr_t stretch) {
    constexpr uint64_t kGoldenRatio = 0x9E37'79B9'7F4A'7C15;
    const size_t mask = slots.size() - 1;
    size_t slot = static_cast<size_t>(stretch * kGoldenRatio >> 32) & mask;
    while (slots[slot] != 0 && pages[slots[slot] - 1]->stretch != stretch) slot = (slot + 1) & mask;
    return slots[slot];
}

void HandleTable::Grow() {
    constexpr size_t kFirstSize = 16;
    std::vector<PageNumber> bigger(slots.empty() ? kFirstSize : slots.size() * 2);
    slots.swap(bigger);
    for (size_t i = 0; i < pages.size(); ++i)
        SlotOf(pages[i]->stretch) = static_cast<PageNumber>(i + 1);
}

}  // namespace QXJSON
