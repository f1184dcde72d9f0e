#include "MemberIndex.h"

#include <algorithm>
#include <numeric>

namespace QXJSON {
namespace {

std::wstring_view TextOf(const JsonValue& name) {
    return {name.GetString(), name.GetStringLength()};
}

/// The text of a name that lies in the document's pool, where it stays; null for a short one.
const wchar_t* SettledText(const JsonValue& name) {
    const wchar_t* const text = name.GetString();
    const auto distance = reinterpret_cast<uintptr_t>(text) - reinterpret_cast<uintptr_t>(&name);
    return distance < sizeof name ? nullptr : text;
}

const JsonMember* MembersOf(const JsonValue& object) { return object.MemberBegin().operator->(); }

/// Finding the way around removed members costs more the more there are; numbering all again costs
/// as much as the table is large. With this many in between both grow with the root of the size.
bool TooMany(uint64_t removed, uint64_t live) { return removed * removed > 4096 + 8 * live; }

}  // namespace

/// Goes by few members at a time, whose places in the table are on their way while their hashes are
/// made.
bool MemberIndex::EnterAll(const JsonValue& object, uint64_t mostWork) {
    const uint32_t count = object.MemberCount();
    table.Reserve(table.Size() + (count - LiveCount()));
    constexpr uint32_t kAtATime = 32;
    uint32_t hashes[kAtATime];
    while (LiveCount() < count && entering <= mostWork) {
        const JsonMember* const members = MembersOf(object) + LiveCount();
        const uint32_t size = std::min(kAtATime, count - LiveCount());
        for (uint32_t i = 0; i < size; ++i) {
            hashes[i] = HashOf<KeyMatch::kIgnoreCase>(TextOf(members[i].name), keys);
            table.Prefetch(hashes[i]);
        }
        const uint64_t before = table.Work();
        for (uint32_t i = 0; i < size; ++i) Enter(object, members[i].name, hashes[i]);
        entering += table.Work() - before + size;
    }
    return LiveCount() == count;
}

uint32_t MemberIndex::Find(const JsonValue& object, std::wstring_view key, KeyMatch match) {
    // Among names that all differ, one in another case is as good as none.
    const KeyMatch inTable = next.empty() ? match : KeyMatch::kIgnoreCase;
    const Slot* const slot = SlotOf(object, key, inTable);
    if (!slot) return kNowhere;
    uint32_t number = FirstOf(*slot);
    if (inTable != match) {
        while (!Matches(NameOf(object, number).data(), key, match)) {
            if (number == slot->last) return kNowhere;
            number = next[number];
            ++work;
        }
    }
    const uint32_t position = PositionOf(number);
    return position < object.MemberCount() ? position : kNowhere;
}

void MemberIndex::Remove(const JsonValue& object, uint32_t position) {
    // A member that is not entered yet lies after all that are.
    if (position >= LiveCount()) return;
    const std::wstring_view name = TextOf(MembersOf(object)[position].name);
    const uint32_t number = NumberAt(position);
    Unlink(*SlotOf(object, name, KeyMatch::kIgnoreCase), number);
    Drop(number);
    if (TooMany(removed.size(), LiveCount())) Renumber();
    Tidy();
}

// ---- Numbers and positions ---------------------------------------------------------------------

uint32_t MemberIndex::PositionOf(uint32_t number) const {
    if (removed.empty()) return number;
    const auto behind = std::lower_bound(removed.begin(), removed.end(), number);
    return number - static_cast<uint32_t>(behind - removed.begin());
}

uint32_t MemberIndex::NumberAt(uint32_t position) const {
    // So many of the removed members lie before it: those that are there when it is reached.
    size_t low = 0, high = removed.size();
    while (low < high) {
        const size_t middle = (low + high) / 2;
        if (removed[middle] - middle <= position)
            low = middle + 1;
        else
            high = middle;
    }
    return position + static_cast<uint32_t>(low);
}

std::wstring_view MemberIndex::NameOf(const JsonValue& object, uint32_t number) const {
    return TextOf(MembersOf(object)[PositionOf(number)].name);
}

/// Takes a number out of use. The last ones can be given again.
void MemberIndex::Drop(uint32_t number) {
    if (number != entered - 1) {
        removed.insert(std::lower_bound(removed.begin(), removed.end(), number), number);
        return;
    }
    --entered;
    while (!removed.empty() && removed.back() == entered - 1) {
        removed.pop_back();
        --entered;
    }
    if (!next.empty()) next.resize(entered);
}

/// Makes numbers and positions the same again.
void MemberIndex::Renumber() {
    table.ForEach([&](Slot& slot) { slot.last = PositionOf(slot.last); });
    if (!next.empty()) {
        auto gone = removed.begin();
        uint32_t position = 0;
        for (uint32_t number = 0; number < entered; ++number) {
            if (gone != removed.end() && *gone == number)
                ++gone;
            else
                next[position++] = PositionOf(next[number]);
        }
        next.resize(position);
        work += entered;
    }
    entered = LiveCount();
    removed.clear();
}

/// Gives back what the members that are left do not need.
void MemberIndex::Tidy() {
    table.Shrink();
    constexpr size_t kSparse = 8;
    if (next.size() > next.capacity() / kSparse) return;
    try {
        next.shrink_to_fit();
    } catch (const std::bad_alloc&) {  // LCOV_EXCL_START: libstdc++ lets none out
        // Then it stays as it is.
    }  // LCOV_EXCL_STOP
}

// ---- Entries -----------------------------------------------------------------------------------

/// Whether a slot is that of a name.
bool MemberIndex::Names(const Slot& slot, const JsonValue& object, std::wstring_view key,
                        KeyMatch match) const {
    const JsonValue& name = MembersOf(object)[PositionOf(slot.last)].name;
    return name.GetStringLength() == key.size() &&
           Matches(slot.text ? slot.text : name.GetString(), key, match);
}

MemberIndex::Slot* MemberIndex::SlotOf(const JsonValue& object, std::wstring_view key,
                                       KeyMatch match) {
    return table.Find(HashOf<KeyMatch::kIgnoreCase>(key, keys),
                      [&](const Slot& slot) { return Names(slot, object, key, match); });
}

/// Enters the member after those that are entered; the table has room for it.
void MemberIndex::Enter(const JsonValue& object, const JsonValue& name, uint32_t hash) {
    if (!next.empty()) next.push_back(entered);
    const std::wstring_view text = TextOf(name);
    Slot* const slot =
        table.FindOrInsert({hash, entered, SettledText(name)}, [&](const Slot& candidate) {
            return Names(candidate, object, text, KeyMatch::kIgnoreCase);
        });
    if (slot) Link(*slot);
    ++entered;
}

/// Puts the member that is being entered after the others of its name.
void MemberIndex::Link(Slot& slot) {
    if (next.empty()) {
        next.resize(size_t{entered} + 1);
        std::iota(next.begin(), next.end(), 0u);
    }
    std::swap(next[entered], next[slot.last]);
    slot.last = entered;
}

/// Takes a member out of its entry, and the last one together with the entry.
void MemberIndex::Unlink(Slot& slot, uint32_t number) {
    if (next.empty() || next[number] == number) {
        table.Erase(slot);
        return;
    }
    uint32_t before = slot.last;
    for (; next[before] != number; before = next[before]) ++work;
    next[before] = next[number];
    if (slot.last == number) slot.last = before;
}

}  // namespace QXJSON
