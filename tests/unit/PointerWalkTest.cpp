// JSON Pointers resolved in place, against RapidJSON's own.

#include "common/search/PointerWalk.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace QXJSON;

JsonDocument Parsed(const wchar_t* json) {
    JsonDocument document;
    document.Parse(json);
    EXPECT_FALSE(document.HasParseError());
    return document;
}

/// What RapidJSON's own pointer finds.
JsonValue* Reference(JsonDocument& document, const std::wstring& pointer) {
    const JsonPointer parsed(pointer.c_str(), pointer.size());
    return parsed.IsValid() ? parsed.Get(document) : nullptr;
}

TEST(PointerWalk, FindsWhatRapidJsonFinds) {
    JsonDocument document = Parsed(
        LR"({"":{"":1},"a":[10,[20,{"b":30}],40],"a/b":2,"m~n":3,"~1":4,
        "0":{"1":5},"01":6,"x":{"~":7,"/":8},"-":9,"a":0,"list":[1,2,3,4,5,6,7,8,9,10,11]})");
    const DocumentPool none;  // nothing here lies in it: small objects are scanned anyway
    MemberLookup members(none);
    const wchar_t* const pointers[] = {
        L"",
        L"/",
        L"//",
        L"/a",
        L"/a/0",
        L"/a/1/1/b",
        L"/a/3",
        L"/a/-",
        L"/a/-1",
        L"/a/00",
        L"/a/01",
        L"/a~1b",
        L"/a/b",
        L"/m~0n",
        L"/m~n",
        L"/~01",
        L"/~",
        L"/~2",
        L"/0/1",
        L"/01",
        L"/x/~0",
        L"/x/~1",
        L"/x/",
        L"/list/10",
        L"/list/9",
        L"/list/11",
        L"/list/",
        L"/list/+1",
        L"/list/ 1",
        L"/-",
        L"/a/0/0",
        L"/a/1/",
        L"/nobody",
        L"/nobody/0",
        L"/a/4294967296",
        L"/list/42949672961",
    };
    for (const wchar_t* pointer : pointers) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(pointer)));
        EXPECT_EQ(Reference(document, pointer), ResolvePointer(members, document, pointer));
    }
}

TEST(PointerWalk, FindsWhatRapidJsonFindsForRandomPointers) {
    JsonDocument document = Parsed(
        LR"({"a":[[0,1,2],{"a":1,"":2}],"":[{"0":1},[]],"~":{"/":{"~":1}},"1":{"0":[5,6]},"/":[7]})");
    constexpr wchar_t kAlphabet[] = L"///a01~~-";
    std::mt19937 random(20);
    const DocumentPool none;  // nothing here lies in it: small objects are scanned anyway
    MemberLookup members(none);
    int found = 0;
    for (int i = 0; i < 200'000; ++i) {
        std::wstring pointer;
        for (size_t length = random() % 8; pointer.size() < length;)
            pointer += kAlphabet[random() % (std::size(kAlphabet) - 1)];
        if (!pointer.empty()) pointer[0] = L'/';
        JsonValue* const expected = Reference(document, pointer);
        found += expected != nullptr;
        ASSERT_EQ(expected, ResolvePointer(members, document, pointer))
            << testing::PrintToString(pointer);
        ASSERT_EQ(JsonPointer(pointer.c_str(), pointer.size()).IsValid(), IsWellFormed(pointer));
    }
    EXPECT_GT(found, 10'000) << "the pointers are to hit as well as to miss";
}

}  // namespace
