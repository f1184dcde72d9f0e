// jsontool get: a value.

#include <memory>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "Lines.h"
#include "Output.h"
#include "PathSplit.h"
#include "Text.h"

namespace tool {
namespace {

struct Options {
    InputOptions input;
    PathOptions path;
    TextForm form;
    bool json = false;
    bool lines = false;
};

/// Writes a value for people: a string without quotation marks.
class PlainWriter : public Events {
public:
    PlainWriter(ByteSink& whereTo, const std::string& nameOfValue, const TextForm& form)
        : sink(whereTo), name(nameOfValue), json(NewWriter(whereTo, form)) {}

    void Scalar(ValueKind kind, std::string_view text) override {
        if (isInside || kind != ValueKind::kString)
            json->Scalar(kind, text);
        else
            String(text);
    }
    void Key(std::string_view key) override { json->Key(key); }
    void Start(ValueKind kind) override {
        isInside = true;
        json->Start(kind);
    }
    void End(ValueKind kind) override { json->End(kind); }

private:
    void String(std::string_view text) {
        if (FindLoneSurrogate(text) != text.npos)
            throw Failure{FromUtf8(name) +
                          L" holds half of a surrogate pair, which UTF-8 cannot "
                          L"represent; --json writes it as an escape"};
        sink.Put(text);
    }

    ByteSink& sink;
    const std::string& name;
    const std::unique_ptr<Events> json;
    bool isInside = false;
};

/// Prints the value at a path. Returns whether there was one.
bool PrintValue(const Input& input, const ItemPath& path, const Options& options) {
    ByteSink sink;
    NoEvents rest;
    const std::unique_ptr<Events> writer =
        options.json ? NewWriter(sink, options.form)
                     : std::make_unique<PlainWriter>(sink, options.path.path, options.form);
    PathSplit split(path, *writer, rest);
    input.Read(split, options.input.ansi);
    if (!split.Found()) return false;
    sink.Put('\n');
    sink.PassOn(stdout);
    return true;
}

int Run(const Options& options) {
    const ItemPath path = options.path.Parsed();
    const std::wstring nothing = L"there is nothing at " + FromUtf8(path.text);
    if (!options.lines) {
        const Input input(options.input.file);
        if (!PrintValue(input, path, options)) throw Failure{input.Label() + L": " + nothing};
        return kGood;
    }
    Lines lines(options.input.file);
    bool found = false;
    while (const auto line = lines.Next()) found |= PrintValue(*line, path, options);
    if (!found) throw Failure{nothing + L" in any line"};
    return kGood;
}

}  // namespace

Command Get(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        AddCommand(program, "get", "[FILE] PATH",
                   "Prints a value: the characters of a string, the JSON of anything else");
    AddInput(*line, options->input, {{"PATH", options->path.path, "The path of the value"}});
    AddFlag(*line, "--json", options->json, "Print strings as JSON too");
    AddFlag(*line, "--lines", options->lines,
            "Every line of FILE is a document (NDJSON); a line without the value is passed over");
    AddColours(*line, options->form.colours);
    AddPathSyntax(*line, options->path, "The exit code is 1 when there is nothing at the path.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
