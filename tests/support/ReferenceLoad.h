#pragma once

#include <string>

#include "LoadOutcome.h"

namespace support {

/// What the three loads are to do, modelled on RapidJSON as it is: its recursive reader behind its
/// own encoding detection, and the library's few rules around it written out one after the other.
/// Documents must not be nested deeper than the stack of the test carries.
LoadOutcome ReferenceLoadBytes(const std::string& bytes);
/// `text` ends at its first U+0000, as for the parser.
LoadOutcome ReferenceLoadText(const std::wstring& text);
LoadOutcome ReferenceLoadFile(const wchar_t* fileName);

/// Bytes as UTF-16 by the system's active ANSI code page.
std::wstring FromAnsi(const std::string& bytes);

}  // namespace support
