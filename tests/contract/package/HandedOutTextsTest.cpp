// How long the texts and bytes that a package returns live.

#include <gtest/gtest.h>

#include "PackageState.h"
#include "Selectors.h"
#include "TempFile.h"

namespace {

using QXJSON::IJsonPackage;
using QXJSON::JsonVariant;
using support::LoadedPackage;
using support::Package;

/// Short texts may be kept inside a value, which moves when keys come and go.
const std::wstring kValues[] = {L"", L"s", L"short", L"seven c", L"a text that is not so short"};

/// The ways to a string's characters.
const wchar_t* (*const kTextGetters[])(IJsonPackage& package, const wchar_t* key) = {
    [](IJsonPackage& package, const wchar_t* key) {
        const wchar_t* text = nullptr;
        EXPECT_EQ(1, package.GetValueString(key, &text));
        return text;
    },
    [](IJsonPackage& package, const wchar_t* key) {
        const wchar_t* text = nullptr;
        EXPECT_EQ(1, package.GetValue(key, &text));
        return text;
    },
    [](IJsonPackage& package, const wchar_t* key) {
        JsonVariant variant = {};
        EXPECT_EQ(1, package.GetValueVariant(key, &variant));
        return variant.text;
    },
    [](IJsonPackage& package, const wchar_t* key) {
        JsonVariant variant = {};
        EXPECT_EQ(1, package.GetValueVariantEx(key, &variant));
        return variant.text;
    },
};

/// What may happen to a package without an end to the text and the name of the key "kept".
struct Event {
    const char* name;
    void (*happen)(IJsonPackage& package);
};

const Event kEvents[] = {
    {"keys in front are removed",
     [](IJsonPackage& p) {
         EXPECT_EQ(1, p.RemoveKey(L"front"));
         EXPECT_EQ(1, p.RemoveKey(L"second"));
     }},
    {"a key behind is removed", [](IJsonPackage& p) { EXPECT_EQ(1, p.RemoveKey(L"behind")); }},
    {"all others are removed",
     [](IJsonPackage& p) {
         for (const wchar_t* key : {L"behind", L"front", L"second", L"last"})
             EXPECT_EQ(1, p.RemoveKey(key));
     }},
    {"another value is replaced",
     [](IJsonPackage& p) {
         EXPECT_EQ(1, p.SetValueString(L"front", L"new"));
         EXPECT_EQ(1, p.SetValue(L"behind", L"{\"x\":[1]}", true));
     }},
    {"a thousand keys are added",
     [](IJsonPackage& p) {
         for (int i = 0; i < 1000; ++i)
             EXPECT_EQ(1, p.SetValueString((L"key " + std::to_wstring(i)).c_str(), L"new"));
     }},
    {"keys are added where others were removed",
     [](IJsonPackage& p) {
         for (const wchar_t* key : {L"front", L"second", L"behind", L"last"}) {
             EXPECT_EQ(1, p.RemoveKey(key));
             EXPECT_EQ(1, p.SetValueString(key, L"##########"));
             EXPECT_EQ(1, p.SetValueString(L"another", L"####"));
         }
     }},
    {"output is made",
     [](IJsonPackage& p) {
         const wchar_t* text = nullptr;
         EXPECT_EQ(1, p.GetText(&text));
         EXPECT_EQ(1, p.GetValue(L"behind", &text));
         EXPECT_EQ(-1, p.GetValue(L"missing", &text));
         const void* data = nullptr;
         size_t length = 0;
         for (const int32_t encoding : support::kAllSelectors)
             EXPECT_EQ(1, p.GetBytes(&data, &length, encoding));
     }},
    {"blobs come and go",
     [](IJsonPackage& p) {
         const uint8_t bytes[1000] = {};
         const void* data = nullptr;
         uint32_t length = 0;
         EXPECT_EQ(1, p.SetValueBlob(L"blob", bytes, sizeof bytes));
         EXPECT_EQ(1, p.GetValueBlob(L"blob", &data, &length));
     }},
};

constexpr const wchar_t* kOthers[] = {L"front", L"second", L"behind", L"last"};

Package Prepared(const wchar_t* key, const std::wstring& value) {
    Package package = support::NewPackage();
    EXPECT_EQ(1, package->SetValueString(kOthers[0], L"f"));
    EXPECT_EQ(1, package->SetValueString(kOthers[1], L"in second place"));
    EXPECT_EQ(1, package->SetValueString(key, value.c_str()));
    EXPECT_EQ(1, package->SetValueString(kOthers[2], L"b"));
    EXPECT_EQ(1, package->SetValueNumber(kOthers[3], 5));
    return package;
}

TEST(PackageHandedOutTexts, TextsLiveUntilTheirKeyIsChanged) {
    for (const std::wstring& value : kValues)
        for (const Event& event : kEvents)
            for (const auto get : kTextGetters) {
                SCOPED_TRACE(testing::PrintToString(value) + ": " + event.name);
                const Package package = Prepared(L"kept", value);
                const wchar_t* text = get(*package, L"kept");
                event.happen(*package);
                ASSERT_EQ(value, text);
                EXPECT_EQ(value, get(*package, L"kept"));
            }
}

TEST(PackageHandedOutTexts, LoadedTextsLiveAsLong) {
    for (const std::wstring& value : kValues)
        for (const Event& event : kEvents) {
            SCOPED_TRACE(testing::PrintToString(value) + ": " + event.name);
            const Package package =
                LoadedPackage(L"{\"front\":1,\"second\":\"2\",\"kept\":\"" + value +
                              L"\",\"behind\":\"\",\"last\":\"a text of some length\"}");
            const wchar_t* text = kTextGetters[0](*package, L"kept");
            event.happen(*package);
            ASSERT_EQ(value, text);
        }
}

TEST(PackageHandedOutTexts, NamesLiveUntilTheirKeyIsChanged) {
    for (const std::wstring name :
         {L"", L"k", L"short", L"seven c", L"a name that is not so short"})
        for (const Event& event : kEvents) {
            SCOPED_TRACE(testing::PrintToString(name) + ": " + event.name);
            const Package package = Prepared(name.c_str(), L"text");
            const wchar_t* kept = nullptr;
            ASSERT_EQ(1, package->GetKeyName(2, &kept));
            ASSERT_EQ(name, kept);
            event.happen(*package);
            ASSERT_EQ(name, kept);
        }
}

/// Getters that fail do not touch what others returned.
TEST(PackageHandedOutTexts, TheWholeTextLivesUntilTheNextText) {
    const Package package = LoadedPackage(L"{\"s\":\"text\",\"n\":1,\"x\":\"QUJD\"}");
    const std::wstring expected = L"{\"s\":\"text\",\"n\":1,\"x\":\"QUJD\"}";
    const wchar_t* whole = nullptr;
    ASSERT_EQ(1, package->GetText(&whole));
    const wchar_t* text = nullptr;
    double number = 0;
    const void* data = nullptr;
    size_t size = 0;
    uint32_t length = 0;
    EXPECT_EQ(1, package->GetValueString(L"s", &text));
    EXPECT_EQ(1, package->GetValueNumber(L"n", &number));
    EXPECT_EQ(1, package->GetValueBlob(L"x", &data, &length));
    EXPECT_EQ(1, package->GetErrorMessage(&text));
    for (const int32_t encoding : support::kAllSelectors) {
        const support::TempFile file;
        EXPECT_EQ(1, package->GetBytes(&data, &size, encoding));
        EXPECT_EQ(1, package->SaveToFile(file.Name(), encoding));
    }
    EXPECT_EQ(1, package->SetValue(L"o", L"{\"a\":[1,2,3]}", true));
    EXPECT_EQ(0, package->SetValue(L"o", L"{\"a\":[1,2,3]", true));
    EXPECT_EQ(1, package->RemoveKey(L"s"));
    EXPECT_EQ(1, package->RemoveAll());
    EXPECT_EQ(expected, whole);
}

TEST(PackageHandedOutTexts, TheTextOfAContainerLivesUntilTheNextText) {
    const Package package = LoadedPackage(L"{\"o\":{\"x\":[1,\"2\"]},\"s\":\"text\"}");
    const wchar_t* text = nullptr;
    ASSERT_EQ(1, package->GetValue(L"o", &text));
    const void* data = nullptr;
    size_t size = 0;
    EXPECT_EQ(1, package->GetBytes(&data, &size, 1));
    EXPECT_EQ(1, package->SetValueString(L"o", L"changed"));
    EXPECT_EQ(1, package->RemoveAll());
    EXPECT_STREQ(L"{\"x\":[1,\"2\"]}", text);
}

TEST(PackageHandedOutTexts, BytesLiveUntilTheNextBytes) {
    const Package package = LoadedPackage(L"{\"o\":{\"x\":[1,\"2\"]},\"s\":\"QUJD\"}");
    const std::string expected = "{\"o\":{\"x\":[1,\"2\"]},\"s\":\"QUJD\"}";
    const void* data = nullptr;
    size_t size = 0;
    ASSERT_EQ(1, package->GetBytes(&data, &size, 2));
    const wchar_t* text = nullptr;
    const void* blob = nullptr;
    uint32_t length = 0;
    const support::TempFile file;
    EXPECT_EQ(1, package->GetText(&text));
    EXPECT_EQ(1, package->GetValue(L"o", &text));
    EXPECT_EQ(1, package->GetValueBlob(L"s", &blob, &length));
    EXPECT_EQ(1, package->SaveToFile(file.Name(), 1));
    EXPECT_EQ(1, package->SetValueString(L"s", L"changed"));
    EXPECT_EQ(1, package->RemoveAll());
    EXPECT_EQ(expected, std::string(static_cast<const char*>(data), size));
}

}  // namespace
