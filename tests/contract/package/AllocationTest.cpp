// Allocations that fail, one by one, in every operation that needs memory: the operation returns
// -5 (-3 where a conversion lacked its buffer), what was there before is still there, and with
// memory the same call goes well.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "FailingAllocations.h"
#include "PackageDelegate.h"
#include "PackageState.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonPackage;
using support::FailingAllocations;
using support::LoadedPackage;
using support::Package;
using support::PackageText;

constexpr int kAllThatFollow = std::numeric_limits<int>::max();

std::wstring LargeArray() {
    std::wstring json = L"[0";
    for (int i = 1; i < 3000; ++i) json += L",\"a text of some length\",{\"a name\":[]}";
    return json + L"]";
}

const std::wstring& Large() {
    static const std::wstring large = LargeArray();
    return large;
}

const std::wstring& LongText() {
    static const std::wstring text(100000, L'x');
    return text;
}

/// An operation that needs memory, and what the package holds when it went well.
struct Trial {
    const char* name;
    int (*call)(IJsonPackage& package);
    bool loads;         ///< what was there before goes first
    int converts = -5;  ///< the result where the conversion of bytes lacks its buffer
};

const Trial kTrials[] = {
    {"LoadString",
     [](IJsonPackage& p) { return p.LoadString((L"{\"new\":" + Large() + L"}").c_str()); }, true},
    {"LoadString of an array", [](IJsonPackage& p) { return p.LoadString(Large().c_str()); }, true},
    {"LoadFile",
     [](IJsonPackage& p) {
         const support::TempFile file("{\"new\":[1,2,\"a text of some length\"]}");
         const int result = p.LoadFile(file.Name());
         EXPECT_TRUE(file.IsClosed());
         return result;
     },
     true},
    {"SetValue", [](IJsonPackage& p) { return p.SetValue(L"new", LongText().c_str(), false); },
     false},
    {"SetValue over", [](IJsonPackage& p) { return p.SetValue(L"KEY", LongText().c_str(), false); },
     false},
    {"SetValue with a long key",
     [](IJsonPackage& p) { return p.SetValueNumber(LongText().c_str(), 1); }, false},
    {"SetValue with JSON",
     [](IJsonPackage& p) { return p.SetValue(L"new", Large().c_str(), true); }, false},
    {"SetValue over with JSON",
     [](IJsonPackage& p) { return p.SetValue(L"KEY", Large().c_str(), true); }, false},
    {"SetValueFromDelegate5",
     [](IJsonPackage& p) { return support::JsonRoutes().back().set(p, L"new", Large().c_str()); },
     false},
    {"SetValueBlob",
     [](IJsonPackage& p) {
         return p.SetValueBlob(L"new", reinterpret_cast<const uint8_t*>(LongText().data()), 90000);
     },
     false, -3},
    {"GetValueBlob",
     [](IJsonPackage& p) {
         const void* data = nullptr;
         uint32_t length = 0;
         return p.GetValueBlob(L"blob", &data, &length);
     },
     false, -3},
    {"GetValue",
     [](IJsonPackage& p) {
         const wchar_t* text = nullptr;
         return p.GetValue(L"large", &text);
     },
     false},
    {"GetText",
     [](IJsonPackage& p) {
         const wchar_t* text = nullptr;
         return p.GetText(&text);
     },
     false},
    {"GetBytes",
     [](IJsonPackage& p) {
         const void* data = nullptr;
         size_t length = 0;
         return p.GetBytes(&data, &length, 1);
     },
     false},
    {"SaveToFile",
     [](IJsonPackage& p) {
         const support::TempFile file("earlier");
         const int result = p.SaveToFile(file.Name(), 2);
         EXPECT_TRUE(file.IsClosed());
         EXPECT_EQ(result != 1, file.Bytes() == "earlier");
         return result;
     },
     false},
};

std::wstring Document() {
    return L"{\"Key\":1,\"blob\":\"" + std::wstring(8000, L'A') + L"\",\"large\":" + Large() + L"}";
}

