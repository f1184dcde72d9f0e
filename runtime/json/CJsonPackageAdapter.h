#pragma once

#include "Layers.h"
#include "PackageOperations.h"
#include "package/CRapidJsonPackage.h"

namespace QXJSON {

/// The package's adapter: every load starts from a brand-new implementation, which takes over
/// nothing but the ignore-case flag. What goes through a delegate is reserved for the facade.
class CJsonPackageAdapter final
    : public PackageOperations<AdapterLayer<PackageReserved, CRapidJsonPackage>> {
public:
    int Release() override;
    /// Exactly 1 or 0, whatever the implementation returns.
    int HasError() override;
    int LoadString(const wchar_t* text) override;
    int LoadFile(const wchar_t* fileName) override;

private:
    void Renew();
};

}  // namespace QXJSON
