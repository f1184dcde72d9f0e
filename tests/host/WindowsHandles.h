#pragma once

// Handles. Each stands for a file descriptor, so that an open file of the C runtime counts as one
// too.

#include "WindowsTypes.h"

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(~uintptr_t{0});

extern "C" {
BOOL CloseHandle(HANDLE handle);
BOOL GetHandleInformation(HANDLE handle, DWORD* flags);
}

namespace host {

/// A handle is, as on Windows, a multiple of 4 and never null.
inline HANDLE HandleOf(int descriptor) {
    return reinterpret_cast<HANDLE>((static_cast<uintptr_t>(descriptor) + 1) * 4);
}
inline int DescriptorOf(HANDLE handle) {
    return static_cast<int>(reinterpret_cast<uintptr_t>(handle) / 4) - 1;
}

}  // namespace host
