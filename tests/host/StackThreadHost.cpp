// Threads with small stacks, of the size that the host build's stand-in makes of what is asked for.
#include <gtest/gtest.h>
#include <windows.h>

#include "StackThread.h"

namespace support {

void OnStackOf(size_t bytes, const std::function<void()>& work) {
    const auto run = [](void* context) -> DWORD {
        (*static_cast<const std::function<void()>*>(context))();
        return 0;
    };
    void* const context = const_cast<std::function<void()>*>(&work);
    const HANDLE thread =
        CreateThread(nullptr, bytes, run, context, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    ASSERT_NE(nullptr, thread);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

}  // namespace support
