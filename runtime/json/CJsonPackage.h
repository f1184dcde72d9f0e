#pragma once

#include "CJsonPackageAdapter.h"

namespace QXJSON {

/// The package that the runtime holds, and the bridge to the runtime's delegate, which is here
/// alone.
///
/// The bridge is not guarded: what a delegate throws belongs to the caller of the package.
class CJsonPackage final
    : public PackageOperations<FacadeLayer<IJsonPackage, CJsonPackageAdapter>> {
public:
    int Release() override;

    int SetDelegate(IJsonPackageDelegate* target) override;

    // The exports of this package as a delegate are those of its own delegate.
    int DelegateExport0(void* object, uint16_t a, uint32_t b, uint32_t c, uint32_t d, uint32_t e,
                        uint8_t f, const wchar_t** text) override;
    int DelegateExport1(void* object, uint8_t a, uint8_t b, uint8_t c, uint8_t d, uint8_t e,
                        const wchar_t** text) override;
    int DelegateExport2(void* object, uint16_t a, uint8_t b, uint8_t c,
                        const wchar_t** text) override;
    int DelegateExport3(void* object, uint8_t a, uint8_t b, const wchar_t** text) override;
    int DelegateExport4(void* object, uint8_t a, const wchar_t** text) override;
    int DelegateExport5(void* object, uint32_t a, const wchar_t** text) override;
    int DelegateImport(void* object, const wchar_t* text, uint8_t a, uint64_t b, uint16_t c,
                       uint32_t d, uint32_t e) override;

    int SetValueFromDelegate0(const wchar_t* key, void* object, uint16_t a, uint32_t b, uint32_t c,
                              uint32_t d, uint32_t e, uint8_t f) override;
    int SetValueFromDelegate1(const wchar_t* key, void* object, uint8_t a, uint8_t b, uint8_t c,
                              uint8_t d, uint8_t e) override;
    int SetValueFromDelegate2(const wchar_t* key, void* object, uint16_t a, uint8_t b,
                              uint8_t c) override;
    int SetValueFromDelegate3(const wchar_t* key, void* object, uint8_t a, uint8_t b) override;
    int SetValueFromDelegate4(const wchar_t* key, void* object, uint8_t a) override;
    int SetValueFromDelegate5(const wchar_t* key, void* object, uint32_t a) override;
    int GetValueToDelegate(const wchar_t* key, void* object, uint8_t a, uint64_t b, uint16_t c,
                           uint32_t d, uint32_t e) override;

private:
    template <class Export>
    int SetExported(const wchar_t* key, Export&& exportText);

    IJsonPackageDelegate* delegate = nullptr;  // the runtime's
};

}  // namespace QXJSON
