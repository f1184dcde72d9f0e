#pragma once

#include "Player.h"

namespace replay {

/// The calls that are needed to see a difference, as few as can be found.
class Reduction {
public:
    Reduction(const Session& session, Difference difference);

    /// The outer calls, the last of which shows the difference. `trials`: how often the log may be
    /// repeated for it.
    std::vector<uint32_t> Find(unsigned trials);

private:
    bool Shows(const std::vector<uint32_t>& wanted);
    std::vector<uint32_t> Related(bool sinceRenewal) const;
    void Shorten(std::vector<uint32_t>& wanted);

    const Session& session;
    const Calls& calls;
    const Difference difference;
    uint32_t last = 0;  ///< the outer call that the difference is in
    unsigned left = 0;
};

}  // namespace replay
