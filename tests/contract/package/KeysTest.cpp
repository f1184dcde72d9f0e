// Keys: how they are counted, named, found with and without regard to case, added, and removed.

#include <gtest/gtest.h>

#include "PackageState.h"

namespace {

using QXJSON::IJsonPackage;
using support::LoadedPackage;
using support::NewPackage;
using support::Package;
using support::PackageState;
using support::PackageStateOf;
using support::PackageText;

using Names = std::vector<std::wstring>;

Names NamesOf(IJsonPackage& package) {
    uint32_t count = 0;
    EXPECT_EQ(1, package.GetKeyCount(&count));
    Names names;
    for (uint32_t i = 0; i < count; ++i) {
        const wchar_t* name = nullptr;
        EXPECT_EQ(1, package.GetKeyName(i, &name));
        names.push_back(name);
    }
    return names;
}

bool Contains(IJsonPackage& package, const wchar_t* key) {
    bool found = false;
    const int result = package.ContainsKey(key, &found);
    EXPECT_EQ(found ? 1 : 0, result);
    return result == 1;
}

double NumberOf(IJsonPackage& package, const wchar_t* key) {
    double number = -1;
    package.GetValueNumber(key, &number);
    return number;
}

// ---- Counting and naming -----------------------------------------------------------------------

TEST(PackageKeys, ANewPackageHasNone) {
    const Package package = NewPackage();
    EXPECT_EQ(Names(), NamesOf(*package));
    EXPECT_EQ(L"{}", PackageText(*package));
    EXPECT_FALSE(Contains(*package, L""));
    EXPECT_FALSE(Contains(*package, L"a"));
}

TEST(PackageKeys, AreNumberedInTheOrderInWhichTheyWereSet) {
    const Package package = NewPackage();
    const Names names = {
        L"zebra", L"",  L"apple", L"\x4E2D\xD83D\xDE00",   L"a key of some length", L"Mango",
        L"\xE9",  L"1", L"/~",    std::wstring(5000, L'k')};
    for (const std::wstring& name : names)
        EXPECT_EQ(1, package->SetValueBoolean(name.c_str(), true));
    EXPECT_EQ(names, NamesOf(*package));
    for (const std::wstring& name : names) EXPECT_TRUE(Contains(*package, name.c_str()));
}

TEST(PackageKeys, AnIndexBehindTheLastIsRefused) {
    for (const wchar_t* json : {L"{}", L"{\"a\":1}", L"{\"a\":1,\"b\":2}"}) {
        const Package package = LoadedPackage(json);
        uint32_t count = 0;
        ASSERT_EQ(1, package->GetKeyCount(&count));
        for (const uint32_t index : {count, count + 1, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
            const wchar_t* name = L"unwritten";
            EXPECT_EQ(0, package->GetKeyName(index, &name)) << index;
            EXPECT_STREQ(L"unwritten", name);
        }
    }
}

TEST(PackageKeys, MissingOutputsAnswerZero) {
    const Package package = LoadedPackage(L"{\"a\":1}");
    const PackageState before = PackageStateOf(*package);
    EXPECT_EQ(0, package->GetKeyCount(nullptr));
    EXPECT_EQ(0, package->GetKeyName(0, nullptr));
    EXPECT_EQ(0, package->GetKeyName(1, nullptr));
    EXPECT_EQ(0, package->GetIgnoreCase(nullptr));
    EXPECT_EQ(before, PackageStateOf(*package));
}

// ---- The ignore-case flag ----------------------------------------------------------------------

TEST(PackageKeys, TheFlagIsKeptAsItWasStored) {
    const Package package = LoadedPackage(L"{\"Key\":1}");
    uint32_t flag = 99;
    EXPECT_EQ(1, package->GetIgnoreCase(&flag));
    EXPECT_EQ(1u, flag);
    for (const uint32_t stored : {0u, 1u, 2u, 0x100u, 0x10000u, 0x80000000u, 0xFFFFFFFFu, 0u}) {
        SCOPED_TRACE(stored);
        EXPECT_EQ(1, package->SetIgnoreCase(stored));
        EXPECT_EQ(1, package->GetIgnoreCase(&flag));
        EXPECT_EQ(stored, flag);
        EXPECT_EQ(stored != 0, Contains(*package, L"kEY"));
        EXPECT_TRUE(Contains(*package, L"Key"));
    }
}

TEST(PackageKeys, TheFlagBelongsToOnePackage) {
    const Package exact = LoadedPackage(L"{\"Key\":1}");
    const Package folding = LoadedPackage(L"{\"Key\":1}");
    EXPECT_EQ(1, exact->SetIgnoreCase(0));
    EXPECT_FALSE(Contains(*exact, L"key"));
    EXPECT_TRUE(Contains(*folding, L"key"));
}

// ---- Equality of names -------------------------------------------------------------------------

bool IsLetter(wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z'); }

bool AreEqual(wchar_t a, wchar_t b, bool ignoreCase) {
    return a == b || (ignoreCase && IsLetter(a) && IsLetter(b) && (a ^ b) == 0x20);
}

TEST(PackageKeys, OnlyAsciiLettersFold) {
    for (const bool ignoreCase : {true, false}) {
        const Package package = NewPackage();
        EXPECT_EQ(1, package->SetIgnoreCase(ignoreCase));
        for (wchar_t a = 1; a < 0x80; ++a) {
            const wchar_t name[] = {a, 0};
            ASSERT_EQ(1, package->RemoveAll());
            ASSERT_EQ(1, package->SetValueBoolean(name, true));
            for (wchar_t b = 1; b < 0x80; ++b) {
                const wchar_t key[] = {b, 0};
                ASSERT_EQ(AreEqual(a, b, ignoreCase), Contains(*package, key)) << a << ' ' << b;
            }
        }
    }
}

/// No character outside ASCII has another case, and none is the other case of a letter.
TEST(PackageKeys, AllOtherCharactersCompareExactly) {
    const Package package = NewPackage();
    for (unsigned unit = 0x80; unit <= 0xFFFF; ++unit) {
        const auto c = static_cast<wchar_t>(unit);
        const wchar_t name[] = {L'x', c, 0};
        ASSERT_EQ(1, package->SetValueBoolean(name, true));
        ASSERT_TRUE(Contains(*package, name)) << unit;
        const unsigned lookalikes[] = {unit ^ 0x20, unit + 0x20, unit - 0x20, unit ^ 1,
                                       unit & 0x7F, unit & 0xFF, towupper(c), towlower(c)};
        for (const unsigned lookalike : lookalikes) {
            const auto other = static_cast<wchar_t>(lookalike);
            const wchar_t key[] = {L'X', other, 0};
            ASSERT_EQ(c == other, Contains(*package, key)) << unit << ' ' << lookalike;
        }
        ASSERT_EQ(1, package->RemoveKey(name));
    }
}

TEST(PackageKeys, NamesOfDifferentLengthNeverMatch) {
    for (const uint32_t flag : {0u, 1u}) {
        const Package package = LoadedPackage(L"{\"abc\":1,\"nul\\u0000x\":2,\"\\u0000\":3}");
        EXPECT_EQ(1, package->SetIgnoreCase(flag));
        for (const wchar_t* key : {L"", L"a", L"ab", L"abcd", L"abc ", L" abc", L"nul", L"nulx"})
            EXPECT_FALSE(Contains(*package, key)) << testing::PrintToString(key);
        EXPECT_TRUE(Contains(*package, L"abc"));
        EXPECT_EQ(1, package->SetValueNumber(L"nul", 4));
        EXPECT_EQ(L"{\"abc\":1,\"nul\\u0000x\":2,\"\\u0000\":3,\"nul\":4}", PackageText(*package));
    }
}

/// With a difference in any one place, in names around the lengths that values hold in themselves.
TEST(PackageKeys, EveryCharacterCounts) {
    for (const size_t length : {1u, 5u, 6u, 7u, 8u, 13u, 14u, 300u}) {
        const std::wstring name(length, L'n');
        const Package package = LoadedPackage(L"{\"" + name + L"\":1}");
        for (size_t i = 0; i < length; ++i) {
            std::wstring key = name;
            key[i] = L'N';
            ASSERT_TRUE(Contains(*package, key.c_str())) << length << ' ' << i;
            key[i] = L'm';
            ASSERT_FALSE(Contains(*package, key.c_str())) << length << ' ' << i;
        }
    }
}

// ---- Which member a key names ------------------------------------------------------------------

constexpr const wchar_t* kSpellings =
    L"{\"kEy\":1,\"KEY\":2,\"key\":3,\"KEY\":4,\"other\":5,\"Key\":6}";

TEST(PackageKeys, WithoutCaseTheFirstMemberIsFound) {
    const Package package = LoadedPackage(kSpellings);
    for (const wchar_t* key : {L"kEy", L"KEY", L"key", L"Key", L"keY"})
        EXPECT_EQ(1, NumberOf(*package, key)) << testing::PrintToString(key);
}

TEST(PackageKeys, WithCaseTheFirstOfTheSameSpellingIsFound) {
    const Package package = LoadedPackage(kSpellings);
    EXPECT_EQ(1, package->SetIgnoreCase(0));
    EXPECT_EQ(1, NumberOf(*package, L"kEy"));
    EXPECT_EQ(2, NumberOf(*package, L"KEY"));
    EXPECT_EQ(3, NumberOf(*package, L"key"));
    EXPECT_EQ(6, NumberOf(*package, L"Key"));
    EXPECT_FALSE(Contains(*package, L"keY"));
}

TEST(PackageKeys, SettingReplacesTheMemberThatIsFound) {
    const Package package = LoadedPackage(kSpellings);
    EXPECT_EQ(1, package->SetValueNumber(L"KEY", 10));
    EXPECT_EQ(L"{\"kEy\":10,\"KEY\":2,\"key\":3,\"KEY\":4,\"other\":5,\"Key\":6}",
              PackageText(*package));
    EXPECT_EQ(1, package->SetIgnoreCase(0));
    EXPECT_EQ(1, package->SetValueNumber(L"KEY", 20));
    EXPECT_EQ(1, package->SetValueNumber(L"keY", 30));
    EXPECT_EQ(L"{\"kEy\":10,\"KEY\":20,\"key\":3,\"KEY\":4,\"other\":5,\"Key\":6,\"keY\":30}",
              PackageText(*package));
}

TEST(PackageKeys, TheFirstSpellingAndThePlaceAreKept) {
    const Package package = NewPackage();
    EXPECT_EQ(1, package->SetValueNumber(L"First", 1));
    EXPECT_EQ(1, package->SetValueNumber(L"Name", 2));
    EXPECT_EQ(1, package->SetValueNumber(L"Last", 3));
    EXPECT_EQ(1, package->SetValueString(L"NAME", L"text"));
    EXPECT_EQ(L"{\"First\":1,\"Name\":\"text\",\"Last\":3}", PackageText(*package));
    EXPECT_EQ(1, package->SetIgnoreCase(0));
    EXPECT_EQ(1, package->SetValueNumber(L"NAME", 4));
    EXPECT_EQ(L"{\"First\":1,\"Name\":\"text\",\"Last\":3,\"NAME\":4}", PackageText(*package));
}

/// Each operation that sets a key treats names alike.
TEST(PackageKeys, EverySetterKeepsSpellingAndPlace) {
    using Set = int (*)(IJsonPackage&, const wchar_t*);
    struct Row {
        Set set;
        const wchar_t* value;
    };
    const Row rows[] = {
        {[](IJsonPackage& p, const wchar_t* key) { return p.SetValue(key, L"t", false); },
         L"\"t\""},
        {[](IJsonPackage& p, const wchar_t* key) { return p.SetValue(key, L"[2]", true); }, L"[2]"},
        {[](IJsonPackage& p, const wchar_t* key) { return p.SetValueString(key, L"t"); }, L"\"t\""},
        {[](IJsonPackage& p, const wchar_t* key) { return p.SetValueNumber(key, 2.5); }, L"2.5"},
        {[](IJsonPackage& p, const wchar_t* key) { return p.SetValueNumber(key, 25); }, L"25"},
        {[](IJsonPackage& p, const wchar_t* key) { return p.SetValueBoolean(key, true); }, L"true"},
        {[](IJsonPackage& p, const wchar_t* key) {
             const uint8_t byte = 0;
             return p.SetValueBlob(key, &byte, 1);
         },
         L"\"AA==\""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.value));
        const std::wstring value = row.value;
        const Package package = LoadedPackage(L"{\"a\":1,\"Key\":2,\"z\":3}");
        EXPECT_EQ(1, row.set(*package, L"KEY"));
        EXPECT_EQ(1, row.set(*package, L"New"));
        EXPECT_EQ(1, row.set(*package, L"NEW"));
        EXPECT_EQ(L"{\"a\":1,\"Key\":" + value + L",\"z\":3,\"New\":" + value + L"}",
                  PackageText(*package));
        EXPECT_EQ(1, package->SetIgnoreCase(0));
        EXPECT_EQ(1, row.set(*package, L"Z"));
        EXPECT_EQ(
            L"{\"a\":1,\"Key\":" + value + L",\"z\":3,\"New\":" + value + L",\"Z\":" + value + L"}",
            PackageText(*package));
    }
}

// ---- Removing ----------------------------------------------------------------------------------

TEST(PackageKeys, RemovingKeepsTheOrderOfTheRest) {
    struct Row {
        const wchar_t* key;
        const wchar_t* left;
    };
    for (const Row& row : {Row{L"A", L"{\"b\":\"two\",\"c\":[3],\"d\":null}"},
                           Row{L"b", L"{\"a\":1,\"c\":[3],\"d\":null}"},
                           Row{L"C", L"{\"a\":1,\"b\":\"two\",\"d\":null}"},
                           Row{L"d", L"{\"a\":1,\"b\":\"two\",\"c\":[3]}"}}) {
        const Package package = LoadedPackage(L"{\"a\":1,\"b\":\"two\",\"c\":[3],\"d\":null}");
        EXPECT_EQ(1, package->RemoveKey(row.key));
        EXPECT_EQ(row.left, PackageText(*package));
        EXPECT_FALSE(Contains(*package, row.key));
        EXPECT_EQ(0, package->RemoveKey(row.key));
        EXPECT_EQ(row.left, PackageText(*package));
        EXPECT_EQ(1, package->SetValueNumber(row.key, 9));
        const std::wstring left = row.left;
        EXPECT_EQ(left.substr(0, left.size() - 1) + L",\"" + row.key + L"\":9}",
                  PackageText(*package));
    }
}

TEST(PackageKeys, RemovingTheFirstUntilNoneIsLeft) {
    const Package package = NewPackage();
    Names names;
    for (int i = 0; i < 50; ++i) {
        names.push_back(L"key " + std::to_wstring(i));
        ASSERT_EQ(1, package->SetValueNumber(names.back().c_str(), i));
    }
    while (!names.empty()) {
        EXPECT_EQ(names, NamesOf(*package));
        EXPECT_EQ(50 - static_cast<double>(names.size()), NumberOf(*package, names[0].c_str()));
        EXPECT_EQ(1, package->RemoveKey(names[0].c_str()));
        names.erase(names.begin());
    }
    EXPECT_EQ(L"{}", PackageText(*package));
}

TEST(PackageKeys, RemovingTakesTheMemberThatIsFound) {
    const Package package = LoadedPackage(kSpellings);
    EXPECT_EQ(1, package->SetIgnoreCase(0));
    EXPECT_EQ(1, package->RemoveKey(L"KEY"));
    EXPECT_EQ(L"{\"kEy\":1,\"key\":3,\"KEY\":4,\"other\":5,\"Key\":6}", PackageText(*package));
    EXPECT_EQ(0, package->RemoveKey(L"OTHER"));
    EXPECT_EQ(1, package->SetIgnoreCase(1));
    EXPECT_EQ(1, package->RemoveKey(L"KEY"));
    EXPECT_EQ(L"{\"key\":3,\"KEY\":4,\"other\":5,\"Key\":6}", PackageText(*package));
    EXPECT_EQ(1, package->RemoveKey(L"OTHER"));
    EXPECT_EQ(1, package->RemoveKey(L"Key"));
    EXPECT_EQ(1, package->RemoveKey(L"Key"));
    EXPECT_EQ(1, package->RemoveKey(L"Key"));
    EXPECT_EQ(0, package->RemoveKey(L"Key"));
    EXPECT_EQ(L"{}", PackageText(*package));
}

TEST(PackageKeys, RemovingNothing) {
    const Package package = LoadedPackage(L"{\"a\":1,\"b\":2}");
    const PackageState before = PackageStateOf(*package);
    EXPECT_EQ(-1, package->RemoveKey(nullptr));
    for (const wchar_t* key : {L"", L"c", L"aa", L" a", L"ab"})
        EXPECT_EQ(0, package->RemoveKey(key)) << testing::PrintToString(key);
    EXPECT_EQ(before, PackageStateOf(*package));
}

TEST(PackageKeys, RemoveAllLeavesTheErrorAndTheFlag) {
    const Package package = NewPackage();
    EXPECT_EQ(1, package->RemoveAll());
    EXPECT_EQ(1, package->SetIgnoreCase(0));
    EXPECT_EQ(1, package->LoadString(L"[1]"));
    const PackageState before = PackageStateOf(*package);
    EXPECT_EQ(22, before.code);
    EXPECT_EQ(1, package->SetValueNumber(L"a", 1));
    EXPECT_EQ(1, package->SetValue(L"b", L"{\"x\":[1]}", true));
    EXPECT_EQ(1, package->RemoveAll());
    EXPECT_EQ(before, PackageStateOf(*package));
    EXPECT_EQ(1, package->SetValueNumber(L"a", 2));
    EXPECT_EQ(L"{\"a\":2}", PackageText(*package));
}

// ---- Many --------------------------------------------------------------------------------------

constexpr uint32_t kMany = 20'000;

std::wstring ManyName(uint32_t i) { return L"Key number " + std::to_wstring(i); }

std::wstring ManyText(uint32_t first, uint32_t end) {
    std::wstring text = L"{";
    for (uint32_t i = first; i < end; ++i)
        text += (i > first ? L",\"" : L"\"") + ManyName(i) + L"\":" + std::to_wstring(i);
    return text + L"}";
}

TEST(PackageKeys, TwentyThousandSetOneByOne) {
    const Package package = NewPackage();
    for (uint32_t i = 0; i < kMany; ++i)
        ASSERT_EQ(1, package->SetValueNumber(ManyName(i).c_str(), i));
    EXPECT_TRUE(ManyText(0, kMany) == PackageText(*package));
    uint32_t count = 0;
    EXPECT_EQ(1, package->GetKeyCount(&count));
    EXPECT_EQ(kMany, count);
}

TEST(PackageKeys, TwentyThousandLoaded) {
    const Package package = LoadedPackage(ManyText(0, kMany));
    for (uint32_t i = 0; i < kMany; ++i) {
        const wchar_t* name = nullptr;
        ASSERT_EQ(1, package->GetKeyName(i, &name));
        ASSERT_EQ(ManyName(i), name);
    }
    for (const uint32_t flag : {0u, 1u}) {
        ASSERT_EQ(1, package->SetIgnoreCase(flag));
        for (uint32_t i = 0; i < kMany; i += 7)
            ASSERT_EQ(i, NumberOf(*package, ManyName(i).c_str()));
    }
    EXPECT_FALSE(Contains(*package, L"Key number"));
    EXPECT_EQ(kMany - 1, NumberOf(*package, L"KEY NUMBER 19999"));
}

TEST(PackageKeys, TwentyThousandRemovedFromBothEnds) {
    const Package package = LoadedPackage(ManyText(0, kMany));
    constexpr uint32_t kFirst = 2000;
    for (uint32_t i = 0; i < kFirst; ++i) ASSERT_EQ(1, package->RemoveKey(ManyName(i).c_str()));
    EXPECT_TRUE(ManyText(kFirst, kMany) == PackageText(*package));
    for (uint32_t i = kMany; i > kFirst + 3000; --i)
        ASSERT_EQ(1, package->RemoveKey(ManyName(i - 1).c_str()));
    EXPECT_EQ(ManyText(kFirst, kFirst + 3000), PackageText(*package));
}

}  // namespace
