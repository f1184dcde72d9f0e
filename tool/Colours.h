#pragma once

#include <string>
#include <string_view>

#include "Library.h"

namespace tool {

/// What a colour stands for.
enum class Colour { kKey, kString, kNumber, kWord, kBefore, kAfter };

/// That of a value which is no container.
Colour ColourOf(QXJSON::hosting::ValueKind kind);

/// Whether to use colours, and how: in escape sequences, as terminals and consoles know them.
class Colours {
public:
    Colours() = default;
    /// "always", "never", or "auto": on a console, unless the environment has NO_COLOR.
    explicit Colours(const std::string& when);

    explicit operator bool() const { return areUsed; }

    /// A text in a colour, or as it is where colours are not used.
    std::string In(Colour colour, std::string_view text) const;

private:
    bool areUsed = false;
};

}  // namespace tool
