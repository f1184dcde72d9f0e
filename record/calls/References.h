#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

namespace record {

/// What a log calls a value: references are addresses, which differ from run to run.
struct Reference {
    uint32_t object;  ///< the object that returned it; 0 where it is unknown
    uint32_t number;  ///< from 1 for each object, in the order in which values were first returned
};

/// The references that an object has returned. Several threads may use it at a time, because hosts
/// may break the rule that an object belongs to one.
class References {
public:
    explicit References(uint32_t object);
    ~References();
    References(const References&) = delete;
    References& operator=(const References&) = delete;

    /// What a reference is that the object returns.
    Reference Named(uint64_t address) { return {object, NumberOf(address)}; }
    /// Forgets all: a new document may be at the old addresses.
    void Renew();
    /// What a reference is that a host passes to the object: one of its own, or of another object.
    Reference Find(uint64_t address);

private:
    struct Entry {
        uint64_t address;  ///< 0: empty
        uint32_t number;
        uint32_t life;
    };

    uint32_t NumberOf(uint64_t address);
    Entry* PlaceOf(uint64_t address);
    bool Grow();
    uint32_t FindOwn(uint64_t address);

    const uint32_t object;
    uint32_t last = 0;
    uint32_t life = 0;
    size_t used = 0;
    std::vector<Entry> entries;
    std::atomic_flag busy = ATOMIC_FLAG_INIT;
    References* previous;
    References* next;
};

}  // namespace record
