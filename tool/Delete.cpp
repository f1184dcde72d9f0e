// jsontool delete: a document without one of its values.

#include <memory>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "Output.h"
#include "PathSplit.h"
#include "Text.h"

namespace tool {
namespace {

struct Options {
    InputOptions input;
    PathOptions path;
    std::string out = "-";
    TextForm form;
};

/// Passes a document on without the value at a path, and without its key.
class Deleter : public PathSplit {
public:
    Deleter(const ItemPath& whereTo, Events& target) : PathSplit(whereTo, deleted, target) {}

protected:
    void KeyOfValue(std::string_view) override {}

private:
    NoEvents deleted;
};

int Run(const Options& options) {
    const ItemPath path = options.path.Parsed();
    if (path.segments.empty()) throw Failure{L"the root cannot be deleted"};
    Output output(options.out, options.form);
    output.Write([&](Events& writer) {
        Deleter deleter(path, writer);
        const Input input(options.input.file);
        input.Read(deleter, options.input.ansi);
        if (!deleter.Found())
            throw Failure{input.Label() + L": there is nothing at " + FromUtf8(path.text)};
    });
    output.Finish();
    return kGood;
}

}  // namespace

Command Delete(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = AddCommand(program, "delete", "[FILE] PATH",
                                      "Writes a document without a member or element");
    AddInput(*line, options->input,
             {{"PATH", options->path.path, "The path of the member or element"}});
    AddOutput(*line, options->out);
    AddForm(*line, options->form);
    AddPathSyntax(*line, options->path, "The exit code is 1 when there is nothing at the path.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
