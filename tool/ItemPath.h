#pragma once

#include <string>

namespace tool {

/// An item path, taken apart into the path of the parent and the last segment. Not for the root.
struct ItemPath {
    /// Throws Failure for what does not begin with a slash.
    explicit ItemPath(const std::wstring& path);

    std::wstring parent;
    std::wstring segment;  ///< as it stands in the path

    /// The key that the segment stands for.
    std::wstring Key() const;
    /// The segment as the generator remembers it for a member that has a handle: the key with its
    /// slashes and tildes escaped as in a JSON Pointer.
    std::wstring RememberedKey() const;
    /// The position that the segment stands for in an array, from 1; 0 for none.
    uint32_t Position() const;
};

}  // namespace tool
