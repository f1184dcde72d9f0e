// Members that come and go: what the search finds, what it costs, and what it holds.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Growth.h"
#include "SearchedObject.h"

namespace {

using namespace QXJSON;
using support::Cost;
using support::ExpectFlat;
using support::SearchedObject;

std::wstring Name(size_t number) { return L"key " + std::to_wstring(number); }

/// The number in such a name. (std::stoul knows the wide characters of the machine alone.)
size_t NumberIn(const std::wstring& name) {
    size_t number = 0;
    for (const wchar_t c : name.substr(4)) number = number * 10 + static_cast<size_t>(c - L'0');
    return number;
}

/// One step of a script that takes a member away and puts one in.
struct Script {
    const char* what;
    void (*step)(SearchedObject& object, size_t number, std::mt19937& random);
};

/// A member whose name a search finds, as it does before a member is set or removed.
size_t Position(SearchedObject& object, const std::wstring& name) {
    const JsonMember* const member = object.Find(name, KeyMatch::kIgnoreCase);
    EXPECT_NE(nullptr, member) << testing::PrintToString(name);
    return member ? static_cast<size_t>(member - object.Members()) : 0;
}

const Script kScripts[] = {
    {"one key is removed and set again",
     [](SearchedObject& object, size_t, std::mt19937&) {
         object.Remove(Position(object, L"KEY 7"));
         object.Add(L"key 7");
     }},
    {"one key of several that are equal is removed and set again",
     [](SearchedObject& object, size_t number, std::mt19937&) {
         if (number == 0) object.Add(L"Key 7");
         object.Remove(Position(object, L"KEY 7"));
         object.Add(L"key 7");
     }},
    {"the oldest member goes, a new one comes",
     [](SearchedObject& object, size_t, std::mt19937&) {
         const std::wstring oldest = object.NameAt(0), newest = object.NameAt(object.Count() - 1);
         object.Add(Name(NumberIn(newest) + 1));
         object.Remove(Position(object, oldest));
     }},
    {"any member goes, a new one comes",
     [](SearchedObject& object, size_t number, std::mt19937& random) {
         object.Remove(Position(object, object.NameAt(random() % object.Count())));
         object.Add(Name(1'000'000 + number));
     }},
    {"the last member goes, a new one comes",
     [](SearchedObject& object, size_t number, std::mt19937&) {
         object.Remove(Position(object, object.NameAt(object.Count() - 1)));
         object.Add(Name(1'000'000 + number));
     }},
    {"the last member but one goes, a new one comes",
     [](SearchedObject& object, size_t number, std::mt19937&) {
         object.Remove(Position(object, object.NameAt(object.Count() - 2)));
         object.Add(Name(1'000'000 + number));
     }},
    {"the last member but one of equal ones goes, another comes",
     [](SearchedObject& object, size_t number, std::mt19937&) {
         if (number == 0) object.Add(L"equal");
         if (number == 0) object.Add(L"EQUAL");
         object.Remove(object.Count() - 2);
         object.Add(number % 2 ? L"equal" : L"EQUAL");
         Position(object, L"Equal");
     }},
};

void Fill(SearchedObject& object, size_t count) {
    for (size_t i = 0; i < count; ++i) object.Add(Name(i));
    for (int i = 0; i < 5; ++i) EXPECT_EQ(nullptr, object.Find(L"absent", KeyMatch::kExact));
}

/// However long a script runs, its steps cost the same, and nothing gathers.
TEST(MemberRemoval, CostsTheSameForEver) {
    for (const size_t live : {size_t{20}, size_t{1000}})
        for (const Script& script : kScripts) {
            SCOPED_TRACE(live);
            const Cost most = {live == 20 ? 16.0 : 40.0, live == 20 ? 160.0 : 80.0};
            ExpectFlat(script.what, 1500, most, [&](size_t steps) {
                std::mt19937 random(21);
                SearchedObject object;
                Fill(object, live);
                const uint64_t before = object.Work();
                for (size_t i = 0; i < steps; ++i) script.step(object, i, random);
                return Cost{
                    static_cast<double>(object.Work() - before) / static_cast<double>(steps),
                    static_cast<double>(object.Bytes()) / static_cast<double>(live)};
            });
        }
}

/// The first and the last members, some in the middle, and the one that a script is about.
void ExpectAsScan(SearchedObject& object) {
    const size_t count = object.Count();
    for (const size_t at : {size_t{0}, size_t{1}, count / 2, count - 2, count - 1})
        ASSERT_TRUE(object.Finds(object.NameAt(at)));
    for (const wchar_t* key : {L"KEY 7", L"Equal", L"equal", L"key 8", L"absent"})
        ASSERT_TRUE(object.Finds(key));
}

TEST(MemberRemoval, FindsWhatAScanFinds) {
    for (const size_t live : {size_t{20}, size_t{1000}})
        for (const Script& script : kScripts) {
            SCOPED_TRACE(script.what);
            std::mt19937 random(22);
            SearchedObject object;
            Fill(object, live);
            for (size_t i = 0; i < 600; ++i) {
                script.step(object, i, random);
                ASSERT_NO_FATAL_FAILURE(ExpectAsScan(object)) << "step " << i;
            }
        }
}

// ---- Equal names -------------------------------------------------------------------------------

const std::wstring kWords[] = {L"alpha", L"beta", L"gamma", L"delta"};

std::wstring InSomeCase(std::wstring word, std::mt19937& random) {
    for (wchar_t& c : word)
        if (random() % 4 == 0) c = static_cast<wchar_t>(c ^ 0x20);
    return word;
}

/// The positions of the members of one name.
std::vector<size_t> ChainOf(const SearchedObject& object, const std::wstring& word) {
    std::vector<size_t> chain;
    for (size_t i = 0; i < object.Count(); ++i)
        if (support::EqualNames(object.NameAt(i), word, KeyMatch::kIgnoreCase)) chain.push_back(i);
    return chain;
}

/// The first, the last and any member of a name go, in every order of names; all have numbers that
/// are no positions meanwhile, and are numbered anew now and then.
TEST(MemberRemoval, OfEqualNames) {
    std::mt19937 random(23);
    for (const size_t live : {size_t{24}, size_t{150}})
        for (int from = 0; from < 4; ++from) {
            SearchedObject object;
            Fill(object, 8);
            while (object.Count() < live) object.Add(InSomeCase(kWords[random() % 4], random));
            for (int i = 0; i < 700; ++i) {
                const std::vector<size_t> chain = ChainOf(object, kWords[random() % 4]);
                if (!chain.empty()) {
                    const size_t at = from == 0   ? 0
                                      : from == 1 ? chain.size() - 1
                                      : from == 2 ? chain.size() / 2
                                                  : random() % chain.size();
                    object.Remove(chain[at]);
                }
                for (const std::wstring& word : kWords) {
                    ASSERT_TRUE(object.Finds(word)) << "step " << i;
                    ASSERT_TRUE(object.Finds(InSomeCase(word, random))) << "step " << i;
                }
                if (object.Count() < live) object.Add(InSomeCase(kWords[random() % 4], random));
            }
        }
}

/// All members of a name go, and the name comes back.
TEST(MemberRemoval, OfWholeNames) {
    std::mt19937 random(24);
    SearchedObject object;
    Fill(object, 20);
    for (int round = 0; round < 60; ++round) {
        const std::wstring& word = kWords[round % 4];
        for (int i = 0; i < 5; ++i) object.Add(InSomeCase(word, random));
        for (const std::wstring& other : kWords) ASSERT_TRUE(object.Finds(other));
        const std::wstring& gone = kWords[(round + 2) % 4];
        for (auto chain = ChainOf(object, gone); !chain.empty(); chain = ChainOf(object, gone)) {
            object.Remove(chain[random() % chain.size()]);
            ASSERT_TRUE(object.Finds(gone)) << "round " << round;
        }
        ASSERT_EQ(nullptr, object.Find(gone, KeyMatch::kIgnoreCase));
    }
}

// ---- Objects that shrink -----------------------------------------------------------------------

/// Which of so many members is the next to go.
struct Order {
    const char* what;
    size_t (*next)(size_t count, std::mt19937& random);
};

const Order kOrders[] = {
    {"from the front", [](size_t, std::mt19937&) { return size_t{0}; }},
    {"from the end", [](size_t count, std::mt19937&) { return count - 1; }},
    {"from anywhere", [](size_t count, std::mt19937& random) { return size_t{random()} % count; }},
};

TEST(MemberRemoval, GivesMemoryBack) {
    constexpr size_t kLeft = 20;
    for (const bool oneName : {false, true})
        for (const Order& order : kOrders)
            for (const size_t count : {size_t{2000}, size_t{8000}}) {
                SCOPED_TRACE(testing::Message() << order.what << ", " << count);
                std::mt19937 random(25);
                SearchedObject object;
                for (size_t i = 0; i < count; ++i) object.Add(oneName ? L"name" : Name(i));
                for (int i = 0; i < 5; ++i) object.Find(L"absent", KeyMatch::kExact);
                EXPECT_GE(object.Bytes(), 4 * count);
                while (object.Count() > kLeft) object.Remove(order.next(object.Count(), random));
                // With the list of removed numbers, which is as long as the root of the most
                // members.
                EXPECT_LE(object.Bytes(), 200 * kLeft);
                for (size_t i = 0; i < kLeft; ++i) ASSERT_TRUE(object.Finds(object.NameAt(i)));
                while (object.Count() > 0) object.Remove(object.Count() / 2);
                for (size_t i = 0; i < 100; ++i) object.Add(Name(i));
                for (size_t i = 0; i < 100; ++i) ASSERT_TRUE(object.Finds(Name(i)));
            }
}

}  // namespace
