// jsontool format: the same document, compact or indented.

#include <memory>

#include "Command.h"
#include "Lines.h"
#include "Output.h"

namespace tool {
namespace {

struct Options {
    InputOptions input;
    std::string out = "-";
    TextForm form;
    bool lines = false;
};

int Run(const Options& options) {
    Output output(options.out, options.form);
    if (options.lines) {
        Lines lines(options.input.file);
        while (const auto line = lines.Next())
            output.Write([&](Events& writer) { line->Read(writer, options.input.ansi); });
    } else {
        output.Write([&](Events& writer) { options.input.Read(writer); });
    }
    output.Finish();
    return kGood;
}

}  // namespace

Command Format(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        AddCommand(program, "format", "[FILE]", "Writes a document in UTF-8, compact or indented");
    AddInput(*line, options->input);
    AddOutput(*line, options->out);
    AddForm(*line, options->form);
    AddFlag(*line, "--lines", options->lines, "Every line of FILE is a document (NDJSON)");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
