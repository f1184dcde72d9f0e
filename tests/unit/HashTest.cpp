// The hash, and the secrets in it.

#include "common/search/Hash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/search/HashTable.h"
#include "common/search/KeyText.h"

namespace {

using namespace QXJSON;

constexpr size_t kLongest = 40;

uint32_t FoldedHash(std::wstring_view text, const HashKeys& keys = HashKeysFrom(1)) {
    return HashOf<KeyMatch::kIgnoreCase>(text, keys);
}

TEST(Hash, DependsOnTheSeed) {
    constexpr uint64_t kSeeds = 2000;
    std::set<uint64_t> starts, blocks;
    std::set<uint32_t> numbers;
    std::set<uint32_t> texts[kLongest];
    for (uint64_t seed = 0; seed < kSeeds; ++seed) {
        const HashKeys keys = HashKeysFrom(seed);
        starts.insert(keys.start);
        blocks.insert(keys.block);
        numbers.insert(HashOf(uint64_t{12345}, keys));
        for (size_t length = 0; length < kLongest; ++length)
            texts[length].insert(FoldedHash(std::wstring(length, L'n'), keys));
    }
    EXPECT_EQ(kSeeds, starts.size());
    EXPECT_EQ(kSeeds, blocks.size());
    EXPECT_GE(numbers.size(), kSeeds - 1);
    for (const auto& hashes : texts) EXPECT_GE(hashes.size(), kSeeds - 1);
}

TEST(Hash, OneSeedGivesTheSameKeys) {
    for (const uint64_t seed : {uint64_t{0}, uint64_t{1}, UINT64_MAX}) {
        const HashKeys keys = HashKeysFrom(seed);
        const HashKeys again = HashKeysFrom(seed);
        EXPECT_EQ(keys.start, again.start);
        EXPECT_EQ(keys.block, again.block);
    }
}

TEST(Hash, TheKeysOfAProcessStay) {
    const HashKeys keys = ProcessHashKeys();
    EXPECT_NE(keys.start, keys.block);
    for (int i = 0; i < 1000; ++i) {
        const HashKeys again = ProcessHashKeys();
        ASSERT_EQ(keys.start, again.start);
        ASSERT_EQ(keys.block, again.block);
    }
}

/// 0 stands for a free slot.
TEST(Hash, IsNeverZero) {
    EXPECT_NE(0u, FinishHash(0));
    EXPECT_NE(0u, FinishHash(1));
    for (const HashKeys& keys : {HashKeys{0, 0}, HashKeysFrom(1)})
        for (uint64_t number = 0; number < 1000; ++number) {
            EXPECT_NE(0u, HashOf(number, keys));
            EXPECT_NE(0u, FoldedHash(std::wstring(number % kLongest, L'\0'), keys));
        }
}

/// Letters of ASCII meet, at every place of a text of any length; units that differ in the same bit
/// and are none do not.
TEST(Hash, FoldsTheLettersOfAsciiAlone) {
    const auto expect = [](wchar_t a, wchar_t b, bool equal) {
        for (size_t length = 1; length <= kLongest; ++length)
            for (size_t at = 0; at < length; ++at) {
                std::wstring one(length, L'x'), other = one;
                one[at] = a;
                other[at] = b;
                ASSERT_EQ(equal, FoldedHash(one) == FoldedHash(other))
                    << std::hex << unsigned{a} << " at " << std::dec << at << " of " << length;
                ASSERT_NE(HashOf<KeyMatch::kExact>(one, HashKeysFrom(1)),
                          HashOf<KeyMatch::kExact>(other, HashKeysFrom(1)));
            }
    };
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) expect(letter, letter | 0x20, true);
    constexpr std::pair<wchar_t, wchar_t> kOthers[] = {
        {L'@', L'`'},     {L'[', L'{'},     {L'\\', L'|'},   {L']', L'}'},     {L'^', L'~'},
        {L'_', 0x7F},     {0, L' '},        {0x10, L'0'},    {0xC0, 0xE0},     {0x410, 0x430},
        {0x391, 0x3B1},   {0x17F, L's'},    {0x212A, L'k'},  {0xFF21, 0xFF41}, {0x4141, 0x6161},
        {0x4100, 0x6100}, {0x8041, 0x8061}, {0x0141, 0x0161}};
    for (const auto& [a, b] : kOthers) expect(a, b, false);
}

