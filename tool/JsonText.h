#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ItemPath.h"
#include "Library.h"

namespace tool {

// The library returns strings and keys without their lengths, so a U+0000 ends them for their
// reader. In its JSON text they are whole. Documents are therefore taken apart and put together in
// that form: compact, as the library writes it.

/// The JSON of an object or array; Failure where there is no memory for it.
std::wstring JsonOf(const QXJSON::hosting::Item& container);

/// A text as a JSON string.
std::wstring Quoted(std::wstring_view text);

/// The kind of the value that a JSON text is.
QXJSON::hosting::ValueKind KindOf(std::wstring_view json);

/// A member or element inside the JSON of its container.
struct Part {
    std::wstring_view key;  ///< in its quotation marks; empty for an element
    std::wstring_view value;
};

/// The parts of a container; none for any other value.
std::vector<Part> PartsOf(std::wstring_view json);

/// Finds the member, the first of its key, or the element that a segment of a path names.
std::optional<Part> Find(std::wstring_view container, const std::wstring& segment);

/// The JSON of the value at a path, inside the JSON of the root.
std::optional<std::wstring_view> ValueAt(std::wstring_view json, const ItemPath& path);

}  // namespace tool
