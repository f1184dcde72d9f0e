#pragma once

#include "../IJsonGenerator.h"
#include "DocumentBuilder.h"
#include "common/text/Base64.h"
#include "common/text/TextOutput.h"

namespace QXJSON {

/// The generator on RapidJSON. IJsonGenerator.h says what each operation does; most are one line
/// here: a parent (by reference, handle or path) and the kind of item to be added there.
class CRapidJsonGenerator final : public IJsonGenerator {
public:
    /// Takes no memory that could be missing: a generator can always be made.
    CRapidJsonGenerator();

    /// Whether nothing can be told from a generator that was just made.
    bool IsNew() const { return builder.IsNew(); }

    int ResetRootObjectValue(uint64_t* value) override {
        return ResetRoot(rapidjson::kObjectType, value);
    }
    int CreateRootObject(uint32_t* handle) override {
        return CreateRoot(rapidjson::kObjectType, handle);
    }
    int ResetRootArrayValue(uint64_t* value) override {
        return ResetRoot(rapidjson::kArrayType, value);
    }
    int CreateRootArray(uint32_t* handle) override {
        return CreateRoot(rapidjson::kArrayType, handle);
    }

    int AddObjectValueObject(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return builder.AddMember(parent, key, ObjectItem(), value);
    }
    int AddArrayValueObject(uint64_t parent, uint64_t* value) override {
        return builder.Append(parent, ObjectItem(), value);
    }
    int AddObjectItemObjectByPath(const wchar_t* path, const wchar_t* key,
                                  uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, ObjectItem(), handle);
    }
    int AddArrayItemObjectByPath(const wchar_t* path, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), ObjectItem(), handle);
    }
    int AddObjectItemObject(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, ObjectItem(), handle);
    }
    int AddArrayItemObject(int32_t parent, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), ObjectItem(), handle);
    }
    int AddObjectValueArray(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return builder.AddMember(parent, key, ArrayItem(), value);
    }
    int AddArrayValueArray(uint64_t parent, uint64_t* value) override {
        return builder.Append(parent, ArrayItem(), value);
    }
    int AddObjectItemArrayByPath(const wchar_t* path, const wchar_t* key,
                                 uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, ArrayItem(), handle);
    }
    int AddArrayItemArrayByPath(const wchar_t* path, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), ArrayItem(), handle);
    }
    int AddObjectItemArray(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, ArrayItem(), handle);
    }
    int AddArrayItemArray(int32_t parent, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), ArrayItem(), handle);
    }
    int AddObjectValueBoolean(uint64_t parent, const wchar_t* key, uint32_t flag,
                              uint64_t* value) override {
        return builder.AddMember(parent, key, BooleanItem(flag != 0), value);
    }
    int AddArrayValueBoolean(uint64_t parent, uint32_t flag, uint64_t* value) override {
        return builder.Append(parent, BooleanItem(flag != 0), value);
    }
    int AddObjectItemBooleanByPath(const wchar_t* path, const wchar_t* key, uint32_t flag,
                                   uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, BooleanItem(flag != 0), handle);
    }
    int AddArrayItemBooleanByPath(const wchar_t* path, uint32_t flag, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), BooleanItem(flag != 0), handle);
    }
    int AddObjectItemBoolean(int32_t parent, const wchar_t* key, uint32_t flag,
                             uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, BooleanItem(flag != 0), handle);
    }
    int AddArrayItemBoolean(int32_t parent, uint32_t flag, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), BooleanItem(flag != 0), handle);
    }
    int AddObjectValueDouble(uint64_t parent, const wchar_t* key, double number,
                             uint64_t* value) override {
        return builder.AddMember(parent, key, NumberItem(number), value);
    }
    int AddArrayValueDouble(uint64_t parent, double number, uint64_t* value) override {
        return builder.Append(parent, NumberItem(number), value);
    }
    int AddObjectValueFloat(uint64_t parent, const wchar_t* key, float number,
                            uint64_t* value) override {
        return builder.AddMember(parent, key, NumberItem<double>(number), value);
    }
    int AddArrayValueFloat(uint64_t parent, float number, uint64_t* value) override {
        return builder.Append(parent, NumberItem<double>(number), value);
    }
    int AddObjectValueUInt64(uint64_t parent, const wchar_t* key, uint64_t number,
                             uint64_t* value) override {
        return builder.AddMember(parent, key, NumberItem(number), value);
    }
    int AddArrayValueUInt64(uint64_t parent, uint64_t number, uint64_t* value) override {
        return builder.Append(parent, NumberItem(number), value);
    }
    int AddObjectValueInt64(uint64_t parent, const wchar_t* key, int64_t number,
                            uint64_t* value) override {
        return builder.AddMember(parent, key, NumberItem(number), value);
    }
    int AddArrayValueInt64(uint64_t parent, int64_t number, uint64_t* value) override {
        return builder.Append(parent, NumberItem(number), value);
    }
    int AddObjectValueUInt(uint64_t parent, const wchar_t* key, uint32_t number,
                           uint64_t* value) override {
        return builder.AddMember(parent, key, NumberItem(number), value);
    }
    int AddArrayValueUInt(uint64_t parent, uint32_t number, uint64_t* value) override {
        return builder.Append(parent, NumberItem(number), value);
    }
    int AddObjectValueInt(uint64_t parent, const wchar_t* key, int32_t number,
                          uint64_t* value) override {
        return builder.AddMember(parent, key, NumberItem(number), value);
    }
    int AddArrayValueInt(uint64_t parent, int32_t number, uint64_t* value) override {
        return builder.Append(parent, NumberItem(number), value);
    }
    int AddObjectItemSpecialNumberByPath(const wchar_t* path, const wchar_t* key, uint32_t selector,
                                         uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, SpecialNumberItem(selector), handle);
    }
    int AddArrayItemSpecialNumberByPath(const wchar_t* path, uint32_t selector,
                                        uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), SpecialNumberItem(selector), handle);
    }
    int AddObjectItemSpecialNumber(int32_t parent, const wchar_t* key, uint32_t selector,
                                   uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, SpecialNumberItem(selector),
                                 handle);
    }
    int AddArrayItemSpecialNumber(int32_t parent, uint32_t selector, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), SpecialNumberItem(selector), handle);
    }
    int AddObjectItemDoubleByPath(const wchar_t* path, const wchar_t* key, double number,
                                  uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, NumberItem(number), handle);
    }
    int AddArrayItemDoubleByPath(const wchar_t* path, double number, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), NumberItem(number), handle);
    }
    int AddObjectItemFloatByPath(const wchar_t* path, const wchar_t* key, float number,
                                 uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, NumberItem<double>(number), handle);
    }
    int AddArrayItemFloatByPath(const wchar_t* path, float number, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), NumberItem<double>(number), handle);
    }
    int AddObjectItemUInt64ByPath(const wchar_t* path, const wchar_t* key, uint64_t number,
                                  uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, NumberItem(number), handle);
    }
    int AddArrayItemUInt64ByPath(const wchar_t* path, uint64_t number, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), NumberItem(number), handle);
    }
    int AddObjectItemInt64ByPath(const wchar_t* path, const wchar_t* key, int64_t number,
                                 uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, NumberItem(number), handle);
    }
    int AddArrayItemInt64ByPath(const wchar_t* path, int64_t number, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), NumberItem(number), handle);
    }
    int AddObjectItemUIntByPath(const wchar_t* path, const wchar_t* key, uint32_t number,
                                uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, NumberItem(number), handle);
    }
    int AddArrayItemUIntByPath(const wchar_t* path, uint32_t number, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), NumberItem(number), handle);
    }
    int AddObjectItemIntByPath(const wchar_t* path, const wchar_t* key, int32_t number,
                               uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, NumberItem(number), handle);
    }
    int AddArrayItemIntByPath(const wchar_t* path, int32_t number, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), NumberItem(number), handle);
    }
    int AddObjectItemDouble(int32_t parent, const wchar_t* key, double number,
                            uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, NumberItem(number), handle);
    }
    int AddArrayItemDouble(int32_t parent, double number, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), NumberItem(number), handle);
    }
    int AddObjectItemFloat(int32_t parent, const wchar_t* key, float number,
                           uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, NumberItem<double>(number), handle);
    }
    int AddArrayItemFloat(int32_t parent, float number, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), NumberItem<double>(number), handle);
    }
    int AddObjectItemUInt64(int32_t parent, const wchar_t* key, uint64_t number,
                            uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, NumberItem(number), handle);
    }
    int AddArrayItemUInt64(int32_t parent, uint64_t number, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), NumberItem(number), handle);
    }
    int AddObjectItemInt64(int32_t parent, const wchar_t* key, int64_t number,
                           uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, NumberItem(number), handle);
    }
    int AddArrayItemInt64(int32_t parent, int64_t number, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), NumberItem(number), handle);
    }
    int AddObjectItemUInt(int32_t parent, const wchar_t* key, uint32_t number,
                          uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, NumberItem(number), handle);
    }
    int AddArrayItemUInt(int32_t parent, uint32_t number, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), NumberItem(number), handle);
    }
    int AddObjectItemInt(int32_t parent, const wchar_t* key, int32_t number,
                         uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, NumberItem(number), handle);
    }
    int AddArrayItemInt(int32_t parent, int32_t number, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), NumberItem(number), handle);
    }
    int AddObjectValueBlob(uint64_t parent, const wchar_t* key, const uint8_t* data,
                           uint32_t length, uint64_t* value) override {
        return AddBlob(data, length, [&](const wchar_t* text) {
            return AddObjectValueString(parent, key, text, value);
        });
    }
    int AddArrayValueBlob(uint64_t parent, const uint8_t* data, uint32_t length,
                          uint64_t* value) override {
        return AddBlob(data, length, [&](const wchar_t* text) {
            return AddArrayValueString(parent, text, value);
        });
    }
    int AddObjectItemBlobByPath(const wchar_t* path, const wchar_t* key, const uint8_t* data,
                                uint32_t length, uint32_t* handle) override {
        return AddBlob(data, length, [&](const wchar_t* text) {
            return AddObjectItemStringByPath(path, key, text, handle);
        });
    }
    int AddArrayItemBlobByPath(const wchar_t* path, const uint8_t* data, uint32_t length,
                               uint32_t* handle) override {
        return AddBlob(data, length, [&](const wchar_t* text) {
            return AddArrayItemStringByPath(path, text, handle);
        });
    }
    int AddObjectItemBlob(int32_t parent, const wchar_t* key, const uint8_t* data, uint32_t length,
                          uint32_t* handle) override {
        return AddBlob(data, length, [&](const wchar_t* text) {
            return AddObjectItemString(parent, key, text, handle);
        });
    }
    int AddArrayItemBlob(int32_t parent, const uint8_t* data, uint32_t length,
                         uint32_t* handle) override {
        return AddBlob(data, length, [&](const wchar_t* text) {
            return AddArrayItemString(parent, text, handle);
        });
    }
    int AddObjectValueString(uint64_t parent, const wchar_t* key, const wchar_t* text,
                             uint64_t* value) override {
        return builder.AddMember(parent, key, TextItem(text), value);
    }
    int AddArrayValueString(uint64_t parent, const wchar_t* text, uint64_t* value) override {
        return builder.Append(parent, TextItem(text), value);
    }
    int AddObjectItemStringByPath(const wchar_t* path, const wchar_t* key, const wchar_t* text,
                                  uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, TextItem(text), handle);
    }
    int AddArrayItemStringByPath(const wchar_t* path, const wchar_t* text,
                                 uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), TextItem(text), handle);
    }
    int AddObjectItemString(int32_t parent, const wchar_t* key, const wchar_t* text,
                            uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, TextItem(text), handle);
    }
    int AddArrayItemString(int32_t parent, const wchar_t* text, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), TextItem(text), handle);
    }
    int AddObjectValueNull(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return builder.AddMember(parent, key, NullItem(), value);
    }
    int AddArrayValueNull(uint64_t parent, uint64_t* value) override {
        return builder.Append(parent, NullItem(), value);
    }
    int AddObjectItemNullByPath(const wchar_t* path, const wchar_t* key,
                                uint32_t* handle) override {
        return builder.AddMember(builder.ByPath(path), key, NullItem(), handle);
    }
    int AddArrayItemNullByPath(const wchar_t* path, uint32_t* handle) override {
        return builder.Append(builder.ByPath(path), NullItem(), handle);
    }
    int AddObjectItemNull(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return builder.AddMember(builder.ByHandle(parent), key, NullItem(), handle);
    }
    int AddArrayItemNull(int32_t parent, uint32_t* handle) override {
        return builder.Append(builder.ByHandle(parent), NullItem(), handle);
    }

    int AddValueVariant(uint64_t parent, const wchar_t* key, JsonVariant variant,
                        uint64_t* value) override {
        return AddVariant([&] { return parent; }, key, variant, value);
    }
    int AddItemVariantByPath(const wchar_t* path, const wchar_t* key, JsonVariant variant,
                             uint32_t* handle) override {
        return AddVariant([&] { return builder.ByPath(path); }, key, variant, handle);
    }
    int AddItemVariant(int32_t parent, const wchar_t* key, JsonVariant variant,
                       uint32_t* handle) override {
        return AddVariant([&] { return builder.ByHandle(parent); }, key, variant, handle);
    }

    int SaveToFile(const wchar_t* fileName, int32_t encoding) override;
    int SaveToFileEx(const wchar_t* fileName, int32_t encoding, int32_t style) override;
    int GetJsonString(const wchar_t** text) override;
    int GetJsonBytes(const uint8_t** data, uint64_t* length, int32_t encoding) override;

    int Release() override {
        delete this;
        return kSuccess;
    }

    int LoadJsonFile(const wchar_t* fileName, uint32_t* handle) override {
        return Load(Source::File, fileName, handle);
    }
    int AddObjectItemJsonFileByPath(const wchar_t* path, const wchar_t* key,
                                    const wchar_t* fileName, uint32_t* handle) override {
        return Graft(builder.ByPath(path), Spot::Member(key), Source::File, fileName, handle);
    }
    int AddArrayItemJsonFileByPath(const wchar_t* path, const wchar_t* fileName,
                                   uint32_t* handle) override {
        return Graft(builder.ByPath(path), Spot::Element(), Source::File, fileName, handle);
    }
    int AddObjectItemJsonFile(int32_t parent, const wchar_t* key, const wchar_t* fileName,
                              uint32_t* handle) override {
        return Graft(builder.ByHandle(parent), Spot::Member(key), Source::File, fileName, handle);
    }
    int AddArrayItemJsonFile(int32_t parent, const wchar_t* fileName, uint32_t* handle) override {
        return Graft(builder.ByHandle(parent), Spot::Element(), Source::File, fileName, handle);
    }
    int LoadJsonString(const wchar_t* text, uint32_t* handle) override {
        return Load(Source::Text, text, handle);
    }
    int AddObjectItemJsonStringByPath(const wchar_t* path, const wchar_t* key, const wchar_t* text,
                                      uint32_t* handle) override {
        return Graft(builder.ByPath(path), Spot::Member(key), Source::Text, text, handle);
    }
    int AddArrayItemJsonStringByPath(const wchar_t* path, const wchar_t* text,
                                     uint32_t* handle) override {
        return Graft(builder.ByPath(path), Spot::Element(), Source::Text, text, handle);
    }
    int AddObjectItemJsonString(int32_t parent, const wchar_t* key, const wchar_t* text,
                                uint32_t* handle) override {
        return Graft(builder.ByHandle(parent), Spot::Member(key), Source::Text, text, handle);
    }
    int AddArrayItemJsonString(int32_t parent, const wchar_t* text, uint32_t* handle) override {
        return Graft(builder.ByHandle(parent), Spot::Element(), Source::Text, text, handle);
    }

    int GetItemPath(int32_t handle, wchar_t* path) override {
        return builder.GetItemPath(handle, path);
    }
    int GetItemHandleByPath(const wchar_t* path, uint32_t* handle) override {
        return builder.GetHandleByPath(path, handle);
    }