/// The last units of a text are taken twice where it is no multiple of a block: a text that is one
/// unit longer may be made of the same blocks.
TEST(Hash, TellsTextsThatOverlapApart) {
    const std::wstring pieces[] = {L"1", L"12", L"a1", L"key1", std::wstring(1, L'\0')};
    for (const std::wstring& piece : pieces) {
        std::set<uint32_t> hashes;
        std::set<std::wstring> texts;
        for (const wchar_t* start : {L"", L"k", L"key", L"key1234", L"fieldnam"})
            for (const wchar_t* end : {L"", L"1", L"234", L"1234", L"11234", L"12341234"}) {
                std::wstring text = start;
                for (; text.size() < kLongest; text += piece) {
                    if (!texts.insert(text + end).second) continue;
                    EXPECT_TRUE(hashes.insert(FoldedHash(text + end)).second)
                        << testing::PrintToString(text + end);
                }
            }
    }
}

std::wstring Padded(size_t number) {
    const std::wstring digits = std::to_wstring(number);
    return std::wstring(7 - digits.size(), L'0') + digits;
}

/// Counts how many of 20,000 hashes are those of others too, and puts them into a table, in which
/// each is to be found within few slots.
class Spread {
public:
    void Add(uint32_t hash) {
        hashes.push_back(hash);
        table.Reserve(table.Size() + 1);
        table.Insert({hash});
    }

    void Check(const char* what) {
        std::sort(hashes.begin(), hashes.end());
        const auto different = std::unique(hashes.begin(), hashes.end()) - hashes.begin();
        EXPECT_GT(static_cast<size_t>(different) + 3, kCount) << what;
        const uint64_t before = table.Work();
        for (const uint32_t hash : hashes)
            EXPECT_NE(nullptr, table.Find(hash, [](const Slot&) { return true; }));
        EXPECT_LE(table.Work() - before, 4 * hashes.size()) << what;
    }

    static constexpr size_t kCount = 20'000;

private:
    struct Slot {
        uint32_t hash;
    };
    std::vector<uint32_t> hashes;
    HashTable<Slot> table;
};

TEST(Hash, SpreadsNumberedNames) {
    constexpr const wchar_t* kBegins[] = {L"",      L"k",       L"key",          L"field_",
                                          L"item ", L"Member#", L"longer name ", L"\x0416 "};
    constexpr const wchar_t* kEnds[] = {L"", L"]", L" of many members of an object"};
    for (const wchar_t* begin : kBegins)
        for (const wchar_t* end : kEnds) {
            Spread plain, padded;
            for (size_t i = 0; i < Spread::kCount; ++i) {
                plain.Add(FoldedHash(begin + std::to_wstring(i) + end));
                padded.Add(FoldedHash(begin + Padded(i) + end));
            }
            plain.Check("numbered");
            padded.Check("numbered with leading zeroes");
        }
}

/// Numbers as handles, positions and addresses have them.
TEST(Hash, SpreadsNumbers) {
    for (const uint64_t seed : {1u, 2u, 3u})
        for (const uint64_t step : {uint64_t{1}, uint64_t{3}, uint64_t{16}, uint64_t{1024},
                                    uint64_t{65'536}, uint64_t{1} << 32, uint64_t{1} << 48}) {
            Spread spread;
            for (uint64_t i = 0; i < Spread::kCount; ++i)
                spread.Add(HashOf(0x7FF0'0000'1234 + i * step, HashKeysFrom(seed)));
            spread.Check("numbers");
        }
}

}  // namespace
