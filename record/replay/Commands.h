#pragma once

#include <cstdint>
#include <string>

namespace replay {

constexpr int kGood = 0;
constexpr int kBad = 1;     ///< an answer differs, or the log cannot be read
constexpr int kMisuse = 2;  ///< the call is wrong, or the library is missing

// The commands. Each returns the exit code.

struct RunOptions {
    std::wstring log;
    std::wstring library;  ///< empty: that beside the program
    bool all = false;      ///< counts all differences, where otherwise the first ends the replay
};
int Run(const RunOptions& options);

struct ShowOptions {
    std::wstring log;
    uint32_t object = 0;  ///< 0: all
    uint64_t from = 0;
    uint64_t count = UINT64_MAX;
};
int Show(const ShowOptions& options);

int Stats(const std::wstring& log);

struct CutOptions {
    std::wstring log;
    std::wstring library;
    std::wstring output;
};
int Cut(const CutOptions& options);

/// Writes a log again, compressed; without its times, threads and processes it is smaller, and the
/// same wherever the same calls were recorded.
int Pack(const std::wstring& log, const std::wstring& output, bool timeless);

}  // namespace replay
