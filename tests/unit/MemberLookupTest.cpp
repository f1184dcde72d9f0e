// The search for members, whatever it remembers, against a scan.

#include "common/search/MemberLookup.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "SearchedObject.h"

namespace {

using namespace QXJSON;
using support::LowerAscii;
using support::ScanMembers;
using Subject = support::SearchedObject;

/// Keys that are easily confused: units that differ in the bit for the case but are not letters,
/// letters outside ASCII, zeroes.
std::wstring LookAlike(std::mt19937& random, size_t longest) {
    constexpr wchar_t kUnits[] = {L'a', L'A', L'k', L'K', L'z', L'Z',      L'@',      L'`', L'[',
                                  L'{', L'_', 0x7F, 0xE9, 0xC9, L'\x212A', L'\x0141', L'1', 0};
    std::wstring key;
    for (size_t length = random() % (longest + 1); key.size() < length;)
        key += kUnits[random() % std::size(kUnits)];
    return key;
}

/// A name of the object in some other case, or with one unit changed.
std::wstring Nearly(std::wstring name, std::mt19937& random) {
    for (wchar_t& c : name)
        if (random() % 3 == 0 && LowerAscii(c) >= L'a' && LowerAscii(c) <= L'z') c ^= 0x20;
    if (!name.empty() && random() % 4 == 0) name[random() % name.size()] ^= 0x20;
    return name;
}

std::wstring SomeKey(const Subject& subject, std::mt19937& random, size_t longest) {
    if (subject.Count() == 0 || random() % 3 == 0) return LookAlike(random, longest);
    return Nearly(subject.NameAt(random() % subject.Count()), random);
}

TEST(MemberLookup, ObjectsOfAllSizes) {
    std::mt19937 random(1);
    for (const size_t size :
         {1u, 2u, 15u, 16u, 17u, 18u, 47u, 48u, 49u, 50u, 96u, 97u, 500u, 2000u}) {
        for (const size_t longest : {2u, 4u, 9u}) {
            SCOPED_TRACE(testing::Message() << size << " members");
            Subject subject;
            while (subject.Count() < size) subject.Add(LookAlike(random, longest));
            for (int i = 0; i < 300; ++i)
                ASSERT_TRUE(subject.Finds(SomeKey(subject, random, longest)));
            EXPECT_GT(subject.Hits(), 0);
            EXPECT_GT(subject.Misses(), 0);
        }
    }
}

/// Names from all over a large object, and names that are near them.
TEST(MemberLookup, ManyNames) {
    constexpr int kMembers = 2000;
    Subject subject;
    for (int i = 0; i < kMembers; ++i) subject.Add(L"Member" + std::to_wstring(i));
    for (int i = 0; i < kMembers; i += 7) {
        ASSERT_TRUE(subject.Finds(L"mEMBER" + std::to_wstring(i)));
        ASSERT_TRUE(subject.Finds(L"Member" + std::to_wstring(i)));
        ASSERT_TRUE(subject.Finds(L"Membe" + std::to_wstring(i)));
    }
    EXPECT_EQ(2 * 286, subject.Hits());
    EXPECT_EQ(286, subject.Misses());
}

/// Objects that grow and shrink while they are searched.
TEST(MemberLookup, ObjectsThatChange) {
    std::mt19937 random(2);
    for (const unsigned growth : {70u, 55u, 50u}) {
        Subject subject;
        for (int i = 0; i < 3000; ++i) {
            if (subject.Count() == 0 || (random() % 100 < growth && subject.Count() < 2000))
                subject.Add(random() % 2 ? SomeKey(subject, random, 6) : LookAlike(random, 8));
            else
                subject.Remove(random() % subject.Count());
            if (random() % 1000 == 0 && growth == 50) subject.RemoveAll();
            for (unsigned searches = random() % 4; searches > 0; --searches)
                ASSERT_TRUE(subject.Finds(SomeKey(subject, random, 6))) << "step " << i;
        }
        EXPECT_GT(subject.Hits(), 500);
        EXPECT_GT(subject.Misses(), 500);
    }
}

/// First, last and middle members go, until none is left.
TEST(MemberLookup, RemovalsFromEveryPlace) {
    for (const int from : {0, 1, 2}) {
        Subject subject;
        for (int i = 0; i < 300; ++i) subject.Add(L"k" + std::to_wstring(i % 100));
        for (int i = 0; i < 100; ++i) ASSERT_TRUE(subject.Finds(L"K" + std::to_wstring(i)));
        while (subject.Count() > 0) {
            const size_t last = subject.Count() - 1;
            subject.Remove(from == 0 ? 0 : from == 1 ? last : last / 2);
            for (int i = 0; i < 100; i += 7) ASSERT_TRUE(subject.Finds(L"K" + std::to_wstring(i)));
        }
    }
}

/// Members that come and go, many more than there ever are at a time.
TEST(MemberLookup, AlwaysTheSameNumber) {
    Subject subject;
    for (int i = 0; i < 5000; ++i) {
        subject.Add(L"key " + std::to_wstring(i));
        if (subject.Count() > 40) subject.Remove(0);
        ASSERT_TRUE(subject.Finds(L"KEY " + std::to_wstring(i)));
        ASSERT_TRUE(subject.Finds(L"KEY " + std::to_wstring(i - 39)));
        ASSERT_TRUE(subject.Finds(L"KEY " + std::to_wstring(i - 41)));
    }
}

/// Objects of one document are searched in turn.
TEST(MemberLookup, SeveralObjects) {
    constexpr int kObjects = 7;
    DocumentPool pool;
    JsonDocument document(&pool.Allocator());
    document.SetArray();
    auto& allocator = document.GetAllocator();
    for (int n = 0; n < kObjects; ++n) {
        JsonValue object(rapidjson::kObjectType);
        for (int i = 0; i < 100; ++i) {
            const std::wstring key = std::to_wstring(i * (n + 1));
            object.AddMember(JsonValue(key.c_str(), allocator), JsonValue(i), allocator);
        }
        document.PushBack(object, allocator);
    }
    MemberLookup lookup{pool};
    for (int i = 0; i < 100; ++i)
        for (rapidjson::SizeType n = 0; n < kObjects; ++n) {
            const std::wstring key = std::to_wstring(i);
            EXPECT_EQ(ScanMembers(document[n], key, KeyMatch::kExact),
                      lookup.Find(document[n], key, KeyMatch::kExact));
        }
}

}  // namespace
