#include "WindowsModules.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>

HMODULE LoadLibraryW(const wchar_t* name) {
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    std::string file;
    while (*name) file += static_cast<char>(*name++);
    const auto module = (program.parent_path() / file).replace_extension(".so");
    if (std::filesystem::exists(module)) return dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
    return GetModuleHandleW(nullptr);
}

HMODULE GetModuleHandleW(const wchar_t*) { return dlopen(nullptr, RTLD_NOW); }

void* GetProcAddress(HMODULE module, const char* name) { return dlsym(module, name); }
