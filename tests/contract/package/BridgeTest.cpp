// The bridge to a delegate: what reaches it, what becomes of its results and texts, and packages
// that are delegates of packages.

#include <gtest/gtest.h>

#include "PackageDelegate.h"
#include "PackageState.h"

namespace {

using QXJSON::IJsonPackage;
using support::DelegateCall;
using support::ExportSlot;
using support::ExportSlots;
using support::ImportCall;
using support::ImportFrom;
using support::LoadedPackage;
using support::NewPackage;
using support::Package;
using support::PackageState;
using support::PackageStateOf;
using support::PackageText;
using support::RecordingDelegate;

using Calls = std::vector<DelegateCall>;

constexpr int kFailures[] = {0, -5, -1, -10, 2, 17};

// ---- Exports -----------------------------------------------------------------------------------

TEST(PackageBridge, ExportsAreForwardedUnchanged) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    RecordingDelegate delegate(L"any text, which nobody reads");
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    for (const ExportSlot& slot : ExportSlots())
        for (const int answer : {1, 0, -5, 17}) {
            SCOPED_TRACE(slot.name + " answers " + std::to_string(answer));
            delegate.answer = answer;
            delegate.calls.clear();
            delegate.outputs.clear();
            const wchar_t* text = L"before";
            EXPECT_EQ(answer, slot.Forward(*package, &text));
            EXPECT_EQ(Calls{slot.call}, delegate.calls);
            EXPECT_EQ(std::vector<const wchar_t**>{&text}, delegate.outputs);
            EXPECT_EQ(delegate.text, text);
        }
    EXPECT_EQ(L"{\"a\":1}", PackageText(*package));
}

TEST(PackageBridge, AMissingOutputIsForwardedToo) {
    const Package package = NewPackage();
    RecordingDelegate delegate(L"{}");
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    for (const ExportSlot& slot : ExportSlots()) {
        delegate.outputs.clear();
        EXPECT_EQ(1, slot.Forward(*package, nullptr)) << slot.name;
        EXPECT_EQ(std::vector<const wchar_t**>{nullptr}, delegate.outputs);
    }
}

TEST(PackageBridge, TheImportOfAPackageAnswersZero) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    RecordingDelegate delegate;
    EXPECT_EQ(0, package->DelegateImport(support::SomeObject(), L"{}", 1, 2, 3, 4, 5));
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    EXPECT_EQ(0, package->DelegateImport(support::SomeObject(), L"{}", 1, 2, 3, 4, 5));
    EXPECT_EQ(0, package->DelegateImport(nullptr, nullptr, 0, 0, 0, 0, 0));
    EXPECT_EQ(Calls{}, delegate.calls);
    EXPECT_EQ(L"{\"a\":1}", PackageText(*package));
}

// ---- Setting keys from exports -----------------------------------------------------------------

TEST(PackageBridge, SettingPassesAllArgumentsOn) {
    for (const ExportSlot& slot : ExportSlots()) {
        SCOPED_TRACE(slot.name);
        const Package package = LoadedPackage(L"{\"a\":1,\"Key\":2,\"z\":3}");
        RecordingDelegate delegate(L"{ \"x\" : [ 1 ] }");
        EXPECT_EQ(1, package->SetDelegate(&delegate));
        EXPECT_EQ(1, slot.Set(*package, L"kEY"));
        EXPECT_EQ(1, slot.Set(*package, L"new"));
        EXPECT_EQ((Calls{slot.call, slot.call}), delegate.calls);
        EXPECT_EQ((std::vector<const wchar_t*>{nullptr, nullptr}), delegate.foundThere);
        EXPECT_EQ(L"{\"a\":1,\"Key\":{\"x\":[1]},\"z\":3,\"new\":{\"x\":[1]}}",
                  PackageText(*package));
    }
}

TEST(PackageBridge, AnyAnswerButOneIsPassedBackAndStoresNothing) {
    for (const ExportSlot& slot : ExportSlots())
        for (const int answer : kFailures) {
            SCOPED_TRACE(slot.name + " answers " + std::to_string(answer));
            const Package package = LoadedPackage(L"{\"Key\":1}");
            const PackageState before = PackageStateOf(*package);
            RecordingDelegate delegate(L"{\"x\":1}");
            delegate.answer = answer;
            EXPECT_EQ(1, package->SetDelegate(&delegate));
            EXPECT_EQ(answer, slot.Set(*package, L"Key"));
            EXPECT_EQ(answer, slot.Set(*package, L"new"));
            // The result comes first, the key is not looked at.
            EXPECT_EQ(answer, slot.Set(*package, nullptr));
            delegate.text = nullptr;
            EXPECT_EQ(answer, slot.Set(*package, L"Key"));
            EXPECT_EQ(4u, delegate.calls.size());
            EXPECT_EQ(before, PackageStateOf(*package));
        }
}

