#pragma once

#include "IJsonGenerator.h"

namespace QXJSON {

/// Every operation of IJsonGenerator but Release, passed on unchanged to what lies behind `Layer`.
template <class Layer>
class GeneratorOperations : public Layer {
public:
    int ResetRootObjectValue(uint64_t* value) override {
        return this->Forward([=](auto& next) { return next.ResetRootObjectValue(value); });
    }
    int CreateRootObject(uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.CreateRootObject(handle); });
    }
    int ResetRootArrayValue(uint64_t* value) override {
        return this->Forward([=](auto& next) { return next.ResetRootArrayValue(value); });
    }
    int CreateRootArray(uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.CreateRootArray(handle); });
    }
    int AddObjectValueObject(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueObject(parent, key, value); });
    }
    int AddArrayValueObject(uint64_t parent, uint64_t* value) override {
        return this->Forward([=](auto& next) { return next.AddArrayValueObject(parent, value); });
    }
    int AddObjectItemObjectByPath(const wchar_t* path, const wchar_t* key,
                                  uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemObjectByPath(path, key, handle); });
    }
    int AddArrayItemObjectByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemObjectByPath(path, handle); });
    }
    int AddObjectItemObject(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemObject(parent, key, handle); });
    }
    int AddArrayItemObject(int32_t parent, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.AddArrayItemObject(parent, handle); });
    }
    int AddObjectValueArray(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueArray(parent, key, value); });
    }
    int AddArrayValueArray(uint64_t parent, uint64_t* value) override {
        return this->Forward([=](auto& next) { return next.AddArrayValueArray(parent, value); });
    }
    int AddObjectItemArrayByPath(const wchar_t* path, const wchar_t* key,
                                 uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemArrayByPath(path, key, handle); });
    }
    int AddArrayItemArrayByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemArrayByPath(path, handle); });
    }
    int AddObjectItemArray(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemArray(parent, key, handle); });
    }
    int AddArrayItemArray(int32_t parent, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.AddArrayItemArray(parent, handle); });
    }
    int AddObjectValueBoolean(uint64_t parent, const wchar_t* key, uint32_t flag,
                              uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueBoolean(parent, key, flag, value); });
    }
    int AddArrayValueBoolean(uint64_t parent, uint32_t flag, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueBoolean(parent, flag, value); });
    }
    int AddObjectItemBooleanByPath(const wchar_t* path, const wchar_t* key, uint32_t flag,
                                   uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemBooleanByPath(path, key, flag, handle); });
    }
    int AddArrayItemBooleanByPath(const wchar_t* path, uint32_t flag, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemBooleanByPath(path, flag, handle); });
    }
    int AddObjectItemBoolean(int32_t parent, const wchar_t* key, uint32_t flag,
                             uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemBoolean(parent, key, flag, handle); });
    }
    int AddArrayItemBoolean(int32_t parent, uint32_t flag, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemBoolean(parent, flag, handle); });
    }
    int AddObjectValueDouble(uint64_t parent, const wchar_t* key, double number,
                             uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueDouble(parent, key, number, value); });
    }
    int AddArrayValueDouble(uint64_t parent, double number, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueDouble(parent, number, value); });
    }
    int AddObjectValueFloat(uint64_t parent, const wchar_t* key, float number,
                            uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueFloat(parent, key, number, value); });
    }
    int AddArrayValueFloat(uint64_t parent, float number, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueFloat(parent, number, value); });
    }
    int AddObjectValueUInt64(uint64_t parent, const wchar_t* key, uint64_t number,
                             uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueUInt64(parent, key, number, value); });
    }
    int AddArrayValueUInt64(uint64_t parent, uint64_t number, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueUInt64(parent, number, value); });
    }
    int AddObjectValueInt64(uint64_t parent, const wchar_t* key, int64_t number,
                            uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueInt64(parent, key, number, value); });
    }
    int AddArrayValueInt64(uint64_t parent, int64_t number, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueInt64(parent, number, value); });
    }
    int AddObjectValueUInt(uint64_t parent, const wchar_t* key, uint32_t number,
                           uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueUInt(parent, key, number, value); });
    }
    int AddArrayValueUInt(uint64_t parent, uint32_t number, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueUInt(parent, number, value); });
    }
    int AddObjectValueInt(uint64_t parent, const wchar_t* key, int32_t number,
                          uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueInt(parent, key, number, value); });
    }
    int AddArrayValueInt(uint64_t parent, int32_t number, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueInt(parent, number, value); });
    }
    int AddObjectItemSpecialNumberByPath(const wchar_t* path, const wchar_t* key, uint32_t selector,
                                         uint32_t* handle) override {
        return this->Forward([=](auto& next) {
            return next.AddObjectItemSpecialNumberByPath(path, key, selector, handle);
        });
    }
    int AddArrayItemSpecialNumberByPath(const wchar_t* path, uint32_t selector,
                                        uint32_t* handle) override {
        return this->Forward([=](auto& next) {
            return next.AddArrayItemSpecialNumberByPath(path, selector, handle);
        });
    }
    int AddObjectItemSpecialNumber(int32_t parent, const wchar_t* key, uint32_t selector,
                                   uint32_t* handle) override {
        return this->Forward([=](auto& next) {
            return next.AddObjectItemSpecialNumber(parent, key, selector, handle);
        });
    }
    int AddArrayItemSpecialNumber(int32_t parent, uint32_t selector, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemSpecialNumber(parent, selector, handle); });
    }
    int AddObjectItemDoubleByPath(const wchar_t* path, const wchar_t* key, double number,
                                  uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemDoubleByPath(path, key, number, handle); });
    }
    int AddArrayItemDoubleByPath(const wchar_t* path, double number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemDoubleByPath(path, number, handle); });
    }
    int AddObjectItemFloatByPath(const wchar_t* path, const wchar_t* key, float number,
                                 uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemFloatByPath(path, key, number, handle); });
    }
    int AddArrayItemFloatByPath(const wchar_t* path, float number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemFloatByPath(path, number, handle); });
    }
    int AddObjectItemUInt64ByPath(const wchar_t* path, const wchar_t* key, uint64_t number,
                                  uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemUInt64ByPath(path, key, number, handle); });
    }
    int AddArrayItemUInt64ByPath(const wchar_t* path, uint64_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemUInt64ByPath(path, number, handle); });
    }
    int AddObjectItemInt64ByPath(const wchar_t* path, const wchar_t* key, int64_t number,
                                 uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemInt64ByPath(path, key, number, handle); });
    }
    int AddArrayItemInt64ByPath(const wchar_t* path, int64_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemInt64ByPath(path, number, handle); });
    }
    int AddObjectItemUIntByPath(const wchar_t* path, const wchar_t* key, uint32_t number,
                                uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemUIntByPath(path, key, number, handle); });
    }
    int AddArrayItemUIntByPath(const wchar_t* path, uint32_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemUIntByPath(path, number, handle); });
    }
    int AddObjectItemIntByPath(const wchar_t* path, const wchar_t* key, int32_t number,
                               uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemIntByPath(path, key, number, handle); });
    }
    int AddArrayItemIntByPath(const wchar_t* path, int32_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemIntByPath(path, number, handle); });
    }
    int AddObjectItemDouble(int32_t parent, const wchar_t* key, double number,
                            uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemDouble(parent, key, number, handle); });
    }
    int AddArrayItemDouble(int32_t parent, double number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemDouble(parent, number, handle); });
    }
    int AddObjectItemFloat(int32_t parent, const wchar_t* key, float number,
                           uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemFloat(parent, key, number, handle); });
    }
    int AddArrayItemFloat(int32_t parent, float number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemFloat(parent, number, handle); });
    }
    int AddObjectItemUInt64(int32_t parent, const wchar_t* key, uint64_t number,
                            uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemUInt64(parent, key, number, handle); });
    }
    int AddArrayItemUInt64(int32_t parent, uint64_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemUInt64(parent, number, handle); });
    }
    int AddObjectItemInt64(int32_t parent, const wchar_t* key, int64_t number,
                           uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemInt64(parent, key, number, handle); });
    }
    int AddArrayItemInt64(int32_t parent, int64_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemInt64(parent, number, handle); });
    }
    int AddObjectItemUInt(int32_t parent, const wchar_t* key, uint32_t number,
                          uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemUInt(parent, key, number, handle); });
    }
    int AddArrayItemUInt(int32_t parent, uint32_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemUInt(parent, number, handle); });
    }
    int AddObjectItemInt(int32_t parent, const wchar_t* key, int32_t number,
                         uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemInt(parent, key, number, handle); });
    }
    int AddArrayItemInt(int32_t parent, int32_t number, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemInt(parent, number, handle); });
    }
    int AddObjectValueBlob(uint64_t parent, const wchar_t* key, const uint8_t* data,
                           uint32_t length, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueBlob(parent, key, data, length, value); });
    }
    int AddArrayValueBlob(uint64_t parent, const uint8_t* data, uint32_t length,
                          uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueBlob(parent, data, length, value); });
    }
    int AddObjectItemBlobByPath(const wchar_t* path, const wchar_t* key, const uint8_t* data,
                                uint32_t length, uint32_t* handle) override {
        return this->Forward([=](auto& next) {
            return next.AddObjectItemBlobByPath(path, key, data, length, handle);
        });
    }
    int AddArrayItemBlobByPath(const wchar_t* path, const uint8_t* data, uint32_t length,
                               uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemBlobByPath(path, data, length, handle); });
    }
    int AddObjectItemBlob(int32_t parent, const wchar_t* key, const uint8_t* data, uint32_t length,
                          uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemBlob(parent, key, data, length, handle); });
    }
    int AddArrayItemBlob(int32_t parent, const uint8_t* data, uint32_t length,
                         uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemBlob(parent, data, length, handle); });
    }
    int AddObjectValueString(uint64_t parent, const wchar_t* key, const wchar_t* text,
                             uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueString(parent, key, text, value); });
    }
    int AddArrayValueString(uint64_t parent, const wchar_t* text, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayValueString(parent, text, value); });
    }
    int AddObjectItemStringByPath(const wchar_t* path, const wchar_t* key, const wchar_t* text,
                                  uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemStringByPath(path, key, text, handle); });
    }
    int AddArrayItemStringByPath(const wchar_t* path, const wchar_t* text,
                                 uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemStringByPath(path, text, handle); });
    }
    int AddObjectItemString(int32_t parent, const wchar_t* key, const wchar_t* text,
                            uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemString(parent, key, text, handle); });
    }
    int AddArrayItemString(int32_t parent, const wchar_t* text, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemString(parent, text, handle); });
    }
    int AddObjectValueNull(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectValueNull(parent, key, value); });
    }
    int AddArrayValueNull(uint64_t parent, uint64_t* value) override {
        return this->Forward([=](auto& next) { return next.AddArrayValueNull(parent, value); });
    }
    int AddObjectItemNullByPath(const wchar_t* path, const wchar_t* key,
                                uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemNullByPath(path, key, handle); });
    }
    int AddArrayItemNullByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.AddArrayItemNullByPath(path, handle); });
    }
    int AddObjectItemNull(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemNull(parent, key, handle); });
    }
    int AddArrayItemNull(int32_t parent, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.AddArrayItemNull(parent, handle); });
    }
    int AddValueVariant(uint64_t parent, const wchar_t* key, JsonVariant variant,
                        uint64_t* value) override {
        return this->Forward(
            [=](auto& next) { return next.AddValueVariant(parent, key, variant, value); });
    }
    int AddItemVariantByPath(const wchar_t* path, const wchar_t* key, JsonVariant variant,
                             uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddItemVariantByPath(path, key, variant, handle); });
    }
    int AddItemVariant(int32_t parent, const wchar_t* key, JsonVariant variant,
                       uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddItemVariant(parent, key, variant, handle); });
    }
    int SaveToFile(const wchar_t* fileName, int32_t encoding) override {
        return this->Forward([=](auto& next) { return next.SaveToFile(fileName, encoding); });
    }
    int SaveToFileEx(const wchar_t* fileName, int32_t encoding, int32_t style) override {
        return this->Forward(
            [=](auto& next) { return next.SaveToFileEx(fileName, encoding, style); });
    }
    int GetJsonString(const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetJsonString(text); });
    }
    int GetJsonBytes(const uint8_t** data, uint64_t* length, int32_t encoding) override {
        return this->Forward([=](auto& next) { return next.GetJsonBytes(data, length, encoding); });
    }
    int LoadJsonFile(const wchar_t* fileName, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.LoadJsonFile(fileName, handle); });
    }
    int AddObjectItemJsonFileByPath(const wchar_t* path, const wchar_t* key,
                                    const wchar_t* fileName, uint32_t* handle) override {
        return this->Forward([=](auto& next) {
            return next.AddObjectItemJsonFileByPath(path, key, fileName, handle);
        });
    }
    int AddArrayItemJsonFileByPath(const wchar_t* path, const wchar_t* fileName,
                                   uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemJsonFileByPath(path, fileName, handle); });
    }
    int AddObjectItemJsonFile(int32_t parent, const wchar_t* key, const wchar_t* fileName,
                              uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemJsonFile(parent, key, fileName, handle); });
    }
    int AddArrayItemJsonFile(int32_t parent, const wchar_t* fileName, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemJsonFile(parent, fileName, handle); });
    }
    int LoadJsonString(const wchar_t* text, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.LoadJsonString(text, handle); });
    }
    int AddObjectItemJsonStringByPath(const wchar_t* path, const wchar_t* key, const wchar_t* text,
                                      uint32_t* handle) override {
        return this->Forward([=](auto& next) {
            return next.AddObjectItemJsonStringByPath(path, key, text, handle);
        });
    }
    int AddArrayItemJsonStringByPath(const wchar_t* path, const wchar_t* text,
                                     uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemJsonStringByPath(path, text, handle); });
    }
    int AddObjectItemJsonString(int32_t parent, const wchar_t* key, const wchar_t* text,
                                uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddObjectItemJsonString(parent, key, text, handle); });
    }
    int AddArrayItemJsonString(int32_t parent, const wchar_t* text, uint32_t* handle) override {
        return this->Forward(
            [=](auto& next) { return next.AddArrayItemJsonString(parent, text, handle); });
    }
    int GetItemPath(int32_t handle, wchar_t* path) override {
        return this->Forward([=](auto& next) { return next.GetItemPath(handle, path); });
    }
    int GetItemHandleByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward([=](auto& next) { return next.GetItemHandleByPath(path, handle); });
    }

protected:
    ~GeneratorOperations() = default;
};

}  // namespace QXJSON
