#pragma once

#include "../IJsonPackage.h"
#include "common/ResultCodes.h"

// The operation, not the macro of <windows.h>.
#undef LoadString

namespace QXJSON {

/// The operations of IJsonPackage that only the facade has: everything that goes through the
/// delegate. The layers that it calls return 0 for them.
class PackageReserved : public IJsonPackage {
    // LCOV_EXCL_START: no call of a host comes this far; unit tests call it directly
public:
    int DelegateExport0(void*, uint16_t, uint32_t, uint32_t, uint32_t, uint32_t, uint8_t,
                        const wchar_t**) override {
        return kPlainFailure;
    }
    int DelegateExport1(void*, uint8_t, uint8_t, uint8_t, uint8_t, uint8_t,
                        const wchar_t**) override {
        return kPlainFailure;
    }
    int DelegateExport2(void*, uint16_t, uint8_t, uint8_t, const wchar_t**) override {
        return kPlainFailure;
    }
    int DelegateExport3(void*, uint8_t, uint8_t, const wchar_t**) override { return kPlainFailure; }
    int DelegateExport4(void*, uint8_t, const wchar_t**) override { return kPlainFailure; }
    int DelegateExport5(void*, uint32_t, const wchar_t**) override { return kPlainFailure; }
    int DelegateImport(void*, const wchar_t*, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        return kPlainFailure;
    }
    int SetDelegate(IJsonPackageDelegate*) override { return kPlainFailure; }
    int SetValueFromDelegate5(const wchar_t*, void*, uint32_t) override { return kPlainFailure; }
    int SetValueFromDelegate0(const wchar_t*, void*, uint16_t, uint32_t, uint32_t, uint32_t,
                              uint32_t, uint8_t) override {
        return kPlainFailure;
    }
    int SetValueFromDelegate1(const wchar_t*, void*, uint8_t, uint8_t, uint8_t, uint8_t,
                              uint8_t) override {
        return kPlainFailure;
    }
    int SetValueFromDelegate2(const wchar_t*, void*, uint16_t, uint8_t, uint8_t) override {
        return kPlainFailure;
    }
    int SetValueFromDelegate3(const wchar_t*, void*, uint8_t, uint8_t) override {
        return kPlainFailure;
    }
    int SetValueFromDelegate4(const wchar_t*, void*, uint8_t) override { return kPlainFailure; }
    int GetValueToDelegate(const wchar_t*, void*, uint8_t, uint64_t, uint16_t, uint32_t,
                           uint32_t) override {
        return kPlainFailure;
    }

protected:
    ~PackageReserved() = default;
    // LCOV_EXCL_STOP
};

}  // namespace QXJSON
