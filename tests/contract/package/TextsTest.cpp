// Setting keys to texts, through every operation that can; and what variants may carry.

#include <gtest/gtest.h>

#include <climits>

#include "PackageDelegate.h"
#include "PackageState.h"

namespace {

using QXJSON::IJsonPackage;
using QXJSON::JsonVariant;
using QXJSON::kVariantInt64;
using QXJSON::kVariantText;
using support::LoadedPackage;
using support::NewPackage;
using support::Package;
using support::PackageStateOf;
using support::PackageText;

JsonVariant TextVariant(const wchar_t* text) {
    JsonVariant variant = {};
    variant.tag = kVariantText;
    variant.text = text;
    return variant;
}

JsonVariant NumberVariant(int64_t number) {
    JsonVariant variant = {};
    variant.tag = kVariantInt64;
    variant.number = number;
    return variant;
}

// ---- Every operation that sets a text ----------------------------------------------------------

struct TextRoute {
    const char* name;
    int nullText;        ///< the answer to a null text
    int nullTextAndKey;  ///< and to a null text for a null key
    int (*set)(IJsonPackage& package, const wchar_t* key, const wchar_t* text);
};

/// A variant is looked at before the key, as only a text makes the call one of SetValueString.
const TextRoute kTextRoutes[] = {
    {"SetValue", -4, -1,
     [](IJsonPackage& p, const wchar_t* key, const wchar_t* text) {
         return p.SetValue(key, text, false);
     }},
    {"SetValueString", -4, -1,
     [](IJsonPackage& p, const wchar_t* key, const wchar_t* text) {
         return p.SetValueString(key, text);
     }},
    {"SetValueVariant", -3, -3,
     [](IJsonPackage& p, const wchar_t* key, const wchar_t* text) {
         const JsonVariant variant = TextVariant(text);
         return p.SetValueVariant(key, &variant);
     }},
    {"SetValueVariantAlias", -3, -3,
     [](IJsonPackage& p, const wchar_t* key, const wchar_t* text) {
         const JsonVariant variant = TextVariant(text);
         return p.SetValueVariantAlias(key, &variant);
     }},
    {"SetValueVariantEx", -3, -3,
     [](IJsonPackage& p, const wchar_t* key, const wchar_t* text) {
         const JsonVariant variant = TextVariant(text);
         return p.SetValueVariantEx(key, &variant);
     }},
};

void ExpectString(IJsonPackage& package, const wchar_t* key, const std::wstring& expected) {
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, package.GetValueString(key, &text));
    EXPECT_EQ(expected, text);
    EXPECT_EQ(1, package.GetValue(key, &text));
    EXPECT_EQ(expected, text);
    uint32_t type = 99;
    EXPECT_EQ(1, package.GetValueType(key, &type));
    EXPECT_EQ(0u, type);
}

TEST(PackageTexts, ComeBackAsTheyWere) {
    const std::wstring texts[] = {L"",
                                  L"a",
                                  L"{\"not\":\"read\"}",
                                  L"[1,2]",
                                  L"null",
                                  L" \t\r\n\x01\x1F\"\\/",
                                  L"\xE9\x20AC\x4E2D\xFFFD\xFEFF",
                                  L"\xD83D\xDE00",
                                  L"\xD800 alone",
                                  L"\xDC00",
                                  L"seven c",
                                  L"eight ch",
                                  L"twelve chars",
                                  std::wstring(100000, L'x')};
    for (const TextRoute& route : kTextRoutes) {
        SCOPED_TRACE(route.name);
        const Package package = NewPackage();
        for (const std::wstring& text : texts) {
            SCOPED_TRACE(testing::PrintToString(text.substr(0, 30)));
            EXPECT_EQ(1, route.set(*package, L"new", text.c_str()));
            ExpectString(*package, L"new", text);
            EXPECT_EQ(1, route.set(*package, text.c_str(), text.c_str()));
            ExpectString(*package, text.c_str(), text);
            EXPECT_EQ(1, package->RemoveAll());
        }
    }
}

