#pragma once

#include "../IJsonParser.h"
#include "HandOut.h"
#include "common/messages/MessageBuffer.h"
#include "common/text/Base64.h"
#include "common/text/TextInput.h"

namespace QXJSON {

/// The parser on RapidJSON. IJsonParser.h says what each operation does; most are one line here: a
/// place (by reference, handle or path) and what is to be read there.
class CRapidJsonParser final : public IJsonParser {
public:
    /// Takes no memory that could be missing: a parser can always be made.
    CRapidJsonParser();

    /// Whether nothing can be told from a parser that was just made.
    bool IsNew() const { return !wasLoaded; }

    int LoadJsonBytes(const char* text, uint32_t length) override;
    int LoadJsonString(const wchar_t* text) override;
    int LoadJsonFile(const wchar_t* fileName) override;

    int HasError() override { return status.code != kNoError ? 1 : 0; }
    int GetErrorOffset(uint64_t* offset) override;
    int GetErrorMessage(const wchar_t** text) override;

    int GetRootValue(uint64_t* value, uint32_t* valueType) override {
        return HandOut(Root(), AsReference(value, valueType));
    }
    int GetRootItem(uint32_t* handle, uint32_t* itemType) override {
        return HandOut(Root(), AsItem(handle, itemType));
    }
    int GetMemberValue(uint64_t value, const wchar_t* key, uint64_t* member,
                       uint32_t* valueType) override {
        return HandOutMember(members, Referenced(value), key, AsReference(member, valueType));
    }
    int GetChildValue(uint64_t value, uint32_t index, uint64_t* child,
                      uint32_t* valueType) override {
        return HandOutChild(Referenced(value), index, AsReference(child, valueType));
    }
    int GetMemberItemByPath(const wchar_t* path, const wchar_t* key, uint32_t* handle,
                            uint32_t* itemType) override {
        return HandOutMember(members, AtPath(path), key, AsItem(handle, itemType));
    }
    int GetChildItemByPath(const wchar_t* path, uint32_t index, uint32_t* handle,
                           uint32_t* itemType) override {
        return HandOutChild(AtPath(path), index, AsItem(handle, itemType));
    }
    int GetMemberItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                      uint32_t* itemType) override {
        return HandOutMember(members, Item(handle), key, AsItem(member, itemType));
    }
    int GetChildItem(uint32_t handle, uint32_t index, uint32_t* child,
                     uint32_t* itemType) override {
        return HandOutChild(Item(handle), index, AsItem(child, itemType));
    }

    int GetMemberNameOfValue(uint64_t value, uint32_t index, const wchar_t** name) override {
        return QXJSON::GetMemberName(Referenced(value), index, name);
    }
    int GetMemberNameByPath(const wchar_t* path, uint32_t index, const wchar_t** name) override {
        return QXJSON::GetMemberName(AtPath(path), index, name);
    }
    int GetMemberName(uint32_t handle, uint32_t index, const wchar_t** name) override {
        return QXJSON::GetMemberName(Item(handle), index, name);
    }
    int GetChildCountOfValue(uint64_t value, uint32_t* count) override {
        return Get<ChildCount>(Referenced(value), count);
    }
    int GetChildCountByPath(const wchar_t* path, uint32_t* count) override {
        return Get<ChildCount>(AtPath(path), count);
    }
    int GetChildCount(uint32_t handle, uint32_t* count) override {
        return Get<ChildCount>(Item(handle), count);
    }
    int GetValueType(uint64_t value, uint32_t* valueType) override {
        return Get<ValueType>(Referenced(value), valueType);
    }
    int GetItemTypeByPath(const wchar_t* path, uint32_t* itemType) override {
        return Get<ItemType>(AtPath(path), itemType);
    }
    int GetMemberItemType(uint32_t handle, const wchar_t* key, uint32_t* itemType) override {
        uint32_t member = 0;
        return GetMemberItem(handle, key, &member, itemType);
    }
    int GetItemType(uint32_t handle, uint32_t* itemType) override {
        return Get<ItemType>(Item(handle), itemType);
    }

