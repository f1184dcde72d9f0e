// jsontool diff: where two documents differ.

#include <map>
#include <memory>
#include <utility>

#include "Command.h"
#include "Decimal.h"
#include "Failure.h"
#include "Input.h"
#include "Output.h"
#include "Text.h"
#include "Tree.h"

namespace tool {
namespace {

struct Options {
    std::string first, second;
    PathOptions path;
    bool ansi = false;
    Colours colours;
};

class Comparison {
public:
    Comparison(const Tree& before, const Tree& after, const Options& how)
        : a(before), b(after), syntax(how.path.Syntax()), colours(how.colours) {}

    void Compare(const std::string& path, size_t old, size_t fresh) {
        const ValueKind kind = a.KindOf(old);
        if (kind != b.KindOf(fresh))
            Tell(path, JsonAt(a, old), JsonAt(b, fresh));
        else if (kind == ValueKind::kObject)
            CompareObjects(path, old, fresh);
        else if (kind == ValueKind::kArray)
            CompareArrays(path, old, fresh);
        else if (kind == ValueKind::kNumber ? !IsSameNumber(a.TextOf(old), b.TextOf(fresh))
                                            : a.TextOf(old) != b.TextOf(fresh))
            Tell(path, JsonAt(a, old), JsonAt(b, fresh));
    }

    bool differs = false;

private:
    static constexpr char kNothing[] = "nothing";

    /// The members of an object by their keys, and among those with the same key by their order.
    using Members = std::map<std::pair<std::string_view, size_t>, size_t>;
    static Members MembersOf(const Tree& tree, size_t object) {
        Members members;
        for (const Tree::Child& child : tree.ChildrenOf(object)) {
            size_t count = 0;
            while (!members.try_emplace({child.key, count}, child.value).second) ++count;
        }
        return members;
    }

    void CompareObjects(const std::string& path, size_t old, size_t fresh) {
        Deeper deeper(*this);
        const Members others = MembersOf(b, fresh);
        const Members members = MembersOf(a, old);
        for (const auto& [name, value] : members) {
            const std::string here = PathOfMember(path, name.first, syntax);
            const auto other = others.find(name);
            if (other == others.end())
                Tell(here, JsonAt(a, value), kNothing);
            else
                Compare(here, value, other->second);
        }
        for (const auto& [name, value] : others)
            if (members.count(name) == 0)
                Tell(PathOfMember(path, name.first, syntax), kNothing, JsonAt(b, value));
    }

    void CompareArrays(const std::string& path, size_t old, size_t fresh) {
        Deeper deeper(*this);
        const auto elements = a.ChildrenOf(old), others = b.ChildrenOf(fresh);
        for (size_t i = 0; i < elements.size() || i < others.size(); ++i) {
            const std::string here = PathOfElement(path, i + 1, syntax);
            if (i >= others.size())
                Tell(here, JsonAt(a, elements[i].value), kNothing);
            else if (i >= elements.size())
                Tell(here, kNothing, JsonAt(b, others[i].value));
            else
                Compare(here, elements[i].value, others[i].value);
        }
    }

    /// Counts the levels, because each is a call on the stack.
    struct Deeper {
        explicit Deeper(Comparison& whose) : comparison(whose) {
            if (++comparison.depth > kDeepest) throw Failure{L"nested too deeply to be compared"};
        }
        ~Deeper() { --comparison.depth; }
        Deeper(const Deeper&) = delete;
        Deeper& operator=(const Deeper&) = delete;
        Comparison& comparison;
    };

    static std::string JsonAt(const Tree& tree, size_t value) {
        ByteSink sink;
        tree.Play(value, *NewWriter(sink, TextForm()));
        return sink.Text();
    }

    void Tell(const std::string& path, const std::string& before, const std::string& after) {
        differs = true;
        Print((path.empty() && syntax == PathSyntax::kItemPath ? "/" : path) + ": " +
              colours.In(Colour::kBefore, before) + " -> " + colours.In(Colour::kAfter, after) +
              "\n");
    }

    static constexpr size_t kDeepest = 1000;
    const Tree& a;
    const Tree& b;
    const PathSyntax syntax;
    const Colours colours;
    size_t depth = 0;
};

int Run(const Options& options) {
    Tree before, after;
    Input(options.first).Read(before, options.ansi);
    Input(options.second).Read(after, options.ansi);
    Comparison comparison(before, after, options);
    comparison.Compare("", Tree::kRoot, Tree::kRoot);
    return comparison.differs ? kBad : kGood;
}

}  // namespace

Command Diff(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line =
        AddCommand(program, "diff", "FILE OTHER",
                   "Prints where two documents differ; the exit code is 1 if they do");
    AddOperand(*line, {"FILE", options->first, "A JSON file; - for the standard input"},
               Need::kRequired);
    AddOperand(*line, {"OTHER", options->second, "Another one"}, Need::kRequired);
    AddAnsi(*line, options->ansi);
    AddFlag(*line, "--pointer", options->path.isPointer,
            "Print JSON Pointers (RFC 6901) rather than item paths");
    AddColours(*line, options->colours);
    AddFooter(
        *line,
        "A line for each difference: PATH: WHAT WAS THERE -> WHAT IS THERE, where \"nothing\" may "
        "stand\nfor either. Neither the order of members nor the spelling of a number counts: "
        "1.0 is 1.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
