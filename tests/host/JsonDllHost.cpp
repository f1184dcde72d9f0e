// The factories of the objects that are linked in.
#include <gtest/gtest.h>

#include "JsonDll.h"
#include "Json_Dll.h"

namespace support {

HMODULE JsonDll() {
    static const HMODULE program = GetModuleHandleW(nullptr);
    return program;
}

Parser NewParser() { return Parser(CreateJsonParser()); }
Generator NewGenerator() { return Generator(CreateJsonGenerator()); }
Package NewPackage() { return Package(CreateJsonPackageInterface()); }

Parser Loaded(const wchar_t* json) {
    Parser parser = NewParser();
    EXPECT_EQ(1, parser->LoadJsonString(json)) << "could not load the test's document";
    return parser;
}

}  // namespace support
