//! [read a list]
#include <windows.h>

#include "Json_Dll.h"

int32_t SecondOfList() {
    const HMODULE library = LoadLibraryW(L"Json_Dll.dll");
    if (!library) return 0;  // not beside the program
    void* const factory = reinterpret_cast<void*>(GetProcAddress(library, "CreateJsonParser"));
    auto* const create = reinterpret_cast<decltype(&CreateJsonParser)>(factory);
    QXJSON::IJsonParser* const parser = create ? create() : nullptr;
    if (!parser) return 0;  // another DLL of that name, or no memory

    int32_t second = 0;
    if (parser->LoadJsonString(L"{\"list\":[10,20]}") != QXJSON::kSuccess ||
        parser->GetItemIntByPath(L"/list/2", &second) != QXJSON::kSuccess)
        second = 0;  // item paths count from 1, so it should be 20
    parser->Release();
    return second;
}

//! [read a list]

// Above: the README's own lines.
#include <gtest/gtest.h>

TEST(Readme, SecondOfList) { EXPECT_EQ(20, SecondOfList()); }
