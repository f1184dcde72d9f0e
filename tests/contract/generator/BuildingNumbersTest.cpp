// Numbers as they are stored and written: whole doubles and floats by each family, the limits of
// every width, and the numbers that are none.

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>

#include "BuildScene.h"

namespace {

using namespace building;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Row {
    Item item;
    const wchar_t* text;    ///< as written when added by reference or handle
    const wchar_t* byPath;  ///< as written when added by path; null when the same
};

/// Adds one item below the root, as a member and as an element, in every family that has it.
void ExpectWritten(const Row& row) {
    for (const NamedBy naming : kAllNamings) {
        if (!IsAddedBy(naming, row.item)) continue;
        for (const bool keyed : {true, false}) {
            SCOPED_TRACE(row.item.name + " " + NameOf(naming) + (keyed ? ", keyed" : ""));
            Scene scene;
            const wchar_t* parent = keyed ? L"object" : L"array";
            Arguments arguments = scene.Naming(parent);
            arguments.payload = row.item.payload;
            arguments.key = L"k";
            EXPECT_EQ(1, AddingOperation(row.item.kind, naming, keyed)
                             .call(scene.Generator(), arguments)
                             .result);
            const bool other = naming == NamedBy::kPath && row.byPath != nullptr;
            const std::wstring text = other ? row.byPath : row.text;
            const std::wstring whole = keyed ? L"{\"k\":" + text + L"}" : L"[" + text + L"]";
            EXPECT_EQ(whole, TextOf(At(scene.Naming(parent).reference)));
            const std::wstring member = std::wstring(L"\"") + parent + L"\":" + whole;
            EXPECT_NE(std::wstring::npos, scene.Text().find(member));
        }
    }
}

TEST(BuildingNumbers, WholeDoublesAreIntegersButByPath) {
    const Row rows[] = {
        {DoubleItem(3.0), L"3", L"3.0"},
        {DoubleItem(-3.0), L"-3", L"-3.0"},
        {DoubleItem(0.0), L"0", L"0.0"},
        {DoubleItem(-0.0), L"0", L"-0.0"},
        {DoubleItem(1e15), L"1000000000000000", L"1000000000000000.0"},
        {DoubleItem(4294967296.0), L"4294967296", L"4294967296.0"},
        {DoubleItem(9007199254740992.0), L"9007199254740992", L"9007199254740992.0"},
        {DoubleItem(9223372036854774784.0), L"9223372036854774784", L"9223372036854775000.0"},
        {DoubleItem(-9223372036854774784.0), L"-9223372036854774784", L"-9223372036854775000.0"},
        {DoubleItem(-9223372036854775808.0), L"-9223372036854775808", L"-9223372036854776000.0"},
        {DoubleItem(9223372036854775808.0), L"-9223372036854775808", L"9223372036854776000.0"},
    };
    for (const Row& row : rows) ExpectWritten(row);
}

TEST(BuildingNumbers, OtherDoublesAreDoubles) {
    const Row rows[] = {
        {DoubleItem(3.5), L"3.5", nullptr},
        {DoubleItem(-0.5), L"-0.5", nullptr},
        {DoubleItem(0.1), L"0.1", nullptr},
        {DoubleItem(0.7), L"0.7", nullptr},
        {DoubleItem(1125899906842623.5), L"1125899906842623.5", nullptr},
        {DoubleItem(1.0 - DBL_EPSILON / 2), L"0.9999999999999999", nullptr},
        {DoubleItem(-1e-300), L"-1e-300", nullptr},
        {DoubleItem(5e-324), L"5e-324", nullptr},
        {DoubleItem(-5e-324), L"-5e-324", nullptr},
        {DoubleItem(9223372036854777856.0), L"9223372036854778000.0", nullptr},
        {DoubleItem(-9223372036854777856.0), L"-9223372036854778000.0", nullptr},
        {DoubleItem(1e19), L"10000000000000000000.0", nullptr},
        {DoubleItem(1e22), L"1e22", nullptr},
        {DoubleItem(-1e300), L"-1e300", nullptr},
        {DoubleItem(DBL_MAX), L"1.7976931348623157e308", nullptr},
        {DoubleItem(kNaN), L"NaN", nullptr},
        {DoubleItem(-kNaN), L"NaN", nullptr},
        {DoubleItem(kInfinity), L"Infinity", nullptr},
        {DoubleItem(-kInfinity), L"-Infinity", nullptr},
    };
    for (const Row& row : rows) ExpectWritten(row);
}

TEST(BuildingNumbers, FloatsKeepTheirExactValue) {
    const Row rows[] = {
        {FloatItem(1.5f), L"1.5", nullptr},
        {FloatItem(0.1f), L"0.10000000149011612", nullptr},
        {FloatItem(-0.1f), L"-0.10000000149011612", nullptr},
        {FloatItem(3.0f), L"3", L"3.0"},
        {FloatItem(-0.0f), L"0", L"-0.0"},
        {FloatItem(8388607.5f), L"8388607.5", nullptr},
        {FloatItem(16777216.0f), L"16777216", L"16777216.0"},
        {FloatItem(9223371487098961920.0f), L"9223371487098961920", L"9223371487098962000.0"},
        {FloatItem(-9223371487098961920.0f), L"-9223371487098961920", L"-9223371487098962000.0"},
        {FloatItem(9223372036854775808.0f), L"-9223372036854775808", L"9223372036854776000.0"},
        {FloatItem(-9223372036854775808.0f), L"-9223372036854775808", L"-9223372036854776000.0"},
        {FloatItem(9223373136366403584.0f), L"9223373136366404000.0", nullptr},
        {FloatItem(-9223373136366403584.0f), L"-9223373136366404000.0", nullptr},
        {FloatItem(std::numeric_limits<float>::denorm_min()), L"1.401298464324817e-45", nullptr},
        {FloatItem(std::numeric_limits<float>::quiet_NaN()), L"NaN", nullptr},
        {FloatItem(std::numeric_limits<float>::infinity()), L"Infinity", nullptr},
        {FloatItem(-std::numeric_limits<float>::infinity()), L"-Infinity", nullptr},
    };
    for (const Row& row : rows) ExpectWritten(row);
}

TEST(BuildingNumbers, IntegersAtTheLimitsOfTheirWidths) {
    const Row rows[] = {
        {IntItem(0), L"0", nullptr},
        {IntItem(-1), L"-1", nullptr},
        {IntItem(INT_MAX), L"2147483647", nullptr},
        {IntItem(INT_MIN), L"-2147483648", nullptr},
        {UIntItem(0), L"0", nullptr},
        {UIntItem(0x80000000), L"2147483648", nullptr},
        {UIntItem(UINT_MAX), L"4294967295", nullptr},
        {Int64Item(0), L"0", nullptr},
        {Int64Item(-2147483649), L"-2147483649", nullptr},
        {Int64Item(INT64_MAX), L"9223372036854775807", nullptr},
        {Int64Item(INT64_MIN), L"-9223372036854775808", nullptr},
        {UInt64Item(0), L"0", nullptr},
        {UInt64Item(4294967296), L"4294967296", nullptr},
        {UInt64Item(INT64_MAX + 1ull), L"9223372036854775808", nullptr},
        {UInt64Item(UINT64_MAX), L"18446744073709551615", nullptr},
        {NumberVariant(0), L"0", nullptr},
        {NumberVariant(INT64_MAX), L"9223372036854775807", nullptr},
        {NumberVariant(INT64_MIN), L"-9223372036854775808", nullptr},
    };
    for (const Row& row : rows) ExpectWritten(row);
}

TEST(BuildingNumbers, SpecialNumbersAndFlags) {
    const Row rows[] = {
        {SpecialNumberItem(0), L"0", nullptr},        {SpecialNumberItem(1), L"NaN", nullptr},
        {SpecialNumberItem(2), L"Infinity", nullptr}, {SpecialNumberItem(3), L"-Infinity", nullptr},
        {BooleanItem(0), L"false", nullptr},          {BooleanItem(1), L"true", nullptr},
        {BooleanItem(2), L"true", nullptr},           {BooleanItem(0x100), L"true", nullptr},
        {BooleanItem(0x80000000), L"true", nullptr},  {BooleanItem(0xFFFFFFFF), L"true", nullptr},
    };
    for (const Row& row : rows) ExpectWritten(row);
}

/// What a number became also shows in the document itself: only doubles are doubles there.
TEST(BuildingNumbers, TheValueBehindAReference) {
    const support::Generator generator = support::NewGenerator();
    uint64_t root = 0;
    EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
    for (const Item& item : Items()) {
        if (!IsAddedBy(NamedBy::kReference, item)) continue;
        SCOPED_TRACE(item.name);
        Arguments arguments = With(item);
        arguments.reference = root;
        arguments.key = L"k";
        const Answer answer =
            AddingOperation(item.kind, NamedBy::kReference, true).call(*generator, arguments);
        ASSERT_EQ(1u, answer.outputs.size());
        Allocator allocator;
        const Value expected = Stored(item, NamedBy::kReference, allocator);
        const Value& value = At(answer.Number());
        EXPECT_EQ(expected.GetType(), value.GetType());
        EXPECT_EQ(expected.IsDouble(), value.IsDouble());
        EXPECT_EQ(expected.IsInt(), value.IsInt());
        EXPECT_EQ(expected.IsUint(), value.IsUint());
        EXPECT_EQ(expected.IsInt64(), value.IsInt64());
        EXPECT_EQ(expected.IsUint64(), value.IsUint64());
        if (!expected.IsDouble()) continue;
        EXPECT_EQ(std::isnan(expected.GetDouble()), std::isnan(value.GetDouble()));
        EXPECT_TRUE(std::isnan(expected.GetDouble()) || expected.GetDouble() == value.GetDouble());
    }
}

}  // namespace
