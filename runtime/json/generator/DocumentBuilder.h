#pragma once

#include <optional>
#include <vector>

#include "PathTable.h"
#include "common/platform/FaultGuard.h"
#include "common/search/ItemPath.h"
#include "common/values/ValueBuild.h"

namespace QXJSON {

/// A document under construction: its values, the handles of its items, and the ways to name the
/// parent of a new item.
class DocumentBuilder {
public:
    using Node = PathTable::Node;

    /// The parent of a new item in the handle and path families.
    struct Parent {
        /// How it was named, which decides the result where it is not known at all.
        enum class Naming { kHandle, kPath } naming;
        bool known;
        PathTable::Reached path;  ///< its path; not known in whole before something below is added
        JsonValue* value;         ///< the value there now; null where the path leads nowhere

        int Absence() const { return naming == Naming::kHandle ? kNoValue : kBadPath; }
    };

    const JsonValue& Root() const { return root; }
    /// Whether there is no document and there are no paths, and never were.
    bool IsNew() const { return root.IsNull() && paths.Count() == 0 && pool.IsEmpty(); }

    /// Replaces the document; the handles stay, and lead to what is at their paths now.
    JsonValue& ReplaceRoot(JsonValue&& value);
    /// Replaces the document and forgets all handles. Returns the root's handle, which is 1.
    uint32_t StartAnew(JsonValue&& value);

    Parent ByHandle(int32_t handle);
    /// Raises an access violation where the path's translation does. Valid until the next call.
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
    DocumentPool& Pool() { return pool; }
    JsonAllocator& Allocator() { return allocator; }

    // What is held and has been done, for those who count it.
    const PathTable& Paths() const { return paths; }       // LCOV_EXCL_LINE: for unit tests
    const MemberLookup& Lookup() const { return lookup; }  // LCOV_EXCL_LINE: for unit tests

private:
    /// Where the value of a path was found, and when.
    struct Location {
        Node node = 0;
        JsonValue* value = nullptr;
        uint64_t epoch = 0;
    };

    PathTable::Reached ChildOf(const PathTable::Reached& parent, std::wstring_view key);
    JsonValue* Resolve(const PathTable::Reached& path);
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

    JsonValue NameOf(Node child, std::wstring_view key);
    template <class Put>
    JsonValue& WatchingStorage(JsonValue& container, Put&& put);
    /// The same, as what puts values in place.
    auto Watching() {
        return [this](JsonValue& container, auto&& put) -> JsonValue& {
            return WatchingStorage(container, put);
        };
    }

    DocumentPool pool;
    JsonAllocator& allocator = pool.Allocator();
    JsonValue root;
    PathTable paths{allocator};
    MemberLookup lookup{pool};
    PointerText pointer;  // that of the parent named last

    // Values move when the container that they stand in grows into other memory, and end when
    // something above them is overwritten. Both are rare, and begin a new epoch; within one, a
    // location that was found stays true. Scripts add to few parents at a time.
    static constexpr Node kLocations = 64;
    Location locations[kLocations];
    uint64_t epoch = 1;
};

/// Calls `put`, which adds to `container`. If that moved what was in it, a new epoch begins and
/// the search for members is notified.
template <class Put>
JsonValue& DocumentBuilder::WatchingStorage(JsonValue& container, Put&& put) {
    const bool isObject = container.IsObject();
    const auto storage = [&]() -> const void* {
        if (isObject) return container.MemberBegin().operator->();
        return container.Begin();
    };
    const void* const before = storage();
    JsonValue& added = put();
    const void* const after = storage();
    if (before && after != before) {
        ++epoch;
        if (isObject)
            lookup.Moved(static_cast<const JsonMember*>(before),
                         static_cast<const JsonMember*>(after));
    }
    return added;
}

template <class Item>
int DocumentBuilder::AddMember(uint64_t parent, const wchar_t* key, const Item& item,
                               uint64_t* reference) {
    return QXJSON::AddMember(reinterpret_cast<JsonValue*>(parent), key, item, allocator, reference,
                             Watching());
}

template <class Item>
int DocumentBuilder::Append(uint64_t parent, const Item& item, uint64_t* reference) {
    return QXJSON::Append(reinterpret_cast<JsonValue*>(parent), item, allocator, reference,
                          Watching());
}

template <class Item>
int DocumentBuilder::AddMember(const Parent& parent, const wchar_t* key, const Item& item,
                               uint32_t* handle) {
    if (!parent.known) return parent.Absence();
    if (!key) RethrowFaults(RaiseAccessViolation);  // by contract the key is used without a test
    const std::wstring_view name = KeyOf(key);
    PathTable::Reached path = ChildOf(parent.path, name);
    if (path.Whole() && paths.HandleOf(path.node) != 0) return Overwrite(path.node, item, handle);
    const int result = CheckAdd(parent.value, rapidjson::kObjectType, true, item, handle);
    if (result != kSuccess) return result;
    EnsureWritable(handle);
    JsonValue value = item.Make(allocator);
    if (!parent.path.Whole()) path = paths.Reach(paths.Enter(parent.path), name);
    const Node child = paths.Enter(path);
    paths.PrepareIssue();
    WatchingStorage(*parent.value, [&]() -> JsonValue& {
        return PutMember(*parent.value, NameOf(child, name), std::move(value), allocator);
    });
    *handle = paths.Issue(child);
    return kSuccess;
}

template <class Item>
int DocumentBuilder::Append(const Parent& parent, const Item& item, uint32_t* handle) {
    if (!parent.known) return parent.Absence();
    JsonValue* const array = parent.value;
    const int result = CheckAdd(array, rapidjson::kArrayType, true, item, handle);
    if (result != kSuccess) return result;
    EnsureWritable(handle);
    JsonValue value = item.Make(allocator);
    const Node child = paths.EnterElement(paths.Enter(parent.path), array->Size());
    paths.PrepareIssue();
    JsonValue& element = WatchingStorage(
        *array, [&]() -> JsonValue& { return PutElement(*array, std::move(value), allocator); });
    Remember(child, &element);
    *handle = HandleOf(child);
    return kSuccess;
}

/// Replaces the value at a path that has a handle. Where the path leads nowhere, because something
/// above it was overwritten, there is nothing to replace; some kinds of item do not test for that.
template <class Item>
int DocumentBuilder::Overwrite(Node child, const Item& item, uint32_t* handle) {
    if (!item.Known()) return kPlainFailure;
    if (!item.HasText())
        RethrowFaults(RaiseAccessViolation);  // used without a test here, by contract
    if (!handle) return kPlainFailure;
    EnsureWritable(handle);
    JsonValue* const value = Resolve(child);
    if (value) {
        JsonValue made = item.Make(allocator);
        if (IsContainer(*value)) ++epoch;
        *value = made;
    } else if (Item::kNeedsTarget) {
        RethrowFaults(RaiseAccessViolation);
    }
    *handle = paths.HandleOf(child);
    return kSuccess;
}

}  // namespace QXJSON
