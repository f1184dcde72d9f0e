#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "JsonDll.h"
#include "LoadForm.h"

namespace support {

/// The whole package as compact text; the test fails when the package does not give it.
std::wstring PackageText(QXJSON::IJsonPackage& package);

/// All that a caller can see of a load: its result, what the error queries say and what the package
/// holds now.
struct PackageOutcome {
    int result;
    int code;  ///< told by the message's text
    uint64_t offset;
    std::wstring text;
};

bool operator==(const PackageOutcome& a, const PackageOutcome& b);
std::ostream& operator<<(std::ostream& out, const PackageOutcome& outcome);

/// A load that went well, and one that failed: nothing of what was there before is left.
PackageOutcome PackageLoaded(const std::wstring& text);
PackageOutcome PackageRefused(int code, uint64_t offset);
/// A load of an array, which goes well and leaves a message and no keys.
PackageOutcome PackageArrayRoot();
/// A load that the guard ended: nothing was recorded and there are no keys.
PackageOutcome PackageEscaped();

/// What a load that returned `result` left. Fails the test when HasError disagrees with the
/// message or when one of the queries fails.
PackageOutcome PackageOutcomeOf(QXJSON::IJsonPackage& package, int result);

/// The loads as the caller sees them. LoadPackageFile makes a file for the call.
PackageOutcome LoadPackageText(QXJSON::IJsonPackage& package, const std::wstring& text);
PackageOutcome LoadPackageFile(QXJSON::IJsonPackage& package, const std::string& bytes);
PackageOutcome LoadPackageIn(const LoadForm& form, QXJSON::IJsonPackage& package,
                             const std::wstring& text);

/// The forms in which a text can reach a package: UTF-16 text, and files in every encoding; each
/// with and without a mark.
const std::vector<LoadForm>& PackageForms();

/// A new package that has loaded `json`; the test fails when the load does.
Package LoadedPackage(const std::wstring& json);

/// All that a package shows of itself. Two that are equal before and after a call tell that the
/// call changed nothing.
struct PackageState {
    std::wstring text;
    uint32_t keys;
    int code;
    uint64_t offset;
    uint32_t ignoreCase;
};

bool operator==(const PackageState& a, const PackageState& b);
std::ostream& operator<<(std::ostream& out, const PackageState& state);

PackageState PackageStateOf(QXJSON::IJsonPackage& package);

/// The address of nothing: reading or writing there is an access violation.
template <class T>
T* NowhereInMemory() {
    return reinterpret_cast<T*>(uintptr_t{8});
}

}  // namespace support
