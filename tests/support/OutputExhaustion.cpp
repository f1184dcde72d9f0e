#include "OutputExhaustion.h"

#include <gtest/gtest.h>

#include <string>

#include "FailingAllocations.h"
#include "JsonDll.h"

namespace support {

void PrepareForExhaustion() {
    FailingAllocations allocations;
    const Generator generator = NewGenerator();
    // Small documents may take no memory at all.
    const std::wstring large = L"[\"" + std::wstring(100'000, L'x') + L"\"]";
    int failures = 0;
    bool happened = true;
    for (int n = 1; happened; ++n) {
        uint32_t root = 0;
        constexpr int kObjectAndException = 2;
        allocations.Fail(n, kObjectAndException);
        if (generator->LoadJsonString(large.c_str(), &root) == -5) ++failures;
        happened = allocations.Happened();
        allocations.Stop();
    }
    EXPECT_GT(failures, 0) << "no exception was thrown";
}

}  // namespace support
