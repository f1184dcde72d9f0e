#include "Position.h"

#include "Text.h"

namespace tool {
namespace {

/// What matters of an encoding for finding characters and the ends of lines.
struct Form {
    unsigned width;  ///< bytes of a unit
    bool bigEndian;
    unsigned mark;  ///< bytes of the byte-order mark
};

bool StartsWith(std::string_view bytes, std::string_view mark) {
    return bytes.substr(0, mark.size()) == mark;
}

/// Finds the encoding as the library does: by a mark, or else by the zeros of the first four bytes.
Form FormOf(std::string_view bytes) {
    using namespace std::string_view_literals;
    constexpr Form kUtf8 = {1, false, 0};
    if (bytes.size() < 4) return kUtf8;
    if (StartsWith(bytes, "\0\0\xFE\xFF"sv)) return {4, true, 4};
    if (StartsWith(bytes, "\xFF\xFE\0\0"sv)) return {4, false, 4};
    if (StartsWith(bytes, "\xFE\xFF"sv)) return {2, true, 2};
    if (StartsWith(bytes, "\xFF\xFE"sv)) return {2, false, 2};
    if (StartsWith(bytes, "\xEF\xBB\xBF"sv)) return {1, false, 3};
    unsigned set = 0;  // a bit for each of the four that is not zero
    for (unsigned i = 0; i < 4; ++i) set |= (bytes[i] != 0 ? 1u : 0u) << i;
    switch (set) {
        case 0b1000:
            return {4, true, 0};
        case 0b0001:
            return {4, false, 0};
        case 0b1010:
            return {2, true, 0};
        case 0b0101:
            return {2, false, 0};
        default:
            return kUtf8;
    }
}

uint32_t UnitAt(std::string_view bytes, size_t at, const Form& form) {
    uint32_t unit = 0;
    for (unsigned i = 0; i < form.width; ++i) {
        const size_t byte = form.bigEndian ? at + i : at + form.width - 1 - i;
        unit = unit << 8 | static_cast<uint8_t>(bytes[byte]);
    }
    return unit;
}

/// Whether a unit is not the first one of its character.
bool Continues(uint32_t unit, const Form& form) {
    if (form.width == 1) return (unit & 0xC0) == 0x80;
    return form.width == 2 && unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::optional<Position> PositionBefore(uint64_t offset, std::string_view bytes) {
    const Form form = FormOf(bytes);
    if (offset == 0 || offset > bytes.size()) return std::nullopt;
    if (form.width == 1 && !IsUtf8(bytes)) return std::nullopt;
    Position position = {1, 0};
    bool lineEnds = false;
    for (size_t at = form.mark; at + form.width <= offset; at += form.width) {
        const uint32_t unit = UnitAt(bytes, at, form);
        if (Continues(unit, form)) continue;
        if (lineEnds) position = {position.line + 1, 0};
        ++position.column;
        lineEnds = unit == '\n';
    }
    return position;
}

}  // namespace tool
