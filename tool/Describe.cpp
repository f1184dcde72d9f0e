// jsontool keys, length and type: what a value is, rather than what is in it.

#include <functional>
#include <memory>
#include <utility>

#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "Kinds.h"
#include "Output.h"
#include "PathSplit.h"
#include "Text.h"

namespace tool {
namespace {

struct Options {
    InputOptions input;
    PathOptions path;
    bool json = false;
};

/// Notes what a value is.
class Outside : public Events {
public:
    explicit Outside(std::function<void(std::string_view)> forKeys) : tell(std::move(forKeys)) {}

    void Scalar(ValueKind scalar, std::string_view text) override {
        if (depth == 0) {
            kind = scalar;
            for (const char c : text) length += (c & 0xC0) != 0x80;  // the first of a character
        }
        Count();
    }
    void Key(std::string_view name) override {
        if (depth == 1) tell(name);
    }
    void Start(ValueKind container) override {
        Count();
        if (depth++ == 0) kind = container;
    }
    void End(ValueKind) override { --depth; }

    ValueKind kind = ValueKind::kNull;
    uint64_t length = 0;  ///< members, elements or characters

private:
    void Count() { length += depth == 1; }

    const std::function<void(std::string_view)> tell;
    size_t depth = 0;
};

void Look(const Options& options, Outside& value) {
    const ItemPath path = options.path.Parsed();
    NoEvents rest;
    PathSplit split(path, value, rest);
    const Input input(options.input.file);
    input.Read(split, options.input.ansi);
    if (!split.Found())
        throw Failure{input.Label() + L": there is nothing at " + FromUtf8(path.text)};
}

[[noreturn]] void Refuse(const Options& options, const Outside& value, const std::wstring& what) {
    throw Failure{FromUtf8(options.path.path) + L" is of the kind " + FromUtf8(NameOf(value.kind)) +
                  what};
}

int RunKeys(const Options& options) {
    ByteSink sink;
    Outside value([&](std::string_view key) {
        if (!options.json && FindLoneSurrogate(key) != key.npos)
            throw Failure{
                L"a key holds half of a surrogate pair, which UTF-8 cannot represent; "
                L"--json writes it as an escape"};
        sink.Put(options.json ? JsonOf(key) : std::string(key));
        sink.Put('\n');
    });
    Look(options, value);
    if (value.kind != ValueKind::kObject) Refuse(options, value, L": only objects have keys");
    sink.PassOn(stdout);
    return kGood;
}

int RunLength(const Options& options) {
    Outside value([](std::string_view) {});
    Look(options, value);
    if (value.kind == ValueKind::kNumber || value.kind == ValueKind::kBoolean ||
        value.kind == ValueKind::kNull)
        Refuse(options, value, L", which has no length");
    Print(std::to_string(value.length) + "\n");
    return kGood;
}

int RunType(const Options& options) {
    Outside value([](std::string_view) {});
    Look(options, value);
    Print(NameOf(value.kind) + std::string("\n"));
    return kGood;
}

Command New(CLI::App& program, const char* name, const char* description,
            int (*run)(const Options&)) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = AddCommand(program, name, "[FILE [PATH]]", description);
    AddInput(*line, options->input);
    AddOperand(*line, {"PATH", options->path.path, "The path of the value; without it, the root"},
               Need::kOptional);
    if (run == RunKeys) AddFlag(*line, "--json", options->json, "Print the keys as JSON strings");
    AddPathSyntax(*line, options->path, "The exit code is 1 when there is nothing at the path.");
    return {line, [options, run] { return run(*options); }};
}

}  // namespace

Command Keys(CLI::App& program) {
    return New(program, "keys", "Prints the keys of an object, each on a line", RunKeys);
}

Command Length(CLI::App& program) {
    return New(program, "length",
               "Prints how many members, elements or characters an object, array or string has",
               RunLength);
}

Command Type(CLI::App& program) {
    return New(program, "type",
               "Prints the kind of a value: object, array, string, number, boolean or null",
               RunType);
}

}  // namespace tool
