// The operations that write values as JSON text.

#include <gtest/gtest.h>

#include <string>

#include "JsonDll.h"
#include "ParserOperationList.h"
#include "Sites.h"
#include "StackThread.h"

namespace {

using namespace support;

/// The operations that write JSON text, asked for the member `v`.
std::vector<Operation> TextOperations() {
    std::vector<Operation> operations;
    for (const Operation& operation : ParserOperations())
        if (operation.asks == Asks::kObjectText || operation.asks == Asks::kArrayText)
            operations.push_back(operation);
    return operations;
}

/// Loads a value and expects its text from all operations for its kind, 0 from those for the other.
void ExpectText(const std::wstring& json, const std::wstring& text) {
    SCOPED_TRACE(testing::Message() << json.substr(0, 100));
    const Parser parser = Loaded((L"{\"v\":" + json + L"}").c_str());
    const Site root = SiteOfRoot(*parser);
    const Site value = SiteOfMember(*parser, L"v");
    const Asks kind = text[0] == L'{' ? Asks::kObjectText : Asks::kArrayText;
    for (const Operation& operation : TextOperations()) {
        const Answer expected = operation.asks == kind ? Answer{1, {text}} : Answer(0);
        EXPECT_EQ(expected, operation.call(*parser, AtMember(operation, root, value, L"v")))
            << operation.name;
    }
}

TEST(ReadingText, IsCompactAndInTheOrderOfTheDocument) {
    ExpectText(L"{}", L"{}");
    ExpectText(L" [ ] ", L"[]");
    ExpectText(L"{ \"b\" : 1 ,\t\"a\" : [ true , false , null ] ,\r\n\"B\":{ } }",
               L"{\"b\":1,\"a\":[true,false,null],\"B\":{}}");
    ExpectText(L"{\"a\":1,\"a\":2,\"\":3}", L"{\"a\":1,\"a\":2,\"\":3}");
    ExpectText(L"[[[]],[{}],{\"a\":[{}]}]", L"[[[]],[{}],{\"a\":[{}]}]");
}

TEST(ReadingText, Numbers) {
    struct Row {
        const wchar_t* json;
        const wchar_t* text;
    };
    const Row rows[] = {
        {L"0", L"0"},
        {L"-0", L"0"},
        {L"-1", L"-1"},
        {L"2147483647", L"2147483647"},
        {L"-2147483648", L"-2147483648"},
        {L"4294967295", L"4294967295"},
        {L"9223372036854775807", L"9223372036854775807"},
        {L"-9223372036854775808", L"-9223372036854775808"},
        {L"18446744073709551615", L"18446744073709551615"},
        {L"5.0", L"5.0"},
        {L"-0.0", L"-0.0"},
        {L"1.5", L"1.5"},
        {L"1.50", L"1.5"},
        {L"0.1", L"0.1"},
        {L"1E2", L"100.0"},
        {L"1e300", L"1e300"},
        {L"1e-7", L"1e-7"},
        {L"123456789.125", L"123456789.125"},
        {L"NaN", L"NaN"},
        {L"Inf", L"Infinity"},
        {L"-Inf", L"-Infinity"},
        {L"Infinity", L"Infinity"},
        {L"-Infinity", L"-Infinity"},
    };
    for (const Row& row : rows) {
        const std::wstring json = row.json, text = row.text;
        ExpectText(L"[" + json + L"]", L"[" + text + L"]");
        ExpectText(L"{\"k\":" + json + L"}", L"{\"k\":" + text + L"}");
    }
}

TEST(ReadingText, Strings) {
    struct Row {
        const wchar_t* json;
        const wchar_t* text;
    };
    const Row rows[] = {
        {L"", L""},
        {L"\\\"", L"\\\""},
        {L"\\\\", L"\\\\"},
        {L"\\/", L"/"},
        {L"/", L"/"},
        {L"\\b\\f\\n\\r\\t", L"\\b\\f\\n\\r\\t"},
        {L"\\u0000", L"\\u0000"},
        {L"\\u0001\\u001f", L"\\u0001\\u001F"},
        {L"\\u0008\\u000A", L"\\b\\n"},
        {L"\\u007F", L"\x7F"},
        {L"\\u0041", L"A"},
        {L"a\\u0000b", L"a\\u0000b"},
        {L"\\u00e9\x00E9", L"\x00E9\x00E9"},
        {L"\\u2028\x4E2D", L"\x2028\x4E2D"},
        {L"\xD83D\xDE00", L"\xD83D\xDE00"},
        {L"\\uD83D\\uDE00", L"\xD83D\xDE00"},
        {L"\\uDE00", L"\xDE00"},
        {L"<&>'", L"<&>'"},
    };
    for (const Row& row : rows) {
        const std::wstring json = std::wstring(L"\"") + row.json + L"\"";
        const std::wstring text = std::wstring(L"\"") + row.text + L"\"";
        ExpectText(L"[" + json + L"]", L"[" + text + L"]");
        ExpectText(L"{" + json + L":0}", L"{" + text + L":0}");
    }
}

TEST(ReadingText, OfTheRoot) {
    const Parser parser = Loaded(L"{ \"a\" : [ 1 , NaN ] }");
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, parser->GetObjectJson(SiteOfRoot(*parser).handle, &text));
    EXPECT_STREQ(L"{\"a\":[1,NaN]}", text);
    EXPECT_EQ(1, parser->GetObjectJsonByPath(L"/", &text));
    EXPECT_STREQ(L"{\"a\":[1,NaN]}", text);
    EXPECT_EQ(0, parser->GetArrayJsonByPath(L"/", &text));
}

