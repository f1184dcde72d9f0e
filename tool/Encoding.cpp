#include "Encoding.h"

#include <rapidjson/memorystream.h>

namespace tool {

using namespace rapidjson;

Encoding EncodingOf(const ByteStream& bytes) {
    const char* const first = bytes.Peek4();
    if (!first) return {kUTF8, 1, 0};
    MemoryStream four(first, 4);
    const AutoUTFInputStream<unsigned, MemoryStream> units(four);
    const UTFType type = units.GetType();
    const unsigned width = type == kUTF8 ? 1 : type == kUTF16LE || type == kUTF16BE ? 2 : 4;
    const unsigned mark = type == kUTF8 ? 3 : width;
    return {type, width, units.HasBOM() ? mark : 0};
}

}  // namespace tool
