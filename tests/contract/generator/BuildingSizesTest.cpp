// Large documents and deep ones.

#include <gtest/gtest.h>

#include "BuildScene.h"

namespace {

using namespace building;
using support::Generator;
using support::NewGenerator;

constexpr int kElements = 1000000;
constexpr int kMembers = 100000;

/// A generator and its root in all three families, with the handle 1.
struct Rooted {
    explicit Rooted(bool isObject) {
        EXPECT_EQ(1, isObject ? generator->ResetRootObjectValue(&root.reference)
                              : generator->ResetRootArrayValue(&root.reference));
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->GetItemHandleByPath(L"/", &handle));
        EXPECT_EQ(1u, handle);
        root.handle = 1;
        root.path = L"/";
    }

    Generator generator = NewGenerator();
    Arguments root;
};

/// Adds the integers from 0 to the root; how many of the calls did as they should.
int AddIntegers(Rooted& rooted, NamedBy naming, bool keyed, int count) {
    const Operation& add = AddingOperation(Kind::kInt, naming, keyed);
    Arguments arguments = rooted.root;
    int good = 0;
    for (int i = 0; i < count; ++i) {
        const std::wstring key = L"k" + std::to_wstring(i);
        arguments.key = key.c_str();
        arguments.payload.int32 = i;
        const Answer answer = add.call(*rooted.generator, arguments);
        const bool isNext = naming == NamedBy::kReference || answer.Number() == i + 2u;
        if (answer.result == 1 && !answer.outputs.empty() && isNext) ++good;
    }
    return good;
}

std::wstring ExpectedElements() {
    Document expected(rapidjson::kArrayType);
    for (int i = 0; i < kElements; ++i) expected.PushBack(i, expected.GetAllocator());
    return TextOf(expected);
}

std::wstring ExpectedMembers() {
    Document expected(rapidjson::kObjectType);
    Allocator& allocator = expected.GetAllocator();
    for (int i = 0; i < kMembers; ++i)
        expected.AddMember(NewString(L"k" + std::to_wstring(i), allocator), Value(i), allocator);
    return TextOf(expected);
}

class BuildingSizes : public testing::TestWithParam<NamedBy> {};

TEST_P(BuildingSizes, AMillionElements) {
    Rooted rooted(false);
    EXPECT_EQ(kElements, AddIntegers(rooted, GetParam(), false, kElements));
    EXPECT_TRUE(ExpectedElements() == TextOf(*rooted.generator));
    uint32_t handle = 0;
    const uint32_t last = GetParam() == NamedBy::kReference ? 2 : kElements + 1;
    EXPECT_EQ(1, rooted.generator->GetItemHandleByPath(L"/1000000", &handle));
    EXPECT_EQ(last, handle);
    EXPECT_EQ(-10, rooted.generator->GetItemHandleByPath(L"/1000001", &handle));
    wchar_t path[1024] = L"";
    EXPECT_EQ(1, rooted.generator->GetItemPath(static_cast<int32_t>(last), path));
    EXPECT_STREQ(L"/1000000", path);
}

TEST_P(BuildingSizes, AHundredThousandMembers) {
    Rooted rooted(true);
    EXPECT_EQ(kMembers, AddIntegers(rooted, GetParam(), true, kMembers));
    EXPECT_TRUE(ExpectedMembers() == TextOf(*rooted.generator));
    if (GetParam() == NamedBy::kReference) return;
    // Each of these finds its member again.
    EXPECT_EQ(1000, AddIntegers(rooted, GetParam(), true, 1000));
    EXPECT_TRUE(ExpectedMembers() == TextOf(*rooted.generator));
}

INSTANTIATE_TEST_SUITE_P(Families, BuildingSizes, testing::ValuesIn(kAllNamings));

constexpr int kDeep = 200'000;

/// Nests containers below one, an array and an object in turn; the innermost, an array.
uint64_t Nest(QXJSON::IJsonGenerator& generator, uint64_t array, int levels) {
    int good = 0;
    uint64_t place = array;
    for (int i = 0; i < levels; i += 2) {
        uint64_t object = 0;
        good += generator.AddArrayValueObject(place, &object);
        good += generator.AddObjectValueArray(object, L"k", &place);
    }
    EXPECT_EQ(levels, good);
    return place;
}

/// So many of them begin or end.
std::wstring Opened(int levels) {
    std::wstring text;
    for (int i = 0; i < levels; i += 2) text += L"{\"k\":[";
    return text;
}
std::wstring Closed(int levels) {
    std::wstring text;
    for (int i = 0; i < levels; i += 2) text += L"]}";
    return text;
}

