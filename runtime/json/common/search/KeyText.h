#pragma once

#include <stdint.h>

#include <string_view>

#include "Hash.h"

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

/// The hash of a text; texts that match in the way that is asked for have the same one.
template <KeyMatch match>
uint32_t HashOf(std::wstring_view text, const HashKeys& keys);

}  // namespace QXJSON
