// From a path to an item: its handle, and the parent of a new item.

#include <gtest/gtest.h>

#include "BuildScene.h"
#include "BytesAtAnEdge.h"

namespace {

using namespace building;
using support::Generator;
using support::NewGenerator;

/// A generator that holds parsed JSON, whose root has the handle 1 and nothing else has one.
Generator Holding(const wchar_t* json) {
    Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->LoadJsonString(json, &handle));
    EXPECT_EQ(1u, handle);
    return generator;
}

TEST(Paths, HandlesAreIssuedOnTheFirstRequest) {
    const Generator generator = Holding(LR"({"a":[1,{"b":null}],"c":{"1":"x","a1":[[5]]}})");
    const wchar_t* const paths[] = {L"/",    L"/a/2", L"/a",    L"/c/1",      L"/a/2/b",
                                    L"/a/1", L"/c",   L"/c/a1", L"/c/a1/1/1", L"/c/a1/1"};
    for (int round = 0; round < 3; ++round) {
        for (uint32_t i = 0; i < std::size(paths); ++i) {
            SCOPED_TRACE(testing::PrintToString(paths[i]));
            EXPECT_EQ((Answer{1, i + 1}), ItemHandleByPath(*generator, paths[i]));
            wchar_t path[1024] = L"";
            EXPECT_EQ(1, generator->GetItemPath(static_cast<int32_t>(i + 1), path));
            EXPECT_STREQ(paths[i], path);
        }
    }
}

/// The same item under different spellings of its position has one handle.
TEST(Paths, SpellingsOfAPosition) {
    const Generator generator = Holding(L"[[0,1,2,3,4,5,6,7,8,9,10],{}]");
    EXPECT_EQ((Answer{1, 2u}), ItemHandleByPath(*generator, L"/1"));
    EXPECT_EQ((Answer{1, 3u}), ItemHandleByPath(*generator, L"/1/10"));
    for (const wchar_t* path : {L"/01/10", L"/1/010", L"/+1/10x", L"/1/ 10", L"/1.9/10.5",
                                L"/1a/10", L"/0000000000000000000000001/0010 11"}) {
        SCOPED_TRACE(testing::PrintToString(path));
        EXPECT_EQ((Answer{1, 3u}), ItemHandleByPath(*generator, path));
    }
    for (const wchar_t* path : {L"/0", L"/00", L"/-1", L"/3", L"/x1", L"/x", L"//", L"/1/12",
                                L"/1/0", L"/1/-", L"/1/", L"/2/1", L"/1/1/1"}) {
        SCOPED_TRACE(testing::PrintToString(path));
        EXPECT_EQ((Answer{-10}), ItemHandleByPath(*generator, path));
    }
    EXPECT_EQ((Answer{1, 4u}), ItemHandleByPath(*generator, L"/2"));
}

/// Below an object digits are part of the key.
TEST(Paths, DigitsInKeys) {
    const Generator generator =
        Holding(LR"({"0":1,"1":[2],"01":3,"a1":4,"1a":{"2":5},"x/1":6,"1/x":7,"~":8,"~1":9})");
    const wchar_t* const paths[] = {L"/0",   L"/1",    L"/01",   L"/a1", L"/1a", L"/1a/2",
                                    L"/1/1", L"/x~/1", L"/1~/x", L"/~0", L"/~01"};
    for (uint32_t i = 0; i < std::size(paths); ++i) {
        SCOPED_TRACE(testing::PrintToString(paths[i]));
        EXPECT_EQ((Answer{1, i + 2}), ItemHandleByPath(*generator, paths[i]));
    }
    for (const wchar_t* path :
         {L"/00", L"/2", L"/001", L"/A1", L"/1A", L"/1a/1", L"/1/2", L"/x/1"}) {
        SCOPED_TRACE(testing::PrintToString(path));
        EXPECT_EQ((Answer{std::wstring(path) == L"/x/1" ? -5 : -10}),
                  ItemHandleByPath(*generator, path));
    }
}

TEST(Paths, NamesCompareExactly) {
    const Generator generator = Holding(L"{\"Ab\":{\"\x00E9\":1},\"ab\":2,\"\":3,\" \":{\"\":4}}");
    EXPECT_EQ((Answer{1, 2u}), ItemHandleByPath(*generator, L"/Ab"));
    EXPECT_EQ((Answer{1, 3u}), ItemHandleByPath(*generator, L"/ab"));
    EXPECT_EQ((Answer{1, 4u}), ItemHandleByPath(*generator, L"/Ab/\x00E9"));
    EXPECT_EQ((Answer{1, 5u}), ItemHandleByPath(*generator, L"/ /"));
    for (const wchar_t* path : {L"/AB", L"/aB", L"/Ab/\x00C9", L"/Ab/e", L"/ab ", L"/ab/", L"//"})
        EXPECT_EQ((Answer{-10}), ItemHandleByPath(*generator, path))
            << testing::PrintToString(path);
}

