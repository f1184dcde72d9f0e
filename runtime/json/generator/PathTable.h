#pragma once

#include <stdint.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/search/Hash.h"
#include "common/search/HashTable.h"
#include "common/values/JsonTypes.h"

namespace QXJSON {

/// The item handles of one generated document, and the internal paths that they stand for.
///
/// An internal path is JSON Pointer text: "" for the root, else the parent's path, "/" and a
/// segment, which is a key as the caller gave it or the decimal position of an element from 0. Two
/// ways of writing one text are one path, and a path has at most one handle: the key "a/b" below
/// the root and the key "b" below "a" share theirs.
///
/// The paths are kept as a tree of segments: a node is a path, its parent the path without the last
/// segment. Finding a child costs the same below any parent, in a document of any size.
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

    /// How far the table knows a path.
    struct Reached {
        Node node;      ///< its own, or that of the longest part of it that is known
        uint32_t hash;  ///< of the segment after that part, or 0 if it was not needed
        /// The segments that are not known, parted by "/"; null where all are.
        std::wstring_view rest;

        bool Whole() const { return !rest.data(); }
    };

    explicit PathTable(JsonAllocator& pool, const HashKeys& hashKeys = ProcessHashKeys())
        : allocator(pool), keys(hashKeys) {}

    /// Forgets all handles and paths and issues the first handle, which is 1, for the root.
    uint32_t Restart();

    /// Looks for the path of a pointer, as item paths translate to it. Enters nothing.
    Reached Reach(std::wstring_view pointer) {
        return pointer.empty() ? Known(kRoot) : Reach(kRoot, pointer.substr(1));
    }
    /// Looks for `parent`/`key`. A key that contains "/" is several segments.
    Reached Reach(Node parent, std::wstring_view key);
    static Reached Known(Node node) { return {node, 0, {}}; }

    /// Enters what is not known of a path. Throws std::bad_alloc; a part of it may then be known
    /// that was not, but has no handle.
    Node Enter(const Reached& path);
    /// The path of the element at an index from 0.
    Node EnterElement(Node parent, uint32_t index);

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

    /// How many paths the table knows.
    uint32_t Count() const { return count; }
    /// What looking for children in tables has cost: slots looked at or written.
    uint64_t Work() const;
    /// What the table holds, without the texts of segments.
    size_t Bytes() const;

private:
    struct NodeData {
        Segment segment;
        Node parent;
        uint32_t handle;
        // The first of the chain of children; or, where they are many, the number of their place.
        Node firstChild;
        Node nextInChain;
        uint32_t children;  // how many there are in the chain, or kMany
    };

    struct Slot {
        uint32_t hash;
        Node node;
    };
    /// The children of a node that has many.
    struct ManyChildren {
        // Those named 0, 1, 2 and so on, as far as they were entered in this order: the elements of
        // an array lie side by side, as they are used.
        std::vector<Node> elements;
        HashTable<Slot> others;
    };

    // Nodes are kept in blocks. The first block grows with the nodes until it has the size of the
    // others: a reference to a node holds until the next one is added.
    static constexpr uint32_t kBlockBits = 10, kBlockSize = 1u << kBlockBits;
    static constexpr uint32_t kFew = 16;
    NodeData& At(Node node) const { return table[node >> kBlockBits][node & (kBlockSize - 1)]; }

    void EnsureRoot();
    uint32_t HashOf(const Segment& segment) const;
    Node FindChild(Node parent, const Segment& segment, uint32_t& hash);
    Node FindAmong(ManyChildren& children, const Segment& segment, uint32_t& hash);
    Node AddChild(Node parent, const Segment& segment, uint32_t hash);
    Node Add(Node parent, const Segment& segment, uint32_t hash);
    void MakeRoom();
    void MakeHandleRoom();
    static bool IsNextElement(const ManyChildren& children, const Segment& segment);
    static void MakeRoomAmong(ManyChildren& children, const Segment& segment);
    void LinkAmong(ManyChildren& children, Node child, uint32_t hash);
    void MoveChain(Node parent);
    const wchar_t* Keep(std::wstring_view text, uint32_t hash);

    JsonAllocator& allocator;  // owns the texts of the segments
    // The first few nodes and handles of a document take no memory of their own.
    NodeData fewNodes[kFew];
    NodeData* firstBlock = fewNodes;
    NodeData* const* table = &firstBlock;             // of all blocks
    std::vector<std::unique_ptr<NodeData[]>> blocks;  // those that are memory of their own
    std::vector<NodeData*> manyBlocks;                // the table, when there are several
    uint32_t count = 0;                               // of nodes; the root is the first
    uint32_t room = kFew;                             // for nodes, in the blocks
    Node fewHandles[kFew];
    Node* handleToNode = fewHandles;  // by handle - 1
    std::unique_ptr<Node[]> manyHandles;
    uint32_t issued = 0;         // handles
    uint32_t handleRoom = kFew;  // for handles
    std::vector<ManyChildren> many;
    HashKeys keys;
    // The texts that were kept last, by their hash: the same few keys come again and again, once
    // there are more than a few.
    static constexpr size_t kRecent = 256;
    std::vector<std::wstring_view> recent;
};

}  // namespace QXJSON
