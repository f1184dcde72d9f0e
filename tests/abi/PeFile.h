#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace pe {

/// A DLL or program file of 64-bit Windows, read as bytes and never executed.
class PeFile {
public:
    /// Reads a file; an unreadable one has no headers.
    explicit PeFile(const std::wstring& name);

    /// The headers, or null when this is no 64-bit file of the format.
    const IMAGE_NT_HEADERS64* Headers() const;
    /// The names that the file exports, in the order of its table.
    std::vector<std::string> Exports() const;
    /// The names of the modules that it imports from, in lower case.
    std::vector<std::string> Imports() const;
    /// The address, relative to the image, of the symbol of that name; 0 without such a symbol.
    DWORD Symbol(const std::string& name) const;
    /// Whether it has the data directory (IMAGE_DIRECTORY_ENTRY_...) of a number.
    bool Has(int directory) const;

private:
    template <class T>
    const T* At(DWORD address) const;
    DWORD DirectoryAddress(int directory) const;

    std::vector<char> bytes;
};

}  // namespace pe
