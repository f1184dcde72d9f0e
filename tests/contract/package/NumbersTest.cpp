// Setting keys to numbers and booleans: what is stored as an integer, what as a double, and what
// numbers that are not finite do to the output.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "OutputReference.h"
#include "PackageState.h"
#include "Selectors.h"
#include "TempFile.h"

namespace {

using support::LoadedPackage;
using support::NewPackage;
using support::Package;
using support::PackageText;

constexpr double kTwoTo63 = 9223372036854775808.0;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

std::wstring Only(const std::wstring& value) { return L"{\"k\":" + value + L"}"; }

TEST(PackageNumbers, WholeNumbersAreStoredAsIntegers) {
    struct Row {
        double number;
        int64_t stored;
    };
    const Row rows[] = {
        {0.0, 0},
        {-0.0, 0},
        {3.0, 3},
        {-3.0, -3},
        {2147483647.0, 2147483647},
        {2147483648.0, 2147483648},
        {-2147483649.0, -2147483649},
        {4294967296.0, 4294967296},
        {9007199254740993.0, 9007199254740992},
        {1e18, 1000000000000000000},
        {std::nextafter(kTwoTo63, 0.0), 9223372036854774784},
        {-kTwoTo63, std::numeric_limits<int64_t>::min()},
        {std::nextafter(-kTwoTo63, 0.0), -9223372036854774784},
        // The upper bound belongs to the integers and wraps.
        {kTwoTo63, std::numeric_limits<int64_t>::min()},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        const Package package = NewPackage();
        EXPECT_EQ(1, package->SetValueNumber(L"k", row.number));
        EXPECT_EQ(Only(model::ReferenceText(model::Value(row.stored))), PackageText(*package));
        double number = 0.5;
        EXPECT_EQ(1, package->GetValueNumber(L"k", &number));
        EXPECT_EQ(static_cast<double>(row.stored), number);
        QXJSON::JsonVariant variant = {};
        EXPECT_EQ(1, package->GetValueVariantEx(L"k", &variant));
        EXPECT_EQ(QXJSON::kVariantInt64, variant.tag);
        EXPECT_EQ(row.stored, variant.number);
    }
}

TEST(PackageNumbers, AllOthersAreStoredAsDoubles) {
    const double numbers[] = {
        2.5,
        -2.5,
        0.1,
        1e-300,
        5e-324,
        4503599627370495.5,
        std::nextafter(kTwoTo63, kInfinity),
        std::nextafter(-kTwoTo63, -kInfinity),
        18446744073709551616.0,
        1e300,
        -1e300,
        std::numeric_limits<double>::max(),
    };
    for (const double stored : numbers) {
        SCOPED_TRACE(stored);
        const Package package = NewPackage();
        EXPECT_EQ(1, package->SetValueNumber(L"k", stored));
        EXPECT_EQ(Only(model::ReferenceText(model::Value(stored))), PackageText(*package));
        double number = 0;
        EXPECT_EQ(1, package->GetValueNumber(L"k", &number));
        EXPECT_EQ(stored, number);
        QXJSON::JsonVariant variant = {};
        EXPECT_EQ(-3, package->GetValueVariantEx(L"k", &variant));
    }
}

TEST(PackageNumbers, AsTheyAreWritten) {
    struct Row {
        double number;
        const wchar_t* text;
    };
    for (const Row& row : {Row{3.0, L"3"}, Row{2.5, L"2.5"}, Row{-0.0, L"0"}, Row{1e21, L"1e21"},
                           Row{kTwoTo63, L"-9223372036854775808"}, Row{1e15, L"1000000000000000"},
                           Row{1e20, L"100000000000000000000.0"}, Row{1e-7, L"1e-7"}}) {
        const Package package = NewPackage();
        EXPECT_EQ(1, package->SetValueNumber(L"k", row.number));
        EXPECT_EQ(Only(row.text), PackageText(*package));
    }
}

TEST(PackageNumbers, LoadedNumbersConvertToDouble) {
    struct Row {
        const wchar_t* text;
        double number;
    };
    const Row rows[] = {
        {L"0", 0.0},
        {L"-1", -1.0},
        {L"4294967295", 4294967295.0},
        {L"9223372036854775807", kTwoTo63},
        {L"9223372036854775808", kTwoTo63},
        {L"18446744073709551615", 2 * kTwoTo63},
        {L"-9223372036854775808", -kTwoTo63},
        {L"18446744073709551616", 2 * kTwoTo63},
        {L"-9223372036854775809", -kTwoTo63},
        {L"3.0", 3.0},
        {L"1e308", 1e308},
    };
    for (const Row& row : rows) {
        const Package package = LoadedPackage(Only(row.text));
        double number = 0.5;
        EXPECT_EQ(1, package->GetValueNumber(L"k", &number)) << testing::PrintToString(row.text);
        EXPECT_EQ(row.number, number) << testing::PrintToString(row.text);
    }
}

TEST(PackageNumbers, ReplaceValuesOfEveryKindInPlace) {
    for (const wchar_t* old : {L"\"old\"", L"1", L"2.5", L"true", L"null", L"{\"x\":1}", L"[1]"}) {
        SCOPED_TRACE(testing::PrintToString(old));
        const Package package =
            LoadedPackage(std::wstring(L"{\"a\":1,\"Key\":") + old + L",\"z\":2}");
        EXPECT_EQ(1, package->SetValueNumber(L"KEY", -17));
        EXPECT_EQ(L"{\"a\":1,\"Key\":-17,\"z\":2}", PackageText(*package));
        EXPECT_EQ(1, package->SetValueNumber(L"keY", 0.5));
        EXPECT_EQ(L"{\"a\":1,\"Key\":0.5,\"z\":2}", PackageText(*package));
        EXPECT_EQ(1, package->SetValueBoolean(L"kEY", true));
        EXPECT_EQ(L"{\"a\":1,\"Key\":true,\"z\":2}", PackageText(*package));
    }
}

TEST(PackageNumbers, Booleans) {
    const Package package = NewPackage();
    for (const bool flag : {true, false}) {
        bool got = !flag;
        EXPECT_EQ(1, package->SetValueBoolean(L"k", flag));
        EXPECT_EQ(1, package->GetValueBoolean(L"K", &got));
        EXPECT_EQ(flag, got);
        EXPECT_EQ(Only(flag ? L"true" : L"false"), PackageText(*package));
    }
}

TEST(PackageNumbers, ANullKeyChangesNothing) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    for (const double number : {1.0, 2.5, kNaN, kInfinity})
        EXPECT_EQ(-1, package->SetValueNumber(nullptr, number));
    EXPECT_EQ(-1, package->SetValueBoolean(nullptr, true));
    EXPECT_EQ(L"{\"a\":1}", PackageText(*package));
}

