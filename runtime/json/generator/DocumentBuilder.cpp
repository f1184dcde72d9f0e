#include "DocumentBuilder.h"

#include <windows.h>

#include <algorithm>

#include "common/search/PointerWalk.h"

namespace QXJSON {

JsonValue& DocumentBuilder::ReplaceRoot(JsonValue&& value) {
    ++epoch;
    return root = value;
}

uint32_t DocumentBuilder::StartAnew(JsonValue&& value) {
    const uint32_t handle = paths.Restart();
    lookup.Clear();
    ReplaceRoot(std::move(value));
    return handle;
}

DocumentBuilder::Parent DocumentBuilder::ByHandle(int32_t handle) {
    const std::optional<Node> node = paths.NodeOf(handle);
    if (!node) return {Parent::Naming::kHandle, false, {}, nullptr};
    return {Parent::Naming::kHandle, true, PathTable::Known(*node), Resolve(*node)};
}

DocumentBuilder::Parent DocumentBuilder::ByPath(const wchar_t* path) {
    const bool translated = TranslateItemPath(lookup, root, path, pointer) == kSuccess;
    // Made in one piece: a copy right after its stores would have to wait for them.
    Parent parent = {Parent::Naming::kPath, translated,
                     translated ? paths.Reach(pointer.Text()) : PathTable::Known(PathTable::kRoot),
                     nullptr};
    if (translated) parent.value = Resolve(parent.path);
    parent.known = parent.value != nullptr;
    return parent;
}

// ---- From paths to values ----------------------------------------------------------------------

/// The path of a member; nothing of it is known where that of its parent is not.
PathTable::Reached DocumentBuilder::ChildOf(const PathTable::Reached& parent,
                                            std::wstring_view key) {
    return parent.Whole() ? paths.Reach(parent.node, key) : parent;
}

JsonValue* DocumentBuilder::Resolve(const PathTable::Reached& path) {
    JsonValue* const value = Resolve(path.node);
    return value && !path.Whole() ? ResolveSegments(lookup, *value, path.rest) : value;
}

/// The value at a path, or null.
JsonValue* DocumentBuilder::Resolve(Node node) {
    JsonValue* const known = KnownLocation(node);
    return known ? known : ResolveFromAbove(node);
}

JsonValue* DocumentBuilder::KnownLocation(Node node) {
    if (node == PathTable::kRoot) return &root;
    const Location& location = LocationOf(node);
    return location.node == node && location.epoch == epoch ? location.value : nullptr;
}

/// Starts from the nearest path above whose value is known.
JsonValue* DocumentBuilder::ResolveFromAbove(Node node) {
    size_t steps = 0;
    JsonValue* value = nullptr;
    for (Node above = node; !(value = KnownLocation(above)); above = paths.ParentOf(above)) ++steps;
    constexpr size_t kFew = 64;
    Node few[kFew];
    std::vector<Node> many(steps > kFew ? steps : 0);
    Node* const trail = steps > kFew ? many.data() : few;
    for (size_t step = steps; step > 0; node = paths.ParentOf(node)) trail[--step] = node;
    for (size_t step = 0; value && step < steps; ++step) {
        value = ChildOf(*value, trail[step]);
        if (value) Remember(trail[step], value);
    }
    return value;
}

JsonValue* DocumentBuilder::ChildOf(JsonValue& value, Node child) {
    const PathTable::Segment segment = paths.SegmentOf(child);
    if (!segment.IsNumber()) return ResolveSegment(lookup, value, segment.Text());
    if (!value.IsArray()) return ResolveSegment(lookup, value, paths.TextOf(child));
    return segment.length < value.Size() ? &value[segment.length] : nullptr;
}

/// The name of a new member: the text that its path keeps anyway, or a copy where the path is not
/// the key as it stands.
JsonValue DocumentBuilder::NameOf(Node child, std::wstring_view key) {
    const PathTable::Segment segment = paths.SegmentOf(child);
    const auto length = static_cast<rapidjson::SizeType>(key.size());
    if (segment.IsNumber() || segment.length != length)
        return JsonValue(key.data(), length, allocator);
    return JsonValue(rapidjson::StringRef(segment.text, length));
}

uint32_t DocumentBuilder::HandleOf(Node node) {
    const uint32_t known = paths.HandleOf(node);
    return known != 0 ? known : paths.Issue(node);
}

// ---- Item paths --------------------------------------------------------------------------------

int DocumentBuilder::GetHandleByPath(const wchar_t* path, uint32_t* handle) {
    const Parent item = ByPath(path);
    if (!item.known) return item.Absence();
    if (!handle) return kPlainFailure;
    EnsureWritable(handle);
    const Node node = paths.Enter(item.path);
    paths.PrepareIssue();
    *handle = HandleOf(node);
    return kSuccess;
}

int DocumentBuilder::GetItemPath(int32_t handle, wchar_t* path) {
    const std::optional<Node> node = paths.NodeOf(handle);
    if (!node) return kNoValue;
    wchar_t text[kPathCapacity];
    if (!path || !TranslateBack(*node, text)) return kPlainFailure;
    const size_t units = std::wcslen(text) + 1;
    EnsureWritable(path, units);
    std::copy_n(text, units, path);
    return kSuccess;
}

/// The nodes of a path from the one below the root down to the node itself.
std::vector<DocumentBuilder::Node> DocumentBuilder::TrailTo(Node node) const {
    std::vector<Node> nodes;
    for (; node != PathTable::kRoot; node = paths.ParentOf(node)) nodes.push_back(node);
    std::reverse(nodes.begin(), nodes.end());
    return nodes;
}

namespace {

bool HasDigit(std::wstring_view segment) {
    return std::any_of(segment.begin(), segment.end(),
                       [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

/// The segment of an item path that stands for one of an internal path: below an array, where it
/// has a digit, a position that counts from 1; everywhere a slash inside a key in the runtime's own
/// way.
std::wstring ToItemSegment(std::wstring text, const JsonValue* parent) {
    if (parent && parent->IsArray() && HasDigit(text)) {
        wchar_t position[16];
        // Unsigned, for the highest integer has no successor.
        wsprintfW(position, L"%d",
                  static_cast<int>(static_cast<unsigned>(_wtoi(text.c_str())) + 1));
        text = position;
    }
    for (size_t at = text.find(L"~1"); at != std::wstring::npos; at = text.find(L"~1", at + 2))
        text.replace(at, 2, L"~/");
    return text;
}

}  // namespace

/// False when the path does not fit.
bool DocumentBuilder::TranslateBack(Node node, wchar_t (&path)[kPathCapacity]) {
    std::wstring text = node == PathTable::kRoot ? L"/" : L"";
    JsonValue* parent = &root;
    for (const Node step : TrailTo(node)) {
        text += L'/' + ToItemSegment(paths.TextOf(step), parent);
        if (text.size() >= kPathCapacity) return false;
        if (parent) parent = ChildOf(*parent, step);
    }
    std::copy_n(text.c_str(), text.size() + 1, path);
    return true;
}

}  // namespace QXJSON
