// What it costs to find members, whatever their names are.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Growth.h"
#include "SearchedObject.h"
#include "common/search/MemberLookup.h"

namespace {

using namespace QXJSON;
using support::Cost;
using support::CostOfEach;
using support::ExpectFlat;
using support::SearchedObject;

constexpr size_t kCount = 5000;

/// One of two units at each of 17 places: as many names as there are members, and more.
std::wstring Variant(size_t number, wchar_t one, wchar_t other) {
    std::wstring name;
    for (int place = 0; place < 17; ++place) name += number >> place & 1 ? other : one;
    return name;
}

std::wstring Padded(size_t number) {
    const std::wstring digits = std::to_wstring(number);
    return std::wstring(7 - digits.size(), L'0') + digits;
}

/// Names that an object may have.
struct Family {
    const char* what;
    std::wstring (*name)(size_t number);
    bool oneName;  ///< all are equal in some case
};

const Family kFamilies[] = {
    {"key0000001", [](size_t i) { return L"key" + Padded(i); }, false},
    {"k1", [](size_t i) { return L"k" + std::to_wstring(i); }, false},
    {"field_1", [](size_t i) { return L"field_" + std::to_wstring(i); }, false},
    {"1", [](size_t i) { return std::to_wstring(i); }, false},
    {"the bit of the case in units that are no letters",
     [](size_t i) { return Variant(i, L'@', L'`'); }, false},
    {"Cyrillic letters in two cases", [](size_t i) { return Variant(i, 0x410, 0x430); }, false},
    {"equal names", [](size_t) -> std::wstring { return L"name"; }, true},
    {"one name in all cases", [](size_t i) { return Variant(i, L'a', L'A'); }, true},
};

void Fill(SearchedObject& object, const Family& family, size_t count) {
    for (size_t i = 0; i < count; ++i) object.Add(family.name(i));
}

/// Searches until there is an index.
void Index(SearchedObject& object) {
    for (int i = 0; i < 5; ++i) EXPECT_EQ(nullptr, object.Find(L"absent", KeyMatch::kExact));
}

TEST(MemberCosts, Indexing) {
    for (const Family& family : kFamilies)
        ExpectFlat(family.what, kCount, {4, 64}, [&](size_t count) {
            SearchedObject object;
            Fill(object, family, count);
            for (int i = 0; i < 4; ++i) object.Find(L"absent", KeyMatch::kExact);
            const uint64_t scans = object.Work();
            EXPECT_LE(scans, 4 * count + 100);
            object.Find(L"absent", KeyMatch::kExact);
            return CostOfEach(object.Work() - scans, object.Bytes(), count);
        });
}

TEST(MemberCosts, SearchesInAnyCase) {
    for (const Family& family : kFamilies)
        ExpectFlat(family.what, kCount, {4, 64}, [&](size_t count) {
            SearchedObject object;
            Fill(object, family, count);
            Index(object);
            const uint64_t before = object.Work();
            for (size_t i = 0; i < count; ++i) {
                const JsonMember* const expected = object.Members() + (family.oneName ? 0 : i);
                EXPECT_EQ(expected, object.Find(family.name(i), KeyMatch::kIgnoreCase));
            }
            return CostOfEach(object.Work() - before, object.Bytes(), count);
        });
}

TEST(MemberCosts, SearchesForNamesThatAreNotThere) {
    for (const Family& family : kFamilies)
        for (const KeyMatch match : {KeyMatch::kIgnoreCase, KeyMatch::kExact})
            ExpectFlat(family.what, kCount, {6, 64}, [&](size_t count) {
                SearchedObject object;
                Fill(object, family, count);
                Index(object);
                const uint64_t before = object.Work();
                for (size_t i = 0; i < count; ++i)
                    EXPECT_EQ(nullptr, object.Find(family.name(i) + L"+", match));
                return CostOfEach(object.Work() - before, object.Bytes(), count);
            });
}

TEST(MemberCosts, ExactSearches) {
    for (const Family& family : kFamilies) {
        if (family.oneName) continue;
        ExpectFlat(family.what, kCount, {4, 64}, [&](size_t count) {
            SearchedObject object;
            Fill(object, family, count);
            Index(object);
            const uint64_t before = object.Work();
            for (size_t i = 0; i < count; ++i)
                EXPECT_EQ(object.Members() + i, object.Find(family.name(i), KeyMatch::kExact));
            return CostOfEach(object.Work() - before, object.Bytes(), count);
        });
    }
}

/// Among the spellings of one name that of the key is looked for in turn, as a scan does.
TEST(MemberCosts, ExactSearchesAmongSpellings) {
    SearchedObject object;
    constexpr size_t kMany = 4 * kCount;
    const auto name = [](size_t i) { return Variant(i, L'a', L'A'); };
    Fill(object, {"", name, true}, kMany);
    Index(object);
    for (const size_t i : {size_t{0}, size_t{1}, size_t{100}, kMany / 2, kMany - 1, kMany}) {
        const uint64_t before = object.Work();
        const bool absent = i == kMany;
        EXPECT_EQ(absent ? nullptr : object.Members() + i, object.Find(name(i), KeyMatch::kExact));
        EXPECT_LE(object.Work() - before, i + 4);
    }
}

/// Members that are added one by one, with a search for each.
TEST(MemberCosts, SearchesInBetween) {
    for (const Family& family : kFamilies)
        ExpectFlat(family.what, kCount, {10, 64}, [&](size_t count) {
            SearchedObject object;
            for (size_t i = 0; i < count; ++i) {
                object.Add(family.name(i));
                const JsonMember* const expected = object.Members() + (family.oneName ? 0 : i);
                EXPECT_EQ(expected, object.Find(family.name(i), KeyMatch::kIgnoreCase));
            }
            return CostOfEach(object.Work(), object.Bytes(), count);
        });
}

// ---- Names made by one who knows the secrets ----------------------------------------------------

/// Names of eight units that all have one hash under these keys: their second halves make one of
/// the factors 0.
const std::wstring kSecondHalf = L"same";

HashKeys KeysThatAreKnown() {
    uint64_t half = 0;
    for (size_t i = 0; i < 4; ++i) half |= uint64_t{kSecondHalf[i]} << 16 * i;
    return {half - 8 * kGoldenRatio, 12345};
}

std::wstring MadeToMeet(size_t number) {
    std::wstring name = Padded(number).substr(3);
    name[0] = static_cast<wchar_t>(name[0] + number / 10'000 * 0x100);
    return name + kSecondHalf;
}

TEST(MemberCosts, NamesCanBeMadeToMeetByOneWhoKnowsTheKeys) {
    const HashKeys keys = KeysThatAreKnown();
    const uint32_t hash = HashOf<KeyMatch::kIgnoreCase>(MadeToMeet(0), keys);
    for (size_t i = 0; i < 4 * kCount; ++i)
        ASSERT_EQ(hash, HashOf<KeyMatch::kIgnoreCase>(MadeToMeet(i), keys));
    EXPECT_NE(hash, HashOf<KeyMatch::kIgnoreCase>(L"othernam", keys));
}

/// The index is given up, and holds nothing any more; all in all the work is a few times that of
/// the scans, and that of scans alone from then on.
TEST(MemberCosts, NamesThatAllMeet) {
    constexpr int kSearches = 20;
    ExpectFlat("each search, for each member", kCount, {4, 1}, [](size_t count) {
        SearchedObject object(KeysThatAreKnown());
        Fill(object, {"", MadeToMeet, false}, count);
        for (int i = 0; i < kSearches; ++i) {
            EXPECT_EQ(nullptr, object.Find(MadeToMeet(count), KeyMatch::kIgnoreCase));
            const size_t some = count / kSearches * static_cast<size_t>(i);
            EXPECT_EQ(object.Members() + some, object.Find(MadeToMeet(some), KeyMatch::kExact));
        }
        const uint64_t all = object.Work();
        object.Find(MadeToMeet(count), KeyMatch::kIgnoreCase);
        EXPECT_LE(object.Work() - all, count + 4);
        const Cost cost = CostOfEach(all, object.Bytes(), count);
        return Cost{cost.work / kSearches, cost.bytes};
    });
}

TEST(MemberCosts, NamesThatAllMeetWithSearchesInBetween) {
    ExpectFlat("each search, for each member that there is", 500, {4, 64}, [](size_t count) {
        SearchedObject object(KeysThatAreKnown());
        uint64_t scans = 0;
        for (size_t i = 0; i < count; ++i) {
            object.Add(MadeToMeet(i));
            EXPECT_EQ(object.Members() + i, object.Find(MadeToMeet(i), KeyMatch::kExact));
            scans += i + 1;
        }
        const Cost cost = CostOfEach(object.Work(), 0, scans);
        return Cost{cost.work, CostOfEach(0, object.Bytes(), count).bytes};
    });
}

// ---- Many objects -------------------------------------------------------------------------------

/// Objects that are just too large to be scanned every time, searched in turn.
TEST(MemberCosts, ManySmallObjects) {
    constexpr int kSearches = 40;
    ExpectFlat("each search, and each object", 2000, {12, 1200}, [](size_t count) {
        DocumentPool pool;
        MemberLookup lookup(pool, HashKeysFrom(1));
        JsonAllocator& allocator = pool.Allocator();
        std::vector<JsonValue> objects(count);
        for (size_t n = 0; n < count; ++n) {
            objects[n].SetObject();
            for (size_t i = 0; i < 17 + n % 4; ++i) {
                const std::wstring name = L"name " + std::to_wstring(i);
                objects[n].AddMember(JsonValue(name.c_str(), allocator), JsonValue(1), allocator);
            }
        }
        for (int i = 0; i < kSearches; ++i)
            for (JsonValue& object : objects) {
                const std::wstring key = L"Name " + std::to_wstring(i % 20);
                EXPECT_EQ(support::ScanMembers(object, key, KeyMatch::kIgnoreCase),
                          lookup.Find(object, key, KeyMatch::kIgnoreCase));
            }
        const Cost cost = CostOfEach(lookup.Work(), lookup.Bytes(), count);
        return Cost{cost.work / kSearches, cost.bytes};
    });
}

}  // namespace
