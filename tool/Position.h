#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tool {

/// A place in a text as editors count, from 1.
struct Position {
    uint64_t line;
    uint64_t column;  ///< in characters, not bytes
};

/// The place of the last character before an offset in bytes, in text of any encoding that the
/// library reads: the library stops after the character that does not fit. Nothing where the offset
/// may count something other than bytes: text that is not UTF-8 is read in the ANSI code page,
/// where the library counts its characters.
std::optional<Position> PositionBefore(uint64_t offset, std::string_view bytes);

}  // namespace tool
