#pragma once

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

#include "Files.h"
#include "Input.h"

namespace tool {

/// The lines of a FILE of the command line, each of which is a document (NDJSON), in UTF-8. Blank
/// lines are passed over. Only one line is in memory at a time.
class Lines {
public:
    explicit Lines(const std::string& argument);

    /// The next document; nothing at the end. Throws Failure where the file cannot be read.
    std::optional<Input> Next();

private:
    bool ReadLine(std::string& line);

    std::wstring label;
    OpenFile file;
    std::FILE* stream;
    std::string block;
    size_t at = 0;  ///< in the block
    uint64_t number = 0;
};

}  // namespace tool
