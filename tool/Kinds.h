#pragma once

#include "Library.h"

namespace tool {

/// The name of a kind of values, for people.
const char* NameOf(QXJSON::hosting::ValueKind kind);

}  // namespace tool
