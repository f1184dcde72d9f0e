#include "ProcessUse.h"

#include <gtest/gtest.h>
#include <psapi.h>

namespace support {
namespace {

constexpr SIZE_T kSmallStack = 256 * 1024;

DWORD WINAPI Run(void* work) {
    (*static_cast<const std::function<void()>*>(work))();
    return 0;
}

}  // namespace

size_t PrivateBytes() {
    PROCESS_MEMORY_COUNTERS_EX counters = {};
    EXPECT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(),
                                     reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                                     sizeof counters));
    return counters.PrivateUsage;
}

DWORD HandleCount() {
    DWORD count = 0;
    EXPECT_TRUE(GetProcessHandleCount(GetCurrentProcess(), &count));
    return count;
}

void OnSmallStack(const std::function<void()>& work) {
    void* context = const_cast<std::function<void()>*>(&work);
    HANDLE thread = CreateThread(nullptr, kSmallStack, &Run, context,
                                 STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    ASSERT_NE(nullptr, thread);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

}  // namespace support
