#include "Position.h"

#include "Encoding.h"

namespace tool {
namespace {

/// Counts characters, unit by unit.
class Counter {
public:
    void Add(unsigned unit, bool continues) {
        if (continues) return;  // it is not the first unit of its character
        if (lineEnds) position = {position.line + 1, 0};
        ++position.column;
        lineEnds = unit == '\n';
    }
    Position Result() const { return position; }

private:
    Position position = {1, 0};
    bool lineEnds = false;
};

bool IsLowSurrogate(unsigned unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

Position PositionBefore(uint64_t offset, ByteStream& bytes) {
    const Encoding encoding = EncodingOf(bytes);
    rapidjson::AutoUTFInputStream<unsigned, ByteStream> units(bytes);
    Counter counter;
    for (uint64_t at = encoding.mark; at + encoding.width <= offset; at += encoding.width) {
        if (bytes.AtEnd() && units.Peek() == 0) break;
        const unsigned unit = units.Take();
        counter.Add(unit, encoding.width == 1 ? (unit & 0xC0) == 0x80
                                              : encoding.width == 2 && IsLowSurrogate(unit));
    }
    return counter.Result();
}

Position PositionBefore(uint64_t offset, const std::wstring& text) {
    Counter counter;
    for (size_t at = 0; at < text.size() && at < offset; ++at)
        counter.Add(text[at], IsLowSurrogate(text[at]));
    return counter.Result();
}

}  // namespace tool
