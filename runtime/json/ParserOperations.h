#pragma once

#include "IJsonParser.h"

namespace QXJSON {

/// Every operation of IJsonParser but Release, passed on unchanged by `Layer`.
template <class Layer>
class ParserOperations : public Layer {
public:
    int LoadJsonBytes(const char* text, uint32_t length) override {
        return this->Forward([](auto& next, auto... rest) { return next.LoadJsonBytes(rest...); },
                             text, length);
    }
    int LoadJsonString(const wchar_t* text) override {
        return this->Forward([](auto& next, auto... rest) { return next.LoadJsonString(rest...); },
                             text);
    }
    int LoadJsonFile(const wchar_t* fileName) override {
        return this->Forward([](auto& next, auto... rest) { return next.LoadJsonFile(rest...); },
                             fileName);
    }
    int HasError() override {
        return this->Forward([](auto& next) { return next.HasError(); });
    }
    int GetErrorOffset(uint64_t* offset) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetErrorOffset(rest...); },
                             offset);
    }
    int GetErrorMessage(const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetErrorMessage(rest...); },
                             text);
    }
    int GetRootValue(uint64_t* value, uint32_t* valueType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetRootValue(rest...); },
                             value, valueType);
    }
    int GetRootItem(uint32_t* handle, uint32_t* itemType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetRootItem(rest...); },
                             handle, itemType);
    }
    int GetMemberValue(uint64_t value, const wchar_t* key, uint64_t* member,
                       uint32_t* valueType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberValue(rest...); },
                             value, key, member, valueType);
    }
    int GetChildValue(uint64_t value, uint32_t index, uint64_t* child,
                      uint32_t* valueType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetChildValue(rest...); },
                             value, index, child, valueType);
    }
    int GetMemberItemByPath(const wchar_t* path, const wchar_t* key, uint32_t* handle,
                            uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberItemByPath(rest...); }, path, key,
            handle, itemType);
    }
    int GetChildItemByPath(const wchar_t* path, uint32_t index, uint32_t* handle,
                           uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetChildItemByPath(rest...); }, path, index,
            handle, itemType);
    }
    int GetMemberItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                      uint32_t* itemType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberItem(rest...); },
                             handle, key, member, itemType);
    }
    int GetChildItem(uint32_t handle, uint32_t index, uint32_t* child,
                     uint32_t* itemType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetChildItem(rest...); },
                             handle, index, child, itemType);
    }
    int GetMemberNameOfValue(uint64_t value, uint32_t index, const wchar_t** name) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberNameOfValue(rest...); }, value,
            index, name);
    }
    int GetMemberNameByPath(const wchar_t* path, uint32_t index, const wchar_t** name) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberNameByPath(rest...); }, path, index,
            name);
    }
    int GetMemberName(uint32_t handle, uint32_t index, const wchar_t** name) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberName(rest...); },
                             handle, index, name);
    }
    int GetChildCountOfValue(uint64_t value, uint32_t* count) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetChildCountOfValue(rest...); }, value,
            count);
    }
    int GetChildCountByPath(const wchar_t* path, uint32_t* count) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetChildCountByPath(rest...); }, path,
            count);
    }
    int GetChildCount(uint32_t handle, uint32_t* count) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetChildCount(rest...); },
                             handle, count);
    }
    int GetValueType(uint64_t value, uint32_t* valueType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueType(rest...); },
                             value, valueType);
    }
    int GetItemTypeByPath(const wchar_t* path, uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemTypeByPath(rest...); }, path,
            itemType);
    }
    int GetMemberItemType(uint32_t handle, const wchar_t* key, uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberItemType(rest...); }, handle, key,
            itemType);
    }
    int GetItemType(uint32_t handle, uint32_t* itemType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemType(rest...); },
                             handle, itemType);
    }
    int GetMemberBooleanOfValue(uint64_t value, const wchar_t* key, uint32_t* flag) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberBooleanOfValue(rest...); }, value,
            key, flag);
    }
    int GetValueBoolean(uint64_t value, uint32_t* flag) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueBoolean(rest...); },
                             value, flag);
    }
    int GetItemBooleanByPath(const wchar_t* path, uint32_t* flag) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemBooleanByPath(rest...); }, path,
            flag);
    }
    int GetMemberBoolean(uint32_t handle, const wchar_t* key, uint32_t* flag) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberBoolean(rest...); }, handle, key,
            flag);
    }
    int GetItemBoolean(uint32_t handle, uint32_t* flag) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemBoolean(rest...); },
                             handle, flag);
    }
    int GetMemberDoubleOfValue(uint64_t value, const wchar_t* key, double* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberDoubleOfValue(rest...); }, value,
            key, number);
    }
    int GetValueDouble(uint64_t value, double* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueDouble(rest...); },
                             value, number);
    }
    int GetMemberFloatOfValue(uint64_t value, const wchar_t* key, float* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberFloatOfValue(rest...); }, value,
            key, number);
    }
    int GetValueFloat(uint64_t value, float* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueFloat(rest...); },
                             value, number);
    }
    int GetMemberUInt64OfValue(uint64_t value, const wchar_t* key, uint64_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberUInt64OfValue(rest...); }, value,
            key, number);
    }
    int GetValueUInt64(uint64_t value, uint64_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueUInt64(rest...); },
                             value, number);
    }
    int GetMemberInt64OfValue(uint64_t value, const wchar_t* key, int64_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberInt64OfValue(rest...); }, value,
            key, number);
    }
    int GetValueInt64(uint64_t value, int64_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueInt64(rest...); },
                             value, number);
    }
    int GetMemberUIntOfValue(uint64_t value, const wchar_t* key, uint32_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberUIntOfValue(rest...); }, value, key,
            number);
    }
    int GetValueUInt(uint64_t value, uint32_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueUInt(rest...); },
                             value, number);
    }
    int GetMemberIntOfValue(uint64_t value, const wchar_t* key, int32_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberIntOfValue(rest...); }, value, key,
            number);
    }
    int GetValueInt(uint64_t value, int32_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueInt(rest...); },
                             value, number);
    }
    int GetItemDoubleByPath(const wchar_t* path, double* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemDoubleByPath(rest...); }, path,
            number);
    }
    int GetItemFloatByPath(const wchar_t* path, float* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemFloatByPath(rest...); }, path,
            number);
    }
    int GetItemUInt64ByPath(const wchar_t* path, uint64_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemUInt64ByPath(rest...); }, path,
            number);
    }
    int GetItemInt64ByPath(const wchar_t* path, int64_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemInt64ByPath(rest...); }, path,
            number);
    }
    int GetItemUIntByPath(const wchar_t* path, uint32_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemUIntByPath(rest...); }, path, number);
    }
    int GetItemIntByPath(const wchar_t* path, int32_t* number) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemIntByPath(rest...); }, path, number);
    }
    int GetMemberDouble(uint32_t handle, const wchar_t* key, double* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberDouble(rest...); },
                             handle, key, number);
    }
    int GetItemDouble(uint32_t handle, double* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemDouble(rest...); },
                             handle, number);
    }
    int GetMemberFloat(uint32_t handle, const wchar_t* key, float* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberFloat(rest...); },
                             handle, key, number);
    }
    int GetItemFloat(uint32_t handle, float* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemFloat(rest...); },
                             handle, number);
    }
    int GetMemberUInt64(uint32_t handle, const wchar_t* key, uint64_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberUInt64(rest...); },
                             handle, key, number);
    }
    int GetItemUInt64(uint32_t handle, uint64_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemUInt64(rest...); },
                             handle, number);
    }
    int GetMemberInt64(uint32_t handle, const wchar_t* key, int64_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberInt64(rest...); },
                             handle, key, number);
    }
    int GetItemInt64(uint32_t handle, int64_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemInt64(rest...); },
                             handle, number);
    }
    int GetMemberUInt(uint32_t handle, const wchar_t* key, uint32_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberUInt(rest...); },
                             handle, key, number);
    }
    int GetItemUInt(uint32_t handle, uint32_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemUInt(rest...); },
                             handle, number);
    }
    int GetMemberInt(uint32_t handle, const wchar_t* key, int32_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberInt(rest...); },
                             handle, key, number);
    }
    int GetItemInt(uint32_t handle, int32_t* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemInt(rest...); },
                             handle, number);
    }
    int GetMemberBlobOfValue(uint64_t value, const wchar_t* key, const uint8_t** data,
                             uint32_t* size) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberBlobOfValue(rest...); }, value, key,
            data, size);
    }
    int GetValueBlob(uint64_t value, const uint8_t** data, uint32_t* size) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueBlob(rest...); },
                             value, data, size);
    }
    int GetItemBlobByPath(const wchar_t* path, const uint8_t** data, uint32_t* size) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemBlobByPath(rest...); }, path, data,
            size);
    }
    int GetMemberBlob(uint32_t handle, const wchar_t* key, const uint8_t** data,
                      uint32_t* size) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberBlob(rest...); },
                             handle, key, data, size);
    }
    int GetItemBlob(uint32_t handle, const uint8_t** data, uint32_t* size) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemBlob(rest...); },
                             handle, data, size);
    }
    int GetMemberStringOfValue(uint64_t value, const wchar_t* key, const wchar_t** text) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberStringOfValue(rest...); }, value,
            key, text);
    }
    int GetValueString(uint64_t value, const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueString(rest...); },
                             value, text);
    }
    int GetItemStringByPath(const wchar_t* path, const wchar_t** text) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemStringByPath(rest...); }, path, text);
    }
    int GetMemberString(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetMemberString(rest...); },
                             handle, key, text);
    }
    int GetItemString(uint32_t handle, const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemString(rest...); },
                             handle, text);
    }
    int GetMemberObjectValue(uint64_t value, const wchar_t* key, uint64_t* member,
                             uint32_t* valueType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberObjectValue(rest...); }, value, key,
            member, valueType);
    }
    int GetObjectItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetObjectItemByPath(rest...); }, path,
            handle, itemType);
    }
    int GetMemberObjectItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                            uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberObjectItem(rest...); }, handle, key,
            member, itemType);
    }
    int GetMemberArrayValue(uint64_t value, const wchar_t* key, uint64_t* member,
                            uint32_t* valueType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberArrayValue(rest...); }, value, key,
            member, valueType);
    }
    int GetArrayItemByPath(const wchar_t* path, uint32_t* handle, uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetArrayItemByPath(rest...); }, path, handle,
            itemType);
    }
    int GetMemberArrayItem(uint32_t handle, const wchar_t* key, uint32_t* member,
                           uint32_t* itemType) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberArrayItem(rest...); }, handle, key,
            member, itemType);
    }
    int GetItemByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemByPath(rest...); },
                             path, handle);
    }
    int GetObjectJsonByPath(const wchar_t* path, const wchar_t** text) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetObjectJsonByPath(rest...); }, path, text);
    }
    int GetObjectJson(uint32_t handle, const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetObjectJson(rest...); },
                             handle, text);
    }
    int GetMemberObjectJson(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberObjectJson(rest...); }, handle, key,
            text);
    }
    int GetArrayJsonByPath(const wchar_t* path, const wchar_t** text) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetArrayJsonByPath(rest...); }, path, text);
    }
    int GetArrayJson(uint32_t handle, const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetArrayJson(rest...); },
                             handle, text);
    }
    int GetMemberArrayJson(uint32_t handle, const wchar_t* key, const wchar_t** text) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberArrayJson(rest...); }, handle, key,
            text);
    }
    int GetNumberClassByPath(const wchar_t* path, uint32_t* numberClass) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetNumberClassByPath(rest...); }, path,
            numberClass);
    }
    int GetMemberNumberClass(uint32_t handle, const wchar_t* key, uint32_t* numberClass) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetMemberNumberClass(rest...); }, handle,
            key, numberClass);
    }
    int GetNumberClass(uint32_t handle, uint32_t* numberClass) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetNumberClass(rest...); },
                             handle, numberClass);
    }
    bool ExistsItemByPath(const wchar_t* path) override {
        return this->ForwardUnguarded(
            [](auto& next, auto... rest) { return next.ExistsItemByPath(rest...); }, path);
    }
    bool ExistsMember(uint32_t handle, const wchar_t* key) override {
        return this->ForwardUnguarded(
            [](auto& next, auto... rest) { return next.ExistsMember(rest...); }, handle, key);
    }
    bool ExistsMemberByPath(const wchar_t* path, const wchar_t* key) override {
        return this->ForwardUnguarded(
            [](auto& next, auto... rest) { return next.ExistsMemberByPath(rest...); }, path, key);
    }
    int GetVariantOfValue(uint64_t value, const wchar_t* key, JsonVariant* variant) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetVariantOfValue(rest...); }, value, key,
            variant);
    }
    int GetItemVariant(uint32_t handle, const wchar_t* key, JsonVariant* variant) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemVariant(rest...); },
                             handle, key, variant);
    }

protected:
    ~ParserOperations() = default;
};

}  // namespace QXJSON
