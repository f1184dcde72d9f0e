#pragma once

#include <stdint.h>

#include <string_view>
#include <vector>

#include "HashTable.h"
#include "KeyText.h"
#include "common/values/JsonTypes.h"

namespace QXJSON {

/// The members of one object by their names. Names that are equal but for the case of ASCII letters
/// are one entry, with its members in document order: whatever the names are, an entry is found at
/// once, and its first member with it.
///
/// A member is known by its number: its position when it was entered. Where members before it
/// were taken away since, its position is less by so many; from time to time all are numbered
/// again.
class MemberIndex {
public:
    static constexpr uint32_t kNowhere = UINT32_MAX;

    explicit MemberIndex(const HashKeys& hashKeys) : keys(hashKeys) {}

    /// Enters the members that came since the last time. Stops, with false, where entering members
    /// has cost more than `mostWork` in all. Throws std::bad_alloc.
    bool CatchUp(const JsonValue& object, uint64_t mostWork) {
        // An outdated reference may lead to an object as it was, with fewer members than now.
        return LiveCount() >= object.MemberCount() || EnterAll(object, mostWork);
    }

    /// The position of the first member that matches the key, or kNowhere.
    uint32_t Find(const JsonValue& object, std::wstring_view key, KeyMatch match);

    /// Makes sure that the next Remove needs no memory.
    void PrepareRemove() { removed.reserve(removed.size() + 1); }
    /// The member at a position is about to be taken away; those after it will move up.
    void Remove(const JsonValue& object, uint32_t position);

    /// What all this has cost: slots looked at, written and renumbered, and members passed over.
    // LCOV_EXCL_START: the unit tests ask for it, to count what things cost
    uint64_t Work() const { return work + table.Work(); }
    /// What the index holds.
    size_t Bytes() const {
        return table.Bytes() + (next.capacity() + removed.capacity()) * sizeof(uint32_t);
    }
    // LCOV_EXCL_STOP

private:
    struct Slot {
        uint32_t hash;
        uint32_t last;        // the number of the last member of the name
        const wchar_t* text;  // a spelling of the name, so that it can be fetched together with the
                              // member; null where that lies inside the member and moves with it
    };

    uint32_t LiveCount() const { return entered - static_cast<uint32_t>(removed.size()); }
    uint32_t PositionOf(uint32_t number) const;
    uint32_t NumberAt(uint32_t position) const;
    std::wstring_view NameOf(const JsonValue& object, uint32_t number) const;
    uint32_t FirstOf(const Slot& slot) const { return next.empty() ? slot.last : next[slot.last]; }
    bool Names(const Slot& slot, const JsonValue& object, std::wstring_view key,
               KeyMatch match) const;
    Slot* SlotOf(const JsonValue& object, std::wstring_view key, KeyMatch match);
    bool EnterAll(const JsonValue& object, uint64_t mostWork);
    void Enter(const JsonValue& object, const JsonValue& name, uint32_t hash);
    void Link(Slot& slot);
    void Unlink(Slot& slot, uint32_t number);
    void Drop(uint32_t number);
    void Renumber();
    void Tidy();

    HashKeys keys;
    HashTable<Slot> table;
    // For each number that of the next member of the name, and for the last one that of the first.
    // Empty as long as all names differ.
    std::vector<uint32_t> next;
    std::vector<uint32_t> removed;  // the numbers taken away, in ascending order
    uint32_t entered = 0;           // the next number
    uint64_t entering = 0;          // the work of entering
    uint64_t work = 0;              // other than the table's
};

}  // namespace QXJSON
