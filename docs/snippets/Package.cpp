// The package's examples.

#include "Host.h"
#include "TempFile.h"

namespace snippets {
namespace {

using support::TempFile;

TEST_F(Packaging, Loading) {
    //! [load package]
    const int loaded = package->LoadString(L"{\"ship\":\"Freya\",\"crew\":4}");  // 1
    const int array = package->LoadString(L"[1,2]");  // 1 as well: check the error too
    const int failed = package->HasError();           // 1
    const wchar_t* message = nullptr;
    package->GetErrorMessage(&message);
    //! [load package]
    EXPECT_EQ(1, loaded);
    EXPECT_EQ(1, array);
    EXPECT_EQ(1, failed);
    EXPECT_STREQ(L"Failed to load the JSON data because its root node is not an object", message);
    EXPECT_EQ(L"{}", Json());
}

TEST_F(Packaging, Keys) {
    //! [package keys]
    package->SetValueString(L"Ship", L"Freya");
    package->SetValueString(L"SHIP", L"Njord");  // the same key, which keeps its spelling
    package->SetIgnoreCase(0);
    package->SetValueString(L"SHIP", L"Skade");  // another key

    bool there = true;
    const int found = package->ContainsKey(L"ship", &there);  // 0, and false
    const wchar_t* name = nullptr;
    package->GetKeyName(1, &name);  // L"SHIP": positions count from 0
    const int removed = package->RemoveKey(L"Ship");
    //! [package keys]
    EXPECT_EQ(0, found);
    EXPECT_FALSE(there);
    EXPECT_STREQ(L"SHIP", name);
    EXPECT_EQ(1, removed);
    EXPECT_EQ(LR"({"SHIP":"Skade"})", Json());
}

TEST_F(Packaging, ValuesAsText) {
    //! [package values as text]
    package->SetValue(L"ship", L"Freya", false);                      // a string
    package->SetValue(L"crew", L"[ \"Anna\", { \"n\": 1 } ]", true);  // an array
    const int scalar = package->SetValue(L"length", L"12.5", true);   // 0: not an object or array

    const wchar_t* text = nullptr;
    package->GetValue(L"ship", &text);  // Freya, without quotes
    package->GetValue(L"crew", &text);  // ["Anna",{"n":1}]
    //! [package values as text]
    EXPECT_EQ(0, scalar);
    EXPECT_STREQ(LR"(["Anna",{"n":1}])", text);
}

TEST_F(Packaging, ValuesByType) {
    //! [package values by type]
    package->SetValueNumber(L"crew", 4.0);  // 4: whole numbers are stored as integers
    package->SetValueNumber(L"length", 12.5);
    package->SetValueBoolean(L"afloat", true);

    double crew = 0;
    uint32_t type = 0;
    const wchar_t* text = nullptr;
    package->GetValueNumber(L"crew", &crew);
    package->GetValueType(L"afloat", &type);                       // 2, a boolean
    const int noText = package->GetValue(L"crew", &text);          // -3, and "" in text
    const int missing = package->GetValueNumber(L"sails", &crew);  // -1
    //! [package values by type]
    EXPECT_EQ(4.0, crew);
    EXPECT_EQ(2u, type);
    EXPECT_EQ(-3, noText);
    EXPECT_STREQ(L"", text);
    EXPECT_EQ(-1, missing);
    EXPECT_EQ(LR"({"crew":4,"length":12.5,"afloat":true})", Json());
}

TEST_F(Packaging, Variants) {
    //! [package variants]
    QXJSON::JsonVariant number = {}, read = {};
    number.tag = QXJSON::kVariantInt64;
    number.number = 4;
    const int textOnly = package->SetValueVariant(L"crew", &number);  // -3: takes only texts
    const int either = package->SetValueVariantEx(L"crew", &number);  // 1
    package->GetValueVariantEx(L"crew", &read);                       // tag 20, number 4
    //! [package variants]
    EXPECT_EQ(-3, textOnly);
    EXPECT_EQ(1, either);
    EXPECT_EQ(20, read.tag);
    EXPECT_EQ(4, read.number);
}

TEST_F(Packaging, Blobs) {
    //! [package blobs]
    const uint8_t signature[] = {0xDE, 0xAD, 0xBE, 0xEF};
    package->SetValueBlob(L"signature", signature, sizeof signature);

    const void* data = nullptr;
    uint32_t length = 0;
    package->GetValueBlob(L"signature", &data, &length);  // four bytes, until the next blob
    const int empty = package->SetValueBlob(L"nothing", signature, 0);  // -4
    //! [package blobs]
    EXPECT_EQ(-4, empty);
    EXPECT_EQ(4u, length);
}

TEST_F(Packaging, Output) {
    Load(LR"({"name":"\u00C5se"})");
    const TempFile file;
    const wchar_t* const fileName = file.Name();
    //! [package output]
    const wchar_t* text = nullptr;
    package->GetText(&text);  // {"name":"Åse"}

    const void* data = nullptr;
    size_t length = 0;
    package->GetBytes(&data, &length, QXJSON::kEncodingUtf8);  // without mark or terminator
    const int saved = package->SaveToFile(fileName, QXJSON::kEncodingUtf8);  // after its mark
    //! [package output]
    EXPECT_STREQ(L"{\"name\":\"\x00C5se\"}", text);
    const std::string bytes(static_cast<const char*>(data), length);
    EXPECT_EQ("{\"name\":\"\xC3\x85se\"}", bytes);
    EXPECT_EQ(1, saved);
    EXPECT_EQ("\xEF\xBB\xBF" + bytes, file.Bytes());
}

// ---- The delegate ------------------------------------------------------------------------------

//! [delegate]
/// An object of the host, about which the library knows nothing.
struct Ship {
    std::wstring name;
};

/// Puts ships into packages and takes them out; it uses one export of the six.
class ShipDelegate final : public QXJSON::IJsonPackageDelegate {
public:
    explicit ShipDelegate(QXJSON::IJsonParser& reader) : parser(reader) {}

