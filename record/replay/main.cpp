// jsonreplay: repeats what a host called, as Json_Dll_Record.dll recorded it, on any build of the
// library.

#include <fcntl.h>
#include <io.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "Commands.h"
#include "Failure.h"
#include "Progress.h"
#include "Text.h"

// Arguments are taken as they are: MinGW's start-up code must not expand wildcards.
extern "C" {
int _dowildcard = 0;
}

namespace {

using namespace replay;

void Complain(const std::string& message) {
    tool::ClearProgress();
    std::fflush(stdout);
    std::fprintf(stderr, "jsonreplay: %s\n", message.c_str());
}

/// The names of files, as they are on the command line.
struct Names {
    std::string log, library, output;
};

CLI::App* Add(CLI::App& program, Names& names, const char* name, const char* description,
              bool hasLibrary, bool hasOutput) {
    CLI::App* const command = program.add_subcommand(name, description);
    command->add_option("LOG", names.log, "A log of Json_Dll_Record.dll")->required();
    if (hasLibrary)
        command->add_option("--dll", names.library,
                            "The build to repeat the calls on (Json_Dll.dll beside this program)");
    if (hasOutput) command->add_option("-o,--output", names.output, "The log to write")->required();
    return command;
}

int RunProgram(std::vector<std::string> arguments) {
    CLI::App program{"Repeats what a host called of Json_Dll.dll, on any build of it."};
    program.name("jsonreplay");
    program.allow_windows_style_options(false);
    program.set_version_flag("--version", "jsonreplay " JSONREPLAY_VERSION);
    program.require_subcommand(1);
    Names names;
    RunOptions run;
    ShowOptions show;
    const CLI::App* const runs =
        Add(program, names, "run", "Repeats the calls and compares the answers", true, false);
    program.get_subcommand("run")->add_flag(
        "--all", run.all, "Count all differences, where otherwise the first one ends the replay");
    CLI::App* const shows = Add(program, names, "show", "Prints the calls", false, false);
    shows->add_option("--object", show.object, "Only the calls of this object");
    shows->add_option("--from", show.from, "Begin with the call of this number");
    shows->add_option("--count", show.count, "How many calls to print");
    const CLI::App* const stats = Add(
        program, names, "stats", "Prints the calls and the time of each operation", false, false);
    const CLI::App* const cut =
        Add(program, names, "cut", "Writes the smallest log with the first difference", true, true);
    CLI::App* const pack = Add(program, names, "pack", "Writes a log compressed", false, true);
    bool timeless = false;
    pack->add_flag("--timeless", timeless, "Leave out the times");
    program.footer(
        "Exit codes: 0 success, 1 an answer differs or the log is bad, 2 the call is wrong.\n"
        "jsonreplay COMMAND --help explains a command.");
    try {
        program.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return program.exit(error);  // --help, --version
        Complain(std::string(error.what()) + " (see --help)");
        return kMisuse;
    }
    const std::wstring log = tool::FromUtf8(names.log);
    const std::wstring library = tool::FromUtf8(names.library);
    const std::wstring output = tool::FromUtf8(names.output);
    if (runs->parsed()) return Run({log, library, run.all});
    if (shows->parsed()) return Show({log, show.object, show.from, show.count});
    if (stats->parsed()) return Stats(log);
    if (cut->parsed()) return Cut({log, library, output});
    if (pack->parsed()) return Pack(log, output, timeless);
    return kMisuse;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    _setmode(_fileno(stdout), _O_BINARY);
    try {
        // In the order that CLI11 expects: the last one first.
        std::vector<std::string> reversed;
        for (int i = count - 1; i > 0; --i) reversed.push_back(tool::ToUtf8(arguments[i]));
        return RunProgram(std::move(reversed));
    } catch (const tool::Misuse& misuse) {
        Complain(tool::ToUtf8(misuse.message));
        return kMisuse;
    } catch (const tool::Failure& failure) {
        Complain(tool::ToUtf8(failure.message));
    } catch (const std::exception& failure) {
        Complain(failure.what());
    }
    return kBad;
}
