// The operations by their place in the object's table, as the runtime calls them: it knows no
// class, only the order of the operations and their parameters.

#include <gtest/gtest.h>

#include "PackageDelegate.h"
#include "PackageState.h"
#include "TempFile.h"

namespace {

using QXJSON::JsonVariant;
using support::Package;

/// An object as the runtime sees it.
class Table {
public:
    explicit Table(void* anObject) : object(anObject) {}

    /// Calls the operation at a place with parameters of exactly these types.
    template <class... Parameters>
    int Call(size_t slot, Parameters... parameters) const {
        void* const* table = *static_cast<void***>(object);
        const auto function = reinterpret_cast<int (*)(void*, Parameters...)>(table[slot]);
        return function(object, parameters...);
    }

private:
    void* object;
};

using Key = const wchar_t*;

uint8_t Byte(int number) { return static_cast<uint8_t>(number); }
uint16_t Word(int number) { return static_cast<uint16_t>(number); }
uint32_t Long(int number) { return static_cast<uint32_t>(number); }

std::wstring TextAt28(const Table& package) {
    const wchar_t* text = L"";
    EXPECT_EQ(1, package.Call(28, &text));
    return text;
}

TEST(PackageSlots, LoadsAndErrors) {
    const Package owner = support::NewPackage();
    const Table package(owner.get());
    size_t offset = 99;
    const wchar_t* message = nullptr;
    EXPECT_EQ(0, package.Call(8));
    EXPECT_EQ(0, package.Call(12, Key{L"{\"a\""}));
    EXPECT_EQ(1, package.Call(8));
    EXPECT_EQ(1, package.Call(9, &offset));
    EXPECT_EQ(8u, offset);
    EXPECT_EQ(1, package.Call(10, &message));
    EXPECT_STREQ(L"Missing a colon after a name of object member.", message);
    const support::TempFile file("{\"a\":1}");
    EXPECT_EQ(1, package.Call(13, file.Name()));
    EXPECT_EQ(0, package.Call(8));
    EXPECT_EQ(L"{\"a\":1}", TextAt28(package));
}

TEST(PackageSlots, Keys) {
    const Package owner = support::LoadedPackage(L"{\"a\":1,\"b\":{}}");
    const Table package(owner.get());
    uint32_t number = 99;
    const wchar_t* name = nullptr;
    bool found = false;
    EXPECT_EQ(1, package.Call(14, &number));
    EXPECT_EQ(2u, number);
    EXPECT_EQ(1, package.Call(15, Long(1), &name));
    EXPECT_STREQ(L"b", name);
    EXPECT_EQ(1, package.Call(16, Key{L"A"}, &found));
    EXPECT_TRUE(found);
    EXPECT_EQ(1, package.Call(32, &number));
    EXPECT_EQ(1u, number);
    EXPECT_EQ(1, package.Call(31, Long(0)));
    EXPECT_EQ(0, package.Call(16, Key{L"A"}, &found));
    EXPECT_FALSE(found);
    EXPECT_EQ(1, package.Call(47, Key{L"b"}, &number));
    EXPECT_EQ(4u, number);
    EXPECT_EQ(1, package.Call(27, Key{L"a"}));
    EXPECT_EQ(L"{\"b\":{}}", TextAt28(package));
    EXPECT_EQ(1, package.Call(17));
    EXPECT_EQ(L"{}", TextAt28(package));
}

constexpr const wchar_t* kSetBySlots =
    L"{\"json\":[1],\"text\":\"[1]\",\"s\":\"text\",\"n\":2.5,\"b\":true,"
    L"\"v\":\"v\",\"w\":\"v\",\"i\":-3,\"x\":\"QUJD\"}";

TEST(PackageSlots, Setters) {
    const Package owner = support::NewPackage();
    const Table package(owner.get());
    const uint8_t bytes[] = {'A', 'B', 'C'};
    JsonVariant variant = {};
    const JsonVariant* const given = &variant;
    variant.tag = QXJSON::kVariantText;
    variant.text = L"v";
    EXPECT_EQ(1, package.Call(20, Key{L"json"}, Key{L"[1]"}, true));
    EXPECT_EQ(1, package.Call(20, Key{L"text"}, Key{L"[1]"}, false));
    EXPECT_EQ(1, package.Call(34, Key{L"s"}, Key{L"text"}));
    EXPECT_EQ(1, package.Call(36, Key{L"n"}, 2.5));
    EXPECT_EQ(1, package.Call(38, Key{L"b"}, true));
    EXPECT_EQ(1, package.Call(40, Key{L"v"}, given));
    EXPECT_EQ(1, package.Call(42, Key{L"w"}, given));
    variant.tag = QXJSON::kVariantInt64;
    variant.number = -3;
    EXPECT_EQ(1, package.Call(44, Key{L"i"}, given));
    EXPECT_EQ(1, package.Call(46, Key{L"x"}, &bytes[0], Long(3)));
    EXPECT_EQ(kSetBySlots, TextAt28(package));
}

TEST(PackageSlots, Getters) {
    const Package owner = support::LoadedPackage(kSetBySlots);
    const Table package(owner.get());
    const wchar_t* text = nullptr;
    double number = 0;
    bool flag = false;
    EXPECT_EQ(1, package.Call(18, Key{L"json"}, &text));
    EXPECT_STREQ(L"[1]", text);
    EXPECT_EQ(1, package.Call(33, Key{L"s"}, &text));
    EXPECT_STREQ(L"text", text);
    EXPECT_EQ(1, package.Call(35, Key{L"n"}, &number));
    EXPECT_EQ(2.5, number);
    EXPECT_EQ(1, package.Call(37, Key{L"b"}, &flag));
    EXPECT_TRUE(flag);
    const void* data = nullptr;
    uint32_t length = 0;
    EXPECT_EQ(1, package.Call(45, Key{L"x"}, &data, &length));
    EXPECT_EQ("ABC", std::string(static_cast<const char*>(data), length));
    JsonVariant variant = {};
    for (const size_t slot : {39, 41, 43}) {
        variant = {};
        EXPECT_EQ(1, package.Call(slot, Key{L"v"}, &variant));
        EXPECT_EQ(QXJSON::kVariantText, variant.tag);
        EXPECT_STREQ(L"v", variant.text);
        EXPECT_EQ(slot == 43 ? 1 : -3, package.Call(slot, Key{L"i"}, &variant));
    }
    EXPECT_EQ(QXJSON::kVariantInt64, variant.tag);
    EXPECT_EQ(-3, variant.number);
}

TEST(PackageSlots, Output) {
    const Package owner = support::LoadedPackage(L"{\"a\":1}");
    const Table package(owner.get());
    const void* data = nullptr;
    size_t length = 0;
    EXPECT_EQ(1, package.Call(29, &data, &length, int32_t{0}));
    EXPECT_EQ("{\"a\":1}", std::string(static_cast<const char*>(data), length));
    const support::TempFile file;
    EXPECT_EQ(1, package.Call(30, file.Name(), int32_t{3}));
    EXPECT_EQ(std::string("\xFE\xFF\0{\0\"\0a\0\"\0:\0\x31\0}", 16), file.Bytes());
}

std::vector<std::string> Called(const support::RecordingDelegate& delegate) {
    std::vector<std::string> names;
    for (const support::DelegateCall& call : delegate.calls) names.push_back(call.operation);
    return names;
}

const std::vector<std::string> kAllExports = {"DelegateExport0", "DelegateExport1",
                                              "DelegateExport2", "DelegateExport3",
                                              "DelegateExport4", "DelegateExport5"};

TEST(PackageSlots, Delegate) {
    const Package owner = support::NewPackage();
    const Table package(owner.get());
    support::RecordingDelegate delegate(L"[1]");
    QXJSON::IJsonPackageDelegate* const known = &delegate;
    void* const object = support::SomeObject();
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package.Call(11, known));
    EXPECT_EQ(1,
              package.Call(0, object, Word(1), Long(2), Long(3), Long(4), Long(5), Byte(6), &text));
    EXPECT_EQ(1, package.Call(1, object, Byte(1), Byte(2), Byte(3), Byte(4), Byte(5), &text));
    EXPECT_EQ(1, package.Call(2, object, Word(1), Byte(2), Byte(3), &text));
    EXPECT_EQ(1, package.Call(3, object, Byte(1), Byte(2), &text));
    EXPECT_EQ(1, package.Call(4, object, Byte(1), &text));
    EXPECT_EQ(1, package.Call(5, object, Long(1), &text));
    EXPECT_EQ(0,
              package.Call(6, object, Key{L""}, Byte(1), uint64_t{2}, Word(3), Long(4), Long(5)));
    EXPECT_EQ(kAllExports, Called(delegate));
}

