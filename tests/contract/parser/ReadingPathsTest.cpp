// What item paths name: keys, positions, escapes, and what faults.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "JsonDll.h"
#include "PathRoutes.h"
#include "Sites.h"

namespace {

using namespace support;

struct Row {
    const wchar_t* path;
    PathOutcome outcome;
};

template <size_t kCount>
void ExpectPaths(const wchar_t* json, const Row (&rows)[kCount]) {
    const Parser parser = Loaded(json);
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << json << " path " << row.path);
        ExpectPath(*parser, row.path, row.outcome);
    }
}

TEST(ReadingPaths, TheRootIsASlash) {
    for (const wchar_t* json : {L"{\"\":1}", L"[1]", L"{}", L"[]"}) {
        const Parser parser = Loaded(json);
        const uint32_t root = SiteOfRoot(*parser).handle;
        uint32_t handle = 0, type = 0;
        EXPECT_EQ(1, parser->GetItemByPath(L"/", &handle)) << json;
        EXPECT_EQ(root, handle) << json;
        EXPECT_EQ(1, parser->GetItemTypeByPath(L"/", &type)) << json;
        EXPECT_EQ(json[0] == L'{' ? 4u : 5u, type) << json;
        EXPECT_TRUE(parser->ExistsItemByPath(L"/")) << json;
    }
}

TEST(ReadingPaths, APathBeginsWithASlash) {
    const Row rows[] = {
        {nullptr, LeadsNowhere()}, {L"", LeadsNowhere()},    {L"a", LeadsNowhere()},
        {L"a/b", LeadsNowhere()},  {L" /a", LeadsNowhere()}, {L"~/a", LeadsNowhere()},
        {L"\\a", LeadsNowhere()},  {L"#/a", LeadsNowhere()}, {L"1", LeadsNowhere()},
        {L"/a", LeadsTo(1)},
    };
    const Parser parser = Loaded(L"{\"a\":1,\"a/b\":2,\"1\":3}");
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << (row.path ? row.path : L"(null)"));
        ExpectPath(*parser, row.path, row.outcome);
    }
}

TEST(ReadingPaths, PositionsInArraysCountFromOne) {
    const Row rows[] = {
        {L"/list/1", LeadsTo(10)},         {L"/list/2", LeadsTo(20)},
        {L"/list/3/1", LeadsTo(31)},       {L"/list/3/2/1", LeadsTo(321)},
        {L"/list/3/2/k2", LeadsNowhere()}, {L"/list/3/3/k2", LeadsTo(33)},
        {L"/list/0", LeadsNowhere()},      {L"/list/4", LeadsNowhere()},
        {L"/list/11", LeadsNowhere()},     {L"/list/", LeadsNowhere()},
        {L"/list/1/", LeadsNowhere()},     {L"/list//1", Faults()},
        {L"/empty/1", LeadsNowhere()},     {L"/empty/0", LeadsNowhere()},
    };
    ExpectPaths(L"{\"list\":[10,20,[31,[321],{\"k2\":33}]],\"empty\":[]}", rows);
}

TEST(ReadingPaths, ARootArrayHasPositionsToo) {
    const Row rows[] = {
        {L"/1", LeadsTo(10)},      {L"/2/1", LeadsTo(21)},  {L"/2/2/1", LeadsTo(221)},
        {L"/0", LeadsNowhere()},   {L"/3", LeadsNowhere()}, {L"/x", LeadsNowhere()},
        {L"/x1", LeadsNowhere()},  {L"//1", Faults()},      {L"/3/1", Faults()},
        {L"/1/1", LeadsNowhere()}, {L"/1/1/1", Faults()},
    };
    ExpectPaths(L"[10,[21,[221]]]", rows);
}

/// What a segment below an array begins with is its position, as _wtoi reads it.
TEST(ReadingPaths, ASegmentWithADigitBelowAnArrayIsReadAsANumber) {
    const Row rows[] = {
        {L"/list/1x", LeadsTo(10)},        {L"/list/ 1", LeadsTo(10)},
        {L"/list/\t2", LeadsTo(20)},       {L"/list/1 ", LeadsTo(10)},
        {L"/list/+1", LeadsTo(10)},        {L"/list/01", LeadsTo(10)},
        {L"/list/0002", LeadsTo(20)},      {L"/list/1.5", LeadsTo(10)},
        {L"/list/1e1", LeadsTo(10)},       {L"/list/2~0", LeadsTo(20)},
        {L"/list/2~", LeadsTo(20)},        {L"/list/2~/3", LeadsNowhere()},
        {L"/list/2~/x/y", LeadsNowhere()}, {L"/list/x", LeadsNowhere()},
        {L"/list/x1", LeadsNowhere()},     {L"/list/-1", LeadsNowhere()},
        {L"/list/- 1", LeadsNowhere()},    {L"/list/--1", LeadsNowhere()},
        {L"/list/+-1", LeadsNowhere()},    {L"/list/-", LeadsNowhere()},
        {L"/list/+", LeadsNowhere()},      {L"/list/ ", LeadsNowhere()},
        {L"/list/00", LeadsNowhere()},     {L"/list/0x1", LeadsNowhere()},
        {L"/list/~01", LeadsNowhere()},    {L"/list/~/1", LeadsNowhere()},
    };
    ExpectPaths(L"{\"list\":[10,20]}", rows);
}

