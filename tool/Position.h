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
/// library reads: it stops behind the character that it cannot go on with. None where the offset
/// may be no number of bytes, for the library reads text that is not UTF-8 in the ANSI code page,
/// and counts its characters then.
std::optional<Position> PositionBefore(uint64_t offset, std::string_view bytes);

}  // namespace tool