TEST(PackageTexts, TheCallersBuffersMayGoAfterTheCall) {
    for (const TextRoute& route : kTextRoutes) {
        SCOPED_TRACE(route.name);
        const Package package = NewPackage();
        for (const std::wstring original : {L"ab", L"a text that no value holds in itself"}) {
            std::wstring key = original;
            std::wstring text = original;
            EXPECT_EQ(1, route.set(*package, key.c_str(), text.c_str()));
            key.assign(key.size(), L'#');
            text.assign(text.size(), L'#');
            ExpectString(*package, original.c_str(), original);
        }
    }
}

TEST(PackageTexts, ReplaceValuesOfEveryKindInPlace) {
    for (const TextRoute& route : kTextRoutes)
        for (const wchar_t* old :
             {L"\"old\"", L"1", L"2.5", L"true", L"false", L"null", L"{\"x\":[1]}", L"[1,[2]]"}) {
            SCOPED_TRACE(std::string(route.name) + " over " + testing::PrintToString(old));
            const Package package =
                LoadedPackage(std::wstring(L"{\"a\":1,\"Key\":") + old + L",\"z\":2}");
            EXPECT_EQ(1, route.set(*package, L"kEY", L"new"));
            EXPECT_EQ(L"{\"a\":1,\"Key\":\"new\",\"z\":2}", PackageText(*package));
        }
}

TEST(PackageTexts, MistakesAreFoundInOrderAndChangeNothing) {
    for (const TextRoute& route : kTextRoutes) {
        SCOPED_TRACE(route.name);
        const Package package = LoadedPackage(L"{\"Key\":1}");
        const support::PackageState before = PackageStateOf(*package);
        EXPECT_EQ(-1, route.set(*package, nullptr, L"text"));
        EXPECT_EQ(route.nullText, route.set(*package, L"Key", nullptr));
        EXPECT_EQ(route.nullText, route.set(*package, L"new", nullptr));
        EXPECT_EQ(route.nullTextAndKey, route.set(*package, nullptr, nullptr));
        EXPECT_EQ(before, PackageStateOf(*package));
    }
}

// ---- The package's own texts as arguments ------------------------------------------------------

TEST(PackageTexts, APackagesOwnTextsCanBeSetAgain) {
    for (const TextRoute& route : kTextRoutes) {
        SCOPED_TRACE(route.name);
        const Package package = LoadedPackage(L"{\"a\":\"short\",\"b\":\"a text of some length\"}");
        for (const wchar_t* key : {L"a", L"b"}) {
            const wchar_t* text = nullptr;
            ASSERT_EQ(1, package->GetValueString(key, &text));
            const std::wstring copy = text;
            EXPECT_EQ(1, route.set(*package, key, text));
            ExpectString(*package, key, copy);
            ASSERT_EQ(1, package->GetValueString(key, &text));
            EXPECT_EQ(1, route.set(*package, (copy + L" once more").c_str(), text));
            ExpectString(*package, (copy + L" once more").c_str(), copy);
        }
        const wchar_t* name = nullptr;
        ASSERT_EQ(1, package->GetKeyName(0, &name));
        EXPECT_EQ(1, route.set(*package, name, name));
        ExpectString(*package, L"a", L"a");
        const wchar_t* whole = nullptr;
        ASSERT_EQ(1, package->GetText(&whole));
        const std::wstring copy = whole;
        EXPECT_EQ(1, route.set(*package, L"whole", whole));
        ExpectString(*package, L"whole", copy);
    }
}

// ---- Variants ----------------------------------------------------------------------------------

struct VariantSetter {
    const char* name;
    int (IJsonPackage::*set)(const wchar_t* key, const JsonVariant* variant);
    bool takesNumbers;
};

const VariantSetter kVariantSetters[] = {
    {"SetValueVariant", &IJsonPackage::SetValueVariant, false},
    {"SetValueVariantAlias", &IJsonPackage::SetValueVariantAlias, false},
    {"SetValueVariantEx", &IJsonPackage::SetValueVariantEx, true},
};

