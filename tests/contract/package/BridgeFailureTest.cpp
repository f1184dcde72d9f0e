// Delegates that fail with exceptions: the package lets them through to its caller, as they come,
// and stays usable.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "CatchFault.h"
#include "PackageDelegate.h"
#include "PackageState.h"

namespace {

using QXJSON::IJsonPackage;
using support::ExportSlot;
using support::ExportSlots;
using support::ImportFrom;
using support::LoadedPackage;
using support::Package;
using support::PackageState;
using support::PackageStateOf;
using support::RecordingDelegate;

constexpr const wchar_t* kDocument = L"{\"s\":\"text\",\"o\":{\"x\":[1]}}";
constexpr DWORD kSomebodysOwn = 0xE0001234;

/// The calls of a package that reach its delegate.
template <class Each>
void ForEachCall(const Each& each) {
    for (const ExportSlot& slot : ExportSlots()) {
        SCOPED_TRACE(slot.name);
        each([&](IJsonPackage& package) {
            const wchar_t* text = nullptr;
            return slot.Forward(package, &text);
        });
        each([&](IJsonPackage& package) { return slot.Set(package, L"s"); });
        each([&](IJsonPackage& package) { return slot.Set(package, L"new"); });
    }
    each([](IJsonPackage& package) { return ImportFrom(package, L"s"); });
    each([](IJsonPackage& package) { return ImportFrom(package, L"o"); });
}

/// The message of the exception that a call ends with; empty when it returns.
template <class Call>
std::string Thrown(const Call& call) {
    try {
        call();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

TEST(PackageBridgeFailure, AnExceptionReachesTheCaller) {
    const Package package = LoadedPackage(kDocument);
    const PackageState before = PackageStateOf(*package);
    RecordingDelegate delegate(L"[1]");
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    delegate.during = [] { throw std::runtime_error("of the delegate"); };
    ForEachCall([&](const auto& call) {
        EXPECT_EQ("of the delegate", Thrown([&] { call(*package); }));
        EXPECT_EQ(before, PackageStateOf(*package));
    });
    delegate.during = nullptr;
    ForEachCall([&](const auto& call) { EXPECT_EQ(1, call(*package)); });
}

TEST(PackageBridgeFailure, AlsoThroughAChainOfPackages) {
    const Package first = LoadedPackage(kDocument);
    const Package second = support::NewPackage();
    const Package third = support::NewPackage();
    RecordingDelegate delegate(L"[1]");
    delegate.during = [] { throw std::runtime_error("of the last delegate"); };
    EXPECT_EQ(1, first->SetDelegate(second.get()));
    EXPECT_EQ(1, second->SetDelegate(third.get()));
    EXPECT_EQ(1, third->SetDelegate(&delegate));
    for (const ExportSlot& slot : ExportSlots()) {
        EXPECT_EQ("of the last delegate", Thrown([&] { slot.Set(*first, L"k"); })) << slot.name;
        EXPECT_EQ(kDocument, support::PackageText(*first));
    }
}

TEST(PackageBridgeFailure, AProcessorFaultReachesTheCaller) {
    const Package package = LoadedPackage(kDocument);
    const PackageState before = PackageStateOf(*package);
    RecordingDelegate delegate(L"[1]");
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    for (const DWORD code : {DWORD{EXCEPTION_ACCESS_VIOLATION}, kSomebodysOwn}) {
        delegate.during = [code] { RaiseException(code, 0, 0, nullptr); };
        ForEachCall([&](const auto& call) {
            EXPECT_EQ(code, support::CatchFault([&] { call(*package); }));
            EXPECT_EQ(before, PackageStateOf(*package));
        });
    }
    delegate.during = nullptr;
    ForEachCall([&](const auto& call) { EXPECT_EQ(1, call(*package)); });
}

/// What an export returns is read inside the guard.
TEST(PackageBridgeFailure, ATextThatCannotBeReadIsRefused) {
    const Package package = LoadedPackage(kDocument);
    const std::wstring deep(200000, L'[');
    RecordingDelegate delegate(deep.c_str());
    EXPECT_EQ(1, package->SetDelegate(&delegate));
    for (const ExportSlot& slot : ExportSlots()) {
        SCOPED_TRACE(slot.name);
        EXPECT_EQ(-5, slot.Set(*package, L"s"));
        EXPECT_EQ(-5, slot.Set(*package, L"new"));
        EXPECT_EQ(kDocument, support::PackageText(*package));
    }
}

}  // namespace
