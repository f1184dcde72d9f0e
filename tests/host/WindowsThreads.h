#pragma once

// The process, its threads and events.

#include "WindowsTypes.h"

constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_TIMEOUT = 258;
constexpr DWORD STACK_SIZE_PARAM_IS_A_RESERVATION = 0x10000;

using LPTHREAD_START_ROUTINE = DWORD (*)(void*);

extern "C" {
DWORD GetCurrentProcessId();
HANDLE GetCurrentProcess();
[[noreturn]] void TerminateProcess(HANDLE process, UINT code);
void Sleep(DWORD milliseconds);

/// The stack is larger than what is asked for, as the frames of an instrumented program are.
HANDLE CreateThread(void* security, SIZE_T stackSize, LPTHREAD_START_ROUTINE start, void* context,
                    DWORD flags, DWORD* id);
/// Of a thread that was waited for.
BOOL GetExitCodeThread(HANDLE thread, DWORD* code);
void GetCurrentThreadStackLimits(ULONG_PTR* low, ULONG_PTR* high);

HANDLE CreateEventW(void* security, BOOL manual, BOOL set, const wchar_t* name);
/// For events, which stay set, and for threads, whose end is waited for at any rate.
DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds);
}

namespace host {

/// Lets a thread whose handle is closed run on alone.
void ForgetThread(HANDLE handle);

}  // namespace host