    int DelegateExport5(void* object, uint32_t, const wchar_t** text) override {
        json = L"{\"name\":\"" + static_cast<Ship*>(object)->name + L"\"}";
        *text = json.c_str();  // the delegate keeps it until the package has read it
        return 1;
    }

    int DelegateImport(void* object, const wchar_t* text, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        const wchar_t* name = nullptr;
        if (parser.LoadJsonString(text) != 1) return 0;
        const int result = parser.GetItemStringByPath(L"/name", &name);
        if (result == 1) static_cast<Ship*>(object)->name = name;
        return result;
    }

    int DelegateExport0(void*, uint16_t, uint32_t, uint32_t, uint32_t, uint32_t, uint8_t,
                        const wchar_t**) override {
        return 0;
    }
    int DelegateExport1(void*, uint8_t, uint8_t, uint8_t, uint8_t, uint8_t,
                        const wchar_t**) override {
        return 0;
    }
    int DelegateExport2(void*, uint16_t, uint8_t, uint8_t, const wchar_t**) override { return 0; }
    int DelegateExport3(void*, uint8_t, uint8_t, const wchar_t**) override { return 0; }
    int DelegateExport4(void*, uint8_t, const wchar_t**) override { return 0; }

private:
    QXJSON::IJsonParser& parser;
    std::wstring json;
};
//! [delegate]

TEST_F(Packaging, Delegate) {
    const support::Parser parser = support::NewParser();
    //! [use delegate]
    ShipDelegate delegate(*parser);
    package->SetDelegate(&delegate);

    Ship freya{L"Freya"}, copy;
    package->SetValueFromDelegate5(L"ship", &freya, 0);                 // {"ship":{"name":"Freya"}}
    package->GetValueToDelegate(L"ship", &copy, 0, 0, 0, 0, 0);         // copy.name: L"Freya"
    const int other = package->SetValueFromDelegate4(L"a", &freya, 0);  // the export's 0
    //! [use delegate]
    EXPECT_EQ(LR"({"ship":{"name":"Freya"}})", Json());
    EXPECT_EQ(L"Freya", copy.name);
    EXPECT_EQ(0, other);
}

}  // namespace
}  // namespace snippets
