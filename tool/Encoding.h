#pragma once

#include <rapidjson/encodedstream.h>

#include "ByteStream.h"

namespace tool {

/// How a text is encoded.
struct Encoding {
    rapidjson::UTFType type;
    unsigned width;  ///< bytes of a unit
    unsigned mark;   ///< bytes of the byte-order mark
};

/// Finds the encoding as the library does: by a mark, or else by the zeros of the first four bytes.
Encoding EncodingOf(const ByteStream& bytes);

}  // namespace tool
