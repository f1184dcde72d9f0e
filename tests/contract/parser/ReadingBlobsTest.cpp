// Strings read as base64: what decodes, what does not, and how long the bytes stay.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <optional>
#include <string>

#include "Base64.h"
#include "JsonDll.h"
#include "ParserOperationList.h"
#include "Sites.h"

namespace {

using namespace support;

std::wstring DocumentWith(const std::wstring& text) {
    return L"{\"v\":\"" + text + L"\",\"other\":\"QUJD\"}";
}

/// Every operation that returns a blob, asked for the member `v`.
void ForEachRoute(QXJSON::IJsonParser& parser,
                  const std::function<void(const Operation&, Arguments)>& act) {
    const Site root = SiteOfRoot(parser);
    const Site value = SiteOfMember(parser, L"v");
    for (const Operation& operation : ParserOperations()) {
        if (operation.asks != Asks::kBlob) continue;
        SCOPED_TRACE(operation.name);
        act(operation, AtMember(operation, root, value, L"v"));
    }
}

Answer AnswerOf(const std::optional<std::string>& bytes) {
    if (!bytes) return -3;
    return {1, {ShowBytes(bytes->data(), bytes->size()), std::to_wstring(bytes->size())}};
}

struct Blob {
    const uint8_t* data = nullptr;
    uint32_t size = 0;

    std::string Bytes() const { return std::string(data, data + size); }
};

Blob BlobAt(QXJSON::IJsonParser& parser, const wchar_t* path) {
    Blob blob;
    EXPECT_EQ(1, parser.GetItemBlobByPath(path, &blob.data, &blob.size));
    return blob;
}

TEST(ReadingBlobs, TextThatIsBase64) {
    struct Row {
        const wchar_t* text;
        std::string bytes;
    };
    const Row rows[] = {
        {L"QQ==", "A"},
        {L"QUI=", "AB"},
        {L"QUJD", "ABC"},
        {L"QUJDRA==", "ABCD"},
        {L"QUJD\\r\\nRA==", "ABCD"},
        {L"QUJD\\r\\n", "ABC"},
        {L"AAECAw==", std::string("\0\1\2\3", 4)},
        {L"/+7dzLuqmYh3ZlVEMyIRAA==",
         "\xFF\xEE\xDD\xCC\xBB\xAA\x99\x88\x77\x66\x55\x44\x33\x22\x11" + std::string(1, '\0')},
        {L"\\u0051UJD", "ABC"},
        // The text ends for its reader at the first U+0000.
        {L"QUJD\\u0000RERE", "ABC"},
        {L"QUJD\\u0000?*!", "ABC"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.text);
        const Parser parser = Loaded(DocumentWith(row.text).c_str());
        ForEachRoute(*parser, [&](const Operation& operation, const Arguments& arguments) {
            EXPECT_EQ(AnswerOf(row.bytes), operation.call(*parser, arguments));
        });
    }
}

/// What counts as base64 is the platform's decision.
TEST(ReadingBlobs, TextAsThePlatformReadsIt) {
    const wchar_t* rows[] = {
        L"",     L" ",      L"QUJD ", L" QUJD",  L"QU JD",    L"Q U J D", L"Q\tUJD", L"QU\r\nJD",
        L"QUI",  L"QQ",     L"Q",     L"QUJDR",  L"QUJDRA",   L"QUJDRA=", L"QUJD=",  L"QUJD==",
        L"Q===", L"====",   L"=QUJ",  L"QQ==QQ", L"QUI=QUJD", L"?*!",     L"QU*D",   L"QUJ\x00E9",
        L"-_-_", L"\xFF31", L"{}",    L"QUJD,",  L"QUJD\n",   L"\nQUJD",  L"QUI =",  L"QUI= ",
    };
    for (const wchar_t* text : rows) {
        SCOPED_TRACE(testing::Message() << '"' << text << '"');
        std::wstring escaped;
        for (const wchar_t* c = text; *c; ++c) {
            wchar_t unit[8] = {};
            wsprintfW(unit, L"\\u%04X", *c);
            escaped += unit;
        }
        const Parser parser = Loaded(DocumentWith(escaped).c_str());
        const wchar_t* loaded = nullptr;
        ASSERT_EQ(1, parser->GetItemStringByPath(L"/v", &loaded));
        ASSERT_STREQ(text, loaded);
        const Answer expected = AnswerOf(PlatformDecode(loaded));
        ForEachRoute(*parser, [&](const Operation& operation, const Arguments& arguments) {
            EXPECT_EQ(expected, operation.call(*parser, arguments));
        });
    }
}

TEST(ReadingBlobs, TextThatIsNoBase64) {
    for (const wchar_t* text : {L"?*!", L"QU*D", L"{}", L"\x00E9\x00E9\x00E9\x00E9"}) {
        SCOPED_TRACE(testing::Message() << text);
        const Parser parser = Loaded(DocumentWith(text).c_str());
        ForEachRoute(*parser, [&](const Operation& operation, const Arguments& arguments) {
            EXPECT_EQ(AnswerOf({}), operation.call(*parser, arguments));
        });
        EXPECT_EQ("ABC", BlobAt(*parser, L"/other").Bytes());
    }
}

TEST(ReadingBlobs, EveryLengthOfPadding) {
    std::string bytes;
    for (int i = 0; i < 600; ++i) {
        bytes += static_cast<char>(i * 7 + 1);
        const Parser parser = Loaded(DocumentWith(EncodeBase64(bytes)).c_str());
        ASSERT_EQ(bytes, BlobAt(*parser, L"/v").Bytes()) << bytes.size();
    }
}

TEST(ReadingBlobs, AMegabyte) {
    std::string bytes(1024 * 1024, '\0');
    uint32_t state = 1;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    const Parser parser = Loaded(DocumentWith(EncodeBase64(bytes)).c_str());
    ForEachRoute(*parser, [&](const Operation& operation, const Arguments& arguments) {
        EXPECT_TRUE(AnswerOf(bytes) == operation.call(*parser, arguments));
    });
    EXPECT_EQ("ABC", BlobAt(*parser, L"/other").Bytes());
    EXPECT_TRUE(bytes == BlobAt(*parser, L"/v").Bytes());
}

/// A missing output is noticed when there is a string to decode, before it is decoded.
TEST(ReadingBlobs, MissingOutputs) {
    struct Row {
        const wchar_t* json;
        int result;
    };
    const Row rows[] = {{L"{\"v\":\"QUJD\"}", 0},
                        {L"{\"v\":\"?*!\"}", 0},
                        {L"{\"v\":\"\"}", 0},
                        {L"{\"v\":5}", -3},
                        {L"{\"v\":{}}", -3}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.json);
        const Parser parser = Loaded(row.json);
        ForEachRoute(*parser, [&](const Operation& operation, Arguments arguments) {
            const Answer expected = row.result;
            arguments.outputs[0] = kMissing;
            EXPECT_EQ(expected, operation.call(*parser, arguments));
            arguments.outputs[1] = kMissing;
            EXPECT_EQ(expected, operation.call(*parser, arguments));
            arguments.outputs[0].reset();
            EXPECT_EQ(expected, operation.call(*parser, arguments));
        });
    }
}

