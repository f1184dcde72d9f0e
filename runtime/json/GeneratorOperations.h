#pragma once

#include "IJsonGenerator.h"

namespace QXJSON {

/// Every operation of IJsonGenerator but Release, passed on unchanged by `Layer`.
template <class Layer>
class GeneratorOperations : public Layer {
public:
    int ResetRootObjectValue(uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.ResetRootObjectValue(rest...); }, value);
    }
    int CreateRootObject(uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.CreateRootObject(rest...); }, handle);
    }
    int ResetRootArrayValue(uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.ResetRootArrayValue(rest...); }, value);
    }
    int CreateRootArray(uint32_t* handle) override {
        return this->Forward([](auto& next, auto... rest) { return next.CreateRootArray(rest...); },
                             handle);
    }
    int AddObjectValueObject(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueObject(rest...); }, parent,
            key, value);
    }
    int AddArrayValueObject(uint64_t parent, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueObject(rest...); }, parent,
            value);
    }
    int AddObjectItemObjectByPath(const wchar_t* path, const wchar_t* key,
                                  uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemObjectByPath(rest...); }, path,
            key, handle);
    }
    int AddArrayItemObjectByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemObjectByPath(rest...); }, path,
            handle);
    }
    int AddObjectItemObject(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemObject(rest...); }, parent, key,
            handle);
    }
    int AddArrayItemObject(int32_t parent, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemObject(rest...); }, parent,
            handle);
    }
    int AddObjectValueArray(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueArray(rest...); }, parent, key,
            value);
    }
    int AddArrayValueArray(uint64_t parent, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueArray(rest...); }, parent,
            value);
    }
    int AddObjectItemArrayByPath(const wchar_t* path, const wchar_t* key,
                                 uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemArrayByPath(rest...); }, path,
            key, handle);
    }
    int AddArrayItemArrayByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemArrayByPath(rest...); }, path,
            handle);
    }
    int AddObjectItemArray(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemArray(rest...); }, parent, key,
            handle);
    }
    int AddArrayItemArray(int32_t parent, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemArray(rest...); }, parent,
            handle);
    }
    int AddObjectValueBoolean(uint64_t parent, const wchar_t* key, uint32_t flag,
                              uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueBoolean(rest...); }, parent,
            key, flag, value);
    }
    int AddArrayValueBoolean(uint64_t parent, uint32_t flag, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueBoolean(rest...); }, parent,
            flag, value);
    }
    int AddObjectItemBooleanByPath(const wchar_t* path, const wchar_t* key, uint32_t flag,
                                   uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemBooleanByPath(rest...); }, path,
            key, flag, handle);
    }
    int AddArrayItemBooleanByPath(const wchar_t* path, uint32_t flag, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemBooleanByPath(rest...); }, path,
            flag, handle);
    }
    int AddObjectItemBoolean(int32_t parent, const wchar_t* key, uint32_t flag,
                             uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemBoolean(rest...); }, parent,
            key, flag, handle);
    }
    int AddArrayItemBoolean(int32_t parent, uint32_t flag, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemBoolean(rest...); }, parent,
            flag, handle);
    }
    int AddObjectValueDouble(uint64_t parent, const wchar_t* key, double number,
                             uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueDouble(rest...); }, parent,
            key, number, value);
    }
    int AddArrayValueDouble(uint64_t parent, double number, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueDouble(rest...); }, parent,
            number, value);
    }
    int AddObjectValueFloat(uint64_t parent, const wchar_t* key, float number,
                            uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueFloat(rest...); }, parent, key,
            number, value);
    }
    int AddArrayValueFloat(uint64_t parent, float number, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueFloat(rest...); }, parent,
            number, value);
    }
    int AddObjectValueUInt64(uint64_t parent, const wchar_t* key, uint64_t number,
                             uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueUInt64(rest...); }, parent,
            key, number, value);
    }
    int AddArrayValueUInt64(uint64_t parent, uint64_t number, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueUInt64(rest...); }, parent,
            number, value);
    }
    int AddObjectValueInt64(uint64_t parent, const wchar_t* key, int64_t number,
                            uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueInt64(rest...); }, parent, key,
            number, value);
    }
    int AddArrayValueInt64(uint64_t parent, int64_t number, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueInt64(rest...); }, parent,
            number, value);
    }
    int AddObjectValueUInt(uint64_t parent, const wchar_t* key, uint32_t number,
                           uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueUInt(rest...); }, parent, key,
            number, value);
    }
    int AddArrayValueUInt(uint64_t parent, uint32_t number, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueUInt(rest...); }, parent,
            number, value);
    }
    int AddObjectValueInt(uint64_t parent, const wchar_t* key, int32_t number,
                          uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueInt(rest...); }, parent, key,
            number, value);
    }
    int AddArrayValueInt(uint64_t parent, int32_t number, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueInt(rest...); }, parent, number,
            value);
    }
    int AddObjectItemSpecialNumberByPath(const wchar_t* path, const wchar_t* key, uint32_t selector,
                                         uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemSpecialNumberByPath(rest...); },
            path, key, selector, handle);
    }
    int AddArrayItemSpecialNumberByPath(const wchar_t* path, uint32_t selector,
                                        uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemSpecialNumberByPath(rest...); },
            path, selector, handle);
    }
    int AddObjectItemSpecialNumber(int32_t parent, const wchar_t* key, uint32_t selector,
                                   uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemSpecialNumber(rest...); },
            parent, key, selector, handle);
    }
    int AddArrayItemSpecialNumber(int32_t parent, uint32_t selector, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemSpecialNumber(rest...); },
            parent, selector, handle);
    }
    int AddObjectItemDoubleByPath(const wchar_t* path, const wchar_t* key, double number,
                                  uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemDoubleByPath(rest...); }, path,
            key, number, handle);
    }
    int AddArrayItemDoubleByPath(const wchar_t* path, double number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemDoubleByPath(rest...); }, path,
            number, handle);
    }
    int AddObjectItemFloatByPath(const wchar_t* path, const wchar_t* key, float number,
                                 uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemFloatByPath(rest...); }, path,
            key, number, handle);
    }
    int AddArrayItemFloatByPath(const wchar_t* path, float number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemFloatByPath(rest...); }, path,
            number, handle);
    }
    int AddObjectItemUInt64ByPath(const wchar_t* path, const wchar_t* key, uint64_t number,
                                  uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemUInt64ByPath(rest...); }, path,
            key, number, handle);
    }
    int AddArrayItemUInt64ByPath(const wchar_t* path, uint64_t number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemUInt64ByPath(rest...); }, path,
            number, handle);
    }
    int AddObjectItemInt64ByPath(const wchar_t* path, const wchar_t* key, int64_t number,
                                 uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemInt64ByPath(rest...); }, path,
            key, number, handle);
    }
    int AddArrayItemInt64ByPath(const wchar_t* path, int64_t number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemInt64ByPath(rest...); }, path,
            number, handle);
    }
    int AddObjectItemUIntByPath(const wchar_t* path, const wchar_t* key, uint32_t number,
                                uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemUIntByPath(rest...); }, path,
            key, number, handle);
    }
    int AddArrayItemUIntByPath(const wchar_t* path, uint32_t number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemUIntByPath(rest...); }, path,
            number, handle);
    }
    int AddObjectItemIntByPath(const wchar_t* path, const wchar_t* key, int32_t number,
                               uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemIntByPath(rest...); }, path,
            key, number, handle);
    }
    int AddArrayItemIntByPath(const wchar_t* path, int32_t number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemIntByPath(rest...); }, path,
            number, handle);
    }
    int AddObjectItemDouble(int32_t parent, const wchar_t* key, double number,
                            uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemDouble(rest...); }, parent, key,
            number, handle);
    }
    int AddArrayItemDouble(int32_t parent, double number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemDouble(rest...); }, parent,
            number, handle);
    }
    int AddObjectItemFloat(int32_t parent, const wchar_t* key, float number,
                           uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemFloat(rest...); }, parent, key,
            number, handle);
    }
    int AddArrayItemFloat(int32_t parent, float number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemFloat(rest...); }, parent,
            number, handle);
    }
    int AddObjectItemUInt64(int32_t parent, const wchar_t* key, uint64_t number,
                            uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemUInt64(rest...); }, parent, key,
            number, handle);
    }
    int AddArrayItemUInt64(int32_t parent, uint64_t number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemUInt64(rest...); }, parent,
            number, handle);
    }
    int AddObjectItemInt64(int32_t parent, const wchar_t* key, int64_t number,
                           uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemInt64(rest...); }, parent, key,
            number, handle);
    }
    int AddArrayItemInt64(int32_t parent, int64_t number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemInt64(rest...); }, parent,
            number, handle);
    }
    int AddObjectItemUInt(int32_t parent, const wchar_t* key, uint32_t number,
                          uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemUInt(rest...); }, parent, key,
            number, handle);
    }
    int AddArrayItemUInt(int32_t parent, uint32_t number, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemUInt(rest...); }, parent, number,
            handle);
    }
    int AddObjectItemInt(int32_t parent, const wchar_t* key, int32_t number,
                         uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemInt(rest...); }, parent, key,
            number, handle);
    }
    int AddArrayItemInt(int32_t parent, int32_t number, uint32_t* handle) override {
        return this->Forward([](auto& next, auto... rest) { return next.AddArrayItemInt(rest...); },
                             parent, number, handle);
    }
    int AddObjectValueBlob(uint64_t parent, const wchar_t* key, const uint8_t* data,
                           uint32_t length, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueBlob(rest...); }, parent, key,
            data, length, value);
    }
    int AddArrayValueBlob(uint64_t parent, const uint8_t* data, uint32_t length,
                          uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueBlob(rest...); }, parent, data,
            length, value);
    }
    int AddObjectItemBlobByPath(const wchar_t* path, const wchar_t* key, const uint8_t* data,
                                uint32_t length, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemBlobByPath(rest...); }, path,
            key, data, length, handle);
    }
    int AddArrayItemBlobByPath(const wchar_t* path, const uint8_t* data, uint32_t length,
                               uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemBlobByPath(rest...); }, path,
            data, length, handle);
    }
    int AddObjectItemBlob(int32_t parent, const wchar_t* key, const uint8_t* data, uint32_t length,
                          uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemBlob(rest...); }, parent, key,
            data, length, handle);
    }
    int AddArrayItemBlob(int32_t parent, const uint8_t* data, uint32_t length,
                         uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemBlob(rest...); }, parent, data,
            length, handle);
    }
    int AddObjectValueString(uint64_t parent, const wchar_t* key, const wchar_t* text,
                             uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueString(rest...); }, parent,
            key, text, value);
    }
    int AddArrayValueString(uint64_t parent, const wchar_t* text, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueString(rest...); }, parent,
            text, value);
    }
    int AddObjectItemStringByPath(const wchar_t* path, const wchar_t* key, const wchar_t* text,
                                  uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemStringByPath(rest...); }, path,
            key, text, handle);
    }
    int AddArrayItemStringByPath(const wchar_t* path, const wchar_t* text,
                                 uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemStringByPath(rest...); }, path,
            text, handle);
    }
    int AddObjectItemString(int32_t parent, const wchar_t* key, const wchar_t* text,
                            uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemString(rest...); }, parent, key,
            text, handle);
    }
    int AddArrayItemString(int32_t parent, const wchar_t* text, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemString(rest...); }, parent, text,
            handle);
    }
    int AddObjectValueNull(uint64_t parent, const wchar_t* key, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectValueNull(rest...); }, parent, key,
            value);
    }
    int AddArrayValueNull(uint64_t parent, uint64_t* value) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayValueNull(rest...); }, parent,
            value);
    }
    int AddObjectItemNullByPath(const wchar_t* path, const wchar_t* key,
                                uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemNullByPath(rest...); }, path,
            key, handle);
    }
    int AddArrayItemNullByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemNullByPath(rest...); }, path,
            handle);
    }
    int AddObjectItemNull(int32_t parent, const wchar_t* key, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemNull(rest...); }, parent, key,
            handle);
    }
    int AddArrayItemNull(int32_t parent, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemNull(rest...); }, parent,
            handle);
    }
    int AddValueVariant(uint64_t parent, const wchar_t* key, JsonVariant variant,
                        uint64_t* value) override {
        return this->Forward([](auto& next, auto... rest) { return next.AddValueVariant(rest...); },
                             parent, key, variant, value);
    }
    int AddItemVariantByPath(const wchar_t* path, const wchar_t* key, JsonVariant variant,
                             uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddItemVariantByPath(rest...); }, path, key,
            variant, handle);
    }
    int AddItemVariant(int32_t parent, const wchar_t* key, JsonVariant variant,
                       uint32_t* handle) override {
        return this->Forward([](auto& next, auto... rest) { return next.AddItemVariant(rest...); },
                             parent, key, variant, handle);
    }
    int SaveToFile(const wchar_t* fileName, int32_t encoding) override {
        return this->Forward([](auto& next, auto... rest) { return next.SaveToFile(rest...); },
                             fileName, encoding);
    }
    int SaveToFileEx(const wchar_t* fileName, int32_t encoding, int32_t style) override {
        return this->Forward([](auto& next, auto... rest) { return next.SaveToFileEx(rest...); },
                             fileName, encoding, style);
    }
    int GetJsonString(const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetJsonString(rest...); },
                             text);
    }
    int GetJsonBytes(const uint8_t** data, uint64_t* length, int32_t encoding) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetJsonBytes(rest...); },
                             data, length, encoding);
    }
    int LoadJsonFile(const wchar_t* fileName, uint32_t* handle) override {
        return this->Forward([](auto& next, auto... rest) { return next.LoadJsonFile(rest...); },
                             fileName, handle);
    }
    int AddObjectItemJsonFileByPath(const wchar_t* path, const wchar_t* key,
                                    const wchar_t* fileName, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemJsonFileByPath(rest...); },
            path, key, fileName, handle);
    }
    int AddArrayItemJsonFileByPath(const wchar_t* path, const wchar_t* fileName,
                                   uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemJsonFileByPath(rest...); }, path,
            fileName, handle);
    }
    int AddObjectItemJsonFile(int32_t parent, const wchar_t* key, const wchar_t* fileName,
                              uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemJsonFile(rest...); }, parent,
            key, fileName, handle);
    }
    int AddArrayItemJsonFile(int32_t parent, const wchar_t* fileName, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemJsonFile(rest...); }, parent,
            fileName, handle);
    }
    int LoadJsonString(const wchar_t* text, uint32_t* handle) override {
        return this->Forward([](auto& next, auto... rest) { return next.LoadJsonString(rest...); },
                             text, handle);
    }
    int AddObjectItemJsonStringByPath(const wchar_t* path, const wchar_t* key, const wchar_t* text,
                                      uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemJsonStringByPath(rest...); },
            path, key, text, handle);
    }
    int AddArrayItemJsonStringByPath(const wchar_t* path, const wchar_t* text,
                                     uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemJsonStringByPath(rest...); },
            path, text, handle);
    }
    int AddObjectItemJsonString(int32_t parent, const wchar_t* key, const wchar_t* text,
                                uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddObjectItemJsonString(rest...); }, parent,
            key, text, handle);
    }
    int AddArrayItemJsonString(int32_t parent, const wchar_t* text, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.AddArrayItemJsonString(rest...); }, parent,
            text, handle);
    }
    int GetItemPath(int32_t handle, wchar_t* path) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetItemPath(rest...); },
                             handle, path);
    }
    int GetItemHandleByPath(const wchar_t* path, uint32_t* handle) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetItemHandleByPath(rest...); }, path,
            handle);
    }

protected:
    ~GeneratorOperations() = default;
};

}  // namespace QXJSON
