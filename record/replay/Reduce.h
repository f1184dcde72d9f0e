#pragma once

#include "Player.h"

namespace replay {

/// How much may be repeated to find what is needed: so many times some of the calls, and no further
/// time after so many calls.
struct Effort {
    unsigned times;
    uint64_t calls;
};

/// The calls that are needed to see a difference, as few as can be found.
class Reduction {
public:
    Reduction(const Session& session, Difference difference);

    /// The outer calls, the last of which shows the difference.
    std::vector<uint32_t> Find(Effort effort);

private:
    bool IsExhausted() const { return left.times == 0 || left.calls == 0; }
    bool Shows(const std::vector<uint32_t>& wanted);
    std::vector<uint32_t> Related(bool sinceRenewal) const;
    void Shorten(std::vector<uint32_t>& wanted);

    const Session& session;
    const Calls& calls;
    const Difference difference;
    uint32_t last = 0;  ///< the outer call that the difference is in
    Effort left = {};
};

}  // namespace replay
