#pragma once

#include <cstddef>
#include <string_view>

namespace QXJSON {

inline bool IsHighSurrogate(wchar_t c) { return (c & 0xFC00) == 0xD800; }
inline bool IsLowSurrogate(wchar_t c) { return (c & 0xFC00) == 0xDC00; }

/// How many units of a text stand before its first surrogate that is not one of a pair; all of them
/// where there is none.
size_t WellFormedLength(std::wstring_view text);

}  // namespace QXJSON
