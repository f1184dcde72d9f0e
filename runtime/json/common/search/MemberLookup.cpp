#include "MemberLookup.h"

#include <algorithm>

namespace QXJSON {
namespace {

/// Up to this many members a scan is as fast as anything.
constexpr uint32_t kScanned = 16;
/// An index costs about as much as this many scans of the whole object.
constexpr uint64_t kScansBeforeIndex = 4;
/// An index may cost so many times the scans that it stands for: twice what it does when nobody
/// means harm, if it is to be made for a single search.
constexpr uint64_t kDearest = 8;

bool NameMatches(const JsonValue& name, std::wstring_view key, KeyMatch match) {
    return name.GetStringLength() == key.size() && Matches(name.GetString(), key, match);
}

JsonMember* MembersOf(JsonValue& object) { return object.MemberBegin().operator->(); }

/// The first of the members that matches, or their end.
JsonMember* Scan(JsonValue& object, std::wstring_view key, KeyMatch match) {
    JsonMember* const members = MembersOf(object);
    return std::find_if(members, members + object.MemberCount(), [&](const JsonMember& member) {
        return NameMatches(member.name, key, match);
    });
}

}  // namespace

JsonMember* MemberLookup::Find(JsonValue& object, std::wstring_view key, KeyMatch match) {
    if (object.MemberCount() > kScanned) return FindAmongMany(object, key, match);
    JsonMember* const found = Scan(object, key, match);
    return found != MembersOf(object) + object.MemberCount() ? found : nullptr;
}

JsonMember* MemberLookup::FindAmongMany(JsonValue& object, std::wstring_view key, KeyMatch match) {
    JsonMember* const members = MembersOf(object);
    Searched* const searched = SearchedAt(members);
    if (searched && !searched->scannedForGood) {
        if (MemberIndex* const index = IndexFor(object, *searched)) {
            const uint32_t position = index->Find(object, key, match);
            return position != MemberIndex::kNowhere ? members + position : nullptr;
        }
    }
    JsonMember* const found = Scan(object, key, match);
    const bool absent = found == members + object.MemberCount();
    const uint64_t scanned = static_cast<uint64_t>(found - members) + (absent ? 0 : 1);
    looked += scanned;
    if (searched) searched->scans += scanned;
    return absent ? nullptr : found;
}

/// The index of an object, which knows all members; null where a scan is to do.
MemberIndex* MemberLookup::IndexFor(const JsonValue& object, Searched& searched) {
    const uint32_t count = object.MemberCount();
    if (!searched.index) {
        if (searched.scans < kScansBeforeIndex * count) return nullptr;
        searched.index = std::make_unique<MemberIndex>(keys);
    }
    searched.scans += count;
    // A search in the index never looks at more than a scan would; entering members may.
    if (searched.index->CatchUp(object, kDearest * searched.scans)) return searched.index.get();
    // LCOV_EXCL_START: takes names that were chosen for this process's hashes
    searched.scannedForGood = true;
    looked += searched.index->Work();
    searched.index.reset();
    return nullptr;
    // LCOV_EXCL_STOP
}

void MemberLookup::Remove(JsonValue& object, JsonMember& member) {
    JsonMember* const members = MembersOf(object);
    const auto position = &member - members;
    const Slot* const slot = SlotOf(members);
    MemberIndex* const index = slot ? objects[slot->number]->index.get() : nullptr;
    if (index) {
        index->PrepareRemove();
        index->Remove(object, static_cast<uint32_t>(position));
    }
    object.EraseMember(object.MemberBegin() + position);
}

void MemberLookup::Clear() {
    objects.clear();
    table.Clear();
    last = nullptr;
}

// LCOV_EXCL_START: the unit tests ask for it, to count what things cost
uint64_t MemberLookup::Work() const {
    uint64_t work = looked + table.Work();
    for (const auto& searched : objects)
        if (searched->index) work += searched->index->Work();
    return work;
}
// LCOV_EXCL_STOP

// LCOV_EXCL_START: the unit tests ask for it, to count what things cost
size_t MemberLookup::Bytes() const {
    size_t bytes = table.Bytes() + objects.capacity() * sizeof objects[0];
    for (const auto& searched : objects) {
        bytes += sizeof *searched;
        if (searched->index) bytes += sizeof *searched->index + searched->index->Bytes();
    }
    return bytes;
}
// LCOV_EXCL_STOP

// ---- The objects that are remembered -----------------------------------------------------------

uint32_t MemberLookup::HashOfAddress(const JsonMember* members) const {
    return HashOf(reinterpret_cast<uintptr_t>(members), keys);
}

MemberLookup::Slot* MemberLookup::SlotOf(const JsonMember* members) {
    return table.Find(HashOfAddress(members),
                      [&](const Slot& slot) { return objects[slot.number]->members == members; });
}

/// What is remembered of the object whose members lie there; null for memory that is not the
/// document's, which may hold anything the next time.
MemberLookup::Searched* MemberLookup::Remembered(const JsonMember* members) {
    if (const Slot* const slot = SlotOf(members)) return last = objects[slot->number].get();
    if (!pool.Contains(members)) return nullptr;
    table.Reserve(table.Size() + 1);
    auto searched = std::make_unique<Searched>();
    searched->members = members;
    objects.push_back(std::move(searched));
    table.Insert({HashOfAddress(members), static_cast<uint32_t>(objects.size() - 1)});
    return last = objects.back().get();
}

void MemberLookup::Moved(const JsonMember* from, const JsonMember* to) {
    Slot* const slot = SlotOf(from);
    if (!slot) return;
    const uint32_t number = slot->number;
    table.Erase(*slot);
    objects[number]->members = to;
    table.Insert({HashOfAddress(to), number});
}

}  // namespace QXJSON
