// jsontool merge: one object of several.

#include <memory>
#include <vector>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "JsonText.h"
#include "Output.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

struct Options {
    std::vector<std::string> files;
    std::string out = "-";
    bool ignoreCase = false;
};

/// The members of some objects, kept in a package: it knows which keys are the same, and keeps the
/// places of those that come again. Each value is wrapped into an array, for a package can be given
/// any value inside of JSON, but no null and no number beyond a double by itself.
class Members {
public:
    explicit Members(bool ignoreCase) { package.IgnoreCase(ignoreCase).Get(); }

    /// Adds the members of an object, in the place of earlier ones of the same key.
    void Add(const Input& input) {
        const Parser parser = input.Parse();
        const Item root = parser.Root().Get();
        if (root.Kind() != ValueKind::kObject)
            throw Failure{input.Label() + L": the root has to be an object"};
        for (const auto& member : root.Children())
            if (!package.SetJson(member.name, L"[" + json.Of(member.value) + L"]"))
                throw Failure{input.Label() + L": the member " + json.Of(member.name) +
                              L" cannot be merged: it holds a number that is not finite"};
    }

    /// The object of all members.
    Generator Document() const {
        std::wstring text = L"{";
        const uint32_t count = package.Count().Get();
        for (uint32_t i = 0; i < count; ++i) {
            const std::wstring_view name = package.NameAt(i).Get();
            const std::wstring_view wrapped = package.Text(name).Get();
            text += (i > 0 ? L"," : L"") + json.Of(name) + L":";
            text += wrapped.substr(1, wrapped.size() - 2);
        }
        Generator document = NewGenerator();
        document.Load(text + L"}").Get();
        return document;
    }

private:
    Package package = NewPackage();
    JsonText json;
};

int Run(const Options& options) {
    Members members(options.ignoreCase);
    for (const std::string& file : options.files) members.Add(Input(file));
    Write(members.Document(), options.out, {});
    return kGood;
}

}  // namespace

Command Merge(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = program.add_subcommand(
        "merge",
        "Makes one object of several: members of later files replace those of earlier ones");
    line->add_option("FILE", options->files, "JSON files whose roots are objects")
        ->required()
        ->expected(2, 1000000);
    AddOutput(*line, options->out);
    line->add_flag("--ignore-case", options->ignoreCase,
                   "Take keys that differ in the case of ASCII letters for the same");
    line->footer(
        "Only the members of the roots are merged: an object inside of an object is replaced as a "
        "whole.\nA member that is replaced keeps its place and the spelling of its key.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
