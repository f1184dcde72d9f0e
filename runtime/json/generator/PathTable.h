#pragma once

#include <stdint.h>

#include <optional>
#include <string_view>
#include <vector>

#include "../common/JsonTypes.h"

namespace QXJSON {

/// The item handles of one generated document, and the internal paths that they stand for.
///
/// An internal path is JSON Pointer text: "" for the root, else the parent's path, "/" and a
/// segment, which is a key as the caller gave it or the decimal position of an element from 0. Two
/// ways of writing one text are one path, and a path has at most one handle: the key "a/b" below
/// the root and the key "b" below "a" share theirs.
///
/// The paths are kept as a tree of segments: a node is a path, its parent the path without the last
/// segment. Finding a child costs the same in a document of any size.
class PathTable {
public:
    /// A path that the table knows, with or without a handle. Valid until Restart.
    using Node = uint32_t;
    static constexpr Node kRoot = 0;

    /// Forgets all handles and paths and issues the first handle, which is 1, for the root.
    uint32_t Restart();

    /// The path `parent`/`segments`; segments are separated by "/".
    Node Child(Node parent, std::wstring_view segments);
    /// The path of the element at an index from 0.
    Node Element(Node parent, uint32_t index);
    /// The path of a pointer as the item paths translate to.
    Node AtPointer(std::wstring_view pointer);

    /// The handle of a path, or 0.
    uint32_t HandleOf(Node node) const { return node < nodes.size() ? nodes[node].handle : 0; }
    /// The path of a handle; nothing for a number that was never issued.
    std::optional<Node> NodeOf(int32_t handle) const;

    /// Makes sure that the next Issue needs no memory.
    void PrepareIssue();
    /// The next handle, for a path that has none.
    uint32_t Issue(Node node);

    Node ParentOf(Node node) const { return nodes[node].parent; }
    /// The last segment of a path other than the root's.
    std::wstring_view SegmentOf(Node node) const {
        return {nodes[node].segment, nodes[node].length};
    }

private:
    struct NodeData {
        const wchar_t* segment;
        uint32_t length;
        Node parent;
        uint32_t handle;
        uint32_t hash;
    };

    Node ChildBySegment(Node parent, std::wstring_view segment);
    size_t SlotOf(Node parent, std::wstring_view segment, uint32_t hash) const;
    void Grow();

    std::vector<NodeData> nodes;     // the root first; empty before the first use
    std::vector<Node> handleToNode;  // by handle - 1
    // A hash table with open addressing, of a size that is a power of two and at most three
    // quarters full: nodes by their parent and segment. The root is in none, so that kRoot marks a
    // free slot.
    std::vector<Node> children;
    JsonAllocator segments;  // owns the texts
};

}  // namespace QXJSON
