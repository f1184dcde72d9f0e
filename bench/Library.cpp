#include "Library.h"

#include <windows.h>

#include <stdexcept>
#include <string>

namespace host {
namespace {

/// A new object from one of the library's factories.
template <class Interface>
std::unique_ptr<Interface, Releaser> Create(const char* factory) {
    static const HMODULE library = LoadLibraryW(L"Json_Dll.dll");
    if (!library) throw std::runtime_error("Json_Dll.dll was not found beside the program");
    const FARPROC found = GetProcAddress(library, factory);
    if (!found) throw std::runtime_error(std::string("Json_Dll.dll has no ") + factory);
    auto* const create = reinterpret_cast<Interface* (*)()>(reinterpret_cast<void*>(found));
    std::unique_ptr<Interface, Releaser> object(create());
    if (!object) throw std::runtime_error("no memory");
    return object;
}

}  // namespace

Parser NewParser() { return Create<QXJSON::IJsonParser>("CreateJsonParser"); }
Generator NewGenerator() { return Create<QXJSON::IJsonGenerator>("CreateJsonGenerator"); }
Package NewPackage() { return Create<QXJSON::IJsonPackage>("CreateJsonPackageInterface"); }

void Expect(int result, const char* step) {
    if (result != 1)
        throw std::runtime_error(std::string(step) + " answered " + std::to_string(result));
}

}  // namespace host
