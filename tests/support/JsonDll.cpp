#include "JsonDll.h"

#include <gtest/gtest.h>

namespace support {

std::wstring JsonDllName() {
    if (const wchar_t* const named = _wgetenv(L"JSON_TEST_DLL")) return named;
    wchar_t program[MAX_PATH + 1] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring name = program;
    return name.substr(0, name.find_last_of(L'\\') + 1) + L"Json_Dll.dll";
}

HMODULE JsonDll() {
    static const HMODULE module = LoadLibraryW(JsonDllName().c_str());
    return module;
}

Parser NewParser() { return Parser(Export<QXJSON::IJsonParser*()>("CreateJsonParser")()); }

Generator NewGenerator() {
    return Generator(Export<QXJSON::IJsonGenerator*()>("CreateJsonGenerator")());
}

Package NewPackage() {
    return Package(Export<QXJSON::IJsonPackage*()>("CreateJsonPackageInterface")());
}

Parser Loaded(const wchar_t* json) {
    Parser parser = NewParser();
    EXPECT_EQ(1, parser->LoadJsonString(json)) << "could not load the test's document";
    return parser;
}

}  // namespace support
