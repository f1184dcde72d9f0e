// A keyed store, and objects of the host in it: the package and its delegate.

#include <string>

#include "Console.h"
#include "Library.h"
#include "Modes.h"

namespace host {
namespace {

/// An object of the host that the library knows nothing about.
struct Skipper {
    std::wstring name;
    int64_t licence;
};

/// Turns skippers into JSON and back. Export 5 and the import are all that this host uses.
class SkipperDelegate final : public QXJSON::IJsonPackageDelegate {
public:
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

    int DelegateExport5(void* object, uint32_t, const wchar_t** text) override {
        const auto& skipper = *static_cast<const Skipper*>(object);
        const Generator generator = NewGenerator();
        uint32_t root = 0, item = 0;
        const wchar_t* made = nullptr;
        generator->CreateRootObject(&root);
        const auto parent = static_cast<int32_t>(root);
        generator->AddObjectItemString(parent, L"name", skipper.name.c_str(), &item);
        generator->AddObjectItemInt64(parent, L"licence", skipper.licence, &item);
        generator->GetJsonString(&made);
        exported = made;
        *text = exported.c_str();
        return 1;
    }

    int DelegateImport(void* object, const wchar_t* text, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        auto& skipper = *static_cast<Skipper*>(object);
        const Parser parser = NewParser();
        uint64_t root = 0;
        uint32_t type = 0;
        const wchar_t* name = nullptr;
        if (parser->LoadJsonString(text) != 1) return 0;
        parser->GetRootValue(&root, &type);
        if (parser->GetMemberStringOfValue(root, L"name", &name) != 1) return 0;
        skipper.name = name;
        return parser->GetMemberInt64OfValue(root, L"licence", &skipper.licence);
    }

private:
    std::wstring exported;  // the delegate owns what it hands out
};

void Fill(QXJSON::IJsonPackage& package, Skipper& skipper) {
    const uint8_t key[] = {1, 2, 3};
    Expect(package.SetValueString(L"Vessel", L"Bl\u00E5vand"), "SetValueString");
    Expect(package.SetValueNumber(L"Length", 18.5), "SetValueNumber");
    Expect(package.SetValueNumber(L"Crew", 4.0), "SetValueNumber");
    Expect(package.SetValueBoolean(L"Moored", true), "SetValueBoolean");
    Expect(package.SetValueBlob(L"Key", key, sizeof key), "SetValueBlob");
    Expect(package.SetValue(L"Ports", L"[\"\u00C6r\u00F8\", \"Kiel\"]", true), "SetValue");
    Expect(package.SetValueFromDelegate5(L"Skipper", &skipper, 0), "SetValueFromDelegate5");
    // The same key, whatever its case: the value changes, the place and the spelling do not.
    Expect(package.SetValueNumber(L"CREW", 5.0), "SetValueNumber");
}

}  // namespace

bool ShowPackage() {
    const Package package = NewPackage();
    SkipperDelegate delegate;
    Skipper skipper = {L"\u00C5se", 9007199254740993};
    Expect(package->SetDelegate(&delegate), "SetDelegate");
    Fill(*package, skipper);

    const wchar_t* text = nullptr;
    Expect(package->GetText(&text), "GetText");
    const std::wstring original = text;
    Print(L"A package: %ls\n", original.c_str());

    bool whole = true;
    const std::wstring name = TemporaryName(L"json_host_package.json");
    for (int32_t encoding = 0; encoding < 4; ++encoding) {
        Expect(package->SaveToFile(name.c_str(), encoding), "SaveToFile");
        const Package loaded = NewPackage();
        const bool same =
            loaded->LoadFile(name.c_str()) == 1 && loaded->GetText(&text) == 1 && original == text;
        Print(L"encoding %d: %zu bytes, loaded back: %ls\n", encoding, ReadBytes(name).size(),
              same ? L"the same" : L"different");
        whole = whole && same;
    }
    _wremove(name.c_str());

    Skipper imported = {};
    Expect(package->GetValueToDelegate(L"skipper", &imported, 0, 0, 0, 0, 0), "GetValueToDelegate");
    Print(L"The skipper read back: %ls, licence %lld\n", imported.name.c_str(), imported.licence);
    return whole && imported.name == skipper.name && imported.licence == skipper.licence;
}

}  // namespace host
