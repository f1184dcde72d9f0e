// Adding of values: every combination of mistakes, of which the first decides; and the references
// that are returned.

#include "common/values/ValueBuild.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

using namespace QXJSON;

constexpr uint64_t kUnwritten = 4711;

uint64_t AddressOf(const JsonValue& value) { return reinterpret_cast<uintptr_t>(&value); }

/// Mistakes of an operation that adds, in the order in which they are found.
enum Mistake : unsigned {
    kNoParent = 1,
    kNoKey = 2,
    kNullText = 4,
    kNoOutput = 8,
    kNotItsKind = 16
};

/// The result of the first of a set of mistakes.
int ResultOf(unsigned mistakes) {
    if (mistakes & kNoParent) return -2;
    if (mistakes & kNoKey) return -1;
    if (mistakes & kNullText) return -4;
    if (mistakes & kNoOutput) return 0;
    return mistakes & kNotItsKind ? -3 : 1;
}

constexpr unsigned kAllSets = 32;

TEST(ValueBuild, OrderOfChecksOfMembers) {
    for (unsigned set = 0; set < kAllSets; ++set) {
        SCOPED_TRACE(set);
        JsonDocument document;
        document.SetObject();
        JsonDocument array;
        array.SetArray();
        JsonValue& parent = set & kNotItsKind ? array : document;
        uint64_t reference = kUnwritten;
        const int result =
            AddMember(set & kNoParent ? nullptr : &parent, set & kNoKey ? nullptr : L"key",
                      TextItem(set & kNullText ? nullptr : L"text"), document.GetAllocator(),
                      set & kNoOutput ? nullptr : &reference);
        EXPECT_EQ(ResultOf(set), result);
        EXPECT_EQ(set == 0 ? 1u : 0u, document.MemberCount());
        EXPECT_EQ(0u, array.Size());
        EXPECT_EQ(set == 0 ? AddressOf(document[L"key"]) : kUnwritten, reference);
    }
}

TEST(ValueBuild, OrderOfChecksOfElements) {
    for (unsigned set = 0; set < kAllSets; ++set) {
        if (set & kNoKey) continue;  // elements have none
        SCOPED_TRACE(set);
        JsonDocument document;
        document.SetArray();
        JsonDocument object;
        object.SetObject();
        JsonValue& parent = set & kNotItsKind ? object : document;
        uint64_t reference = kUnwritten;
        const int result = Append(set & kNoParent ? nullptr : &parent,
                                  TextItem(set & kNullText ? nullptr : L"text"),
                                  document.GetAllocator(), set & kNoOutput ? nullptr : &reference);
        EXPECT_EQ(ResultOf(set), result);
        EXPECT_EQ(set == 0 ? 1u : 0u, document.Size());
        EXPECT_EQ(0u, object.MemberCount());
        EXPECT_EQ(set == 0 ? AddressOf(document[0]) : kUnwritten, reference);
    }
}

/// Adds one item of each kind again and again, and notes what was returned for each.
class Appending {
public:
    Appending() { document.SetArray(); }

    /// The reference is the address of the new element.
    template <class Item>
    void ExpectAddress(const Item& item) {
        const uint64_t reference = Add(item);
        EXPECT_EQ(AddressOf(document[document.Size() - 1]), reference);
        EXPECT_TRUE(AddMemberGivesAddress(item));
    }

    /// The reference is that of the array plus 16 for each element before the new one.
    template <class Item>
    void ExpectOdd(const Item& item) {
        const uint64_t reference = Add(item);
        EXPECT_EQ(AddressOf(document) + 16 * (document.Size() - 1), reference);
        EXPECT_TRUE(AddMemberGivesAddress(item));
    }

private:
    template <class Item>
    uint64_t Add(const Item& item) {
        const rapidjson::SizeType before = document.Size();
        uint64_t reference = kUnwritten;
        EXPECT_EQ(1, Append(&document, item, document.GetAllocator(), &reference));
        EXPECT_EQ(before + 1, document.Size());
        return reference;
    }

    /// A member's reference is its value's address for every kind.
    template <class Item>
    bool AddMemberGivesAddress(const Item& item) {
        JsonValue object(rapidjson::kObjectType);
        uint64_t reference = 0;
        return AddMember(&object, L"key", item, document.GetAllocator(), &reference) == 1 &&
               reference == AddressOf(object[L"key"]);
    }

    JsonDocument document;
};

TEST(ValueBuild, ReferencesOfElements) {
    JsonValue parsed(7);
    DocumentPool pool;
    DocumentPool::Annex annex(pool);
    Appending appending;
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        appending.ExpectAddress(ObjectItem());
        appending.ExpectOdd(BooleanItem(true));
        appending.ExpectAddress(ArrayItem());
        appending.ExpectOdd(NumberItem<int32_t>(-1));
        appending.ExpectOdd(NumberItem<uint32_t>(1));
        appending.ExpectOdd(NumberItem<int64_t>(-1));
        appending.ExpectOdd(NumberItem<uint64_t>(1));
        appending.ExpectOdd(NumberItem<double>(0.5));
        appending.ExpectAddress(NullItem());
        appending.ExpectAddress(TextItem(L"text"));
        appending.ExpectAddress(DocumentItem(parsed, annex));
    }
}

