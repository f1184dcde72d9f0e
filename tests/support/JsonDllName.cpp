#include <cstdlib>

#include "JsonDll.h"

namespace support {

std::wstring JsonDllName() {
    if (const wchar_t* const named = _wgetenv(L"JSON_TEST_DLL")) return named;
    wchar_t program[MAX_PATH + 1] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring name = program;
    return name.substr(0, name.find_last_of(L'\\') + 1) + L"Json_Dll.dll";
}

}  // namespace support
