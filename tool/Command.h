#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Events.h"
#include "ItemPath.h"
#include "JsonWriter.h"

// CLI11 reads the command line. Command.cpp alone includes it, because compiling it takes longer
// than compiling everything else.
namespace CLI {
class App;
}

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

/// Runs the command that the arguments name, and returns the exit code. Throws Misuse for arguments
/// that are not understood.
int RunProgram(std::vector<std::string> arguments);

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

// ---- Parts of a command line -------------------------------------------------------------------

/// Adds a command; its help shows these operands.
CLI::App* AddCommand(CLI::App& program, const std::string& name, const std::string& operands,
                     const std::string& description);
/// Adds what the help of a command ends with.
void AddFooter(CLI::App& command, const std::string& text);

enum class Need { kOptional, kRequired };

/// An operand.
struct Operand {
    const char* name;
    std::string& value;
    const char* description;
};
void AddOperand(CLI::App& command, const Operand& operand, Need need);
/// An operand that may be repeated: as often as it likes, but so often at least.
void AddOperands(CLI::App& command, const char* name, std::vector<std::string>& values,
                 unsigned least, const char* description);

/// An option; `what` names its value in the help.
struct Option {
    const char* name;
    const char* what;
    const char* description;
};
void AddFlag(CLI::App& command, const char* name, bool& value, const char* description);
void AddText(CLI::App& command, const Option& option, std::string& value);
void AddNumber(CLI::App& command, const Option& option, unsigned& value, unsigned least,
               unsigned most);
/// Takes one of these words, in any case, and gives it as it stands here.
void AddChoice(CLI::App& command, const Option& option, std::string& value,
               const std::vector<std::string>& words, Need need);

// ---- What commands have in common --------------------------------------------------------------

/// The FILE that most commands have, and how it is read.
struct InputOptions {
    std::string file = "-";
    bool ansi = false;

    /// Reads the document in it, or throws Failure.
    void Read(Events& events) const;
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

/// The option -o; where it may be left out, the output goes to the standard output.
void AddOutput(CLI::App& command, std::string& out, Need need = Need::kOptional);
/// The option --color.
void AddColours(CLI::App& command, Colours& colours);
/// The options for the form of the text that is written.
void AddForm(CLI::App& command, TextForm& form);

}  // namespace tool