/// An element of an array is not an object with a key in it: 0 here, where other operations by key
/// return -3.
TEST(ReadingText, FailuresOfTheirOwn) {
    const Parser parser = Loaded(L"{\"o\":{\"a\":[],\"b\":{}},\"l\":[{}],\"n\":1}");
    struct Row {
        const char* operation;
        const wchar_t* item;  ///< the member of the root whose handle is used, null for none
        const wchar_t* key;
        int result;
    };
    const Row rows[] = {
        {"GetObjectJson", nullptr, L"", -5},
        {"GetArrayJson", nullptr, L"", -5},
        {"GetMemberObjectJson", nullptr, L"b", -5},
        {"GetMemberArrayJson", nullptr, L"a", -5},
        {"GetObjectJson", L"l", L"", 0},
        {"GetObjectJson", L"n", L"", 0},
        {"GetArrayJson", L"o", L"", 0},
        {"GetArrayJson", L"n", L"", 0},
        {"GetMemberObjectJson", L"o", L"b", 1},
        {"GetMemberObjectJson", L"o", L"B", 1},
        {"GetMemberObjectJson", L"o", L"a", 0},
        {"GetMemberObjectJson", L"o", L"c", 0},
        {"GetMemberObjectJson", L"l", L"b", 0},
        {"GetMemberObjectJson", L"n", L"b", 0},
        {"GetMemberObjectJson", L"o", nullptr, 0},
        {"GetMemberObjectJson", L"n", nullptr, 0},
        {"GetMemberArrayJson", L"o", L"a", 1},
        {"GetMemberArrayJson", L"o", L"A", 1},
        {"GetMemberArrayJson", L"o", L"b", 0},
        {"GetMemberArrayJson", L"o", L"c", 0},
        {"GetMemberArrayJson", L"l", L"a", 0},
        {"GetMemberArrayJson", L"n", L"a", 0},
        {"GetMemberArrayJson", L"o", nullptr, 0},
        {"GetMemberArrayJson", L"n", nullptr, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.operation << " of " << (row.item ? row.item : L"-")
                                        << " key " << (row.key ? row.key : L"-"));
        Arguments arguments;
        arguments.handle = row.item ? SiteOfMember(*parser, row.item).handle : 999;
        arguments.key = row.key;
        EXPECT_EQ(row.result, ParserOperation(row.operation).call(*parser, arguments).result);
    }
}

/// Each request writes into the same buffer; a text stays until the next one that is given out.
TEST(ReadingText, TheBufferIsReused) {
    const Parser parser = Loaded(L"{\"a\":[1],\"b\":{\"c\":\"QUJD\"}}");
    const wchar_t* first = nullptr;
    const wchar_t* second = nullptr;
    EXPECT_EQ(1, parser->GetObjectJsonByPath(L"/", &first));
    EXPECT_STREQ(L"{\"a\":[1],\"b\":{\"c\":\"QUJD\"}}", first);
    EXPECT_EQ(1, parser->GetArrayJsonByPath(L"/a", &second));
    EXPECT_EQ(first, second);
    EXPECT_STREQ(L"[1]", second);
}

