// Reading of values: every combination of mistakes, of which the first decides.

#include "common/values/ValueAccess.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace QXJSON;

JsonDocument Parsed(const wchar_t* json) {
    JsonDocument document;
    document.Parse(json);
    EXPECT_FALSE(document.HasParseError());
    return document;
}

constexpr int kAbsence = -77;  ///< the result of a place that has no value

/// A mistake, and its result. In the order in which they are found.
struct Mistake {
    const char* name;
    int result;
};

/// Calls `check` with every set of mistakes (one bit each) and the result that is to come of it:
/// that of the first of them.
template <size_t count, class Check>
void ForEverySet(const Mistake (&mistakes)[count], const Check& check) {
    for (unsigned set = 0; set < 1u << count; ++set) {
        int expected = kSuccess;
        std::string names;
        for (size_t i = count; i-- > 0;) {
            if (!(set >> i & 1)) continue;
            expected = mistakes[i].result;
            names = std::string(mistakes[i].name) + ", " + names;
        }
        SCOPED_TRACE(names);
        check(set, expected);
    }
}

TEST(ValueAccess, OrderOfChecksOfGetters) {
    const Mistake mistakes[] = {{"no value", kAbsence}, {"no output", 0}, {"wrong kind", -3}};
    JsonDocument document = Parsed(L"[12,\"text\"]");
    ForEverySet(mistakes, [&](unsigned set, int expected) {
        int32_t number = 4711;
        const Place place = {set & 1 ? nullptr : &document[set & 4 ? 1 : 0], kAbsence};
        EXPECT_EQ(expected, Get<Int>(place, set & 2 ? nullptr : &number));
        EXPECT_EQ(expected == kSuccess ? 12 : 4711, number);
    });
}

TEST(ValueAccess, OrderOfChecksOfGettersByKey) {
    const Mistake mistakes[] = {{"no value", kAbsence}, {"no key", -1},  {"no output", 0},
                                {"no object", -3},      {"missing", -1}, {"wrong kind", -3}};
    JsonDocument document = Parsed(L"[{\"a\":12,\"t\":\"text\"},[12]]");
    ForEverySet(mistakes, [&](unsigned set, int expected) {
        const DocumentPool none;
        MemberLookup members(none);
        int32_t number = 4711;
        const Place place = {set & 1 ? nullptr : &document[set & 8 ? 1 : 0], kAbsence};
        const wchar_t* const key = set & 2 ? nullptr : set & 16 ? L"x" : set & 32 ? L"T" : L"A";
        EXPECT_EQ(expected, GetMember<Int>(members, place, key, set & 4 ? nullptr : &number));
        EXPECT_EQ(expected == kSuccess ? 12 : 4711, number);
    });
}

TEST(ValueAccess, OrderOfChecksOfFindMember) {
    const Mistake mistakes[] = {{"no value", kAbsence},
                                {"no key", -1},
                                {"no output", 0},
                                {"no object", -66},
                                {"missing", -55}};
    JsonDocument document = Parsed(L"[{\"a\":12},[12]]");
    ForEverySet(mistakes, [&](unsigned set, int expected) {
        const DocumentPool none;
        MemberLookup members(none);
        const Place place = {set & 1 ? nullptr : &document[set & 8 ? 1 : 0], kAbsence};
        const wchar_t* const key = set & 2 ? nullptr : set & 16 ? L"x" : L"A";
        const Place found = FindMember(members, place, {key, (set & 4) == 0, -55, -66});
        EXPECT_EQ(expected == kSuccess ? &document[0][L"a"] : nullptr, found.value);
        if (expected != kSuccess) {
            EXPECT_EQ(expected, found.absence);
        }
    });
}

TEST(ValueAccess, OrderOfChecksOfChildren) {
    const Mistake mistakes[] = {
        {"no value", kAbsence}, {"no output", 0}, {"no container", -3}, {"index", 0}};
    JsonDocument document = Parsed(L"[{\"a\":12},[12],\"text\"]");
    for (const unsigned container : {0u, 1u}) {
        ForEverySet(mistakes, [&](unsigned set, int expected) {
            const Place place = {set & 1 ? nullptr : &document[set & 4 ? 2 : container], kAbsence};
            const Place found = ChildAt(place, set & 8 ? 1 : 0, (set & 2) == 0);
            if (expected != kSuccess) {
                EXPECT_EQ(nullptr, found.value);
                EXPECT_EQ(expected, found.absence);
            } else {
                ASSERT_NE(nullptr, found.value);
                EXPECT_EQ(12, found.value->GetInt());
            }
        });
    }
}

TEST(ValueAccess, OrderOfChecksOfNames) {
    const Mistake mistakes[] = {
        {"no value", kAbsence}, {"no output", 0}, {"no object", -3}, {"index", 0}};
    JsonDocument document = Parsed(L"[{\"a\":12},[12]]");
    const wchar_t* const untouched = L"untouched";
    for (const uint32_t beyond : {1u, 2u, 0xFFFFFFFFu}) {
        ForEverySet(mistakes, [&](unsigned set, int expected) {
            const wchar_t* name = untouched;
            const Place place = {set & 1 ? nullptr : &document[set & 4 ? 1 : 0], kAbsence};
            const uint32_t index = set & 8 ? beyond : 0;
            EXPECT_EQ(expected, GetMemberName(place, index, set & 2 ? nullptr : &name));
            EXPECT_STREQ(expected == kSuccess ? L"a" : untouched, name);
        });
    }
}

/// A number as it stands in a text, and what each getter says of it.
struct Width {
    const wchar_t* json;
    bool int32;
    bool uint32;
    bool int64;
    bool uint64;
    uint32_t valueType;
};

const Width kWidths[] = {
    {L"[5]", true, true, true, true, 6},
    {L"[-5]", true, false, true, false, 6},
    {L"[3000000000]", false, true, true, true, 7},
    {L"[-3000000000]", false, false, true, false, 8},
    {L"[9223372036854775807]", false, false, true, true, 8},
    {L"[9223372036854775808]", false, false, false, true, 9},
    {L"[18446744073709551616]", false, false, false, false, 11},
    {L"[5.0]", false, false, false, false, 11},
};

TEST(ValueAccess, WidthsOfNumbers) {
    for (const Width& row : kWidths) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.json)));
        JsonDocument document = Parsed(row.json);
        const Place place = {&document[0]};
        int32_t i32 = 0;
        uint32_t u32 = 0;
        int64_t i64 = 0;
        uint64_t u64 = 0;
        double real = 0;
        float single = 0;
        EXPECT_EQ(row.int32 ? 1 : -3, Get<Int>(place, &i32));
        EXPECT_EQ(row.uint32 ? 1 : -3, Get<Uint>(place, &u32));
        EXPECT_EQ(row.int64 ? 1 : -3, Get<Int64>(place, &i64));
        EXPECT_EQ(row.uint64 ? 1 : -3, Get<Uint64>(place, &u64));
        EXPECT_EQ(1, Get<Double>(place, &real));
        EXPECT_EQ(1, Get<Float>(place, &single));
        EXPECT_EQ(document[0].GetDouble(), real);
        EXPECT_EQ(static_cast<float>(real), single);
        EXPECT_EQ(1, Get<ValueType>(place, &u32));
        EXPECT_EQ(row.valueType, u32);
    }
}

}  // namespace
