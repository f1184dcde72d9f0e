// The life of a package: from the factory to Release, next to other packages, and after failures
// that the guard had to end.

#include <gtest/gtest.h>

#include "PackageState.h"

namespace {

using QXJSON::IJsonPackage;
using QXJSON::JsonVariant;
using support::LoadedPackage;
using support::NewPackage;
using support::NowhereInMemory;
using support::Package;
using support::PackageState;
using support::PackageStateOf;
using support::PackageText;

TEST(PackageLife, BeginsEmpty) {
    const Package package = NewPackage();
    ASSERT_NE(nullptr, package);
    EXPECT_EQ((PackageState{L"{}", 0, 0, 0, 1}), PackageStateOf(*package));
}

TEST(PackageLife, ReleaseReturnsOne) {
    const auto create = support::Export<IJsonPackage*()>("CreateJsonPackageInterface");
    ASSERT_NE(nullptr, create);
    EXPECT_EQ(1, create()->Release());
    for (const wchar_t* text :
         {L"{\"a\":[1,{\"b\":\"text\"}]}", L"[1]", L"{\"a\":[1,{\"b\":\"te"}) {
        IJsonPackage* package = create();
        package->LoadString(text);
        EXPECT_EQ(1, package->SetValueString(L"k", L"a text of some length"));
        const uint8_t bytes[2000] = {};
        EXPECT_EQ(1, package->SetValueBlob(L"b", bytes, sizeof bytes));
        PackageText(*package);
        EXPECT_EQ(1, package->Release());
    }
}

TEST(PackageLife, PackagesAreIndependent) {
    const Package first = NewPackage();
    const Package second = NewPackage();
    ASSERT_NE(first.get(), second.get());
    EXPECT_EQ(1, first->LoadString(L"{\"a\":1}"));
    EXPECT_EQ(0, second->LoadString(L"{\"a\""));
    EXPECT_EQ(1, second->SetIgnoreCase(0));
    EXPECT_EQ(1, second->SetValueString(L"s", L"second"));
    const wchar_t* text = nullptr;
    ASSERT_EQ(1, second->GetText(&text));
    {
        const Package third = LoadedPackage(L"{\"c\":3}");
        EXPECT_EQ(1, third->RemoveAll());
    }
    EXPECT_EQ((PackageState{L"{\"a\":1}", 1, 0, 0, 1}), PackageStateOf(*first));
    EXPECT_STREQ(L"{\"s\":\"second\"}", text);
    EXPECT_EQ((PackageState{L"{\"s\":\"second\"}", 1, 5, 8, 0}), PackageStateOf(*second));
}

// ---- Faults ------------------------------------------------------------------------------------

constexpr const wchar_t* kDocument =
    L"{\"s\":\"QUJD\",\"n\":1,\"b\":true,\"o\":{\"x\":[1]},\"last\":null}";

TEST(PackageLife, AFileNameThatCannotBeReadFaults) {
    const Package package = LoadedPackage(kDocument);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(
            support::PackageEscaped(),
            support::PackageOutcomeOf(*package, package->LoadFile(NowhereInMemory<wchar_t>())));
    EXPECT_EQ(1, package->LoadString(kDocument));
    EXPECT_EQ(kDocument, PackageText(*package));
}

/// The system's own measure of a text's length returns 0 where there is nothing to read.
TEST(PackageLife, WideTextThatCannotBeReadIsEmpty) {
    const Package package = LoadedPackage(kDocument);
    EXPECT_EQ(support::PackageRefused(21, 0),
              support::PackageOutcomeOf(*package, package->LoadString(NowhereInMemory<wchar_t>())));
    EXPECT_EQ(0, package->SetValue(L"k", NowhereInMemory<wchar_t>(), true));
    EXPECT_EQ(L"{}", PackageText(*package));
}

}  // namespace
