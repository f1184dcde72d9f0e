#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "ByteSink.h"
#include "Events.h"
#include "Files.h"
#include "JsonWriter.h"

namespace tool {

/// Writes a text to the standard output, in UTF-8.
void Print(std::string_view text);
void Print(std::wstring_view text);
/// Flushes the standard output, or throws Failure.
void Flush();

/// An OUT of the command line: a file, or the standard output, which is named "-". A file is
/// replaced only after everything has been written, and otherwise stays as it was; the standard
/// output gets a document only when all of it is there. Failure is thrown where anything fails.
class Output {
public:
    Output(const std::string& out, const TextForm& textForm);

    /// Writes a document, whose events a function produces; one that follows another begins a line.
    void Write(const std::function<void(Events&)>& produce);
    /// All is written.
    void Finish();

private:
    bool IsUtf16() const;

    TextForm form;
    std::optional<ReplacementFile> file;
    ByteSink sink;
    bool hasDocument = false;
};

}  // namespace tool
