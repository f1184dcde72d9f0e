#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ByteStream.h"
#include "Events.h"
#include "Library.h"
#include "Reading.h"

namespace tool {

/// Something in a text that the library reads although it is not JSON.
struct Oddity {
    uint64_t offset;    ///< how much was read, up to and including the character in question
    std::wstring what;  ///< in words, with the line and column
};

/// A FILE of the command line: a file, or the standard input, which is named "-" and read once.
class Input {
public:
    explicit Input(const std::string& argument);
    /// A file by its name.
    explicit Input(const std::wstring& fileName) : name(fileName) {}

    /// A text in memory.
    Input(std::string text, std::wstring label) : name(std::move(label)), memory(std::move(text)) {}

    /// Its name in messages.
    const std::wstring& Label() const { return name; }

    /// Has the library load it. Returns what is wrong, in one line, or nothing.
    std::optional<std::wstring> LoadInto(const QXJSON::hosting::Parser& parser) const;

    /// Whether it holds a value that is neither an object nor an array, which is JSON, though the
    /// library refuses it.
    bool HoldsScalar() const;
    /// The first of each kind, in a text that is otherwise good.
    std::vector<Oddity> Oddities() const;

    /// Reads the document in it. Throws Failure for a document that the library would not load, and
    /// for text in the ANSI code page unless `fromAnsi` is set.
    void Read(Events& events, bool fromAnsi) const;

private:
    /// Gives its bytes, as a stream, to a function. Throws Failure where they cannot be read.
    void Open(const std::function<void(ByteStream&)>& use) const;
    ReadingResult Scan(Events& events) const;
    /// What it is in the ANSI code page.
    std::wstring AnsiText() const;

    // What is wrong, in words.
    std::wstring Diagnosis(const QXJSON::hosting::Parser& parser, int result) const;
    std::wstring Remark(uint64_t offset) const;
    std::wstring PositionInBytes(uint64_t offset) const;

    std::wstring name;                  ///< of the file, or of the text in messages
    std::optional<std::string> memory;  ///< what it consists of, if it is not a file
};

}  // namespace tool
