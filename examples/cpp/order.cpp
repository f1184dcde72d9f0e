// A host in C++: builds an order, saves and reads it, keeps it in a package, and lets the package
// fetch one from the host's own memory through a delegate.

#include "Json_Dll.hpp"

#include <cstdio>
#include <string>
#include <string_view>

using namespace QXJSON::hosting;

namespace {

constexpr const wchar_t* kFileName = L"order.json";

/// A line of the output, in UTF-8.
void Print(const char* what, std::wstring_view text) {
    const int units = static_cast<int>(text.size());
    std::string bytes(3 * text.size(), '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    std::printf("%s: %.*s\n", what, size, bytes.c_str());
}

void Build(const Library& library) {
    const Generator generator = library.NewGenerator().Get();
    const Container order = generator.NewObject().Get();
    order.Add(L"no", 7).Get();
    order.Add(L"total", 12.5).Get();
    const Container lines = order.AddArray(L"lines").Get();
    lines.Append(L"tea").Get();
    lines.Append(L"\u00E6ble").Get();
    order.Add(L"count", 2).Get();

    Print("path", generator.PathOf(lines.Raw()).Get());
    const Bytes bytes = generator.Encoded(Encoding::kUtf8).Get();
    std::printf("built: %.*s\n", static_cast<int>(bytes.size),
                reinterpret_cast<const char*>(bytes.data));
    generator.Save(kFileName, Encoding::kUtf8).Get();
}

void Read(const Library& library) {
    const Parser parser = library.NewParser().Get();
    parser.LoadFile(kFileName).Get();
    std::printf("number: %d\n", parser.As<int>(L"/no").Get());
    Print("second line", parser.As<std::wstring_view>(L"/lines/2").Get());
    std::printf("discount: %s\n", parser.Exists(L"/discount") ? "yes" : "no");

    const std::string mistake = "[1, 2,]";
    if (parser.LoadBytes(mistake.data(), mistake.size())) return;  // never: it is not JSON
    const LoadFailure failure = parser.Failure();
    std::printf("byte %d, ", static_cast<int>(failure.offset));
    Print("mistake", failure.message);
}

/// An object of the host.
struct Order {
    int number;
    std::wstring json;
};

/// What the package calls to fetch and to hand back orders.
class Orders final : public QXJSON::IJsonPackageDelegate {
    int DelegateExport4(void* object, uint8_t, const wchar_t** text) override {
        auto& order = *static_cast<Order*>(object);
        order.json = L"{\"no\":" + std::to_wstring(order.number) + L"}";
        *text = order.json.c_str();  // lives in the order, as long as the package needs it
        return QXJSON::kSuccess;
    }
    int DelegateImport(void* object, const wchar_t* text, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        static_cast<Order*>(object)->json = text;
        return QXJSON::kSuccess;
    }

    // What this host does not offer: the package passes the result on.
    int DelegateExport0(void*, uint16_t, uint32_t, uint32_t, uint32_t, uint32_t, uint8_t,
                        const wchar_t**) override {
        return QXJSON::kWrongKind;
    }
    int DelegateExport1(void*, uint8_t, uint8_t, uint8_t, uint8_t, uint8_t,
                        const wchar_t**) override {
        return QXJSON::kWrongKind;
    }
    int DelegateExport2(void*, uint16_t, uint8_t, uint8_t, const wchar_t**) override {
        return QXJSON::kWrongKind;
    }
    int DelegateExport3(void*, uint8_t, uint8_t, const wchar_t**) override {
        return QXJSON::kWrongKind;
    }
    int DelegateExport5(void*, uint32_t, const wchar_t**) override { return QXJSON::kWrongKind; }
};

void Keep(const Library& library) {
    const Package package = library.NewPackage().Get();
    Orders delegate;
    Order sent = {8, L""}, received = {0, L""};
    package->SetDelegate(&delegate);
    package.Load(L"{\"Total\":12.5}").Get();
    package->SetValueFromDelegate4(L"Order", &sent, 0);
    package->GetValueToDelegate(L"order", &received, 0, 0, 0, 0, 0);
    Print("received", received.json);
    std::printf("export 5: %d\n", package->SetValueFromDelegate5(L"Order", &sent, 0));
    Print("kept", package.Text().Get());
}

}  // namespace

int main() {
    try {
        const Library library;
        Build(library);
        Read(library);
        Keep(library);
        DeleteFileW(kFileName);
        return 0;
    } catch (const Error& error) {
        std::fprintf(stderr, "%s (%d)\n", error.what(), error.Code());
        return 1;
    }
}
