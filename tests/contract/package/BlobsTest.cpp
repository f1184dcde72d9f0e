// Bytes as values: stored as base64 texts, and read from any text that is base64.

#include <gtest/gtest.h>

#include <optional>

#include "Base64.h"
#include "PackageState.h"

namespace {

using support::LoadedPackage;
using support::NewPackage;
using support::Package;
using support::PackageState;
using support::PackageStateOf;
using support::PackageText;

const uint8_t* Data(const std::string& bytes) {
    return reinterpret_cast<const uint8_t*>(bytes.data());
}

int SetBlob(QXJSON::IJsonPackage& package, const wchar_t* key, const std::string& bytes) {
    return package.SetValueBlob(key, Data(bytes), static_cast<uint32_t>(bytes.size()));
}

std::string Blob(QXJSON::IJsonPackage& package, const wchar_t* key) {
    const void* data = nullptr;
    uint32_t length = 0;
    EXPECT_EQ(1, package.GetValueBlob(key, &data, &length));
    return std::string(static_cast<const char*>(data), length);
}

std::string Counted(size_t size) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 7 + i / 256);
    return bytes;
}

TEST(PackageBlobs, AreStoredAsBase64InOneLine) {
    struct Row {
        std::string bytes;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"A", L"QQ=="},
        {"AB", L"QUI="},
        {"ABC", L"QUJD"},
        {std::string(1, '\0'), L"AA=="},
        {std::string(3, '\xFF'), L"////"},
        {"\xFB\xEF\xBE", L"++++"},
        {std::string("\0\0\0\0", 4), L"AAAAAA=="},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.bytes));
        const Package package = NewPackage();
        EXPECT_EQ(1, SetBlob(*package, L"k", row.bytes));
        EXPECT_EQ(std::wstring(L"{\"k\":\"") + row.text + L"\"}", PackageText(*package));
        uint32_t type = 99;
        EXPECT_EQ(1, package->GetValueType(L"k", &type));
        EXPECT_EQ(0u, type);
        EXPECT_EQ(row.bytes, Blob(*package, L"k"));
    }
}

TEST(PackageBlobs, OfEverySize) {
    const Package package = NewPackage();
    for (size_t size = 1; size <= 600; ++size) {
        const std::string bytes = Counted(size);
        ASSERT_EQ(1, SetBlob(*package, L"k", bytes)) << size;
        const wchar_t* text = nullptr;
        ASSERT_EQ(1, package->GetValueString(L"k", &text));
        ASSERT_EQ(support::EncodeBase64(bytes), text);
        ASSERT_EQ(bytes, Blob(*package, L"k")) << size;
    }
    const std::string large = Counted(1'000'001);
    EXPECT_EQ(1, SetBlob(*package, L"large", large));
    EXPECT_TRUE(large == Blob(*package, L"large"));
    EXPECT_EQ(1, SetBlob(*package, L"k", "A"));
    EXPECT_EQ("A", Blob(*package, L"k"));
    EXPECT_TRUE(large == Blob(*package, L"LARGE"));
}

TEST(PackageBlobs, ReplaceValuesOfEveryKindInPlace) {
    for (const wchar_t* old : {L"\"old\"", L"1", L"2.5", L"true", L"null", L"{\"x\":1}", L"[1]"}) {
        SCOPED_TRACE(testing::PrintToString(old));
        const Package package =
            LoadedPackage(std::wstring(L"{\"a\":1,\"Key\":") + old + L",\"z\":2}");
        EXPECT_EQ(1, SetBlob(*package, L"kEY", "ABC"));
        EXPECT_EQ(L"{\"a\":1,\"Key\":\"QUJD\",\"z\":2}", PackageText(*package));
    }
}

TEST(PackageBlobs, MistakesAreFoundInOrderAndChangeNothing) {
    const Package package = LoadedPackage(L"{\"Key\":1}");
    const PackageState before = PackageStateOf(*package);
    const std::string bytes = "ABC";
    EXPECT_EQ(-1, package->SetValueBlob(nullptr, Data(bytes), 3));
    EXPECT_EQ(-1, package->SetValueBlob(nullptr, nullptr, 3));
    EXPECT_EQ(-1, package->SetValueBlob(nullptr, Data(bytes), 0));
    EXPECT_EQ(-1, package->SetValueBlob(nullptr, nullptr, 0));
    for (const wchar_t* key : {L"Key", L"new", L""}) {
        EXPECT_EQ(-4, package->SetValueBlob(key, nullptr, 3));
        EXPECT_EQ(-4, package->SetValueBlob(key, Data(bytes), 0));
        EXPECT_EQ(-4, package->SetValueBlob(key, nullptr, 0));
    }
    EXPECT_EQ(before, PackageStateOf(*package));
}

/// What base64 is, the system decides: blanks and line ends, missing padding, other characters.
TEST(PackageBlobs, TextsAreReadAsTheSystemReadsThem) {
    const wchar_t* const texts[] = {
        L"",
        L"QUJD",
        L"QUI=",
        L"QQ==",
        L"QUI",
        L"QQ",
        L"Q",
        L"QUJD\r\n",
        L" QUJD ",
        L"QU JD",
        L"QU\r\nJD",
        L"QQ==QQ",
        L"====",
        L"=",
        L"?*!",
        L"QUJ\xE9",
        L"QUJ\x4E2D",
        L"-_-_",
        L"QUJDR",
        L"QUJD=",
        L"QQ= =",
        L"\tQUJD",
        L"QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVo=",
    };
    for (const wchar_t* text : texts) {
        SCOPED_TRACE(testing::PrintToString(text));
        const Package package = NewPackage();
        ASSERT_EQ(1, package->SetValueString(L"k", text));
        const void* data = &data;
        uint32_t length = 99;
        const int result = package->GetValueBlob(L"k", &data, &length);
        const std::optional<std::string> expected = support::PlatformDecode(text);
        EXPECT_EQ(expected ? 1 : -3, result);
        if (expected && result == 1) {
            EXPECT_EQ(*expected, std::string(static_cast<const char*>(data), length));
        }
    }
}

TEST(PackageBlobs, LiveUntilTheNextBlobOrMessage) {
    const Package package = NewPackage();
    const std::string bytes = Counted(2000);
    ASSERT_EQ(1, SetBlob(*package, L"k", bytes));
    const void* data = nullptr;
    uint32_t length = 0;
    ASSERT_EQ(1, package->GetValueBlob(L"k", &data, &length));
    EXPECT_EQ(1, package->SetValueString(L"k", L"something else"));
    EXPECT_EQ(1, package->SetValue(L"o", L"{\"x\":[1,2]}", true));
    EXPECT_EQ(1, package->RemoveKey(L"k"));
    EXPECT_EQ(L"{\"o\":{\"x\":[1,2]}}", PackageText(*package));
    const void* output = nullptr;
    size_t size = 0;
    EXPECT_EQ(1, package->GetBytes(&output, &size, 2));
    EXPECT_EQ(1, package->RemoveAll());
    EXPECT_EQ(bytes, std::string(static_cast<const char*>(data), length));
}

}  // namespace
