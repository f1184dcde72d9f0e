// Numbers as text, against RapidJSON's own way to write them.

#include "common/text/NumberWriter.h"

#include <gtest/gtest.h>
#include <rapidjson/internal/dtoa.h>
#include <rapidjson/internal/itoa.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

using namespace QXJSON;

template <class Unit, class Write>
std::string Written(Write&& write) {
    Unit units[2 * kLongestNumber];
    std::fill(std::begin(units), std::end(units), Unit{'?'});
    const Unit* const end = write(units);
    EXPECT_LE(end - units, static_cast<std::ptrdiff_t>(kLongestNumber));
    EXPECT_EQ(Unit{'?'}, units[kLongestNumber]) << "more was touched than may be";
    return std::string(static_cast<const Unit*>(units), end);
}

std::string Expected(double number) {
    char text[64];
    return std::string(text, rapidjson::internal::dtoa(number, text));
}

void ExpectDouble(double number) {
    const std::string expected = Expected(number);
    ASSERT_EQ(expected, Written<char>([=](char* to) { return WriteDouble(to, number); }));
    ASSERT_EQ(expected, Written<wchar_t>([=](wchar_t* to) { return WriteDouble(to, number); }));
}

double DoubleOf(uint64_t bits) {
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

TEST(WriteDouble, AnyBits) {
    std::mt19937_64 random(21);
    for (int i = 0; i < 300'000; ++i) {
        const double number = DoubleOf(random());
        if (std::isfinite(number)) ExpectDouble(number);
    }
}

/// As they stand in documents, with digits in front of the point and behind it.
TEST(WriteDouble, DecimalFractions) {
    std::mt19937_64 random(22);
    double power = 1;
    for (int digits = 0; digits < 18; ++digits, power *= 10)
        for (int i = 0; i < 20'000; ++i) {
            const auto whole = static_cast<int64_t>(random()) >> (i % 60);
            ExpectDouble(static_cast<double>(whole) / power);
        }
}

TEST(WriteDouble, PowersAndTheirNeighbours) {
    using Limits = std::numeric_limits<double>;
    for (const double base : {2.0, 5.0, 10.0})
        for (double number = Limits::denorm_min(); std::isfinite(number); number *= base)
            for (const double close :
                 {std::nextafter(number, 0), number, std::nextafter(number, Limits::infinity())}) {
                if (!std::isfinite(close)) continue;
                ExpectDouble(close);
                ExpectDouble(-close);
            }
    for (int exponent = -323; exponent <= 308; ++exponent)
        for (const char* digits : {"1", "9.999999999999999", "1.000000000000001", "123456789"})
            ExpectDouble(std::strtod((digits + ("e" + std::to_string(exponent))).c_str(), nullptr));
    for (const double number : {0.0, -0.0, Limits::min(), Limits::max(), Limits::denorm_min()})
        ExpectDouble(number);
}

TEST(WriteDouble, SmallWholesAndHalves) {
    for (int i = -20'000; i < 20'000; ++i) ExpectDouble(i / 2.0);
}

template <class Unit>
void ExpectInteger(int64_t number) {
    char text[32];
    const std::string expected(text, rapidjson::internal::i64toa(number, text));
    ASSERT_EQ(expected, Written<Unit>([=](Unit* to) { return WriteInteger(to, number); }));
    const auto whole = static_cast<uint64_t>(number);
    const std::string wholeExpected(text, rapidjson::internal::u64toa(whole, text));
    ASSERT_EQ(wholeExpected, Written<Unit>([=](Unit* to) { return WriteWhole(to, whole); }));
}

TEST(WriteInteger, OfEveryLength) {
    std::mt19937_64 random(23);
    for (int i = 0; i < 200'000; ++i) {
        const auto number = static_cast<int64_t>(random()) >> (i % 64);
        ExpectInteger<char>(number);
        ExpectInteger<wchar_t>(number);
    }
    uint64_t power = 1;
    for (int digits = 0; digits < 20; ++digits, power *= 10)
        for (const uint64_t close : {power - 1, power, power + 1}) {
            ExpectInteger<char>(static_cast<int64_t>(close));
            ExpectInteger<wchar_t>(static_cast<int64_t>(0 - close));
        }
}

}  // namespace
