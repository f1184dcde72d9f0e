#include "Specimen.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "CatchFault.h"
#include "GeneratorOperationList.h"
#include "PackageOperationList.h"
#include "ParserOperationList.h"
#include "TempFile.h"

namespace support {
namespace {

const TempFile& LoadedFile() {
    static const TempFile file("{\"loaded\":[1,2]}");
    return file;
}

const TempFile& SavedFile() {
    static const TempFile file("");
    return file;
}

bool Replaces(const Operation& operation) {
    return operation.asks == Asks::kLoad || operation.asks == Asks::kNewRoot ||
           operation.name == "RemoveAll";
}

bool ReplacesEvenIfItFails(const Operation& operation) {
    const bool isGenerators = operation.outputs > 0;
    return operation.asks == Asks::kNewRoot || (operation.asks == Asks::kLoad && !isGenerators);
}

}  // namespace

const SpecimenFamily kSpecimenFamilies[] = {
    {"Parser", &ParserOperations, &NewParserSpecimen},
    {"Generator", &GeneratorOperations, &NewGeneratorSpecimen},
    {"Package", &PackageOperations, &NewPackageSpecimen},
};

bool CanOverwrite(const Operation& operation) {
    const bool stores = operation.asks == Asks::kStore || operation.asks == Asks::kGraft ||
                        operation.asks == Asks::kSetExported;
    return stores && operation.hasKey && operation.naming != NamedBy::kReference;
}

bool IsGood(const Operation& operation, const Answer& answer) {
    const bool saysNo = operation.name == "HasError" || operation.asks == Asks::kImport;
    return answer.result == (saysNo ? 0 : 1);
}

void ExpectSame(const std::wstring& expected, const std::wstring& actual, const char* what) {
    constexpr size_t kShown = 80;
    const auto [mine, theirs] =
        std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    const auto at = static_cast<size_t>(mine - expected.begin());
    EXPECT_TRUE(expected == actual)
        << what << ": at " << at << " it is " << testing::PrintToString(actual.substr(at, kShown))
        << " and not " << testing::PrintToString(expected.substr(at, kShown));
}

void ExpectWhole(Specimen& specimen, const Operation& operation, bool succeeded,
                 const std::wstring& before) {
    if (succeeded || ReplacesEvenIfItFails(operation)) {
        if (Replaces(operation)) specimen.Refill();
    } else {
        const std::wstring after = specimen.Seen();
        ExpectSame(before, after, "a failed call changed the object");
        specimen.ExpectNoNewHandle();
        if (Replaces(operation) && before != after) specimen.Refill();
    }
    specimen.ExpectUsable();
    EXPECT_EQ(0u, CatchFault([&] { EXPECT_EQ(1, specimen.Release()); }));
}

const wchar_t* LongText() {
    static const std::wstring text(40'000, L'x');
    return text.c_str();
}

const wchar_t* FileToLoad() { return LoadedFile().Name(); }
const wchar_t* FileToSave() { return SavedFile().Name(); }
bool AreFilesClosed() { return LoadedFile().IsClosed() && SavedFile().IsClosed(); }

}  // namespace support
