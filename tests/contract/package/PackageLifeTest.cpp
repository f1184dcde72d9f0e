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

/// A guarded operation that meets a pointer to nothing. All go to kDocument.
struct Fault {
    const char* name;
    int (*call)(IJsonPackage& package);
};

constexpr const wchar_t* kDocument =
    L"{\"s\":\"QUJD\",\"n\":1,\"b\":true,\"o\":{\"x\":[1]},\"last\":null}";

const Fault kFaults[] = {
    {"GetErrorOffset", [](IJsonPackage& p) { return p.GetErrorOffset(NowhereInMemory<size_t>()); }},
    {"GetErrorMessage",
     [](IJsonPackage& p) { return p.GetErrorMessage(NowhereInMemory<const wchar_t*>()); }},
    {"GetKeyCount", [](IJsonPackage& p) { return p.GetKeyCount(NowhereInMemory<uint32_t>()); }},
    {"GetKeyName",
     [](IJsonPackage& p) { return p.GetKeyName(0, NowhereInMemory<const wchar_t*>()); }},
    {"ContainsKey", [](IJsonPackage& p) { return p.ContainsKey(L"s", NowhereInMemory<bool>()); }},
    {"GetValue",
     [](IJsonPackage& p) { return p.GetValue(L"o", NowhereInMemory<const wchar_t*>()); }},
    {"GetText", [](IJsonPackage& p) { return p.GetText(NowhereInMemory<const wchar_t*>()); }},
    {"GetBytes, data",
     [](IJsonPackage& p) {
         size_t length = 0;
         return p.GetBytes(NowhereInMemory<const void*>(), &length, 2);
     }},
    {"GetBytes, length",
     [](IJsonPackage& p) {
         const void* data = nullptr;
         return p.GetBytes(&data, NowhereInMemory<size_t>(), 2);
     }},
    {"GetIgnoreCase", [](IJsonPackage& p) { return p.GetIgnoreCase(NowhereInMemory<uint32_t>()); }},
    {"GetValueString",
     [](IJsonPackage& p) { return p.GetValueString(L"s", NowhereInMemory<const wchar_t*>()); }},
    {"GetValueNumber",
     [](IJsonPackage& p) { return p.GetValueNumber(L"n", NowhereInMemory<double>()); }},
    {"GetValueBoolean",
     [](IJsonPackage& p) { return p.GetValueBoolean(L"b", NowhereInMemory<bool>()); }},
    {"GetValueVariant",
     [](IJsonPackage& p) { return p.GetValueVariant(L"s", NowhereInMemory<JsonVariant>()); }},
    {"SetValueVariant",
     [](IJsonPackage& p) { return p.SetValueVariant(L"s", NowhereInMemory<JsonVariant>()); }},
    {"GetValueVariantAlias",
     [](IJsonPackage& p) { return p.GetValueVariantAlias(L"s", NowhereInMemory<JsonVariant>()); }},
    {"SetValueVariantAlias",
     [](IJsonPackage& p) { return p.SetValueVariantAlias(L"s", NowhereInMemory<JsonVariant>()); }},
    {"GetValueVariantEx",
     [](IJsonPackage& p) { return p.GetValueVariantEx(L"n", NowhereInMemory<JsonVariant>()); }},
    {"SetValueVariantEx",
     [](IJsonPackage& p) { return p.SetValueVariantEx(L"n", NowhereInMemory<JsonVariant>()); }},
    {"GetValueBlob, data",
     [](IJsonPackage& p) {
         uint32_t length = 0;
         return p.GetValueBlob(L"s", NowhereInMemory<const void*>(), &length);
     }},
    {"GetValueBlob, length",
     [](IJsonPackage& p) {
         const void* data = nullptr;
         return p.GetValueBlob(L"s", &data, NowhereInMemory<uint32_t>());
     }},
    {"GetValueType",
     [](IJsonPackage& p) { return p.GetValueType(L"s", NowhereInMemory<uint32_t>()); }},
    {"SetValueBlob",
     [](IJsonPackage& p) { return p.SetValueBlob(L"s", NowhereInMemory<uint8_t>(), 100); }},
};

TEST(PackageLife, AFaultAnswersMinusFiveAndThePackageGoesOn) {
    const Package package = LoadedPackage(kDocument);
    const PackageState before = PackageStateOf(*package);
    for (const Fault& fault : kFaults) {
        SCOPED_TRACE(fault.name);
        for (int i = 0; i < 10; ++i) EXPECT_EQ(-5, fault.call(*package));
        EXPECT_EQ(before, PackageStateOf(*package));
    }
    EXPECT_EQ(1, package->SetValueNumber(L"last", 2));
    double number = 0;
    EXPECT_EQ(1, package->GetValueNumber(L"LAST", &number));
    EXPECT_EQ(2, number);
}

TEST(PackageLife, AFileNameThatCannotBeReadFaults) {
    const Package package = LoadedPackage(kDocument);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(
            support::PackageEscaped(),
            support::PackageOutcomeOf(*package, package->LoadFile(NowhereInMemory<wchar_t>())));
    EXPECT_EQ(1, package->LoadString(kDocument));
    EXPECT_EQ(kDocument, PackageText(*package));
}

/// The system's own measure of a text's length answers 0 where there is nothing to read.
TEST(PackageLife, WideTextThatCannotBeReadIsEmpty) {
    const Package package = LoadedPackage(kDocument);
    EXPECT_EQ(support::PackageRefused(21, 0),
              support::PackageOutcomeOf(*package, package->LoadString(NowhereInMemory<wchar_t>())));
    EXPECT_EQ(0, package->SetValue(L"k", NowhereInMemory<wchar_t>(), true));
    EXPECT_EQ(L"{}", PackageText(*package));
}

}  // namespace
