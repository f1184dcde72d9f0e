#pragma once

#include <stdint.h>

#include <memory>
#include <optional>
#include <string>
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

    /// The last segment of a path. A decimal number as an array's positions are written is kept as
    /// a number, whether it was one or a key that reads like one.
    struct Segment {
        const wchar_t* text;  ///< null: a number
        uint32_t length;      ///< of the text, or the number

        bool IsNumber() const { return !text; }
        std::wstring_view Text() const { return {text, length}; }
        bool operator==(const Segment& other) const;
    };

    explicit PathTable(JsonAllocator& pool) : allocator(pool) {}

    /// Forgets all handles and paths and issues the first handle, which is 1, for the root.
    uint32_t Restart();

    /// The path `parent`/`key`. A key that contains "/" is several segments.
    Node Child(Node parent, std::wstring_view key);
    /// The path of the element at an index from 0.
    Node Element(Node parent, uint32_t index) { return Child(parent, Segment{nullptr, index}); }
    /// The path of a pointer as the item paths translate to.
    Node AtPointer(std::wstring_view pointer);

    /// The handle of a path, or 0.
    uint32_t HandleOf(Node node) const { return node < count ? At(node).handle : 0; }
    /// The path of a handle; nothing for a number that was never issued.
    std::optional<Node> NodeOf(int32_t handle) const;

    /// Makes sure that the next Issue needs no memory.
    void PrepareIssue();
    /// The next handle, for a path that has none.
    uint32_t Issue(Node node);

    Node ParentOf(Node node) const { return At(node).parent; }
    /// The last segment of a path other than the root's. Its text lives as long as the pool.
    Segment SegmentOf(Node node) const { return At(node).segment; }
    std::wstring TextOf(Node node) const;

private:
    struct NodeData {
        Segment segment;
        Node parent;
        uint32_t handle;
        Node firstChild;  // the chain of the first children
        Node nextInChain;
        uint32_t children;  // how many there are in the chain
    };
    /// A child of a node that has many; node kRoot marks a free slot.
    struct Slot {
        uint32_t hash;
        Node node;
    };

    // Nodes never move: they are kept in blocks.
    static constexpr uint32_t kBlockBits = 10, kBlockSize = 1u << kBlockBits;
    NodeData& At(Node node) const { return blocks[node >> kBlockBits][node & (kBlockSize - 1)]; }

    Node Child(Node parent, const Segment& segment);
    Node Add(Node parent, const Segment& segment);
    const wchar_t* Keep(std::wstring_view text);
    Slot& SlotOf(Node parent, const Segment& segment, uint32_t hash);
    void MoveChainIntoTable(Node parent);
    void MakeRoom(uint32_t more);

    JsonAllocator& allocator;  // owns the texts of the segments
    std::vector<std::unique_ptr<NodeData[]>> blocks;
    uint32_t count = 0;              // of nodes; the root is the first
    std::vector<Node> handleToNode;  // by handle - 1
    // A hash table with open addressing, of a size that is a power of two and at most three
    // quarters full. The numbers below one parent lie side by side, as they are used.
    std::vector<Slot> slots;
    uint32_t slotsUsed = 0;
    // The texts that were kept last, by their hash: the same few keys come again and again.
    static constexpr size_t kRecent = 256;
    std::wstring_view recent[kRecent];
};

}  // namespace QXJSON
