#include <cstdio>
#include <map>

#include "Commands.h"
#include "Describe.h"
#include "Progress.h"
#include "Reduce.h"
#include "Text.h"

namespace replay {
namespace {

/// What may be done to find the calls that matter to a difference.
constexpr Effort kEffort = {300, 10'000'000};
/// Of the calls before a difference, so many are printed.
constexpr size_t kMostLines = 40;

std::string CountOf(uint64_t count, const char* thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

void Print(const Calls& calls, const Difference& difference) {
    const Call& call = calls.all[difference.call];
    std::printf("%u %s\n    now: %s\n", difference.call, Line(call).c_str(),
                difference.what.c_str());
}

void PrintHistory(const Calls& calls, const std::vector<uint32_t>& history) {
    if (history.size() < 2) return;
    std::printf("  after\n");
    const size_t count = history.size() - 1;
    const size_t skipped = count > kMostLines ? count - kMostLines : 0;
    if (skipped > 0) std::printf("    ... %s\n", CountOf(skipped, "call").c_str());
    for (size_t i = skipped; i < count; ++i)
        std::printf("    %u %s\n", history[i], Line(calls.all[history[i]]).c_str());
}

/// How many differences each operation has.
void PrintSums(const Calls& calls, const std::vector<Difference>& differences) {
    std::map<std::string, uint64_t> sums;
    for (const Difference& difference : differences) {
        const RecordHeader* const begin = calls.all[difference.call].begin;
        ++sums[NameOf(*begin)];
    }
    std::printf("differences by operation:\n");
    for (const auto& [name, count] : sums)
        std::printf("%8llu %s\n", static_cast<unsigned long long>(count), name.c_str());
}

/// The first difference, and the calls that lead to it.
void PrintFirst(const Session& session, const Difference& first) {
    Print(session.calls, first);
    // What follows takes its time.
    std::fflush(stdout);
    PrintHistory(session.calls, Reduction(session, first).Find(kEffort));
}

void PrintCounts(const Player& player) {
    std::printf("%s repeated, %s", CountOf(player.played, "call").c_str(),
                CountOf(player.differences.size(), "difference").c_str());
    if (player.skipped > 0)
        std::printf(", %s that cannot be repeated", CountOf(player.skipped, "call").c_str());
    if (player.unfinished > 0)
        std::printf(", %s that never returned", CountOf(player.unfinished, "call").c_str());
    std::printf("\n");
}

/// Repeats the calls up to the first difference, or all; then the differences are printed as they
/// are found.
void PlayAll(Player& player, const Calls& calls, const RunOptions& options) {
    size_t printed = 0;
    tool::ProgressOf(options.log, calls.all.size());
    for (const uint32_t call : calls.outer) {
        player.Play(call);
        tool::ProgressOfCalls(player.played, player.differences.size());
        if (!options.all && !player.differences.empty()) break;
        for (; printed < player.differences.size() && printed < kMostLines; ++printed) {
            tool::ClearProgress();
            Print(calls, player.differences[printed]);
        }
    }
    tool::ClearProgress();
}

}  // namespace

int Run(const RunOptions& options) {
    const Session session(options.log, options.library);
    const Calls& calls = session.calls;
    Player player(session);
    PlayAll(player, calls, options);
    if (!player.differences.empty()) {
        if (options.all)
            PrintSums(calls, player.differences);
        else
            PrintFirst(session, player.differences.front());
    }
    PrintCounts(player);
    if (session.log.Header().flags & record::kStopped)
        std::printf("the log reached its limit: what was called later is not in it\n");
    return player.differences.empty() ? kGood : kBad;
}

}  // namespace replay
