#pragma once

#include <memory>
#include <string>

#include "ByteSink.h"
#include "Colours.h"
#include "Events.h"

namespace tool {

/// How a document is written.
struct TextForm {
    QXJSON::hosting::Encoding encoding = QXJSON::hosting::Encoding::kUtf8;
    char indentWith = ' ';
    unsigned indent = 0;  ///< how many of them for each level; 0 for compact text
    bool sortKeys = false;
    bool mark = false;  ///< begin with a byte-order mark; files in UTF-16 always do
    Colours colours;    ///< for the standard output; files have none
};

/// Writes a document: a number as it was written, half of a surrogate pair, which no encoding can
/// represent, as an escape. Each document needs a new writer.
std::unique_ptr<Events> NewWriter(ByteSink& sink, const TextForm& form);

/// A string as JSON.
std::string JsonOf(std::string_view text);

}  // namespace tool
