//! [read a list]
#include <windows.h>

#include "Json_Dll.h"

int32_t SecondOfList() {
    const HMODULE library = LoadLibraryW(L"Json_Dll.dll");
    void* const factory = reinterpret_cast<void*>(GetProcAddress(library, "CreateJsonParser"));
    auto* const create = reinterpret_cast<decltype(&CreateJsonParser)>(factory);

    int32_t second = 0;
    QXJSON::IJsonParser* parser = create();
    if (parser->LoadJsonString(L"{\"list\":[10,20]}") == 1)
        parser->GetItemIntByPath(L"/list/2", &second);  // 20: item paths count from 1
    parser->Release();
    return second;
}

//! [read a list]

// Above: the README's own lines.
#include <gtest/gtest.h>

TEST(Readme, SecondOfList) { EXPECT_EQ(20, SecondOfList()); }
