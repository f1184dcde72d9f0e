#pragma once

#include <stdint.h>

#include <string_view>

#include "MemberLookup.h"

// JSON Pointers (RFC 6901) resolved in place. The results are those of RapidJSON's GenericPointer,
// which would take memory for each pointer and could not stop at one segment.

namespace QXJSON {

/// Whether every "~" of a pointer begins one of the two escapes. (The pointers of this library
/// begin with "/" by construction, or are empty.)
bool IsWellFormed(std::wstring_view pointer);

/// The child of a value that one segment names: a member by its exact name, or an element by its
/// index from 0. `segment` stands without its "/" and may contain escapes. Null when there is no
/// such child or the segment is malformed.
JsonValue* ResolveSegment(MemberLookup& members, JsonValue& value, std::wstring_view segment);

/// The value that is reached from another by segments that "/" parts, or null.
JsonValue* ResolveSegments(MemberLookup& members, JsonValue& value, std::wstring_view segments);

/// The value at a pointer, or null when the pointer is malformed or nothing is there.
JsonValue* ResolvePointer(MemberLookup& members, JsonValue& root, std::wstring_view pointer);

}  // namespace QXJSON
