// Objects that are made, used and released a hundred thousand times, in what goes well and in what
// fails: the process keeps the memory and the handles that it began with.

#include <gtest/gtest.h>

#include <string>

#include "FailingAllocations.h"
#include "JsonDll.h"
#include "ProcessUse.h"
#include "Selectors.h"
#include "StackThread.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonGenerator;
using QXJSON::IJsonPackage;
using QXJSON::IJsonParser;
using support::Generator;
using support::NewGenerator;
using support::NewPackage;
using support::NewParser;
using support::Package;
using support::Parser;
using support::TempFile;

constexpr int kMany = 100'000;
constexpr int kSome = 1'000;  ///< of what uses up a stack
constexpr int kFew = 200;     ///< of what takes the time of the file system

/// One use of an object from its making to its end; whether all results were those expected.
using Cycle = bool (*)();

int CountGood(Cycle cycle, int times) {
    int good = 0;
    for (int i = 0; i < times; ++i) good += cycle() ? 1 : 0;
    return good;
}

/// Runs the cycle so many times and expects that nothing is left of it.
void ExpectNoTrace(Cycle cycle, int times) {
    // What is taken once in the life of a process or of its heap is taken now.
    const int first = times / 50;
    ASSERT_EQ(first, CountGood(cycle, first));
    const support::FailingAllocations allocations;
    const size_t bytes = support::PrivateBytes();
    const int handles = support::HandleCount();
    EXPECT_EQ(times, CountGood(cycle, times));
    EXPECT_EQ(0, allocations.LiveBlocks());
    EXPECT_EQ(handles, support::HandleCount());
    // Less than the smallest block of a heap for each of a hundred thousand cycles.
    constexpr size_t kGrowth = 1024 * 1024;
    EXPECT_LT(support::PrivateBytes(), bytes + kGrowth);
}

// ---- Parser ------------------------------------------------------------------------------------

bool ReadsSmallDocument(IJsonParser& parser) {
    uint32_t handle = 0;
    uint32_t type = 0;
    int32_t number = 0;
    const wchar_t* text = nullptr;
    const uint8_t* data = nullptr;
    return parser.GetRootItem(&handle, &type) == 1 &&
           parser.GetMemberItem(handle, L"LIST", &handle, &type) == 1 &&
           parser.GetItemIntByPath(L"/list/1", &number) == 1 && number == 1 &&
           parser.GetItemStringByPath(L"/name", &text) == 1 &&
           parser.GetItemBlobByPath(L"/name", &data, &type) == 1 && type == 3 &&
           parser.GetArrayJson(handle, &text) == 1 && std::wstring_view(text) == L"[1,2.5,null]";
}

bool RefusesMistakes(IJsonParser& parser) {
    int32_t number = 0;
    const wchar_t* text = nullptr;
    return parser.GetItemInt(99, &number) == -2 &&
           parser.GetItemIntByPath(L"/name", &number) == -3 &&
           parser.GetItemIntByPath(L"/none", &number) == -10 &&
           parser.GetItemStringByPath(L"/name", nullptr) == 0 &&
           parser.LoadJsonString(L"{\"list\":[1,") == 0 && parser.GetErrorMessage(&text) == 1;
}

constexpr const wchar_t* kSmall = L"{\"list\":[1,2.5,null],\"name\":\"QUJD\"}";

bool UseParser() {
    const Parser parser = NewParser();
    return parser->LoadJsonString(kSmall) == 1 && ReadsSmallDocument(*parser) &&
           RefusesMistakes(*parser) && parser->LoadJsonBytes("[\"\xE9.\"]", 6) == 1;
}

TEST(Endurance, Parsers) { ExpectNoTrace(&UseParser, kMany); }

/// Loads upon loads, on one object.
TEST(Endurance, LoadsOfOneParser) {
    static Parser parser = NewParser();
    ExpectNoTrace(
        [] {
            return parser->LoadJsonString(kSmall) == 1 && ReadsSmallDocument(*parser) &&
                   RefusesMistakes(*parser);
        },
        kMany);
    parser.reset();
}

/// A position below a parent that does not exist is a processor fault on purpose.
TEST(Endurance, FaultsOfOneParser) {
    static Parser parser = support::Loaded(kSmall);
    ExpectNoTrace(
        [] {
            uint32_t type = 0;
            return parser->GetItemTypeByPath(L"/missing/1", &type) == -5;
        },
        kMany);
    EXPECT_TRUE(ReadsSmallDocument(*parser));
    parser.reset();
}

TEST(Endurance, LoadsFromMemoryThatCannotBeRead) {
    static Parser parser = NewParser();
    ExpectNoTrace(
        [] { return parser->LoadJsonBytes(reinterpret_cast<char*>(uintptr_t{8}), 100) == -5; },
        kMany);
    parser.reset();
}