    int GetMemberBooleanOfValue(uint64_t value, const wchar_t* key, uint32_t* flag) override {
        return ReadMember<Boolean>(Referenced(value), key, flag);
    }
    int GetValueBoolean(uint64_t value, uint32_t* flag) override {
        return Get<Boolean>(Referenced(value), flag);
    }
    int GetItemBooleanByPath(const wchar_t* path, uint32_t* flag) override {
        return Get<Boolean>(AtPath(path), flag);
    }
    int GetMemberBoolean(uint32_t handle, const wchar_t* key, uint32_t* flag) override {
        return ReadMember<Boolean>(Item(handle), key, flag);
    }
    int GetItemBoolean(uint32_t handle, uint32_t* flag) override {
        return Get<Boolean>(Item(handle), flag);
    }

    int GetMemberDoubleOfValue(uint64_t value, const wchar_t* key, double* number) override {
        return ReadMember<Double>(Referenced(value), key, number);
    }
    int GetValueDouble(uint64_t value, double* number) override {
        return Get<Double>(Referenced(value), number);
    }
    int GetMemberFloatOfValue(uint64_t value, const wchar_t* key, float* number) override {
        return ReadMember<Float>(Referenced(value), key, number);
    }
    int GetValueFloat(uint64_t value, float* number) override {
        return Get<Float>(Referenced(value), number);
    }
    int GetMemberUInt64OfValue(uint64_t value, const wchar_t* key, uint64_t* number) override {
        return ReadMember<Uint64>(Referenced(value), key, number);
    }
    int GetValueUInt64(uint64_t value, uint64_t* number) override {
        return Get<Uint64>(Referenced(value), number);
    }
    int GetMemberInt64OfValue(uint64_t value, const wchar_t* key, int64_t* number) override {
        return ReadMember<Int64>(Referenced(value), key, number);
    }
    int GetValueInt64(uint64_t value, int64_t* number) override {
        return Get<Int64>(Referenced(value), number);
    }
    int GetMemberUIntOfValue(uint64_t value, const wchar_t* key, uint32_t* number) override {
        return ReadMember<Uint>(Referenced(value), key, number);
    }
    int GetValueUInt(uint64_t value, uint32_t* number) override {
        return Get<Uint>(Referenced(value), number);
    }
    int GetMemberIntOfValue(uint64_t value, const wchar_t* key, int32_t* number) override {
        return ReadMember<Int>(Referenced(value), key, number);
    }
    int GetValueInt(uint64_t value, int32_t* number) override {
        return Get<Int>(Referenced(value), number);
    }
    int GetItemDoubleByPath(const wchar_t* path, double* number) override {
        return Get<Double>(AtPath(path), number);
    }
    int GetItemFloatByPath(const wchar_t* path, float* number) override {
        return Get<Float>(AtPath(path), number);
    }
    int GetItemUInt64ByPath(const wchar_t* path, uint64_t* number) override {
        return Get<Uint64>(AtPath(path), number);
    }
    int GetItemInt64ByPath(const wchar_t* path, int64_t* number) override {
        return Get<Int64>(AtPath(path), number);
    }
    int GetItemUIntByPath(const wchar_t* path, uint32_t* number) override {
        return Get<Uint>(AtPath(path), number);
    }
    int GetItemIntByPath(const wchar_t* path, int32_t* number) override {
        return Get<Int>(AtPath(path), number);
    }
    int GetMemberDouble(uint32_t handle, const wchar_t* key, double* number) override {
        return ReadMember<Double>(Item(handle), key, number);
    }
    int GetItemDouble(uint32_t handle, double* number) override {
        return Get<Double>(Item(handle), number);
    }
    int GetMemberFloat(uint32_t handle, const wchar_t* key, float* number) override {
        return ReadMember<Float>(Item(handle), key, number);
    }
    int GetItemFloat(uint32_t handle, float* number) override {
        return Get<Float>(Item(handle), number);
    }
    int GetMemberUInt64(uint32_t handle, const wchar_t* key, uint64_t* number) override {
        return ReadMember<Uint64>(Item(handle), key, number);
    }
    int GetItemUInt64(uint32_t handle, uint64_t* number) override {
        return Get<Uint64>(Item(handle), number);
    }
    int GetMemberInt64(uint32_t handle, const wchar_t* key, int64_t* number) override {
        return ReadMember<Int64>(Item(handle), key, number);
    }
    int GetItemInt64(uint32_t handle, int64_t* number) override {
        return Get<Int64>(Item(handle), number);
    }
    int GetMemberUInt(uint32_t handle, const wchar_t* key, uint32_t* number) override {
        return ReadMember<Uint>(Item(handle), key, number);
    }
    int GetItemUInt(uint32_t handle, uint32_t* number) override {
        return Get<Uint>(Item(handle), number);
    }
    int GetMemberInt(uint32_t handle, const wchar_t* key, int32_t* number) override {
        return ReadMember<Int>(Item(handle), key, number);
    }
    int GetItemInt(uint32_t handle, int32_t* number) override {
        return Get<Int>(Item(handle), number);
    }

