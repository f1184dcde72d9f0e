#pragma once

#include "JsonTypes.h"

namespace QXJSON {

/// Writes a value as compact UTF-16 text into a buffer, in place of what the buffer held, and
/// returns the zero-terminated text, which lives until the buffer's next use. Numbers that are not
/// finite are written NaN, Infinity and -Infinity. Throws NestingTooDeep.
const wchar_t* WriteText(const JsonValue& value, JsonTextBuffer& buffer);

}  // namespace QXJSON
