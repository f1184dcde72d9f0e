// Every operation with every one of its allocations failing, alone and with all that follow: a call
// that fails changes nothing and loses nothing, and the object goes on.

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "FailingAllocations.h"
#include "Specimen.h"

namespace {

using namespace support;

constexpr int kAllThatFollow = std::numeric_limits<int>::max();

class AllocationSweep : public testing::TestWithParam<std::tuple<SpecimenFamily, int>> {
protected:
    const SpecimenFamily& family = std::get<0>(GetParam());
    const int count = std::get<1>(GetParam());

    /// A call with the n-th allocation failing; whether there was one.
    bool Try(const Operation& operation, bool overwrites, int n, FailingAllocations& allocations) {
        const auto specimen = family.make();
        specimen->UseUpReserve();
        const Arguments arguments = specimen->Good(operation, overwrites);
        const std::wstring before = specimen->Seen();
        bool succeeded = false;
        allocations.Fail(n, count);
        try {
            succeeded = IsGood(operation, operation.call(specimen->Object(), arguments));
        } catch (...) {
            EXPECT_TRUE(operation.returnsBool) << "an exception reaches the caller";
        }
        const bool happened = allocations.Happened();
        allocations.Stop();
        EXPECT_TRUE(succeeded || happened);
        failures += succeeded ? 0 : 1;
        ExpectWhole(*specimen, operation, succeeded, before);
        return happened;
    }

    int failures = 0;
};

TEST_P(AllocationSweep, EveryAllocationOfEveryOperation) {
    NewGenerator();  // a thread's first object takes memory that stays with the thread
    FailingAllocations allocations;
    ForEachGoodCall(family, [&](const Operation& operation, bool overwrites) {
        bool happened = true;
        failures = 0;
        for (int n = 1; happened; ++n) {
            SCOPED_TRACE(operation.name + (overwrites ? ", overwriting" : "") + ", allocation " +
                         std::to_string(n));
            happened = Try(operation, overwrites, n, allocations);
            EXPECT_EQ(0, allocations.LiveBlocks()) << "memory is lost";
        }
        const bool adds = CanOverwrite(operation) || operation.asks == Asks::kStore;
        if (adds && !overwrites) {
            EXPECT_GT(failures, 0) << operation.name << " found room without allocating";
        }
    });
    EXPECT_TRUE(AreFilesClosed());
}

INSTANTIATE_TEST_SUITE_P(Families, AllocationSweep,
                         testing::Combine(testing::ValuesIn(kSpecimenFamilies),
                                          testing::Values(1, kAllThatFollow)),
                         [](const auto& test) {
                             const bool one = std::get<1>(test.param) == 1;
                             return std::get<0>(test.param).name +
                                    std::string(one ? "Alone" : "WithAllThatFollow");
                         });

}  // namespace
