#pragma once

#include <cstdint>
#include <string>

#include "ByteStream.h"

namespace tool {

/// A place in a text as editors count, from 1.
struct Position {
    uint64_t line;
    uint64_t column;  ///< in characters, not bytes
};

/// The place of the last character before an offset: the library stops after the character that
/// does not fit. No more than that is read, in any encoding that the library detects.
Position PositionBefore(uint64_t offset, ByteStream& bytes);
/// The same in text from the ANSI code page, where the library counts characters.
Position PositionBefore(uint64_t offset, const std::wstring& text);

}  // namespace tool
