// From a handle to the path of its item.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "BuildScene.h"

namespace {

using namespace building;
using support::Generator;
using support::NewGenerator;

/// What the caller provides, with something after it that is not the generator's.
struct Buffer {
    Buffer() { std::fill(std::begin(text), std::end(text), L'#'); }

    bool IsUntouchedFrom(size_t start) const {
        return std::all_of(text + start, std::end(text), [](wchar_t c) { return c == L'#'; });
    }

    wchar_t text[1100];
};

constexpr size_t kRoom = 1024;

void ExpectPath(QXJSON::IJsonGenerator& generator, uint32_t handle, const std::wstring& path) {
    Buffer buffer;
    EXPECT_EQ(1, generator.GetItemPath(static_cast<int32_t>(handle), buffer.text));
    EXPECT_EQ(path, buffer.text);
    EXPECT_TRUE(buffer.IsUntouchedFrom(kRoom));
}

void ExpectRefusal(QXJSON::IJsonGenerator& generator, int32_t handle, int result) {
    Buffer buffer;
    EXPECT_EQ(result, generator.GetItemPath(handle, buffer.text));
    EXPECT_TRUE(buffer.IsUntouchedFrom(0));
}

TEST(Handles, TheRootsPath) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    ExpectPath(*generator, 1, L"/");
    EXPECT_EQ(1, generator->CreateRootArray(&handle));
    ExpectPath(*generator, 1, L"/");
}

TEST(Handles, PositionsCountFromOne) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootArray(&handle));
    for (uint32_t i = 1; i <= 120; ++i) {
        EXPECT_EQ(1, generator->AddArrayItemArray(1, &handle));
        ExpectPath(*generator, handle, L"/" + std::to_wstring(i));
    }
    EXPECT_EQ(1, generator->AddArrayItemNullByPath(L"/100", &handle));
    ExpectPath(*generator, handle, L"/100/1");
}

/// An item below the item with the handle before it; an element where the key is null.
struct Below {
    const wchar_t* key;
    bool isObject;
    const wchar_t* path;
};

const Below kChain[] = {
    {L"list", false, L"/list"},
    {nullptr, false, L"/list/1"},
    {nullptr, true, L"/list/1/1"},
    {L"7", true, L"/list/1/1/7"},
    {L"a1", true, L"/list/1/1/7/a1"},
    {L"0", false, L"/list/1/1/7/a1/0"},
    {nullptr, true, L"/list/1/1/7/a1/0/1"},
    {L"", true, L"/list/1/1/7/a1/0/1/"},
    {L"end", false, L"/list/1/1/7/a1/0/1//end"},
};

TEST(Handles, ThereAndBackThroughNestedContainers) {
    const Generator generator = NewGenerator();
    uint32_t parent = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&parent));
    for (const Below& row : kChain) {
        SCOPED_TRACE(testing::PrintToString(row.path));
        Arguments arguments;
        arguments.handle = static_cast<int32_t>(parent);
        arguments.key = row.key;
        const Kind kind = row.isObject ? Kind::kObject : Kind::kArray;
        const Answer answer =
            AddingOperation(kind, NamedBy::kHandle, row.key != nullptr).call(*generator, arguments);
        EXPECT_EQ((Answer{1, parent + 1}), answer);
        ++parent;
        ExpectPath(*generator, parent, row.path);
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->GetItemHandleByPath(row.path, &handle));
        EXPECT_EQ(parent, handle);
    }
}

/// A slash in a key is written so that it can be read back where the item was found by path, but
/// not where it was added under that key.
TEST(Handles, SlashesInKeys) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    EXPECT_EQ(1, generator->AddObjectItemArray(1, L"a/b", &handle));
    ExpectPath(*generator, 2, L"/a/b");
    EXPECT_EQ(1, generator->AddArrayItemObjectByPath(L"/a~/b", &handle));
    ExpectPath(*generator, 3, L"/a~/b/1");
    EXPECT_EQ(1, generator->AddObjectItemNull(3, L"c/d~1e", &handle));
    ExpectPath(*generator, 4, L"/a~/b/1/c/d~/e");
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/a~/b", &handle));
    EXPECT_EQ(5u, handle);
    ExpectPath(*generator, 5, L"/a~/b");
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/a~/b/1", &handle));
    EXPECT_EQ(3u, handle);
}

/// What stands above an item now decides how the item's place is written.
TEST(Handles, WhatStandsAboveDecides) {
    const wchar_t* const keys[] = {L"0", L"5", L"7y", L"x7", L"x", L"-1", L"a/2", L""};
    const wchar_t* const asMembers[] = {L"/p/0", L"/p/5",  L"/p/7y",  L"/p/x7",
                                        L"/p/x", L"/p/-1", L"/p/a/2", L"/p/"};
    const wchar_t* const asElements[] = {L"/p/1", L"/p/6", L"/p/8",   L"/p/1",
                                         L"/p/x", L"/p/0", L"/p/a/2", L"/p/"};
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    EXPECT_EQ(1, generator->AddObjectItemObject(1, L"p", &handle));
    for (const wchar_t* key : keys) EXPECT_EQ(1, generator->AddObjectItemNull(2, key, &handle));
    const auto expectPaths = [&](const wchar_t* const* paths) {
        for (uint32_t i = 0; i < std::size(keys); ++i) ExpectPath(*generator, 3 + i, paths[i]);
    };
    expectPaths(asMembers);
    EXPECT_EQ(1, generator->AddObjectItemArray(1, L"p", &handle));
    expectPaths(asElements);
    for (const Item& item : {IntItem(1), StringItem(L"t"), NullItem(), ObjectItem()}) {
        Arguments arguments = With(item);
        arguments.handle = 1;
        arguments.key = L"p";
        EXPECT_EQ(
            1,
            AddingOperation(item.kind, NamedBy::kHandle, true).call(*generator, arguments).result);
        expectPaths(asMembers);
    }
}

