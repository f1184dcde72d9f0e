#pragma once

#include <cstddef>

namespace support {

/// The memory that the process has committed for itself, and its open handles, counted one by one:
/// Wine's GetProcessMemoryInfo and GetProcessHandleCount return nothing of use.
size_t PrivateBytes();
int HandleCount();

}  // namespace support