// ---- Numbers that are not finite ---------------------------------------------------------------

const double kNotFinite[] = {kNaN, kInfinity, -kInfinity};

/// A package with such a number after another key, and a key after that.
Package WithNotFinite(double number) {
    Package package = LoadedPackage(L"{\"a\":\"\xE9\"}");
    EXPECT_EQ(1, package->SetValueNumber(L"b", number));
    EXPECT_EQ(1, package->SetValueNumber(L"c", 2));
    return package;
}

constexpr const wchar_t* kWrittenBefore = L"{\"a\":\"\xE9\",\"b\":";

TEST(PackageNumbers, NotFiniteOnesAreKeptAsTheyAre) {
    for (const double stored : kNotFinite) {
        SCOPED_TRACE(stored);
        const Package package = WithNotFinite(stored);
        double number = 0;
        EXPECT_EQ(1, package->GetValueNumber(L"b", &number));
        EXPECT_TRUE(number == stored || (std::isnan(stored) && std::isnan(number))) << number;
        uint32_t type = 99;
        EXPECT_EQ(1, package->GetValueType(L"b", &type));
        EXPECT_EQ(1u, type);
        const wchar_t* text = nullptr;
        EXPECT_EQ(-3, package->GetValue(L"b", &text));
        EXPECT_STREQ(L"", text);
    }
}

TEST(PackageNumbers, NotFiniteOnesEndTheOutput) {
    for (const double stored : kNotFinite) {
        SCOPED_TRACE(stored);
        const Package package = WithNotFinite(stored);
        EXPECT_EQ(kWrittenBefore, PackageText(*package));
        EXPECT_EQ(kWrittenBefore, PackageText(*package));
        for (const int32_t encoding : support::kAllSelectors) {
            const void* data = nullptr;
            size_t length = 0;
            EXPECT_EQ(1, package->GetBytes(&data, &length, encoding));
            EXPECT_EQ(support::TextIn(encoding, kWrittenBefore),
                      std::string(static_cast<const char*>(data), length));
        }
        // Values of other keys are not affected.
        EXPECT_EQ(1, package->SetValue(L"o", L"{\"x\":[1]}", true));
        const wchar_t* value = nullptr;
        EXPECT_EQ(1, package->GetValue(L"o", &value));
        EXPECT_STREQ(L"{\"x\":[1]}", value);
    }
}

TEST(PackageNumbers, AFileWithOneIsClosed) {
    for (const double stored : kNotFinite)
        for (const int32_t encoding : support::kAllSelectors) {
            const Package package = WithNotFinite(stored);
            const support::TempFile file;
            EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
            EXPECT_TRUE(file.IsClosed());
        }
}

TEST(PackageNumbers, OutputIsWholeAgainWithoutThem) {
    for (const double stored : kNotFinite) {
        const Package package = WithNotFinite(stored);
        PackageText(*package);
        EXPECT_EQ(1, package->RemoveKey(L"b"));
        EXPECT_EQ(L"{\"a\":\"\xE9\",\"c\":2}", PackageText(*package));
        EXPECT_EQ(1, package->SetValueNumber(L"c", stored));
        EXPECT_EQ(L"{\"a\":\"\xE9\",\"c\":", PackageText(*package));
        EXPECT_EQ(1, package->SetValueNumber(L"C", 7));
        EXPECT_EQ(L"{\"a\":\"\xE9\",\"c\":7}", PackageText(*package));
    }
}

}  // namespace
