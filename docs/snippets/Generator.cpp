// The generator's examples.

#include "Host.h"
#include "TempFile.h"

namespace snippets {
namespace {

using support::TempFile;

TEST_F(Generating, Roots) {
    //! [roots]
    uint32_t root = 0, item = 0;
    generator->CreateRootObject(&root);                 // 1, as always
    generator->AddObjectItemInt(1, L"crew", 4, &item);  // 2
    generator->CreateRootArray(&root);                  // 1 again; the object is gone,
    const int gone = generator->AddObjectItemInt(2, L"a", 1, &item);  // and its handles return -2
    //! [roots]
    EXPECT_EQ(1u, root);
    EXPECT_EQ(-2, gone);
    EXPECT_EQ(L"[]", Json());
}

// ---- The three families ------------------------------------------------------------------------

TEST_F(Generating, ByHandle) {
    //! [build by handle]
    uint32_t root = 0, crew = 0, item = 0;
    generator->CreateRootObject(&root);
    generator->AddObjectItemString(static_cast<int32_t>(root), L"ship", L"Freya", &item);
    generator->AddObjectItemArray(static_cast<int32_t>(root), L"crew", &crew);
    for (const wchar_t* name : {L"Anna", L"Bo"})
        generator->AddArrayItemString(static_cast<int32_t>(crew), name, &item);
    //! [build by handle]
    EXPECT_EQ(LR"({"ship":"Freya","crew":["Anna","Bo"]})", Json());
}

TEST_F(Generating, ByPath) {
    //! [build by path]
    uint32_t handle = 0;
    generator->CreateRootObject(&handle);
    generator->AddObjectItemArrayByPath(L"/", L"crew", &handle);
    generator->AddArrayItemObjectByPath(L"/crew", &handle);
    generator->AddObjectItemStringByPath(L"/crew/1", L"name", L"Anna", &handle);
    //! [build by path]
    EXPECT_EQ(LR"({"crew":[{"name":"Anna"}]})", Json());
}

TEST_F(Generating, ByReference) {
    //! [build by reference]
    uint64_t root = 0, crew = 0, member = 0, unused = 0;
    generator->ResetRootObjectValue(&root);
    generator->AddObjectValueArray(root, L"crew", &crew);
    generator->AddArrayValueObject(crew, &member);
    generator->AddObjectValueString(member, L"name", L"Anna", &unused);
    generator->AddObjectValueString(member, L"name", L"Bo", &unused);  // a second member
    //! [build by reference]
    EXPECT_EQ(LR"({"crew":[{"name":"Anna","name":"Bo"}]})", Json());
}

TEST_F(Generating, Overwriting) {
    //! [overwriting]
    uint32_t root = 0, first = 0, second = 0;
    generator->CreateRootObject(&root);
    generator->AddObjectItemString(1, L"crew", L"Anna", &first);
    generator->AddObjectItemInt(1, L"crew", 4, &second);  // the same member, the same handle
    //! [overwriting]
    EXPECT_EQ(first, second);
    EXPECT_EQ(LR"({"crew":4})", Json());
}

TEST_F(Generating, LoadedMembersHaveNoHandle) {
    //! [loaded members]
    uint32_t root = 0, item = 0;
    generator->LoadJsonString(L"{\"crew\":3,\"ship\":\"Freya\"}", &root);
    generator->AddObjectItemInt(1, L"crew", 4, &item);  // a second member of that name

    generator->GetItemHandleByPath(L"/ship", &item);              // now this one has a handle,
    generator->AddObjectItemString(1, L"ship", L"Njord", &item);  // and is overwritten
    //! [loaded members]
    EXPECT_EQ(LR"({"crew":3,"ship":"Njord","crew":4})", Json());
}

// ---- Items -------------------------------------------------------------------------------------

TEST_F(Generating, Numbers) {
    //! [numbers]
    uint32_t root = 0, item = 0;
    generator->CreateRootArray(&root);
    generator->AddArrayItemDouble(1, 3.0, &item);           // 3: whole numbers become integers,
    generator->AddArrayItemDoubleByPath(L"/", 3.0, &item);  // 3.0: but not by path
    generator->AddArrayItemDouble(1, 2.5, &item);           // 2.5
    generator->AddArrayItemFloat(1, 0.1f, &item);  // 0.10000000149011612: the float's exact value
    generator->AddArrayItemUInt64(1, 18446744073709551615u, &item);
    generator->AddArrayItemBoolean(1, 7, &item);  // true: any flag but 0
    generator->AddArrayItemSpecialNumber(1, QXJSON::kNumberMinusInfinity, &item);
    generator->AddArrayItemNull(1, &item);
    //! [numbers]
    EXPECT_EQ(L"[3,3.0,2.5,0.10000000149011612,18446744073709551615,true,-Infinity,null]", Json());
}

TEST_F(Generating, Blobs) {
    //! [add blobs]
    uint32_t root = 0, item = 0;
    generator->CreateRootObject(&root);
    const uint8_t signature[] = {0xDE, 0xAD, 0xBE, 0xEF};
    generator->AddObjectItemBlob(1, L"signature", signature, 4, &item);  // "3q2+7w=="
    //! [add blobs]
    EXPECT_EQ(LR"({"signature":"3q2+7w=="})", Json());
}

TEST_F(Generating, Variants) {
    //! [add variants]
    uint32_t root = 0;
    generator->LoadJsonString(L"{\"list\":[]}", &root);

    QXJSON::JsonVariant text = {}, number = {};
    text.tag = QXJSON::kVariantText;
    text.text = L"Freya";
    number.tag = QXJSON::kVariantInt64;
    number.number = 4;

    uint32_t item = 0;
    generator->AddItemVariant(1, L"ship", text, &item);                 // under a key
    generator->AddItemVariantByPath(L"/list", nullptr, number, &item);  // appended
    //! [add variants]
    EXPECT_EQ(LR"({"list":[4],"ship":"Freya"})", Json());
}

// ---- Output ------------------------------------------------------------------------------------

TEST_F(Generating, Text) {
    //! [output text]
    uint32_t root = 0;
    generator->LoadJsonString(L"{\"name\":\"\\u00C5se\"}", &root);

    const wchar_t* text = nullptr;
    generator->GetJsonString(&text);  // {"name":"Åse"}

    const uint8_t* data = nullptr;
    uint64_t length = 0;
    std::string ascii;
    const int made = generator->GetJsonBytes(&data, &length, QXJSON::kEncodingAscii);
    if (made == 1 && data)                  // null: unknown encoding
        ascii.assign(data, data + length);  // {"name":"\u00C5se"}
    //! [output text]
    EXPECT_STREQ(L"{\"name\":\"\x00C5se\"}", text);
    EXPECT_EQ(R"({"name":"\u00C5se"})", ascii);
}

TEST_F(Generating, Files) {
    Load(LR"({"ship":"Freya"})");
    const TempFile file, indentedFile;
    const wchar_t* const fileName = file.Name();
    const wchar_t* const indentedName = indentedFile.Name();
    //! [output files]
    const int saved = generator->SaveToFile(fileName, QXJSON::kEncodingUtf8);  // after its mark
    const int indented =
        generator->SaveToFileEx(indentedName, QXJSON::kEncodingAscii, 0);  // four spaces
    const int noFolder =
        generator->SaveToFile(L"no such folder\\ship.json", QXJSON::kEncodingUtf8);  // 0
    //! [output files]
    EXPECT_EQ(1, saved);
    EXPECT_EQ("\xEF\xBB\xBF{\"ship\":\"Freya\"}", file.Bytes());
    EXPECT_EQ(1, indented);
    EXPECT_EQ("{\n    \"ship\": \"Freya\"\n}", indentedFile.Bytes());
    EXPECT_EQ(0, noFolder);
}

TEST_F(Generating, NumbersThatEndTheOutput) {
    const TempFile file;
    const wchar_t* const fileName = file.Name();
    //! [output ends early]
    uint32_t root = 0;
    generator->LoadJsonString(L"[1,NaN]", &root);
    const int compact = generator->SaveToFile(fileName, 0);  // 1, and the file holds [1,NaN]
    const std::string before = file.Bytes();
    const int indented = generator->SaveToFileEx(fileName, 0, 0);  // 1 too, and the file is empty
    //! [output ends early]
    EXPECT_EQ(1, compact);
    EXPECT_EQ("[1,NaN]", before);
    EXPECT_EQ(1, indented);
    EXPECT_EQ("", file.Bytes());
}

// ---- Parsed JSON -------------------------------------------------------------------------------

TEST_F(Generating, Grafts) {
    const TempFile file("[{\"name\":\"Anna\"}]");
    const wchar_t* const fileName = file.Name();
    //! [grafts]
    uint32_t root = 0, crew = 0, harbour = 0, item = 0;
    generator->LoadJsonString(L"{\"ship\":\"Freya\"}", &root);
    generator->AddObjectItemJsonFile(1, L"crew", fileName, &crew);
    generator->AddArrayItemObject(static_cast<int32_t>(crew), &item);  // continues below the graft

    generator->AddObjectItemJsonString(1, L"harbour", L"{\"name\":\"Skagen\"}", &harbour);
    const int again = generator->AddObjectItemJsonString(1, L"harbour", L"[]", &item);  // replaced
    const int scalar = generator->AddObjectItemJsonString(1, L"x", L"5", &item);        // -3
    const int syntax = generator->AddObjectItemJsonString(1, L"x", L"[", &item);        // 0
    //! [grafts]
    EXPECT_EQ(1, again);
    EXPECT_EQ(harbour, item);
    EXPECT_EQ(-3, scalar);
    EXPECT_EQ(0, syntax);
    EXPECT_EQ(LR"({"ship":"Freya","crew":[{"name":"Anna"},{}],"harbour":[]})", Json());
}

TEST_F(Generating, HandlesAndPaths) {
    //! [handles and paths]
    uint32_t root = 0, name = 0;
    generator->LoadJsonString(L"{\"crew\":[{\"name\":\"Anna\"}]}", &root);
    generator->GetItemHandleByPath(L"/crew/1/name", &name);  // 2: issued on the first request

    wchar_t path[1024] = L"";
    generator->GetItemPath(static_cast<int32_t>(name), path);  // "/crew/1/name"
    //! [handles and paths]
    EXPECT_EQ(2u, name);
    EXPECT_STREQ(L"/crew/1/name", path);
}

}  // namespace
}  // namespace snippets
