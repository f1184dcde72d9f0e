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
    const bool raw = item->Kind() == ValueKind::kString && !options.json;
    Print((raw ? std::wstring(item->As<std::wstring_view>().Get()) : JsonText().Of(*item)) + L"\n");
    return kGood;
}

}  // namespace

Command Get(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = program.add_subcommand(
        "get", "Prints a value: the characters of a string, the JSON of anything else");
    AddInput(*line, options->file);
    line->add_option("PATH", options->path, "The item path of the value, as /berths/1/number")
        ->required();
    line->add_flag("--json", options->json, "Print a string as JSON, too");
    line->footer("The exit code is 1 when there is nothing at the path.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
