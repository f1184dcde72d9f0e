#include "BuildDocument.h"

#include <gtest/gtest.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace building {
namespace {

using Utf16 = rapidjson::UTF16<>;
using Buffer = rapidjson::GenericStringBuffer<Utf16>;
using TreeWriter = rapidjson::Writer<Buffer, Utf16, Utf16, rapidjson::CrtAllocator,
                                     rapidjson::kWriteNanAndInfFlag>;

}  // namespace

std::wstring TextOf(const Value& value) {
    Buffer buffer;
    TreeWriter writer(buffer);
    value.Accept(writer);
    return {buffer.GetString(), buffer.GetSize() / sizeof(wchar_t)};
}

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

Value& At(uint64_t reference) { return *reinterpret_cast<Value*>(reference); }

uint64_t ReferenceOf(const Value& value) { return reinterpret_cast<uint64_t>(&value); }

Value NewString(const std::wstring& text, Allocator& allocator) {
    return Value(text.c_str(), static_cast<rapidjson::SizeType>(text.size()), allocator);
}

}  // namespace building
