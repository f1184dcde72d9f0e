#pragma once

#include <windows.h>

#include <string>

#include "log/Format.h"

namespace replay {

/// A build of the library.
class Library {
public:
    /// Throws Misuse where there is none.
    explicit Library(const std::wstring& file);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// A new object; null without memory.
    void* Create(record::Interface interface) const;

private:
    HMODULE module;
};

/// Ends an object.
void Release(record::Interface interface, void* object);

/// The library beside this program.
std::wstring LibraryBeside();

}  // namespace replay