/// Of members of the same name a path names the first.
TEST(Paths, OfRepeatedNamesTheFirst) {
    const Generator generator = Holding(LR"({"a":{"b":1},"a":{"c":2}})");
    EXPECT_EQ((Answer{1, 2u}), ItemHandleByPath(*generator, L"/a/b"));
    EXPECT_EQ((Answer{-10}), ItemHandleByPath(*generator, L"/a/c"));
}

TEST(Paths, ToNothing) {
    for (const BadPath& bad : BadPaths()) {
        SCOPED_TRACE(testing::PrintToString(bad.path));
        Scene scene;
        const std::wstring text = scene.Text();
        const uint32_t next = scene.NextHandle() + 1;
        EXPECT_EQ((Answer{bad.result}), ItemHandleByPath(scene.Generator(), bad.path));
        EXPECT_EQ(bad.result, scene.Generator().GetItemHandleByPath(bad.path, nullptr));
        EXPECT_EQ(text, scene.Text());
        EXPECT_EQ(next, scene.NextHandle());
    }
}

TEST(Paths, WithoutAnOutputNoHandleIsIssued) {
    const Generator generator = Holding(LR"({"a":1,"b":2})");
    EXPECT_EQ(0, generator->GetItemHandleByPath(L"/a", nullptr));
    EXPECT_EQ((Answer{1, 2u}), ItemHandleByPath(*generator, L"/b"));
    EXPECT_EQ(0, generator->GetItemHandleByPath(L"/b", nullptr));
    EXPECT_EQ(0, generator->GetItemHandleByPath(L"/", nullptr));
    EXPECT_EQ((Answer{1, 3u}), ItemHandleByPath(*generator, L"/a"));
    EXPECT_EQ(-5,
              generator->GetItemHandleByPath(L"/a", reinterpret_cast<uint32_t*>(uintptr_t{16})));
    EXPECT_EQ(-5, generator->GetItemHandleByPath(reinterpret_cast<const wchar_t*>(uintptr_t{16}),
                                                 nullptr));
    EXPECT_EQ((Answer{1, 2u}), ItemHandleByPath(*generator, L"/b"));
}

/// A child whose path leads nowhere has a handle still, but nothing is at its path.
TEST(Paths, ToWhatWasOverwritten) {
    Scene scene;
    EXPECT_EQ((Answer{-10}), ItemHandleByPath(scene.Generator(), L"/emptied/inside"));
    uint64_t reference = 0;
    EXPECT_EQ(1, scene.Generator().AddObjectValueInt(scene.Naming(L"emptied").reference, L"inside",
                                                     1, &reference));
    const Answer again = {1, static_cast<uint64_t>(scene.LostHandle())};
    EXPECT_EQ(again, ItemHandleByPath(scene.Generator(), L"/emptied/inside"));
}

/// A key so long that the path to it is of a length, with slashes at the end to escape or not.
struct LongPath {
    std::wstring key;
    std::wstring path;
    bool fits;
};

std::vector<LongPath> LongPaths() {
    std::vector<LongPath> rows;
    for (const size_t length : {1000u, 1022u, 1023u, 1024u, 1025u, 5000u, 100000u}) {
        const std::wstring filler(length - 1, L'k');
        rows.push_back({filler, L"/" + filler, length < 1024});
        const std::wstring shorter = filler.substr(2);
        rows.push_back({shorter + L"/", L"/" + shorter + L"~/", length < 1024});
        rows.push_back({L"1" + filler.substr(1), L"/1" + filler.substr(1), length < 1024});
    }
    return rows;
}

TEST(Paths, OfAllLengths) {
    for (const LongPath& row : LongPaths()) {
        SCOPED_TRACE(testing::Message()
                     << row.path.size() << " units, "
                     << testing::PrintToString(row.path.substr(0, 2)) << " to "
                     << testing::PrintToString(row.path.substr(row.path.size() - 2)));
        const Generator generator = NewGenerator();
        uint64_t root = 0;
        uint64_t member = 0;
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
        EXPECT_EQ(1, generator->AddObjectValueArray(root, row.key.c_str(), &member));
        const std::wstring text = TextOf(*generator);
        const int result = row.fits ? 1 : -10;
        EXPECT_EQ(row.fits ? (Answer{1, 1u}) : Answer{-10},
                  ItemHandleByPath(*generator, row.path.c_str()));
        EXPECT_EQ(result, generator->AddArrayItemIntByPath(row.path.c_str(), 5, &handle));
        EXPECT_EQ(row.fits ? text.substr(0, text.size() - 2) + L"5]}" : text, TextOf(*generator));
        EXPECT_EQ((Answer{1, row.fits ? 3u : 1u}), ItemHandleByPath(*generator, L"/"));
    }
}

