#pragma once

#include <stdint.h>

#include <string_view>

// Keys, and how the names of members compare with them.

namespace QXJSON {

enum class KeyMatch {
    kIgnoreCase,  ///< same length, ASCII letters without regard to case, all else exactly
    kExact,
};

/// A zero-terminated key as a view. A pointer to nothing faults.
std::wstring_view KeyOf(const wchar_t* key);

/// Whether a text of the key's length matches it.
bool Matches(const wchar_t* text, std::wstring_view key, KeyMatch match);

/// A number that is the same for texts that match in any way.
uint32_t HashOf(std::wstring_view text);

}  // namespace QXJSON
