#include "Command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "Failure.h"
#include "Input.h"
#include "Output.h"
#include "Text.h"

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

std::string Version() {
    return "jsontool " JSONTOOL_VERSION ", Json_Dll " + ToUtf8(LibraryVersion());
}

}  // namespace

int RunProgram(std::vector<std::string> arguments) {
    CLI::App program{"Inspects, checks and changes JSON documents with Json_Dll.dll."};
    program.name("jsontool");
    program.allow_windows_style_options(false);  // item paths begin with a slash
    program.set_version_flag("--version", Version);
    program.require_subcommand(1);
    program.get_formatter()->label("SUBCOMMAND", "COMMAND");
    const Command commands[] = {Inspect(program), Get(program),     Keys(program),
                                Length(program),  Type(program),    Validate(program),
                                Format(program),  Convert(program), Set(program),
                                Delete(program),  Merge(program),   Diff(program)};
    // After the commands, which would otherwise inherit it.
    program.footer(
        "Exit codes: 0 success, 1 the data is bad, does not exist or differs, 2 the call is "
        "wrong.\n"
        "jsontool COMMAND --help explains a command.");
    if (arguments.empty()) throw Misuse{L"a command is required (see --help)"};
    const std::string first = arguments.front();
    const auto isNamedSo = [&](const CLI::App* command) { return command->check_name(first); };
    if (first[0] != '-' && program.get_subcommands(isNamedSo).empty())
        throw Misuse{FromUtf8(first) + L": no such command (see --help)"};
    try {
        std::reverse(arguments.begin(), arguments.end());  // the order that CLI11 expects
        program.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return program.exit(error);  // --help, --version
        throw Misuse{FromUtf8(error.what()) + L" (see --help)"};
    }
    int code = kMisuse;
    for (const Command& command : commands)
        if (command.line->parsed()) code = command.run();
    Flush();
    return code;
}

// ---- Parts of a command line -------------------------------------------------------------------

CLI::App* AddCommand(CLI::App& program, const std::string& name, const std::string& operands,
                     const std::string& description) {
    CLI::App* const command = program.add_subcommand(name, description);
    command->group("Commands");
    command->formatter(std::make_shared<HelpFormatter>(operands));
    return command;
}

void AddFooter(CLI::App& command, const std::string& text) { command.footer(text); }

void AddOperand(CLI::App& command, const Operand& operand, Need need) {
    command.add_option(operand.name, operand.value, operand.description)
        ->required(need == Need::kRequired);
}

void AddOperands(CLI::App& command, const char* name, std::vector<std::string>& values,
                 unsigned least, const char* description) {
    CLI::Option* const option = command.add_option(name, values, description);
    if (least > 0) option->required()->expected(static_cast<int>(least), -1);
}

void AddFlag(CLI::App& command, const char* name, bool& value, const char* description) {
    command.add_flag(name, value, description);
}

void AddText(CLI::App& command, const Option& option, std::string& value) {
    command.add_option(option.name, value, option.description)->type_name(option.what);
}

void AddNumber(CLI::App& command, const Option& option, unsigned& value, unsigned least,
               unsigned most) {
    command.add_option(option.name, value, option.description)
        ->check(CLI::Range(least, most).description(""))
        ->type_name(option.what);
}

void AddChoice(CLI::App& command, const Option& option, std::string& value,
               const std::vector<std::string>& words, Need need) {
    command.add_option(option.name, value, option.description)
        ->required(need == Need::kRequired)
        ->type_name(option.what)
        ->transform(CLI::IsMember(words, CLI::ignore_case).description(""));
}

// ---- What commands have in common --------------------------------------------------------------

void InputOptions::Read(Events& events) const { Input(file).Read(events, ansi); }

void AddAnsi(CLI::App& command, bool& ansi) {
    AddFlag(command, "--ansi", ansi, "Read text that is not UTF-8 in the ANSI code page");
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
    AddFlag(command, "--pointer", path.isPointer, "PATH is a JSON Pointer (RFC 6901)");
    command.footer(kItemPaths + (more.empty() ? "" : "\n" + more));
}

void AddOutput(CLI::App& command, std::string& out, Need need) {
    const bool required = need == Need::kRequired;
    command
        .add_option("-o,--output", out,
                    required ? "The file to write; - for the standard output"
                             : "The file to write; without it, or for -, the standard output")
        ->required(required)
        ->type_name("OUT");
}

void AddColours(CLI::App& command, Colours& colours) {
    const auto when = std::make_shared<std::string>("auto");
    AddChoice(command,
              {"--color", "WHEN",
               "Colours on the standard output: always, never, or auto, which is on a console"},
              *when, {"auto", "always", "never"}, Need::kOptional);
    command.final_callback([&colours, when] { colours = Colours(*when); });
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
    AddFlag(command, "--sort-keys", form.sortKeys,
            "Write the members of every object in the order of their keys");
    AddFlag(command, "--bom", form.mark, "Begin with a byte-order mark");
    AddColours(command, form.colours);
}

}  // namespace tool
