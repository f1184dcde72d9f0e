// jsontool inspect: a document as an outline.

#include <algorithm>
#include <memory>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "Kinds.h"
#include "Output.h"
#include "PathSplit.h"
#include "Text.h"
#include "Tree.h"

namespace tool {
namespace {

struct Options {
    InputOptions input;
    PathOptions path;
    unsigned depth = 100;
    unsigned width = 60;
    Colours colours;
};

std::string Counted(size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string WithoutQuotes(const std::string& json) { return json.substr(1, json.size() - 2); }

/// Whether a character moves the cursor, or changes the direction of the text around it.
bool MovesText(wchar_t c) {
    return c < L' ' || (c >= 0x7F && c <= 0x9F) || (c >= 0x2028 && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

class Outline {
public:
    Outline(const Tree& document, const Options& how) : tree(document), options(how) {}

    void Show(const std::string& name, size_t value, unsigned level) {
        Print(std::string(2 * size_t{level}, ' ') + options.colours.In(Colour::kKey, name) + "  " +
              NameOf(tree.KindOf(value)) + Detail(value) + "\n");
        if (level == options.depth) return;
        size_t position = 0;
        for (const Tree::Child& child : tree.ChildrenOf(value)) {
            ++position;
            Show(tree.KindOf(value) == ValueKind::kObject
                     ? OnOneLine(WithoutQuotes(JsonOf(child.key)))
                     : "[" + std::to_string(position) + "]",
                 child.value, level + 1);
        }
    }

private:
    /// What the outline shows of a value besides its kind.
    std::string Detail(size_t value) const {
        switch (tree.KindOf(value)) {
            case ValueKind::kObject:
                return ", " + Counted(tree.CountOf(value), "member", "members");
            case ValueKind::kArray:
                return ", " + Counted(tree.CountOf(value), "element", "elements");
            case ValueKind::kNull:
                return "";
            case ValueKind::kString:
                return "  " + Coloured(value, JsonOf(tree.TextOf(value)));
            default:
                return "  " + Coloured(value, tree.TextOf(value));
        }
    }

    std::string Coloured(size_t value, std::string_view json) const {
        return options.colours.In(ColourOf(tree.KindOf(value)), OnOneLine(json));
    }

    /// A text on one line, cut if it is too long.
    std::string OnOneLine(std::string_view whole) const {
        std::wstring text = FromUtf8(whole);
        if (text.size() > options.width) {
            size_t length = options.width;
            if (IS_HIGH_SURROGATE(text[length - 1])) --length;
            text = text.substr(0, length) + L"...";
        }
        std::replace_if(text.begin(), text.end(), MovesText, L' ');
        return ToUtf8(text);
    }

    const Tree& tree;
    const Options& options;
};

int Run(const Options& options) {
    const ItemPath path = options.path.Parsed();
    Tree tree;
    NoEvents rest;
    PathSplit split(path, tree, rest);
    const Input input(options.input.file);
    input.Read(split, options.input.ansi);
    if (!split.Found())
        throw Failure{input.Label() + L": there is nothing at " + FromUtf8(path.text)};
    Outline(tree, options).Show(path.text, Tree::kRoot, 0);
    return kGood;
}

}  // namespace

Command Inspect(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        AddCommand(program, "inspect", "[FILE [PATH]]", "Shows a document as an outline");
    AddInput(*line, options->input);
    AddOperand(*line, {"PATH", options->path.path, "The path of the value to start with"},
               Need::kOptional);
    AddNumber(*line, {"--depth", "N", "How many levels to show below that value (100)"},
              options->depth, 0, 1000);
    AddNumber(*line, {"--width", "N", "How many characters of names and values to show (60)"},
              options->width, 1, 1000000);
    AddColours(*line, options->colours);
    AddPathSyntax(*line, options->path);
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
