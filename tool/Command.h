#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "Events.h"
#include "ItemPath.h"
#include "JsonWriter.h"

namespace tool {

/// A command of the program: its part of the command line, and what it does, which returns the exit
/// code.
struct Command {
    CLI::App* line;
    std::function<int()> run;
};

constexpr int kGood = 0;
constexpr int kBad = 1;     ///< the data is bad, does not exist, or differs
constexpr int kMisuse = 2;  ///< the call is wrong, or the library is missing

// Each adds itself to the program.

Command Convert(CLI::App& program);
Command Delete(CLI::App& program);
Command Diff(CLI::App& program);
Command Format(CLI::App& program);
Command Get(CLI::App& program);
Command Inspect(CLI::App& program);
Command Keys(CLI::App& program);
Command Length(CLI::App& program);
Command Merge(CLI::App& program);
Command Set(CLI::App& program);
Command Type(CLI::App& program);
Command Validate(CLI::App& program);

// ---- What commands have in common --------------------------------------------------------------

/// Adds a command; its help shows these operands.
CLI::App* AddCommand(CLI::App& program, const std::string& name, const std::string& operands,
                     const std::string& description);

/// The FILE that most commands have, and how it is read.
struct InputOptions {
    std::string file = "-";
    bool ansi = false;

    /// Reads the document in it, or throws Failure.
    void Read(Events& events) const;
};

/// What comes after FILE.
struct Operand {
    const char* name;
    std::string& value;
    const char* description;
};

void AddAnsi(CLI::App& command, bool& ansi);
/// Adds FILE, which may be left out, and then operands that may not.
void AddInput(CLI::App& command, InputOptions& input, const std::vector<Operand>& operands = {});

/// A PATH, and how it is written.
struct PathOptions {
    std::string path = "/";
    bool isPointer = false;

    ItemPath Parsed() const;
    PathSyntax Syntax() const { return isPointer ? PathSyntax::kPointer : PathSyntax::kItemPath; }
};

/// Adds what concerns the PATH of a command besides the operand.
void AddPathSyntax(CLI::App& command, PathOptions& path, const std::string& more = {});

/// The option -o; without it the output goes to the standard output.
CLI::Option* AddOutput(CLI::App& command, std::string& out);
/// The options for the form of the text that is written.
void AddForm(CLI::App& command, TextForm& form);

}  // namespace tool