/// Calls a new package once with too little memory and once with enough; whether the first call met
/// the failure.
bool TryOnce(const Trial& trial, const std::wstring& document, FailingAllocations& allocations,
             int first, int count) {
    const Package package = LoadedPackage(document);
    allocations.Fail(first, count);
    const int result = trial.call(*package);
    const bool happened = allocations.Happened();
    allocations.Stop();
    if (result != 1) {
        EXPECT_TRUE(happened);
        EXPECT_TRUE(result == -5 || result == trial.converts) << result;
        EXPECT_TRUE(trial.loads || document == PackageText(*package));
    }
    EXPECT_EQ(1, trial.call(*package));
    EXPECT_EQ(1, package->SetValueNumber(L"key", 2));
    return happened;
}

/// Lets the n-th allocation (and `count - 1` that follow) fail, for every n.
void Try(const Trial& trial, int count) {
    const std::wstring document = Document();
    FailingAllocations allocations;
    // What a failure takes once in the life of a process is taken now.
    TryOnce(trial, document, allocations, 1, count);
    bool happened = true;
    for (int n = 1; happened; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        const long blocks = allocations.LiveBlocks();
        happened = TryOnce(trial, document, allocations, n, count);
        EXPECT_EQ(blocks, allocations.LiveBlocks()) << "memory is lost";
    }
}

/// One, then two in a row, then all: the exception that reports a failure may lack memory itself
/// and then comes from a reserve, the lock of which takes memory once in the life of a process.
TEST(PackageAllocation, EveryOneAndThoseThatFollow) {
    for (const int count : {1, 2, kAllThatFollow})
        for (const Trial& trial : kTrials) {
            SCOPED_TRACE(trial.name);
            Try(trial, count);
        }
}

/// Removing gives memory back, for which memory may be lacking: the keys are gone all the same.
TEST(PackageAllocation, KeysAreRemovedWithoutMemory) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 3000; ++i) names.push_back(L"name " + std::to_wstring(i));
    const Package package = support::NewPackage();
    for (const std::wstring& name : names) ASSERT_EQ(1, package->SetValueNumber(name.c_str(), 1));
    std::shuffle(names.begin(), names.end(), std::mt19937(3));
    FailingAllocations allocations;
    int lacking = 0;
    for (const std::wstring& name : names) {
        allocations.Fail(1, kAllThatFollow);
        const int result = package->RemoveKey(name.c_str());
        lacking += result == 1 && allocations.Happened() ? 1 : 0;
        allocations.Stop();
        if (result == 1) continue;
        ASSERT_EQ(-5, result);
        ASSERT_EQ(1, package->RemoveKey(name.c_str()));
    }
    EXPECT_GT(lacking, 0) << "no removal tried to give memory back";
    EXPECT_EQ(L"{}", PackageText(*package));
    EXPECT_EQ(0, package->RemoveKey(names[0].c_str()));
}

/// What the factory cannot have is missing until a load builds the package anew.
TEST(PackageAllocation, EveryOneOfTheFactory) {
    FailingAllocations allocations;
    const auto create = support::Export<IJsonPackage*()>("CreateJsonPackageInterface");
    allocations.Fail(1);
    EXPECT_EQ(nullptr, create());
    allocations.Fail(2);
    Package withoutAdapter(create());
    allocations.Stop();
    ASSERT_NE(nullptr, withoutAdapter);
    uint32_t count = 99;
    EXPECT_EQ(-5, withoutAdapter->GetKeyCount(&count));
    EXPECT_EQ(-5, withoutAdapter->LoadString(L"{}"));
    EXPECT_EQ(-5, withoutAdapter->SetValueNumber(L"k", 1));
    EXPECT_EQ(1, withoutAdapter.release()->Release());

    bool happened = true;
    for (int n = 3; happened; ++n) {
        SCOPED_TRACE(n);
        allocations.Fail(n);
        const Package package(create());
        happened = allocations.Happened();
        allocations.Stop();
        ASSERT_NE(nullptr, package);
        EXPECT_EQ(1, package->LoadString(L"{\"a\":1}"));
        EXPECT_EQ(L"{\"a\":1}", PackageText(*package));
    }
}

}  // namespace
