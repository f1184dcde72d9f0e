// Makes libFuzzer keep an input for which an expectation fails: as for a crash, the process ends.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/SpotChecks.h"

const bool fuzz::kMakesAllChecks = false;

namespace {

class EndAtFirstFailure final : public testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed()) std::abort();
    }
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    testing::InitGoogleTest();
    testing::UnitTest::GetInstance()->listeners().Append(new EndAtFirstFailure);
    return 0;
}
