#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tool {

/// An item path, split into its segments.
struct ItemPath {
    /// Throws Failure for a path that does not begin with a slash.
    explicit ItemPath(const std::wstring& path);

    std::vector<std::wstring> segments;  ///< as written in the path; none for the root

    /// The path as a text.
    std::wstring Text() const;
};

/// The key that a segment stands for in an object. Throws Failure for a tilde that is not part of
/// an escape.
std::wstring UnescapedKey(const std::wstring& segment);

/// The position that a segment stands for in an array, from 1; 0 where it stands for none.
uint32_t PositionOf(const std::wstring& segment);

}  // namespace tool
