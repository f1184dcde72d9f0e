#pragma once

#include "IJsonPackage.h"

// The operation, not the macro of <windows.h>.
#undef LoadString

namespace QXJSON {

/// Every operation of IJsonPackage but Release and those that go through the delegate, passed on
/// unchanged by `Layer`.
template <class Layer>
class PackageOperations : public Layer {
public:
    int HasError() override {
        return this->Forward([](auto& next) { return next.HasError(); });
    }
    int GetErrorOffset(size_t* offset) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetErrorOffset(rest...); },
                             offset);
    }
    int GetErrorMessage(const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetErrorMessage(rest...); },
                             text);
    }
    int LoadString(const wchar_t* text) override {
        return this->Forward([](auto& next, auto... rest) { return next.LoadString(rest...); },
                             text);
    }
    int LoadFile(const wchar_t* fileName) override {
        return this->Forward([](auto& next, auto... rest) { return next.LoadFile(rest...); },
                             fileName);
    }
    int GetKeyCount(uint32_t* count) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetKeyCount(rest...); },
                             count);
    }
    int GetKeyName(uint32_t index, const wchar_t** name) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetKeyName(rest...); },
                             index, name);
    }
    int ContainsKey(const wchar_t* key, bool* found) override {
        return this->Forward([](auto& next, auto... rest) { return next.ContainsKey(rest...); },
                             key, found);
    }
    int RemoveAll() override {
        return this->Forward([](auto& next) { return next.RemoveAll(); });
    }
    int GetValue(const wchar_t* key, const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValue(rest...); }, key,
                             text);
    }
    int SetValue(const wchar_t* key, const wchar_t* value, bool valueIsJson) override {
        return this->Forward([](auto& next, auto... rest) { return next.SetValue(rest...); }, key,
                             value, valueIsJson);
    }
    int RemoveKey(const wchar_t* key) override {
        return this->Forward([](auto& next, auto... rest) { return next.RemoveKey(rest...); }, key);
    }
    int GetText(const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetText(rest...); }, text);
    }
    int GetBytes(const void** data, size_t* length, int32_t encoding) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetBytes(rest...); }, data,
                             length, encoding);
    }
    int SaveToFile(const wchar_t* fileName, int32_t encoding) override {
        return this->Forward([](auto& next, auto... rest) { return next.SaveToFile(rest...); },
                             fileName, encoding);
    }
    int SetIgnoreCase(uint32_t flag) override {
        return this->Forward([](auto& next, auto... rest) { return next.SetIgnoreCase(rest...); },
                             flag);
    }
    int GetIgnoreCase(uint32_t* flag) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetIgnoreCase(rest...); },
                             flag);
    }
    int GetValueString(const wchar_t* key, const wchar_t** text) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueString(rest...); },
                             key, text);
    }
    int SetValueString(const wchar_t* key, const wchar_t* text) override {
        return this->Forward([](auto& next, auto... rest) { return next.SetValueString(rest...); },
                             key, text);
    }
    int GetValueNumber(const wchar_t* key, double* number) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueNumber(rest...); },
                             key, number);
    }
    int SetValueNumber(const wchar_t* key, double number) override {
        return this->Forward([](auto& next, auto... rest) { return next.SetValueNumber(rest...); },
                             key, number);
    }
    int GetValueBoolean(const wchar_t* key, bool* flag) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueBoolean(rest...); },
                             key, flag);
    }
    int SetValueBoolean(const wchar_t* key, bool flag) override {
        return this->Forward([](auto& next, auto... rest) { return next.SetValueBoolean(rest...); },
                             key, flag);
    }
    int GetValueVariant(const wchar_t* key, JsonVariant* variant) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueVariant(rest...); },
                             key, variant);
    }
    int SetValueVariant(const wchar_t* key, const JsonVariant* variant) override {
        return this->Forward([](auto& next, auto... rest) { return next.SetValueVariant(rest...); },
                             key, variant);
    }
    int GetValueVariantAlias(const wchar_t* key, JsonVariant* variant) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetValueVariantAlias(rest...); }, key,
            variant);
    }
    int SetValueVariantAlias(const wchar_t* key, const JsonVariant* variant) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.SetValueVariantAlias(rest...); }, key,
            variant);
    }
    int GetValueVariantEx(const wchar_t* key, JsonVariant* variant) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.GetValueVariantEx(rest...); }, key, variant);
    }
    int SetValueVariantEx(const wchar_t* key, const JsonVariant* variant) override {
        return this->Forward(
            [](auto& next, auto... rest) { return next.SetValueVariantEx(rest...); }, key, variant);
    }
    int GetValueBlob(const wchar_t* key, const void** data, uint32_t* length) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueBlob(rest...); },
                             key, data, length);
    }
    int SetValueBlob(const wchar_t* key, const uint8_t* data, uint32_t length) override {
        return this->Forward([](auto& next, auto... rest) { return next.SetValueBlob(rest...); },
                             key, data, length);
    }
    int GetValueType(const wchar_t* key, uint32_t* itemType) override {
        return this->Forward([](auto& next, auto... rest) { return next.GetValueType(rest...); },
                             key, itemType);
    }

protected:
    ~PackageOperations() = default;
};

}  // namespace QXJSON
