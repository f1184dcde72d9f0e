#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Whether every run makes all checks. ReplayMain.cpp, whose runs are few, says yes; FuzzMain.cpp,
/// for the search, says no.
extern const bool kMakesAllChecks;

/// Decides at which points a search makes a check that takes long. The decisions depend on the
/// input, so that a finding is found again, but are no choices, so that inputs keep their meaning.
class SpotChecks {
public:
    SpotChecks(const uint8_t* bytes, size_t count) {
        for (size_t i = 0; i < count; ++i) Stir(bytes[i]);
    }

    /// Whether a check is due that is made once in so many times.
    bool IsDue(uint32_t times) {
        Stir(0);
        return kMakesAllChecks || (state >> 16) % times == 0;
    }

private:
    void Stir(uint8_t byte) { state = (state ^ byte) * 1664525 + 1013904223; }

    uint32_t state = 0;
};

}  // namespace fuzz
