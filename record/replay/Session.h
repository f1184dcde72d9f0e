#pragma once

#include "Calls.h"
#include "Library.h"

namespace replay {

/// What a replay needs: a log, its calls, and the build of the library to repeat them on.
struct Session {
    /// The library is that beside the program where no file is named.
    Session(const std::wstring& logName, const std::wstring& libraryName)
        : library(libraryName.empty() ? LibraryBeside() : libraryName), log(logName), calls(log) {}

    const Library library;
    const Log log;
    const Calls calls;
};

}  // namespace replay
