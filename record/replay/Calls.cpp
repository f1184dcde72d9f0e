#include "Calls.h"

#include <algorithm>
#include <unordered_map>

namespace replay {
namespace {

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
        if (!IsBeginning(record->event)) {
            const auto ended = std::find_if(stack.rbegin(), stack.rend(), [&](uint32_t call) {
                return Ends(*record, all[call]);
            });
            if (ended == stack.rend()) continue;
            all[*ended].end = record;
            stack.erase(ended.base() - 1, stack.end());
            continue;
        }
        const auto call = static_cast<uint32_t>(all.size());
        all.push_back({record});
        if (stack.empty()) {
            outer.push_back(call);
        } else {
            Call& around = all[stack.back()];
            (around.firstInside == kNone ? around.firstInside : all[around.lastInside].next) = call;
            around.lastInside = call;
        }
        stack.push_back(call);
    }
}

}  // namespace replay