TEST(ReadingBlobs, TheBytesStayUntilTheNextBlobWhateverElseIsRead) {
    const Parser parser = Loaded(L"{\"v\":\"QUJD\",\"other\":\"REVG\",\"list\":[1,{}]}");
    const Site root = SiteOfRoot(*parser);
    const Site value = SiteOfMember(*parser, L"v");
    const Blob blob = BlobAt(*parser, L"/v");
    for (const Operation& operation : ReadingOperations()) {
        if (operation.asks == Asks::kBlob) continue;
        operation.call(*parser, AtMember(operation, root, value, L"v"));
        operation.call(*parser, At(root));
        ASSERT_EQ("ABC", blob.Bytes()) << operation.name;
    }
    uint64_t offset = 0;
    parser->HasError();
    parser->GetErrorOffset(&offset);
    const wchar_t* text = nullptr;
    EXPECT_EQ(1, parser->GetObjectJson(root.handle, &text));
    EXPECT_EQ("ABC", blob.Bytes());
}

/// One buffer serves all blobs of a parser, and is kept as long as it is large enough.
TEST(ReadingBlobs, TheBufferIsReused) {
    const std::wstring large = EncodeBase64(std::string(5000, 'x'));
    const std::wstring json = L"{\"a\":\"QUJD\",\"b\":\"REVG\",\"large\":\"" + large + L"\"}";
    const Parser parser = Loaded(json.c_str());
    const Blob first = BlobAt(*parser, L"/a");
    const Blob second = BlobAt(*parser, L"/b");
    EXPECT_EQ(first.data, second.data);
    EXPECT_EQ("DEF", first.Bytes());
    const Blob longer = BlobAt(*parser, L"/large");
    EXPECT_EQ(std::string(5000, 'x'), longer.Bytes());
    const Blob last = BlobAt(*parser, L"/a");
    EXPECT_EQ(longer.data, last.data);
    EXPECT_EQ("ABC", last.Bytes());
    // No bytes of the longer blob are left after it.
    EXPECT_TRUE(std::all_of(last.data + 3, last.data + 5000, [](uint8_t b) { return b == 0; }));
}

TEST(ReadingBlobs, AMessageClearsThem) {
    const Parser parser = Loaded(L"{\"v\":\"QUJD\"}");
    const Blob blob = BlobAt(*parser, L"/v");
    const wchar_t* message = nullptr;
    EXPECT_EQ(1, parser->GetErrorMessage(&message));
    EXPECT_STREQ(L"No error.", message);
    EXPECT_EQ(std::string(3, '\0'), blob.Bytes());
    EXPECT_EQ("ABC", BlobAt(*parser, L"/v").Bytes());
    EXPECT_STREQ(L"No error.", message);
}

TEST(ReadingBlobs, ParsersHaveBuffersOfTheirOwn) {
    const Parser one = Loaded(L"{\"v\":\"QUJD\"}");
    const Parser other = Loaded(L"{\"v\":\"REVG\"}");
    const Blob first = BlobAt(*one, L"/v");
    const Blob second = BlobAt(*other, L"/v");
    EXPECT_EQ("ABC", first.Bytes());
    EXPECT_EQ("DEF", second.Bytes());
}

}  // namespace