TEST(PackageBridge, TheTextMustBeAnObjectOrArray) {
    struct Row {
        const wchar_t* text;
        int result;
    };
    const Row rows[] = {
        {L"{\"x\":1}", 1}, {L"[1,2]", 1}, {L"5", 0},     {L"\"text\"", 0},
        {L"true", 0},      {L"null", 0},  {L"[1,", 0},   {L"", 0},
        {L"   ", 0},       {L"text", 0},  {L"[NaN]", 0}, {nullptr, -4},
    };
    for (const ExportSlot& slot : ExportSlots())
        for (const Row& row : rows) {
            SCOPED_TRACE(slot.name + testing::PrintToString(row.text));
            const Package package = LoadedPackage(L"{\"a\":1}");
            RecordingDelegate delegate(row.text);
            EXPECT_EQ(1, package->SetDelegate(&delegate));
            EXPECT_EQ(row.result, slot.Set(*package, L"k"));
            EXPECT_EQ(-1, slot.Set(*package, nullptr));
            EXPECT_EQ((Calls{slot.call, slot.call}), delegate.calls);
            EXPECT_EQ(
                row.result == 1 ? std::wstring(L"{\"a\":1,\"k\":") + row.text + L"}" : L"{\"a\":1}",
                PackageText(*package));
        }
}

TEST(PackageBridge, AnExportThatGivesNoTextAtAll) {
    for (const ExportSlot& slot : ExportSlots()) {
        const Package package = LoadedPackage(L"{\"a\":1}");
        RecordingDelegate delegate(L"{}");
        delegate.writesText = false;
        EXPECT_EQ(1, package->SetDelegate(&delegate));
        EXPECT_EQ(-4, slot.Set(*package, L"a")) << slot.name;
        EXPECT_EQ(L"{\"a\":1}", PackageText(*package));
    }
}

TEST(PackageBridge, TheDelegatesTextIsCopied) {
    const Package package = NewPackage();
    std::wstring text = L"{\"a name\":[\"a text of some length\",\"s\"]}";
    const std::wstring copy = text;
    RecordingDelegate delegate(text.c_str());
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    for (const ExportSlot& slot : ExportSlots()) {
        text = copy;
        EXPECT_EQ(1, slot.Set(*package, L"k"));
        text.assign(text.size(), L'#');
        EXPECT_EQ(L"{\"k\":" + copy + L"}", PackageText(*package));
    }
}

// ---- Handing values to the import --------------------------------------------------------------

TEST(PackageBridge, ImportsReceiveTheValueAndAllArguments) {
    struct Row {
        const wchar_t* value;
        const wchar_t* text;
    };
    const Row rows[] = {
        {L"\"a \\\"text\\\"\\n\"", L"a \"text\"\n"},
        {L"\"\"", L""},
        {L"\"\xD834\xDD1E\x4E2D\"", L"\xD834\xDD1E\x4E2D"},
        {L"{ \"x\" : [ 1 , \"\\n\" ] }", L"{\"x\":[1,\"\\n\"]}"},
        {L"[ ]", L"[]"},
    };
    for (const Row& row : rows)
        for (const int answer : {1, 0, -5, 17}) {
            SCOPED_TRACE(testing::PrintToString(row.value) + ", answer " + std::to_string(answer));
            const Package package = LoadedPackage(std::wstring(L"{\"Key\":") + row.value + L"}");
            const PackageState before = PackageStateOf(*package);
            RecordingDelegate delegate;
            delegate.answer = answer;
            EXPECT_EQ(1, package->SetDelegate(&delegate));
            EXPECT_EQ(answer, ImportFrom(*package, L"kEY"));
            EXPECT_EQ(Calls{ImportCall(row.text)}, delegate.calls);
            EXPECT_EQ(before, PackageStateOf(*package));
        }
}

struct NotImported {
    const wchar_t* key;
    int result;
};

constexpr NotImported kNotImported[] = {{nullptr, -1}, {L"missing", -1}, {L"", -1},
                                        {L"n", -3},    {L"b", -3},       {L"x", -3}};

