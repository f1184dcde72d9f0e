#pragma once

#include <rapidjson/internal/diyfp.h>
#include <stdint.h>

#include <cstddef>
#include <cstring>

// Numbers as RapidJSON's writer writes them, digit by digit, as units of any size.

namespace QXJSON {

/// How many units a number takes at most, and how far its digits are moved while it is written.
constexpr size_t kLongestNumber = 32;

/// The numbers from 00 to 99 as pairs of units.
template <class Unit>
struct DigitPairs {
    constexpr DigitPairs() {
        for (int i = 0; i < 100; ++i) {
            pairs[2 * i] = static_cast<Unit>('0' + i / 10);
            pairs[2 * i + 1] = static_cast<Unit>('0' + i % 10);
        }
    }
    Unit pairs[200] = {};
};
template <class Unit>
inline constexpr DigitPairs<Unit> kDigitPairs{};

template <class Unit>
inline void PutPair(Unit* to, uint64_t number) {
    std::memcpy(to, &kDigitPairs<Unit>.pairs[2 * number], 2 * sizeof(Unit));
}

inline unsigned CountDigits(uint64_t number) {
    unsigned count = 1;
    for (; number >= 10'000; number /= 10'000) count += 4;
    return count + (number >= 10) + (number >= 100) + (number >= 1000);
}

/// Writes exactly so many digits of a number.
template <class Unit>
inline void PutDigits(Unit* to, uint64_t number, unsigned count) {
    for (; count > 1; number /= 100) PutPair(to + (count -= 2), number % 100);
    if (count == 1) *to = static_cast<Unit>('0' + number % 10);
}

/// Writes a number without a sign and returns its end.
template <class Unit>
Unit* WriteWhole(Unit* to, uint64_t number) {
    const unsigned count = CountDigits(number);
    PutDigits(to, number, count);
    return to + count;
}

template <class Unit>
Unit* WriteInteger(Unit* to, int64_t number) {
    if (number < 0) *to++ = Unit{'-'};
    const auto amount = static_cast<uint64_t>(number);
    return WriteWhole(to, number < 0 ? 0 - amount : amount);
}

/// The digits of a double, by the algorithm Grisu2: the shortest that lead back to it, with few
/// exceptions, which are part of what RapidJSON's writer writes.
template <class Unit>
class ShortestDigits {
public:
    /// Writes the digits of a number that is finite and above 0.
    ShortestDigits(Unit* to, double number) : digits(to) {
        using rapidjson::internal::DiyFp;
        const DiyFp exact(number);
        DiyFp low, high;
        exact.NormalizedBoundaries(&low, &high);
        const DiyFp power = rapidjson::internal::GetCachedPower(high.e, &exponent);
        low = low * power;
        high = high * power;
        --high.f;
        Write(high, high.f - (exact.Normalize() * power).f, high.f - (low.f + 1));
    }

    /// How many there are.
    int Length() const { return length; }
    /// Where the decimal point stands: behind so many of them.
    int Point() const { return length + exponent; }

private:
    /// `distance`: from the number to the upper end of what leads back to it; `room`: all of that.
    void Write(const rapidjson::internal::DiyFp& high, uint64_t distance, uint64_t room) {
        const int bits = -high.e;
        const uint64_t one = uint64_t{1} << bits;
        auto whole = static_cast<uint32_t>(high.f >> bits);
        uint64_t part = high.f & (one - 1);
        const auto count = static_cast<int>(CountDigits(whole));
        if (part > room) {
            // None of the digits before the point can be the last.
            PutDigits(digits, whole, static_cast<unsigned>(count));
            length = count;
            WritePart(part, bits, distance, room);
            return;
        }
        uint32_t step = 1;
        for (int i = 1; i < count; ++i) step *= 10;
        for (;; step /= 10) {
            Put(whole / step);
            whole %= step;
            const uint64_t rest = (uint64_t{whole} << bits) + part;
            if (rest > room) continue;
            exponent += count - length;
            Round(room, rest, uint64_t{step} << bits, distance);
            return;
        }
    }