TEST(Handles, OfElementsOfAnArrayThatIsGone) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    EXPECT_EQ(1, generator->AddObjectItemArray(1, L"list", &handle));
    EXPECT_EQ(1, generator->AddArrayItemArray(2, &handle));
    EXPECT_EQ(1, generator->AddArrayItemInt(3, 1, &handle));
    ExpectPath(*generator, 4, L"/list/1/1");
    EXPECT_EQ(1, generator->AddObjectItemArray(1, L"list", &handle));
    ExpectPath(*generator, 3, L"/list/1");
    ExpectPath(*generator, 4, L"/list/1/0");
    EXPECT_EQ(1, generator->AddObjectItemNull(1, L"list", &handle));
    ExpectPath(*generator, 3, L"/list/0");
    ExpectPath(*generator, 4, L"/list/0/0");
}

TEST(Handles, UnknownOnes) {
    const Generator generator = NewGenerator();
    ExpectRefusal(*generator, 1, -2);
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    EXPECT_EQ(1, generator->AddObjectItemNull(1, L"a", &handle));
    for (const int32_t unknown : {0, -1, -2, INT_MIN, INT_MAX, 3, 100}) {
        SCOPED_TRACE(unknown);
        ExpectRefusal(*generator, unknown, -2);
        EXPECT_EQ(-2, generator->GetItemPath(unknown, nullptr));
    }
    EXPECT_EQ(0, generator->GetItemPath(1, nullptr));
    EXPECT_EQ(0, generator->GetItemPath(2, nullptr));
    EXPECT_EQ(-5, generator->GetItemPath(2, reinterpret_cast<wchar_t*>(uintptr_t{16})));
    ExpectPath(*generator, 2, L"/a");
}

/// A path fills the caller's room to the last unit or is refused.
TEST(Handles, TheRoomForAPath) {
    for (const size_t length : {1000u, 1021u, 1022u, 1023u, 1024u, 5000u, 100000u}) {
        SCOPED_TRACE(length);
        const Generator generator = NewGenerator();
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->CreateRootObject(&handle));
        const std::wstring key(length, L'k');
        EXPECT_EQ(1, generator->AddObjectItemObject(1, key.c_str(), &handle));
        if (length + 1 < kRoom)
            ExpectPath(*generator, 2, L"/" + key);
        else
            ExpectRefusal(*generator, 2, 0);
        ExpectPath(*generator, 1, L"/");
    }
}

/// A position of 9 is remembered as one digit and written as two where it counts from 1.
TEST(Handles, TheRoomForAPathThatGrows) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    const std::wstring key(kRoom - 4, L'k');
    EXPECT_EQ(1, generator->AddObjectItemArray(1, key.c_str(), &handle));
    for (int i = 0; i < 10; ++i) EXPECT_EQ(1, generator->AddArrayItemNull(2, &handle));
    EXPECT_EQ(12u, handle);
    ExpectPath(*generator, 11, L"/" + key + L"/9");
    ExpectRefusal(*generator, 12, 0);
}

/// "~1" and what is written for it are of the same length.
TEST(Handles, TheRoomForAPathWithSlashesInKeys) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    std::wstring key(kRoom - 4, L'k');
    EXPECT_EQ(1, generator->AddObjectItemNull(1, (key + L"~1").c_str(), &handle));
    ExpectPath(*generator, 2, L"/" + key + L"~/");
    EXPECT_EQ(1, generator->AddObjectItemNull(1, (key + L"k~1").c_str(), &handle));
    ExpectRefusal(*generator, 3, 0);
}

/// Each item keeps its handle and its path while others come and go.
TEST(Handles, KeepTheirPaths) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    for (int i = 0; i < 500; ++i) {
        const std::wstring key = L"key " + std::to_wstring(i);
        EXPECT_EQ(1, generator->AddObjectItemArray(1, key.c_str(), &handle));
        EXPECT_EQ(1, generator->AddArrayItemInt(static_cast<int32_t>(handle), i, &handle));
    }
    EXPECT_EQ(1001u, handle);
    for (uint32_t i = 0; i < 500; ++i) {
        const std::wstring path = L"/key " + std::to_wstring(i);
        ExpectPath(*generator, 2 + 2 * i, path);
        ExpectPath(*generator, 3 + 2 * i, path + L"/1");
        EXPECT_EQ(1, generator->GetItemHandleByPath((path + L"/1").c_str(), &handle));
        EXPECT_EQ(3 + 2 * i, handle);
    }
}

}  // namespace