/// A parsed document of so many elements, made into an item of a pool in which something lies or
/// nothing; whether it stayed where it was.
bool StaysWhereItIs(rapidjson::SizeType size, bool isEmpty) {
    DocumentPool pool;
    if (!isEmpty) pool.Allocator().Malloc(8);
    const size_t before = pool.Size();
    const void* elements = nullptr;
    JsonValue made;
    {
        DocumentPool::Annex annex(pool);
        JsonDocument parsed(&annex.Allocator());
        parsed.SetArray();
        parsed.Reserve(size, parsed.GetAllocator());
        for (rapidjson::SizeType i = 0; i < size; ++i) parsed.PushBack(i, parsed.GetAllocator());
        elements = parsed.Begin();
        made = DocumentItem(parsed, annex).Make(pool.Allocator());
    }
    EXPECT_EQ(size, made.Size());
    EXPECT_EQ(size - 1, made[size - 1].GetUint());
    EXPECT_TRUE(pool.Contains(made.Begin()));
    EXPECT_EQ(before + size * sizeof(JsonValue), pool.Size());
    return made.Begin() == elements;
}

/// A parsed document stays where it is if that is the whole pool, or if it is large; of a small one
/// nothing is kept but a copy.
TEST(ValueBuild, ParsedDocuments) {
    for (const rapidjson::SizeType size : {3u, 100u, 200u, 250u, 500u, 10'000u}) {
        SCOPED_TRACE(size);
        EXPECT_TRUE(StaysWhereItIs(size, true));
        EXPECT_EQ(size == 200 || size == 250 || size > 1000, StaysWhereItIs(size, false));
    }
}

/// Of an annex that is not kept nothing stays.
TEST(ValueBuild, AnnexesThatAreGivenBack) {
    DocumentPool pool;
    void* inside = nullptr;
    {
        DocumentPool::Annex annex(pool);
        inside = annex.Allocator().Malloc(100'000);
        EXPECT_TRUE(pool.Contains(inside));
    }
    EXPECT_FALSE(pool.Contains(inside));
}

/// A float keeps the value that it has as a double.
TEST(ValueBuild, FloatsAreWidened) {
    JsonDocument document;
    document.SetArray();
    uint64_t reference = 0;
    EXPECT_EQ(1, Append(&document, NumberItem<double>(0.1f), document.GetAllocator(), &reference));
    EXPECT_TRUE(document[0].IsDouble());
    EXPECT_EQ(static_cast<double>(0.1f), document[0].GetDouble());
}

TEST(ValueBuild, SpecialNumbers) {
    JsonAllocator allocator;
    EXPECT_TRUE(SpecialNumberItem(0).Make(allocator).IsInt());
    EXPECT_TRUE(std::isnan(SpecialNumberItem(1).Make(allocator).GetDouble()));
    EXPECT_EQ(std::numeric_limits<double>::infinity(),
              SpecialNumberItem(2).Make(allocator).GetDouble());
    EXPECT_EQ(-std::numeric_limits<double>::infinity(),
              SpecialNumberItem(3).Make(allocator).GetDouble());
    for (const uint32_t selector : {4u, 5u, 0xFFFFFFFFu})
        EXPECT_FALSE(SpecialNumberItem(selector).Known());
}

TEST(ValueBuild, RepeatedKeysMakeFurtherMembers) {
    JsonDocument document;
    document.SetObject();
    for (uint64_t i = 0; i < 3; ++i) {
        uint64_t reference = 0;
        EXPECT_EQ(1, AddMember(&document, L"key", NumberItem<uint64_t>(i), document.GetAllocator(),
                               &reference));
        EXPECT_EQ(AddressOf((document.MemberEnd() - 1)->value), reference);
    }
    ASSERT_EQ(3u, document.MemberCount());
    for (uint64_t i = 0; i < 3; ++i)
        EXPECT_EQ(i, (document.MemberBegin() + static_cast<std::ptrdiff_t>(i))->value.GetUint64());
}

/// The characters of a short string lie inside the value until they are settled.
TEST(ValueBuild, SettledStringsStayWhereTheyAre) {
    JsonAllocator allocator;
    for (const std::wstring text : {L"", L"a", L"short", L"a text that is not short at all"}) {
        JsonValue value(text.c_str(), allocator);
        SettleString(value, allocator);
        const wchar_t* const characters = value.GetString();
        const JsonValue moved(std::move(value));
        EXPECT_EQ(characters, moved.GetString());
        EXPECT_EQ(text, std::wstring(moved.GetString(), moved.GetStringLength()));
    }
    JsonValue number(7);
    SettleString(number, allocator);
    EXPECT_EQ(7, number.GetInt());
}

TEST(ValueBuild, CopiesHaveNothingInCommon) {
    JsonDocument source;
    source.Parse(L"{\"a\":[1,\"text\",{\"b\":null}],\"a longer name than the others\":true}");
    JsonDocument target;
    const JsonValue copy = DeepCopy(source, target.GetAllocator());
    EXPECT_TRUE(copy == source);
    EXPECT_NE(&copy[L"a"][1], &source[L"a"][1]);
    source[L"a"][1].SetInt(5);
    EXPECT_FALSE(copy == source);
    EXPECT_STREQ(L"text", copy[L"a"][1].GetString());
}

}  // namespace
