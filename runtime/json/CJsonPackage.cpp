#include "CJsonPackage.h"

namespace QXJSON {

int CJsonPackage::Release() {
    ReleasePart(adapter);
    delete this;
    return kSuccess;
}

int CJsonPackage::SetDelegate(IJsonPackageDelegate* target) {
    delegate = target;
    return kSuccess;
}

// ---- Exports -----------------------------------------------------------------------------------

int CJsonPackage::DelegateExport0(void* object, uint16_t a, uint32_t b, uint32_t c, uint32_t d,
                                  uint32_t e, uint8_t f, const wchar_t** text) {
    return delegate ? delegate->DelegateExport0(object, a, b, c, d, e, f, text) : kPlainFailure;
}

int CJsonPackage::DelegateExport1(void* object, uint8_t a, uint8_t b, uint8_t c, uint8_t d,
                                  uint8_t e, const wchar_t** text) {
    return delegate ? delegate->DelegateExport1(object, a, b, c, d, e, text) : kPlainFailure;
}

int CJsonPackage::DelegateExport2(void* object, uint16_t a, uint8_t b, uint8_t c,
                                  const wchar_t** text) {
    return delegate ? delegate->DelegateExport2(object, a, b, c, text) : kPlainFailure;
}

int CJsonPackage::DelegateExport3(void* object, uint8_t a, uint8_t b, const wchar_t** text) {
    return delegate ? delegate->DelegateExport3(object, a, b, text) : kPlainFailure;
}

int CJsonPackage::DelegateExport4(void* object, uint8_t a, const wchar_t** text) {
    return delegate ? delegate->DelegateExport4(object, a, text) : kPlainFailure;
}

int CJsonPackage::DelegateExport5(void* object, uint32_t a, const wchar_t** text) {
    return delegate ? delegate->DelegateExport5(object, a, text) : kPlainFailure;
}

/// A package has no objects to fill: imports end here.
int CJsonPackage::DelegateImport(void*, const wchar_t*, uint8_t, uint64_t, uint16_t, uint32_t,
                                 uint32_t) {
    return kPlainFailure;
}

// ---- Values by way of the delegate -------------------------------------------------------------

/// Sets a key to the JSON that an export gives.
template <class Export>
int CJsonPackage::SetExported(const wchar_t* key, Export&& exportText) {
    const wchar_t* text = nullptr;
    const int result = exportText(&text);
    return result == kSuccess ? SetValue(key, text, /*valueIsJson=*/true) : result;
}

int CJsonPackage::SetValueFromDelegate0(const wchar_t* key, void* object, uint16_t a, uint32_t b,
                                        uint32_t c, uint32_t d, uint32_t e, uint8_t f) {
    return SetExported(
        key, [&](const wchar_t** text) { return DelegateExport0(object, a, b, c, d, e, f, text); });
}

int CJsonPackage::SetValueFromDelegate1(const wchar_t* key, void* object, uint8_t a, uint8_t b,
                                        uint8_t c, uint8_t d, uint8_t e) {
    return SetExported(
        key, [&](const wchar_t** text) { return DelegateExport1(object, a, b, c, d, e, text); });
}

int CJsonPackage::SetValueFromDelegate2(const wchar_t* key, void* object, uint16_t a, uint8_t b,
                                        uint8_t c) {
    return SetExported(
        key, [&](const wchar_t** text) { return DelegateExport2(object, a, b, c, text); });
}

int CJsonPackage::SetValueFromDelegate3(const wchar_t* key, void* object, uint8_t a, uint8_t b) {
    return SetExported(key,
                       [&](const wchar_t** text) { return DelegateExport3(object, a, b, text); });
}

int CJsonPackage::SetValueFromDelegate4(const wchar_t* key, void* object, uint8_t a) {
    return SetExported(key, [&](const wchar_t** text) { return DelegateExport4(object, a, text); });
}

int CJsonPackage::SetValueFromDelegate5(const wchar_t* key, void* object, uint32_t a) {
    return SetExported(key, [&](const wchar_t** text) { return DelegateExport5(object, a, text); });
}

int CJsonPackage::GetValueToDelegate(const wchar_t* key, void* object, uint8_t a, uint64_t b,
                                     uint16_t c, uint32_t d, uint32_t e) {
    const wchar_t* text = nullptr;
    const int result = GetValue(key, &text);
    if (result != kSuccess || !delegate) return result;
    return delegate->DelegateImport(object, text, a, b, c, d, e);
}

}  // namespace QXJSON
