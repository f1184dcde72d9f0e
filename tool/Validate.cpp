// jsontool validate: whether files are JSON.

#include <memory>
#include <utility>
#include <vector>

#include "Command.h"
#include "Files.h"
#include "Findings.h"
#include "Input.h"
#include "Lines.h"
#include "Output.h"
#include "Progress.h"
#include "Text.h"

namespace tool {

using QXJSON::hosting::Parser;

namespace {

struct Options {
    std::vector<std::string> names;
    std::string pattern = "*.json";
    bool strict = false;
    bool lines = false;
};

std::string Counted(size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

class Validation {
public:
    Validation(bool strictly, std::string whatIsCounted)
        : strict(strictly), what(std::move(whatIsCounted)) {}

    void Check(const Input& input) {
        ++files;
        if (!IsGood(input)) ++bad;
        ProgressOfFiles(files, bad);
    }

    /// Takes note of a folder whose files cannot be checked.
    void Miss(const std::wstring& folder) {
        ++missed;
        Tell(folder + L": the folder cannot be listed");
    }

    int Conclude() {
        ClearProgress();
        Print(Counted(files, what) + ", " + std::to_string(bad) + " bad" +
              (warnings > 0 ? ", " + Counted(warnings, "warning") : "") +
              (missed > 0 ? ", " + std::to_string(missed) + " not listed\n" : "\n"));
        return bad + missed > 0 ? kBad : kGood;
    }

private:
    bool IsGood(const Input& input) {
        const auto wrong = input.LoadInto(parser);
        if (wrong && !(strict && input.HoldsScalar())) {
            Tell(*wrong);
            return false;
        }
        const std::vector<Oddity> oddities = input.Oddities();
        for (const Oddity& oddity : oddities) {
            if (!strict) ++warnings;
            Tell(input.Label() + L":" + std::to_wstring(oddity.offset) +
                 (strict ? L": " : L": warning: ") + oddity.what);
        }
        return !strict || oddities.empty();
    }

    void Tell(const std::wstring& finding) {
        ClearProgress();
        Print(finding + L"\n");
        Flush();
    }

    const bool strict;
    const std::string what;
    const Parser parser = NewParser();
    size_t files = 0, bad = 0, warnings = 0;
    size_t missed = 0;  ///< folders
};

/// A file, or every line of it.
void CheckFile(Validation& validation, const Options& options, const std::string& name) {
    if (!options.lines) {
        validation.Check(Input(name));
        return;
    }
    Lines lines(name);
    while (const auto line = lines.Next()) validation.Check(*line);
}

int Run(const Options& options) {
    Validation validation(options.strict, options.lines ? "document" : "file");
    for (const std::string& name : options.names) {
        const std::wstring wide = FromUtf8(name);
        if (IsFolder(wide)) {
            const FoundFiles found = FilesBelow(wide, FromUtf8(options.pattern));
            for (const std::wstring& file : found.files)
                CheckFile(validation, options, ToUtf8(file));
            for (const std::wstring& folder : found.unlisted) validation.Miss(folder);
        } else {
            CheckFile(validation, options, name);
        }
    }
    return validation.Conclude();
}

}  // namespace

Command Validate(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    options->names = {"-"};
    CLI::App* const line = AddCommand(
        program, "validate", "[FILE_OR_FOLDER...]",
        "Reports which files are not JSON, and where; the exit code is 1 if there are any");
    AddOperands(*line, "FILE_OR_FOLDER", options->names, 0,
                "JSON files; folders, which are searched with all folders below them; without "
                "any, or for -, the standard input");
    AddText(*line,
            {"--pattern", "NAME", "Which files in folders to check: a name with * and ? (*.json)"},
            options->pattern);
    AddFlag(*line, "--strict", options->strict,
            "Accept what RFC 8259 calls JSON, and nothing else");
    AddFlag(*line, "--lines", options->lines, "Every line is a document (NDJSON)");
    AddFooter(
        *line,
        "A line for each failure: FILE:OFFSET: MESSAGE (line LINE, column COLUMN)\n"
        "The offset is where reading stopped, in bytes; the line and the column, in characters "
        "from\n1, are those of the last character that was read. Text that is not UTF-8, UTF-16 or "
        "UTF-32\nis read in the ANSI code page; its offsets count characters.\n"
        "What the library reads although it is not JSON is a warning, and with --strict a failure: "
        "NaN\nand infinities, names that are repeated in their object, text in the ANSI code page, "
        "text after\na U+0000. The root must be an object or an array, but not with --strict.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
