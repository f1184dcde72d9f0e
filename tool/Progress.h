#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tool {

// A line on the console that says how far the work has come. It appears when the work has taken two
// seconds, on the standard error, and only if that is a console.

/// What is read from now on, and how many bytes it has; 0 where that is not known.
void ProgressOf(const std::wstring& label, uint64_t size);
/// So many bytes of it were read.
void ProgressBy(size_t bytes);
/// How many files were checked.
void ProgressOfFiles(size_t files, size_t bad);
/// How many calls were repeated.
void ProgressOfCalls(uint64_t calls, size_t differences);
/// Removes the line, so that something else can be printed.
void ClearProgress();

}  // namespace tool
