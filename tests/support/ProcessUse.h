#pragma once

#include <cstddef>

namespace support {

/// The memory that the process has committed for itself, and its open handles, counted one by one:
/// Wine answers nothing of use to GetProcessMemoryInfo and GetProcessHandleCount.
size_t PrivateBytes();
int HandleCount();

}  // namespace support