TEST(BuildingDepth, ADeepDocumentCanBeBuiltOn) {
    Rooted rooted(false);
    auto& generator = *rooted.generator;
    const uint64_t innermost = Nest(generator, rooted.root.reference, kDeep);
    EXPECT_TRUE(L"[" + Opened(kDeep) + Closed(kDeep) + L"]" == TextOf(generator));
    uint64_t reference = 0;
    EXPECT_EQ(1, generator.AddArrayValueString(innermost, L"at the bottom", &reference));
    uint32_t handle = 0;
    EXPECT_EQ(1, generator.AddArrayItemObject(1, &handle));
    EXPECT_EQ(2u, handle);
    EXPECT_EQ(1, generator.AddObjectItemNull(2, L"at the top", &handle));
    EXPECT_EQ(1, generator.GetItemHandleByPath(L"/1/k/1/k", &handle));
    EXPECT_EQ(4u, handle);
    EXPECT_EQ(1, generator.AddArrayItemInt(4, 1, &handle));
    EXPECT_TRUE(L"[" + Opened(kDeep) + L"\"at the bottom\"" + Closed(kDeep - 4) + L",1" +
                    Closed(4) + L",{\"at the top\":null}]" ==
                TextOf(generator));
    EXPECT_EQ(1, generator.CreateRootObject(&handle));
    EXPECT_EQ(L"{}", TextOf(generator));
}

TEST(BuildingDepth, OnceTheDeepPartIsGoneTheRestIsWritten) {
    Rooted rooted(true);
    auto& generator = *rooted.generator;
    uint64_t deep = 0;
    EXPECT_EQ(1, generator.AddObjectValueArray(rooted.root.reference, L"deep", &deep));
    uint32_t handle = 0;
    EXPECT_EQ(1, generator.GetItemHandleByPath(L"/deep", &handle));
    Nest(generator, deep, kDeep);
    EXPECT_TRUE(L"{\"deep\":[" + Opened(kDeep) + Closed(kDeep) + L"]}" == TextOf(generator));
    EXPECT_EQ(1, generator.AddObjectItemString(1, L"deep", L"no more", &handle));
    EXPECT_EQ(LR"({"deep":"no more"})", TextOf(generator));
}

TEST(BuildingDepth, ADeepDocumentIsReleased) {
    for (const bool write : {false, true}) {
        QXJSON::IJsonGenerator* generator = NewGenerator().release();
        uint64_t root = 0;
        EXPECT_EQ(1, generator->ResetRootArrayValue(&root));
        Nest(*generator, root, kDeep);
        if (write) {
            EXPECT_EQ(2u + 8 * kDeep / 2, TextOf(*generator).size());
        }
        EXPECT_EQ(1, generator->Release());
    }
}

/// The root's elements move while they become more: what lies far below is looked for from there.
TEST(BuildingDepth, HandlesFarBelowWhatMoves) {
    constexpr int kLevels = 200, kAdded = 1000;
    Rooted rooted(false);
    auto& generator = *rooted.generator;
    uint32_t innermost = 1;
    for (int i = 0; i < kLevels; ++i)
        ASSERT_EQ(1, generator.AddArrayItemArray(static_cast<int32_t>(innermost), &innermost));
    uint32_t handle = 0;
    std::wstring expected = std::wstring(kLevels + 1, L'[');
    for (int i = 0; i < kAdded; ++i) {
        ASSERT_EQ(1, generator.AddArrayItemNull(1, &handle));
        ASSERT_EQ(1, generator.AddArrayItemInt(static_cast<int32_t>(innermost), i, &handle));
        expected += (i == 0 ? L"" : L",") + std::to_wstring(i);
    }
    expected += std::wstring(kLevels, L']');
    for (int i = 0; i < kAdded; ++i) expected += L",null";
    EXPECT_TRUE(expected + L"]" == TextOf(generator));
}

TEST(BuildingDepth, ManyLevelsByHandle) {
    constexpr int kLevels = 3000;
    Rooted rooted(false);
    auto& generator = *rooted.generator;
    uint32_t handle = 1;
    int good = 0;
    for (int i = 0; i < kLevels; ++i)
        good += generator.AddArrayItemArray(static_cast<int32_t>(handle), &handle);
    EXPECT_EQ(kLevels, good);
    EXPECT_EQ(kLevels + 1u, handle);
    const std::wstring expected = std::wstring(kLevels + 1, L'[') + std::wstring(kLevels + 1, L']');
    EXPECT_TRUE(expected == TextOf(generator));
    Nest(generator, rooted.root.reference, kDeep);
    EXPECT_EQ(expected.size() + 1 + 8 * kDeep / 2, TextOf(generator).size());
    EXPECT_EQ(1, generator.AddArrayItemNull(static_cast<int32_t>(handle), &handle));
    EXPECT_EQ(kLevels + 2u, handle);
    EXPECT_EQ(1, generator.ResetRootObjectValue(&rooted.root.reference));
    EXPECT_EQ(L"{}", TextOf(generator));
}

}  // namespace
