#include "BuildDocument.h"

#include <gtest/gtest.h>
#include <rapidjson/pointer.h>

#include "OutputReference.h"

namespace building {
namespace {

void Collect(const Value& value, const std::wstring& pointer, std::vector<std::wstring>& all) {
    all.push_back(pointer);
    if (value.IsArray()) {
        for (rapidjson::SizeType i = 0; i < value.Size(); ++i)
            Collect(value[i], pointer + L"/" + std::to_wstring(i), all);
    } else if (value.IsObject()) {
        for (auto member = value.MemberBegin(); member != value.MemberEnd(); ++member) {
            std::wstring token;
            for (const wchar_t c :
                 std::wstring(member->name.GetString(), member->name.GetStringLength()))
                token += c == L'~' ? L"~0" : c == L'/' ? L"~1" : std::wstring(1, c);
            Collect(member->value, pointer + L"/" + token, all);
        }
    }
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

std::vector<std::wstring> PointersIn(const Value& root) {
    std::vector<std::wstring> all;
    Collect(root, L"", all);
    return all;
}

Value& At(uint64_t reference) { return *reinterpret_cast<Value*>(reference); }

uint64_t ReferenceOf(const Value& value) { return reinterpret_cast<uint64_t>(&value); }

Value NewString(const std::wstring& text, Allocator& allocator) {
    return Value(text.c_str(), static_cast<rapidjson::SizeType>(text.size()), allocator);
}

}  // namespace building
