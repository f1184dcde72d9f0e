// jsontool validate: whether files are JSON.

#include <cstdio>
#include <memory>
#include <vector>

#include "Command.h"
#include "Files.h"
#include "Input.h"
#include "Output.h"
#include "Text.h"

namespace tool {

using namespace QXJSON::hosting;

namespace {

struct Options {
    std::vector<std::string> names;
    std::string pattern = "*.json";
};

/// A line on the console that shows the progress; nothing where there is no console.
class Progress {
public:
    Progress() {
        DWORD mode = 0;
        shown = GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
    }
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(size_t files, size_t bad) {
        const ULONGLONG now = GetTickCount64();
        if (!shown || now - last < kPause) return;
        last = now;
        visible = true;
        std::fprintf(stderr, "\r%zu files, %zu bad", files, bad);
    }
    /// Removes the line, so that something else can be printed.
    void Clear() {
        if (visible) std::fprintf(stderr, "\r%40s\r", "");
        visible = false;
    }

private:
    static constexpr ULONGLONG kPause = 100;  // milliseconds
    bool shown = false;
    bool visible = false;
    ULONGLONG last = 0;
};

class Validation {
public:
    void Check(const Input& input) {
        ++files;
        if (const auto wrong = input.LoadInto(parser)) {
            ++bad;
            Tell(*wrong);
        }
        progress.Show(files, bad);
    }

    /// Takes note of a folder whose files cannot be checked.
    void Miss(const std::wstring& folder) {
        ++missed;
        Tell(folder + L": the folder cannot be listed");
    }

    int Conclude() {
        progress.Clear();
        Print(std::to_wstring(files) + (files == 1 ? L" file, " : L" files, ") +
              std::to_wstring(bad) + L" bad" +
              (missed > 0 ? L", " + std::to_wstring(missed) + L" not listed\n" : L"\n"));
        return bad + missed > 0 ? kBad : kGood;
    }

private:
    void Tell(const std::wstring& finding) {
        progress.Clear();
        Print(finding + L"\n");
        Flush();
    }

    Parser parser = NewParser();
    Progress progress;
    size_t files = 0, bad = 0;
    size_t missed = 0;  ///< folders
};

int Run(const Options& options) {
    Validation validation;
    for (const std::string& name : options.names) {
        const std::wstring wide = FromUtf8(name);
        if (IsFolder(wide)) {
            const FoundFiles found = FilesBelow(wide, FromUtf8(options.pattern));
            for (const std::wstring& file : found.files) validation.Check(Input(file));
            for (const std::wstring& folder : found.unlisted) validation.Miss(folder);
        } else {
            validation.Check(Input(name));
        }
    }
    return validation.Conclude();
}

}  // namespace

Command Validate(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* const line = program.add_subcommand(
        "validate",
        "Reports which files are not JSON, and where; the exit code is 1 if there are any");
    line->add_option(
            "FILE_OR_FOLDER", options->names,
            "JSON files; folders, which are searched with all folders below them; - for the "
            "standard input")
        ->required();
    line->add_option("--pattern", options->pattern,
                     "Which files in folders to check: a name with * and ?")
        ->capture_default_str();
    line->footer(
        "A line for each failure: FILE:OFFSET: MESSAGE (line LINE, column COLUMN)\n"
        "The offset is where reading stopped, in bytes; the line and the column, in characters "
        "from "
        "1, are\nthose of the last character that was read. Text that is not UTF-8, UTF-16 or "
        "UTF-32 "
        "is read in the\nANSI code page; its offsets count characters.");
    return {line, [options] { return Run(*options); }};
}

}  // namespace tool
