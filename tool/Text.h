#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tool {

// The program uses UTF-8 for the console and other programs, and UTF-16 for the library and
// Windows.

/// What UTF-8 cannot represent, halves of surrogate pairs, becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);
/// From the ANSI code page; nothing where the bytes are 2 GiB or more.
std::optional<std::wstring> FromAnsi(std::string_view bytes);

// RapidJSON's reader gives half of a surrogate pair, which stands without the other as an escape,
// as the three bytes that it would have in UTF-8 if it were a character.

constexpr size_t kSurrogateSize = 3;
/// Where the first such half begins; npos where there is none.
size_t FindLoneSurrogate(std::string_view text);
/// The escape of the one that a text begins with.
std::string LoneSurrogateEscape(std::string_view text);

}  // namespace tool