// ---- Generator ---------------------------------------------------------------------------------

bool AddsItems(IJsonGenerator& generator) {
    const uint8_t bytes[] = {1, 2, 3};
    uint32_t root = 0;
    uint32_t list = 0;
    uint32_t handle = 0;
    uint64_t value = 0;
    return generator.CreateRootObject(&root) == 1 &&
           generator.AddObjectItemArray(1, L"list", &list) == 1 &&
           generator.AddArrayItemDouble(2, 2.5, &handle) == 1 &&
           generator.AddArrayItemStringByPath(L"/list", L"text", &handle) == 1 &&
           generator.AddObjectItemBlob(1, L"blob", bytes, 3, &handle) == 1 &&
           generator.AddObjectItemJsonString(1, L"grafted", L"{\"a\":[1,2]}", &handle) == 1 &&
           generator.AddObjectItemInt(1, L"list", 7, &handle) == 1 && handle == list &&
           generator.AddArrayItemInt(2, 7, &handle) == -3 &&
           generator.AddArrayItemJsonString(1, L"[", &handle) == 0 &&
           generator.AddObjectValueInt(0, L"key", 7, &value) == -2;
}

constexpr const wchar_t* kBuilt = L"{\"list\":7,\"blob\":\"AQID\",\"grafted\":{\"a\":[1,2]}}";

bool HandsOut(IJsonGenerator& generator) {
    const wchar_t* text = nullptr;
    const uint8_t* data = nullptr;
    uint64_t length = 0;
    bool all = generator.GetJsonString(&text) == 1 && std::wstring_view(text) == kBuilt;
    for (const int32_t encoding : support::kAllSelectors)
        all = all && generator.GetJsonBytes(&data, &length, encoding) == 1 && length > 0;
    return all;
}

bool UseGenerator() {
    const Generator generator = NewGenerator();
    return AddsItems(*generator) && HandsOut(*generator);
}

TEST(Endurance, Generators) { ExpectNoTrace(&UseGenerator, kMany); }

TEST(Endurance, RootsOfOneGenerator) {
    static Generator generator = NewGenerator();
    ExpectNoTrace([] { return AddsItems(*generator) && HandsOut(*generator); }, kMany);
    generator.reset();
}

/// A path below a missing parent is a fault of the processor, a missing key one on its way as an
/// exception.
TEST(Endurance, FaultsOfOneGenerator) {
    static Generator generator = NewGenerator();
    ASSERT_TRUE(AddsItems(*generator));
    ExpectNoTrace(
        [] {
            uint32_t handle = 0;
            return generator->AddArrayItemIntByPath(L"/missing/1", 7, &handle) == -5 &&
                   generator->AddObjectItemNull(1, nullptr, &handle) == -5;
        },
        kMany);
    EXPECT_TRUE(HandsOut(*generator));
    generator.reset();
}

// ---- Package -----------------------------------------------------------------------------------

bool SetsAndGets(IJsonPackage& package) {
    const uint8_t bytes[] = {1, 2, 3};
    const void* data = nullptr;
    uint32_t length = 0;
    double number = 0;
    const wchar_t* text = nullptr;
    return package.SetValueNumber(L"list", 2.5) == 1 &&
           package.GetValueNumber(L"LIST", &number) == 1 && number == 2.5 &&
           package.SetValue(L"json", L"{\"a\":[1,2]}", true) == 1 &&
           package.GetValue(L"json", &text) == 1 && package.SetValueBlob(L"b", bytes, 3) == 1 &&
           package.GetValueBlob(L"b", &data, &length) == 1 && length == 3 &&
           package.RemoveKey(L"name") == 1 && package.GetText(&text) == 1 &&
           std::wstring_view(text) == L"{\"list\":2.5,\"json\":{\"a\":[1,2]},\"b\":\"AQID\"}";
}

bool RefusesMistakes(IJsonPackage& package) {
    double number = 0;
    const wchar_t* text = nullptr;
    const void* data = nullptr;
    size_t size = 0;
    return package.GetValueNumber(L"none", &number) == -1 &&
           package.GetValueNumber(L"b", &number) == -3 &&
           package.SetValueString(nullptr, L"") == -1 && package.SetValue(L"k", L"5", true) == 0 &&
           package.GetBytes(&data, &size, 2) == 1 && package.LoadString(L"{\"list\":[1,") == 0 &&
           package.GetErrorMessage(&text) == 1;
}

bool UsePackage(IJsonPackage& package) {
    return package.LoadString(kSmall) == 1 && SetsAndGets(package) && RefusesMistakes(package);
}

