#include "PathTable.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "common/search/KeyText.h"

namespace QXJSON {
namespace {

using Segment = PathTable::Segment;

/// So many children of a node are found by following a chain from it; objects with few members, of
/// which there may be many, then stay close together in memory.
constexpr uint32_t kLongestChain = 8;
/// A number of children that no chain has.
constexpr uint32_t kMany = UINT32_MAX;

/// A segment whose text is not copied yet.
Segment SegmentFrom(std::wstring_view text) {
    const Segment asText = {text.empty() ? L"" : text.data(), static_cast<uint32_t>(text.size())};
    // A number is one that is written back as it was.
    constexpr size_t kMostDigits = 10;
    if (text.empty() || text.size() > kMostDigits || (text[0] == L'0' && text.size() > 1))
        return asText;
    uint64_t number = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9') return asText;
        number = number * 10 + static_cast<uint64_t>(c - L'0');
    }
    return number <= UINT32_MAX ? Segment{nullptr, static_cast<uint32_t>(number)} : asText;
}

/// The length of the first segment of a key. (Keys are short: a loop beats a call.)
size_t FirstSegment(std::wstring_view key) {
    size_t length = 0;
    while (length < key.size() && key[length] != L'/') ++length;
    return length;
}

}  // namespace

bool PathTable::Segment::operator==(const Segment& other) const {
    if (IsNumber() != other.IsNumber() || length != other.length) return false;
    return IsNumber() || std::memcmp(text, other.text, length * sizeof(wchar_t)) == 0;
}

uint32_t PathTable::Restart() {
    PrepareIssue();  // from here on there is room
    At(kRoot) = {};
    count = 1;
    issued = 0;
    many.clear();
    return Issue(kRoot);
}

void PathTable::EnsureRoot() {
    if (count == 0) Add(kRoot, {}, 0);
}

PathTable::Reached PathTable::Reach(Node parent, std::wstring_view key) {
    for (;;) {
        const size_t length = FirstSegment(key);
        uint32_t hash = 0;
        const Node child = FindChild(parent, SegmentFrom(key.substr(0, length)), hash);
        if (child == kRoot) return {parent, hash, key};
        if (length == key.size()) return Known(child);
        parent = child;
        key.remove_prefix(length + 1);
    }
}

PathTable::Node PathTable::Enter(const Reached& path) {
    EnsureRoot();
    if (path.Whole()) return path.node;
    Node node = path.node;
    uint32_t hash = path.hash;
    for (std::wstring_view key = path.rest;;) {
        const size_t length = FirstSegment(key);
        node = AddChild(node, SegmentFrom(key.substr(0, length)), hash);
        if (length == key.size()) return node;
        key.remove_prefix(length + 1);
        hash = 0;
    }
}

PathTable::Node PathTable::EnterElement(Node parent, uint32_t index) {
    const Segment segment = {nullptr, index};
    uint32_t hash = 0;
    const Node known = FindChild(parent, segment, hash);
    return known != kRoot ? known : AddChild(parent, segment, hash);
}

std::wstring PathTable::TextOf(Node node) const {
    const Segment segment = SegmentOf(node);
    return segment.IsNumber() ? std::to_wstring(segment.length) : std::wstring(segment.Text());
}

// ---- Handles -----------------------------------------------------------------------------------

std::optional<PathTable::Node> PathTable::NodeOf(int32_t handle) const {
    const uint32_t index = static_cast<uint32_t>(handle) - 1;
    if (handle < 1 || index >= issued) return std::nullopt;
    return handleToNode[index];
}

void PathTable::PrepareIssue() {
    EnsureRoot();
    if (issued == handleRoom) MakeHandleRoom();
}

uint32_t PathTable::Issue(Node node) {
    handleToNode[issued] = node;
    return At(node).handle = ++issued;
}

// ---- The tree ----------------------------------------------------------------------------------

uint32_t PathTable::HashOf(const Segment& segment) const {
    return segment.IsNumber() ? QXJSON::HashOf(segment.length, keys)
                              : QXJSON::HashOf<KeyMatch::kExact>(segment.Text(), keys);
}

/// The child of a node, or kRoot, which is nobody's. `hash` becomes that of the segment where it
/// has to be known.
PathTable::Node PathTable::FindChild(Node parent, const Segment& segment, uint32_t& hash) {
    if (count == 0) return kRoot;
    const NodeData& data = At(parent);
    if (data.children == kMany) return FindAmong(many[data.firstChild], segment, hash);
    Node child = data.firstChild;
    while (child != kRoot && !(At(child).segment == segment)) child = At(child).nextInChain;
    return child;
}

PathTable::Node PathTable::FindAmong(ManyChildren& children, const Segment& segment,
                                     uint32_t& hash) {
    if (segment.IsNumber() && segment.length < children.elements.size())
        return children.elements[segment.length];
    if (children.others.Size() == 0) return kRoot;
    hash = HashOf(segment);
    const Slot* const slot = children.others.Find(
        hash, [&](const Slot& other) { return At(other.node).segment == segment; });
    return slot ? slot->node : kRoot;
}

