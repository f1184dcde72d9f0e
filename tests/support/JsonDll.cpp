#include "JsonDll.h"

#include <gtest/gtest.h>

namespace support {

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
