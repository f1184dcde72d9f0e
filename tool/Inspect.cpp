// jsontool inspect: a document as an outline.

#include <algorithm>
#include <memory>
#include <vector>

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

std::wstring Counted(size_t count, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

/// Whether a character moves the cursor, or changes the direction of the text around it.
bool MovesText(wchar_t c) {
    return c < L' ' || (c >= 0x7F && c <= 0x9F) || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

class Outline {
public:
    explicit Outline(const Options& how) : options(how) {}

    void Show(const std::wstring& name, std::wstring_view json, unsigned level) {
        const ValueKind kind = KindOf(json);
        const std::vector<Part> parts = PartsOf(json);
        Print(std::wstring(2 * size_t{level}, L' ') + name + L"  " + NameOf(kind) +
              Detail(kind, json, parts.size()) + L"\n");
        if (level == options.depth) return;
        size_t position = 0;
        for (const Part& part : parts) {
            ++position;
            Show(kind == ValueKind::kObject ? OnOneLine(part.key.substr(1, part.key.size() - 2))
                                            : L"[" + std::to_wstring(position) + L"]",
                 part.value, level + 1);
        }
    }

private:
    /// What the outline shows of a value besides its kind.
    std::wstring Detail(ValueKind kind, std::wstring_view json, size_t count) const {
        switch (kind) {
            case ValueKind::kObject:
                return L", " + Counted(count, L"member", L"members");
            case ValueKind::kArray:
                return L", " + Counted(count, L"element", L"elements");
            case ValueKind::kNull:
                return L"";
            default:
                return L"  " + OnOneLine(json);
        }
    }

    /// A text on one line, cut if it is too long.
    std::wstring OnOneLine(std::wstring_view whole) const {
        std::wstring text(whole);
        if (text.size() > options.width) {
            size_t length = options.width;
            if (IS_HIGH_SURROGATE(text[length - 1])) --length;
            text = text.substr(0, length) + L"...";
        }
        std::replace_if(text.begin(), text.end(), MovesText, L' ');
        return text;
    }

    const Options& options;
};

int Run(const Options& options) {
    const Input input(options.file);
    const Parser parser = input.Parse();
    const std::wstring path = FromUtf8(options.path);
    if (!parser.At(path)) throw Failure{input.Label() + L": there is nothing at " + path};
    const std::wstring root = JsonOf(parser.Root().Get());
    Outline(options).Show(path, ValueAt(root, ItemPath(path)).value(), 0);
    return kGood;
}

}  // namespace

Command Inspect(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = program.add_subcommand("inspect", "Shows a document as an outline");
    AddInput(*line, options->file);
    line->add_option("PATH", options->path, "The item path of the value to start with")
        ->capture_default_str();
    line->add_option("--depth", options->depth, "How many levels to show below that value")
        ->check(CLI::Range(0u, 1000u))
        ->capture_default_str();
    line->add_option("--width", options->width, "How many characters of names and values to show")
        ->check(CLI::Range(1u, 1000000u))
        ->capture_default_str();
    line->footer(kItemPaths);
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
