// What a package returned, given back to it as an argument while it still lives.

#include <gtest/gtest.h>

#include "PackageState.h"
#include "Selectors.h"

namespace {

using QXJSON::IJsonPackage;
using QXJSON::JsonVariant;
using support::LoadedPackage;
using support::Package;
using support::PackageText;

const uint8_t* Data(const void* memory) { return static_cast<const uint8_t*>(memory); }

std::string Counted(size_t size) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    return bytes;
}

/// The bytes of a key, where the package handed them out.
std::string_view Blob(IJsonPackage& package, const wchar_t* key) {
    const void* data = nullptr;
    uint32_t length = 0;
    EXPECT_EQ(1, package.GetValueBlob(key, &data, &length));
    return {static_cast<const char*>(data), length};
}

const wchar_t* ValueOf(IJsonPackage& package, const wchar_t* key) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package.GetValue(key, &text));
    return text;
}

const wchar_t* NameAt(IJsonPackage& package, uint32_t index) {
    const wchar_t* name = nullptr;
    EXPECT_EQ(1, package.GetKeyName(index, &name));
    return name;
}

const wchar_t* MessageOf(IJsonPackage& package) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package.GetErrorMessage(&text));
    return text;
}

/// The blob of one key becomes that of another, and of the same.
TEST(PackageOwnMemory, BlobsBecomeBlobs) {
    for (const size_t size : {1, 2, 3, 100, 380, 384, 385, 511, 512, 513, 5'000, 1'000'000}) {
        SCOPED_TRACE(size);
        const std::string bytes = Counted(size);
        for (const wchar_t* key : {L"other", L"blob"}) {
            const Package package = support::NewPackage();
            EXPECT_EQ(
                1, package->SetValueBlob(L"blob", Data(bytes.data()), static_cast<uint32_t>(size)));
            const std::string_view own = Blob(*package, L"blob");
            EXPECT_EQ(
                1, package->SetValueBlob(key, Data(own.data()), static_cast<uint32_t>(own.size())));
            EXPECT_TRUE(bytes == Blob(*package, key)) << testing::PrintToString(key);
            EXPECT_TRUE(bytes == Blob(*package, L"blob"));
        }
    }
}

TEST(PackageOwnMemory, PartsOfBlobsBecomeBlobs) {
    const std::string bytes = Counted(2'000);
    const Package package = support::NewPackage();
    EXPECT_EQ(1, package->SetValueBlob(L"blob", Data(bytes.data()), 2'000));
    for (const size_t front : {1, 2, 3, 255, 256, 1'000, 1'999}) {
        const std::string_view part = Blob(*package, L"blob").substr(front);
        EXPECT_EQ(1, package->SetValueBlob(L"part", Data(part.data()),
                                           static_cast<uint32_t>(part.size())));
        EXPECT_TRUE(bytes.substr(front) == Blob(*package, L"part")) << front;
    }
}

/// Messages and the bytes of blobs lie in the same memory; either may be a key.
TEST(PackageOwnMemory, MessagesAndBlobsAsKeys) {
    const Package package = support::NewPackage();
    package->LoadString(L"[1]");
    const std::wstring message = MessageOf(*package);
    ASSERT_FALSE(message.empty());
    EXPECT_EQ(1, package->SetValueBlob(MessageOf(*package), Data("ABC"), 3));
    EXPECT_EQ(L"{\"" + message + L"\":\"QUJD\"}", PackageText(*package));
    // Its own characters as the bytes.
    const wchar_t* const key = MessageOf(*package);
    EXPECT_EQ(1, package->SetValueBlob(key, Data(key), 6));
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(message.data()), 6),
              Blob(*package, message.c_str()));
    // A blob that is text.
    EXPECT_EQ(1, package->SetValueBlob(L"name", Data(L"a key"), 12));
    const auto* name = reinterpret_cast<const wchar_t*>(Blob(*package, L"name").data());
    EXPECT_EQ(1, package->SetValueBlob(name, Data("DEF"), 3));
    EXPECT_EQ("DEF", Blob(*package, L"a key"));
    name = reinterpret_cast<const wchar_t*>(Blob(*package, L"name").data());
    EXPECT_EQ("DEF", Blob(*package, name));
}

TEST(PackageOwnMemory, MessagesAndBlobsAsTexts) {
    const Package package = support::NewPackage();
    package->LoadString(L"[1]");
    const std::wstring message = MessageOf(*package);
    EXPECT_EQ(1, package->SetValueString(L"message", MessageOf(*package)));
    EXPECT_EQ(message, ValueOf(*package, L"message"));
    EXPECT_EQ(1, package->SetValueBlob(L"blob", Data(L"[1,{}]"), 14));
    const auto* text = reinterpret_cast<const wchar_t*>(Blob(*package, L"blob").data());
    EXPECT_EQ(1, package->SetValue(text, text, true));
    EXPECT_STREQ(L"[1,{}]", ValueOf(*package, L"[1,{}]"));
}

/// Texts of every length: RapidJSON keeps short ones inside the value that they replace.
TEST(PackageOwnMemory, ATextBecomesItsOwnKeysValue) {
    for (const size_t length : {0, 1, 5, 7, 8, 50, 5'000}) {
        std::wstring text;
        for (size_t i = 0; i < length; ++i) text += static_cast<wchar_t>(L'a' + i % 26);
        const Package package = LoadedPackage(L"{\"z\":1,\"k\":\"" + text + L"\"}");
        EXPECT_EQ(1, package->SetValueString(L"k", ValueOf(*package, L"k")));
        EXPECT_EQ(text, ValueOf(*package, L"k"));
        EXPECT_EQ(1, package->SetValueString(L"k", ValueOf(*package, L"k") + length / 2));
        EXPECT_EQ(text.substr(length / 2), ValueOf(*package, L"k"));
        JsonVariant variant = {};
        EXPECT_EQ(1, package->GetValueVariant(L"k", &variant));
        EXPECT_EQ(1, package->SetValueVariant(L"k", &variant));
        EXPECT_EQ(1, package->SetValueVariantEx(L"new", &variant));
        EXPECT_EQ(text.substr(length / 2), ValueOf(*package, L"k"));
        EXPECT_EQ(text.substr(length / 2), ValueOf(*package, L"new"));
    }
}

TEST(PackageOwnMemory, ATextIsKeyAndValue) {
    const Package package = LoadedPackage(L"{\"k\":\"k\",\"long\":\"a text that is not short\"}");
    for (const wchar_t* key : {L"k", L"long"}) {
        const std::wstring text = ValueOf(*package, key);
        const wchar_t* const own = ValueOf(*package, key);
        EXPECT_EQ(1, package->SetValueString(own, own));
        EXPECT_EQ(text, ValueOf(*package, text.c_str()));
        EXPECT_EQ(text, ValueOf(*package, ValueOf(*package, key)));
    }
    EXPECT_EQ(
        L"{\"k\":\"k\",\"long\":\"a text that is not short\",\"a text that is not short\":"
        L"\"a text that is not short\"}",
        PackageText(*package));
}

constexpr uint32_t kManyKeys = 2'000;  ///< enough for an index

std::wstring ManyKeys() {
    std::wstring json = L"{";
    for (uint32_t i = 0; i < kManyKeys; ++i)
        json +=
            (i == 0 ? L"\"Key " : L",\"Key ") + std::to_wstring(i) + L"\":" + std::to_wstring(i);
    return json + L"}";
}

TEST(PackageOwnMemory, NamesNameTheirKeys) {
    const Package package = LoadedPackage(ManyKeys());
    for (uint32_t i = 0; i < kManyKeys; i += 97) {
        const wchar_t* const name = NameAt(*package, i);
        double number = 0;
        EXPECT_EQ(1, package->GetValueNumber(name, &number));
        EXPECT_EQ(i, number);
        EXPECT_EQ(1, package->SetValueString(name, name));
        EXPECT_EQ(1, package->SetValueBlob(name, Data(name), 6));
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(L"Key"), 6), Blob(*package, name));
        EXPECT_EQ(1, package->SetValue(name, L"[1]", true));
        EXPECT_STREQ(L"[1]", ValueOf(*package, name));
        EXPECT_EQ(1, package->SetValueBoolean(name + 1, true));  // a new key, of a part of it
    }
}

/// The first key, the last and one in between, until none is left.
TEST(PackageOwnMemory, KeysAreRemovedByTheirOwnNames) {
    for (const bool ignoreCase : {false, true}) {
        const Package package = LoadedPackage(ManyKeys());
        EXPECT_EQ(1, package->SetIgnoreCase(ignoreCase ? 1 : 0));
        for (uint32_t left = kManyKeys; left > 0; --left) {
            const uint32_t index = left % 3 == 0 ? 0 : left % 3 == 1 ? left - 1 : left / 2;
            const std::wstring name = NameAt(*package, index);
            ASSERT_EQ(1, package->RemoveKey(NameAt(*package, index)));
            bool found = true;
            ASSERT_EQ(0, package->ContainsKey(name.c_str(), &found));
        }
        EXPECT_EQ(L"{}", PackageText(*package));
    }
}

/// The JSON text of the package and of its values, as JSON for other keys and as text.
TEST(PackageOwnMemory, OutputBecomesValues) {
    const Package package = LoadedPackage(L"{\"o\":{\"x\":[1,2]},\"n\":1}");
    EXPECT_EQ(1, package->SetValue(L"copy", ValueOf(*package, L"o"), true));
    EXPECT_EQ(1, package->SetValue(L"o", ValueOf(*package, L"o"), true));
    EXPECT_EQ(1, package->SetValue(L"text", ValueOf(*package, L"o"), false));
    EXPECT_EQ(
        L"{\"o\":{\"x\":[1,2]},\"n\":1,\"copy\":{\"x\":[1,2]},\"text\":\"{\\\"x\\\":[1,2]}\"}",
        PackageText(*package));
    const std::wstring whole = PackageText(*package);
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package->GetText(&text));
    EXPECT_EQ(1, package->SetValue(L"o", text, true));
    EXPECT_EQ(whole, ValueOf(*package, L"o"));
    EXPECT_EQ(1, package->GetText(&text));
    EXPECT_EQ(1, package->SetValueNumber(text, 1));  // as a key
    EXPECT_EQ(1, package->GetText(&text));
    EXPECT_EQ(1, package->SetValueBlob(L"blob", Data(text), 4));
    EXPECT_EQ(std::string("{\0\"\0", 4), Blob(*package, L"blob"));
    const void* data = nullptr;
    size_t length = 0;
    for (const int32_t encoding : support::kAllSelectors) {
        EXPECT_EQ(1, package->GetBytes(&data, &length, encoding));
        const std::string bytes(static_cast<const char*>(data), length);
        EXPECT_EQ(1, package->SetValueBlob(L"blob", Data(data), static_cast<uint32_t>(length)));
        EXPECT_EQ(bytes, Blob(*package, L"blob"));
    }
}

/// A key that lies where the value is going to be written.
TEST(PackageOwnMemory, OutputIsAKeyForOutput) {
    const Package package = LoadedPackage(L"{\"o\":{\"x\":1},\"{\\\"x\\\":1}\":[1,2,3]}");
    EXPECT_STREQ(L"[1,2,3]", ValueOf(*package, ValueOf(*package, L"o")));
}

}  // namespace
