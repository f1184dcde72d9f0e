#pragma once

#include <string>

#include "BuildDocument.h"

namespace model {

/// Translates an item path into a JSON Pointer, by way of RapidJSON's own pointers: 1, -10 for a
/// malformed path or one whose pointer is too long, and -5 where a segment with a digit stands
/// below nothing.
int TranslatePath(building::Value& root, const std::wstring& path, std::wstring& pointer);

/// The item path of a JSON Pointer.
std::wstring TranslatePointer(building::Value& root, const std::wstring& pointer);

}  // namespace model