TEST(PackageVariants, OtherTagsAreRefusedWhateverTheyCarry) {
    const Package package = LoadedPackage(L"{\"Key\":1}");
    const support::PackageState before = PackageStateOf(*package);
    for (const VariantSetter& setter : kVariantSetters)
        for (unsigned tag = 0; tag <= 0xFFFF; ++tag) {
            if (tag == kVariantText || (setter.takesNumbers && tag == kVariantInt64)) continue;
            JsonVariant variant = TextVariant(L"text");
            variant.tag = static_cast<uint16_t>(tag);
            ASSERT_EQ(-3, (package.get()->*setter.set)(L"Key", &variant))
                << setter.name << ", tag " << tag;
        }
    EXPECT_EQ(before, PackageStateOf(*package));
}

TEST(PackageVariants, ANullVariantIsRefused) {
    const Package package = LoadedPackage(L"{\"Key\":1}");
    const support::PackageState before = PackageStateOf(*package);
    for (const VariantSetter& setter : kVariantSetters) {
        SCOPED_TRACE(setter.name);
        EXPECT_EQ(-3, (package.get()->*setter.set)(L"Key", nullptr));
        EXPECT_EQ(-3, (package.get()->*setter.set)(L"new", nullptr));
    }
    EXPECT_EQ(before, PackageStateOf(*package));
}

TEST(PackageVariants, ABadVariantIsFoundBeforeANullKey) {
    const Package package = NewPackage();
    JsonVariant other = NumberVariant(1);
    other.tag = 21;
    for (const VariantSetter& setter : kVariantSetters) {
        SCOPED_TRACE(setter.name);
        EXPECT_EQ(-3, (package.get()->*setter.set)(nullptr, nullptr));
        EXPECT_EQ(-3, (package.get()->*setter.set)(nullptr, &other));
    }
}

/// Only SetValueVariantEx takes numbers, and by way of double.
TEST(PackageVariants, Numbers) {
    struct Row {
        int64_t number;
        const wchar_t* stored;
    };
    const Row rows[] = {
        {0, L"0"},
        {1, L"1"},
        {-1, L"-1"},
        {INT_MIN, L"-2147483648"},
        {UINT_MAX, L"4294967295"},
        {9007199254740992, L"9007199254740992"},
        {9007199254740993, L"9007199254740992"},
        {-9007199254740993, L"-9007199254740992"},
        {9007199254740995, L"9007199254740996"},
        {INT64_MAX - 1023, L"9223372036854774784"},
        // Rounded up to 2^63, which wraps.
        {INT64_MAX, L"-9223372036854775808"},
        {INT64_MIN, L"-9223372036854775808"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.number);
        const Package package = LoadedPackage(L"{\"old\":\"text\"}");
        const JsonVariant variant = NumberVariant(row.number);
        EXPECT_EQ(-3, package->SetValueVariant(L"old", &variant));
        EXPECT_EQ(-3, package->SetValueVariantAlias(L"old", &variant));
        EXPECT_EQ(1, package->SetValueVariantEx(L"new", &variant));
        EXPECT_EQ(-1, package->SetValueVariantEx(nullptr, &variant));
        EXPECT_EQ(1, package->SetValueVariantEx(L"OLD", &variant));
        EXPECT_EQ(std::wstring(L"{\"old\":") + row.stored + L",\"new\":" + row.stored + L"}",
                  PackageText(*package));
    }
}

TEST(PackageVariants, GoInAndOut) {
    const Package package = NewPackage();
    const JsonVariant text = TextVariant(L"a text \xD83D\xDE00");
    const JsonVariant number = NumberVariant(-5000000000);
    EXPECT_EQ(1, package->SetValueVariantEx(L"t", &text));
    EXPECT_EQ(1, package->SetValueVariantEx(L"n", &number));
    JsonVariant got = {};
    EXPECT_EQ(1, package->GetValueVariantEx(L"t", &got));
    EXPECT_EQ(kVariantText, got.tag);
    EXPECT_STREQ(text.text, got.text);
    EXPECT_NE(text.text, got.text);
    EXPECT_EQ(1, package->GetValueVariantEx(L"n", &got));
    EXPECT_EQ(kVariantInt64, got.tag);
    EXPECT_EQ(-5000000000, got.number);
}

}  // namespace
