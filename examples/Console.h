#pragma once

#include <string>

namespace host {

/// Prints formatted UTF-16 text (as swprintf does) to the standard output, in UTF-8.
void Print(const wchar_t* format, ...);

/// A text on one line between quotes, cut when it is long.
std::wstring Quoted(const std::wstring& text);

/// A file of the given name in the folder for temporary files.
std::wstring TemporaryName(const std::wstring& name);

/// What a file holds, in bytes; empty when it cannot be read.
std::string ReadBytes(const std::wstring& name);

}  // namespace host
