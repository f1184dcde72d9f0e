// Keys as they are: the paths that handles are remembered under do not escape them, and have no
// limit.

#include <gtest/gtest.h>

#include <set>

#include "BuildScene.h"

namespace {

using namespace building;

/// A member of the root with this key, added by handle.
struct Key {
    const wchar_t* key;
    int below;              ///< the result of adding below it by its handle
    const wchar_t* path;    ///< what its handle's path reads
    const wchar_t* naming;  ///< the path that names it; null when none does
};

const Key kKeys[] = {
    {L"plain", 1, L"/plain", L"/plain"},
    {L"", 1, L"/", nullptr},
    {L"0", 1, L"/0", L"/0"},
    {L"1", 1, L"/1", L"/1"},
    {L"-1", 1, L"/-1", L"/-1"},
    {L"007", 1, L"/007", L"/007"},
    {L"a1b2", 1, L"/a1b2", L"/a1b2"},
    {L"99999999999999999999", 1, L"/99999999999999999999", L"/99999999999999999999"},
    {L" ", 1, L"/ ", L"/ "},
    {L"#%41", 1, L"/#%41", L"/#%41"},
    {L"\"\\\t\x01", 1, L"/\"\\\t\x01", L"/\"\\\t\x01"},
    {L"\x00E9\x4E2D", 1, L"/\x00E9\x4E2D", L"/\x00E9\x4E2D"},
    {L"\xD83D\xDE00", 1, L"/\xD83D\xDE00", L"/\xD83D\xDE00"},
    {L"\x0661\xFF11", 1, L"/\x0661\xFF11", L"/\x0661\xFF11"},
    {L"a/b", -2, L"/a/b", L"/a~/b"},
    {L"a/1", -2, L"/a/1", L"/a~/1"},
    {L"1/a", -2, L"/1/a", L"/1~/a"},
    {L"/", -2, L"//", L"/~/"},
    {L"//", -2, L"///", L"/~/~/"},
    {L"a/", -2, L"/a/", L"/a~/"},
    {L"/a", -2, L"//a", L"/~/a"},
    {L"~", -2, L"/~", L"/~0"},
    {L"a~b", -2, L"/a~b", L"/a~0b"},
    {L"~2", -2, L"/~2", L"/~02"},
    {L"~0", -2, L"/~0", L"/~00"},
    {L"~1", -2, L"/~/", L"/~01"},
    {L"a~1b", -2, L"/a~/b", L"/a~01b"},
};

TEST(BuildingKeys, ByHandleAndPath) {
    for (const Key& row : kKeys) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.key)));
        const support::Generator generator = support::NewGenerator();
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->CreateRootObject(&handle));
        EXPECT_EQ(1, generator->AddObjectItemObject(1, row.key, &handle));
        EXPECT_EQ(2u, handle);
        Document expected(rapidjson::kObjectType);
        Allocator& allocator = expected.GetAllocator();
        expected.AddMember(NewString(row.key, allocator), Value(rapidjson::kObjectType), allocator);
        EXPECT_EQ(TextOf(expected), TextOf(*generator));

        wchar_t path[1024] = L"";
        EXPECT_EQ(1, generator->GetItemPath(2, path));
        EXPECT_STREQ(row.path, path);
        uint32_t added = 0;
        EXPECT_EQ(row.below, generator->AddObjectItemBoolean(2, L"x", 1, &added));
        if (row.below == 1) expected.MemberBegin()->value.AddMember(L"x", Value(true), allocator);
        EXPECT_EQ(TextOf(expected), TextOf(*generator));
        if (row.naming == nullptr) continue;
        EXPECT_EQ(1, generator->AddObjectItemNullByPath(row.naming, L"y", &added));
        expected.MemberBegin()->value.AddMember(L"y", Value(), allocator);
        EXPECT_EQ(TextOf(expected), TextOf(*generator));
        EXPECT_EQ(1, generator->GetItemHandleByPath(row.naming, &handle));
        EXPECT_EQ(row.below == 1, handle == 2u);
    }
}

