#pragma once

#include "IJsonParser.h"

namespace QXJSON {

/// Every operation of IJsonParser but Release, passed on unchanged to what lies behind `Layer`.
template <class Layer>
class ParserOperations : public Layer {
public:
    int LoadJsonBytes(const char* text, uint32_t length) override {
        return this->Forward([=](auto& next) { return next.LoadJsonBytes(text, length); });
    }
    int LoadJsonString(const wchar_t* text) override {
        return this->Forward([=](auto& next) { return next.LoadJsonString(text); });
    }
    int LoadJsonFile(const wchar_t* fileName) override {
        return this->Forward([=](auto& next) { return next.LoadJsonFile(fileName); });
    }
    int HasError() override {
        return this->Forward([=](auto& next) { return next.HasError(); });
    }
    int GetErrorOffset(uint64_t* offset) override {
        return this->Forward([=](auto& next) { return next.GetErrorOffset(offset); });
    }
    int GetErrorMessage(const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetErrorMessage(text); });
    }
    int GetRootValue(uint64_t* value, uint32_t* valueType) override {
        return this->Forward([=](auto& next) { return next.GetRootValue(value, valueType); });
    }
    int GetRootItem(uint32_t* handle, uint32_t* itemType) override {
        return this->Forward([=](auto& next) { return next.GetRootItem(handle, itemType); });
    }
    int GetMemberValue(uint64_t value, const wchar_t* key, uint64_t* member,
                       uint32_t* valueType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberValue(value, key, member, valueType); });
    }
    int GetChildValue(uint64_t value, uint32_t index, uint64_t* child,
                      uint32_t* valueType) override {
        return this->Forward(
            [=](auto& next) { return next.GetChildValue(value, index, child, valueType); });
    }
    int GetMemberItemByPath(const wchar_t* path, const wchar_t* key, uint32_t* handle,
                            uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberItemByPath(path, key, handle, itemType); });
    }
    int GetChildItemByPath(const wchar_t* path, uint32_t index, uint32_t* handle,
                           uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetChildItemByPath(path, index, handle, itemType); });
    }
    int GetMemberItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                      uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberItem(handle, key, member, itemType); });
    }
    int GetChildItem(uint32_t handle, uint32_t index, uint32_t* child,
                     uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetChildItem(handle, index, child, itemType); });
    }
    int GetMemberNameOfValue(uint64_t value, uint32_t index, const wchar_t** name) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberNameOfValue(value, index, name); });
    }
    int GetMemberNameByPath(const wchar_t* path, uint32_t index, const wchar_t** name) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberNameByPath(path, index, name); });
    }
    int GetMemberName(uint32_t handle, uint32_t index, const wchar_t** name) override {
        return this->Forward([=](auto& next) { return next.GetMemberName(handle, index, name); });
    }
    int GetChildCountOfValue(uint64_t value, uint32_t* count) override {
        return this->Forward([=](auto& next) { return next.GetChildCountOfValue(value, count); });
    }
    int GetChildCountByPath(const wchar_t* path, uint32_t* count) override {
        return this->Forward([=](auto& next) { return next.GetChildCountByPath(path, count); });
    }
    int GetChildCount(uint32_t handle, uint32_t* count) override {
        return this->Forward([=](auto& next) { return next.GetChildCount(handle, count); });
    }
    int GetValueType(uint64_t value, uint32_t* valueType) override {
        return this->Forward([=](auto& next) { return next.GetValueType(value, valueType); });
    }
    int GetItemTypeByPath(const wchar_t* path, uint32_t* itemType) override {
        return this->Forward([=](auto& next) { return next.GetItemTypeByPath(path, itemType); });
    }
    int GetMemberItemType(uint32_t handle, const wchar_t* key, uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberItemType(handle, key, itemType); });
    }
    int GetItemType(uint32_t handle, uint32_t* itemType) override {
        return this->Forward([=](auto& next) { return next.GetItemType(handle, itemType); });
    }
    int GetMemberBooleanOfValue(uint64_t value, const wchar_t* key, uint32_t* flag) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberBooleanOfValue(value, key, flag); });
    }
    int GetValueBoolean(uint64_t value, uint32_t* flag) override {
        return this->Forward([=](auto& next) { return next.GetValueBoolean(value, flag); });
    }
    int GetItemBooleanByPath(const wchar_t* path, uint32_t* flag) override {
        return this->Forward([=](auto& next) { return next.GetItemBooleanByPath(path, flag); });
    }
    int GetMemberBoolean(uint32_t handle, const wchar_t* key, uint32_t* flag) override {
        return this->Forward([=](auto& next) { return next.GetMemberBoolean(handle, key, flag); });
    }
    int GetItemBoolean(uint32_t handle, uint32_t* flag) override {
        return this->Forward([=](auto& next) { return next.GetItemBoolean(handle, flag); });
    }
    int GetMemberDoubleOfValue(uint64_t value, const wchar_t* key, double* number) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberDoubleOfValue(value, key, number); });
    }
    int GetValueDouble(uint64_t value, double* number) override {
        return this->Forward([=](auto& next) { return next.GetValueDouble(value, number); });
    }
    int GetMemberFloatOfValue(uint64_t value, const wchar_t* key, float* number) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberFloatOfValue(value, key, number); });
    }
    int GetValueFloat(uint64_t value, float* number) override {
        return this->Forward([=](auto& next) { return next.GetValueFloat(value, number); });
    }
    int GetMemberUInt64OfValue(uint64_t value, const wchar_t* key, uint64_t* number) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberUInt64OfValue(value, key, number); });
    }
    int GetValueUInt64(uint64_t value, uint64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetValueUInt64(value, number); });
    }
    int GetMemberInt64OfValue(uint64_t value, const wchar_t* key, int64_t* number) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberInt64OfValue(value, key, number); });
    }
    int GetValueInt64(uint64_t value, int64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetValueInt64(value, number); });
    }
    int GetMemberUIntOfValue(uint64_t value, const wchar_t* key, uint32_t* number) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberUIntOfValue(value, key, number); });
    }
    int GetValueUInt(uint64_t value, uint32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetValueUInt(value, number); });
    }
    int GetMemberIntOfValue(uint64_t value, const wchar_t* key, int32_t* number) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberIntOfValue(value, key, number); });
    }
    int GetValueInt(uint64_t value, int32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetValueInt(value, number); });
    }
    int GetItemDoubleByPath(const wchar_t* path, double* number) override {
        return this->Forward([=](auto& next) { return next.GetItemDoubleByPath(path, number); });
    }
    int GetItemFloatByPath(const wchar_t* path, float* number) override {
        return this->Forward([=](auto& next) { return next.GetItemFloatByPath(path, number); });
    }
    int GetItemUInt64ByPath(const wchar_t* path, uint64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemUInt64ByPath(path, number); });
    }
    int GetItemInt64ByPath(const wchar_t* path, int64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemInt64ByPath(path, number); });
    }
    int GetItemUIntByPath(const wchar_t* path, uint32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemUIntByPath(path, number); });
    }
    int GetItemIntByPath(const wchar_t* path, int32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemIntByPath(path, number); });
    }
    int GetMemberDouble(uint32_t handle, const wchar_t* key, double* number) override {
        return this->Forward([=](auto& next) { return next.GetMemberDouble(handle, key, number); });
    }
    int GetItemDouble(uint32_t handle, double* number) override {
        return this->Forward([=](auto& next) { return next.GetItemDouble(handle, number); });
    }
    int GetMemberFloat(uint32_t handle, const wchar_t* key, float* number) override {
        return this->Forward([=](auto& next) { return next.GetMemberFloat(handle, key, number); });
    }
    int GetItemFloat(uint32_t handle, float* number) override {
        return this->Forward([=](auto& next) { return next.GetItemFloat(handle, number); });
    }
    int GetMemberUInt64(uint32_t handle, const wchar_t* key, uint64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetMemberUInt64(handle, key, number); });
    }
    int GetItemUInt64(uint32_t handle, uint64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemUInt64(handle, number); });
    }
    int GetMemberInt64(uint32_t handle, const wchar_t* key, int64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetMemberInt64(handle, key, number); });
    }
    int GetItemInt64(uint32_t handle, int64_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemInt64(handle, number); });
    }
    int GetMemberUInt(uint32_t handle, const wchar_t* key, uint32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetMemberUInt(handle, key, number); });
    }
    int GetItemUInt(uint32_t handle, uint32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemUInt(handle, number); });
    }
    int GetMemberInt(uint32_t handle, const wchar_t* key, int32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetMemberInt(handle, key, number); });
    }
    int GetItemInt(uint32_t handle, int32_t* number) override {
        return this->Forward([=](auto& next) { return next.GetItemInt(handle, number); });
    }
    int GetMemberBlobOfValue(uint64_t value, const wchar_t* key, const uint8_t** data,
                             uint32_t* size) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberBlobOfValue(value, key, data, size); });
    }
    int GetValueBlob(uint64_t value, const uint8_t** data, uint32_t* size) override {
        return this->Forward([=](auto& next) { return next.GetValueBlob(value, data, size); });
    }
    int GetItemBlobByPath(const wchar_t* path, const uint8_t** data, uint32_t* size) override {
        return this->Forward([=](auto& next) { return next.GetItemBlobByPath(path, data, size); });
    }
    int GetMemberBlob(uint32_t handle, const wchar_t* key, const uint8_t** data,
                      uint32_t* size) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberBlob(handle, key, data, size); });
    }
    int GetItemBlob(uint32_t handle, const uint8_t** data, uint32_t* size) override {
        return this->Forward([=](auto& next) { return next.GetItemBlob(handle, data, size); });
    }
    int GetMemberStringOfValue(uint64_t value, const wchar_t* key, const wchar_t** text) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberStringOfValue(value, key, text); });
    }
    int GetValueString(uint64_t value, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetValueString(value, text); });
    }
    int GetItemStringByPath(const wchar_t* path, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetItemStringByPath(path, text); });
    }
    int GetMemberString(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetMemberString(handle, key, text); });
    }
    int GetItemString(uint32_t handle, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetItemString(handle, text); });
    }
    int GetMemberObjectValue(uint64_t value, const wchar_t* key, uint64_t* member,
                             uint32_t* valueType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberObjectValue(value, key, member, valueType); });
    }
    int GetObjectItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetObjectItemByPath(path, handle, itemType); });
    }
    int GetMemberObjectItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                            uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberObjectItem(handle, key, member, itemType); });
    }
    int GetMemberArrayValue(uint64_t value, const wchar_t* key, uint64_t* member,
                            uint32_t* valueType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberArrayValue(value, key, member, valueType); });
    }
    int GetArrayItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetArrayItemByPath(path, handle, itemType); });
    }
    int GetMemberArrayItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                           uint32_t* itemType) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberArrayItem(handle, key, member, itemType); });
    }
    int GetItemByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.GetItemByPath(path, handle); });
    }
    int GetObjectJsonByPath(const wchar_t* path, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetObjectJsonByPath(path, text); });
    }
    int GetObjectJson(uint32_t handle, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetObjectJson(handle, text); });
    }
    int GetMemberObjectJson(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberObjectJson(handle, key, text); });
    }
    int GetArrayJsonByPath(const wchar_t* path, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetArrayJsonByPath(path, text); });
    }
    int GetArrayJson(uint32_t handle, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetArrayJson(handle, text); });
    }
    int GetMemberArrayJson(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberArrayJson(handle, key, text); });
    }
    int GetNumberClassByPath(const wchar_t* path, uint32_t* numberClass) override {
        return this->Forward(
            [=](auto& next) { return next.GetNumberClassByPath(path, numberClass); });
    }
    int GetMemberNumberClass(uint32_t handle, const wchar_t* key, uint32_t* numberClass) override {
        return this->Forward(
            [=](auto& next) { return next.GetMemberNumberClass(handle, key, numberClass); });
    }
    int GetNumberClass(uint32_t handle, uint32_t* numberClass) override {
        return this->Forward([=](auto& next) { return next.GetNumberClass(handle, numberClass); });
    }
    bool ExistsItemByPath(const wchar_t* path) override {
        return this->ForwardUnguarded([=](auto& next) { return next.ExistsItemByPath(path); });
    }
    bool ExistsMember(uint32_t handle, const wchar_t* key) override {
        return this->ForwardUnguarded([=](auto& next) { return next.ExistsMember(handle, key); });
    }
    bool ExistsMemberByPath(const wchar_t* path, const wchar_t* key) override {
        return this->ForwardUnguarded(
            [=](auto& next) { return next.ExistsMemberByPath(path, key); });
    }
    int GetVariantOfValue(uint64_t value, const wchar_t* key, JsonVariant* variant) override {
        return this->Forward(
            [=](auto& next) { return next.GetVariantOfValue(value, key, variant); });
    }
    int GetItemVariant(uint32_t handle, const wchar_t* key, JsonVariant* variant) override {
        return this->Forward([=](auto& next) { return next.GetItemVariant(handle, key, variant); });
    }

protected:
    ~ParserOperations() = default;
};

}  // namespace QXJSON
