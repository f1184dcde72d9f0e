#pragma once

#include "HandleTable.h"
#include "common/values/Outputs.h"
#include "common/values/ValueAccess.h"

// How a value that was found goes out of the library: as a reference with its value type, or as a
// handle with its item type.

namespace QXJSON {

/// The outputs of an operation that hands out a value reference.
struct ReferenceOutput {
    uint64_t* value;
    uint32_t* valueType;

    bool Complete() const { return value && valueType; }
    void Write(JsonValue& found) const {
        EnsureWritable(value);
        EnsureWritable(valueType);
        *value = reinterpret_cast<uintptr_t>(&found);
        *valueType = ValueType::Read(found);
    }
};

/// The outputs of an operation that hands out an item handle.
struct ItemOutput {
    HandleTable& handles;
    uint32_t* handle;
    uint32_t* itemType;

    bool Complete() const { return handle && itemType; }
    void Write(JsonValue& found) const {
        EnsureWritable(handle);
        EnsureWritable(itemType);
        *handle = handles.HandleOf(found);
        *itemType = ItemType::Read(found);
    }
};

/// The kinds of value that an operation is restricted to.
using KindTest = bool (*)(const JsonValue&);
inline bool IsAny(const JsonValue&) { return true; }
inline bool IsObject(const JsonValue& value) { return value.IsObject(); }
inline bool IsArray(const JsonValue& value) { return value.IsArray(); }

/// Hands out the value at a place; the result for a value of another kind is kPlainFailure.
template <class Output>
int HandOut(const Place& place, const Output& output, KindTest kind = IsAny) {
    if (!place.value) return place.absence;
    if (!output.Complete() || !kind(*place.value)) return kPlainFailure;
    output.Write(*place.value);
    return kSuccess;
}

/// Hands out a member of the object at a place; the result for a missing member is kPlainFailure.
template <class Output>
int HandOutMember(MemberLookup& members, const Place& object, const wchar_t* key,
                  const Output& output, KindTest kind = IsAny) {
    return HandOut(FindMember(members, object, {key, output.Complete(), kPlainFailure}), output,
                   kind);
}

/// Hands out the child at `index` of the container at a place.
template <class Output>
int HandOutChild(const Place& container, uint32_t index, const Output& output) {
    return HandOut(ChildAt(container, index, output.Complete()), output);
}

}  // namespace QXJSON
