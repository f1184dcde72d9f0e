#include "Colours.h"

#include <windows.h>

#include <cstdlib>

namespace tool {

using QXJSON::hosting::ValueKind;

namespace {

/// Makes the standard output understand escape sequences; says whether it does, as consoles do.
bool UnderstandsColours() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(output, &mode) &&
           SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

/// By the convention of NO_COLOR, an empty value does not count.
bool AreUnwanted() {
    const char* const value = std::getenv("NO_COLOR");
    return value && *value;
}

const char* CodeOf(Colour colour) {
    switch (colour) {
        case Colour::kKey:
            return "34";  // blue
        case Colour::kString:
        case Colour::kAfter:
            return "32";  // green
        case Colour::kNumber:
            return "36";  // cyan
        case Colour::kWord:
            return "35";  // magenta
        default:
            return "31";  // red
    }
}

}  // namespace

Colour ColourOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::kString:
            return Colour::kString;
        case ValueKind::kNumber:
            return Colour::kNumber;
        default:
            return Colour::kWord;
    }
}

Colours::Colours(const std::string& when)
    : areUsed(when == "always" || (when == "auto" && !AreUnwanted() && UnderstandsColours())) {}

std::string Colours::In(Colour colour, std::string_view text) const {
    if (!areUsed) return std::string(text);
    return std::string("\x1B[").append(CodeOf(colour)).append("m").append(text).append("\x1B[0m");
}

}  // namespace tool
