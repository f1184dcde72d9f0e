#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>

namespace support {

/// The memory that the process has committed for itself, and its open handles, counted one by one:
/// Wine answers nothing of use to GetProcessMemoryInfo and GetProcessHandleCount.
size_t PrivateBytes();
int HandleCount();

/// Runs `work` on a new thread with a stack of 256 KiB and waits for its end.
void OnSmallStack(const std::function<void()>& work);

}  // namespace support
