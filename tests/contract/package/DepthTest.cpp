// Nesting that no stack carries: loads and values end with -5 before the stack does, and leave a
// package that works. What is there is written at any depth.

#include <gtest/gtest.h>

#include <functional>

#include "PackageDelegate.h"
#include "PackageState.h"
#include "Selectors.h"
#include "StackThread.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonPackage;
using support::JsonRoute;
using support::JsonRoutes;
using support::NewPackage;
using support::Package;
using support::PackageState;
using support::PackageStateOf;
using support::PackageText;

constexpr size_t kTooDeep = 200'000;

std::wstring Repeated(const wchar_t* part, size_t count) {
    std::wstring all;
    while (count-- > 0) all += part;
    return all;
}

enum class Nesting { kArrays, kObjects, kMixed };

constexpr Nesting kNestings[] = {Nesting::kArrays, Nesting::kObjects, Nesting::kMixed};

/// A well-formed value of `levels` (an even number) levels.
std::wstring Nested(Nesting nesting, size_t levels) {
    switch (nesting) {
        case Nesting::kArrays:
            return Repeated(L"[", levels) + Repeated(L"]", levels);
        case Nesting::kObjects:
            return Repeated(L"{\"\":", levels) + L"0" + Repeated(L"}", levels);
        default:
            return Repeated(L"[{\"\":", levels / 2) + L"0" + Repeated(L"}]", levels / 2);
    }
}

/// Runs the same on the test's own thread and on one with a small stack.
void OnBothStacks(const std::function<void()>& work) {
    work();
    support::OnStackOf(support::kSmallStack, work);
}

/// Runs `work` on a thread whose stack carries kTooDeep levels.
void OnLargeStack(const std::function<void()>& work) {
    constexpr size_t kLargeStack = 512 * 1024 * 1024;
    support::OnStackOf(kLargeStack, work);
}

// ---- Loads -------------------------------------------------------------------------------------

std::vector<std::wstring> TooDeepDocuments() {
    std::vector<std::wstring> documents = {Repeated(L"[", kTooDeep),
                                           L"{\"a\":" + Repeated(L"[", kTooDeep)};
    for (const Nesting nesting : kNestings)
        documents.push_back(L"{\"a\":" + Nested(nesting, kTooDeep) + L"}");
    return documents;
}

TEST(PackageDepth, LoadsThatGoTooDeepLeaveAnEmptyPackage) {
    const Package package = NewPackage();
    for (const std::wstring& document : TooDeepDocuments()) {
        const support::TempFile file(support::Encode(document, support::Encoding::kUtf8));
        OnBothStacks([&] {
            for (const uint32_t flag : {0u, 1u}) {
                EXPECT_EQ(1, package->SetIgnoreCase(flag));
                EXPECT_EQ(1, package->SetValueNumber(L"earlier", 1));
                const int result = package->LoadString(document.c_str());
                EXPECT_EQ(support::PackageEscaped(), support::PackageOutcomeOf(*package, result));
                EXPECT_EQ((PackageState{L"{}", 0, 0, 0, flag}), PackageStateOf(*package));
                EXPECT_EQ(1, package->SetValueNumber(L"earlier", 1));
                EXPECT_EQ(-5, package->LoadFile(file.Name()));
                EXPECT_EQ((PackageState{L"{}", 0, 0, 0, flag}), PackageStateOf(*package));
                EXPECT_TRUE(file.IsClosed());
            }
            EXPECT_EQ(1, package->LoadString(L"{\"a\":[[1]]}"));
            EXPECT_EQ(L"{\"a\":[[1]]}", PackageText(*package));
        });
    }
}

TEST(PackageDepth, TheSecondAttemptAsAnsiTextEndsLikeTheFirst) {
    const std::string bytes = "{\"a\":\"\xE9.\",\"b\":" + std::string(kTooDeep, '[');
    const support::TempFile file(bytes);
    const Package package = NewPackage();
    OnBothStacks([&] {
        EXPECT_EQ(-5, package->LoadFile(file.Name()));
        EXPECT_EQ(L"{}", PackageText(*package));
        EXPECT_TRUE(file.IsClosed());
    });
}

// ---- Values ------------------------------------------------------------------------------------

TEST(PackageDepth, ValuesThatGoTooDeepChangeNothing) {
    for (const wchar_t* loaded : {L"{\"Key\":1,\"z\":[2]}", L"[1]", L"{\"a\""}) {
        const Package package = NewPackage();
        package->LoadString(loaded);
        EXPECT_EQ(1, package->SetValueString(L"s", L"text"));
        const PackageState before = PackageStateOf(*package);
        for (const Nesting nesting : kNestings) {
            const std::wstring value = Nested(nesting, kTooDeep);
            OnBothStacks([&] {
                for (const JsonRoute& route : JsonRoutes()) {
                    SCOPED_TRACE(route.name);
                    EXPECT_EQ(-5, route.set(*package, L"key", value.c_str()));
                    EXPECT_EQ(-5, route.set(*package, L"new", value.c_str()));
                    EXPECT_EQ(before, PackageStateOf(*package));
                }
            });
        }
        EXPECT_EQ(1, package->SetValue(L"s", L"[[1]]", true));
    }
}

/// Sets a key to a value of `levels` levels; whether it is there then. It must be whole or not
/// there, also where the stack fails only in the last step of the work.
bool IsStored(IJsonPackage& package, size_t levels) {
    const std::wstring value = Nested(Nesting::kMixed, levels);
    EXPECT_EQ(1, package.RemoveAll());
    EXPECT_EQ(1, package.SetValueNumber(L"a", 1));
    const int result = package.SetValue(L"k", value.c_str(), true);
    EXPECT_TRUE(result == 1 || result == -5) << result << ", " << levels << " levels";
    uint32_t count = 0;
    EXPECT_EQ(1, package.GetKeyCount(&count));
    EXPECT_EQ(result == 1 ? 2u : 1u, count) << levels << " levels";
    const wchar_t* text = nullptr;
    EXPECT_EQ(result == 1 ? 1 : -1, package.GetValue(L"k", &text));
    EXPECT_TRUE(result == 1 ? value == text : *text == L'\0') << levels << " levels";
    return result == 1;
}

