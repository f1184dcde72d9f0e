// Values read as a text or an integer in one record.

#include <gtest/gtest.h>

#include <cstring>

#include "JsonDll.h"
#include "ParserOperationList.h"
#include "Sites.h"

namespace {

using namespace support;
using QXJSON::JsonVariant;

/// Both variant operations on the value at a site must return the same.
void ExpectVariant(QXJSON::IJsonParser& parser, const Site& site, const wchar_t* key,
                   const Answer& expected) {
    Arguments arguments = At(site);
    arguments.key = key;
    for (const char* name : {"GetItemVariant", "GetVariantOfValue"})
        EXPECT_EQ(expected, ParserOperation(name).call(parser, arguments)) << name;
}

TEST(ReadingVariants, AreATextOrAWholeNumber) {
    struct Row {
        const wchar_t* json;
        Answer answer;
    };
    const Answer refused = -3;
    const Row rows[] = {
        {L"\"text\"", {1, {L"text text"}}},
        {L"\"\"", {1, {L"text "}}},
        {L"\"12\"", {1, {L"text 12"}}},
        {L"0", {1, {L"number 0"}}},
        {L"-1", {1, {L"number -1"}}},
        {L"4294967296", {1, {L"number 4294967296"}}},
        {L"9223372036854775807", {1, {L"number 9223372036854775807"}}},
        {L"-9223372036854775808", {1, {L"number -9223372036854775808"}}},
        {L"9223372036854775808", refused},
        {L"18446744073709551615", refused},
        {L"-9223372036854775809", refused},
        {L"5.0", refused},
        {L"1.5", refused},
        {L"NaN", refused},
        {L"Infinity", refused},
        {L"true", refused},
        {L"false", refused},
        {L"null", refused},
        {L"{}", refused},
        {L"{\"v\":1}", refused},
        {L"[]", refused},
        {L"[1]", refused},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.json);
        const Parser parser = Loaded((std::wstring(L"{\"v\":") + row.json + L"}").c_str());
        const Site value = SiteOfMember(*parser, L"v");
        ExpectVariant(*parser, SiteOfRoot(*parser), L"v", row.answer);
        ExpectVariant(*parser, SiteOfRoot(*parser), L"V", row.answer);
        ExpectVariant(*parser, value, nullptr, row.answer);
    }
}

/// When the value is neither, the result is that of the integer getter.
TEST(ReadingVariants, PassTheIntegerGettersResultOn) {
    const Parser parser = Loaded(L"{\"o\":{\"k\":1},\"l\":[1],\"t\":\"x\",\"n\":5,\"\":7}");
    const Site nowhere{999, 0, L""};
    struct Row {
        const wchar_t* member;  ///< null: the root; "?": no value
        const wchar_t* key;
        int result;
    };
    const Row rows[] = {
        {nullptr, L"absent", -1}, {nullptr, L"o", -3}, {nullptr, L"l", -3},
        {nullptr, nullptr, -3},   {L"o", nullptr, -3}, {L"o", L"absent", -1},
        {L"l", nullptr, -3},      {L"l", L"1", -3},    {L"t", L"x", -3},
        {L"n", L"x", -3},         {L"?", nullptr, -2}, {L"?", L"k", -2},
        {nullptr, L"", 1},        {L"o", L"", -1},     {L"t", L"", -3},
        {L"t", nullptr, 1},       {L"n", nullptr, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << (row.member ? row.member : L"root") << " key "
                                        << (row.key ? row.key : L"(null)"));
        Site site = SiteOfRoot(*parser);
        if (row.member) site = *row.member == L'?' ? nowhere : SiteOfMember(*parser, row.member);
        for (const char* name : {"GetItemVariant", "GetVariantOfValue"}) {
            Arguments arguments = At(site);
            arguments.key = row.key;
            const Answer answer = ParserOperation(name).call(*parser, arguments);
            EXPECT_EQ(row.result, answer.result) << name;
            EXPECT_EQ(row.result != 1, answer.outputs.empty()) << name;
        }
    }
}

TEST(ReadingVariants, ANullVariantIsAFailure) {
    const Parser parser = Loaded(L"{\"t\":\"x\",\"n\":5,\"o\":{}}");
    const Site root = SiteOfRoot(*parser);
    for (const wchar_t* key : {L"t", L"n", L"o", L"absent"}) {
        EXPECT_EQ(0, parser->GetItemVariant(root.handle, key, nullptr)) << key;
        EXPECT_EQ(0, parser->GetVariantOfValue(root.reference, key, nullptr)) << key;
    }
    for (const wchar_t* key : {L"t", L"n", L"o"}) {
        const Site site = SiteOfMember(*parser, key);
        EXPECT_EQ(0, parser->GetItemVariant(site.handle, nullptr, nullptr)) << key;
        EXPECT_EQ(0, parser->GetVariantOfValue(site.reference, nullptr, nullptr)) << key;
        EXPECT_EQ(0, parser->GetItemVariant(site.handle, L"k", nullptr)) << key;
    }
    EXPECT_EQ(-2, parser->GetItemVariant(999, L"t", nullptr));
    EXPECT_EQ(-2, parser->GetVariantOfValue(0, nullptr, nullptr));
}

/// A variant's text is the one in the document, whole, and lives as long.
TEST(ReadingVariants, TheTextIsTheDocuments) {
    const Parser parser = Loaded(L"{\"t\":\"a\\u0000b\"}");
    const Site root = SiteOfRoot(*parser);
    const Site site = SiteOfMember(*parser, L"t");
    const wchar_t* text = nullptr;
    ASSERT_EQ(1, parser->GetItemString(site.handle, &text));
    JsonVariant variants[4] = {};
    EXPECT_EQ(1, parser->GetItemVariant(root.handle, L"t", &variants[0]));
    EXPECT_EQ(1, parser->GetItemVariant(site.handle, nullptr, &variants[1]));
    EXPECT_EQ(1, parser->GetVariantOfValue(root.reference, L"t", &variants[2]));
    EXPECT_EQ(1, parser->GetVariantOfValue(site.reference, nullptr, &variants[3]));
    for (const JsonVariant& variant : variants) {
        EXPECT_EQ(16384, variant.tag);
        EXPECT_EQ(text, variant.text);
    }
    EXPECT_EQ(0, std::memcmp(L"a\0b", text, 4 * sizeof(wchar_t)));
}

TEST(ReadingVariants, ANumberHasItsTag) {
    const Parser parser = Loaded(L"[-5000000000]");
    JsonVariant variant = {};
    uint32_t handle = 0;
    ASSERT_EQ(1, parser->GetItemByPath(L"/1", &handle));
    EXPECT_EQ(1, parser->GetItemVariant(handle, nullptr, &variant));
    EXPECT_EQ(20, variant.tag);
    EXPECT_EQ(-5000000000, variant.number);
}

}  // namespace
