// Setting keys to JSON: through SetValue and through each export of a delegate.

#include <gtest/gtest.h>

#include "PackageDelegate.h"
#include "PackageReference.h"
#include "PackageState.h"

namespace {

using support::JsonRoute;
using support::JsonRoutes;
using support::LoadedPackage;
using support::NewPackage;
using support::Package;
using support::PackageState;
using support::PackageStateOf;
using support::PackageText;

std::wstring Stored(const wchar_t* before, const std::wstring& value, const wchar_t* after) {
    return before + value + after;
}

struct Accepted {
    std::wstring json;
    const wchar_t* stored;
};

const Accepted kAccepted[] = {
    {L"{}", L"{}"},
    {L"[]", L"[]"},
    {L" \t\r\n[ 1 , 2 ]\r\n ", L"[1,2]"},
    {L"{ \"b\" : { \"c\" : [ ] } , \"a\" : null }", L"{\"b\":{\"c\":[]},\"a\":null}"},
    {L"{\"k\":1,\"K\":2,\"k\":3}", L"{\"k\":1,\"K\":2,\"k\":3}"},
    {L"[1.0,-0.0,1e3,18446744073709551615,1.50e300]",
     L"[1.0,-0.0,1000.0,18446744073709551615,1.5e300]"},
    {L"[\"\\u00e9\xE9\x20AC\\uD834\\uDD1E\"]", L"[\"\xE9\xE9\x20AC\xD834\xDD1E\"]"},
    {L"[\"a\\u0000b\"]", L"[\"a\\u0000b\"]"},
    {L"\xFEFF[1]", L"[1]"},
    {L"\xFEFF{\"\x4E2D\":1}", L"{\"\x4E2D\":1}"},
    {L"\xFEFF [\"\x4E2D\"]", L"[\"\x4E2D\"]"},
    // The same byte by byte in the other order, after a mark that says so.
    {L"\xFFFE\x5B00\x3100\x5D00", L"[1]"},
    // Two bytes of UTF-8 in each unit: [1,2,3, and a blank in front.
    {L"\x5B20\x2C31\x2C32\x5D33", L"[1,2,3]"},
    {std::wstring(L"[1]\0]", 5), L"[1]"},
};

TEST(PackageJson, ObjectsAndArraysAreStored) {
    for (const JsonRoute& route : JsonRoutes())
        for (const Accepted& row : kAccepted) {
            SCOPED_TRACE(route.name + ": " + testing::PrintToString(row.json));
            const Package package = LoadedPackage(L"{\"a\":1,\"Key\":\"old\",\"z\":2}");
            EXPECT_EQ(1, route.set(*package, L"KEY", row.json.c_str()));
            EXPECT_EQ(1, route.set(*package, L"new", row.json.c_str()));
            EXPECT_EQ(
                Stored(L"{\"a\":1,\"Key\":", row.stored, L",\"z\":2,\"new\":") + row.stored + L"}",
                PackageText(*package));
            const wchar_t* value = nullptr;
            EXPECT_EQ(1, package->GetValue(L"key", &value));
            EXPECT_STREQ(row.stored, value);
        }
}

const wchar_t* const kRefused[] = {
    // JSON, but no object or array.
    L"5",
    L"12",
    L"-1.5e3",
    L"\"text\"",
    L"\"\"",
    L"true",
    L"false",
    L"null",
    L" 17 ",
    L"\xFEFF\"text\"",
    // No JSON.
    L"",
    L" ",
    L"    \t\r\n",
    L"\xFEFF",
    L"\xFEFF\xFEFF[]",
    L"{",
    L"[",
    L"[1,]",
    L"{\"a\":1,}",
    L"{\"a\"}",
    L"{a:1}",
    L"{'a':1}",
    L"[1] 2",
    L"{}{}",
    L"[1}",
    L"[01]",
    L"[1/**/]",
    L"[\"a",
    L"[\"\\q\"]",
    L"[\"\\uD800\"]",
    L"[\"\t\"]",
    L"[1e309]",
    L"[NaN]",
    L"[-Infinity]",
    L"text",
    // Half a pair of surrogates is no text in UTF-16.
    L"[\"\xDC00\"]",
    L"[\"\xD800\"]",
    // A second character above U+00FF hides the encoding.
    L"[\x4E2D]",
    L"{\x3000}",
    L"[\x0100]",
    L"\"\x4E2D\"",
};

TEST(PackageJson, AllElseAnswersZeroAndChangesNothing) {
    for (const JsonRoute& route : JsonRoutes())
        for (const wchar_t* json : kRefused) {
            SCOPED_TRACE(route.name + ": " + testing::PrintToString(json));
            const Package package = LoadedPackage(L"{\"a\":1,\"Key\":\"old\",\"z\":2}");
            const PackageState before = PackageStateOf(*package);
            EXPECT_EQ(0, route.set(*package, L"key", json));
            EXPECT_EQ(0, route.set(*package, L"new", json));
            EXPECT_EQ(before, PackageStateOf(*package));
        }
}

TEST(PackageJson, ANullKeyIsFoundBeforeANullTextAndThatBeforeTheKey) {
    for (const JsonRoute& route : JsonRoutes()) {
        SCOPED_TRACE(route.name);
        const Package package = LoadedPackage(L"{\"Key\":1}");
        const PackageState before = PackageStateOf(*package);
        EXPECT_EQ(-1, route.set(*package, nullptr, L"[1]"));
        EXPECT_EQ(-1, route.set(*package, nullptr, L"[1"));
        EXPECT_EQ(-1, route.set(*package, nullptr, L""));
        EXPECT_EQ(-1, route.set(*package, nullptr, nullptr));
        EXPECT_EQ(-4, route.set(*package, L"Key", nullptr));
        EXPECT_EQ(-4, route.set(*package, L"new", nullptr));
        EXPECT_EQ(before, PackageStateOf(*package));
    }
}

/// The error that a load left stays until the next load, whatever becomes of a value.
TEST(PackageJson, TheErrorOfTheLastLoadStays) {
    for (const JsonRoute& route : JsonRoutes())
        for (const wchar_t* loaded : {L"{\"a\":1}", L"[1,2]", L"{\"a\":x}", L"", L"17"}) {
            SCOPED_TRACE(route.name + " after " + testing::PrintToString(loaded));
            const Package package = NewPackage();
            package->LoadString(loaded);
            const PackageState before = PackageStateOf(*package);
            EXPECT_EQ(0, route.set(*package, L"k", L"[1,"));
            EXPECT_EQ(0, route.set(*package, L"k", L""));
            EXPECT_EQ(0, route.set(*package, L"k", L"5"));
            EXPECT_EQ(before, PackageStateOf(*package));
            EXPECT_EQ(1, route.set(*package, L"k", L"[1]"));
            const PackageState after = PackageStateOf(*package);
            EXPECT_EQ(before.keys + 1, after.keys);
            EXPECT_EQ(before.code, after.code);
            EXPECT_EQ(before.offset, after.offset);
        }
}

TEST(PackageJson, ReplacesValuesOfEveryKindInPlace) {
    for (const wchar_t* old :
         {L"\"old\"", L"1", L"2.5", L"true", L"false", L"null", L"{\"x\":[1]}", L"[1,[2]]"}) {
        SCOPED_TRACE(testing::PrintToString(old));
        const Package package =
            LoadedPackage(std::wstring(L"{\"a\":1,\"Key\":") + old + L",\"z\":2}");
        EXPECT_EQ(1, package->SetValue(L"kEY", L"{\"n\":[{}]}", true));
        EXPECT_EQ(L"{\"a\":1,\"Key\":{\"n\":[{}]},\"z\":2}", PackageText(*package));
    }
}

TEST(PackageJson, TheCallersTextMayGoAfterTheCall) {
    const Package package = NewPackage();
    std::wstring json = L"{\"a name\":[\"and a text of some length\",\"x\"]}";
    const std::wstring copy = json;
    EXPECT_EQ(1, package->SetValue(L"k", json.c_str(), true));
    json.assign(json.size(), L'#');
    EXPECT_EQ(L"{\"k\":" + copy + L"}", PackageText(*package));
}

TEST(PackageJson, APackageCanHoldItsOwnText) {
    const Package package = LoadedPackage(L"{\"a\":[1,\"x\"]}");
    std::wstring expected = PackageText(*package);
    for (int i = 0; i < 5; ++i) {
        const wchar_t* text = nullptr;
        ASSERT_EQ(1, package->GetText(&text));
        EXPECT_EQ(1, package->SetValue(L"copy", text, true));
        // The first time the key is added, then its value is replaced.
        expected = L"{\"a\":[1,\"x\"],\"copy\":" + expected + L"}";
        EXPECT_EQ(expected, PackageText(*package));
    }
    const wchar_t* value = nullptr;
    ASSERT_EQ(1, package->GetValue(L"copy", &value));
    EXPECT_EQ(1, package->SetValue(L"a", value, true));
    ASSERT_EQ(1, package->GetValue(L"copy", &value));
    const std::wstring inner = value;
    EXPECT_EQ(L"{\"a\":" + inner + L",\"copy\":" + inner + L"}", PackageText(*package));
}

/// What a load accepts is what a value may be.
TEST(PackageJson, AcceptsWhatALoadAccepts) {
    for (const JsonRoute& route : JsonRoutes()) {
        const auto expectAsLoad = [&](const std::wstring& json) {
            const Package package = NewPackage();
            EXPECT_EQ(model::ReferencePackageText(json).result,
                      route.set(*package, L"k", json.c_str()))
                << route.name << ": " << testing::PrintToString(json);
        };
        for (const std::wstring json : {L"{\"a\":[1,\"\xE9\x20AC\",{\"b\":-1.5e3}],\"c\":true}",
                                        L"[null,\"\\uD834\\uDD1E\"]"})
            for (size_t size = 0; size <= json.size(); ++size) {
                expectAsLoad(json.substr(0, size));
                expectAsLoad(L"\xFEFF" + json.substr(0, size));
            }
    }
}

/// The JSON is parsed before the key is read; what was parsed is not lost.
TEST(PackageJson, AKeyThatCannotBeReadFaults) {
    const auto* const unreadable = reinterpret_cast<const wchar_t*>(uintptr_t{8});
    const Package package = NewPackage();
    EXPECT_EQ(1, package->SetValue(L"key", L"[1]", true));
    EXPECT_EQ(-5, package->SetValue(unreadable, L"{\"a\":[1,2,3]}", true));
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package->GetText(&text));
    EXPECT_STREQ(L"{\"key\":[1]}", text);
}

}  // namespace