TEST(PackageDepth, WhereTheStackJustSufficesAndWhereItDoesNot) {
    const Package package = NewPackage();
    OnBothStacks([&] {
        size_t good = 100;
        size_t bad = kTooDeep;
        ASSERT_TRUE(IsStored(*package, good));
        ASSERT_FALSE(IsStored(*package, bad));
        while (bad - good > 2) {
            const size_t middle = (good + bad) / 4 * 2;
            (IsStored(*package, middle) ? good : bad) = middle;
        }
        for (size_t levels = good - 40; levels <= bad + 40; levels += 2)
            EXPECT_EQ(levels <= good, IsStored(*package, levels)) << levels << " levels";
    });
}

TEST(PackageDepth, ThreeHundredLevelsFitASmallStack) {
    for (const Nesting nesting : kNestings) {
        const std::wstring value = Nested(nesting, 300);
        const std::wstring whole = L"{\"k\":" + value + L"}";
        support::OnStackOf(support::kSmallStack, [&] {
            const Package package = NewPackage();
            EXPECT_EQ(1, package->SetValue(L"k", value.c_str(), true));
            EXPECT_EQ(whole, PackageText(*package));
            EXPECT_EQ(support::PackageLoaded(whole), support::LoadPackageText(*package, whole));
            const void* data = nullptr;
            size_t length = 0;
            for (const int32_t encoding : support::kAllSelectors)
                EXPECT_EQ(1, package->GetBytes(&data, &length, encoding));
            const support::TempFile file;
            EXPECT_EQ(1, package->SaveToFile(file.Name(), 2));
            EXPECT_EQ(1, package->LoadFile(file.Name()));
            EXPECT_EQ(whole, PackageText(*package));
        });
    }
}

// ---- Output ------------------------------------------------------------------------------------

/// A package that was filled where the stack was large enough.
Package DeepPackage(Nesting nesting) {
    Package package = NewPackage();
    OnLargeStack([&] {
        const std::wstring value = Nested(nesting, kTooDeep);
        EXPECT_EQ(1, package->LoadString((L"{\"a\":1,\"deep\":" + value + L"}").c_str()));
    });
    return package;
}

/// Expects every output to be whole: of the package, and of its value `deep`.
void ExpectWritten(IJsonPackage& package, const std::wstring& whole, const std::wstring& value) {
    EXPECT_TRUE(whole == PackageText(package));
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package.GetValue(L"deep", &text));
    EXPECT_TRUE(value == text);
    for (const int32_t encoding : support::kAllSelectors) {
        SCOPED_TRACE(encoding);
        const std::string bytes = support::TextIn(encoding, whole);
        const void* data = nullptr;
        size_t length = 0;
        EXPECT_EQ(1, package.GetBytes(&data, &length, encoding));
        EXPECT_TRUE(bytes == std::string_view(static_cast<const char*>(data), length));
        const support::TempFile file("earlier");
        EXPECT_EQ(1, package.SaveToFile(file.Name(), encoding));
        EXPECT_TRUE(file.IsClosed());
        EXPECT_TRUE(support::MarkOf(encoding) + bytes == file.Bytes());
    }
    support::RecordingDelegate delegate;
    EXPECT_EQ(1, package.SetDelegate(&delegate));
    support::ImportFrom(package, L"deep");
    EXPECT_EQ(1, package.SetDelegate(nullptr));
    ASSERT_EQ(1u, delegate.calls.size());
    EXPECT_TRUE(support::ImportCall(value) == delegate.calls[0]);
}

TEST(PackageDepth, DeepValuesAreWritten) {
    for (const Nesting nesting : kNestings) {
        const Package package = DeepPackage(nesting);
        const std::wstring value = Nested(nesting, kTooDeep);
        const std::wstring whole = L"{\"a\":1,\"deep\":" + value + L"}";
        OnBothStacks([&] { ExpectWritten(*package, whole, value); });
        // All else works on it.
        EXPECT_EQ(1, package->SetValueString(L"b", L"text"));
        uint32_t type = 0;
        EXPECT_EQ(1, package->GetValueType(L"deep", &type));
        EXPECT_EQ(nesting == Nesting::kObjects ? 4u : 5u, type);
        EXPECT_EQ(1, package->SetValueNumber(L"deep", 2));
        EXPECT_EQ(L"{\"a\":1,\"deep\":2,\"b\":\"text\"}", PackageText(*package));
    }
}

TEST(PackageDepth, ADeepValueGoesOnASmallStack) {
    for (const Nesting nesting : kNestings) {
        Package removed = DeepPackage(nesting);
        Package cleared = DeepPackage(nesting);
        Package reloaded = DeepPackage(nesting);
        Package released = DeepPackage(nesting);
        support::OnStackOf(support::kSmallStack, [&] {
            EXPECT_EQ(1, removed->RemoveKey(L"deep"));
            EXPECT_EQ(L"{\"a\":1}", PackageText(*removed));
            EXPECT_EQ(1, cleared->RemoveAll());
            EXPECT_EQ(L"{}", PackageText(*cleared));
            EXPECT_EQ(1, reloaded->LoadString(L"{\"b\":2}"));
            EXPECT_EQ(L"{\"b\":2}", PackageText(*reloaded));
            EXPECT_EQ(1, released.release()->Release());
        });
    }
}

}  // namespace
