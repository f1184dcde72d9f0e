#pragma once

#include <stdint.h>

#include <cmath>
#include <limits>
#include <optional>

namespace QXJSON {

/// The 64-bit integer as which a number without a fraction is stored: one within -2^63 to 2^63,
/// both included. 2^63 itself wraps to -2^63, as the processor's conversion does. Nothing for a
/// number with a fraction, outside of that range, or not finite.
template <class Number>
std::optional<int64_t> AsWholeNumber(Number number) {
    constexpr Number kLimit = Number(9223372036854775808.0);
    if (number - std::floor(number) != 0 || number < -kLimit || number > kLimit)
        return std::nullopt;
    // In C++ the conversion of 2^63 has no defined result.
    return number == kLimit ? std::numeric_limits<int64_t>::min() : static_cast<int64_t>(number);
}

}  // namespace QXJSON
