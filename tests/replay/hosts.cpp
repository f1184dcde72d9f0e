// Three hosts as they are: one reads messages, one builds a report, one keeps its settings in a
// package. Their calls are what is in the logs beside this file. Two more are for what logs can be:
// one ends in the middle of a call, one loads a file of any name.
//
//   hosts LIBRARY messages|report|settings|ended
//   hosts LIBRARY load FILE

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "Json_Dll.hpp"

using namespace QXJSON::hosting;

namespace {

// ---- Messages ----------------------------------------------------------------------------------

/// What arrives, a message in a line: orders, cancellations, and now and then something broken.
std::string Message(int number) {
    const std::string id = std::to_string(number);
    if (number % 17 == 0) return "{\"type\":\"order\",\"id\":" + id;
    if (number % 5 == 0)
        return "{\"type\":\"cancel\",\"id\":" + id +
               ",\"reason\":\"Schiff \xC3\xBC"
               "berf\xC3\xA4llig\"}";
    std::string lines;
    for (int line = 0; line < number % 4 + 1; ++line)
        lines += (line ? "," : "") + std::string("{\"article\":\"A-") + std::to_string(line) +
                 "\",\"count\":" + std::to_string(number % 7 + line) +
                 ",\"price\":" + std::to_string(number) + ".25}";
    return "{\"type\":\"order\",\"id\":" + id + ",\"customer\":{\"name\":\"Customer " + id +
           "\",\"express\":" + (number % 2 ? "true" : "false") + "},\"lines\":[" + lines + "]}";
}

double ReadOrder(const Parser& parser, const Item& root) {
    double sum = 0;
    const Item lines = root.Member(L"lines").Get();
    for (const auto& line : lines.Children())
        sum +=
            line.value.MemberAs<double>(L"price").Or(0) * line.value.MemberAs<int>(L"count").Or(0);
    if (parser.As<bool>(L"/customer/express").Or(false)) sum += 10;
    return sum;
}

int ReadMessages(const Library& library) {
    const Parser parser = library.NewParser().Get();
    double sum = 0;
    size_t letters = 0;
    int broken = 0;
    for (int number = 1; number <= 400; ++number) {
        const std::string message = Message(number);
        if (!parser.LoadBytes(message.data(), message.size())) {
            const LoadFailure failure = parser.Failure();
            letters += failure.message.size() + static_cast<size_t>(failure.offset);
            ++broken;
            continue;
        }
        const Item root = parser.Root().Get();
        if (root.MemberAs<std::wstring_view>(L"type").Get() == L"order")
            sum += ReadOrder(parser, root);
        else
            letters += parser.As<std::wstring_view>(L"/reason").Or(L"").size();
        if (parser.Exists(L"/customer/name"))
            letters += parser.As<std::wstring_view>(L"/customer/name").Get().size();
    }
    std::printf("%.2f, %d broken, %d letters\n", sum, broken, static_cast<int>(letters));
    return 0;
}

// ---- A report ----------------------------------------------------------------------------------

int BuildReport(const Library& library) {
    const Generator generator = library.NewGenerator().Get();
    const ValueContainer report = generator.NewObjectValue().Get();
    report.Add(L"title", L"Arrivals").Get();
    report.Add(L"complete", true).Get();
    const ValueContainer rows = report.AddArray(L"rows").Get();
    for (int row = 0; row < 10'000; ++row) {
        const ValueContainer record = rows.AppendObject().Get();
        record.Add(L"id", row).Get();
        record.Add(L"berth", L"Quay " + std::to_wstring(row % 12)).Get();
        record.Add(L"draught", 4.5 + row % 100 / 8.0).Get();
        record.Add(L"pilot", row % 3 == 0).Get();
    }
    const Bytes bytes = generator.Encoded(Encoding::kUtf8).Get();
    std::printf("%d bytes\n", static_cast<int>(bytes.size));
    return 0;
}

// ---- Settings ----------------------------------------------------------------------------------

/// A window of the host, which a package fetches through a delegate.
struct Window {
    int width;
    std::wstring text;
};

class Windows final : public QXJSON::IJsonPackageDelegate {
    int DelegateExport4(void* object, uint8_t, const wchar_t** text) override {
        auto& window = *static_cast<Window*>(object);
        window.text = L"{\"width\":" + std::to_wstring(window.width) + L"}";
        *text = window.text.c_str();
        return QXJSON::kSuccess;
    }
    int DelegateImport(void* object, const wchar_t* text, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        static_cast<Window*>(object)->text = text;
        return QXJSON::kSuccess;
    }
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

std::wstring FileName() {
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH, folder);
    return folder + (L"settings-" + std::to_wstring(GetCurrentProcessId()) + L".json");
}

int KeepSettings(const Library& library) {
    const std::wstring file = FileName();
    Windows windows;
    Window window{800, L""};
    const uint8_t key[] = {1, 2, 3, 250};
    {
        const Package package = library.NewPackage().Get();
        package->SetDelegate(&windows);
        package.Set(L"Language", L"de").Get();
        package.Set(L"Zoom", 1.25).Get();
        package.Set(L"Key", Bytes{key, sizeof key}).Get();
        package.SetJson(L"Recent", L"[\"a.txt\",\"b.txt\"]").Get();
        package->SetValueFromDelegate4(L"Window", &window, 7);
        package->SetValueFromDelegate5(L"Other", &window, 7);
        for (int round = 0; round < 200; ++round) {
            package.Set(L"Round", round).Get();
            if (!package.Contains(L"LANGUAGE")) return 1;
        }
        package.Save(file, Encoding::kUtf8).Get();
    }
    const Package package = library.NewPackage().Get();
    package->SetDelegate(&windows);
    if (package.LoadFile(L"no-such-file.json")) return 1;
    package.LoadFile(file).Get();
    DeleteFileW(file.c_str());
    for (uint32_t index = 0; index < package.Count().Get(); ++index) {
        const std::wstring name(package.NameAt(index).Get());
        (void)package.Kind(name).Get();
        (void)package.Text(name);
        (void)package.As<double>(name);
        (void)package.As<Bytes>(name);
    }
    package->GetValueToDelegate(L"Window", &window, 1, 2, 3, 4, 5);
    package.Remove(L"Recent").Get();
    std::printf("%d letters\n", static_cast<int>(package.Text().Get().size()));
    return 0;
}

// ---- A host that ends in the middle of a call --------------------------------------------------

class Ending final : public QXJSON::IJsonPackageDelegate {
    [[noreturn]] static int End() {
        TerminateProcess(GetCurrentProcess(), 0);
        std::abort();
    }
    int DelegateExport0(void*, uint16_t, uint32_t, uint32_t, uint32_t, uint32_t, uint8_t,
                        const wchar_t**) override {
        End();
    }
    int DelegateExport1(void*, uint8_t, uint8_t, uint8_t, uint8_t, uint8_t,
                        const wchar_t**) override {
        End();
    }
    int DelegateExport2(void*, uint16_t, uint8_t, uint8_t, const wchar_t**) override { End(); }
    int DelegateExport3(void*, uint8_t, uint8_t, const wchar_t**) override { End(); }
    int DelegateExport4(void*, uint8_t, const wchar_t**) override { End(); }
    int DelegateExport5(void*, uint32_t, const wchar_t**) override { End(); }
    int DelegateImport(void*, const wchar_t*, uint8_t, uint64_t, uint16_t, uint32_t,
                       uint32_t) override {
        End();
    }
};

int EndInACall(const Library& library) {
    const Parser parser = library.NewParser().Get();
    parser.Load(L"[1,2,3]").Get();
    Ending ending;
    const Package package = library.NewPackage().Get();
    package->SetDelegate(&ending);
    package.SetJson(L"key", L"[1]").Get();
    return package->GetValueToDelegate(L"key", nullptr, 1, 2, 3, 4, 5);
}

// ---- A host that loads a file, if there is one -------------------------------------------------

int LoadFile(const Library& library, const wchar_t* name) {
    (void)library.NewParser().Get().LoadFile(name);
    return 0;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3) return 2;
    const Library library(arguments[1]);
    const std::wstring host = arguments[2];
    if (host == L"load" && count == 4) return LoadFile(library, arguments[3]);
    if (count != 3) return 2;
    if (host == L"messages") return ReadMessages(library);
    if (host == L"report") return BuildReport(library);
    if (host == L"settings") return KeepSettings(library);
    if (host == L"ended") return EndInACall(library);
    return 2;
}
