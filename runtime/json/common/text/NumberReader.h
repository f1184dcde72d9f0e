#pragma once

#include <rapidjson/internal/strtod.h>
#include <stdint.h>

#include <cstddef>
#include <type_traits>

#include "Digits.h"
#include "common/platform/Compiler.h"

// Numbers as RapidJSON's reader makes them of the same digits by default, bit for bit: its types of
// integers, the order of its operations on doubles, and the digits that it leaves out.

namespace QXJSON {

/// What digits stand for.
struct Number {
    enum Kind { kNegative, kPositive, kDouble };

    Kind kind = kPositive;
    uint64_t whole = 0;  ///< the amount of an integer
    double real = 0;     ///< the value of a double
};

/// Hands a number to a handler, in the narrowest type that holds it.
template <class Handler>
void Send(const Number& number, Handler& handler) {
    constexpr uint64_t kLowestInt = uint64_t{1} << 31;
    const uint64_t whole = number.whole;
    if (number.kind == Number::kDouble)
        handler.Double(number.real);
    else if (number.kind == Number::kPositive && whole <= UINT32_MAX)
        handler.Uint(static_cast<uint32_t>(whole));
    else if (number.kind == Number::kPositive)
        handler.Uint64(whole);
    else if (whole <= kLowestInt)
        handler.Int(static_cast<int32_t>(0 - static_cast<uint32_t>(whole)));
    else
        handler.Int64(static_cast<int64_t>(0 - whole));
}

/// How many digits are counted together at most: no number of them overflows.
constexpr unsigned kMostCounted = 18;
/// How far ReadPlainNumber looks ahead, in units.
constexpr size_t kNumberReach = 32;

/// Adds the digits from here to those of a number, and counts them. Returns where they end, or
/// where they are too many.
template <class Unit>
JSON_ALWAYS_INLINE inline const Unit* AddDigits(const Unit* at, uint64_t& number, unsigned& count) {
    static constexpr uint32_t kPowers[] = {1,       10,        100,        1'000,      10'000,
                                           100'000, 1'000'000, 10'000'000, 100'000'000};
    Digits next = {};
    do {
        next = DigitsAt(at);
        number = number * kPowers[next.count] + next.number;
        count += next.count;
        at += next.count;
    } while (next.count == kMostDigits && count <= kMostCounted);
    return at;
}

/// Reads a number as most are, some units of which may lie behind the end of the text: without an
/// exponent, and with so few digits that they can be counted together. Returns where it ends; null
/// where it is another.
template <class Unit>
JSON_ALWAYS_INLINE inline const Unit* ReadPlainNumber(const Unit* at, Number& number) {
    constexpr uint64_t kMostTogether = (uint64_t{10} << 53) - 1;
    const bool minus = *at == '-';
    if (minus) ++at;
    uint64_t whole = 0;
    unsigned count = 1;
    if (*at == '0') {
        ++at;
    } else {
        count = 0;
        at = AddDigits(at, whole, count);
        if (count - 1 >= kMostCounted) return nullptr;
    }
    if (*at != '.') {
        number.kind = minus ? Number::kNegative : Number::kPositive;
        number.whole = whole;
        return (*at | 0x20) != 'e' ? at : nullptr;
    }
    const Unit* const first = ++at;
    at = AddDigits(at, whole, count);
    if (count > kMostCounted || whole > kMostTogether || at == first || (*at | 0x20) == 'e')
        return nullptr;
    const double real = static_cast<double>(static_cast<int64_t>(whole)) /
                        rapidjson::internal::Pow10(static_cast<int>(at - first));
    number.kind = Number::kDouble;
    number.real = minus ? -real : real;
    return at;
}

/// Reads one number out of text that goes on up to a unit that belongs to none, as a zero does.
template <class Unit>
class NumberReader {
public:
    explicit NumberReader(const Unit* text) : at(text) {}

    /// False when no number begins here, or none that is made here: then RapidJSON is to tell why.
    bool Read(Number& number) {
        const bool minus = TakeIf('-');
        if (Digit() > 9 || !ReadWhole(minus)) return false;
        if (!isReal && *at != '.' && !AtExponent()) {
            number.kind = minus ? Number::kNegative : Number::kPositive;
            number.whole = whole;
            return true;
        }
        if (TakeIf('.') && !ReadFraction()) return false;
        if (!isReal) MakeReal();
        if (AtExponent() && !ReadExponent()) return false;
        real = rapidjson::internal::StrtodNormalPrecision(real, power);
        number.kind = Number::kDouble;
        number.real = minus ? -real : real;
        return true;
    }

    /// Where the number ends, or the first unit that is none of a number.
    const Unit* End() const { return at; }

private:
    /// The digit here; more than 9 where there is none.
    unsigned Digit() const { return unsigned{static_cast<std::make_unsigned_t<Unit>>(*at)} - '0'; }
    bool AtExponent() const { return (*at | 0x20) == 'e'; }
    bool TakeIf(char c) {
        const bool is = *at == static_cast<Unit>(c);
        if (is) ++at;
        return is;
    }
    /// From here on digits go into a double.
    void MakeReal() {
        real = static_cast<double>(whole);
        isReal = true;
    }

    bool ReadWhole(bool minus);
    bool ReadLong(bool minus);
    bool ReadFraction();
    bool ReadExponent();

    const Unit* at;
    uint64_t whole = 0;   // the digits so far, as long as they are counted as an integer,
    double real = 0;      // or as a double
    bool isReal = false;  // the latter
    int significant = 0;  // how many digits count so far, but for the first of the whole part
    int power = 0;        // of ten, to be applied at the end
};

template <class Unit>
bool NumberReader<Unit>::ReadWhole(bool minus) {
    constexpr ptrdiff_t kSafeDigits = 18;
    const Unit* const first = at;
    whole = Digit();
    ++at;
    if (whole == 0) return true;
    for (unsigned digit = 0; (digit = Digit()) <= 9; ++at) whole = whole * 10 + digit;
    significant = static_cast<int>(at - first - 1);
    if (at - first <= kSafeDigits) return true;
    at = first;
    return ReadLong(minus);
}

/// A whole part that may be more than 64 bits hold.
template <class Unit>
bool NumberReader<Unit>::ReadLong(bool minus) {
    constexpr double kTenthOfMost = 1.7976931348623157e307;
    const uint64_t most = minus ? uint64_t{1} << 63 : UINT64_MAX;
    const Unit* const first = at;
    whole = 0;
    unsigned digit = 0;
    for (; (digit = Digit()) <= 9; ++at) {
        if (whole > most / 10 || (whole == most / 10 && digit > most % 10)) break;
        whole = whole * 10 + digit;
    }
    significant = static_cast<int>(at - first - 1);
    if (digit > 9) return true;
    MakeReal();
    for (; (digit = Digit()) <= 9; ++at) {
        if (real >= kTenthOfMost) return false;
        real = real * 10 + digit;
    }
    return true;
}

/// The digits behind the point. Up to 53 bits and a digit more they are counted together with the
/// whole part, then in the double as far as they make a difference there.
template <class Unit>
bool NumberReader<Unit>::ReadFraction() {
    constexpr uint64_t kMostExact = (uint64_t{1} << 53) - 1;
    constexpr int kMostSignificant = 17;
    if (Digit() > 9) return false;
    for (unsigned digit = 0; !isReal && whole <= kMostExact && (digit = Digit()) <= 9; ++at) {
        whole = whole * 10 + digit;
        --power;
        if (whole > 0) ++significant;
    }
    if (!isReal) MakeReal();
    for (unsigned digit = 0; (digit = Digit()) <= 9; ++at) {
        if (significant >= kMostSignificant) continue;
        real = real * 10 + digit;
        --power;
        ++significant;
    }
    return true;
}

template <class Unit>
bool NumberReader<Unit>::ReadExponent() {
    constexpr int kMost = 308;             // of a double
    constexpr int kHuge = INT32_MAX / 10;  // RapidJSON has a way of its own from here
    ++at;
    const bool minus = *at == '-';
    if (minus || *at == '+') ++at;
    unsigned digit = Digit();
    if (digit > 9) return false;
    int exponent = 0;
    for (; digit <= 9; digit = Digit()) {
        exponent = exponent * 10 + static_cast<int>(digit);
        if (minus ? exponent >= kHuge : exponent > kMost - power) return false;
        ++at;
    }
    power += minus ? -exponent : exponent;
    return true;
}

}  // namespace QXJSON
