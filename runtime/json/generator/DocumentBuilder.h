#pragma once

#include <optional>
#include <vector>

#include "../common/FaultGuard.h"
#include "../common/ItemPath.h"
#include "../common/ValueBuild.h"
#include "PathTable.h"

namespace QXJSON {

/// A document under construction: its values, the handles of its items, and the ways to name the
/// parent of a new item.
class DocumentBuilder {
public:
    using Node = PathTable::Node;

    /// The parent of a new item in the handle and path families.
    struct Parent {
        std::optional<Node> node;  ///< its path; nothing: the parent is not known at all
        JsonValue* value;          ///< the value there now; null where the path leads nowhere
        int absence;               ///< the result when the parent is not known
    };

    const JsonValue& Root() const { return root; }

    /// Replaces the document; the handles stay, and lead to what is at their paths now.
    JsonValue& ReplaceRoot(JsonValue&& value);
    /// Replaces the document and forgets all handles. Returns the root's handle, which is 1.
    uint32_t StartAnew(JsonValue&& value);

    Parent ByHandle(int32_t handle);
    /// Raises an access violation where the path's translation does.
    Parent ByPath(const wchar_t* path);

    // Value family: the parent is a value; a repeated key makes a second member.

    template <class Item>
    int AddMember(uint64_t parent, const wchar_t* key, const Item& item, uint64_t* reference);
    template <class Item>
    int Append(uint64_t parent, const Item& item, uint64_t* reference);

    // Handle and path families: what stands at a path that has a handle is overwritten.

    template <class Item>
    int AddMember(const Parent& parent, const wchar_t* key, const Item& item, uint32_t* handle);
    template <class Item>
    int Append(const Parent& parent, const Item& item, uint32_t* handle);

    /// Adds a member, or appends an element where the key is null, in any family.
    template <class AnyParent, class Item, class Output>
    int Add(const AnyParent& parent, const wchar_t* key, const Item& item, Output* output) {
        return key ? AddMember(parent, key, item, output) : Append(parent, item, output);
    }

    /// Writes the item path of a handle into a buffer of kPathCapacity units; kPlainFailure, with
    /// nothing written, when it does not fit.
    int GetItemPath(int32_t handle, wchar_t* path);
    /// The handle of the value at an item path, issued on the first request.
    int GetHandleByPath(const wchar_t* path, uint32_t* handle);

    /// The pool of the document's values.
    JsonAllocator& Allocator() { return allocator; }

private:
    /// Where the value of a path was found, and when.
    struct Location {
        Node node = 0;
        JsonValue* value = nullptr;
        uint64_t epoch = 0;
    };

    JsonValue* Resolve(Node node);
    JsonValue* ResolveFromAbove(Node node);
    JsonValue* ChildOf(JsonValue& value, Node child);
    JsonValue* KnownLocation(Node node);
    void Remember(Node node, JsonValue* value) { LocationOf(node) = {node, value, epoch}; }
    Location& LocationOf(Node node) { return locations[node % kLocations]; }
    uint32_t HandleOf(Node node);
    template <class Item>
    int Overwrite(Node child, const Item& item, uint32_t* handle);
    bool TranslateBack(Node node, wchar_t (&path)[kPathCapacity]);
    std::vector<Node> TrailTo(Node node) const;

    template <class Grow>
    int WatchingStorage(JsonValue* container, Grow&& grow);

    JsonAllocator allocator;
    JsonValue root;
    PathTable paths{allocator};
    MemberLookup lookup;

    // Values move when the container that they stand in grows into other memory, and end when
    // something above them is overwritten. Both are rare, and begin a new epoch; within one, a
    // location that was found stays true. Scripts add to few parents at a time.
    static constexpr Node kLocations = 64;
    Location locations[kLocations];
    std::vector<Node> trail;  // Resolve's own, kept for its memory
    uint64_t epoch = 1;
};

/// Calls `grow`, which may add to `container`. If that moved what was in it, a new epoch begins and
/// the search for members is told.
template <class Grow>
int DocumentBuilder::WatchingStorage(JsonValue* container, Grow&& grow) {
    const auto members = [&] {
        return container && container->IsObject() ? container->MemberBegin().operator->() : nullptr;
    };
    const auto elements = [&] {
        return container && container->IsArray() ? container->Begin() : nullptr;
    };
    const JsonMember* const membersBefore = members();
    const JsonValue* const elementsBefore = elements();
    const int result = grow();
    if (membersBefore && members() != membersBefore) {
        lookup.Moved(membersBefore, members());
        ++epoch;
    }
    if (elementsBefore && elements() != elementsBefore) ++epoch;
    return result;
}

template <class Item>
int DocumentBuilder::AddMember(uint64_t parent, const wchar_t* key, const Item& item,
                               uint64_t* reference) {
    auto* const object = reinterpret_cast<JsonValue*>(parent);
    return WatchingStorage(
        object, [&] { return QXJSON::AddMember(object, key, item, allocator, reference); });
}

template <class Item>
int DocumentBuilder::Append(uint64_t parent, const Item& item, uint64_t* reference) {
    auto* const array = reinterpret_cast<JsonValue*>(parent);
    return WatchingStorage(array,
                           [&] { return QXJSON::Append(array, item, allocator, reference); });
}

template <class Item>
int DocumentBuilder::AddMember(const Parent& parent, const wchar_t* key, const Item& item,
                               uint32_t* handle) {
    if (!parent.node) return parent.absence;
    if (!item.Known()) return kPlainFailure;
    if (!key) throw ProcessorFault();  // by contract the key is used without a test
    const Node child = paths.Child(*parent.node, key);
    if (paths.HandleOf(child) != 0) return Overwrite(child, item, handle);
    return WatchingStorage(parent.value, [&]() -> int {
        paths.PrepareIssue();
        uint64_t reference = 0;
        const int result =
            QXJSON::AddMember(parent.value, key, item, allocator, handle ? &reference : nullptr);
        if (result == kSuccess) *handle = paths.Issue(child);
        return result;
    });
}

template <class Item>
int DocumentBuilder::Append(const Parent& parent, const Item& item, uint32_t* handle) {
    if (!parent.node) return parent.absence;
    if (!item.Known()) return kPlainFailure;
    JsonValue* const array = parent.value;
    const Node child =
        array && array->IsArray() ? paths.Element(*parent.node, array->Size()) : PathTable::kRoot;
    paths.PrepareIssue();
    const int result = WatchingStorage(array, [&] {
        uint64_t reference = 0;
        return QXJSON::Append(array, item, allocator, handle ? &reference : nullptr);
    });
    if (result != kSuccess) return result;
    *handle = HandleOf(child);
    Remember(child, array->End() - 1);
    return kSuccess;
}

/// Replaces the value at a path that has a handle. Where the path leads nowhere, because something
/// above it was overwritten, there is nothing to replace; some kinds of item do not test for that.
template <class Item>
int DocumentBuilder::Overwrite(Node child, const Item& item, uint32_t* handle) {
    if (!item.HasText()) throw ProcessorFault();  // used without a test here, by contract
    if (!handle) return kPlainFailure;
    JsonValue* const value = Resolve(child);
    if (value) {
        JsonValue made = item.Make(allocator);
        if (IsContainer(*value)) ++epoch;
        *value = made;
    } else if (Item::kNeedsTarget) {
        throw ProcessorFault();
    }
    *handle = paths.HandleOf(child);
    return kSuccess;
}

}  // namespace QXJSON
