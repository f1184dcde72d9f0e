#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

namespace support {

/// What something costs for each operation or for each element: steps of work, and bytes held.
struct Cost {
    double work;
    double bytes;
};

/// The cost of one of `count` that cost so much together.
inline Cost CostOfEach(uint64_t work, size_t bytes, size_t count) {
    const auto all = static_cast<double>(count);
    return {static_cast<double>(work) / all, static_cast<double>(bytes) / all};
}

/// Expects that one of four times as many costs what one of `count` does, and neither more than
/// `most`. `measure` returns the cost for a count. What doubles its memory as it grows may hold
/// twice as much for each element at one count as at another, and not more.
template <class Measure>
void ExpectFlat(const char* what, size_t count, const Cost& most, Measure&& measure) {
    constexpr double kSameCost = 2.2;
    const Cost few = measure(count);
    const Cost many = measure(4 * count);
    EXPECT_LE(many.work, kSameCost * few.work) << what << ": work, from " << few.work;
    EXPECT_LE(many.bytes, kSameCost * few.bytes) << what << ": bytes, from " << few.bytes;
    for (const Cost& cost : {few, many}) {
        EXPECT_LE(cost.work, most.work) << what << ": work";
        EXPECT_LE(cost.bytes, most.bytes) << what << ": bytes";
    }
}

}  // namespace support
