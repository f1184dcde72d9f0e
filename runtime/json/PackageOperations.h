#pragma once

#include "IJsonPackage.h"

// The operation, not the macro of <windows.h>.
#undef LoadString

namespace QXJSON {

/// Every operation of IJsonPackage but Release and those that go through the delegate, passed on
/// unchanged to what lies behind `Layer`.
template <class Layer>
class PackageOperations : public Layer {
public:
    int HasError() override {
        return this->Forward([=](auto& next) { return next.HasError(); });
    }
    int GetErrorOffset(size_t* offset) override {
        return this->Forward([=](auto& next) { return next.GetErrorOffset(offset); });
    }
    int GetErrorMessage(const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetErrorMessage(text); });
    }
    int LoadString(const wchar_t* text) override {
        return this->Forward([=](auto& next) { return next.LoadString(text); });
    }
    int LoadFile(const wchar_t* fileName) override {
        return this->Forward([=](auto& next) { return next.LoadFile(fileName); });
    }
    int GetKeyCount(uint32_t* count) override {
        return this->Forward([=](auto& next) { return next.GetKeyCount(count); });
    }
    int GetKeyName(uint32_t index, const wchar_t** name) override {
        return this->Forward([=](auto& next) { return next.GetKeyName(index, name); });
    }
    int ContainsKey(const wchar_t* key, bool* found) override {
        return this->Forward([=](auto& next) { return next.ContainsKey(key, found); });
    }
    int RemoveAll() override {
        return this->Forward([=](auto& next) { return next.RemoveAll(); });
    }
    int GetValue(const wchar_t* key, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetValue(key, text); });
    }
    int SetValue(const wchar_t* key, const wchar_t* value, bool valueIsJson) override {
        return this->Forward([=](auto& next) { return next.SetValue(key, value, valueIsJson); });
    }
    int RemoveKey(const wchar_t* key) override {
        return this->Forward([=](auto& next) { return next.RemoveKey(key); });
    }
    int GetText(const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetText(text); });
    }
    int GetBytes(const void** data, size_t* length, int32_t encoding) override {
        return this->Forward([=](auto& next) { return next.GetBytes(data, length, encoding); });
    }
    int SaveToFile(const wchar_t* fileName, int32_t encoding) override {
        return this->Forward([=](auto& next) { return next.SaveToFile(fileName, encoding); });
    }
    int SetIgnoreCase(uint32_t flag) override {
        return this->Forward([=](auto& next) { return next.SetIgnoreCase(flag); });
    }
    int GetIgnoreCase(uint32_t* flag) override {
        return this->Forward([=](auto& next) { return next.GetIgnoreCase(flag); });
    }
    int GetValueString(const wchar_t* key, const wchar_t** text) override {
        return this->Forward([=](auto& next) { return next.GetValueString(key, text); });
    }
    int SetValueString(const wchar_t* key, const wchar_t* text) override {
        return this->Forward([=](auto& next) { return next.SetValueString(key, text); });
    }
    int GetValueNumber(const wchar_t* key, double* number) override {
        return this->Forward([=](auto& next) { return next.GetValueNumber(key, number); });
    }
    int SetValueNumber(const wchar_t* key, double number) override {
        return this->Forward([=](auto& next) { return next.SetValueNumber(key, number); });
    }
    int GetValueBoolean(const wchar_t* key, bool* flag) override {
        return this->Forward([=](auto& next) { return next.GetValueBoolean(key, flag); });
    }
    int SetValueBoolean(const wchar_t* key, bool flag) override {
        return this->Forward([=](auto& next) { return next.SetValueBoolean(key, flag); });
    }
    int GetValueVariant(const wchar_t* key, JsonVariant* variant) override {
        return this->Forward([=](auto& next) { return next.GetValueVariant(key, variant); });
    }
    int SetValueVariant(const wchar_t* key, const JsonVariant* variant) override {
        return this->Forward([=](auto& next) { return next.SetValueVariant(key, variant); });
    }
    int GetValueVariantAlias(const wchar_t* key, JsonVariant* variant) override {
        return this->Forward([=](auto& next) { return next.GetValueVariantAlias(key, variant); });
    }
    int SetValueVariantAlias(const wchar_t* key, const JsonVariant* variant) override {
        return this->Forward([=](auto& next) { return next.SetValueVariantAlias(key, variant); });
    }
    int GetValueVariantEx(const wchar_t* key, JsonVariant* variant) override {
        return this->Forward([=](auto& next) { return next.GetValueVariantEx(key, variant); });
    }
    int SetValueVariantEx(const wchar_t* key, const JsonVariant* variant) override {
        return this->Forward([=](auto& next) { return next.SetValueVariantEx(key, variant); });
    }
    int GetValueBlob(const wchar_t* key, const void** data, uint32_t* length) override {
        return this->Forward([=](auto& next) { return next.GetValueBlob(key, data, length); });
    }
    int SetValueBlob(const wchar_t* key, const uint8_t* data, uint32_t length) override {
        return this->Forward([=](auto& next) { return next.SetValueBlob(key, data, length); });
    }
    int GetValueType(const wchar_t* key, uint32_t* itemType) override {
        return this->Forward([=](auto& next) { return next.GetValueType(key, itemType); });
    }

protected:
    ~PackageOperations() = default;
};

}  // namespace QXJSON
