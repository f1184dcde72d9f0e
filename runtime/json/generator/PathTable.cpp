#include "PathTable.h"

#include <algorithm>
#include <cwchar>

namespace QXJSON {
namespace {

uint32_t HashOf(PathTable::Node parent, std::wstring_view segment) {
    uint64_t hash = parent * 0x9E37'79B9'7F4A'7C15;
    for (const wchar_t c : segment) hash = (hash ^ c) * 0x0000'0100'0000'01B3;
    return static_cast<uint32_t>(hash ^ hash >> 32);
}

}  // namespace

uint32_t PathTable::Restart() {
    PrepareIssue();  // from here on there is room
    nodes.assign(1, NodeData{});
    handleToNode.clear();
    children.clear();
    segments.Clear();
    return Issue(kRoot);
}

PathTable::Node PathTable::Child(Node parent, std::wstring_view path) {
    for (;;) {
        const size_t slash = path.find(L'/');
        parent = ChildBySegment(parent, path.substr(0, slash));
        if (slash == std::wstring_view::npos) return parent;
        path.remove_prefix(slash + 1);
    }
}

PathTable::Node PathTable::Element(Node parent, uint32_t index) {
    wchar_t digits[10];
    wchar_t* const end = digits + std::size(digits);
    wchar_t* begin = end;
    do {
        *--begin = static_cast<wchar_t>(L'0' + index % 10);
        index /= 10;
    } while (index != 0);
    return ChildBySegment(parent, {begin, static_cast<size_t>(end - begin)});
}

PathTable::Node PathTable::AtPointer(std::wstring_view pointer) {
    return pointer.empty() ? kRoot : Child(kRoot, pointer.substr(1));
}

std::optional<PathTable::Node> PathTable::NodeOf(int32_t handle) const {
    if (handle < 1 || static_cast<size_t>(handle) > handleToNode.size()) return std::nullopt;
    return handleToNode[static_cast<size_t>(handle) - 1];
}

void PathTable::PrepareIssue() {
    if (nodes.empty()) nodes.emplace_back();
    if (handleToNode.size() == handleToNode.capacity())
        handleToNode.reserve(std::max<size_t>(16, handleToNode.size() * 2));
}

uint32_t PathTable::Issue(Node node) {
    handleToNode.push_back(node);
    return nodes[node].handle = static_cast<uint32_t>(handleToNode.size());
}

PathTable::Node PathTable::ChildBySegment(Node parent, std::wstring_view segment) {
    if (nodes.empty()) nodes.emplace_back();
    if (nodes.size() > children.size() / 4 * 3) Grow();
    const uint32_t hash = HashOf(parent, segment);
    const size_t slot = SlotOf(parent, segment, hash);
    if (children[slot] != kRoot) return children[slot];

    auto* const text = static_cast<wchar_t*>(segments.Malloc(segment.size() * sizeof(wchar_t)));
    std::copy(segment.begin(), segment.end(), text);
    nodes.push_back({text, static_cast<uint32_t>(segment.size()), parent, 0, hash});
    return children[slot] = static_cast<Node>(nodes.size() - 1);
}

/// The slot that holds the child, or else the free one where it belongs.
size_t PathTable::SlotOf(Node parent, std::wstring_view segment, uint32_t hash) const {
    const size_t mask = children.size() - 1;
    for (size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        const Node node = children[slot];
        if (node == kRoot) return slot;
        if (nodes[node].hash == hash && nodes[node].parent == parent && SegmentOf(node) == segment)
            return slot;
    }
}

void PathTable::Grow() {
    constexpr size_t kFirstSize = 16;
    std::vector<Node> bigger(children.empty() ? kFirstSize : children.size() * 2, kRoot);
    const size_t mask = bigger.size() - 1;
    for (Node node = 1; node < nodes.size(); ++node) {
        size_t slot = nodes[node].hash & mask;
        while (bigger[slot] != kRoot) slot = (slot + 1) & mask;
        bigger[slot] = node;
    }
    children.swap(bigger);
}

}  // namespace QXJSON
