#pragma once

#include <optional>
#include <string>

#include "Library.h"

namespace tool {

/// A FILE of the command line: a file, or the standard input, which is named "-" and read once.
class Input {
public:
    explicit Input(const std::string& argument);
    /// A file by its name.
    explicit Input(const std::wstring& fileName) : name(fileName) {}

    /// Its name in messages.
    std::wstring Label() const;
    /// Loads it. Returns what is wrong, in one line, or nothing.
    std::optional<std::wstring> LoadInto(const QXJSON::hosting::Parser& parser) const;

    // The document in it; Failure is thrown where there is none.
    QXJSON::hosting::Parser Parse() const;
    QXJSON::hosting::Generator Generate() const;

private:
    std::wstring Diagnosis(const QXJSON::hosting::Parser& parser, int result) const;

    std::wstring name;
    std::optional<std::string> standardInput;
};

}  // namespace tool