    int GetMemberBlobOfValue(uint64_t value, const wchar_t* key, const uint8_t** data,
                             uint32_t* size) override {
        return ReadBlob([&](auto text) { return GetMemberStringOfValue(value, key, text); }, data,
                        size);
    }
    int GetValueBlob(uint64_t value, const uint8_t** data, uint32_t* size) override {
        return ReadBlob([&](auto text) { return GetValueString(value, text); }, data, size);
    }
    int GetItemBlobByPath(const wchar_t* path, const uint8_t** data, uint32_t* size) override {
        return ReadBlob([&](auto text) { return GetItemStringByPath(path, text); }, data, size);
    }
    int GetMemberBlob(uint32_t handle, const wchar_t* key, const uint8_t** data,
                      uint32_t* size) override {
        return ReadBlob([&](auto text) { return GetMemberString(handle, key, text); }, data, size);
    }
    int GetItemBlob(uint32_t handle, const uint8_t** data, uint32_t* size) override {
        return ReadBlob([&](auto text) { return GetItemString(handle, text); }, data, size);
    }

    int GetMemberStringOfValue(uint64_t value, const wchar_t* key, const wchar_t** text) override {
        return ReadMember<String>(Referenced(value), key, text);
    }
    int GetValueString(uint64_t value, const wchar_t** text) override {
        return Get<String>(Referenced(value), text);
    }
    int GetItemStringByPath(const wchar_t* path, const wchar_t** text) override {
        return Get<String>(AtPath(path), text);
    }
    int GetMemberString(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return ReadMember<String>(Item(handle), key, text);
    }
    int GetItemString(uint32_t handle, const wchar_t** text) override {
        return Get<String>(Item(handle), text);
    }

