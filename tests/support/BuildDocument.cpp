#include "BuildDocument.h"

#include <gtest/gtest.h>
#include <rapidjson/pointer.h>

#include "OutputReference.h"

namespace building {
namespace {

std::wstring Token(const Value& name) {
    std::wstring token;
    for (const wchar_t c : std::wstring(name.GetString(), name.GetStringLength()))
        token += c == L'~' ? L"~0" : c == L'/' ? L"~1" : std::wstring(1, c);
    return token;
}

/// Runs `action` with each child and a function that names it, until the action returns true.
template <class Action>
bool AnyChild(const Value& value, Action action) {
    if (value.IsArray()) {
        for (rapidjson::SizeType i = 0; i < value.Size(); ++i)
            if (action(value[i], [i] { return std::to_wstring(i); })) return true;
    } else if (value.IsObject()) {
        for (auto member = value.MemberBegin(); member != value.MemberEnd(); ++member)
            if (action(member->value, [member] { return Token(member->name); })) return true;
    }
    return false;
}

}  // namespace

std::wstring TextOf(const Value& value) { return model::ReferenceText(value); }

std::wstring TextOf(QXJSON::IJsonGenerator& generator) {
    const wchar_t* text = nullptr;
    const int result = generator.GetJsonString(&text);
    EXPECT_EQ(1, result);
    EXPECT_NE(nullptr, text);
    return result == 1 && text != nullptr ? text : L"no document";
}

Value* Resolve(Value& root, const std::wstring& pointer) {
    const rapidjson::GenericPointer<Value> parsed(pointer.c_str(), pointer.size());
    return parsed.IsValid() ? parsed.Get(root) : nullptr;
}

uint32_t CountIn(const Value& root) {
    uint32_t count = 1;
    AnyChild(root, [&](const Value& child, const auto&) {
        count += CountIn(child);
        return false;
    });
    return count;
}

std::wstring PointerIn(const Value& root, uint32_t place) {
    std::wstring pointer;
    uint32_t first = 1;
    AnyChild(root, [&](const Value& child, const auto& name) {
        const uint32_t next = first + CountIn(child);
        if (place >= first && place < next)
            pointer = L"/" + name() + PointerIn(child, place - first);
        first = next;
        return place < next;
    });
    return pointer;
}

Value& At(uint64_t reference) { return *reinterpret_cast<Value*>(reference); }

uint64_t ReferenceOf(const Value& value) { return reinterpret_cast<uint64_t>(&value); }

Value NewString(const std::wstring& text, Allocator& allocator) {
    return Value(text.c_str(), static_cast<rapidjson::SizeType>(text.size()), allocator);
}

}  // namespace building
