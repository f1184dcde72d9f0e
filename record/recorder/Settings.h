#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace record {

/// What the recorder is asked to do: by Json_Dll_Record.ini beside it, and by environment
/// variables, which count first.
struct Settings {
    std::wstring library;  ///< the real library's file
    std::wstring log;
    uint64_t limit;      ///< of the log, in bytes
    uint64_t fileLimit;  ///< of the content of a file, in bytes
    bool hashed;         ///< texts as hashes alone
};

Settings ReadSettings(HMODULE recorder);

}  // namespace record
