// Numbers in each form of output.

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <limits>
#include <random>

#include "OutputForm.h"
#include "OutputReference.h"

namespace {

using support::ExpectAllForms;
using support::Generator;
using support::GeneratorOf;
using support::JsonOf;
using support::OutputForm;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Appends the number as it is: only by path a double without a fraction stays one.
void Append(QXJSON::IJsonGenerator& generator, double number) {
    uint32_t handle = 0;
    EXPECT_EQ(1, generator.AddArrayItemDoubleByPath(L"/", number, &handle));
}

struct Real {
    double number;
    const wchar_t* text;
};

const Real kReals[] = {
    {0.0, L"0.0"},
    {-0.0, L"-0.0"},
    {1.0, L"1.0"},
    {-1.0, L"-1.0"},
    {1.5, L"1.5"},
    {0.1, L"0.1"},
    {double{0.1f}, L"0.10000000149011612"},
    {1.0 / 3, L"0.3333333333333333"},
    {123456789.0, L"123456789.0"},
    {1e20, L"100000000000000000000.0"},
    {1e21, L"1e21"},
    {1.25e21, L"1.25e21"},
    {-1e300, L"-1e300"},
    {1e-5, L"0.00001"},
    {9007199254740993.0, L"9007199254740992.0"},
    {9223372036854775808.0, L"9223372036854776000.0"},
    {DBL_MAX, L"1.7976931348623157e308"},
    {DBL_MIN, L"2.2250738585072014e-308"},
    {5e-324, L"5e-324"},
    {kNan, L"NaN"},
    {-kNan, L"NaN"},
    {kInfinity, L"Infinity"},
    {-kInfinity, L"-Infinity"},
};

TEST(OutputNumbers, Doubles) {
    model::Document all = model::Parse(L"[]");
    const Generator generatorOfAll = GeneratorOf(L"[]");
    for (const Real& real : kReals) {
        const Generator generator = GeneratorOf(L"[]");
        Append(*generator, real.number);
        EXPECT_EQ(L"[" + std::wstring(real.text) + L"]", JsonOf(*generator));
        Append(*generatorOfAll, real.number);
        all.PushBack(real.number, all.GetAllocator());
    }
    ExpectAllForms(all, *generatorOfAll);
}

/// Texts of numbers as they are loaded, and as they are written then. Reading is exact up to 15
/// digits.
struct Loaded {
    const wchar_t* json;
    const wchar_t* text;
};

const Loaded kLoaded[] = {
    {L"0", L"0"},
    {L"-0", L"0"},
    {L"-0.0", L"-0.0"},
    {L"1", L"1"},
    {L"-1", L"-1"},
    {L"2147483647", L"2147483647"},
    {L"2147483648", L"2147483648"},
    {L"-2147483648", L"-2147483648"},
    {L"-2147483649", L"-2147483649"},
    {L"4294967295", L"4294967295"},
    {L"4294967296", L"4294967296"},
    {L"9223372036854775807", L"9223372036854775807"},
    {L"-9223372036854775808", L"-9223372036854775808"},
    {L"9223372036854775808", L"9223372036854775808"},
    {L"18446744073709551615", L"18446744073709551615"},
    {L"18446744073709551616", L"18446744073709553000.0"},
    {L"-9223372036854775809", L"-9223372036854776000.0"},
    {L"1.0", L"1.0"},
    {L"1e0", L"1.0"},
    {L"1E+2", L"100.0"},
    {L"12.5e-1", L"1.25"},
    {L"1e-400", L"0.0"},
    {L"0.30000000000000004", L"0.30000000000000007"},
    {L"NaN", L"NaN"},
    {L"Inf", L"Infinity"},
    {L"-Inf", L"-Infinity"},
    {L"Infinity", L"Infinity"},
    {L"-Infinity", L"-Infinity"},
};

TEST(OutputNumbers, LoadedNumbers) {
    std::wstring all = L"[0";
    for (const Loaded& loaded : kLoaded) {
        SCOPED_TRACE(testing::PrintToString(loaded.json));
        const Generator generator = GeneratorOf(L"[" + std::wstring(loaded.json) + L"]");
        EXPECT_EQ(L"[" + std::wstring(loaded.text) + L"]", JsonOf(*generator));
        all += L"," + std::wstring(loaded.json);
    }
    ExpectAllForms(model::Parse(all + L"]"), *GeneratorOf(all + L"]"));
}

TEST(OutputNumbers, IntegersOfEveryWidth) {
    const Generator generator = GeneratorOf(L"[]");
    QXJSON::IJsonGenerator& g = *generator;
    uint32_t handle = 0;
    g.AddArrayItemInt(1, INT32_MIN, &handle);
    g.AddArrayItemInt(1, INT32_MAX, &handle);
    g.AddArrayItemUInt(1, UINT32_MAX, &handle);
    g.AddArrayItemInt64(1, INT64_MIN, &handle);
    g.AddArrayItemInt64(1, INT64_MAX, &handle);
    g.AddArrayItemUInt64(1, UINT64_MAX, &handle);
    const std::wstring json =
        L"[-2147483648,2147483647,4294967295,-9223372036854775808,9223372036854775807,"
        L"18446744073709551615]";
    EXPECT_EQ(json, JsonOf(g));
    ExpectAllForms(model::Parse(json), g);
}

/// Finite doubles of every size, from a fixed sequence.
double NextDouble(std::mt19937_64& random) {
    double number = kNan;
    while (!std::isfinite(number)) {
        const uint64_t bits = random();
        std::memcpy(&number, &bits, sizeof number);
    }
    return number;
}

TEST(OutputNumbers, RandomDoubles) {
    std::mt19937_64 random(1);
    const Generator generator = GeneratorOf(L"[]");
    model::Document document = model::Parse(L"[]");
    std::vector<double> numbers;
    for (int i = 0; i < 5000; ++i) {
        numbers.push_back(i % 2 == 0 ? NextDouble(random) : static_cast<double>(random()) / 1e6);
        Append(*generator, numbers.back());
        document.PushBack(numbers.back(), document.GetAllocator());
    }
    ExpectAllForms(document, *generator);

    const std::wstring text = JsonOf(*generator);
    const wchar_t* at = text.c_str() + 1;
    for (const double number : numbers) {
        wchar_t* end = nullptr;
        ASSERT_EQ(number, std::wcstod(at, &end))
            << "written as " << testing::PrintToString(std::wstring(at).substr(0, 30));
        at = end + 1;
    }
}

}  // namespace
