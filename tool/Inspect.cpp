// jsontool inspect: a document as an outline.

#include <memory>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "JsonText.h"
#include "Output.h"
#include "Text.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

struct Options {
    std::string file, path = "/";
    unsigned depth = 100;
    unsigned width = 60;
};

const wchar_t* NameOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::kString:
            return L"string";
        case ValueKind::kNumber:
            return L"number";
        case ValueKind::kBoolean:
            return L"boolean";
        case ValueKind::kNull:
            return L"null";
        case ValueKind::kObject:
            return L"object";
        default:
            return L"array";
    }
}

std::wstring Counted(uint32_t count, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

class Outline {
public:
    explicit Outline(const Options& how) : options(how) {}

    void Show(const std::wstring& name, const Item& item, unsigned level) {
        Print(std::wstring(2 * size_t{level}, L' ') + name + L"  " + NameOf(item.Kind()) +
              Detail(item) + L"\n");
        if (level == options.depth) return;
        uint32_t position = 0;
        for (const auto& child : item.Children()) {
            ++position;
            Show(item.Kind() == ValueKind::kObject ? OnOneLine(std::wstring(child.name))
                                                   : L"[" + std::to_wstring(position) + L"]",
                 child.value, level + 1);
        }
    }

private:
    /// What there is to say of a value besides its kind.
    std::wstring Detail(const Item& item) const {
        switch (item.Kind()) {
            case ValueKind::kObject:
                return L", " + Counted(item.Count().Get(), L"member", L"members");
            case ValueKind::kArray:
                return L", " + Counted(item.Count().Get(), L"element", L"elements");
            case ValueKind::kNull:
                return L"";
            default:
                return L"  " + OnOneLine(json.Of(item));
        }
    }

    /// A text that is cut when it is long, and lets no character move the cursor.
    std::wstring OnOneLine(std::wstring text) const {
        if (text.size() > options.width) {
            size_t length = options.width;
            if (IS_HIGH_SURROGATE(text[length - 1])) --length;
            text = text.substr(0, length) + L"...";
        }
        for (wchar_t& c : text)
            if (c < L' ' || c == 0x7F) c = L' ';
        return text;
    }

    const Options& options;
    JsonText json;
};

int Run(const Options& options) {
    const Input input(options.file);
    const Parser parser = input.Parse();
    const std::wstring path = FromUtf8(options.path);
    const auto start = parser.At(path);
    if (!start) throw Failure{input.Label() + L": there is nothing at " + path};
    Outline(options).Show(path, *start, 0);
    return kGood;
}

}  // namespace

Command Inspect(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = program.add_subcommand("inspect", "Shows a document as an outline");
    AddInput(*line, options->file);
    line->add_option("PATH", options->path, "The item path of the value to begin with")
        ->capture_default_str();
    line->add_option("--depth", options->depth, "How many levels to show below it")
        ->check(CLI::Range(0u, 1000u))
        ->capture_default_str();
    line->add_option("--width", options->width, "Where to cut names and values, in characters")
        ->check(CLI::Range(1u, 1000000u))
        ->capture_default_str();
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