TEST(Endurance, Packages) {
    ExpectNoTrace([] { return UsePackage(*NewPackage()); }, kMany);
}

TEST(Endurance, LoadsOfOnePackage) {
    static Package package = NewPackage();
    ExpectNoTrace([] { return UsePackage(*package); }, kMany);
    package.reset();
}

TEST(Endurance, FaultsOfOnePackage) {
    static Package package = NewPackage();
    ExpectNoTrace(
        [] {
            uint32_t type = 0;
            return package->GetValueType(reinterpret_cast<wchar_t*>(uintptr_t{8}), &type) == -5;
        },
        kMany);
    EXPECT_TRUE(UsePackage(*package));
    package.reset();
}

// ---- Files -------------------------------------------------------------------------------------

bool UseFiles() {
    const TempFile missing;
    const TempFile file("{\"\xE9.\":[1,2]}");  // read in two attempts
    const TempFile target;
    uint32_t handle = 0;
    const Parser parser = NewParser();
    const Generator generator = NewGenerator();
    const Package package = NewPackage();
    return parser->LoadJsonFile(file.Name()) == 1 && parser->LoadJsonFile(missing.Name()) == 0 &&
           generator->LoadJsonFile(file.Name(), &handle) == 1 &&
           generator->AddObjectItemJsonFile(1, L"new", file.Name(), &handle) == 1 &&
           generator->AddObjectItemJsonFile(1, L"new", missing.Name(), &handle) == -3 &&
           generator->SaveToFile(target.Name(), 2) == 1 &&
           generator->SaveToFileEx(target.Name(), 1, 1) == 1 &&
           generator->SaveToFile(L"no?such*name", 2) == 0 && package->LoadFile(file.Name()) == 1 &&
           package->LoadFile(missing.Name()) == 0 && package->SaveToFile(target.Name(), 3) == 1 &&
           target.IsClosed() && file.IsClosed();
}

TEST(Endurance, Files) { ExpectNoTrace(&UseFiles, kFew); }

// ---- The module --------------------------------------------------------------------------------

/// A copy of the DLL, which no one else has loaded.
class CopiedDll {
public:
    CopiedDll() {
        wchar_t original[MAX_PATH] = {};
        GetModuleFileNameW(support::JsonDll(), original, MAX_PATH);
        EXPECT_TRUE(CopyFileW(original, Name(), FALSE));
    }
    const wchar_t* Name() const { return file.Name(); }

private:
    const TempFile file;
};

/// Uses what a module exports, in what goes well and in what fails by an exception and by a fault.
bool UseModule(HMODULE module) {
    const auto create = reinterpret_cast<IJsonParser* (*)()>(
        reinterpret_cast<void*>(GetProcAddress(module, "CreateJsonParser")));
    if (!create) return false;
    const Parser parser(create());
    uint32_t type = 0;
    return parser->LoadJsonString(std::wstring(1'000'000, L'[').c_str()) == -5 &&
           parser->LoadJsonString(kSmall) == 1 && ReadsSmallDocument(*parser) &&
           parser->GetItemTypeByPath(L"/missing/1", &type) == -5;
}

TEST(Endurance, LoadingAndUnloading) {
    static const CopiedDll dll;
    ExpectNoTrace(
        [] {
            const HMODULE module = LoadLibraryW(dll.Name());
            bool good = module && UseModule(module);
            support::OnStackOf(support::kSmallStack, [&] { good = good && UseModule(module); });
            return good && FreeLibrary(module) && !GetModuleHandleW(dll.Name());
        },
        kFew);
}

// ---- Depth -------------------------------------------------------------------------------------

/// Deeper than a small stack carries, whatever the system makes of its size.
const std::wstring& Deep() {
    static const std::wstring deep = L"{\"a\":" + std::wstring(20'000, L'[');
    return deep;
}

bool GoTooDeep() {
    uint32_t handle = 0;
    const Parser parser = NewParser();
    const Generator generator = NewGenerator();
    const Package package = NewPackage();
    return parser->LoadJsonString(Deep().c_str()) == -5 &&
           generator->LoadJsonString(Deep().c_str(), &handle) == -5 &&
           generator->CreateRootArray(&handle) == 1 &&
           generator->AddArrayItemJsonString(1, Deep().c_str(), &handle) == -5 &&
           package->LoadString(Deep().c_str()) == -5 &&
           package->SetValue(L"k", Deep().c_str(), true) == -5 && package->LoadString(kSmall) == 1;
}

TEST(Endurance, DocumentsTooDeep) {
    support::OnStackOf(support::kSmallStack, [] { ExpectNoTrace(&GoTooDeep, kSome); });
}

}  // namespace
