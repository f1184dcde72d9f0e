#include "PackageState.h"

#include <gtest/gtest.h>

#include <tuple>

#include "Messages.h"
#include "TempFile.h"

namespace support {
namespace {

auto Parts(const PackageOutcome& outcome) {
    return std::tie(outcome.result, outcome.code, outcome.offset, outcome.text);
}

auto Parts(const PackageState& state) {
    return std::tie(state.text, state.keys, state.code, state.offset, state.ignoreCase);
}

/// The beginning of a text that may be very long.
std::string Shortened(const std::wstring& text) {
    constexpr size_t kShown = 400;
    return testing::PrintToString(text.substr(0, kShown)) + (text.size() > kShown ? "..." : "");
}

}  // namespace

std::wstring PackageText(QXJSON::IJsonPackage& package) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package.GetText(&text));
    EXPECT_NE(nullptr, text);
    return text == nullptr ? L"" : text;
}

bool operator==(const PackageOutcome& a, const PackageOutcome& b) { return Parts(a) == Parts(b); }

std::ostream& operator<<(std::ostream& out, const PackageOutcome& outcome) {
    return out << "result " << outcome.result << ", code " << outcome.code << ", offset "
               << outcome.offset << ", text " << Shortened(outcome.text);
}

PackageOutcome PackageLoaded(const std::wstring& text) { return {1, 0, 0, text}; }
PackageOutcome PackageRefused(int code, uint64_t offset) { return {0, code, offset, L"{}"}; }
PackageOutcome PackageArrayRoot() { return {1, 22, 0, L"{}"}; }
PackageOutcome PackageEscaped() { return {-5, 0, 0, L"{}"}; }

PackageOutcome PackageOutcomeOf(QXJSON::IJsonPackage& package, int result) {
    const wchar_t* message = L"";
    size_t offset = ~size_t{0};
    EXPECT_EQ(1, package.GetErrorMessage(&message));
    EXPECT_EQ(1, package.GetErrorOffset(&offset));
    const int code = model::CodeOfMessage(message);
    EXPECT_EQ(code != 0 ? 1 : 0, package.HasError());
    return {result, code, offset, PackageText(package)};
}

PackageOutcome LoadPackageText(QXJSON::IJsonPackage& package, const std::wstring& text) {
    return PackageOutcomeOf(package, package.LoadString(text.c_str()));
}

PackageOutcome LoadPackageFile(QXJSON::IJsonPackage& package, const std::string& bytes) {
    const TempFile file(bytes);
    const PackageOutcome outcome = PackageOutcomeOf(package, package.LoadFile(file.Name()));
    EXPECT_TRUE(file.IsClosed());
    return outcome;
}

PackageOutcome LoadPackageIn(const LoadForm& form, QXJSON::IJsonPackage& package,
                             const std::wstring& text) {
    if (form.IsFile()) return LoadPackageFile(package, form.Bytes(text));
    return LoadPackageText(package, form.mark ? L"\xFEFF" + text : text);
}

const std::vector<LoadForm>& PackageForms() {
    static const std::vector<LoadForm> forms = [] {
        std::vector<LoadForm> some;
        for (const LoadForm& form : AllForms())
            if (form.route != Route::kBytes) some.push_back(form);
        return some;
    }();
    return forms;
}

Package LoadedPackage(const std::wstring& json) {
    Package package = NewPackage();
    EXPECT_EQ(1, package->LoadString(json.c_str())) << "could not load the test's document";
    return package;
}

bool operator==(const PackageState& a, const PackageState& b) { return Parts(a) == Parts(b); }

std::ostream& operator<<(std::ostream& out, const PackageState& state) {
    return out << state.keys << " keys, code " << state.code << ", offset " << state.offset
               << ", ignore-case flag " << state.ignoreCase << ", text " << Shortened(state.text);
}

PackageState PackageStateOf(QXJSON::IJsonPackage& package) {
    const PackageOutcome outcome = PackageOutcomeOf(package, 1);
    PackageState state = {outcome.text, ~0u, outcome.code, outcome.offset, ~0u};
    EXPECT_EQ(1, package.GetKeyCount(&state.keys));
    EXPECT_EQ(1, package.GetIgnoreCase(&state.ignoreCase));
    return state;
}

}  // namespace support
