#include "Use.h"

#include <cstdio>
#include <memory>
#include <string>

namespace {

bool well = true;

void Check(bool condition, const char* what) {
    if (condition) return;
    std::printf("not so: %s\n", what);
    well = false;
}

struct Releaser {
    template <class Interface>
    void operator()(Interface* object) const {
        object->Release();
    }
};

template <class Interface>
using Owner = std::unique_ptr<Interface, Releaser>;

const wchar_t* const kOrder = L"{\"no\":7,\"lines\":[\"tea\",\"\u00E6ble\"]}";

std::wstring BuiltOrder(QXJSON::IJsonGenerator& generator) {
    uint32_t root = 0, lines = 0, item = 0;
    const wchar_t* text = nullptr;
    Check(generator.CreateRootObject(&root) == QXJSON::kSuccess, "a root is created");
    const auto order = static_cast<int32_t>(root);
    Check(generator.AddObjectItemInt(order, L"no", 7, &item) == 1, "a number is added");
    Check(generator.AddObjectItemArray(order, L"lines", &lines) == 1, "an array is added");
    const auto parent = static_cast<int32_t>(lines);
    Check(generator.AddArrayItemString(parent, L"tea", &item) == 1, "a text is added by handle");
    Check(generator.AddArrayItemStringByPath(L"/lines", L"\u00E6ble", &item) == 1,
          "a text is added by path");
    Check(generator.AddArrayItemNull(99, &item) == QXJSON::kNoValue, "handle 99 is unknown");
    Check(generator.GetJsonString(&text) == 1, "the document becomes text");
    return text ? text : L"";
}

void Read(QXJSON::IJsonParser& parser, const std::wstring& order) {
    int32_t number = 0;
    uint64_t offset = 0;
    const wchar_t* text = nullptr;
    Check(parser.LoadJsonString(order.c_str()) == 1, "the text is loaded");
    Check(parser.GetItemIntByPath(L"/no", &number) == 1 && number == 7, "the number is read");
    Check(parser.GetItemStringByPath(L"/lines/2", &text) == 1 && text == std::wstring(L"\u00E6ble"),
          "the second text is read");
    Check(parser.GetItemIntByPath(L"/missing", &number) == QXJSON::kBadPath,
          "a path leads nowhere");
    Check(parser.LoadJsonBytes("[1, 2,]", 7) == 0, "text with a mistake is refused");
    // The stream has taken the bracket when it is found to be no value.
    Check(parser.GetErrorOffset(&offset) == 1 && offset == 7, "the mistake has its place");
    Check(parser.GetErrorMessage(&text) == 1 && text == std::wstring(L"Invalid value."),
          "the mistake has its sentence");
}

void Keep(QXJSON::IJsonPackage& package, const std::wstring& order) {
    double number = 0;
    const wchar_t* text = nullptr;
    Check(package.SetValue(L"Order", order.c_str(), true) == 1, "the order is kept");
    Check(package.SetValueNumber(L"Total", 12.5) == 1, "a number is kept");
    Check(package.GetValue(L"order", &text) == 1 && text == order, "the order is found again");
    Check(package.GetValueNumber(L"TOTAL", &number) == 1 && number == 12.5, "so is the number");
    Check(package.GetValueString(L"Total", &text) == QXJSON::kWrongKind, "a number is no text");
}

}  // namespace

bool UseLibrary(const Factories& factories) {
    const Owner<QXJSON::IJsonGenerator> generator(factories.createGenerator());
    const Owner<QXJSON::IJsonParser> parser(factories.createParser());
    const Owner<QXJSON::IJsonPackage> package(factories.createPackage());
    Check(generator && parser && package, "the factories make objects");
    if (!well) return false;
    const std::wstring order = BuiltOrder(*generator);
    Check(order == kOrder, "the document is what was built");
    Read(*parser, order);
    Keep(*package, order);
    return well;
}
