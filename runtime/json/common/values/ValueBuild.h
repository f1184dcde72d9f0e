#pragma once

#include <cwchar>

#include "ItemKinds.h"
#include "Outputs.h"
#include "common/ResultCodes.h"

// Adding values. The order of checks is that of ValueAccess.h, with the text to be stored after
// the key: the place, the key, the text, the output pointer, the kind of the parent.

namespace QXJSON {

/// Appends a member without looking for one of the same name. An object that cannot grow is left as
/// it was (std::bad_alloc).
JsonValue& PutMember(JsonValue& object, JsonValue&& name, JsonValue&& value,
                     JsonAllocator& allocator);

/// Appends an element.
JsonValue& PutElement(JsonValue& array, JsonValue&& value, JsonAllocator& allocator);

/// A copy of a key as the name of a member.
inline JsonValue MakeName(const wchar_t* key, JsonAllocator& allocator) {
    return JsonValue(key, allocator);
}

/// Puts the characters of a string where they stay when the value itself is moved: RapidJSON keeps
/// a few characters inside the value. Other kinds are left as they are.
void SettleString(JsonValue& value, JsonAllocator& allocator);

/// A copy of a whole value, at any depth: throws NestingTooDeep where the stack ends.
JsonValue DeepCopy(const JsonValue& source, JsonAllocator& allocator);

/// The checks of every operation that adds something: kSuccess, or the result of the first that
/// fails.
template <class Item>
int CheckAdd(const JsonValue* parent, rapidjson::Type kind, bool hasKey, const Item& item,
             bool hasOutput) {
    if (!parent) return kNoValue;
    if (!hasKey) return kNoMember;
    if (!item.Known()) return kPlainFailure;
    if (!item.HasText()) return kNoText;
    if (!hasOutput) return kPlainFailure;
    return parent->GetType() == kind ? kSuccess : static_cast<int>(kWrongKind);
}

/// How a value is put in place: as it is. What has to know of it takes the place of this.
struct JustPut {
    template <class Put>
    JsonValue& operator()(JsonValue&, Put&& put) const {
        return put();
    }
};

/// Adds a member to an object; `reference` receives the address of its value. `putting` does the
/// last step, by which the object changes.
template <class Item, class Putting = JustPut>
int AddMember(JsonValue* object, const wchar_t* key, const Item& item, JsonAllocator& allocator,
              uint64_t* reference, Putting&& putting = {}) {
    const int result = CheckAdd(object, rapidjson::kObjectType, key, item, reference);
    if (result != kSuccess) return result;
    EnsureWritable(reference);
    JsonValue name = MakeName(key, allocator);
    JsonValue value = item.Make(allocator);
    const JsonValue& added = putting(*object, [&]() -> JsonValue& {
        return PutMember(*object, std::move(name), std::move(value), allocator);
    });
    *reference = reinterpret_cast<uintptr_t>(&added);
    return kSuccess;
}

/// Appends an element to an array. `reference` receives the address of the element; for booleans
/// and numbers, by contract, that of the array itself plus 16 for each element before the new one.
template <class Item, class Putting = JustPut>
int Append(JsonValue* array, const Item& item, JsonAllocator& allocator, uint64_t* reference,
           Putting&& putting = {}) {
    const int result = CheckAdd(array, rapidjson::kArrayType, true, item, reference);
    if (result != kSuccess) return result;
    EnsureWritable(reference);
    JsonValue value = item.Make(allocator);
    const JsonValue& element = putting(
        *array, [&]() -> JsonValue& { return PutElement(*array, std::move(value), allocator); });
    *reference = Item::kOddReference
                     ? reinterpret_cast<uintptr_t>(array) + 16 * (uint64_t{array->Size()} - 1)
                     : reinterpret_cast<uintptr_t>(&element);
    return kSuccess;
}

}  // namespace QXJSON
