#include "MemberLookup.h"

#include <algorithm>

namespace QXJSON {
namespace {

/// Up to this many members a scan is as fast as anything.
constexpr uint32_t kScanned = 16;
/// An index costs about as much as this many scans of the whole object.
constexpr uint64_t kScansBeforeIndex = 4;
/// Finding the way around so many removed members costs next to nothing; numbering all anew costs
/// about as much as moving them.
constexpr size_t kRemovalsBeforeRenumbering = 64;
/// A slot whose member was removed: passed over, never matched.
constexpr uint32_t kRemoved = UINT32_MAX;

std::wstring_view TextOf(const JsonValue& name) {
    return {name.GetString(), name.GetStringLength()};
}

/// The text of a name that lies in the document's pool, where it stays; null for a short one.
const wchar_t* SettledText(const JsonValue& name) {
    const wchar_t* const text = name.GetString();
    const auto distance = reinterpret_cast<uintptr_t>(text) - reinterpret_cast<uintptr_t>(&name);
    return distance < sizeof name ? nullptr : text;
}

bool NameMatches(const JsonValue& name, std::wstring_view key, KeyMatch match) {
    return name.GetStringLength() == key.size() && Matches(name.GetString(), key, match);
}

const JsonMember* MembersOf(const JsonValue& object) { return object.MemberBegin().operator->(); }

}  // namespace

JsonMember* MemberLookup::Find(JsonValue& object, std::wstring_view key, KeyMatch match) {
    const uint32_t count = object.MemberCount();
    JsonMember* const members = object.MemberBegin().operator->();
    Index* const index = count > kScanned ? &IndexOf(members) : nullptr;
    if (index && (index->Exists() || index->scanned >= kScansBeforeIndex * count)) {
        index->CatchUp(object);
        const auto matches = [&](const Index::Slot& slot) {
            const JsonValue& name = members[index->PositionOf(slot)].name;
            return name.GetStringLength() == key.size() &&
                   Matches(slot.text ? slot.text : name.GetString(), key, match);
        };
        const Index::Slot* const slot = index->Find(HashOf(key), matches);
        return slot ? &members[index->PositionOf(*slot)] : nullptr;
    }
    JsonMember* const end = members + count;
    JsonMember* const found = std::find_if(members, end, [&](const JsonMember& member) {
        return NameMatches(member.name, key, match);
    });
    if (index) index->scanned += static_cast<uint64_t>(found - members) + 1;
    return found != end ? found : nullptr;
}

void MemberLookup::Moved(const JsonMember* from, const JsonMember* to) {
    lastMembers = nullptr;
    auto node = indexes.extract(from);
    if (!node) return;
    node.key() = to;
    indexes.insert(std::move(node));
}

void MemberLookup::Remove(JsonValue& object, JsonMember& member) {
    const auto begin = object.MemberBegin();
    const auto position = &member - begin.operator->();
    const auto found = indexes.find(begin.operator->());
    if (found != indexes.end())
        found->second.Remove(HashOf(TextOf(member.name)), static_cast<uint32_t>(position));
    object.EraseMember(begin + position);
}

void MemberLookup::Clear() {
    indexes.clear();
    lastMembers = nullptr;
}

MemberLookup::Index& MemberLookup::IndexOf(const JsonMember* members) {
    if (members != lastMembers) {
        lastIndex = &indexes[members];
        lastMembers = members;
    }
    return *lastIndex;
}

// ---- One object's index ------------------------------------------------------------------------

/// Enters the members that came since the last search.
void MemberLookup::Index::CatchUp(const JsonValue& object) {
    const JsonMember* const members = MembersOf(object);
    const uint32_t count = object.MemberCount();
    auto next = static_cast<uint32_t>(entered - removed.size());
    if (next == count) return;
    const size_t needed = size_t{used} + (count - next);
    if (needed > slots.size() / 4 * 3) Grow(needed);
    for (; next < count; ++next) {
        const JsonValue& name = members[next].name;
        Enter({HashOf(TextOf(name)), ++entered, SettledText(name)});
    }
}

/// The first slot of a hash that is accepted, in the order of the members; null when there is none.
template <class Accept>
MemberLookup::Index::Slot* MemberLookup::Index::Find(uint32_t hash, Accept&& accept) {
    const size_t mask = slots.size() - 1;
    for (size_t at = hash & mask; slots[at].member != 0; at = (at + 1) & mask) {
        Slot& slot = slots[at];
        if (slot.hash == hash && slot.member != kRemoved && accept(slot)) return &slot;
    }
    return nullptr;
}

uint32_t MemberLookup::Index::PositionOf(const Slot& slot) const {
    const uint32_t number = slot.member - 1;
    if (removed.empty()) return number;
    const auto behind = std::lower_bound(removed.begin(), removed.end(), number);
    return number - static_cast<uint32_t>(behind - removed.begin());
}

void MemberLookup::Index::Remove(uint32_t hash, uint32_t position) {
    // A member that is not entered yet lies behind all that are.
    if (position >= entered - removed.size()) return;
    Slot* const slot =
        Find(hash, [&](const Slot& candidate) { return PositionOf(candidate) == position; });
    const uint32_t number = slot->member - 1;
    slot->member = kRemoved;
    removed.insert(std::lower_bound(removed.begin(), removed.end(), number), number);
    if (removed.size() > kRemovalsBeforeRenumbering) Renumber();
}

/// Makes numbers and positions the same again.
void MemberLookup::Index::Renumber() {
    for (Slot& slot : slots)
        if (slot.member != 0 && slot.member != kRemoved) slot.member = PositionOf(slot) + 1;
    entered -= static_cast<uint32_t>(removed.size());
    removed.clear();
}

/// Makes room for so many entries, and gives back the slots of removed members.
void MemberLookup::Index::Grow(size_t size) {
    size_t wanted = 64;
    while (wanted / 4 * 3 < size) wanted *= 2;
    std::vector<Slot> old(wanted);
    old.swap(slots);
    used = 0;
    // In the order of the members: the first of several with one hash must stay the first. A run of
    // occupied slots may wrap around the end of the table, so the walk starts behind a free one.
    const size_t mask = old.size() - 1;
    size_t start = 0;
    while (!old.empty() && old[start].member != 0) ++start;
    for (size_t i = 0; i < old.size(); ++i) {
        const Slot& slot = old[(start + i) & mask];
        if (slot.member != 0 && slot.member != kRemoved) Enter(slot);
    }
}

void MemberLookup::Index::Enter(const Slot& entry) {
    const size_t mask = slots.size() - 1;
    size_t at = entry.hash & mask;
    while (slots[at].member != 0) at = (at + 1) & mask;
    slots[at] = entry;
    ++used;
}

}  // namespace QXJSON