TEST(PackageSlots, Bridge) {
    const Package owner = support::LoadedPackage(L"{\"k\":[0]}");
    const Table package(owner.get());
    support::RecordingDelegate delegate(L"[1]");
    EXPECT_EQ(1, owner->SetDelegate(&delegate));
    void* const object = support::SomeObject();
    const Key key = L"k";
    EXPECT_EQ(1,
              package.Call(21, key, object, Word(1), Long(2), Long(3), Long(4), Long(5), Byte(6)));
    EXPECT_EQ(1, package.Call(22, key, object, Byte(1), Byte(2), Byte(3), Byte(4), Byte(5)));
    EXPECT_EQ(1, package.Call(23, key, object, Word(1), Byte(2), Byte(3)));
    EXPECT_EQ(1, package.Call(24, key, object, Byte(1), Byte(2)));
    EXPECT_EQ(1, package.Call(25, key, object, Byte(1)));
    EXPECT_EQ(1, package.Call(19, key, object, Long(1)));
    EXPECT_EQ(kAllExports, Called(delegate));
    EXPECT_EQ(L"{\"k\":[1]}", TextAt28(package));

    EXPECT_EQ(1, package.Call(26, key, object, Byte(1), uint64_t{0x200000002}, Word(3), Long(4),
                              Long(5)));
    const support::DelegateCall import = {
        "DelegateImport", {reinterpret_cast<uintptr_t>(object), 1, 0x200000002, 3, 4, 5}, L"[1]"};
    EXPECT_EQ(import, delegate.calls.back());
}

