#include "Progress.h"

#include <windows.h>

#include <cstdio>

#include "Text.h"

namespace tool {
namespace {

class ProgressLine {
public:
    /// Whether the line is to be shown, or shown again, now.
    bool IsDue() {
        if (!isConsole) return false;
        const ULONGLONG now = GetTickCount64();
        if (now - start < kSilence || now - last < kPause) return false;
        last = now;
        return true;
    }
    void Show(const std::string& text) {
        Clear();
        std::fprintf(stderr, "\r%.*s", static_cast<int>(kWidth), text.c_str());
        isVisible = true;
    }
    void Clear() {
        if (isVisible) std::fprintf(stderr, "\r%*s\r", static_cast<int>(kWidth), "");
        isVisible = false;
    }

    std::wstring label;
    uint64_t size = 0, read = 0;

private:
    static bool HasConsole() {
        DWORD mode = 0;
        return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
    }

    static constexpr ULONGLONG kSilence = 2000;  // milliseconds
    static constexpr ULONGLONG kPause = 100;
    static constexpr size_t kWidth = 79;
    const bool isConsole = HasConsole();
    const ULONGLONG start = GetTickCount64();
    ULONGLONG last = 0;
    bool isVisible = false;
};

ProgressLine& Line() {
    static ProgressLine line;
    return line;
}

std::string InMegabytes(uint64_t bytes) { return std::to_string(bytes >> 20) + " MiB"; }

}  // namespace

void ProgressOf(const std::wstring& label, uint64_t size) {
    Line().label = label;
    Line().size = size;
    Line().read = 0;
}

void ProgressBy(size_t bytes) {
    ProgressLine& line = Line();
    line.read += bytes;
    if (!line.IsDue()) return;
    const std::string total = line.size > 0 ? " of " + InMegabytes(line.size) : "";
    line.Show(InMegabytes(line.read) + total + " read: " + ToUtf8(line.label));
}

void ProgressOfFiles(size_t files, size_t bad) {
    if (Line().IsDue())
        Line().Show(std::to_string(files) + " files, " + std::to_string(bad) + " bad");
}

void ProgressOfCalls(uint64_t calls, size_t differences) {
    if (Line().IsDue())
        Line().Show(std::to_string(calls) + " calls, " + std::to_string(differences) +
                    " differences");
}

void ClearProgress() { Line().Clear(); }

}  // namespace tool
