// jsontool merge: several objects combined into one.

#include <memory>
#include <unordered_map>
#include <utility>
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

/// A key with its ASCII letters in lower case, by which it is compared. Folding the letters of JSON
/// escapes does no harm: no escape has another meaning in the other case.
std::wstring Folded(std::wstring_view key) {
    std::wstring folded(key);
    for (wchar_t& c : folded)
        if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
    return folded;
}

/// The members of several objects, as JSON. A member that is replaced keeps its place.
class Members {
public:
    explicit Members(bool casesAreIgnored) : ignoreCase(casesAreIgnored) {}

    /// Adds the members of an object; they replace earlier ones of the same key.
    void Add(const Input& input) {
        const Parser parser = input.Parse();
        const Item root = parser.Root().Get();
        if (root.Kind() != ValueKind::kObject)
            throw Failure{input.Label() + L": the root must be an object"};
        const std::wstring json = JsonOf(root);
        for (const Part& part : PartsOf(json)) {
            const std::wstring key = ignoreCase ? Folded(part.key) : std::wstring(part.key);
            const auto [place, isNew] = places.try_emplace(key, members.size());
            if (isNew) members.emplace_back(part.key, L"");
            members[place->second].second = part.value;
        }
    }

    /// The object of all members.
    std::wstring Json() const {
        std::wstring json = L"{";
        for (const auto& [key, value] : members)
            json.append(json.size() > 1 ? L"," : L"").append(key).append(L":").append(value);
        return json + L"}";
    }

private:
    bool ignoreCase;
    std::vector<std::pair<std::wstring, std::wstring>> members;  ///< keys and values
    std::unordered_map<std::wstring, size_t> places;
};

int Run(const Options& options) {
    Members members(options.ignoreCase);
    for (const std::string& file : options.files) members.Add(Input(file));
    Write(members.Json(), options.out);
    return kGood;
}

}  // namespace

Command Merge(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = program.add_subcommand(
        "merge", "Combines objects into one: members of later files replace those of earlier ones");
    line->add_option("FILE", options->files, "Two or more JSON files whose roots are objects")
        ->required()
        ->expected(2, -1);
    AddOutput(*line, options->out);
    line->add_flag("--ignore-case", options->ignoreCase,
                   "Treat keys that differ only in the case of ASCII letters as the same");
    line->footer(
        "Only the members of the roots are merged: an object inside an object is replaced as a "
        "whole.\nA member that is replaced keeps its place and the spelling of its key.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
