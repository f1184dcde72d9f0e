#include "PathTable.h"

#include <algorithm>
#include <cstring>

namespace QXJSON {
namespace {

using Segment = PathTable::Segment;

/// So many children of a node are found by following a chain from it; objects with few members, of
/// which there may be many, then stay close together in memory.
constexpr uint32_t kLongestChain = 8;
/// A number of children that no chain has.
constexpr uint32_t kInTable = UINT32_MAX;

constexpr uint64_t kFactor = 0x9E37'79B9'7F4A'7C15;

uint64_t Mix(uint64_t hash, std::wstring_view text) {
    constexpr size_t kStep = sizeof(uint64_t) / sizeof(wchar_t);
    hash ^= text.size();
    while (!text.empty()) {
        const size_t step = std::min(text.size(), kStep);
        uint64_t units = 0;
        std::memcpy(&units, text.data(), step * sizeof(wchar_t));
        hash = (hash ^ units) * kFactor;
        hash ^= hash >> 32;
        text.remove_prefix(step);
    }
    return hash;
}

uint32_t HashOf(PathTable::Node parent, const Segment& segment) {
    const uint64_t hash = parent * kFactor >> 32;
    return static_cast<uint32_t>(segment.IsNumber() ? hash + segment.length
                                                    : Mix(hash, segment.Text()));
}

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
    handleToNode.clear();
    slots.clear();
    slotsUsed = 0;
    return Issue(kRoot);
}

PathTable::Node PathTable::Child(Node parent, std::wstring_view key) {
    for (;;) {
        const size_t length = FirstSegment(key);
        parent = Child(parent, SegmentFrom(key.substr(0, length)));
        if (length == key.size()) return parent;
        key.remove_prefix(length + 1);
    }
}

PathTable::Node PathTable::AtPointer(std::wstring_view pointer) {
    return pointer.empty() ? kRoot : Child(kRoot, pointer.substr(1));
}

std::wstring PathTable::TextOf(Node node) const {
    const Segment segment = SegmentOf(node);
    return segment.IsNumber() ? std::to_wstring(segment.length) : std::wstring(segment.Text());
}

// ---- Handles -----------------------------------------------------------------------------------

std::optional<PathTable::Node> PathTable::NodeOf(int32_t handle) const {
    if (handle < 1 || static_cast<size_t>(handle) > handleToNode.size()) return std::nullopt;
    return handleToNode[static_cast<size_t>(handle) - 1];
}

void PathTable::PrepareIssue() {
    if (count == 0) Add(kRoot, {});
    if (handleToNode.size() == handleToNode.capacity())
        handleToNode.reserve(std::max<size_t>(16, handleToNode.size() * 2));
}

uint32_t PathTable::Issue(Node node) {
    handleToNode.push_back(node);
    return At(node).handle = static_cast<uint32_t>(handleToNode.size());
}

// ---- The tree ----------------------------------------------------------------------------------

PathTable::Node PathTable::Child(Node parent, const Segment& segment) {
    if (count == 0) Add(kRoot, {});
    if (At(parent).children <= kLongestChain) {
        Node* chain = &At(parent).firstChild;
        for (; *chain != kRoot; chain = &At(*chain).nextInChain)
            if (At(*chain).segment == segment) return *chain;
        if (At(parent).children < kLongestChain) {
            *chain = Add(parent, segment);
            ++At(parent).children;
            return *chain;
        }
        MoveChainIntoTable(parent);
    }
    MakeRoom(1);
    const uint32_t hash = HashOf(parent, segment);
    Slot& slot = SlotOf(parent, segment, hash);
    if (slot.node == kRoot) {
        slot = {hash, Add(parent, segment)};
        ++slotsUsed;
    }
    return slot.node;
}

/// From now on the children of a node are found in the table alone.
void PathTable::MoveChainIntoTable(Node parent) {
    MakeRoom(kLongestChain);
    for (Node child = At(parent).firstChild; child != kRoot; child = At(child).nextInChain) {
        const uint32_t hash = HashOf(parent, At(child).segment);
        SlotOf(parent, At(child).segment, hash) = {hash, child};
        ++slotsUsed;
    }
    At(parent).children = kInTable;
}

/// A new node, with a copy of its segment's text.
PathTable::Node PathTable::Add(Node parent, const Segment& segment) {
    if (count >> kBlockBits == blocks.size()) {
        std::unique_ptr<NodeData[]> block(new NodeData[kBlockSize]);
        blocks.push_back(std::move(block));
    }
    const wchar_t* const text = segment.IsNumber() ? nullptr : Keep(segment.Text());
    At(count) = {{text, segment.length}, parent, 0, kRoot, kRoot, 0};
    return count++;
}

/// A zero-terminated copy of a text in the pool, which may be one that was made before.
const wchar_t* PathTable::Keep(std::wstring_view text) {
    std::wstring_view& known = recent[Mix(0, text) % kRecent];
    if (known.data() && known == text) return known.data();
    const size_t size = text.size() * sizeof(wchar_t);
    auto* const copy = static_cast<wchar_t*>(allocator.Malloc(size + sizeof(wchar_t)));
    std::memcpy(copy, text.data(), size);
    copy[text.size()] = 0;
    known = {copy, text.size()};
    return copy;
}

/// The slot that holds the child, or else the free one where it belongs.
PathTable::Slot& PathTable::SlotOf(Node parent, const Segment& segment, uint32_t hash) {
    const size_t mask = slots.size() - 1;
    for (size_t at = hash & mask;; at = (at + 1) & mask) {
        Slot& slot = slots[at];
        if (slot.node == kRoot) return slot;
        if (slot.hash == hash && At(slot.node).parent == parent && At(slot.node).segment == segment)
            return slot;
    }
}

void PathTable::MakeRoom(uint32_t more) {
    if (slotsUsed + more <= slots.size() / 4 * 3) return;
    constexpr size_t kFirstSize = 64;
    std::vector<Slot> bigger(slots.empty() ? kFirstSize : slots.size() * 2);
    const size_t mask = bigger.size() - 1;
    for (const Slot& slot : slots) {
        if (slot.node == kRoot) continue;
        size_t at = slot.hash & mask;
        while (bigger[at].node != kRoot) at = (at + 1) & mask;
        bigger[at] = slot;
    }
    slots.swap(bigger);
}

}  // namespace QXJSON
