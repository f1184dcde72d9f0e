#include "CJsonPackageAdapter.h"

namespace QXJSON {

using Base = PackageOperations<AdapterLayer<PackageReserved, CRapidJsonPackage>>;

int CJsonPackageAdapter::Release() {
    ReleasePart(implementation);
    delete this;
    return kSuccess;
}

int CJsonPackageAdapter::HasError() { return Base::HasError() != 0 ? 1 : 0; }

int CJsonPackageAdapter::LoadString(const wchar_t* text) {
    Renew();
    return Base::LoadString(text);
}

int CJsonPackageAdapter::LoadFile(const wchar_t* fileName) {
    Renew();
    return Base::LoadFile(fileName);
}

void CJsonPackageAdapter::Renew() {
    if (implementation && implementation->IsNew()) return;
    CRapidJsonPackage* const renewed = NewImplementation();
    if (implementation && renewed) {
        uint32_t flag = 0;
        implementation->GetIgnoreCase(&flag);
        renewed->SetIgnoreCase(flag);
    }
    Replace(renewed);
}

}  // namespace QXJSON
