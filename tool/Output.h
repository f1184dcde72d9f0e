#pragma once

#include <string>
#include <string_view>

#include "Library.h"

namespace tool {

/// Writes a text to the standard output, in UTF-8.
void Print(std::wstring_view text);
/// Flushes the standard output, or throws Failure.
void Flush();

/// How a document is written.
struct TextForm {
    QXJSON::hosting::Encoding encoding = QXJSON::hosting::Encoding::kUtf8;
    bool indented = false;
};

/// Writes a document to an OUT of the command line: a file, with the byte-order mark of its
/// encoding, or the standard output, which is named "-", without one. A file is replaced only after
/// everything has been written, and otherwise stays as it was. Throws Failure.
void Write(const QXJSON::hosting::Generator& document, const std::string& out,
           const TextForm& form);
/// Writes the compact JSON of a document in the same way, in UTF-8: as it is, so that no number is
/// read and written again.
void Write(std::wstring_view json, const std::string& out);

}  // namespace tool