size_t g_called = 0;

template <size_t kSlot>
int NoteCall(void*, void*) {
    g_called = kSlot;
    return -100 - static_cast<int>(kSlot);
}

/// The runtime's delegate is a table, too: the package calls it by places. Its functions may look
/// at fewer parameters than they are given.
TEST(PackageSlots, ADelegateIsCalledByPlaces) {
    using Function = int (*)(void*, void*);
    static const Function functions[] = {NoteCall<0>, NoteCall<1>, NoteCall<2>, NoteCall<3>,
                                         NoteCall<4>, NoteCall<5>, NoteCall<6>};
    const Function* object = functions;
    const Package package = support::LoadedPackage(L"{\"k\":[0]}");
    EXPECT_EQ(1, Table(package.get()).Call(11, &object));
    const auto& slots = support::ExportSlots();
    for (size_t i = 0; i < slots.size(); ++i) {
        EXPECT_EQ(-100 - static_cast<int>(i), slots[i].set(*package, L"k"));
        EXPECT_EQ(i, g_called);
    }
    EXPECT_EQ(-106, support::ImportFrom(*package, L"k"));
    EXPECT_EQ(6u, g_called);
}

TEST(PackageSlots, Release) {
    const Table package(support::NewPackage().release());
    EXPECT_EQ(1, package.Call(7));
}

}  // namespace
