#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tool {

/// An item path, taken apart.
struct ItemPath {
    /// Throws Failure for what does not begin with a slash.
    explicit ItemPath(const std::wstring& path);

    std::vector<std::wstring> segments;  ///< as they stand in the path; none for the root

    /// The path again.
    std::wstring Text() const;
};

/// The key that a segment stands for in an object. Throws Failure for a tilde that is none of an
/// escape, for no key is written so.
std::wstring KeyOf(const std::wstring& segment);

/// The position that a segment stands for in an array, from 1; 0 for none.
uint32_t PositionOf(const std::wstring& segment);

}  // namespace tool
