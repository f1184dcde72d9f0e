#include "Calls.h"

#include <algorithm>
#include <unordered_map>

namespace replay {
namespace {

/// Calls that are inside of each other deeper than this never returned. (Going through the calls of
/// a damaged log must not take all of the stack.)
constexpr size_t kDeepest = 200;

bool IsBeginning(Event event) { return event == Event::kCall || event == Event::kDelegateCall; }

/// Whether a record ends a call.
bool Ends(const RecordHeader& record, const Call& call) {
    const RecordHeader& begin = *call.begin;
    const bool ofDelegate = record.event > Event::kThrown;
    return ofDelegate == call.IsOfDelegate() && begin.interface == record.interface &&
           begin.slot == record.slot && begin.object == record.object;
}

}  // namespace

uint32_t Call::Object() const {
    if (!IsFactory()) return begin->object;
    return end ? static_cast<uint32_t>(Values(end).Next().number) : 0;
}

Calls::Calls(const Log& log) {
    std::unordered_map<uint32_t, std::vector<uint32_t>> open;  // by thread, the outermost first
    for (const RecordHeader* record : log.Records()) {
        std::vector<uint32_t>& stack = open[record->thread];
        if (IsBeginning(record->event))
            Begin(record, stack);
        else
            End(record, stack);
    }
}

void Calls::Begin(const RecordHeader* record, std::vector<uint32_t>& openCalls) {
    const auto call = static_cast<uint32_t>(all.size());
    all.push_back({record});
    // Hosts call from delegates, and delegates are called from operations. Where it is not so, the
    // open call never returned: its thread was ended, and another one has its number.
    while (!openCalls.empty() && all[openCalls.back()].IsOfDelegate() == all[call].IsOfDelegate())
        openCalls.pop_back();
    if (openCalls.size() >= kDeepest) openCalls.clear();
    if (openCalls.empty()) {
        outer.push_back(call);
    } else {
        Call& around = all[openCalls.back()];
        (around.firstInside == kNone ? around.firstInside : all[around.lastInside].next) = call;
        around.lastInside = call;
        all[call].around = openCalls.back();
    }
    openCalls.push_back(call);
}

void Calls::End(const RecordHeader* record, std::vector<uint32_t>& openCalls) {
    const auto ended = std::find_if(openCalls.rbegin(), openCalls.rend(),
                                    [&](uint32_t call) { return Ends(*record, all[call]); });
    if (ended == openCalls.rend()) return;
    all[*ended].end = record;
    openCalls.erase(ended.base() - 1, openCalls.end());
}

}  // namespace replay
