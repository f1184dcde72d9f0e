#include <algorithm>
#include <cstdio>
#include <map>

#include "Commands.h"
#include "Describe.h"
#include "OperationTable.h"

namespace replay {
namespace {

/// What the calls of an operation add up to.
struct Sum {
    std::string name;
    uint64_t calls = 0;
    uint64_t failed = 0;
    double time = 0;  ///< in nanoseconds, without that of the calls inside
    double longest = 0;
    uint64_t given = 0;  ///< bytes of texts, files and other data
    uint64_t returned = 0;
};

double TimeOf(const Call& call, double perTick) {
    return call.end ? static_cast<double>(call.end->ticks - call.begin->ticks) * perTick : 0;
}

/// The bytes of data in a record; `largest` is that of its values.
uint64_t DataOf(const RecordHeader* record, uint64_t& largest) {
    uint64_t size = 0;
    Values values(record);
    for (Value value = values.Next(); value.tag != Tag::kEnd; value = values.Next()) {
        uint64_t data = value.DataSize();
        if (value.tag == Tag::kFileSize) data = value.number;
        if (value.tag == Tag::kTextHash) data = 2 * uint64_t{value.count};
        if (value.tag == Tag::kBytesHash) data = value.count;
        largest = std::max(largest, data);
        size += data;
    }
    return size;
}

/// The sizes of what was loaded, by powers of ten.
class Documents {
public:
    void Add(uint64_t bytes) {
        size_t power = 0;
        for (uint64_t rest = bytes; rest >= 10 && power < kMost; rest /= 10) ++power;
        ++counts[power];
        ++documents;
        largest = std::max(largest, bytes);
        all += bytes;
    }
    void Print() const {
        if (documents == 0) return;
        std::printf("\n%llu documents loaded, %llu bytes, the largest has %llu\n", Long(documents),
                    Long(all), Long(largest));
        uint64_t power = 1;
        for (const uint64_t count : counts) {
            if (count > 0)
                std::printf("%10llu of less than %llu bytes\n", Long(count), Long(10 * power));
            power *= 10;
        }
    }

private:
    static unsigned long long Long(uint64_t number) { return number; }

    static constexpr size_t kMost = 10;
    uint64_t counts[kMost + 1] = {};
    uint64_t documents = 0;
    uint64_t all = 0;
    uint64_t largest = 0;
};

class Statistics {
public:
    explicit Statistics(const Log& log) : calls(log), perTick(log.NanosecondsPerTick()) {}

    void Count() {
        for (const Call& call : calls.all) Add(call);
    }

    void Print() const {
        std::vector<const Sum*> sorted;
        Sum all;
        for (const auto& [key, sum] : sums) {
            sorted.push_back(&sum);
            all.calls += sum.calls;
            all.failed += sum.failed;
            all.time += sum.time;
            all.given += sum.given;
            all.returned += sum.returned;
            all.longest = std::max(all.longest, sum.longest);
        }
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const Sum* a, const Sum* b) { return a->time > b->time; });
        all.name = "all";
        std::printf("%10s %10s %12s %10s %12s %12s %12s  %s\n", "calls", "not 1", "time us",
                    "each ns", "longest us", "bytes in", "bytes out", "operation");
        for (const Sum* sum : sorted) PrintRow(*sum);
        PrintRow(all);
        documents.Print();
    }

private:
    void Add(const Call& call) {
        Sum& sum = sums[{call.begin->interface, call.begin->slot}];
        if (sum.calls++ == 0) sum.name = NameOf(*call.begin);
        uint64_t largest = 0;
        sum.given += DataOf(call.begin, largest);
        const Operation* const operation = OperationOf(*call.begin);
        if (operation && operation->renews && !call.IsOfDelegate() && largest > 0)
            documents.Add(largest);
        if (!call.end) return;
        if (call.Threw() || (!call.IsFactory() && Values(call.end).Next().number != 1))
            ++sum.failed;
        uint64_t ignored = 0;
        sum.returned += DataOf(call.end, ignored);
        double time = TimeOf(call, perTick);
        sum.longest = std::max(sum.longest, time);
        for (uint32_t inside = call.firstInside; inside != kNone; inside = calls.all[inside].next)
            time -= TimeOf(calls.all[inside], perTick);
        sum.time += time;
    }

    static void PrintRow(const Sum& sum) {
        std::printf("%10llu %10llu %12.1f %10.0f %12.1f %12llu %12llu  %s\n",
                    static_cast<unsigned long long>(sum.calls),
                    static_cast<unsigned long long>(sum.failed), sum.time / 1000,
                    sum.time / static_cast<double>(std::max<uint64_t>(sum.calls, 1)),
                    sum.longest / 1000, static_cast<unsigned long long>(sum.given),
                    static_cast<unsigned long long>(sum.returned), sum.name.c_str());
    }

    const Calls calls;
    const double perTick;
    std::map<std::pair<record::Interface, uint16_t>, Sum> sums;
    Documents documents;
};

}  // namespace

int Stats(const std::wstring& name) {
    const Log log(name);
    Statistics statistics(log);
    statistics.Count();
    statistics.Print();
    return kGood;
}

}  // namespace replay