constexpr const wchar_t* kKinds = L"{\"n\":1,\"b\":true,\"x\":null,\"s\":\"text\",\"o\":{}}";

TEST(PackageBridge, WhatGetValueRefusesDoesNotReachTheImport) {
    const Package package = LoadedPackage(kKinds);
    RecordingDelegate delegate;
    delegate.answer = 17;
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    for (const NotImported& row : kNotImported)
        EXPECT_EQ(row.result, ImportFrom(*package, row.key)) << testing::PrintToString(row.key);
    EXPECT_EQ(Calls{}, delegate.calls);
}

// ---- Without a delegate ------------------------------------------------------------------------

void ExpectNoDelegate(IJsonPackage& package) {
    const PackageState before = PackageStateOf(package);
    for (const ExportSlot& slot : ExportSlots()) {
        SCOPED_TRACE(slot.name);
        const wchar_t* text = L"untouched";
        EXPECT_EQ(0, slot.Forward(package, &text));
        EXPECT_STREQ(L"untouched", text);
        EXPECT_EQ(0, slot.Forward(package, nullptr));
        for (const wchar_t* key : {L"s", L"new", static_cast<const wchar_t*>(nullptr)})
            EXPECT_EQ(0, slot.Set(package, key));
    }
    for (const NotImported& row : kNotImported)
        EXPECT_EQ(row.result, ImportFrom(package, row.key)) << testing::PrintToString(row.key);
    EXPECT_EQ(1, ImportFrom(package, L"s"));
    EXPECT_EQ(1, ImportFrom(package, L"o"));
    EXPECT_EQ(before, PackageStateOf(package));
}

TEST(PackageBridge, BeforeADelegateIsSetAndAfterItIsTakenAway) {
    const Package package = LoadedPackage(kKinds);
    ExpectNoDelegate(*package);
    EXPECT_EQ(1, package->SetDelegate(nullptr));
    ExpectNoDelegate(*package);
    RecordingDelegate delegate(L"[]");
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    EXPECT_EQ(1, ImportFrom(*package, L"s"));
    EXPECT_EQ(1u, delegate.calls.size());
    EXPECT_EQ(1, package->SetDelegate(nullptr));
    ExpectNoDelegate(*package);
    EXPECT_EQ(1u, delegate.calls.size());
}

TEST(PackageBridge, TheLastDelegateSetIsTheOneThatIsCalled) {
    const Package package = NewPackage();
    RecordingDelegate first(L"[1]");
    RecordingDelegate second(L"[2]");
    EXPECT_EQ(1, package->SetDelegate(&first));
    EXPECT_EQ(1, package->SetDelegate(&second));
    EXPECT_EQ(1, ExportSlots()[0].Set(*package, L"k"));
    EXPECT_EQ(L"{\"k\":[2]}", PackageText(*package));
    EXPECT_EQ(Calls{}, first.calls);
    EXPECT_EQ(1u, second.calls.size());
}

/// The delegate belongs to the package, not to what it holds.
TEST(PackageBridge, TheDelegateOutlivesLoads) {
    const Package package = NewPackage();
    RecordingDelegate delegate(L"[1]");
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    for (const wchar_t* text : {L"{\"a\":1}", L"[1]", L"{\"a\"", L""}) {
        package->LoadString(text);
        EXPECT_EQ(1, package->RemoveAll());
        for (const ExportSlot& slot : ExportSlots()) EXPECT_EQ(1, slot.Set(*package, L"k"));
        EXPECT_EQ(L"{\"k\":[1]}", PackageText(*package));
        EXPECT_EQ(1, ImportFrom(*package, L"k"));
    }
    EXPECT_EQ(4 * (ExportSlots().size() + 1), delegate.calls.size());
}

TEST(PackageBridge, ReleaseLeavesTheDelegateAlone) {
    RecordingDelegate delegate(L"[1]");
    {
        const Package package = NewPackage();
        EXPECT_EQ(1, package->SetDelegate(&delegate));
    }
    EXPECT_EQ(Calls{}, delegate.calls);
    const Package other = NewPackage();
    EXPECT_EQ(1, other->SetDelegate(&delegate));
    EXPECT_EQ(1, ExportSlots()[5].Set(*other, L"k"));
    EXPECT_EQ(1u, delegate.calls.size());
}

// ---- A delegate that calls back ----------------------------------------------------------------