    int GetMemberObjectValue(uint64_t value, const wchar_t* key, uint64_t* member,
                             uint32_t* valueType) override {
        return HandOutMember(members, Referenced(value), key, AsReference(member, valueType),
                             IsObject);
    }
    int GetObjectItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) override {
        return HandOut(AtPath(path), AsItem(handle, itemType), IsObject);
    }
    int GetMemberObjectItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                            uint32_t* itemType) override {
        return HandOutMember(members, Item(handle), key, AsItem(member, itemType), IsObject);
    }
    int GetMemberArrayValue(uint64_t value, const wchar_t* key, uint64_t* member,
                            uint32_t* valueType) override {
        return HandOutMember(members, Referenced(value), key, AsReference(member, valueType),
                             IsArray);
    }
    int GetArrayItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) override {
        return HandOut(AtPath(path), AsItem(handle, itemType), IsArray);
    }
    int GetMemberArrayItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                           uint32_t* itemType) override {
        return HandOutMember(members, Item(handle), key, AsItem(member, itemType), IsArray);
    }
    int GetItemByPath(const wchar_t* path, uint32_t* handle) override {
        uint32_t itemType = 0;
        return HandOut({AtPath(path).value, kNoValue}, AsItem(handle, &itemType));
    }

    int GetObjectJsonByPath(const wchar_t* path, const wchar_t** text) override {
        return Write(AtPath(path), IsObject, text);
    }
    int GetObjectJson(uint32_t handle, const wchar_t** text) override {
        return Write(UntestedItem(handle), IsObject, text);
    }
    int GetMemberObjectJson(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return WriteMember(handle, key, IsObject, text);
    }
    int GetArrayJsonByPath(const wchar_t* path, const wchar_t** text) override {
        return Write(AtPath(path), IsArray, text);
    }
    int GetArrayJson(uint32_t handle, const wchar_t** text) override {
        return Write(UntestedItem(handle), IsArray, text);
    }
    int GetMemberArrayJson(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return WriteMember(handle, key, IsArray, text);
    }

    int GetNumberClassByPath(const wchar_t* path, uint32_t* numberClass) override {
        return Get<NumberClass>(AtPath(path), numberClass);
    }
    int GetMemberNumberClass(uint32_t handle, const wchar_t* key, uint32_t* numberClass) override {
        const MemberRequest request{key, numberClass != nullptr, kNoValue};
        return Get<NumberClass>(FindMember(members, Item(handle), request), numberClass);
    }
    int GetNumberClass(uint32_t handle, uint32_t* numberClass) override {
        return Get<NumberClass>(Item(handle), numberClass);
    }

    bool ExistsItemByPath(const wchar_t* path) override { return AtPath(path).value != nullptr; }
    bool ExistsMember(uint32_t handle, const wchar_t* key) override {
        uint32_t member = 0, itemType = 0;
        return GetMemberItem(handle, key, &member, &itemType) == kSuccess;
    }
    bool ExistsMemberByPath(const wchar_t* path, const wchar_t* key) override {
        const MemberRequest request{key, true, kPlainFailure, kWrongKind, KeyMatch::kExact};
        return FindMember(members, AtPath(path), request).value != nullptr;
    }

    int GetVariantOfValue(uint64_t value, const wchar_t* key, JsonVariant* variant) override {
        return ReadVariant(Referenced(value), key, variant);
    }
    int GetItemVariant(uint32_t handle, const wchar_t* key, JsonVariant* variant) override {
        return ReadVariant(Item(handle), key, variant);
    }

    int Release() override {
        delete this;
        return kSuccess;
    }

private:
    static ReferenceOutput AsReference(uint64_t* value, uint32_t* valueType) {
        return {value, valueType};
    }
    ItemOutput AsItem(uint32_t* handle, uint32_t* itemType) { return {handles, handle, itemType}; }

    Place Root();
    static Place Referenced(uint64_t value) { return {reinterpret_cast<JsonValue*>(value)}; }
    Place Item(uint32_t handle) const { return {handles.ValueOf(handle)}; }
    /// An item whose handle the contract uses without a test: an unknown one faults.
    Place UntestedItem(uint32_t handle) const;
    Place AtPath(const wchar_t* path);

    template <class Kind>
    int ReadMember(const Place& object, const wchar_t* key, typename Kind::Out* out) {
        return QXJSON::GetMember<Kind>(members, object, key, out);
    }
    int Write(const Place& place, KindTest kind, const wchar_t** text);
    int WriteMember(uint32_t handle, const wchar_t* key, KindTest kind, const wchar_t** text);
    template <class GetText>
    int ReadBlob(const GetText& getText, const uint8_t** data, uint32_t* size);
    int ReadVariant(const Place& place, const wchar_t* key, JsonVariant* variant);

    template <class Load>
    LoadStatus Read(const Load& load);
    int FinishLoad(const LoadStatus& loaded);
    int FinishTextLoad(const LoadStatus& loaded);

    bool wasLoaded = false;  // or was to be
    DocumentPool pool;
    JsonValue document;
    LoadStatus status;
    JsonTextBuffer textBuffer;
    MessageBuffer messageBuffer;
    HandleTable handles;
    MemberLookup members{pool};
};

/// Decodes the text that a string getter returns; if the getter fails, its result is the result.
template <class GetText>
int CRapidJsonParser::ReadBlob(const GetText& getText, const uint8_t** data, uint32_t* size) {
    const wchar_t* text = nullptr;
    const int result = getText(&text);
    return result == kSuccess ? DecodeBase64(messageBuffer, text, data, size) : result;
}

}  // namespace QXJSON
