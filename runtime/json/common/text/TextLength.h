#pragma once

#include <cstddef>

namespace QXJSON {

/// The length of a zero-terminated text in units. A pointer to nothing faults.
size_t CountUnits(const wchar_t* text);

/// The length of a zero-terminated text in units, as lstrlenW reports it: 0 for null, and where
/// memory ends before the text does.
size_t LengthOf(const wchar_t* text);

}  // namespace QXJSON