TEST(PackageBridge, AnExportMayChangeThePackage) {
    for (const ExportSlot& slot : ExportSlots()) {
        SCOPED_TRACE(slot.name);
        const Package package = LoadedPackage(L"{\"Key\":1}");
        RecordingDelegate delegate(L"[1]");
        delegate.during = [&] {
            EXPECT_EQ(1, package->RemoveAll());
            EXPECT_EQ(1, package->SetValueNumber(L"inner", 2));
        };
        EXPECT_EQ(1, package->SetDelegate(&delegate));
        EXPECT_EQ(1, slot.Set(*package, L"Key"));
        EXPECT_EQ(L"{\"inner\":2,\"Key\":[1]}", PackageText(*package));
    }
}

TEST(PackageBridge, AnImportMayChangeThePackage) {
    const Package package = LoadedPackage(L"{\"s\":\"text\",\"o\":{}}");
    RecordingDelegate delegate;
    delegate.during = [&] { EXPECT_EQ(1, package->LoadString(L"{\"n\":1}")); };
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    EXPECT_EQ(1, ImportFrom(*package, L"s"));
    EXPECT_EQ(L"{\"n\":1}", PackageText(*package));
}

// ---- Packages as delegates ---------------------------------------------------------------------

TEST(PackageBridge, AChainOfPackagesForwardsToTheLastDelegate) {
    for (const ExportSlot& slot : ExportSlots()) {
        SCOPED_TRACE(slot.name);
        const Package first = LoadedPackage(L"{\"a\":1}");
        const Package second = LoadedPackage(L"{\"a\":2}");
        const Package third = LoadedPackage(L"{\"a\":3}");
        EXPECT_EQ(1, first->SetDelegate(second.get()));
        EXPECT_EQ(1, second->SetDelegate(third.get()));

        const wchar_t* text = L"untouched";
        EXPECT_EQ(0, slot.Forward(*first, &text));
        EXPECT_STREQ(L"untouched", text);
        EXPECT_EQ(0, slot.Set(*first, L"k"));

        RecordingDelegate delegate(L"{\"x\":1}");
        EXPECT_EQ(1, third->SetDelegate(&delegate));
        EXPECT_EQ(1, slot.Forward(*first, &text));
        EXPECT_EQ(delegate.text, text);
        EXPECT_EQ(1, slot.Set(*first, L"k"));
        EXPECT_EQ((Calls{slot.call, slot.call}), delegate.calls);
        delegate.answer = -17;
        EXPECT_EQ(-17, slot.Set(*first, L"l"));
        EXPECT_EQ(L"{\"a\":1,\"k\":{\"x\":1}}", PackageText(*first));
        EXPECT_EQ(L"{\"a\":2}", PackageText(*second));
        EXPECT_EQ(L"{\"a\":3}", PackageText(*third));
    }
}

TEST(PackageBridge, ImportsEndAtTheFirstPackage) {
    const Package first = LoadedPackage(kKinds);
    const Package second = NewPackage();
    RecordingDelegate delegate;
    EXPECT_EQ(1, first->SetDelegate(second.get()));
    EXPECT_EQ(1, second->SetDelegate(&delegate));
    EXPECT_EQ(0, ImportFrom(*first, L"s"));
    EXPECT_EQ(0, ImportFrom(*first, L"o"));
    EXPECT_EQ(-1, ImportFrom(*first, L"missing"));
    EXPECT_EQ(Calls{}, delegate.calls);
}

/// Two packages that are each other's delegates would pass an export to and fro; all else works.
TEST(PackageBridge, PackagesInACircle) {
    const Package first = LoadedPackage(kKinds);
    const Package second = LoadedPackage(kKinds);
    EXPECT_EQ(1, first->SetDelegate(second.get()));
    EXPECT_EQ(1, second->SetDelegate(first.get()));
    for (IJsonPackage* package : {first.get(), second.get()}) {
        EXPECT_EQ(0, ImportFrom(*package, L"s"));
        EXPECT_EQ(-3, ImportFrom(*package, L"n"));
        EXPECT_EQ(1, package->SetValue(L"k", L"[1]", true));
        EXPECT_EQ(1, package->LoadString(kKinds));
    }
    EXPECT_EQ(1, second->SetDelegate(nullptr));
    EXPECT_EQ(0, ExportSlots()[0].Set(*first, L"k"));
    EXPECT_EQ(1, first->SetDelegate(first.get()));
    EXPECT_EQ(0, ImportFrom(*first, L"s"));
    EXPECT_EQ(kKinds, PackageText(*first));
}

}  // namespace
