// Item paths at the limit of 1,024 units.

#include <gtest/gtest.h>

#include <string>

#include "JsonDll.h"
#include "PathRoutes.h"

namespace {

using namespace support;

// A translated path has 1024 units with its terminator.
constexpr size_t kLongest = 1023;

std::wstring Repeat(const std::wstring& text, size_t count) {
    std::wstring result;
    result.reserve(text.size() * count);
    for (size_t i = 0; i < count; ++i) result += text;
    return result;
}

/// An object with one member, whose value is 7.
std::wstring ObjectWith(const std::wstring& key) { return L"{\"" + key + L"\":7}"; }

/// `depth` arrays, each the last of `width` elements of the one around it; the innermost holds
/// `width` times 7.
std::wstring NestedArrays(size_t depth, size_t width) {
    const std::wstring open = L"[" + Repeat(L"0,", width - 1);
    return Repeat(open, depth - 1) + L"[7" + Repeat(L",7", width - 1) + Repeat(L"]", depth);
}

void ExpectOne(const std::wstring& json, const std::wstring& path, const PathOutcome& outcome) {
    SCOPED_TRACE(testing::Message() << "path of " << path.size() << " units, " << path.substr(0, 20)
                                    << "..." << path.substr(path.size() - 5));
    ExpectPath(*Loaded(json.c_str()), path.c_str(), outcome);
}

PathOutcome IfItFits(size_t units) { return units <= kLongest ? LeadsTo(7) : LeadsNowhere(); }

constexpr size_t kKeyLengths[] = {1000, 1020, 1021, 1022, 1023, 1024, 1025, 2047, 2048, 100000};

TEST(ReadingPathLengths, OfAKey) {
    for (const size_t length : kKeyLengths) {
        const std::wstring key(length, L'k');
        ExpectOne(ObjectWith(key), L"/" + key, IfItFits(1 + length));
    }
}

/// A segment with a digit is copied in another way.
TEST(ReadingPathLengths, OfAKeyWithADigit) {
    for (const size_t length : kKeyLengths) {
        for (const size_t position : {size_t{0}, length / 2, length - 1}) {
            std::wstring key(length, L'k');
            key[position] = L'1';
            ExpectOne(ObjectWith(key), L"/" + key, IfItFits(1 + length));
        }
    }
}

/// A slash inside a key takes two units, `~1`.
TEST(ReadingPathLengths, OfSlashesInAKey) {
    for (const size_t slashes : {510u, 511u, 512u, 513u, 50000u}) {
        for (const wchar_t* before : {L"", L"x", L"1"}) {
            const std::wstring key = before + std::wstring(slashes, L'/');
            const std::wstring path = L"/" + (before + Repeat(L"~/", slashes));
            ExpectOne(ObjectWith(key), path, IfItFits(path.size()));
        }
    }
}

/// The two units of a slash across the limit.
TEST(ReadingPathLengths, OfASlashAtTheEndOfAKey) {
    for (const size_t length : {1019u, 1020u, 1021u, 1022u, 1023u}) {
        for (const wchar_t* before : {L"", L"1"}) {
            const std::wstring key = before + std::wstring(length, L'x');
            const std::wstring path = L"/" + key + L"~/";
            ExpectOne(ObjectWith(key + L"/"), path, IfItFits(path.size()));
        }
    }
}

TEST(ReadingPathLengths, OfManySegments) {
    for (const size_t depth : {510u, 511u, 512u, 513u, 600u}) {
        const std::wstring json = Repeat(L"{\"a\":", depth) + L"7" + Repeat(L"}", depth);
        ExpectOne(json, Repeat(L"/a", depth), IfItFits(2 * depth));
        const std::wstring longer =
            Repeat(L"{\"a\":", depth - 1) + L"{\"bb\":7}" + Repeat(L"}", depth - 1);
        ExpectOne(longer, Repeat(L"/a", depth - 1) + L"/bb", IfItFits(2 * depth + 1));
    }
}

TEST(ReadingPathLengths, OfManyPositions) {
    for (const size_t depth : {510u, 511u, 512u, 513u, 600u})
        ExpectOne(NestedArrays(depth, 1), Repeat(L"/1", depth), IfItFits(2 * depth));
}

/// Position 11 is index 10: the digits of the index count.
TEST(ReadingPathLengths, OfADigitMore) {
    for (const size_t depth : {509u, 510u, 511u, 512u}) {
        const std::wstring json =
            Repeat(L"[", depth) + L"[7" + Repeat(L",7", 10) + Repeat(L"]", depth + 1);
        ExpectOne(json, Repeat(L"/1", depth) + L"/11", IfItFits(2 * depth + 3));
    }
}

/// Position 10 is index 9: a path may be longer than what it is translated to.
TEST(ReadingPathLengths, OfADigitLess) {
    for (const size_t depth : {400u, 511u, 512u, 600u})
        ExpectOne(NestedArrays(depth, 10), Repeat(L"/10", depth), IfItFits(2 * depth));
}

TEST(ReadingPathLengths, LeadingZerosDoNotCount) {
    for (const size_t zeros : {1000u, 1023u, 1024u, 2000u, 100000u})
        ExpectOne(L"{\"list\":[7]}", L"/list/" + std::wstring(zeros, L'0') + L"1", LeadsTo(7));
}

/// What counts is the translated path: of a segment below an array that is a position alone.
TEST(ReadingPathLengths, WhatStandsAroundAPositionDoesNotCount) {
    for (const size_t blanks : {1000u, 1023u, 1024u, 2000u, 100000u}) {
        ExpectOne(L"[7]", L"/" + std::wstring(blanks, L' ') + L"1", LeadsTo(7));
        ExpectOne(L"[7]", L"/1" + std::wstring(blanks, L'x'), LeadsTo(7));
        ExpectOne(L"[7]", L"/" + std::wstring(blanks, L'x') + L"1", LeadsNowhere());
    }
}

TEST(ReadingPathLengths, EndlessPathsLeadNowhere) {
    constexpr size_t kUnits = 100000;
    const std::wstring paths[] = {
        Repeat(L"/", kUnits),
        Repeat(L"/a", kUnits / 2),
        Repeat(L"~", kUnits),
        L"/" + Repeat(L"~", kUnits),
        L"/" + Repeat(L"~/", kUnits / 2),
        L"/" + Repeat(L"~0", kUnits / 2),
        L"/list/" + Repeat(L"9", kUnits),
        L"/list/" + Repeat(L"x", kUnits),
        L"/list/1" + Repeat(L"/x", kUnits / 2),
        L"/list/1" + Repeat(L"/", kUnits),
        L"/1" + Repeat(L"2", kUnits),
    };
    for (const std::wstring& path : paths) ExpectOne(L"{\"list\":[10]}", path, LeadsNowhere());
}

/// Only paths have a limit; by its key the same member is found.
TEST(ReadingPathLengths, KeysHaveNoLimit) {
    const std::wstring key(100000, L'k');
    const Parser parser = Loaded(ObjectWith(key).c_str());
    ExpectPath(*parser, (L"/" + key).c_str(), LeadsNowhere());
    uint32_t handle = 0, type = 0;
    int32_t number = 0;
    EXPECT_EQ(1, parser->GetMemberItemByPath(L"/", key.c_str(), &handle, &type));
    EXPECT_EQ(1, parser->GetItemInt(handle, &number));
    EXPECT_EQ(7, number);
    EXPECT_TRUE(parser->ExistsMemberByPath(L"/", key.c_str()));
}

}  // namespace
