// jsontool: inspects, checks and changes JSON documents from the command line.

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <exception>
#include <iostream>
#include <vector>

#include "Command.h"
#include "Failure.h"
#include "Library.h"
#include "Output.h"
#include "Progress.h"
#include "Text.h"

// Arguments are taken as they are: MinGW's start-up code must not expand wildcards.
extern "C" {
int _dowildcard = 0;
}

namespace {

using namespace tool;

/// Makes a console show UTF-8 while the program runs.
class ConsoleInUtf8 {
public:
    ConsoleInUtf8() : before(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    ~ConsoleInUtf8() { SetConsoleOutputCP(before); }
    ConsoleInUtf8(const ConsoleInUtf8&) = delete;
    ConsoleInUtf8& operator=(const ConsoleInUtf8&) = delete;

private:
    UINT before;
};

void Complain(const std::string& message) {
    ClearProgress();
    std::fprintf(stderr, "jsontool: %s\n", message.c_str());
}

std::string Version() {
    return "jsontool " JSONTOOL_VERSION ", Json_Dll " + ToUtf8(LibraryVersion());
}

/// The arguments in the order that CLI11 expects: the last one first.
std::vector<std::string> Arguments(int count, wchar_t** arguments) {
    std::vector<std::string> reversed;
    for (int i = count - 1; i > 0; --i) reversed.push_back(ToUtf8(arguments[i]));
    return reversed;
}

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
    const std::string& first = arguments.back();
    const auto isNamedSo = [&](const CLI::App* command) { return command->check_name(first); };
    if (first[0] != '-' && program.get_subcommands(isNamedSo).empty())
        throw Misuse{FromUtf8(first) + L": no such command (see --help)"};
    try {
        program.parse(arguments);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return program.exit(error);  // --help, --version
        Complain(std::string(error.what()) + " (see --help)");
        return kMisuse;
    }
    int code = kMisuse;
    for (const Command& command : commands)
        if (command.line->parsed()) code = command.run();
    Flush();
    return code;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    const ConsoleInUtf8 console;
    try {
        return RunProgram(Arguments(count, arguments));
    } catch (const Misuse& misuse) {
        Complain(ToUtf8(misuse.message));
        return kMisuse;
    } catch (const Failure& failure) {
        Complain(ToUtf8(failure.message));
    } catch (const std::exception& failure) {
        Complain(failure.what());
    }
    return kBad;
}
