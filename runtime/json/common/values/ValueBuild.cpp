#include "ValueBuild.h"

#include <cstring>

#include "DocumentWalk.h"

namespace QXJSON {

JsonValue& PutMember(JsonValue& object, JsonValue&& name, JsonValue&& value,
                     JsonAllocator& allocator) {
    // RapidJSON records the capacity of the grown object before it takes the memory for it. Where
    // that fails the object must not believe in it.
    unsigned char before[sizeof(JsonValue)];
    std::memcpy(before, &object, sizeof before);
    try {
        object.AddMember(name, value, allocator);
    } catch (...) {
        std::memcpy(static_cast<void*>(&object), before, sizeof before);
        throw;
    }
    return (object.MemberEnd() - 1)->value;
}

JsonValue& PutElement(JsonValue& array, JsonValue&& value, JsonAllocator& allocator) {
    array.PushBack(value, allocator);
    return array[array.Size() - 1];
}

void SettleString(JsonValue& value, JsonAllocator& allocator) {
    if (!value.IsString()) return;
    const wchar_t* const text = value.GetString();
    const auto* const inside = reinterpret_cast<const char*>(&value);
    const auto* const characters = reinterpret_cast<const char*>(text);
    if (characters < inside || characters >= inside + sizeof value) return;
    const rapidjson::SizeType length = value.GetStringLength();
    auto* const copy = static_cast<wchar_t*>(allocator.Malloc((length + 1) * sizeof(wchar_t)));
    std::memcpy(copy, text, (length + 1) * sizeof(wchar_t));
    value.SetString(rapidjson::StringRef(static_cast<const wchar_t*>(copy), length));
}

JsonValue DeepCopy(const JsonValue& source, JsonAllocator& allocator) {
    ReadDocument copy(allocator);
    auto fill = [&](JsonDocument& handler) { return Walk(source, handler); };
    copy.Populate(fill);
    JsonValue result;
    result.Swap(copy);
    return result;
}

JsonValue DocumentItem::Make(JsonAllocator& allocator) const {
    if (!annex.IsWorthKeeping()) return DeepCopy(source, allocator);
    annex.Keep();
    return std::move(source);
}

}  // namespace QXJSON
