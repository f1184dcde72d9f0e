#pragma once

#include <string>
#include <string_view>

namespace tool {

// The program uses UTF-8 for the console and other programs, and UTF-16 for the library and
// Windows.

/// What UTF-8 cannot represent, halves of surrogate pairs, becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

/// Whether bytes are UTF-8 from end to end.
bool IsUtf8(std::string_view bytes);

/// Whether UTF-8 can represent all of a text: no half of a surrogate pair is without the other.
bool HasWholePairs(std::wstring_view text);

}  // namespace tool
