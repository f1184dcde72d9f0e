#include "Library.h"

#include <vector>

#include "Failure.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

/// The file name of a loaded module, however long it is.
std::wstring FileNameOf(HMODULE module) {
    std::wstring name(MAX_PATH, 0);
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) return name.substr(0, length);
        name.resize(2 * name.size());
    }
}

/// The library beside this program, and no other that the system would find first.
std::wstring LibraryName() {
    const std::wstring program = FileNameOf(nullptr);
    return program.substr(0, program.find_last_of(L"\\/") + 1) + L"Json_Dll.dll";
}

const Library& TheLibrary() {
    static const Library library(LibraryName().c_str());
    if (!library) throw Misuse{LibraryName() + L" was not found, or is not that library"};
    return library;
}

}  // namespace

Parser NewParser() { return TheLibrary().NewParser().Get(); }
Generator NewGenerator() { return TheLibrary().NewGenerator().Get(); }
Package NewPackage() { return TheLibrary().NewPackage().Get(); }

std::wstring LibraryVersion() {
    const std::wstring file = FileNameOf(TheLibrary().Module());
    std::vector<uint8_t> data(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    void* found = nullptr;
    UINT size = 0;
    if (data.empty() ||
        !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !VerQueryValueW(data.data(), L"\\", &found, &size))
        return L"of an unknown version";
    const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return std::to_wstring(HIWORD(version.dwFileVersionMS)) + L"." +
           std::to_wstring(LOWORD(version.dwFileVersionMS)) + L"." +
           std::to_wstring(HIWORD(version.dwFileVersionLS));
}

}  // namespace tool
