// Building and writing: the generator.

#include <cstring>
#include <string>

#include "Console.h"
#include "Library.h"
#include "Modes.h"

namespace host {
namespace {

using QXJSON::IJsonGenerator;

constexpr const wchar_t* kEncodings[] = {L"ASCII", L"UTF-16LE", L"UTF-8", L"UTF-16BE"};

struct Line {
    const wchar_t* article;
    uint32_t quantity;
    double price;
};

/// Items by handle, the way of a script that keeps what it was given.
void AddLines(IJsonGenerator& generator, int32_t root) {
    const Line lines[] = {{L"Anchor chain, 8 mm", 25, 9.95}, {L"Shackle \u2113", 4, 12.0}};
    uint32_t list = 0, line = 0, item = 0;
    Expect(generator.AddObjectItemArray(root, L"lines", &list), "AddObjectItemArray");
    for (const Line& each : lines) {
        Expect(generator.AddArrayItemObject(static_cast<int32_t>(list), &line),
               "AddArrayItemObject");
        const auto parent = static_cast<int32_t>(line);
        Expect(generator.AddObjectItemString(parent, L"article", each.article, &item), "String");
        Expect(generator.AddObjectItemUInt(parent, L"quantity", each.quantity, &item), "UInt");
        Expect(generator.AddObjectItemDouble(parent, L"price", each.price, &item), "Double");
    }
}

/// Items by path, the way of a script that knows its document.
void AddTotals(IJsonGenerator& generator) {
    uint32_t item = 0;
    Expect(generator.AddObjectItemObjectByPath(L"/", L"totals", &item), "ObjectByPath");
    Expect(generator.AddObjectItemFloatByPath(L"/totals", L"weight", 31.5f, &item), "Float");
    Expect(generator.AddObjectItemInt64ByPath(L"/totals", L"cents", 29675, &item), "Int64");
    Expect(generator.AddObjectItemUInt64ByPath(L"/totals", L"serial", UINT64_MAX, &item), "UInt64");
    Expect(generator.AddObjectItemIntByPath(L"/lines/1", L"discount", -5, &item), "Int");
    Expect(generator.AddObjectItemBooleanByPath(L"/", L"paid", 1, &item), "Boolean");
    Expect(generator.AddObjectItemNullByPath(L"/", L"shipped", &item), "Null");
    Expect(generator.AddObjectItemSpecialNumberByPath(L"/totals", L"rating", 1, &item), "NaN");
}

void AddAttachments(IJsonGenerator& generator, int32_t root, const wchar_t* graftedFile) {
    const uint8_t signature[] = {0xDE, 0xAD, 0xBE, 0xEF, 0x00, 0x01};
    uint32_t item = 0;
    Expect(generator.AddObjectItemBlob(root, L"signature", signature, sizeof signature, &item),
           "Blob");
    QXJSON::JsonVariant note{};
    note.tag = QXJSON::kVariantText;
    note.text = L"Leave at the harbour office \u2693 \U0001F6A2";
    Expect(generator.AddItemVariant(root, L"note", note, &item), "Variant");
    Expect(generator.AddObjectItemJsonFile(root, L"destination", graftedFile, &item), "JsonFile");
}

/// Reads a saved order back; whether its text is that of the one in memory.
bool ReadsBack(const std::wstring& name, const std::wstring& expected) {
    const Parser parser = NewParser();
    uint32_t root = 0, type = 0;
    const wchar_t* text = nullptr;
    return parser->LoadJsonFile(name.c_str()) == 1 && parser->GetRootItem(&root, &type) == 1 &&
           parser->GetObjectJson(root, &text) == 1 && expected == text;
}

}  // namespace

bool ShowBuilding(const wchar_t* graftedFile) {
    const Generator generator = NewGenerator();
    uint32_t handle = 0;
    Expect(generator->CreateRootObject(&handle), "CreateRootObject");
    const auto root = static_cast<int32_t>(handle);
    Expect(
        generator->AddObjectItemString(root, L"customer", L"S\u00F8ren \u00D8stergaard", &handle),
        "AddObjectItemString");
    AddLines(*generator, root);
    AddTotals(*generator);
    AddAttachments(*generator, root, graftedFile);

    const std::wstring indented = TemporaryName(L"json_host_order.json");
    const wchar_t* text = nullptr;
    Expect(generator->GetJsonString(&text), "GetJsonString");
    const std::wstring order = text;
    Print(L"An order of %zu UTF-16 units: %ls\n", order.size(), Quoted(order).c_str());

    bool whole = true;
    for (int32_t encoding = 0; encoding < 4; ++encoding) {
        Expect(generator->SaveToFile(indented.c_str(), encoding), "SaveToFile");
        const bool same = ReadsBack(indented, order);
        Print(L"%-8ls %5zu bytes, read back: %ls\n", kEncodings[encoding],
              ReadBytes(indented).size(), same ? L"the same" : L"different");
        whole = whole && same;
    }
    _wremove(indented.c_str());
    return whole;
}

}  // namespace host
