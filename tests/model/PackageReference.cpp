#include "PackageReference.h"

#include "OutputReference.h"

namespace model {
namespace {

using support::PackageOutcome;

constexpr int kDocumentEmpty = 1;
constexpr int kEmptyText = 21;
constexpr int kRootNotObject = 22;

}  // namespace

PackageOutcome ReferencePackage(const Document& read) {
    if (read.HasParseError()) {
        const int code = read.GetParseError();
        if (code == kDocumentEmpty) return support::PackageRefused(kEmptyText, 0);
        return support::PackageRefused(code, read.GetErrorOffset());
    }
    if (read.IsObject()) return support::PackageLoaded(ReferenceText(read, Numbers::kFinite));
    if (read.IsArray()) return support::PackageArrayRoot();
    return support::PackageRefused(kRootNotObject, 0);
}

PackageOutcome ReferencePackageText(const std::wstring& text) {
    return ReferencePackage(ReadText(kPackageLoads, text));
}

PackageOutcome ReferencePackageFile(const wchar_t* fileName) {
    return ReferencePackage(ReadFile(kPackageLoads, fileName));
}

std::string ReferencePackageBytes(const std::wstring& json, int encoding) {
    return ReferenceBytes(Parse(json), encoding, Numbers::kFinite);
}

}  // namespace model
