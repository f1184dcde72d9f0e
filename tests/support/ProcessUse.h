#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>

namespace support {

/// The memory that the process has committed for itself.
size_t PrivateBytes();

/// The open handles of the process.
DWORD HandleCount();

/// Runs `work` on a new thread with a stack of 256 KiB and waits for its end.
void OnSmallStack(const std::function<void()>& work);

}  // namespace support
