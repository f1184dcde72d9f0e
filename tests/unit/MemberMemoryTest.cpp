// Objects that are not the document's own, or not as they were: what is searched is the memory as
// it is.

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "SearchedObject.h"

namespace {

using namespace QXJSON;
using support::FindsAsScan;
using support::SearchedObject;

std::wstring Name(const wchar_t* begin, size_t number) { return begin + std::to_wstring(number); }

/// An object of another document, whose members can be given other names where they are.
class Foreign {
public:
    explicit Foreign(size_t count) {
        object.SetObject();
        for (size_t i = 0; i < count; ++i)
            object.AddMember(Text(L"", i), JsonValue(1), Allocator());
    }
    void Rename(const wchar_t* begin) {
        size_t number = 0;
        for (auto& member : object.GetObject()) member.name = Text(begin, number++);
    }
    JsonValue& Value() { return object; }
    JsonAllocator& Allocator() { return pool.Allocator(); }

private:
    JsonValue Text(const wchar_t* begin, size_t number) {
        return JsonValue(Name(begin, number).c_str(), Allocator());
    }

    DocumentPool pool;
    JsonValue object;
};

TEST(MemberMemory, OfAnotherDocumentIsNeverIndexed) {
    for (const size_t count : {size_t{17}, size_t{100}, size_t{2000}}) {
        Foreign foreign(count);
        SearchedObject own;
        for (size_t i = 0; i < count; ++i) own.Add(Name(L"own ", i));
        for (int i = 0; i < 10; ++i) own.Find(L"absent", KeyMatch::kExact);
        const size_t bytes = own.Bytes();
        for (const wchar_t* begin : {L"a", L"long name ", L"b", L"a"}) {
            foreign.Rename(begin);
            for (size_t i = 0; i < 50; ++i) {
                const size_t number = i * 7 % (count + 5);
                for (const wchar_t* asked : {L"a", L"A", L"long name ", L"b"})
                    ASSERT_TRUE(FindsAsScan(own.Lookup(), foreign.Value(), Name(asked, number)));
                ASSERT_TRUE(own.Finds(Name(L"own ", number)));
            }
            EXPECT_EQ(bytes, own.Bytes());
        }
    }
}

/// Nor is it when it was searched last, or first.
TEST(MemberMemory, OfAnotherDocumentAlone) {
    Foreign foreign(30);
    DocumentPool pool;
    MemberLookup lookup(pool);
    const size_t bytes = lookup.Bytes();
    for (int round = 0; round < 20; ++round) {
        foreign.Rename(round % 2 ? L"odd " : L"even ");
        for (size_t i = 0; i < 30; ++i) {
            ASSERT_TRUE(FindsAsScan(lookup, foreign.Value(), Name(L"odd ", i)));
            ASSERT_TRUE(FindsAsScan(lookup, foreign.Value(), Name(L"even ", i)));
        }
    }
    EXPECT_EQ(bytes, lookup.Bytes());
}

/// A value as it was, which a host may still have a reference to where the value moved since.
class Outdated {
public:
    explicit Outdated(const JsonValue& value) { std::memcpy(bytes, &value, sizeof bytes); }
    JsonValue& Value() { return *reinterpret_cast<JsonValue*>(bytes); }

private:
    alignas(JsonValue) char bytes[sizeof(JsonValue)];
};

void ExpectAsScan(SearchedObject& object, JsonValue& outdated, size_t names) {
    for (size_t i = 0; i < names; ++i)
        for (const wchar_t* begin : {L"name ", L"NAME ", L"other "}) {
            ASSERT_TRUE(FindsAsScan(object.Lookup(), outdated, Name(begin, i)));
            ASSERT_TRUE(object.Finds(Name(begin, i)));
        }
}

/// Whether names are all different, or each is there again and again.
TEST(MemberMemory, AsItWasBeforeMembersCame) {
    for (const size_t different : {size_t{1000}, size_t{12}})
        for (const size_t had : {size_t{17}, size_t{20}, size_t{55}}) {
            SearchedObject object;
            const auto add = [&] {
                const size_t number = object.Count();
                object.Add(Name(number % 2 ? L"name " : L"Name ", number % different));
            };
            while (object.Count() < had) add();
            Outdated outdated(object.Value());
            const JsonMember* const members = object.Members();
            for (size_t more = 0; more < had; ++more) {
                ExpectAsScan(object, outdated.Value(), had + 3);
                if (testing::Test::HasFatalFailure()) return;
                add();
            }
            // They had moved at some time, and the old memory is still what it was.
            EXPECT_NE(members, object.Members());
            ExpectAsScan(object, outdated.Value(), had + 3);
        }
}

/// The memory after the members that are left still has what was there.
TEST(MemberMemory, AsItWasBeforeMembersWent) {
    for (const size_t different : {size_t{1000}, size_t{12}})
        for (const bool searchedBefore : {true, false})
            for (const size_t position : {size_t{0}, size_t{10}, size_t{29}}) {
                SearchedObject object;
                for (size_t i = 0; i < 40; ++i) object.Add(Name(L"name ", i % different));
                Outdated outdated(object.Value());
                if (searchedBefore) ExpectAsScan(object, outdated.Value(), 45);
                for (int i = 0; i < 10; ++i) {
                    object.Remove(position);
                    ExpectAsScan(object, outdated.Value(), 45);
                    if (testing::Test::HasFatalFailure()) return;
                }
            }
}

}  // namespace
