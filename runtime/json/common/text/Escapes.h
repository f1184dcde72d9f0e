#pragma once

#include <cstddef>
#include <type_traits>

#include "Surrogates.h"

// Escapes in the strings of JSON.

namespace QXJSON {

/// The longest escape: a pair of surrogates.
constexpr size_t kLongestEscape = sizeof "\\uD834\\uDD1E" - 1;

/// Four hexadecimal digits; more than 0xFFFF where one of them is none.
template <class Unit>
unsigned ReadHex(const Unit* at) {
    unsigned number = 0;
    for (int i = 0; i < 4; ++i) {
        const unsigned unit = static_cast<std::make_unsigned_t<Unit>>(at[i]);
        const unsigned digit = unit - '0';
        const unsigned letter = (unit | 0x20) - 'a';
        if (digit <= 9)
            number = number << 4 | digit;
        else if (letter < 6)
            number = number << 4 | (letter + 10);
        else
            return 0x10000;
    }
    return number;
}

/// What a backslash and one unit stand for; 0 where that is no escape.
inline wchar_t ShortEscape(unsigned unit) {
    switch (unit) {
        case '"':
        case '\\':
        case '/':
            return static_cast<wchar_t>(unit);
        case 'b':
            return L'\b';
        case 'f':
            return L'\f';
        case 'n':
            return L'\n';
        case 'r':
            return L'\r';
        case 't':
            return L'\t';
        default:
            return 0;
    }
}

/// Decodes the escape at a backslash into `units`, one or two, and returns where it ends. Null
/// where it is none, or one half of a pair of surrogates alone.
template <class Unit>
const Unit* ReadEscape(const Unit* at, wchar_t (&units)[2], size_t& count) {
    count = 1;
    ++at;
    units[0] = ShortEscape(static_cast<std::make_unsigned_t<Unit>>(*at));
    if (units[0] != 0) return at + 1;
    if (*at != 'u') return nullptr;
    const unsigned first = ReadHex(at + 1);
    if (first > 0xFFFF) return nullptr;
    at += 5;
    units[0] = static_cast<wchar_t>(first);
    if (!IsSurrogate(units[0])) return at;
    if (!IsHighSurrogate(units[0]) || at[0] != '\\' || at[1] != 'u') return nullptr;
    const unsigned second = ReadHex(at + 2);
    units[1] = static_cast<wchar_t>(second);
    count = 2;
    return second <= 0xFFFF && IsLowSurrogate(units[1]) ? at + 6 : nullptr;
}

}  // namespace QXJSON
