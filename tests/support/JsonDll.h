#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "IJsonGenerator.h"
#include "IJsonPackage.h"
#include "IJsonParser.h"

namespace support {

/// The file of the DLL under test: the one that the environment variable JSON_TEST_DLL names, or
/// Json_Dll.dll in the test program's folder.
std::wstring JsonDllName();

/// The module handle of the DLL under test, loaded as the runtime does.
HMODULE JsonDll();

/// An export of the DLL, by its name and its type.
template <class Function>
Function* Export(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(JsonDll(), name)));
}

/// Ends an object of the DLL through its interface.
struct Releaser {
    template <class Interface>
    void operator()(Interface* object) const {
        object->Release();
    }
};

using Parser = std::unique_ptr<QXJSON::IJsonParser, Releaser>;

using Generator = std::unique_ptr<QXJSON::IJsonGenerator, Releaser>;
using Package = std::unique_ptr<QXJSON::IJsonPackage, Releaser>;

/// New objects from the DLL's factories.
Parser NewParser();
Generator NewGenerator();
Package NewPackage();

/// A new parser that has loaded `json`; the test fails when the load does.
Parser Loaded(const wchar_t* json);

}  // namespace support
