// Every getter on every kind of value, in every way of naming it.

#include <gtest/gtest.h>

#include <cstring>

#include "JsonDll.h"
#include "ParserOperationList.h"
#include "Samples.h"
#include "Sites.h"

namespace {

using namespace support;

/// A document whose root has the sample as its second member, and everything about where that is.
struct Placed {
    explicit Placed(const Sample& sample)
        : parser(Loaded((L"{\"first\":[],\"v\":" + sample.json + L"}").c_str())),
          root(SiteOfRoot(*parser)),
          value(SiteOfMember(*parser, L"v")) {}

    /// What the operation returns for the first child, learnt from operations of the other kind.
    Answer FirstChild(const Operation& operation) const {
        uint32_t itemType = 0;
        uint32_t valueType = 0;
        Site child;
        parser->GetChildItem(value.handle, 0, &child.handle, &itemType);
        parser->GetChildValue(value.reference, 0, &child.reference, &valueType);
        if (operation.naming == NamedBy::kReference)
            return {1, {Show(child.reference), Show(valueType)}};
        return {1, {Show(child.handle), Show(itemType)}};
    }

    Parser parser;
    Site root;
    Site value;
};

TEST(ReadingScalars, EveryGetterOnEveryValueInEveryForm) {
    for (const Sample& sample : Samples()) {
        const Placed placed(sample);
        for (const Operation& operation : ReadingOperations()) {
            SCOPED_TRACE(testing::Message() << operation.name << " of " << sample.json);
            const Answer expected =
                ExpectedAnswer(operation, sample, placed.value, placed.FirstChild(operation));
            Arguments arguments = AtMember(operation, placed.root, placed.value, L"v");
            EXPECT_EQ(expected, operation.call(*placed.parser, arguments));
            // A key may be written in the other case, but for existence by path.
            arguments.key = L"V";
            const bool exact =
                operation.hasKey && operation.returnsBool && operation.naming == NamedBy::kPath;
            EXPECT_EQ(exact ? Answer(0) : expected, operation.call(*placed.parser, arguments));
        }
    }
}

/// The same for elements of an array, which have no key: every operation that takes none.
TEST(ReadingScalars, EveryGetterOnEveryElement) {
    for (const Sample& sample : Samples()) {
        const Parser parser = Loaded((L"[[],[0," + sample.json + L"]]").c_str());
        Site element;
        uint32_t type = 0;
        ASSERT_EQ(1, parser->GetItemByPath(L"/2/2", &element.handle));
        uint64_t list = 0;
        ASSERT_EQ(1, parser->GetChildValue(SiteOfRoot(*parser).reference, 1, &list, &type));
        ASSERT_EQ(1, parser->GetChildValue(list, 1, &element.reference, &type));
        element.path = L"/2/2";
        for (const Operation& operation : ReadingOperations()) {
            if (operation.hasKey || operation.hasIndex) continue;
            SCOPED_TRACE(testing::Message() << operation.name << " of " << sample.json);
            EXPECT_EQ(ExpectedAnswer(operation, sample, element, {}),
                      operation.call(*parser, At(element)));
        }
    }
}

/// Numbers whose text is not the one that the library writes.
TEST(ReadingScalars, OtherSpellingsOfNumbers) {
    struct Row {
        const wchar_t* json;
        uint32_t valueType;
        double number;
    };
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const Row rows[] = {
        {L"-0", 6, 0.0},
        {L"18446744073709551616", 11, 18446744073709551616.0},
        {L"-9223372036854775809", 11, -9223372036854775808.0},
        {L"99999999999999999999", 11, 1e20},
        {L"1E2", 11, 100.0},
        {L"1e+2", 11, 100.0},
        {L"100e-2", 11, 1.0},
        {L"1.50", 11, 1.5},
        {L"1e-400", 11, 0.0},
        {L"Inf", 11, kInfinity},
        {L"-Inf", 11, -kInfinity},
        {L"Infinity", 11, kInfinity},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.json);
        const Parser parser = Loaded((std::wstring(L"{\"v\":") + row.json + L"}").c_str());
        const Site value = SiteOfMember(*parser, L"v");
        uint32_t type = 0;
        double number = 99;
        int64_t integer = 99;
        EXPECT_EQ(1, parser->GetValueType(value.reference, &type));
        EXPECT_EQ(row.valueType, type);
        EXPECT_EQ(1, parser->GetItemDouble(value.handle, &number));
        EXPECT_EQ(Show(row.number), Show(number));
        EXPECT_EQ(row.valueType == 11 ? -3 : 1, parser->GetItemInt64(value.handle, &integer));
    }
}

TEST(ReadingScalars, ANegativeNaNIsNaN) {
    const Parser parser = Loaded(L"[-NaN]");
    uint32_t numberClass = 0;
    double number = 0;
    EXPECT_EQ(1, parser->GetNumberClassByPath(L"/1", &numberClass));
    EXPECT_EQ(1u, numberClass);
    EXPECT_EQ(1, parser->GetItemDoubleByPath(L"/1", &number));
    EXPECT_EQ(L"NaN", Show(number));
}

/// All forms hand out the characters inside the document, past an embedded U+0000.
TEST(ReadingScalars, AStringIsHandedOutWholeAndFromOnePlace) {
    struct Row {
        const wchar_t* json;
        std::wstring text;
    };
    const Row rows[] = {
        {L"\"\"", L""},
        {L"\"ab\"", L"ab"},
        {L"\"a\\u0000b\\u0000\"", std::wstring(L"a\0b\0", 4)},
        {L"\"a longer text, which does not fit into the value itself \\u0000 !\"",
         std::wstring(L"a longer text, which does not fit into the value itself \0 !", 59)},
        {L"\"\\uD83D\\uDE00\"", L"\xD83D\xDE00"},
        {L"\"\\uDE00\"", L"\xDE00"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.json);
        const Parser parser = Loaded((std::wstring(L"{\"v\":") + row.json + L"}").c_str());
        const Site root = SiteOfRoot(*parser);
        const Site value = SiteOfMember(*parser, L"v");
        const wchar_t* texts[5] = {};
        EXPECT_EQ(1, parser->GetItemString(value.handle, &texts[0]));
        EXPECT_EQ(1, parser->GetMemberString(root.handle, L"v", &texts[1]));
        EXPECT_EQ(1, parser->GetValueString(value.reference, &texts[2]));
        EXPECT_EQ(1, parser->GetMemberStringOfValue(root.reference, L"v", &texts[3]));
        EXPECT_EQ(1, parser->GetItemStringByPath(L"/v", &texts[4]));
        for (const wchar_t* text : texts) EXPECT_EQ(texts[0], text);
        // With the terminator.
        const size_t size = (row.text.size() + 1) * sizeof(wchar_t);
        EXPECT_EQ(0, std::memcmp(row.text.c_str(), texts[0], size));
    }
}

TEST(ReadingScalars, ANameIsHandedOutWholeAndFromOnePlace) {
    const Parser parser = Loaded(L"{\"x\":0,\"a\\u0000b\":1}");
    const Site root = SiteOfRoot(*parser);
    const wchar_t* names[3] = {};
    EXPECT_EQ(1, parser->GetMemberName(root.handle, 1, &names[0]));
    EXPECT_EQ(1, parser->GetMemberNameOfValue(root.reference, 1, &names[1]));
    EXPECT_EQ(1, parser->GetMemberNameByPath(L"/", 1, &names[2]));
    for (const wchar_t* name : names) EXPECT_EQ(names[0], name);
    EXPECT_EQ(0, std::memcmp(L"a\0b", names[0], 4 * sizeof(wchar_t)));
}

}  // namespace