/// Adding such a key again finds its handle; whether it finds the member is another matter.
TEST(BuildingKeys, Again) {
    for (const Key& row : kKeys) {
        for (const NamedBy naming : {NamedBy::kHandle, NamedBy::kPath}) {
            SCOPED_TRACE(testing::Message()
                         << testing::PrintToString(std::wstring(row.key)) << " " << NameOf(naming));
            const support::Generator generator = support::NewGenerator();
            uint32_t handle = 0;
            EXPECT_EQ(1, generator->CreateRootObject(&handle));
            EXPECT_EQ(1, generator->AddObjectItemBoolean(1, row.key, 0, &handle));
            const std::wstring text = TextOf(*generator);
            Arguments arguments = With(BooleanItem(1));
            arguments.handle = 1;
            arguments.path = L"/";
            arguments.key = row.key;
            EXPECT_EQ((Answer{1, 2u}),
                      AddingOperation(Kind::kBoolean, naming, true).call(*generator, arguments));
            EXPECT_EQ(row.below == 1, text != TextOf(*generator));
            arguments.payload = StringItem(L"new").payload;
            const Answer answer =
                AddingOperation(Kind::kString, naming, true).call(*generator, arguments);
            EXPECT_EQ(row.below == 1 ? (Answer{1, 2u}) : Answer{-5}, answer);
            EXPECT_EQ(row.below == 1, TextOf(*generator).find(L"\"new\"") != std::wstring::npos);
        }
    }
}

/// Below every parent that exists, by reference, a key is a key.
TEST(BuildingKeys, ByReference) {
    const support::Generator generator = support::NewGenerator();
    uint64_t root = 0;
    EXPECT_EQ(1, generator->ResetRootObjectValue(&root));
    Document expected(rapidjson::kObjectType);
    for (const Key& row : kKeys) {
        uint64_t member = 0;
        uint64_t inner = 0;
        EXPECT_EQ(1, generator->AddObjectValueObject(root, row.key, &member));
        EXPECT_EQ(1, generator->AddObjectValueNull(member, row.key, &inner));
        Allocator& allocator = expected.GetAllocator();
        Value object(rapidjson::kObjectType);
        object.AddMember(NewString(row.key, allocator), Value(), allocator);
        expected.AddMember(NewString(row.key, allocator), object, allocator);
        EXPECT_EQ(TextOf(expected), TextOf(*generator));
    }
}

/// A key with a slash is remembered under the path of another item, if there is one.
TEST(BuildingKeys, AKeyThatReadsAsThePathOfAnotherItem) {
    for (const NamedBy naming : {NamedBy::kHandle, NamedBy::kPath}) {
        SCOPED_TRACE(NameOf(naming));
        const support::Generator generator = support::NewGenerator();
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->CreateRootObject(&handle));
        EXPECT_EQ(1, generator->AddObjectItemArray(1, L"a", &handle));
        EXPECT_EQ(1, generator->AddArrayItemObject(2, &handle));
        EXPECT_EQ(1, generator->AddObjectItemInt(3, L"~x", 5, &handle));
        Arguments arguments = With(StringItem(L"put there"));
        arguments.handle = 1;
        arguments.path = L"/";
        arguments.key = L"a/0";
        const Operation& add = AddingOperation(Kind::kString, naming, true);
        EXPECT_EQ((Answer{1, 3u}), add.call(*generator, arguments));
        EXPECT_EQ(LR"({"a":["put there"]})", TextOf(*generator));
        arguments.key = L"a/1";
        EXPECT_EQ((Answer{1, 5u}), add.call(*generator, arguments));
        EXPECT_EQ(LR"({"a":["put there"],"a/1":"put there"})", TextOf(*generator));
        // From now on the second element has the handle of that member.
        EXPECT_EQ(1, generator->AddArrayItemObject(2, &handle));
        EXPECT_EQ(5u, handle);
        EXPECT_EQ(1, generator->AddObjectItemNull(5, L"in the element", &handle));
        EXPECT_EQ(LR"({"a":["put there",{"in the element":null}],"a/1":"put there"})",
                  TextOf(*generator));
    }
}

