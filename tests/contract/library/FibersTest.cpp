// Fibers have stacks of their own: theirs count, not the thread's.

#include <gtest/gtest.h>
#include <windows.h>

#include "JsonDll.h"
#include "OutputForm.h"
#include "PackageState.h"
#include "StackThread.h"
#include "TempFile.h"

namespace {

using support::Generator;
using support::kSmallStack;
using support::NewParser;
using support::OnFiberOf;
using support::Package;
using support::Parser;

constexpr size_t kLargeStack = 16 * 1024 * 1024;
/// More levels than a small stack carries calls, and fewer than a large one does.
constexpr size_t kLevels = 10'000;

std::wstring Nested(size_t levels) {
    return L"{\"k\":" + std::wstring(levels, L'[') + std::wstring(levels, L']') + L"}";
}

/// What the library asks the system.
TEST(Fibers, TheSystemKnowsTheirStacks) {
    for (const size_t bytes : {kSmallStack, kLargeStack})
        OnFiberOf(bytes, [] {
            const char here = 0;
            MEMORY_BASIC_INFORMATION region = {};
            VirtualQuery(&here, &region, sizeof region);
            ULONG_PTR low = 0;
            ULONG_PTR high = 0;
            GetCurrentThreadStackLimits(&low, &high);
            EXPECT_EQ(reinterpret_cast<ULONG_PTR>(region.AllocationBase), low);
            EXPECT_LT(reinterpret_cast<ULONG_PTR>(&here), high);
        });
}

/// The results of all operations that follow the nesting of a text.
std::vector<int> Results(const std::wstring& json) {
    const support::TempFile file(support::Encode(json, support::Encoding::kUtf8));
    const std::string bytes = file.Bytes();
    const Parser parser = NewParser();
    const Generator generator = support::NewGenerator();
    const Package package = support::NewPackage();
    uint32_t handle = 0;
    return {
        parser->LoadJsonString(json.c_str()),
        parser->LoadJsonBytes(bytes.data(), static_cast<uint32_t>(bytes.size())),
        parser->LoadJsonFile(file.Name()),
        generator->LoadJsonString(json.c_str(), &handle),
        generator->LoadJsonFile(file.Name(), &handle),
        generator->CreateRootArray(&handle),
        generator->AddArrayItemJsonString(1, json.c_str(), &handle),
        generator->AddArrayItemJsonFile(1, file.Name(), &handle),
        package->LoadString(json.c_str()),
        package->LoadFile(file.Name()),
        package->SetValue(L"k", json.c_str(), true),
    };
}

const std::vector<int> kGood = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
const std::vector<int> kTooDeep = {-5, -5, -5, -5, -5, 1, -5, -5, -5, -5, -5};

TEST(Fibers, LoadAsDeepAsTheirStackIs) {
    const std::wstring deep = Nested(kLevels);
    OnFiberOf(kLargeStack, [&] { EXPECT_EQ(kGood, Results(deep)); });
    OnFiberOf(kSmallStack, [&] {
        EXPECT_EQ(kTooDeep, Results(deep));
        EXPECT_EQ(kGood, Results(Nested(300)));
    });
}

/// A fiber that is smaller than the stack of its thread, and one that is larger.
TEST(Fibers, OnThreadsOfOtherSizes) {
    const std::wstring deep = Nested(kLevels);
    support::OnStackOf(kLargeStack, [&] {
        EXPECT_EQ(kGood, Results(deep));
        OnFiberOf(kSmallStack, [&] { EXPECT_EQ(kTooDeep, Results(deep)); });
        EXPECT_EQ(kGood, Results(deep));
    });
    support::OnStackOf(kSmallStack, [&] {
        EXPECT_EQ(kTooDeep, Results(deep));
        OnFiberOf(kLargeStack, [&] { EXPECT_EQ(kGood, Results(deep)); });
        EXPECT_EQ(kTooDeep, Results(deep));
    });
}

/// What a large stack could load is written and copied on a small fiber.
TEST(Fibers, WriteAtAnyDepth) {
    constexpr size_t kVeryDeep = 30'000;
    const std::wstring deep = Nested(kVeryDeep);
    Generator generator;
    OnFiberOf(kLargeStack * 4, [&] { generator = support::GeneratorOf(deep); });
    OnFiberOf(kSmallStack, [&] {
        EXPECT_TRUE(deep == support::JsonOf(*generator));
        for (const int32_t selector : support::kAllSelectors) {
            const support::Written expected = {
                1, support::MarkOf(selector) + support::TextIn(selector, deep)};
            EXPECT_TRUE(expected ==
                        support::WriteIn({support::OutputForm::kFile, selector}, *generator))
                << selector;
        }
    });
}

/// Exceptions that are caught on a fiber, and on others meanwhile.
TEST(Fibers, FailEachByItself) {
    uint32_t type = 0;
    const Parser outer = support::Loaded(L"{}");
    OnFiberOf(kSmallStack, [&] {
        EXPECT_EQ(-5, outer->LoadJsonString(Nested(kLevels).c_str()));
        EXPECT_EQ(1, outer->LoadJsonString(L"{}"));
        EXPECT_EQ(-5, outer->GetItemTypeByPath(L"/missing/1", &type));
    });
    EXPECT_EQ(-5, outer->GetItemTypeByPath(L"/missing/1", &type));
}

}  // namespace
