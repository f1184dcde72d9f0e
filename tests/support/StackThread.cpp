#include "StackThread.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <windows.h>

#include <algorithm>

#include "common/platform/Compiler.h"

namespace support {
namespace {

/// No system gives a thread or fiber less than this, and Wine no more precisely than that.
constexpr size_t kLeast = 1024 * 1024;
/// What the caller of `work` needs itself.
constexpr size_t kOwn = 16 * 1024;

/// How much of the running stack lies below the caller. The information block of the thread counts,
/// which is that of the running fiber: the library's own way to know is among what is tested.
JSON_NEVER_INLINE size_t StackLeft() {
    const char here = 0;
    MEMORY_BASIC_INFORMATION region = {};
    VirtualQuery(&here, &region, sizeof region);
    return static_cast<size_t>(&here - static_cast<char*>(region.AllocationBase));
}

struct Task {
    const std::function<void()>& work;
    size_t bytes;
    void* caller;  ///< the fiber to return to
};

/// Uses up the stack but for what the task is to have, and does it there.
void RunAtTheEnd(const Task& task) {
    const size_t left = StackLeft();
    ASSERT_GT(left, task.bytes);
    volatile char* const used = static_cast<char*>(alloca(left - task.bytes));
    used[0] = 1;
    EXPECT_LE(StackLeft(), task.bytes);
    EXPECT_GT(StackLeft() + kOwn, task.bytes);
    task.work();
}

size_t SizeFor(size_t bytes) { return std::max(bytes + 2 * kOwn, kLeast); }

}  // namespace

void OnStackOf(size_t bytes, const std::function<void()>& work) {
    Task task = {work, bytes, nullptr};
    const auto run = [](void* context) -> DWORD {
        RunAtTheEnd(*static_cast<Task*>(context));
        return 0;
    };
    const HANDLE thread = CreateThread(nullptr, SizeFor(bytes), run, &task,
                                       STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    ASSERT_NE(nullptr, thread);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

void OnFiberOf(size_t bytes, const std::function<void()>& work) {
    Task task = {work, bytes, ConvertThreadToFiber(nullptr)};
    ASSERT_NE(nullptr, task.caller);
    const auto run = [](void* context) {
        const Task& given = *static_cast<Task*>(context);
        RunAtTheEnd(given);
        SwitchToFiber(given.caller);
    };
    void* const fiber = CreateFiberEx(kOwn, SizeFor(bytes), 0, run, &task);
    ASSERT_NE(nullptr, fiber);
    SwitchToFiber(fiber);
    DeleteFiber(fiber);
    ConvertFiberToThread();
}

}  // namespace support