    /// Writes the digits behind the point, up to the first that can be the last.
    void WritePart(uint64_t part, int bits, uint64_t distance, uint64_t room) {
        const uint64_t one = uint64_t{1} << bits;
        uint64_t scale = 1;
        const int before = length;
        // Four at once, where even the fourth cannot be the last: after an earlier one that could,
        // all would be zeros, and less than the room would be left.
        constexpr uint64_t kFour = 10'000;
        while (room <= one / kFour) {
            __extension__ using Product = unsigned __int128;
            const Product product = static_cast<Product>(part) * kFour;
            const uint64_t rest = static_cast<uint64_t>(product) & (one - 1);
            if (rest < room * kFour) break;
            PutDigits(digits + length, static_cast<uint64_t>(product >> bits), 4);
            length += 4;
            part = rest;
            room *= kFour;
            scale *= kFour;
        }
        do {
            part *= 10;
            room *= 10;
            scale *= 10;
            Put(static_cast<uint32_t>(part >> bits));
            part &= one - 1;
        } while (part >= room);
        const int behind = length - before;
        exponent -= behind;
        // RapidJSON's table of powers ends here, and its rounding with it.
        constexpr int kMostRounded = 8;
        Round(room, part, one, behind <= kMostRounded ? distance * scale : 0);
    }

    void Put(uint32_t digit) { digits[length++] = static_cast<Unit>('0' + digit); }

    /// Takes the last digit back towards the number.
    void Round(uint64_t room, uint64_t rest, uint64_t step, uint64_t distance) {
        while (rest < distance && room - rest >= step &&
               (rest + step < distance || distance - rest > rest + step - distance)) {
            --digits[length - 1];
            rest += step;
        }
    }

    Unit* digits;
    int length = 0;
    int exponent = 0;
};

/// Writes the exponent of a number and returns its end.
template <class Unit>
Unit* WriteExponent(Unit* to, int exponent) {
    *to++ = Unit{'e'};
    return WriteInteger(to, exponent);
}

/// Puts the point, and zeros, among digits that begin one unit behind `to`: mostly the first few
/// make way for it. Returns the end of the number.
template <class Unit>
Unit* Arrange(Unit* to, int length, int point) {
    constexpr int kMostWhole = 21;  // digits before the point, without an exponent
    constexpr int kMostZeros = 5;   // zeros behind it
    Unit* const digits = to + 1;
    Unit* const end = digits + length;
    if (0 < point && point < length) {
        for (int i = 0; i < point; ++i) to[i] = digits[i];
        to[point] = Unit{'.'};
        return end;
    }
    if (length <= point && point <= kMostWhole) {
        for (int i = 0; i < length; ++i) to[i] = digits[i];
        for (int i = length; i < point; ++i) to[i] = Unit{'0'};
        to[point] = Unit{'.'};
        to[point + 1] = Unit{'0'};
        return to + point + 2;
    }
    if (-kMostZeros <= point && point <= 0) {
        const int behind = 1 - point;  // how far they move
        for (int i = length; i-- > 0;) digits[i + behind] = digits[i];
        for (int i = 0; i < behind + 1; ++i) to[i] = Unit{'0'};
        to[1] = Unit{'.'};
        return end + behind;
    }
    to[0] = digits[0];
    if (length == 1) return WriteExponent(digits, point - 1);
    digits[0] = Unit{'.'};
    return WriteExponent(end, point - 1);
}

/// Writes a double that is finite and returns its end.
template <class Unit>
Unit* WriteDouble(Unit* to, double number) {
    uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    if (bits >> 63 != 0) *to++ = Unit{'-'};
    if (bits << 1 == 0) {
        for (const char c : {'0', '.', '0'}) *to++ = static_cast<Unit>(c);
        return to;
    }
    const ShortestDigits<Unit> shortest(to + 1, number < 0 ? -number : number);
    return Arrange(to, shortest.Length(), shortest.Point());
}

}  // namespace QXJSON
