#include "WindowsThreads.h"

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>

#include "WindowsHandles.h"

namespace {

constexpr SIZE_T kOrdinaryStack = 1024 * 1024;
/// How many times as large the frames of an instrumented program are.
constexpr SIZE_T kFrameGrowth = 4;

struct Thread {
    LPTHREAD_START_ROUTINE start;
    void* context;
    pthread_t id = {};
    bool joined = false;
    DWORD code = 0;  ///< for the one who joined it
};
using SharedThread = std::shared_ptr<Thread>;

/// The threads with an open handle, by its descriptor: an event that nobody waits for.
std::map<int, SharedThread> threads;
std::mutex threadsMutex;

SharedThread FindThread(HANDLE handle) {
    const std::lock_guard lock(threadsMutex);
    const auto thread = threads.find(host::DescriptorOf(handle));
    return thread != threads.end() ? thread->second : nullptr;
}

void* Run(void* parameter) {
    const std::unique_ptr<SharedThread> owner(static_cast<SharedThread*>(parameter));
    Thread& thread = **owner;
    thread.code = thread.start(thread.context);
    return nullptr;
}

bool Start(SIZE_T stackSize, const SharedThread& thread) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, (stackSize ? stackSize : kOrdinaryStack) * kFrameGrowth);
    auto owner = std::make_unique<SharedThread>(thread);
    const bool started = pthread_create(&thread->id, &attributes, &Run, owner.get()) == 0;
    if (started) static_cast<void>(owner.release());
    pthread_attr_destroy(&attributes);
    return started;
}

struct Limits {
    ULONG_PTR low = 0;
    ULONG_PTR high = 0;
};

Limits FindLimits() {
    pthread_attr_t attributes;
    void* low = nullptr;
    size_t size = 0;
    pthread_getattr_np(pthread_self(), &attributes);
    pthread_attr_getstack(&attributes, &low, &size);
    pthread_attr_destroy(&attributes);
#if __has_feature(thread_sanitizer)
    // ThreadSanitizer notes no more than 65536 calls that have not returned, and checks nothing.
    const size_t used = std::min<size_t>(size, 2 * 1024 * 1024);
#else
    const size_t used = size;
#endif
    const ULONG_PTR high = reinterpret_cast<ULONG_PTR>(low) + size;
    return {high - used, high};
}

}  // namespace

DWORD GetCurrentProcessId() { return static_cast<DWORD>(getpid()); }
HANDLE GetCurrentProcess() { return nullptr; }
void TerminateProcess(HANDLE, UINT code) { _exit(static_cast<int>(code)); }
void Sleep(DWORD milliseconds) { usleep(milliseconds * 1000); }

HANDLE CreateThread(void*, SIZE_T stackSize, LPTHREAD_START_ROUTINE start, void* context, DWORD,
                    DWORD*) {
    const auto thread = std::make_shared<Thread>();
    thread->start = start;
    thread->context = context;
    if (!Start(stackSize, thread)) return nullptr;
    const int descriptor = eventfd(0, EFD_CLOEXEC);
    const std::lock_guard lock(threadsMutex);
    threads[descriptor] = thread;
    return host::HandleOf(descriptor);
}

BOOL GetExitCodeThread(HANDLE handle, DWORD* code) {
    const SharedThread thread = FindThread(handle);
    if (!thread || !thread->joined) return FALSE;
    *code = thread->code;
    return TRUE;
}

void host::ForgetThread(HANDLE handle) {
    const SharedThread thread = FindThread(handle);
    if (!thread) return;
    if (!thread->joined) pthread_detach(thread->id);
    const std::lock_guard lock(threadsMutex);
    threads.erase(host::DescriptorOf(handle));
}

void GetCurrentThreadStackLimits(ULONG_PTR* low, ULONG_PTR* high) {
    thread_local const Limits limits = FindLimits();
    *low = limits.low;
    *high = limits.high;
}

HANDLE CreateEventW(void*, BOOL, BOOL set, const wchar_t*) {
    return host::HandleOf(eventfd(set ? 1 : 0, EFD_CLOEXEC));
}

DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds) {
    if (const SharedThread thread = FindThread(object)) {
        if (!thread->joined) thread->joined = pthread_join(thread->id, nullptr) == 0;
        return WAIT_OBJECT_0;
    }
    pollfd wait = {host::DescriptorOf(object), POLLIN, 0};
    const int timeout = milliseconds == INFINITE ? -1 : static_cast<int>(milliseconds);
    return poll(&wait, 1, timeout) == 1 ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}
