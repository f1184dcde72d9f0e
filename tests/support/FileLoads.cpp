#include "FileLoads.h"

#include <gtest/gtest.h>

#include "JsonDll.h"
#include "LoadOutcome.h"
#include "OutputForm.h"
#include "PackageState.h"

namespace support {
namespace {

FileOutcome LoadParser(const wchar_t* fileName) {
    const Parser parser = NewParser();
    const auto outcome = OutcomeOf(*parser, parser->LoadJsonFile(fileName));
    EXPECT_EQ(1, parser->LoadJsonString(L"[1]"));
    return {outcome.result, outcome.code, outcome.offset, outcome.tree};
}

FileOutcome LoadPackage(const wchar_t* fileName) {
    const Package package = NewPackage();
    const auto outcome = PackageOutcomeOf(*package, package->LoadFile(fileName));
    EXPECT_EQ(1, package->SetValueNumber(L"k", 1));
    return {outcome.result, outcome.code, outcome.offset, outcome.text};
}

FileOutcome LoadGenerator(const wchar_t* fileName) {
    const Generator generator = GeneratorOf(L"[\"before\"]");
    uint32_t handle = 0;
    const int result = generator->LoadJsonFile(fileName, &handle);
    const FileOutcome outcome = {result, 0, 0, JsonOf(*generator)};
    EXPECT_EQ(1, generator->CreateRootArray(&handle));
    return outcome;
}

FileOutcome GraftIntoGenerator(const wchar_t* fileName) {
    const Generator generator = GeneratorOf(L"[\"before\"]");
    uint32_t handle = 0;
    const int result = generator->AddArrayItemJsonFile(1, fileName, &handle);
    const FileOutcome outcome = {result, 0, 0, JsonOf(*generator)};
    EXPECT_EQ(1, generator->AddArrayItemInt(1, 2, &handle));
    return outcome;
}

}  // namespace

const FileLoad kFileLoads[4] = {
    {"parser", &LoadParser, true},
    {"package", &LoadPackage, true},
    {"generator", &LoadGenerator, false},
    {"graft", &GraftIntoGenerator, false},
};

bool operator==(const FileOutcome& a, const FileOutcome& b) {
    return a.result == b.result && a.code == b.code && a.offset == b.offset && a.text == b.text;
}

std::ostream& operator<<(std::ostream& out, const FileOutcome& outcome) {
    return out << outcome.result << ", code " << outcome.code << " at " << outcome.offset << ", "
               << testing::PrintToString(outcome.text);
}

}  // namespace support
