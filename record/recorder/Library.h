#pragma once

#include <windows.h>

#include "Settings.h"

namespace record {

/// The library whose use is recorded. It stays in memory until the process ends, because nothing
/// may be freed while a module is unloaded.
struct RealLibrary {
    HMODULE module;

    /// A factory; null where there is no library.
    template <class Interface>
    auto Factory(const char* name) const {
        return reinterpret_cast<Interface* (*)()>(
            reinterpret_cast<void*>(module ? GetProcAddress(module, name) : nullptr));
    }
};

/// Loads the library and creates the log on the first call. Where there is no log, nothing is
/// recorded.
const RealLibrary& TheLibrary();

/// Reports to a debugger.
void Complain(const std::wstring& message);

}  // namespace record
