#include "Command.h"

namespace tool {

void AddInput(CLI::App& command, std::string& file) {
    command
        .add_option("FILE", file,
                    "A JSON file in UTF-8, UTF-16, UTF-32 or the ANSI code page; - for the "
                    "standard input")
        ->required();
}

CLI::Option* AddOutput(CLI::App& command, std::string& out) {
    return command
        .add_option("-o,--output", out,
                    "The file to write, with a byte-order mark; - for the standard output")
        ->type_name("OUT");
}

}  // namespace tool