TEST(ReadingText, StaysUntilTheNextTextWhateverElseIsRead) {
    const Parser parser = Loaded(L"{\"v\":{\"c\":\"QUJD\"},\"t\":\"QUJD\"}");
    const Site root = SiteOfRoot(*parser);
    const Site value = SiteOfMember(*parser, L"v");
    const Site string = SiteOfMember(*parser, L"t");
    const wchar_t* text = nullptr;
    ASSERT_EQ(1, parser->GetObjectJson(value.handle, &text));
    for (const Operation& operation : ReadingOperations()) {
        if (operation.asks == Asks::kObjectText || operation.asks == Asks::kArrayText) continue;
        operation.call(*parser, AtMember(operation, root, value, L"v"));
        operation.call(*parser, AtMember(operation, root, string, L"t"));
        ASSERT_STREQ(L"{\"c\":\"QUJD\"}", text) << operation.name;
    }
    const wchar_t* message = nullptr;
    EXPECT_EQ(1, parser->GetErrorMessage(&message));
    EXPECT_STREQ(L"{\"c\":\"QUJD\"}", text);
}

TEST(ReadingText, StringsAndNamesStayThroughEverything) {
    const Parser parser = Loaded(L"{\"name\":\"text\",\"o\":{\"b\":\"QUJD\"}}");
    const wchar_t* name = nullptr;
    const wchar_t* string = nullptr;
    ASSERT_EQ(1, parser->GetMemberNameByPath(L"/", 0, &name));
    ASSERT_EQ(1, parser->GetItemStringByPath(L"/name", &string));
    for (int i = 0; i < 1000; ++i) {
        const wchar_t* text = nullptr;
        const uint8_t* data = nullptr;
        uint32_t size = 0;
        parser->GetObjectJsonByPath(L"/", &text);
        parser->GetItemBlobByPath(L"/o/b", &data, &size);
        parser->GetErrorMessage(&text);
    }
    EXPECT_STREQ(L"name", name);
    EXPECT_STREQ(L"text", string);
}

TEST(ReadingText, OfALargeDocument) {
    std::wstring json = L"[";
    for (int i = 0; i < 20000; ++i)
        json += L"{\"index\":" + std::to_wstring(i) + L",\"name\":\"\x4E2D\"},";
    json.back() = L']';
    const Parser parser = Loaded(json.c_str());
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, parser->GetArrayJsonByPath(L"/", &text));
    EXPECT_TRUE(json == text);
    EXPECT_EQ(1, parser->GetObjectJsonByPath(L"/20000", &text));
    EXPECT_STREQ(L"{\"index\":19999,\"name\":\"\x4E2D\"}", text);
}

/// What a large stack could load a small one writes.
TEST(ReadingText, DeepDocumentsOnASmallStack) {
    constexpr size_t kDepth = 20'000;
    constexpr size_t kLargeStack = 64 * 1024 * 1024;
    const std::wstring deep = std::wstring(kDepth, L'[') + std::wstring(kDepth, L']');
    const std::wstring json = L"{\"v\":" + deep + L",\"w\":[1]}";
    Parser parser;
    OnStackOf(kLargeStack, [&] { parser = Loaded(json.c_str()); });
    OnStackOf(support::kSmallStack, [&] {
        const Site root = SiteOfRoot(*parser);
        const Site value = SiteOfMember(*parser, L"v");
        for (const Operation& operation : TextOperations()) {
            const bool array = operation.asks == Asks::kArrayText;
            const Answer answer = operation.call(*parser, AtMember(operation, root, value, L"v"));
            EXPECT_TRUE(answer == (array ? Answer(1, {deep}) : Answer(0))) << operation.name;
        }
        const wchar_t* text = nullptr;
        EXPECT_EQ(1, parser->GetObjectJsonByPath(L"/", &text));
        EXPECT_TRUE(json == text);
    });
}

}  // namespace