/// Below an array a segment ends at the next slash, whatever stands before it.
TEST(ReadingPaths, ASlashBelowAnArrayIsNeverPartOfAPosition) {
    const Row rows[] = {{L"/1~/1", LeadsTo(5)},        {L"/1x~/2", LeadsTo(6)},
                        {L"/2~/1", LeadsTo(7)},        {L"/1~/1~", LeadsTo(5)},
                        {L"/1~~/1~/", LeadsNowhere()}, {L"/~/1", LeadsNowhere()}};
    ExpectPaths(L"[[5,6],[7]]", rows);
}

TEST(ReadingPaths, PositionsThatNoIntHoldsAreReadAsThePlatformDoes) {
    const Parser parser = Loaded(L"{\"list\":[10]}");
    for (const wchar_t* position :
         {L"2147483647", L"2147483648", L"4294967295", L"4294967296", L"4294967297",
          L"18446744073709551617", L"-2147483647", L"-4294967295", L"99999999999999999999"}) {
        SCOPED_TRACE(testing::Message() << position);
        ExpectPath(*parser, (std::wstring(L"/list/") + position).c_str(),
                   _wtoi(position) == 1 ? LeadsTo(10) : LeadsNowhere());
    }
}

TEST(ReadingPaths, DigitsInKeysStayAsTheyAre) {
    const Row rows[] = {
        {L"/1", LeadsTo(1)},          {L"/a1", LeadsTo(2)},       {L"/1a", LeadsTo(3)},
        {L"/a1b2", LeadsTo(4)},       {L"/o2/0", LeadsTo(5)},     {L"/o2/01", LeadsTo(6)},
        {L"/o2/-1", LeadsTo(7)},      {L"/o2/3/3", LeadsTo(8)},   {L"/o2/4/1", LeadsTo(9)},
        {L"/ 1", LeadsNowhere()},     {L"/2", LeadsNowhere()},    {L"/01", LeadsNowhere()},
        {L"/o2/4/0", LeadsNowhere()}, {L"/o2/1", LeadsNowhere()},
    };
    ExpectPaths(
        L"{\"1\":1,\"a1\":2,\"1a\":3,\"a1b2\":4,"
        L"\"o2\":{\"0\":5,\"01\":6,\"-1\":7,\"3\":{\"3\":8},\"4\":[9]}}",
        rows);
}

TEST(ReadingPaths, ATildeAndASlashAreASlashInAKey) {
    const Row rows[] = {
        {L"/x~/y", LeadsTo(1)},      {L"/~/", LeadsTo(2)},         {L"/~/~/", LeadsTo(3)},
        {L"/a~/", LeadsTo(4)},       {L"/~/1", LeadsTo(5)},        {L"/1~/1", LeadsTo(6)},
        {L"/o~/o/x~/1", LeadsTo(7)}, {L"/x/y", LeadsNowhere()},    {L"/x~/", LeadsNowhere()},
        {L"/1~/2", LeadsNowhere()},  {L"/x~/y/z", LeadsNowhere()}, {L"/1/1", Faults()},
    };
    ExpectPaths(L"{\"x/y\":1,\"/\":2,\"//\":3,\"a/\":4,\"/1\":5,\"1/1\":6,\"o/o\":{\"x/1\":7}}",
                rows);
}

