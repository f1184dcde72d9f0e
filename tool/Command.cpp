#include "Command.h"

#include <memory>
#include <utility>

#include "Input.h"

namespace tool {
namespace {

constexpr char kItemPaths[] =
    "Item paths: / is the root, /berths/1/number a member of the first element of an array.\n"
    "Inside a key, a slash is written ~/ and a tilde ~0. With --pointer, positions count from 0,\n"
    "a slash inside a key is ~1, and the root is the empty text.";

/// CLI11's, but for the operands: they are shown as we say.
class HelpFormatter : public CLI::Formatter {
public:
    explicit HelpFormatter(std::string whatIsShown) : operands(std::move(whatIsShown)) {
        label("TEXT", "");
        label("REQUIRED", "");
        label("Positionals", "Operands");
    }
    std::string make_usage(const CLI::App*, std::string name) const override {
        return "Usage: " + name + " " + operands + " [OPTIONS]\n";
    }
    std::string make_option_opts(const CLI::Option* option) const override {
        const std::string type = get_label(option->get_type_name());
        return type.empty() ? "" : " " + type;
    }

private:
    std::string operands;
};

/// Gives every operand its value where FILE, the first, was left out.
void LeaveOutFile(InputOptions& input, const std::vector<Operand>& operands, size_t given) {
    if (given > operands.size()) return;
    if (given < operands.size()) throw CLI::RequiredError(operands[given].name);
    for (size_t i = operands.size(); i-- > 1;) operands[i].value = operands[i - 1].value;
    operands[0].value = std::exchange(input.file, "-");
}

}  // namespace

CLI::App* AddCommand(CLI::App& program, const std::string& name, const std::string& operands,
                     const std::string& description) {
    CLI::App* const command = program.add_subcommand(name, description);
    command->group("Commands");
    command->formatter(std::make_shared<HelpFormatter>(operands));
    return command;
}

void InputOptions::Read(Events& events) const { Input(file).Read(events, ansi); }

void AddAnsi(CLI::App& command, bool& ansi) {
    command.add_flag("--ansi", ansi, "Read text that is not UTF-8 in the ANSI code page");
}

void AddInput(CLI::App& command, InputOptions& input, const std::vector<Operand>& operands) {
    std::vector<CLI::Option*> added = {command.add_option(
        "FILE", input.file,
        "A JSON file in UTF-8, UTF-16 or UTF-32; without it, or for -, the standard input")};
    for (const Operand& operand : operands)
        added.push_back(command.add_option(operand.name, operand.value, operand.description));
    AddAnsi(command, input.ansi);
    if (operands.empty()) return;
    command.parse_complete_callback([&input, operands, added] {
        size_t given = 0;
        for (const CLI::Option* option : added) given += option->count();
        LeaveOutFile(input, operands, given);
    });
}

ItemPath PathOptions::Parsed() const { return {path, Syntax()}; }

void AddPathSyntax(CLI::App& command, PathOptions& path, const std::string& more) {
    command.add_flag("--pointer", path.isPointer, "PATH is a JSON Pointer (RFC 6901)");
    command.footer(kItemPaths + (more.empty() ? "" : "\n" + more));
}

CLI::Option* AddOutput(CLI::App& command, std::string& out) {
    return command
        .add_option("-o,--output", out,
                    "The file to write; without it, or for -, the standard output")
        ->type_name("OUT");
}

void AddForm(CLI::App& command, TextForm& form) {
    constexpr unsigned kUsual = 4, kMost = 32;
    CLI::Option* const indent =
        command
            .add_option("--indent", form.indent, "Indent by N spaces a level, 4 unless N is given")
            ->expected(0, 1)
            ->default_str(std::to_string(kUsual))
            ->check(CLI::Range(1u, kMost).description(""))
            ->type_name("[N]");
    command
        .add_flag_callback(
            "--tabs",
            [&form] {
                form.indentWith = '\t';
                form.indent = 1;
            },
            "Indent by a tab a level")
        ->excludes(indent);
    command.add_flag("--sort-keys", form.sortKeys,
                     "Write the members of every object in the order of their keys");
    command.add_flag("--bom", form.mark, "Begin with a byte-order mark");
}

}  // namespace tool
