#pragma once

#include <string>

#include "PackageState.h"
#include "PlainReader.h"

namespace model {

/// What a load must leave of a document that was read by the package's rules (PlainReader.h).
support::PackageOutcome ReferencePackage(const Document& read);

/// What the two loads must do.
support::PackageOutcome ReferencePackageText(const std::wstring& text);
support::PackageOutcome ReferencePackageFile(const wchar_t* fileName);

/// The document of a UTF-16 text as a plain RapidJSON writer writes it in encoding 0 to 3 of the
/// package, up to where that writer stops. Without a mark.
std::string ReferencePackageBytes(const std::wstring& json, int encoding);

}  // namespace model
