#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The ways to write a path: as the library's item paths, or as JSON Pointers (RFC 6901), which
/// count from 0.
enum class PathSyntax { kItemPath, kPointer };

/// A step of a path: the member of an object, or the element of an array.
struct Segment {
    std::string key;    ///< in UTF-8
    uint64_t position;  ///< from 1; 0 where the segment names no element
    bool isEnd;         ///< it names the position after the last element
};

/// A path, split into its segments.
struct ItemPath {
    /// Throws Failure for a path that is malformed.
    ItemPath(const std::string& path, PathSyntax syntax);

    /// The path without its last segment, in its own syntax; empty for the root.
    std::string Parent() const;

    std::string text;               ///< as it was written
    std::vector<Segment> segments;  ///< none for the root
};

/// The way to write the path of a member or element of the value at another path. Root is "".
std::string PathOfMember(const std::string& parent, std::string_view key, PathSyntax syntax);
std::string PathOfElement(const std::string& parent, uint64_t position, PathSyntax syntax);

}  // namespace tool
