#include <cstdio>

#include "Commands.h"
#include "Describe.h"

namespace replay {
namespace {

class Lines {
public:
    Lines(const Calls& calls, const Log& log, const ShowOptions& options)
        : calls(calls), log(log), options(options) {}

    void Show(uint32_t index, int depth) {
        const Call& call = calls.all[index];
        const bool wanted = options.object == 0 || call.Object() == options.object;
        if (wanted && index >= options.from && shown < options.count) {
            ++shown;
            std::printf("%u %*s%s%s\n", index, 2 * depth, "", Line(call).c_str(),
                        Time(call).c_str());
        }
        for (uint32_t inside = call.firstInside; inside != kNone; inside = calls.all[inside].next)
            Show(inside, depth + 1);
    }

private:
    std::string Time(const Call& call) const {
        if (!call.end || log.NanosecondsPerTick() <= 0) return "";
        const double ticks = static_cast<double>(call.end->ticks - call.begin->ticks);
        char text[64];
        std::snprintf(text, sizeof text, "  [thread %u, %.2f us]", call.begin->thread,
                      ticks * log.NanosecondsPerTick() / 1000);
        return text;
    }

    const Calls& calls;
    const Log& log;
    const ShowOptions& options;
    uint64_t shown = 0;
};

}  // namespace

int Show(const ShowOptions& options) {
    const Log log(options.log);
    const Calls calls(log);
    Lines lines(calls, log, options);
    for (const uint32_t call : calls.outer) lines.Show(call, 0);
    return kGood;
}

}  // namespace replay