/// What counts is the length of what a path is translated to.
TEST(Paths, WhoseTranslationIsShorter) {
    const Generator generator = NewGenerator();
    uint64_t root = 0;
    uint64_t list = 0;
    uint64_t element = 0;
    EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
    const std::wstring key(1020, L'k');
    EXPECT_EQ(1, generator->AddObjectValueArray(root, key.c_str(), &list));
    for (int i = 0; i < 11; ++i) EXPECT_EQ(1, generator->AddArrayValueNull(list, &element));
    const std::wstring path = L"/" + key;
    EXPECT_EQ((Answer{1, 1u}), ItemHandleByPath(*generator, (path + L"/9").c_str()));
    EXPECT_EQ((Answer{1, 2u}), ItemHandleByPath(*generator, (path + L"/10").c_str()));
    EXPECT_EQ((Answer{-10}), ItemHandleByPath(*generator, (path + L"/11").c_str()));
    const std::wstring zeros(5000, L'0');
    EXPECT_EQ((Answer{1, 1u}), ItemHandleByPath(*generator, (path + L"/" + zeros + L"9").c_str()));
}

/// The beginning of a path is not written where its end has no room.
TEST(Paths, ForBuffersThatEndTooEarly) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootArray(&handle));
    EXPECT_EQ(1, generator->AddArrayItemNull(1, &handle));
    const std::string before = "------";
    const support::BytesAtAnEdge buffer(before);
    const auto pathAt = [&](size_t offset) {
        return generator->GetItemPath(2, reinterpret_cast<wchar_t*>(buffer.Begin() + offset));
    };
    EXPECT_EQ(-5, pathAt(4));
    EXPECT_EQ(-5, pathAt(2));
    EXPECT_EQ(before, std::string(buffer.Begin(), before.size()));
    EXPECT_EQ(1, pathAt(0));
    EXPECT_EQ(std::string("/\0001\0\0\0", 6), std::string(buffer.Begin(), before.size()));
}

/// New items below a parent by path have the paths that handles give them.
TEST(Paths, OfParents) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    EXPECT_EQ(1, generator->AddObjectItemArrayByPath(L"/", L"list", &handle));
    EXPECT_EQ(1, generator->AddArrayItemObjectByPath(L"/list", &handle));
    EXPECT_EQ(1, generator->AddArrayItemArrayByPath(L"/list", &handle));
    EXPECT_EQ(1, generator->AddObjectItemObjectByPath(L"/list/1", L"2", &handle));
    EXPECT_EQ(1, generator->AddObjectItemStringByPath(L"/list/01/2", L"x/y", L"deep", &handle));
    EXPECT_EQ(1, generator->AddArrayItemDoubleByPath(L"/list/2", 2, &handle));
    EXPECT_EQ(7u, handle);
    EXPECT_EQ(LR"({"list":[{"2":{"x/y":"deep"}},[2.0]]})", TextOf(*generator));
    const wchar_t* const paths[] = {L"/",         L"/list",         L"/list/1",  L"/list/2",
                                    L"/list/1/2", L"/list/1/2/x/y", L"/list/2/1"};
    for (int32_t i = 0; i < 7; ++i) {
        wchar_t path[1024] = L"";
        EXPECT_EQ(1, generator->GetItemPath(i + 1, path));
        EXPECT_STREQ(paths[i], path);
    }
    // By handle and by path the children are the same.
    EXPECT_EQ(1, generator->AddObjectItemNull(3, L"2", &handle));
    EXPECT_EQ(5u, handle);
    EXPECT_EQ(1, generator->AddObjectItemNullByPath(L"/list/1", L"new", &handle));
    EXPECT_EQ(8u, handle);
    EXPECT_EQ(1, generator->AddObjectItemInt(3, L"new", 4, &handle));
    EXPECT_EQ(8u, handle);
    EXPECT_EQ(LR"({"list":[{"2":null,"new":4},[2.0]]})", TextOf(*generator));
}

}  // namespace
