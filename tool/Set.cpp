// jsontool set: a document with another value in one place.

#include <memory>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "Output.h"
#include "PathSplit.h"
#include "Text.h"
#include "Tree.h"

namespace tool {
namespace {

struct Options {
    InputOptions input;
    PathOptions path;
    std::string value, out = "-";
    bool isString = false;
    TextForm form;
};

/// The value on the command line.
void ReadValue(const Options& options, Tree& value) {
    if (options.isString) {
        value.Scalar(ValueKind::kString, options.value);
        return;
    }
    ByteStream bytes(options.value);
    const ReadingResult result = ReadJson(bytes, value);
    if (result.good && bytes.AtEnd()) return;
    throw Failure{FromUtf8(options.value) + L": not JSON from character " +
                  std::to_wstring(FromUtf8(options.value.substr(0, result.place)).size() + 1) +
                  L" on; --string treats it as a text"};
}

/// Passes a document on with another value at a path.
class Setter : public PathSplit {
public:
    Setter(const ItemPath& whereTo, const Tree& newValue, Events& target)
        : PathSplit(whereTo, old, target), path(whereTo), value(newValue), writer(target) {}

    bool isSet = false;

protected:
    void BeforeValue() override {
        value.Play(Tree::kRoot, writer);
        isSet = true;
    }
    void EndOfParent(ValueKind kind, uint64_t count) override {
        const Segment& last = path.segments.back();
        if (kind == ValueKind::kObject)
            writer.Key(last.key);
        else if (!last.isEnd && last.position != count + 1)
            throw Failure{FromUtf8(path.text) + L": the array has " + std::to_wstring(count) +
                          (count == 1 ? L" element" : L" elements")};
        BeforeValue();
    }

private:
    NoEvents old;
    const ItemPath& path;
    const Tree& value;
    Events& writer;
};

int Run(const Options& options) {
    Tree value;
    ReadValue(options, value);
    const ItemPath path = options.path.Parsed();
    if (path.segments.empty() && !value.IsContainer(Tree::kRoot))
        throw Failure{L"the root must be an object or an array"};
    Output output(options.out, options.form);
    output.Write([&](Events& writer) {
        Setter setter(path, value, writer);
        options.input.Read(setter);
        if (setter.isSet) return;
        const std::wstring parent = FromUtf8(path.Parent());
        throw Failure{setter.FoundParent() ? parent + L" is neither an object nor an array"
                                           : L"there is nothing at " + parent};
    });
    output.Finish();
    return kGood;
}

}  // namespace

Command Set(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = AddCommand(program, "set", "[FILE] PATH VALUE",
                                      "Writes a document with another value in one place");
    AddInput(*line, options->input,
             {{"PATH", options->path.path,
               "The path of a member or element; the member may be new, and the position after the "
               "last element appends one"},
              {"VALUE", options->value, "The value as JSON"}});
    AddOutput(*line, options->out);
    AddFlag(*line, "--string", options->isString, "Treat VALUE as the characters of a string");
    AddForm(*line, options->form);
    AddPathSyntax(*line, options->path,
                  "Put -- before a VALUE that begins with - and a letter.\n"
                  "With --pointer, - is the position after the last element.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
