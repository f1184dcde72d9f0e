#include "OutputExhaustion.h"

#include <gtest/gtest.h>

#include "FailingAllocations.h"
#include "JsonDll.h"

namespace support {

void PrepareForExhaustion() {
    FailingAllocations allocations;
    const Generator generator = NewGenerator();
    int failures = 0;
    bool happened = true;
    for (int n = 1; happened; ++n) {
        uint32_t root = 0;
        constexpr int kObjectAndException = 2;
        allocations.Fail(n, kObjectAndException);
        if (generator->LoadJsonString(L"[\"some text\"]", &root) == -5) ++failures;
        happened = allocations.Happened();
        allocations.Stop();
    }
    EXPECT_GT(failures, 0) << "no exception was thrown";
}

}  // namespace support
