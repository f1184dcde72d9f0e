#include <algorithm>
#include <cstdio>

#include "Commands.h"
#include "Failure.h"
#include "Reduce.h"

namespace replay {
namespace {

/// What may be done to find the smallest log.
constexpr Effort kEffort = {5000, 1'000'000'000};

void Add(const Calls& calls, uint32_t index, std::vector<const RecordHeader*>& records) {
    const Call& call = calls.all[index];
    records.push_back(call.begin);
    for (uint32_t inside = call.firstInside; inside != kNone; inside = calls.all[inside].next)
        Add(calls, inside, records);
    if (call.end) records.push_back(call.end);
}

}  // namespace

int Cut(const CutOptions& options) {
    const Session session(options.log, options.library);
    const Log& log = session.log;
    const Calls& calls = session.calls;
    Player player(session);
    for (const uint32_t call : calls.outer) {
        player.Play(call);
        if (!player.differences.empty()) break;
    }
    if (player.differences.empty()) throw tool::Failure{options.log + L": there is no difference"};
    const auto needed = Reduction(session, player.differences.front()).Find(kEffort);
    std::vector<const RecordHeader*> records;
    for (const uint32_t call : needed) Add(calls, call, records);
    WriteLog(options.output, log.Header(), log.NanosecondsPerTick(), records, false);
    std::printf("%zu of %zu calls\n", needed.size(), calls.outer.size());
    return kGood;
}

int Pack(const std::wstring& name, const std::wstring& output, bool timeless) {
    const Log log(name);
    WriteLog(output, log.Header(), log.NanosecondsPerTick(), log.Records(), timeless);
    return kGood;
}

}  // namespace replay
