// Whether an item or a member exists; the two operations that have no guard.

#include <gtest/gtest.h>
#include <windows.h>

#include "CatchFault.h"
#include "JsonDll.h"
#include "Sites.h"

namespace {

using namespace support;

constexpr wchar_t kDocument[] =
    L"{\"name\":1,\"Name\":2,\"o\":{\"k\":null,\"\":0},\"l\":[10,{\"K\":false}],\"z\":null}";

TEST(ReadingExistence, OfAnItem) {
    struct Row {
        const wchar_t* path;
        bool exists;
    };
    const Row rows[] = {
        {L"/", true},        {L"/name", true},  {L"/Name", true}, {L"/NAME", false},
        {L"/o", true},       {L"/o/k", true},   {L"/o/K", false}, {L"/o/", true},
        {L"/l/1", true},     {L"/l/2/K", true}, {L"/l/3", false}, {L"/l/0", false},
        {L"/z", true},       {L"/z/x", false},  {L"/l/x", false}, {L"/a~b", false},
        {L"/a~b/1", false},  {L"", false},      {L"name", false}, {nullptr, false},
        {L"/absent", false},
    };
    const Parser parser = Loaded(kDocument);
    for (const Row& row : rows)
        EXPECT_EQ(row.exists, parser->ExistsItemByPath(row.path)) << (row.path ? row.path : L"-");
}

/// By the item any case of the key will do, by the path of the item only its own.
TEST(ReadingExistence, OfAMember) {
    struct Row {
        const wchar_t* path;
        const wchar_t* key;
        bool ofItem;
        bool byPath;
    };
    const Row rows[] = {
        {L"/", L"name", true, true},    {L"/", L"NAME", true, false},
        {L"/", L"Name", true, true},    {L"/", L"nam", false, false},
        {L"/", L"O", true, false},      {L"/", L"z", true, true},
        {L"/", L"", false, false},      {L"/", nullptr, false, false},
        {L"/o", L"k", true, true},      {L"/o", L"K", true, false},
        {L"/o", L"", true, true},       {L"/o", nullptr, false, false},
        {L"/l", L"1", false, false},    {L"/l", L"K", false, false},
        {L"/l/2", L"K", true, true},    {L"/l/2", L"k", true, false},
        {L"/z", L"k", false, false},    {L"/name", L"k", false, false},
        {L"/l", nullptr, false, false},
    };
    const Parser parser = Loaded(kDocument);
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.path << " key " << (row.key ? row.key : L"-"));
        uint32_t handle = 0;
        ASSERT_EQ(1, parser->GetItemByPath(row.path, &handle));
        EXPECT_EQ(row.ofItem, parser->ExistsMember(handle, row.key));
        EXPECT_EQ(row.byPath, parser->ExistsMemberByPath(row.path, row.key));
    }
}

TEST(ReadingExistence, OfAMemberOfNothing) {
    const Parser parser = Loaded(kDocument);
    for (const uint32_t handle : {0u, 1u, 999u, 0xFFFFFFFFu})
        for (const wchar_t* key : {L"name", L"", static_cast<const wchar_t*>(nullptr)})
            EXPECT_FALSE(parser->ExistsMember(handle, key)) << handle;
    for (const wchar_t* path : {L"/absent", L"", L"name", L"/a~b", L"/a~b/1", L"/l/3",
                                static_cast<const wchar_t*>(nullptr)})
        for (const wchar_t* key : {L"name", L"", static_cast<const wchar_t*>(nullptr)})
            EXPECT_FALSE(parser->ExistsMemberByPath(path, key)) << (path ? path : L"-");
}

/// These operations return a bool and have no result for a fault: it passes through the library to
/// a handler of the caller, as an access violation.
TEST(ReadingExistence, FaultsReachTheCaller) {
    const auto wild = reinterpret_cast<const wchar_t*>(uintptr_t{16});
    const Parser parser = Loaded(kDocument);
    const uint32_t root = SiteOfRoot(*parser).handle;
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION,
                  CatchFault([&] { parser->ExistsItemByPath(L"/absent/1"); }));
        EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION, CatchFault([&] { parser->ExistsItemByPath(wild); }));
        EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION,
                  CatchFault([&] { parser->ExistsMemberByPath(L"/absent/1", L"k"); }));
        EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION,
                  CatchFault([&] { parser->ExistsMemberByPath(wild, L"k"); }));
        EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION,
                  CatchFault([&] { parser->ExistsMemberByPath(L"/", wild); }));
        EXPECT_EQ(EXCEPTION_ACCESS_VIOLATION,
                  CatchFault([&] { parser->ExistsMember(root, wild); }));
        EXPECT_TRUE(parser->ExistsItemByPath(L"/l/1"));
        EXPECT_TRUE(parser->ExistsMember(root, L"NAME"));
        EXPECT_TRUE(parser->ExistsMemberByPath(L"/l/2", L"K"));
    }
    EXPECT_EQ(1, parser->LoadJsonString(L"[1]"));
    EXPECT_TRUE(parser->ExistsItemByPath(L"/1"));
}

/// Without a fault nothing reaches the caller, and a fault in a guarded operation does not either.
TEST(ReadingExistence, OtherFaultsDoNotReachTheCaller) {
    const Parser parser = Loaded(kDocument);
    bool exists = false;
    int result = 0;
    uint32_t handle = 0;
    EXPECT_EQ(0u, CatchFault([&] { exists = parser->ExistsItemByPath(L"/l/1"); }));
    EXPECT_TRUE(exists);
    EXPECT_EQ(0u, CatchFault([&] { result = parser->GetItemByPath(L"/absent/1", &handle); }));
    EXPECT_EQ(-5, result);
}

}  // namespace
