#include "Library.h"

#include "Failure.h"
#include "Json_Dll.h"

namespace replay {
namespace {

template <class Interface>
void* New(HMODULE module, const char* factory) {
    const auto create = reinterpret_cast<Interface* (*)()>(
        reinterpret_cast<void*>(GetProcAddress(module, factory)));
    return create ? create() : nullptr;
}

}  // namespace

Library::Library(const std::wstring& file) {
    std::wstring full(GetFullPathNameW(file.c_str(), 0, nullptr, nullptr), 0);
    full.resize(
        GetFullPathNameW(file.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    module = LoadLibraryW(full.c_str());
    if (!module || !GetProcAddress(module, "CreateJsonPackageInterface"))
        throw tool::Misuse{file + L" was not found, or is not that library"};
}

Library::~Library() { FreeLibrary(module); }

void* Library::Create(record::Interface interface) const {
    switch (interface) {
        case record::Interface::kParser:
            return New<QXJSON::IJsonParser>(module, "CreateJsonParser");
        case record::Interface::kGenerator:
            return New<QXJSON::IJsonGenerator>(module, "CreateJsonGenerator");
        case record::Interface::kPackage:
            return New<QXJSON::IJsonPackage>(module, "CreateJsonPackageInterface");
        default:
            return nullptr;
    }
}

void Release(record::Interface interface, void* object) {
    switch (interface) {
        case record::Interface::kParser:
            static_cast<QXJSON::IJsonParser*>(object)->Release();
            break;
        case record::Interface::kGenerator:
            static_cast<QXJSON::IJsonGenerator*>(object)->Release();
            break;
        case record::Interface::kPackage:
            static_cast<QXJSON::IJsonPackage*>(object)->Release();
            break;
        default:
            break;
    }
}

std::wstring LibraryBeside() {
    std::wstring name(MAX_PATH, 0);
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()))) ==
           name.size())
        name.resize(2 * name.size());
    name.resize(length);
    return name.substr(0, name.find_last_of(L"\\/") + 1) + L"Json_Dll.dll";
}

}  // namespace replay