/// "~0" and "~1" in a key are read as the characters that they stand for.
TEST(BuildingKeys, AKeyThatReadsAsTheEscapeOfAnother) {
    const support::Generator generator = support::NewGenerator();
    uint32_t handle = 0;
    EXPECT_EQ(1, generator->CreateRootObject(&handle));
    EXPECT_EQ(1, generator->AddObjectItemObject(1, L"x/y", &handle));
    EXPECT_EQ(1, generator->AddObjectItemObject(1, L"x~1y", &handle));
    EXPECT_EQ(3u, handle);
    EXPECT_EQ(1, generator->AddObjectItemInt(3, L"k", 1, &handle));
    EXPECT_EQ(LR"({"x/y":{"k":1},"x~1y":{}})", TextOf(*generator));
    EXPECT_EQ(1, generator->AddObjectItemArray(1, L"x~1y", &handle));
    EXPECT_EQ(3u, handle);
    EXPECT_EQ(LR"({"x/y":[],"x~1y":{}})", TextOf(*generator));
    EXPECT_EQ(1, generator->GetItemHandleByPath(L"/x~/y", &handle));
    EXPECT_EQ(3u, handle);
}

const size_t kLongKeys[] = {1000, 1021, 1022, 1023, 1024, 1025, 1026, 2047, 2048, 5000, 100000};

TEST(BuildingKeys, LongOnesInEveryOperation) {
    for (const size_t length : kLongKeys) {
        for (const Operation& operation : AddingOperations()) {
            if (!operation.hasKey) continue;
            SCOPED_TRACE(testing::Message() << operation.name << ", " << length << " units");
            Scene scene;
            Document expected = scene.Copy();
            Allocator& allocator = expected.GetAllocator();
            const std::wstring key(length, L'k');
            const Item& item = SomeItem(operation.kind);
            Value value = Stored(item, operation.naming, allocator);
            Resolve(expected, L"/object")->AddMember(NewString(key, allocator), value, allocator);
            Arguments arguments = scene.Naming(L"object");
            arguments.key = key.c_str();
            arguments.payload = item.payload;
            const Answer first = operation.call(scene.Generator(), arguments);
            EXPECT_EQ(1, first.result);
            EXPECT_TRUE(TextOf(expected) == scene.Text());
            if (operation.naming == NamedBy::kReference) continue;
            EXPECT_EQ(first, operation.call(scene.Generator(), arguments));
            EXPECT_TRUE(TextOf(expected) == scene.Text());
        }
    }
}

TEST(BuildingKeys, LongOnesAboveOthers) {
    for (const size_t length : kLongKeys) {
        SCOPED_TRACE(testing::Message() << length << " units");
        const support::Generator generator = support::NewGenerator();
        uint32_t handle = 0;
        EXPECT_EQ(1, generator->CreateRootObject(&handle));
        const std::wstring key(length, L'k');
        const std::wstring other = key.substr(1) + L"x";
        EXPECT_EQ(1, generator->AddObjectItemObject(1, key.c_str(), &handle));
        EXPECT_EQ(2u, handle);
        EXPECT_EQ(1, generator->AddObjectItemArray(1, other.c_str(), &handle));
        EXPECT_EQ(3u, handle);
        EXPECT_EQ(1, generator->AddArrayItemArray(3, &handle));
        EXPECT_EQ(1, generator->AddArrayItemInt(4, 9, &handle));
        EXPECT_EQ(1, generator->AddObjectItemObject(2, key.c_str(), &handle));
        EXPECT_EQ(6u, handle);
        EXPECT_EQ(1, generator->AddObjectItemString(6, L"s", L"deep", &handle));
        EXPECT_EQ(7u, handle);
        EXPECT_EQ(1, generator->AddObjectItemBlob(6, L"s", reinterpret_cast<const uint8_t*>("abc"),
                                                  3, &handle));
        EXPECT_EQ(7u, handle);
        const std::wstring expected =
            L"{\"" + key + L"\":{\"" + key + L"\":{\"s\":\"YWJj\"}},\"" + other + L"\":[[9]]}";
        EXPECT_TRUE(expected == TextOf(*generator));
    }
}

}  // namespace
