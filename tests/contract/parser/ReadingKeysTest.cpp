// Which member a key names: the first in any case of ASCII letters.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "JsonDll.h"
#include "ParserOperationList.h"
#include "Sites.h"

namespace {

using namespace support;

/// The operations that find a member by a key and read it as a number, with what they show of it.
struct Finder {
    const char* operation;
    const wchar_t* prefix;
};
const Finder kFinders[] = {
    {"GetMemberInt", L""},          {"GetMemberIntOfValue", L""},
    {"GetMemberUInt", L""},         {"GetMemberUIntOfValue", L""},
    {"GetMemberInt64", L""},        {"GetMemberInt64OfValue", L""},
    {"GetMemberUInt64", L""},       {"GetMemberUInt64OfValue", L""},
    {"GetMemberDouble", L""},       {"GetMemberDoubleOfValue", L""},
    {"GetMemberFloat", L""},        {"GetMemberFloatOfValue", L""},
    {"GetItemVariant", L"number "}, {"GetVariantOfValue", L"number "},
};

/// What all operations agree on about the member that a key names.
struct Found {
    bool byAnyCase = false;
    bool exactly = false;
    std::wstring number;  ///< its value
};

/// Finds a member of the root through every operation that takes a key.
void ExpectFound(QXJSON::IJsonParser& parser, const wchar_t* key, const Found& expected) {
    const Site root = SiteOfRoot(parser);
    Arguments arguments = At(root);
    arguments.key = key;
    for (const Finder& finder : kFinders) {
        const Operation& operation = ParserOperation(finder.operation);
        const Answer answer =
            expected.byAnyCase ? Answer{1, {finder.prefix + expected.number}} : Answer(-1);
        EXPECT_EQ(answer, operation.call(parser, arguments)) << finder.operation;
    }
    uint32_t handle = 0, type = 0, numberClass = 0;
    uint64_t reference = 0, number = 0;
    const int found = expected.byAnyCase ? 1 : 0;
    EXPECT_EQ(found, parser.GetMemberItem(root.handle, key, &handle, &type));
    EXPECT_EQ(found, parser.GetMemberItemByPath(L"/", key, &handle, &type));
    EXPECT_EQ(found, parser.GetMemberValue(root.reference, key, &reference, &type));
    EXPECT_EQ(found, parser.GetMemberItemType(root.handle, key, &type));
    EXPECT_EQ(found ? 1 : -2, parser.GetMemberNumberClass(root.handle, key, &numberClass));
    EXPECT_EQ(expected.byAnyCase, parser.ExistsMember(root.handle, key));
    EXPECT_EQ(expected.exactly, parser.ExistsMemberByPath(L"/", key));
    if (!expected.byAnyCase) return;
    EXPECT_EQ(1, parser.GetItemUInt64(handle, &number));
    EXPECT_EQ(expected.number, Show(number));
    EXPECT_EQ(1, parser.GetValueUInt64(reference, &number));
    EXPECT_EQ(expected.number, Show(number));
}

TEST(ReadingKeys, TheFirstMemberWithTheKeyInAnyCase) {
    struct Row {
        const wchar_t* json;
        const wchar_t* key;
        int found;     ///< the value of the member that is found, -1 for none
        bool exactly;  ///< whether a member has exactly this name
    };
    const Row rows[] = {
        {L"{\"name\":1,\"Name\":2}", L"NAME", 1, false},
        {L"{\"name\":1,\"Name\":2}", L"name", 1, true},
        {L"{\"name\":1,\"Name\":2}", L"Name", 1, true},
        {L"{\"Name\":2,\"name\":1}", L"name", 2, true},
        {L"{\"a\":1,\"a\":2}", L"a", 1, true},
        {L"{\"b\":1,\"A\":2,\"a\":3}", L"a", 2, true},
        // The whole name counts, not a part of it.
        {L"{\"name\":1}", L"nam", -1, false},
        {L"{\"name\":1}", L"names", -1, false},
        {L"{\"name\":1}", L"", -1, false},
        {L"{\"\":1}", L"", 1, true},
        {L"{\"\":1}", L" ", -1, false},
        {L"{\"a\\u0000b\":1,\"a\":2}", L"a", 2, true},
        {L"{\"a\\u0000b\":1}", L"a", -1, false},
        {L"{\"\\u0000\":1}", L"", -1, false},
        {L"{}", L"a", -1, false},
        // Neighbours of the letters, which differ from others in the bit for the case.
        {L"{\"[\":1}", L"{", -1, false},
        {L"{\"{\":1}", L"[", -1, false},
        {L"{\"@\":1}", L"`", -1, false},
        {L"{\"`\":1}", L"@", -1, false},
        {L"{\"]\":1}", L"}", -1, false},
        {L"{\"^\":1}", L"~", -1, false},
        {L"{\"1\":1}", L"\x11", -1, false},
        {L"{\"[a]\":1}", L"[A]", 1, false},
        // Letters outside ASCII have no case here.
        {L"{\"\x00E9\":1}", L"\x00C9", -1, false},
        {L"{\"\x00C9\":1}", L"\x00E9", -1, false},
        {L"{\"\x00E9\x0061\":1}", L"\x00E9\x0041", 1, false},
        {L"{\"k\":1}", L"\x212A", -1, false},
        {L"{\"\x212A\":1}", L"k", -1, false},
        {L"{\"\x212A\":1}", L"K", -1, false},
        {L"{\"s\":1}", L"\x017F", -1, false},
        {L"{\"\x017F\":1}", L"S", -1, false},
        {L"{\"i\":1}", L"\x0130", -1, false},
        {L"{\"I\":1}", L"\x0131", -1, false},
        {L"{\"\x03B1\":1}", L"\x0391", -1, false},
        {L"{\"\xFF41\":1}", L"\xFF21", -1, false},
        {L"{\"\x0141\":1}", L"a", -1, false},
        {L"{\"A\":1}", L"\x0141", -1, false},
        {L"{\"a\":1}", L"\x0161", -1, false},
        {L"{\"\xD801\xDC00\":1}", L"\xD801\xDC28", -1, false},
        {L"{\"\xD801\xDC00\":1}", L"\xD801\xDC00", 1, true},
        {L"{\"\x00DF\":1}", L"ss", -1, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.json << " key " << row.key);
        const Parser parser = Loaded(row.json);
        Found expected;
        expected.byAnyCase = row.found >= 0;
        expected.exactly = row.exactly;
        expected.number = std::to_wstring(row.found);
        ExpectFound(*parser, row.key, expected);
    }
}

/// Every pair of ASCII characters: only the two cases of one letter match each other.
TEST(ReadingKeys, OnlyTheCasesOfALetterAreAlike) {
    auto isLetter = [](wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z'); };
    for (wchar_t name = 1; name < 0x80; ++name) {
        wchar_t json[32] = {};
        wsprintfW(json, L"{\"x\\u%04Xy\":1}", name);
        const Parser parser = Loaded(json);
        const uint32_t root = SiteOfRoot(*parser).handle;
        for (wchar_t asked = 1; asked < 0x80; ++asked) {
            const wchar_t key[] = {L'x', asked, L'y', 0};
            const bool alike =
                name == asked || (isLetter(name) && isLetter(asked) && (name ^ asked) == 0x20);
            int32_t number = 0;
            ASSERT_EQ(alike ? 1 : -1, parser->GetMemberInt(root, key, &number))
                << std::hex << unsigned{name} << ' ' << unsigned{asked};
            ASSERT_EQ(name == asked, parser->ExistsMemberByPath(L"/", key))
                << std::hex << unsigned{name} << ' ' << unsigned{asked};
        }
    }
}

/// The key decides which member is meant; that a later one would be of the right kind is no help.
TEST(ReadingKeys, TheKindDoesNotChooseTheMember) {
    const Parser parser =
        Loaded(L"{\"a\":1,\"A\":{},\"b\":1,\"B\":[],\"c\":{},\"C\":1,\"d\":\"x\",\"D\":5}");
    const Site root = SiteOfRoot(*parser);
    struct Row {
        const char* operation;
        const wchar_t* key;
        int result;
    };
    const Row rows[] = {
        {"GetMemberObjectItem", L"A", 0},   {"GetMemberObjectValue", L"A", 0},
        {"GetMemberObjectJson", L"A", 0},   {"GetMemberArrayItem", L"B", 0},
        {"GetMemberArrayValue", L"B", 0},   {"GetMemberArrayJson", L"B", 0},
        {"GetMemberObjectItem", L"C", 1},   {"GetMemberObjectValue", L"C", 1},
        {"GetMemberObjectJson", L"C", 1},   {"GetMemberInt", L"C", -3},
        {"GetMemberIntOfValue", L"C", -3},  {"GetMemberInt", L"D", -3},
        {"GetMemberNumberClass", L"D", -3},
    };
    for (const Row& row : rows) {
        Arguments arguments = At(root);
        arguments.key = row.key;
        EXPECT_EQ(row.result, ParserOperation(row.operation).call(*parser, arguments).result)
            << row.operation << ' ' << row.key;
    }
}

TEST(ReadingKeys, MembersWithOneNameAreAllThereByIndex) {
    const Parser parser = Loaded(L"{\"a\":1,\"b\":2,\"a\":3,\"A\":4}");
    const Site root = SiteOfRoot(*parser);
    const wchar_t* names[] = {L"a", L"b", L"a", L"A"};
    uint32_t count = 0;
    EXPECT_EQ(1, parser->GetChildCount(root.handle, &count));
    EXPECT_EQ(4u, count);
    for (uint32_t i = 0; i < 4; ++i) {
        const wchar_t* name = nullptr;
        uint32_t handle = 0, type = 0;
        int32_t number = 0;
        EXPECT_EQ(1, parser->GetMemberName(root.handle, i, &name));
        EXPECT_STREQ(names[i], name);
        EXPECT_EQ(1, parser->GetChildItem(root.handle, i, &handle, &type));
        EXPECT_EQ(1, parser->GetItemInt(handle, &number));
        EXPECT_EQ(static_cast<int32_t>(i) + 1, number);
    }
    int32_t number = 0;
    EXPECT_EQ(1, parser->GetItemIntByPath(L"/a", &number));
    EXPECT_EQ(1, number);
    EXPECT_EQ(1, parser->GetItemIntByPath(L"/A", &number));
    EXPECT_EQ(4, number);
}

/// A key is compared with names only; it is no path and knows no positions.
TEST(ReadingKeys, AKeyIsTakenLiterally) {
    const Parser parser = Loaded(L"{\"a/b\":1,\"a~b\":2,\"a~1b\":3,\"1\":4,\"a\":{\"b\":5}}");
    const uint32_t root = SiteOfRoot(*parser).handle;
    struct Row {
        const wchar_t* key;
        int result;
        int32_t number;
    };
    const Row rows[] = {{L"a/b", 1, 1},   {L"a~b", 1, 2},   {L"a~1b", 1, 3}, {L"1", 1, 4},
                        {L"a~/b", -1, 0}, {L"/a/b", -1, 0}, {L"/1", -1, 0}};
    for (const Row& row : rows) {
        int32_t number = 0;
        EXPECT_EQ(row.result, parser->GetMemberInt(root, row.key, &number)) << row.key;
        EXPECT_EQ(row.number, number) << row.key;
    }
}

}  // namespace
