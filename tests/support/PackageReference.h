#pragma once

#include <string>

#include "PackageState.h"

namespace support {

/// What the two loads are to do, modelled on RapidJSON as it is: its recursive reader behind its
/// own encoding detection, and the package's few rules around it written out one after the other.
/// Documents must not be nested deeper than the stack of the test carries.
PackageOutcome ReferencePackageText(const std::wstring& text);
PackageOutcome ReferencePackageFile(const wchar_t* fileName);

/// The document of a UTF-16 text as a plain RapidJSON writer writes it in encoding 0 to 3 of the
/// package, up to where that writer gives up. Without a mark.
std::string ReferencePackageBytes(const std::wstring& json, int encoding);

/// The number as a plain RapidJSON writer writes it.
std::wstring ReferenceNumber(double number);
std::wstring ReferenceNumber(int64_t number);

}  // namespace support
