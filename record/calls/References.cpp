#include "References.h"

#include <algorithm>
#include <new>

#include "Memory.h"

namespace record {
namespace {

/// All that live, for the references that a host passes to another object.
SRWLOCK g_lock = SRWLOCK_INIT;
References* g_first = nullptr;

/// Holds a flag for a few instructions.
class Held {
public:
    explicit Held(std::atomic_flag& flag) : flag(flag) {
        while (flag.test_and_set(std::memory_order_acquire)) YieldProcessor();
    }
    ~Held() { flag.clear(std::memory_order_release); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    std::atomic_flag& flag;
};

size_t HashOf(uint64_t address) { return (address * 0x9E3779B97F4A7C15u) >> 20; }

}  // namespace

References::References(uint32_t object) : object(object), previous(nullptr) {
    const Lock lock(g_lock);
    next = g_first;
    if (next) next->previous = this;
    g_first = this;
}

References::~References() {
    const Lock lock(g_lock);
    (previous ? previous->next : g_first) = next;
    if (next) next->previous = previous;
}

References::Entry* References::PlaceOf(uint64_t address) {
    const size_t mask = entries.size() - 1;
    size_t at = HashOf(address) & mask;
    while (entries[at].address != 0 && entries[at].address != address) at = (at + 1) & mask;
    return &entries[at];
}

/// Makes room for another entry; those of documents that ended are dropped on the way.
bool References::Grow() {
    if (2 * used < entries.size()) return true;
    const auto lives = [this](const Entry& entry) {
        return entry.address != 0 && entry.life == life;
    };
    const auto living = static_cast<size_t>(std::count_if(entries.begin(), entries.end(), lives));
    size_t size = 16;
    while (size < 4 * (living + 1)) size *= 2;
    try {
        std::vector<Entry> old(size);
        old.swap(entries);
        for (const Entry& entry : old)
            if (lives(entry)) *PlaceOf(entry.address) = entry;
        used = living;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

uint32_t References::NumberOf(uint64_t address) {
    const Held held(busy);
    if (address == 0 || !Grow()) return ++last;
    Entry* const entry = PlaceOf(address);
    if (entry->address == address && entry->life == life) return entry->number;
    if (entry->address == 0) ++used;
    *entry = {address, ++last, life};
    return last;
}

void References::Renew() {
    const Held held(busy);
    ++life;
}

uint32_t References::FindOwn(uint64_t address) {
    const Held held(busy);
    if (entries.empty()) return 0;
    const Entry* const entry = PlaceOf(address);
    return entry->address == address && entry->life == life ? entry->number : 0;
}

Reference References::Find(uint64_t address) {
    if (address == 0) return {0, 0};
    if (const uint32_t number = FindOwn(address)) return {object, number};
    const Lock lock(g_lock);
    for (References* other = g_first; other; other = other->next)
        if (const uint32_t number = other->FindOwn(address)) return {other->object, number};
    return {0, 0};
}

}  // namespace record
