// The hash table against one of the standard library, with hashes that are made to meet, and what
// it costs.

#include "common/search/HashTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <unordered_map>
#include <vector>

#include "Growth.h"
#include "common/search/Hash.h"

namespace {

using namespace QXJSON;
using support::Cost;
using support::CostOfEach;
using support::ExpectFlat;

struct Slot {
    uint32_t hash;
    uint32_t value;
};
using Table = HashTable<Slot>;

/// Slots are told apart by their values.
auto Is(uint32_t value) {
    return [value](const Slot& slot) { return slot.value == value; };
}

void Add(Table& table, const Slot& slot) {
    table.Reserve(table.Size() + 1);
    table.Insert(slot);
}

void Remove(Table& table, const Slot& slot) { table.Erase(*table.Find(slot.hash, Is(slot.value))); }

/// A table, and what has to be in it.
class Subject {
public:
    void Insert(uint32_t hash) {
        const Slot slot = {hash, ++lastValue};
        Add(table, slot);
        model.emplace(slot.hash, slot.value);
        all.push_back(slot);
    }

    /// Puts a slot in if it is not there yet.
    void InsertOnce(const Slot& slot) {
        table.Reserve(table.Size() + 1);
        const bool known = Knows(slot);
        const Slot* const found = table.FindOrInsert(slot, Is(slot.value));
        ASSERT_EQ(known, found != nullptr);
        if (known) return;
        model.emplace(slot.hash, slot.value);
        all.push_back(slot);
    }

    void Erase(size_t number) {
        const Slot slot = all[number];
        Remove(table, slot);
        const auto [first, end] = model.equal_range(slot.hash);
        model.erase(std::find_if(first, end,
                                 [&](const auto& entry) { return entry.second == slot.value; }));
        all[number] = all.back();
        all.pop_back();
    }

    void Shrink() { table.Shrink(); }
    size_t Count() const { return all.size(); }
    const Slot& At(size_t number) const { return all[number]; }

    /// All slots are found, nothing else is, and each is visited once.
    void Check() {
        ASSERT_EQ(model.size(), table.Size());
        for (const auto& [hash, value] : model) {
            const Slot* const slot = table.Find(hash, Is(value));
            ASSERT_NE(nullptr, slot) << std::hex << hash;
            ASSERT_EQ(hash, slot->hash);
            ASSERT_EQ(value, slot->value);
            ASSERT_EQ(nullptr, table.Find(hash, Is(0)));
            ASSERT_EQ(nullptr, table.Find(hash ^ 0x1000, Is(value)));
        }
        std::unordered_multimap<uint32_t, uint32_t> visited;
        table.ForEach([&](const Slot& slot) { visited.emplace(slot.hash, slot.value); });
        ASSERT_EQ(model, visited);
    }

private:
    bool Knows(const Slot& slot) const {
        const auto [first, end] = model.equal_range(slot.hash);
        return std::any_of(first, end,
                           [&](const auto& entry) { return entry.second == slot.value; });
    }

