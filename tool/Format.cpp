// jsontool format: the same document, compact or indented.

#include <memory>

#include "Command.h"
#include "Input.h"
#include "Output.h"

namespace tool {
namespace {

struct Options {
    std::string file, out = "-";
    bool indented = false;
};

int Run(const Options& options) {
    TextForm form;
    form.indented = options.indented;
    Write(Input(options.file).Generate(), options.out, form);
    return kGood;
}

}  // namespace

Command Format(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        program.add_subcommand("format", "Writes a document in UTF-8, compact or indented");
    AddInput(*line, options->file);
    AddOutput(*line, options->out);
    line->add_flag("--indent", options->indented, "Indent by four spaces a level");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
