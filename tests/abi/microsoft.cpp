// A host as Microsoft's compiler lays it out: its own tables of virtual functions, its own way to
// pass records, linked by its own rules with Json_Dll.lib. check-microsoft compiles it with clang
// for that ABI; it uses no library but Json_Dll.dll, because no other is here for that ABI.

#include "Json_Dll.h"

using namespace QXJSON;

namespace {

bool Same(const wchar_t* one, const wchar_t* other) {
    while (*one && *one == *other) ++one, ++other;
    return *one == *other;
}

/// What a delegate in this host makes of an object.
class Delegate final : public IJsonPackageDelegate {
    int DelegateExport0(void*, uint16_t a, uint32_t b, uint32_t c, uint32_t d, uint32_t e,
                        uint8_t f, const wchar_t** text) override {
        *text = a == 1 && b == 2 && c == 3 && d == 4 && e == 5 && f == 6 ? L"[6]" : L"[0]";
        return 1;
    }
    int DelegateExport1(void*, uint8_t, uint8_t, uint8_t, uint8_t, uint8_t,
                        const wchar_t**) override {
        return 0;
    }
    int DelegateExport2(void*, uint16_t, uint8_t, uint8_t, const wchar_t**) override { return 0; }
    int DelegateExport3(void*, uint8_t, uint8_t, const wchar_t**) override { return 0; }
    int DelegateExport4(void*, uint8_t, const wchar_t**) override { return 0; }
    int DelegateExport5(void*, uint32_t, const wchar_t**) override { return 0; }
    int DelegateImport(void*, const wchar_t*, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        return 0;
    }
};

/// 0 when all was well, otherwise where it was not.
int Use(IJsonParser& parser, IJsonGenerator& generator, IJsonPackage& package) {
    uint32_t root = 0, item = 0;
    const wchar_t* text = nullptr;
    JsonVariant number = {};
    number.tag = kVariantInt64;
    number.number = 7;
    if (generator.CreateRootObject(&root) != kSuccess) return 1;
    const auto parent = static_cast<int32_t>(root);
    if (generator.AddItemVariant(parent, L"no", number, &item) != kSuccess) return 2;
    if (generator.AddObjectItemDouble(parent, L"total", 12.5, &item) != kSuccess) return 3;
    if (generator.GetJsonString(&text) != kSuccess) return 4;
    if (!Same(text, L"{\"no\":7,\"total\":12.5}")) return 5;

    double total = 0;
    if (parser.LoadJsonString(text) != kSuccess) return 6;
    if (parser.GetItemDoubleByPath(L"/total", &total) != kSuccess || total != 12.5) return 7;
    if (parser.ExistsItemByPath(L"/missing") || !parser.ExistsItemByPath(L"/no")) return 8;

    Delegate delegate;
    if (package.SetDelegate(&delegate) != kSuccess) return 9;
    if (package.SetValueFromDelegate0(L"all", &delegate, 1, 2, 3, 4, 5, 6) != kSuccess) return 10;
    if (package.GetText(&text) != kSuccess || !Same(text, L"{\"all\":[6]}")) return 11;
    return 0;
}

}  // namespace

// What the linker asks for where there is floating point, and what the compiler's runtime would
// bring.
extern "C" int _fltused = 0;
extern "C" void _purecall() { __builtin_trap(); }

extern "C" int Start() {
    IJsonParser* const parser = CreateJsonParser();
    IJsonGenerator* const generator = CreateJsonGenerator();
    IJsonPackage* const package = CreateJsonPackageInterface();
    if (!parser || !generator || !package) return 20;
    const int failed = Use(*parser, *generator, *package);
    const bool ended =
        parser->Release() == 1 && generator->Release() == 1 && package->Release() == 1;
    return failed ? failed : ended ? 0 : 21;
}