/// A new child of a node; its hash, where it is known already, or 0.
PathTable::Node PathTable::AddChild(Node parent, const Segment& segment, uint32_t hash) {
    if (hash == 0 && !segment.IsNumber()) hash = HashOf(segment);
    if (At(parent).children == kLongestChain) MoveChain(parent);
    if (At(parent).children == kMany) {
        ManyChildren& children = many[At(parent).firstChild];
        MakeRoomAmong(children, segment);
        const Node child = Add(parent, segment, hash);
        LinkAmong(children, child, hash);
        return child;
    }
    const Node child = Add(parent, segment, hash);
    At(child).nextInChain = At(parent).firstChild;
    At(parent).firstChild = child;
    ++At(parent).children;
    return child;
}

/// Whether a new child of that name is an element that follows the others.
bool PathTable::IsNextElement(const ManyChildren& children, const Segment& segment) {
    return segment.IsNumber() && segment.length == children.elements.size();
}

/// Has room where LinkAmong will need it.
void PathTable::MakeRoomAmong(ManyChildren& children, const Segment& segment) {
    std::vector<Node>& elements = children.elements;
    if (!IsNextElement(children, segment))
        children.others.Reserve(children.others.Size() + 1);
    else if (elements.size() == elements.capacity())
        elements.reserve(std::max<size_t>(2 * kLongestChain, 2 * elements.size()));
}

void PathTable::LinkAmong(ManyChildren& children, Node child, uint32_t hash) {
    const Segment segment = At(child).segment;
    if (IsNextElement(children, segment))
        children.elements.push_back(child);
    else
        children.others.Insert({hash != 0 ? hash : HashOf(segment), child});
}

/// From now on the children of a node are found in a place of their own.
void PathTable::MoveChain(Node parent) {
    Node chain[kLongestChain] = {};  // in the order in which they were entered
    Node* begin = std::end(chain);
    for (Node child = At(parent).firstChild; child != kRoot; child = At(child).nextInChain)
        *--begin = child;
    ManyChildren children;
    for (const Node child : chain) {
        MakeRoomAmong(children, At(child).segment);
        LinkAmong(children, child, 0);
    }
    many.push_back(std::move(children));
    At(parent).firstChild = static_cast<Node>(many.size() - 1);
    At(parent).children = kMany;
}

/// Makes the first block larger, or adds one.
void PathTable::MakeRoom() {
    const bool isFirst = room < kBlockSize;
    const uint32_t size = isFirst ? 4 * room : kBlockSize;
    std::unique_ptr<NodeData[]> block(new NodeData[size]);
    if (isFirst) {
        blocks.resize(1);
        std::copy_n(firstBlock, room, block.get());
        firstBlock = block.get();
        blocks.front() = std::move(block);
        room = size;
        return;
    }
    manyBlocks.resize(blocks.size() + 1);
    manyBlocks.front() = firstBlock;
    table = manyBlocks.data();
    blocks.push_back(std::move(block));
    manyBlocks.back() = blocks.back().get();
    room += kBlockSize;
}

void PathTable::MakeHandleRoom() {
    const uint32_t size = 2 * handleRoom;
    std::unique_ptr<Node[]> larger(new Node[size]);
    std::copy_n(handleToNode, issued, larger.get());
    manyHandles = std::move(larger);
    handleToNode = manyHandles.get();
    handleRoom = size;
}

/// A new node, with a copy of its segment's text.
PathTable::Node PathTable::Add(Node parent, const Segment& segment, uint32_t hash) {
    if (count == room) MakeRoom();
    const wchar_t* const text = segment.IsNumber() ? nullptr : Keep(segment.Text(), hash);
    At(count) = {{text, segment.length}, parent, 0, kRoot, kRoot, 0};
    return count++;
}

/// A zero-terminated copy of a text in the pool, which may be one that was made before.
const wchar_t* PathTable::Keep(std::wstring_view text, uint32_t hash) {
    if (recent.empty() && count > kFew) recent.resize(kRecent);
    std::wstring_view none;
    std::wstring_view& known = recent.empty() ? none : recent[hash % kRecent];
    if (known.data() && known == text) return known.data();
    const size_t size = text.size() * sizeof(wchar_t);
    auto* const copy = static_cast<wchar_t*>(allocator.Malloc(size + sizeof(wchar_t)));
    std::memcpy(copy, text.data(), size);
    copy[text.size()] = 0;
    known = {copy, text.size()};
    return copy;
}

// ---- What it costs -----------------------------------------------------------------------------

// LCOV_EXCL_START: the unit tests ask for it, to count what things cost
uint64_t PathTable::Work() const {
    uint64_t work = 0;
    for (const ManyChildren& children : many) work += children.others.Work();
    return work;
}
// LCOV_EXCL_STOP

// LCOV_EXCL_START: the unit tests ask for it, to count what things cost
size_t PathTable::Bytes() const {
    size_t bytes = room * sizeof(NodeData) + handleRoom * sizeof(Node) +
                   recent.capacity() * sizeof(std::wstring_view) +
                   many.capacity() * sizeof(ManyChildren);
    for (const ManyChildren& children : many)
        bytes += children.elements.capacity() * sizeof(Node) + children.others.Bytes();
    return bytes;
}
// LCOV_EXCL_STOP

}  // namespace QXJSON
