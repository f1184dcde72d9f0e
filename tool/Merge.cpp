// jsontool merge: several objects combined into one.

#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "Output.h"
#include "Tree.h"

namespace tool {
namespace {

struct Options {
    std::vector<std::string> files;
    std::string out = "-";
    bool ignoreCase = false;
    bool ansi = false;
    TextForm form;
};

/// A key with its ASCII letters in lower case, by which it is compared.
std::string Folded(std::string_view key) {
    std::string folded(key);
    for (char& c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

/// The members of several objects. A member that is replaced keeps its place and its key.
class Members {
public:
    explicit Members(bool casesAreIgnored) : ignoreCase(casesAreIgnored) {}

    /// Adds the members of an object; they replace earlier ones of the same key.
    void Add(const Input& input, bool ansi) {
        Tree& object = objects.emplace_back();
        input.Read(object, ansi);
        if (object.KindOf(Tree::kRoot) != ValueKind::kObject)
            throw Failure{input.Label() + L": the root must be an object"};
        for (const Tree::Child& child : object.ChildrenOf(Tree::kRoot)) {
            const std::string key = ignoreCase ? Folded(child.key) : std::string(child.key);
            const auto [place, isNew] = places.try_emplace(key, members.size());
            if (isNew) members.push_back({child.key, nullptr, 0});
            members[place->second].object = &object;
            members[place->second].value = child.value;
        }
    }

    void Play(Events& events) const {
        events.Start(ValueKind::kObject);
        for (const Member& member : members) {
            events.Key(member.key);
            member.object->Play(member.value, events);
        }
        events.End(ValueKind::kObject);
    }

private:
    struct Member {
        std::string_view key;
        const Tree* object;
        size_t value;
    };

    bool ignoreCase;
    std::deque<Tree> objects;
    std::vector<Member> members;
    std::unordered_map<std::string, size_t> places;
};

int Run(const Options& options) {
    Output output(options.out, options.form);
    Members members(options.ignoreCase);
    for (const std::string& file : options.files) members.Add(Input(file), options.ansi);
    output.Write([&](Events& writer) { members.Play(writer); });
    output.Finish();
    return kGood;
}

}  // namespace

Command Merge(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = AddCommand(
        program, "merge", "FILE FILE...",
        "Combines objects into one: members of later files replace those of earlier ones");
    AddOperands(*line, "FILE", options->files, 2, "Two or more JSON files whose roots are objects");
    AddAnsi(*line, options->ansi);
    AddOutput(*line, options->out);
    AddFlag(*line, "--ignore-case", options->ignoreCase,
            "Treat keys that differ only in the case of ASCII letters as the same");
    AddForm(*line, options->form);
    AddFooter(
        *line,
        "Only the members of the roots are merged: an object inside an object is replaced as a "
        "whole.\nA member that is replaced keeps its place and the spelling of its key.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
