// The parser's examples.

#include "Host.h"
#include "TempFile.h"

namespace snippets {
namespace {

using support::TempFile;

// ---- Loading -----------------------------------------------------------------------------------

TEST_F(Parsing, LoadText) {
    //! [load text]
    std::wstring report;
    if (parser->LoadJsonString(L"{\"ship\":\"Freya\",\"crew\":[\"Anna\",\"Bo\",]}") != 1) {
        const wchar_t* message = nullptr;
        uint64_t offset = 0;
        parser->GetErrorMessage(&message);
        parser->GetErrorOffset(&offset);  // in bytes: two for each unit of UTF-16 text
        report = L"unit " + std::to_wstring(offset / sizeof(wchar_t)) + L": " + message;
    }
    //! [load text]
    EXPECT_EQ(L"unit 37: Invalid value.", report);
    EXPECT_EQ(1, parser->HasError());
}

TEST_F(Parsing, LoadBytes) {
    //! [load bytes]
    const std::string utf8 = "\xEF\xBB\xBF[\"\xC3\x85se\"]";  // with a byte-order mark
    const int loaded = parser->LoadJsonBytes(utf8.data(), static_cast<uint32_t>(utf8.size()));

    const wchar_t* name = nullptr;
    parser->GetItemStringByPath(L"/1", &name);  // L"Åse"
    //! [load bytes]
    EXPECT_EQ(1, loaded);
    EXPECT_STREQ(L"\x00C5se", name);
}

TEST_F(Parsing, LoadFile) {
    const TempFile file("{\"ship\":\"Freya\"}");
    const wchar_t* const fileName = file.Name();
    //! [load file]
    const int loaded = parser->LoadJsonFile(fileName);  // any encoding, with or without a mark
    const int missing = parser->LoadJsonFile(L"no such file.json");
    const wchar_t* message = nullptr;
    parser->GetErrorMessage(&message);  // "The file name does not exist."
    //! [load file]
    EXPECT_EQ(1, loaded);
    EXPECT_EQ(0, missing);
    EXPECT_STREQ(L"The file name does not exist.", message);
}

// ---- Navigating --------------------------------------------------------------------------------

TEST_F(Parsing, ByHandle) {
    //! [navigate by handle]
    parser->LoadJsonString(
        L"{\"ship\":\"Freya\",\"crew\":[{\"name\":\"Anna\"},{\"name\":\"Bo\"}]}");
    uint32_t root = 0, crew = 0, second = 0, type = 0;
    parser->GetRootItem(&root, &type);                   // root: 1, type: 4, an object
    parser->GetMemberItem(root, L"CREW", &crew, &type);  // keys ignore the case of ASCII letters
    parser->GetChildItem(crew, 1, &second, &type);       // indexes count from 0

    const wchar_t* name = nullptr;
    parser->GetMemberString(second, L"name", &name);  // L"Bo"
    //! [navigate by handle]
    EXPECT_EQ(1u, root);
    EXPECT_EQ(2u, crew);
    EXPECT_EQ(3u, second);
    EXPECT_EQ(4u, type);
    EXPECT_STREQ(L"Bo", name);
}

TEST_F(Parsing, ByReference) {
    std::vector<uint32_t> types;
    //! [navigate by reference]
    parser->LoadJsonString(L"{\"small\":5,\"large\":3000000000,\"half\":0.5}");
    uint64_t root = 0;
    uint32_t rootType = 0, count = 0;
    parser->GetRootValue(&root, &rootType);
    parser->GetChildCountOfValue(root, &count);
    for (uint32_t i = 0; i < count; ++i) {
        uint64_t child = 0;
        uint32_t type = 0;
        parser->GetChildValue(root, i, &child, &type);
        types.push_back(type);  // 6 fits int32, 7 fits uint32, 11 stored as double
    }
    //! [navigate by reference]
    EXPECT_EQ((std::vector<uint32_t>{6, 7, 11}), types);
}

TEST_F(Parsing, ByPath) {
    //! [navigate by path]
    parser->LoadJsonString(
        L"{\"ship\":\"Freya\",\"crew\":[{\"name\":\"Anna\"},{\"name\":\"Bo\"}]}");
    const wchar_t* name = nullptr;
    const int found = parser->GetItemStringByPath(L"/crew/2/name", &name);      // positions from 1
    const int otherCase = parser->GetItemStringByPath(L"/crew/2/NAME", &name);  // -10

    uint32_t captain = 0;
    parser->GetItemByPath(L"/crew/1", &captain);  // continue from here by handle
    //! [navigate by path]
    EXPECT_EQ(1, found);
    EXPECT_EQ(-10, otherCase);
    EXPECT_STREQ(L"Bo", name);
    EXPECT_EQ(1u, captain);
}

TEST_F(Parsing, Names) {
    std::vector<std::wstring> names;
    std::vector<uint32_t> types;
    //! [names and types]
    parser->LoadJsonString(L"{\"ship\":\"Freya\",\"length\":12.5,\"crew\":[\"Anna\",\"Bo\"]}");
    uint32_t root = 0, type = 0, count = 0;
    parser->GetRootItem(&root, &type);
    parser->GetChildCount(root, &count);
    for (uint32_t i = 0; i < count; ++i) {
        const wchar_t* name = nullptr;
        parser->GetMemberName(root, i, &name);
        parser->GetMemberItemType(root, name, &type);  // 0 a string, 1 a number, 5 an array
        names.push_back(name);
        types.push_back(type);
    }
    //! [names and types]
    EXPECT_EQ((std::vector<std::wstring>{L"ship", L"length", L"crew"}), names);
    EXPECT_EQ((std::vector<uint32_t>{0, 1, 5}), types);
}

// ---- Reading values ----------------------------------------------------------------------------

TEST_F(Parsing, TypedGetters) {
    //! [typed getters]
    parser->LoadJsonString(
        L"{\"afloat\":true,\"crew\":4,\"length\":12.5,\"cargo\":5.0,\"name\":\"Freya\"}");
    uint32_t root = 0, type = 0;
    parser->GetRootItem(&root, &type);
    uint32_t afloat = 0;
    int32_t crew = 0, cargo = 0;
    double length = 0;
    float draught = 0;
    const wchar_t* name = nullptr;
    parser->GetMemberBoolean(root, L"afloat", &afloat);  // 1 for true
    parser->GetMemberInt(root, L"crew", &crew);
    parser->GetMemberDouble(root, L"length", &length);
    parser->GetMemberString(root, L"name", &name);

    const int noInteger = parser->GetMemberInt(root, L"cargo", &cargo);      // -3: 5.0 is a double
    const int missing = parser->GetMemberFloat(root, L"draught", &draught);  // -1
    const int wrongKind = parser->GetMemberInt(root, L"name", &crew);        // -3, crew is kept
    //! [typed getters]
    EXPECT_EQ(1u, afloat);
    EXPECT_EQ(4, crew);
    EXPECT_EQ(12.5, length);
    EXPECT_STREQ(L"Freya", name);
    EXPECT_EQ(-3, noInteger);
    EXPECT_EQ(-1, missing);
    EXPECT_EQ(-3, wrongKind);
}

TEST_F(Parsing, Blobs) {
    //! [blobs]
    parser->LoadJsonString(L"{\"signature\":\"3q2+7w==\",\"name\":\"Freya!\"}");
    const uint8_t* data = nullptr;
    uint32_t size = 0;
    std::vector<uint8_t> signature;
    if (parser->GetItemBlobByPath(L"/signature", &data, &size) == 1)
        signature.assign(data, data + size);  // a copy: the bytes live until the next blob

    const int noBase64 = parser->GetItemBlobByPath(L"/name", &data, &size);  // -3
    //! [blobs]
    EXPECT_EQ((std::vector<uint8_t>{0xDE, 0xAD, 0xBE, 0xEF}), signature);
    EXPECT_EQ(-3, noBase64);
}

TEST_F(Parsing, Kinds) {
    //! [kinds]
    parser->LoadJsonString(L"{\"crew\":[\"Anna\"],\"harbour\":{\"name\":\"Skagen\"}}");
    uint32_t root = 0, type = 0;
    parser->GetRootItem(&root, &type);
    uint32_t crew = 0, harbour = 0;
    parser->GetMemberArrayItem(root, L"crew", &crew, &type);
    parser->GetObjectItemByPath(L"/harbour", &harbour, &type);
    const int wrongKind = parser->GetMemberObjectItem(root, L"crew", &crew, &type);  // 0
    //! [kinds]
    EXPECT_EQ(2u, crew);
    EXPECT_EQ(3u, harbour);
    EXPECT_EQ(0, wrongKind);
}

TEST_F(Parsing, JsonText) {
    //! [json text]
    parser->LoadJsonString(L"{ \"name\": \"Freya\", \"crew\": [ \"Anna\", NaN ] }");
    const wchar_t* text = nullptr;
    parser->GetArrayJsonByPath(L"/crew", &text);
    const std::wstring crew = text;  // ["Anna",NaN], and a copy: the text lives until the next one

    const int unknown = parser->GetObjectJson(4711, &text);  // -5, where others return -2
    //! [json text]
    EXPECT_EQ(L"[\"Anna\",NaN]", crew);
    EXPECT_EQ(-5, unknown);
}

TEST_F(Parsing, NumberClasses) {
    //! [number classes]
    parser->LoadJsonString(L"[1.5,NaN,Infinity,-Infinity]");
    uint32_t classes[4] = {};
    parser->GetNumberClassByPath(L"/1", &classes[0]);  // kNumberFinite
    parser->GetNumberClassByPath(L"/2", &classes[1]);  // kNumberNan
    parser->GetNumberClassByPath(L"/3", &classes[2]);  // kNumberInfinity
    parser->GetNumberClassByPath(L"/4", &classes[3]);  // kNumberMinusInfinity
    //! [number classes]
    for (uint32_t i = 0; i < 4; ++i) EXPECT_EQ(i, classes[i]);
}

TEST_F(Parsing, Existence) {
    //! [existence]
    parser->LoadJsonString(L"{\"Crew\":[\"Anna\"]}");
    uint32_t root = 0, type = 0;
    parser->GetRootItem(&root, &type);
    const bool item = parser->ExistsItemByPath(L"/Crew/1");        // true
    const bool anyCase = parser->ExistsMember(root, L"crew");      // true
    const bool exact = parser->ExistsMemberByPath(L"/", L"crew");  // false: its name is "Crew"
    //! [existence]
    EXPECT_TRUE(item);
    EXPECT_TRUE(anyCase);
    EXPECT_FALSE(exact);
}

TEST_F(Parsing, Variants) {
    std::wstring shown;
    //! [variants]
    parser->LoadJsonString(L"{\"name\":\"Freya\",\"crew\":4}");
    uint32_t root = 0, type = 0;
    parser->GetRootItem(&root, &type);
    for (const wchar_t* key : {L"name", L"crew"}) {
        QXJSON::JsonVariant variant = {};
        if (parser->GetItemVariant(root, key, &variant) != 1) continue;
        shown +=
            variant.tag == QXJSON::kVariantText ? variant.text : std::to_wstring(variant.number);
    }
    //! [variants]
    EXPECT_EQ(L"Freya4", shown);
}

}  // namespace
}  // namespace snippets
