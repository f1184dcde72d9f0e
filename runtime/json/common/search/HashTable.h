#pragma once

#include <stddef.h>
#include <stdint.h>
#include <xmmintrin.h>

#include <new>
#include <vector>

namespace QXJSON {

/// A hash table with open addressing and linear probing: what members, paths and handles are found
/// by. It holds slots and knows nothing of keys: whoever searches says which slot of a hash is the
/// one.
///
/// A slot is a small copyable struct with a member `hash`, which is 0 in a free one. A hash's home
/// is given by its highest bits, so that growing keeps the order and goes through memory once.
/// Removing closes the gap: there are no slots but those in use.
template <class Slot>
class HashTable {
public:
    /// How many slots are in use.
    size_t Size() const { return used; }
    /// How many slots were looked at or written, in all: what the table's work is measured in.
    uint64_t Work() const { return work; }
    /// What the table holds.
    // LCOV_EXCL_START: the unit tests ask for it, to count what things cost
    size_t Bytes() const { return slots.capacity() * sizeof(Slot); }
    // LCOV_EXCL_STOP

    /// Makes room for so many slots in all. Throws std::bad_alloc and is what it was.
    void Reserve(size_t size) {
        if (Fits(size, slots.size())) return;
        size_t wanted = slots.empty() ? kFirstSize : slots.size();
        while (!Fits(size, wanted)) wanted *= 2;
        Resize(wanted);
    }

    /// Gives memory back where most of it is not in use, and there is memory to do so.
    void Shrink() {
        if (used > slots.size() / kSparse) return;
        size_t wanted = kFirstSize;
        while (!Fits(2 * used, wanted)) wanted *= 2;
        if (wanted >= slots.size()) return;
        try {
            Resize(wanted);
        } catch (const std::bad_alloc&) {
            // Then it stays as it is.
        }
    }

    /// The slot of that hash that is accepted, or null.
    template <class Accept>
    Slot* Find(uint32_t hash, Accept&& accept) {
        if (slots.empty()) return nullptr;
        Slot& slot = slots[Locate(hash, accept)];
        return slot.hash != 0 ? &slot : nullptr;
    }

    /// The slot of that slot's hash that is accepted. Where there is none that slot is put in, for
    /// which there must be room, and the result is null.
    template <class Accept>
    Slot* FindOrInsert(const Slot& slot, Accept&& accept) {
        Slot& place = slots[Locate(slot.hash, accept)];
        if (place.hash != 0) return &place;
        place = slot;
        ++used;
        return nullptr;
    }

    /// Has the memory where a hash is looked for on its way.
    void Prefetch(uint32_t hash) const {
        _mm_prefetch(reinterpret_cast<const char*>(&slots[Home(hash)]), _MM_HINT_T0);
    }

    /// Puts a slot in, for which there must be room.
    void Insert(const Slot& slot) {
        FindOrInsert(slot, [](const Slot&) { return false; });
    }

    /// Takes a slot out. Others move: pointers to slots end.
    void Erase(Slot& slot) {
        auto gap = static_cast<size_t>(&slot - slots.data());
        for (size_t at = Next(gap); slots[at].hash != 0; at = Next(at)) {
            ++work;
            // A slot may fill the gap when that does not lie ahead of its home.
            const size_t fromHome = at - Home(slots[at].hash);
            if ((fromHome & Mask()) < ((at - gap) & Mask())) continue;
            slots[gap] = slots[at];
            gap = at;
        }
        slots[gap] = {};
        --used;
    }

    template <class Visit>
    void ForEach(Visit&& visit) {
        work += slots.size();
        for (Slot& slot : slots)
            if (slot.hash != 0) visit(slot);
    }

    void Clear() {
        std::vector<Slot>().swap(slots);
        used = 0;
    }

private:
    static constexpr size_t kFirstSize = 16;
    /// A table of which no more than one slot in so many is in use is too large.
    static constexpr size_t kSparse = 8;

    /// At most three quarters are in use: then a search looks at two or three slots.
    static bool Fits(size_t size, size_t slotCount) { return size <= slotCount / 4 * 3; }

    size_t Mask() const { return slots.size() - 1; }
    size_t Next(size_t at) const { return (at + 1) & Mask(); }
    size_t Home(uint32_t hash) const { return hash >> shift; }

    /// The first slot from a hash's home on that is accepted, or the free one after them.
    template <class Accept>
    size_t Locate(uint32_t hash, Accept&& accept) {
        const Slot* const begin = slots.data();
        const size_t home = Home(hash), mask = Mask();
        size_t at = home;
        while (begin[at].hash != 0 && !(begin[at].hash == hash && accept(begin[at])))
            at = (at + 1) & mask;
        work += ((at - home) & mask) + 1;
        return at;
    }

    void Resize(size_t size) {
        std::vector<Slot> old(size);
        old.swap(slots);
        for (shift = 32; size > 1; size /= 2) --shift;
        used = 0;
        for (const Slot& slot : old)
            if (slot.hash != 0) Insert(slot);
    }

    std::vector<Slot> slots;  // none, or a power of two
    int shift = 32;
    size_t used = 0;
    uint64_t work = 0;
};

}  // namespace QXJSON
