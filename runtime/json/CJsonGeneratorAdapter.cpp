#include "CJsonGeneratorAdapter.h"

#include "common/values/WholeNumber.h"

namespace QXJSON {

using Base = GeneratorOperations<AdapterLayer<IJsonGenerator, CRapidJsonGenerator>>;

int CJsonGeneratorAdapter::ResetRootObjectValue(uint64_t* value) {
    Renew();
    return Base::ResetRootObjectValue(value);
}

int CJsonGeneratorAdapter::CreateRootObject(uint32_t* handle) {
    Renew();
    return Base::CreateRootObject(handle);
}

int CJsonGeneratorAdapter::ResetRootArrayValue(uint64_t* value) {
    Renew();
    return Base::ResetRootArrayValue(value);
}

int CJsonGeneratorAdapter::CreateRootArray(uint32_t* handle) {
    Renew();
    return Base::CreateRootArray(handle);
}

int CJsonGeneratorAdapter::AddObjectValueDouble(uint64_t parent, const wchar_t* key, double number,
                                                uint64_t* value) {
    if (const auto whole = AsWholeNumber(number))
        return AddObjectValueInt64(parent, key, *whole, value);
    return Base::AddObjectValueDouble(parent, key, number, value);
}

int CJsonGeneratorAdapter::AddArrayValueDouble(uint64_t parent, double number, uint64_t* value) {
    if (const auto whole = AsWholeNumber(number)) return AddArrayValueInt64(parent, *whole, value);
    return Base::AddArrayValueDouble(parent, number, value);
}

int CJsonGeneratorAdapter::AddObjectValueFloat(uint64_t parent, const wchar_t* key, float number,
                                               uint64_t* value) {
    if (const auto whole = AsWholeNumber(number))
        return AddObjectValueInt64(parent, key, *whole, value);
    return Base::AddObjectValueFloat(parent, key, number, value);
}

int CJsonGeneratorAdapter::AddArrayValueFloat(uint64_t parent, float number, uint64_t* value) {
    if (const auto whole = AsWholeNumber(number)) return AddArrayValueInt64(parent, *whole, value);
    return Base::AddArrayValueFloat(parent, number, value);
}

int CJsonGeneratorAdapter::AddObjectItemDouble(int32_t parent, const wchar_t* key, double number,
                                               uint32_t* handle) {
    if (const auto whole = AsWholeNumber(number))
        return AddObjectItemInt64(parent, key, *whole, handle);
    return Base::AddObjectItemDouble(parent, key, number, handle);
}

int CJsonGeneratorAdapter::AddArrayItemDouble(int32_t parent, double number, uint32_t* handle) {
    if (const auto whole = AsWholeNumber(number)) return AddArrayItemInt64(parent, *whole, handle);
    return Base::AddArrayItemDouble(parent, number, handle);
}

int CJsonGeneratorAdapter::AddObjectItemFloat(int32_t parent, const wchar_t* key, float number,
                                              uint32_t* handle) {
    if (const auto whole = AsWholeNumber(number))
        return AddObjectItemInt64(parent, key, *whole, handle);
    return Base::AddObjectItemFloat(parent, key, number, handle);
}

int CJsonGeneratorAdapter::AddArrayItemFloat(int32_t parent, float number, uint32_t* handle) {
    if (const auto whole = AsWholeNumber(number)) return AddArrayItemInt64(parent, *whole, handle);
    return Base::AddArrayItemFloat(parent, number, handle);
}

int CJsonGeneratorAdapter::Release() {
    ReleasePart(implementation);
    delete this;
    return kSuccess;
}

}  // namespace QXJSON