/// A tilde that stands before no slash is not escaped, so the pointer's own escapes go through.
TEST(ReadingPaths, OtherTildesReachThePointer) {
    const Row rows[] = {
        {L"/a~0b", LeadsTo(1)},         {L"/a~1b", LeadsTo(2)},      {L"/~0", LeadsTo(3)},
        {L"/~01", LeadsTo(4)},          {L"/o/~1", LeadsTo(5)},      {L"/o/~0~/1", LeadsTo(6)},
        {L"/a~b", LeadsNowhere()},      {L"/~", LeadsNowhere()},     {L"/a~", LeadsNowhere()},
        {L"/~~/", LeadsNowhere()},      {L"/~2", LeadsNowhere()},    {L"/~x", LeadsNowhere()},
        {L"/a~b/1", LeadsNowhere()},    {L"/~/~/1", LeadsNowhere()}, {L"/o~/1/1", Faults()},
        {L"/missing/~0", Faults()},     {L"/missing/~1", Faults()},  {L"/a~b/c", LeadsNowhere()},
        {L"/a~b/c/d2", LeadsNowhere()},
    };
    ExpectPaths(L"{\"a~b\":1,\"a/b\":2,\"~\":3,\"~1\":4,\"o\":{\"/\":5,\"~/1\":6}}", rows);
}

TEST(ReadingPaths, EmptySegmentsNameEmptyKeys) {
    const Row rows[] = {
        {L"/o/", LeadsTo(1)},      {L"//", LeadsTo(2)},       {L"//k", LeadsTo(3)},
        {L"//1", LeadsTo(4)},      {L"/n/", LeadsNowhere()},  {L"///", LeadsNowhere()},
        {L"/o//", LeadsNowhere()}, {L"/n//", LeadsNowhere()}, {L"/missing/", LeadsNowhere()},
    };
    ExpectPaths(L"{\"o\":{\"\":1},\"\":{\"\":2,\"k\":3,\"1\":4},\"n\":5}", rows);
}

TEST(ReadingPaths, NamesCompareExactly) {
    const Row rows[] = {
        {L"/name", LeadsTo(1)},      {L"/Name", LeadsTo(2)},         {L"/NAME", LeadsNowhere()},
        {L"/O/k", LeadsTo(3)},       {L"/o/k", LeadsNowhere()},      {L"/O/K", LeadsNowhere()},
        {L"/\x00E9", LeadsTo(4)},    {L"/\x00C9", LeadsNowhere()},   {L"/a", LeadsNowhere()},
        {L"/twice", LeadsTo(6)},     {L"/\xD83D\xDE00", LeadsTo(8)}, {L"/nam", LeadsNowhere()},
        {L"/names", LeadsNowhere()},
    };
    ExpectPaths(
        L"{\"name\":1,\"Name\":2,\"O\":{\"k\":3},\"\x00E9\":4,\"A\":5,\"twice\":6,\"twice\":7,"
        L"\"\xD83D\xDE00\":8,\"a\\u0000b\":9}",
        rows);
}

/// Below a value that is no container nothing exists, and below nothing a digit faults.
TEST(ReadingPaths, BelowScalarsAndBelowNothing) {
    const Row rows[] = {
        {L"/n/a", LeadsNowhere()},
        {L"/n/1", LeadsNowhere()},
        {L"/n/1/a", LeadsNowhere()},
        {L"/n/1/1", Faults()},
        {L"/n/a/1", Faults()},
        {L"/s/1", LeadsNowhere()},
        {L"/t/1", LeadsNowhere()},
        {L"/z/1", LeadsNowhere()},
        {L"/missing", LeadsNowhere()},
        {L"/missing/a", LeadsNowhere()},
        {L"/missing/1", Faults()},
        {L"/missing/a1", Faults()},
        {L"/missing/a/1", Faults()},
        {L"/missing/1a/b", Faults()},
        {L"/missing1", LeadsNowhere()},
        {L"/missing1/a", LeadsNowhere()},
        {L"/missing1/1", Faults()},
        {L"/list/9/1", Faults()},
        {L"/list/0/1", Faults()},
        {L"/list/x/1", Faults()},
        {L"/N/1", Faults()},
        {L"/list/1/k", LeadsTo(7)},
        {L"/missing/a/b", LeadsNowhere()},
    };
    ExpectPaths(L"{\"n\":5,\"s\":\"x\",\"t\":true,\"z\":null,\"list\":[{\"k\":7}]}", rows);
}

/// A path that faults leaves the parser as it was, for guarded operations and others alike.
TEST(ReadingPaths, AFaultLeavesTheParserUsable) {
    const Parser parser = Loaded(L"{\"list\":[10]}");
    for (int i = 0; i < 100; ++i) {
        ExpectPath(*parser, L"/missing/1", Faults());
        ExpectPath(*parser, L"/list/1", LeadsTo(10));
    }
    EXPECT_EQ(0, parser->HasError());
    EXPECT_EQ(1, parser->LoadJsonString(L"[2]"));
    ExpectPath(*parser, L"/1", LeadsTo(2));
}

}  // namespace
