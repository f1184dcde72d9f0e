#pragma once

#include "MemberLookup.h"

namespace QXJSON {

/// The size, in UTF-16 units with the terminator, of the buffers that hold one path: the pointer
/// that an item path is translated into, and the item path handed out for a handle.
constexpr size_t kPathCapacity = 1024;

/// Translates the runtime's item path into a JSON Pointer for `root`: "/" becomes the empty
/// pointer,
/// `~/` becomes `~1`, and positions below arrays, which count from 1, count from 0.
///
/// A segment is looked at together with its parent at its first digit. Where that parent does not
/// exist the translation raises an access violation, by contract.
///
/// Returns kSuccess, or kBadPath for a path that is null, does not begin with "/", has a digit
/// below a parent whose own pointer is malformed, or is longer than the buffer once translated.
int TranslateItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path,
                      wchar_t (&pointer)[kPathCapacity]);

/// The value at an item path, or null; raises an access violation as TranslateItemPath does.
JsonValue* ResolveItemPath(MemberLookup& members, JsonValue& root, const wchar_t* path);

}  // namespace QXJSON
