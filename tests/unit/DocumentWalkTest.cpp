// The walk over a document, against RapidJSON's own.

#include "common/values/DocumentWalk.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace QXJSON;
using rapidjson::SizeType;

/// Notes all events, up to one that it refuses.
class Notes {
public:
    explicit Notes(size_t howMany = SIZE_MAX) : limit(howMany) {}

    const std::wstring& Text() const { return text; }

    bool Null() { return Note(L"null"); }
    bool Bool(bool b) { return Note(b ? L"true" : L"false"); }
    bool Int(int i) { return Note(L"int" + std::to_wstring(i)); }
    bool Uint(unsigned i) { return Note(L"uint" + std::to_wstring(i)); }
    bool Int64(int64_t i) { return Note(L"int64 " + std::to_wstring(i)); }
    bool Uint64(uint64_t i) { return Note(L"uint64 " + std::to_wstring(i)); }
    bool Double(double d) { return Note(L"double" + std::to_wstring(d)); }
    bool String(const wchar_t* s, SizeType length, bool) { return Note({s, length}); }
    bool Key(const wchar_t* s, SizeType length, bool) { return Note(L"key" + Counted(s, length)); }
    bool StartObject() { return Note(L"{"); }
    bool EndObject(SizeType count) { return Note(L"}" + std::to_wstring(count)); }
    bool StartArray() { return Note(L"["); }
    bool EndArray(SizeType count) { return Note(L"]" + std::to_wstring(count)); }

private:
    static std::wstring Counted(const wchar_t* s, SizeType length) { return {s, length}; }

    bool Note(const std::wstring& event) {
        text += event + L'\n';
        return --limit > 0;
    }

    size_t limit;
    std::wstring text;
};

/// A random value, nested no deeper than `depth`.
JsonValue RandomValue(std::mt19937& random, int depth, JsonAllocator& allocator) {
    switch (random() % (depth > 0 ? 12 : 8)) {
        case 0:
            return JsonValue();
        case 1:
            return JsonValue(random() % 2 == 0);
        case 2:
            return JsonValue(-static_cast<int>(random() % 100));
        case 3:
            return JsonValue(static_cast<unsigned>(random() | 0x80000000));
        case 4:
            return JsonValue(-static_cast<int64_t>(uint64_t{random()} << 20));
        case 5:
            return JsonValue(uint64_t{random()} << 33 | uint64_t{1} << 63);
        case 6:
            return JsonValue(0.5 * static_cast<double>(random()));
        case 7:
            return JsonValue(std::wstring(random() % 30, L'x').c_str(), allocator);
        default:
            break;
    }
    const bool isObject = random() % 2 == 0;
    JsonValue container(isObject ? rapidjson::kObjectType : rapidjson::kArrayType);
    for (size_t count = random() % 5; count > 0; --count) {
        JsonValue child = RandomValue(random, depth - 1, allocator);
        if (isObject)
            container.AddMember(JsonValue(L"key", allocator), child, allocator);
        else
            container.PushBack(child, allocator);
    }
    return container;
}

size_t PlainDepthOf(const JsonValue& value) {
    size_t deepest = 0;
    if (value.IsArray())
        for (const JsonValue& element : value.GetArray())
            deepest = std::max(deepest, PlainDepthOf(element));
    if (value.IsObject())
        for (const auto& member : value.GetObject())
            deepest = std::max(deepest, PlainDepthOf(member.value));
    return IsContainer(value) ? deepest + 1 : 0;
}

TEST(DocumentWalk, RandomDocuments) {
    std::mt19937 random(7);
    WalkTrail trail;
    size_t deepest = 0;
    for (int i = 0; i < 3000; ++i) {
        JsonAllocator allocator;
        const JsonValue value = RandomValue(random, 12, allocator);
        Notes expected;
        Notes walked;
        EXPECT_TRUE(value.Accept(expected));
        EXPECT_TRUE(Walk(value, walked, trail));
        ASSERT_EQ(expected.Text(), walked.Text());
        ASSERT_EQ(PlainDepthOf(value), DepthOf(value, trail));
        deepest = std::max(deepest, PlainDepthOf(value));
    }
    EXPECT_GE(deepest, 8u);
}

/// Every event may be the last.
TEST(DocumentWalk, EndsWhereTheHandlerDoes) {
    JsonDocument document;
    document.Parse(L"[1,[],{\"a\":{\"b\":[true,null]},\"c\":\"text\"},[[2.5]],-7]");
    WalkTrail trail;
    for (size_t limit = 1;; ++limit) {
        Notes expected(limit);
        Notes walked(limit);
        const bool whole = document.Accept(expected);
        EXPECT_EQ(whole, Walk(document, walked, trail)) << limit;
        EXPECT_EQ(expected.Text(), walked.Text()) << limit;
        if (whole) break;
        ASSERT_LT(limit, 100u);
    }
}

TEST(DocumentWalk, ScalarsAndEmptyContainers) {
    WalkTrail trail;
    for (const wchar_t* json : {L"null", L"true", L"1", L"2.5", L"\"text\"", L"[]", L"{}"}) {
        JsonDocument document;
        document.Parse(json);
        Notes expected;
        Notes walked;
        EXPECT_TRUE(document.Accept(expected));
        EXPECT_TRUE(Walk(document, walked, trail));
        EXPECT_EQ(expected.Text(), walked.Text());
        EXPECT_EQ(IsContainer(document) ? 1u : 0u, DepthOf(document, trail));
    }
}

/// An array in an array, so many levels deep.
JsonValue Nested(size_t levels, JsonAllocator& allocator) {
    JsonValue value(rapidjson::kArrayType);
    while (--levels > 0) {
        JsonValue outer(rapidjson::kArrayType);
        outer.PushBack(value, allocator);
        value = outer;
    }
    return value;
}

TEST(DocumentWalk, AtAnyDepth) {
    for (const size_t levels : {31u, 32u, 33u, 34u, 64u, 65u, 66u, 1'000'000u}) {
        JsonAllocator allocator;
        const JsonValue value = Nested(levels, allocator);
        WalkTrail trail;
        EXPECT_EQ(levels, DepthOf(value, trail));
        Notes walked;
        EXPECT_TRUE(Walk(value, walked));
        std::wstring expected;
        for (size_t i = 0; i < levels; ++i) expected += L"[\n";
        expected += L"]0\n";
        for (size_t i = 1; i < levels; ++i) expected += L"]1\n";
        EXPECT_TRUE(expected == walked.Text()) << levels;
    }
}

}  // namespace