private:
    using Parent = DocumentBuilder::Parent;

    /// Where JSON comes from.
    enum class Source { File, Text };

    /// Which place below its parent a graft takes.
    struct Spot {
        rapidjson::Type parentType;
        const wchar_t* key;
        static Spot Member(const wchar_t* key) { return {rapidjson::kObjectType, key}; }
        static Spot Element() { return {rapidjson::kArrayType, nullptr}; }
    };

    int ResetRoot(rapidjson::Type type, uint64_t* value);
    int CreateRoot(rapidjson::Type type, uint32_t* handle);

    /// Adds bytes as their base64 text; `addText` adds a text in the same family.
    template <class AddText>
    int AddBlob(const uint8_t* data, uint32_t length, AddText&& addText);
    /// Adds what a variant holds. The parent is looked for only when the variant holds something.
    template <class FindParent, class Output>
    int AddVariant(FindParent&& findParent, const wchar_t* key, const JsonVariant& variant,
                   Output* output);

    static int Parse(Source source, const wchar_t* nameOrText, JsonDocument& parsed);
    int Load(Source source, const wchar_t* nameOrText, uint32_t* handle);
    int Graft(const Parent& parent, const Spot& spot, Source source, const wchar_t* nameOrText,
              uint32_t* handle);

    DocumentBuilder builder;
    MessageBuffer conversionBuffer;
    JsonTextBuffer textBuffer;
    EncodedText encodedText;
};

template <class AddText>
int CRapidJsonGenerator::AddBlob(const uint8_t* data, uint32_t length, AddText&& addText) {
    if (!data) return kPlainFailure;
    // A conversion that fails leaves no text, which is then refused as any missing text is.
    const wchar_t* text = nullptr;
    EncodeBase64(conversionBuffer, data, length, &text);
    return addText(text);
}

template <class FindParent, class Output>
int CRapidJsonGenerator::AddVariant(FindParent&& findParent, const wchar_t* key,
                                    const JsonVariant& variant, Output* output) {
    switch (variant.tag) {
        case kVariantInt64:
            return builder.Add(findParent(), key, NumberItem(variant.number), output);
        case kVariantText:
            return builder.Add(findParent(), key, TextItem(variant.text), output);
        default:
            return kPlainFailure;
    }
}

}  // namespace QXJSON
