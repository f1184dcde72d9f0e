// What the objects of the library hold after many calls: no more than what their documents need.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BuildScene.h"
#include "FailingAllocations.h"
#include "JsonDll.h"
#include "ProcessUse.h"

namespace {

using building::Arguments;
using building::Operation;
using building::Scene;
using support::FailingAllocations;
using support::Package;

constexpr size_t kCalls = 1000;
/// Names that are so long that a thousand of them take several blocks of any pool.
constexpr size_t kLength = 200;

/// A different one for each number, without a digit: a digit in a path is looked at with its
/// parent.
std::wstring LongName(size_t number) {
    std::wstring name(kLength, L'n');
    for (size_t at = 0; number > 0; number /= 10)
        name[at++] = static_cast<wchar_t>(L'a' + number % 10);
    return name;
}

const std::vector<std::wstring>& LongNames() {
    static const std::vector<std::wstring> names = [] {
        std::vector<std::wstring> made;
        for (size_t i = 0; i < kCalls; ++i) made.push_back(LongName(i));
        return made;
    }();
    return names;
}

/// Calls once, so that what is kept for all later calls is there, and then for every long name;
/// nothing more is held than before.
template <class Call>
void ExpectNothingKept(const std::string& what, Call&& call) {
    call(LongName(kCalls));
    const FailingAllocations allocations;
    for (const std::wstring& name : LongNames()) call(name);
    EXPECT_EQ(0, allocations.LiveBlocks()) << what;
}

// ---- Generator ---------------------------------------------------------------------------------

/// A way in which every operation that adds something can fail.
struct Failure {
    const char* what;
    /// Arguments for an operation; the name is a different one for every call.
    Arguments (*arguments)(Scene& scene, const Operation& operation, const std::wstring& name);
};

Arguments PlaceOf(Scene& scene, bool object) { return scene.Naming(object ? L"object" : L"array"); }

/// A call without an output, or without a place, fails before it makes anything.
const Failure kFailures[] = {
    {"without an output",
     [](Scene& scene, const Operation& operation, const std::wstring&) {
         Arguments arguments = PlaceOf(scene, operation.hasKey);
         arguments.outputs[0] = support::kMissing;
         return arguments;
     }},
    {"below the wrong kind", [](Scene& scene, const Operation& operation,
                                const std::wstring&) { return PlaceOf(scene, !operation.hasKey); }},
    {"below a scalar",
     [](Scene& scene, const Operation&, const std::wstring&) { return scene.Naming(L"number"); }},
    {"below nothing",
     [](Scene& scene, const Operation&, const std::wstring& name) {
         static std::wstring path;
         path = L"/none/" + name;
         Arguments arguments;
         arguments.handle = scene.UnknownHandle();
         arguments.path = path.c_str();
         return arguments;
     }},
    {"below what is not there any more",
     [](Scene& scene, const Operation&, const std::wstring& name) {
         static std::wstring path;
         path = L"/emptied/" + name;
         Arguments arguments;
         arguments.handle = scene.LostHandle();
         arguments.path = path.c_str();
         return arguments;
     }},
};

TEST(Costs, ItemsThatAreNotAddedKeepNoMemory) {
    for (const Operation& operation : support::AddingOperations())
        for (const Failure& failure : kFailures) {
            Scene scene;
            const auto payload = building::With(building::SomeItem(operation.kind)).payload;
            ExpectNothingKept(operation.name + " " + failure.what, [&](const std::wstring& name) {
                Arguments arguments = failure.arguments(scene, operation, name);
                arguments.payload = payload;
                arguments.key = operation.hasKey ? name.c_str() : nullptr;
                EXPECT_LE(operation.call(scene.Generator(), arguments).result, 0) << operation.name;
            });
        }
}

TEST(Costs, HandlesOfNothingKeepNoMemory) {
    for (const wchar_t* parent : {L"/", L"/object/", L"/none/", L"/array/", L"/text/"}) {
        Scene scene;
        ExpectNothingKept("GetItemHandleByPath", [&](const std::wstring& name) {
            uint32_t handle = 0;
            EXPECT_EQ(-10, scene.Generator().GetItemHandleByPath((parent + name).c_str(), &handle));
        });
    }
}

TEST(Costs, JsonThatIsNoneKeepsNoMemory) {
    Scene scene;
    const Arguments object = scene.Naming(L"object"), array = scene.Naming(L"array");
    ExpectNothingKept("grafts", [&](const std::wstring& name) {
        uint32_t handle = 0;
        const std::wstring json = L"{\"" + name + L"\":[\"" + name + L"\",";
        EXPECT_EQ(0, scene.Generator().AddObjectItemJsonString(
                         static_cast<int32_t>(object.handle), name.c_str(), json.c_str(), &handle));
        EXPECT_EQ(0, scene.Generator().AddArrayItemJsonString(static_cast<int32_t>(array.handle),
                                                              json.c_str(), &handle));
    });
}

/// Items that took the place of others, over and over, and handles that were asked for again. What
/// is not text takes no memory.
TEST(Costs, OverwritingKeepsNoMemory) {
    Scene scene;
    const Arguments root = scene.Naming(L"");
    ExpectNothingKept("overwriting", [&](const std::wstring&) {
        uint32_t handle = 0;
        EXPECT_EQ(1, scene.Generator().AddObjectItemInt(static_cast<int32_t>(root.handle),
                                                        L"number", 7, &handle));
        EXPECT_EQ(1, scene.Generator().AddObjectItemArray(static_cast<int32_t>(root.handle),
                                                          L"emptied", &handle));
        EXPECT_EQ(1, scene.Generator().GetItemHandleByPath(L"/text", &handle));
        EXPECT_EQ(1, scene.Generator().GetItemHandleByPath(L"/spare/3", &handle));
    });
}

// ---- Package -----------------------------------------------------------------------------------

/// A package with so many keys that searches have been made for.
void Fill(QXJSON::IJsonPackage& package, size_t keys) {
    for (size_t i = 0; i < keys; ++i) {
        const std::wstring key = L"k" + std::to_wstring(i);
        ASSERT_EQ(1, package.SetValueNumber(key.c_str(), 1));
        bool found = false;
        ASSERT_EQ(1, package.ContainsKey(key.c_str(), &found));
        ASSERT_TRUE(found);
    }
}

/// How many blocks of 64 KiB, each with an entry in a list, texts of so many bytes may take.
long BlocksFor(size_t bytes) { return static_cast<long>(2 * (bytes / (64 * 1024) + 2)); }

/// Of a key its text is kept until the next load, and nothing else.
TEST(Costs, KeysThatComeAndGoKeepTheirTexts) {
    constexpr int kCycles = 5000;
    constexpr size_t kTexts = 2 * kCycles * 16;
    for (const size_t keys : {size_t{1}, size_t{20}, size_t{500}}) {
        const Package package = support::NewPackage();
        ASSERT_NO_FATAL_FAILURE(Fill(*package, keys));
        const auto cycle = [&](int number) {
            const std::wstring key = L"n" + std::to_wstring(number % 999);
            double value = 0;
            EXPECT_EQ(1, package->SetValueNumber(key.c_str(), number));
            EXPECT_EQ(1, package->GetValueNumber(key.c_str(), &value));
            EXPECT_EQ(number, value);
            EXPECT_EQ(1, package->RemoveKey(key.c_str()));
            EXPECT_EQ(1, package->RemoveKey(L"k0"));
            EXPECT_EQ(1, package->SetValueNumber(L"k0", number));
        };
        for (int i = 0; i < kCycles; ++i) cycle(i);
        const FailingAllocations allocations;
        const size_t bytes = support::PrivateBytes();
        for (int i = 0; i < kCycles; ++i) cycle(i);
        EXPECT_LE(allocations.LiveBlocks(), BlocksFor(kTexts)) << keys;
        EXPECT_LE(support::PrivateBytes(), bytes + kTexts + 256 * 1024) << keys;
        uint32_t count = 0;
        EXPECT_EQ(1, package->GetKeyCount(&count));
        EXPECT_EQ(keys, count);
    }
}

TEST(Costs, LongKeysAndTextsThatComeAndGoKeepThemselves) {
    const Package package = support::NewPackage();
    ASSERT_NO_FATAL_FAILURE(Fill(*package, 20));
    const FailingAllocations allocations;
    for (const std::wstring& name : LongNames()) {
        EXPECT_EQ(1, package->SetValueString(name.c_str(), name.c_str()));
        EXPECT_EQ(1, package->RemoveKey(name.c_str()));
    }
    constexpr size_t kTexts = 2 * kCalls * (kLength + 8) * sizeof(wchar_t);
    EXPECT_GT(allocations.LiveBlocks(), 0);
    EXPECT_LE(allocations.LiveBlocks(), BlocksFor(kTexts));
}

}  // namespace
