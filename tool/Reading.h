#pragma once

#include <string>
#include <string_view>

#include "ByteStream.h"
#include "Events.h"

namespace tool {

// JSON is read here rather than by the library where numbers must stay as they stand, and where one
// value is wanted rather than a document in memory. RapidJSON's reader does it with the library's
// settings, so that both accept the same texts; the depth of a text does not matter.

/// How the reading of a text ended.
struct ReadingResult {
    bool good;
    bool isNotUtf8;    ///< it failed, because of a byte that is not UTF-8 in a text that must be
    bool isContainer;  ///< the root is an object or array
    uint64_t place;    ///< how much of the text was read; if it failed, how much of it is good
    bool isWhole;      ///< it is good, and no zero ends it early
};

/// Reads a text in UTF-8, UTF-16 or UTF-32, detected as the library detects it.
ReadingResult ReadJson(ByteStream& bytes, Events& events);

/// Reads a text that was converted from the ANSI code page. As in the library, it ends at a zero
/// and has no NaN or infinity.
ReadingResult ReadJson(const std::wstring& text, Events& events);

/// Reads what is known to be JSON in UTF-8.
void ReadKnownJson(std::string_view json, Events& events);

}  // namespace tool
