// Item paths at work.

#include "CatchFault.h"
#include "Host.h"

namespace snippets {
namespace {

TEST_F(Parsing, ItemPaths) {
    int32_t n = 0;
    //! [paths]
    const wchar_t* const json =
        L"{\"list\":[10,20,[30]],\"1\":40,\"a1\":50,\"x/y\":60,\"a~b\":70,\"o\":{\"\":80}}";
    parser->LoadJsonString(json);
    parser->GetItemIntByPath(L"/list/1", &n);    // 10: the first element
    parser->GetItemIntByPath(L"/list/3/1", &n);  // 30: an element of an element
    parser->GetItemIntByPath(L"/1", &n);         // 40: the root is not an array, so "1" is a key
    parser->GetItemIntByPath(L"/a1", &n);        // 50: a digit inside a key
    parser->GetItemIntByPath(L"/x~/y", &n);      // 60: the key x/y
    parser->GetItemIntByPath(L"/a~0b", &n);      // 70: the key a~b
    parser->GetItemIntByPath(L"/o/", &n);        // 80: the empty key
    //! [paths]
    struct Row {
        const wchar_t* path;
        int32_t number;
    };
    const Row rows[] = {{L"/list/1", 10}, {L"/list/3/1", 30}, {L"/1", 40}, {L"/a1", 50},
                        {L"/x~/y", 60},   {L"/a~0b", 70},     {L"/o/", 80}};
    for (const Row& row : rows) {
        EXPECT_EQ(1, parser->GetItemIntByPath(row.path, &n)) << testing::PrintToString(row.path);
        EXPECT_EQ(row.number, n) << testing::PrintToString(row.path);
    }
}

TEST_F(Parsing, PathsThatFail) {
    int32_t n = 0;
    //! [paths that fail]
    parser->LoadJsonString(L"{\"list\":[10,20],\"a~b\":1}");
    const int results[] = {
        parser->GetItemIntByPath(L"", &n),            // -10: no leading "/"
        parser->GetItemIntByPath(L"/LIST/1", &n),     // -5: no "LIST", and a digit below it
        parser->GetItemIntByPath(L"/list/0", &n),     // -10: positions count from 1
        parser->GetItemIntByPath(L"/list/3", &n),     // -10: past the end
        parser->GetItemIntByPath(L"/list/one", &n),   // -10: not a position
        parser->GetItemIntByPath(L"/missing", &n),    // -10: nothing there
        parser->GetItemIntByPath(L"/missing/x", &n),  // -10: nothing there; no digit below it
        parser->GetItemIntByPath(L"/missing/1", &n),  // -5: a digit below a missing parent
        parser->GetItemIntByPath(L"/a~b", &n),        // -10: a lone "~" is malformed
        parser->GetItemIntByPath(L"/list", &n),       // -3: the path is good, the kind is wrong
    };
    //! [paths that fail]
    const int expected[] = {-10, -5, -10, -10, -10, -10, -10, -5, -10, -3};
    for (size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(expected[i], results[i]) << i;
}

TEST_F(Parsing, ExistenceLetsFaultsOut) {
    Load(L"{}");
    EXPECT_EQ(DWORD{EXCEPTION_ACCESS_VIOLATION},
              support::CatchFault([&] { parser->ExistsItemByPath(L"/missing/1"); }));
    //! [exists step by step]
    const bool there = parser->ExistsItemByPath(L"/crew") && parser->ExistsItemByPath(L"/crew/1");
    //! [exists step by step]
    EXPECT_FALSE(there);
}

TEST_F(Generating, KeysThatLookLikePaths) {
    //! [keys that look like paths]
    uint32_t root = 0, odd = 0, item = 0;
    generator->CreateRootObject(&root);
    generator->AddObjectItemObject(1, L"x/y", &odd);  // a member "x/y", and a handle
    const int below = generator->AddObjectItemInt(static_cast<int32_t>(odd), L"n", 1, &item);  // -2
    const int byPath = generator->AddObjectItemIntByPath(L"/x~/y", L"n", 1, &item);            // 1
    //! [keys that look like paths]
    EXPECT_EQ(-2, below);
    EXPECT_EQ(1, byPath);
    EXPECT_EQ(LR"({"x/y":{"n":1}})", Json());
}

}  // namespace
}  // namespace snippets
