#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

namespace tool {

/// A command of the program: its part of the command line, and what it does, which returns the exit
/// code.
struct Command {
    CLI::App* line;
    std::function<int()> run;
};

constexpr int kGood = 0;
constexpr int kBad = 1;     ///< the data is bad, or does not exist
constexpr int kMisuse = 2;  ///< the call is wrong, or the library is missing

// Each adds itself to the program.

Command Convert(CLI::App& program);
Command Format(CLI::App& program);
Command Get(CLI::App& program);
Command Inspect(CLI::App& program);
Command Merge(CLI::App& program);
Command Set(CLI::App& program);
Command Validate(CLI::App& program);

/// What the help of a command says about its PATH.
constexpr char kItemPaths[] =
    "Item paths: / is the root, /berths/1/number a member of the first element of an array.\n"
    "Inside a key, a slash is written ~/ and a tilde ~0.";

/// The FILE that most commands have.
void AddInput(CLI::App& command, std::string& file);
/// The option -o; without it the output goes to the standard output.
CLI::Option* AddOutput(CLI::App& command, std::string& out);

}  // namespace tool