    Table table;
    std::unordered_multimap<uint32_t, uint32_t> model;
    std::vector<Slot> all;
    uint32_t lastValue = 0;
};

/// Hashes of several kinds: any; few; and those whose places are the last and the first ones of a
/// table, however large it is.
using MakeHash = uint32_t (*)(std::mt19937& random);

constexpr MakeHash kKindsOfHashes[] = {
    [](std::mt19937& random) { return static_cast<uint32_t>(random()) | 1; },
    [](std::mt19937& random) { return (static_cast<uint32_t>(random()) % 7 + 1) * 0x2000'0000u; },
    [](std::mt19937& random) { return UINT32_MAX - static_cast<uint32_t>(random()) % 5; },
    [](std::mt19937& random) {
        return (random() % 2 ? 0xFFFF'F000u : 1u) + static_cast<uint32_t>(random()) % 0xFFF;
    },
};

TEST(HashTable, RandomSteps) {
    std::mt19937 random(11);
    for (const MakeHash hash : kKindsOfHashes)
        for (const unsigned most : {1u, 12u, 13u, 50u, 400u}) {
            Subject subject;
            for (int i = 0; i < 2000; ++i) {
                const bool grows = i / 500 % 2 == 0;
                if (subject.Count() == 0 ||
                    (subject.Count() < most && random() % 3 < (grows ? 2 : 1)))
                    subject.Insert(hash(random));
                else
                    subject.Erase(random() % subject.Count());
                if (random() % 50 == 0) subject.Shrink();
                if (i % 40 != 0) continue;
                ASSERT_NO_FATAL_FAILURE(subject.Check());
            }
        }
}

/// A full table of the smallest size, in which every chain of slots meets its end; slots go in any
/// order, and no gap is left that a search would stop at.
TEST(HashTable, ErasingClosesGaps) {
    std::mt19937 random(12);
    for (int round = 0; round < 1000; ++round) {
        Subject subject;
        const uint32_t homes = 1 + random() % 4;
        for (int i = 0; i < 12; ++i)
            subject.Insert(static_cast<uint32_t>((14 + random() % homes) % 16 << 28 | 1));
        while (subject.Count() > 0) {
            subject.Erase(random() % subject.Count());
            ASSERT_NO_FATAL_FAILURE(subject.Check());
        }
    }
}

TEST(HashTable, ManySlotsOfOneHash) {
    for (const uint32_t hash : {1u, 0x8000'0000u, 0xFFFF'FFFFu}) {
        Subject subject;
        for (int i = 0; i < 500; ++i) subject.Insert(hash);
        ASSERT_NO_FATAL_FAILURE(subject.Check());
        for (size_t i = 0; subject.Count() > 1; i += 7) subject.Erase(i % subject.Count());
        subject.Shrink();
        ASSERT_NO_FATAL_FAILURE(subject.Check());
    }
}

TEST(HashTable, FindOrInsertPutsInWhatIsNotThere) {
    std::mt19937 random(13);
    for (const MakeHash hash : kKindsOfHashes) {
        Subject subject;
        for (int i = 0; i < 500; ++i) {
            const Slot slot = subject.Count() > 0 && random() % 2
                                  ? subject.At(random() % subject.Count())
                                  : Slot{hash(random), static_cast<uint32_t>(random() % 50 + 1)};
            ASSERT_NO_FATAL_FAILURE(subject.InsertOnce(slot));
        }
        ASSERT_NO_FATAL_FAILURE(subject.Check());
    }
}

TEST(HashTable, AnEmptyOneHoldsNothing) {
    Table table;
    EXPECT_EQ(0u, table.Bytes());
    EXPECT_EQ(0u, table.Size());
    EXPECT_EQ(nullptr, table.Find(1, Is(1)));
    table.ForEach([](const Slot&) { ADD_FAILURE(); });
    table.Shrink();
    EXPECT_EQ(0u, table.Bytes());
    Add(table, {1, 1});
    table.Clear();
    EXPECT_EQ(0u, table.Bytes());
    EXPECT_EQ(0u, table.Size());
    EXPECT_EQ(nullptr, table.Find(1, Is(1)));
    Add(table, {1, 2});
    EXPECT_NE(nullptr, table.Find(1, Is(2)));
}

/// What there is room for goes in without more memory, and asking again for room takes none.
TEST(HashTable, ReserveMakesRoomOnce) {
    for (const size_t size : {1u, 12u, 13u, 24u, 25u, 1000u, 6144u, 6145u}) {
        Table table;
        table.Reserve(size);
        const size_t bytes = table.Bytes();
        const uint64_t work = table.Work();
        table.Reserve(size);
        table.Reserve(0);
        EXPECT_EQ(bytes, table.Bytes());
        EXPECT_EQ(work, table.Work());
        for (uint32_t i = 0; i < size; ++i) {
            table.Insert({0xFFFF'FFFF - i * 4099, i});
            table.Reserve(size);
        }
        EXPECT_EQ(bytes, table.Bytes());
        EXPECT_EQ(size, table.Size());
        table.Reserve(2 * size);
        for (uint32_t i = 0; i < size; ++i)
            ASSERT_NE(nullptr, table.Find(0xFFFF'FFFF - i * 4099, Is(i)));
    }
}

/// More than any vector holds: an allocation that fails would end the program under
/// AddressSanitizer.
TEST(HashTable, AReserveThatFailsChangesNothing) {
    Table table;
    const size_t tooMany = size_t{1} << 61;
    EXPECT_THROW(table.Reserve(tooMany), std::length_error);
    EXPECT_EQ(0u, table.Bytes());
    for (uint32_t i = 1; i <= 100; ++i) Add(table, {i << 25 | 1, i});
    const size_t bytes = table.Bytes();
    EXPECT_THROW(table.Reserve(tooMany), std::length_error);
    EXPECT_EQ(bytes, table.Bytes());
    EXPECT_EQ(100u, table.Size());
    for (uint32_t i = 1; i <= 100; ++i) EXPECT_NE(nullptr, table.Find(i << 25 | 1, Is(i)));
    table.Reserve(101);
    EXPECT_EQ(bytes, table.Bytes());
}

// ---- Costs -------------------------------------------------------------------------------------

std::vector<Slot> RandomSlots(size_t count) {
    std::mt19937 random(14);
    std::vector<Slot> slots;
    while (slots.size() < count)
        slots.push_back({static_cast<uint32_t>(random() | 1), static_cast<uint32_t>(slots.size())});
    return slots;
}

constexpr size_t kCount = 5000;

TEST(HashTable, InsertingCostsTheSameInEveryTable) {
    ExpectFlat("inserted one by one", kCount, {8, 32}, [](size_t count) {
        Table table;
        for (const Slot& slot : RandomSlots(count)) Add(table, slot);
        return CostOfEach(table.Work(), table.Bytes(), count);
    });
    ExpectFlat("inserted where there is room", kCount, {4, 32}, [](size_t count) {
        Table table;
        table.Reserve(count);
        for (const Slot& slot : RandomSlots(count)) table.Insert(slot);
        return CostOfEach(table.Work(), table.Bytes(), count);
    });
}

TEST(HashTable, SearchingCostsTheSameInEveryTable) {
    for (const bool present : {true, false})
        ExpectFlat(present ? "found" : "not found", kCount, {present ? 3.0 : 5.0, 32},
                   [&](size_t count) {
                       Table table;
                       const std::vector<Slot> slots = RandomSlots(2 * count);
                       for (size_t i = 0; i < count; ++i) Add(table, slots[i]);
                       const uint64_t before = table.Work();
                       for (size_t i = 0; i < count; ++i) {
                           const Slot& slot = slots[present ? i : count + i];
                           EXPECT_EQ(present, table.Find(slot.hash, Is(slot.value)) != nullptr);
                       }
                       return CostOfEach(table.Work() - before, table.Bytes(), count);
                   });
}

/// As many go as come, for long: nothing gathers.
TEST(HashTable, ComingAndGoingCostsTheSameInEveryTable) {
    ExpectFlat("removed and inserted", kCount, {12, 32}, [](size_t count) {
        Table table;
        const std::vector<Slot> slots = RandomSlots(20 * count);
        for (size_t i = 0; i < count; ++i) Add(table, slots[i]);
        const uint64_t before = table.Work();
        for (size_t i = count; i < slots.size(); ++i) {
            Remove(table, slots[i - count]);
            Add(table, slots[i]);
        }
        const Cost cost = CostOfEach(table.Work() - before, 0, slots.size() - count);
        return Cost{cost.work, CostOfEach(0, table.Bytes(), count).bytes};
    });
}

TEST(HashTable, WhatMostSlotsLeftIsGivenBack) {
    ExpectFlat("removed", kCount, {8, 16 * sizeof(Slot)}, [](size_t count) {
        Table table;
        const std::vector<Slot> slots = RandomSlots(count);
        for (const Slot& slot : slots) Add(table, slot);
        const uint64_t before = table.Work();
        for (const Slot& slot : slots) {
            Remove(table, slot);
            table.Shrink();
            const size_t live = std::max<size_t>(2, table.Size() + 1);
            EXPECT_LE(table.Bytes(), 8 * live * sizeof(Slot)) << table.Size() << " of " << count;
        }
        return CostOfEach(table.Work() - before, table.Bytes(), count);
    });
}

}  // namespace
