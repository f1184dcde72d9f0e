// jsontool get: a value.

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
    std::string file, path;
    bool json = false;
};

int Run(const Options& options) {
    const Input input(options.file);
    const Parser parser = input.Parse();
    const std::wstring path = FromUtf8(options.path);
    const auto item = parser.At(path);
    if (!item) throw Failure{input.Label() + L": there is nothing at " + path};
    const std::wstring root = JsonOf(parser.Root().Get());
    const std::wstring_view json = ValueAt(root, ItemPath(path)).value();
    if (!HasWholePairs(json))
        throw Failure{path +
                      L" holds a surrogate without its other half, which UTF-8 cannot represent"};
    if (options.json || item->Kind() != ValueKind::kString) {
        Print(std::wstring(json) + L"\n");
        return kGood;
    }
    const auto text = item->As<std::wstring_view>().Get();
    if (Quoted(text) != json)
        throw Failure{path + L" holds a U+0000, which ends the text; --json prints it whole"};
    Print(std::wstring(text) + L"\n");
    return kGood;
}

}  // namespace

Command Get(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = program.add_subcommand(
        "get", "Prints a value: the characters of a string, the JSON of anything else");
    AddInput(*line, options->file);
    line->add_option("PATH", options->path, "The item path of the value")->required();
    line->add_flag("--json", options->json, "Print strings as JSON too");
    line->footer(std::string(kItemPaths) +
                 "\nThe exit code is 1 when there is nothing at the path.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
