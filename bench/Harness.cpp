#include "Harness.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace bench {
namespace {

constexpr double kLongestCheck = 7;      // seconds; a contender that needs more is left out
constexpr double kLongestTiming = 20;    // seconds for the rounds of one contender
constexpr double kRoundSeconds = 0.008;  // what the operations of a round are to take
constexpr size_t kFewestRounds = 3;

template <class Work>
double Seconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

/// The median of `times` relative to `floor`, over the rounds that both took part in.
double MedianRatio(const std::vector<double>& times, const std::vector<double>& floor) {
    std::vector<double> ratios;
    for (size_t i = 0; i < std::min(times.size(), floor.size()); ++i)
        ratios.push_back(times[i] / floor[i]);
    return ratios.empty() ? 0 : Median(ratios);
}

/// How long some operations take that are not the first: those may have to make ready what the
/// others only use, and would say too little about how many fit into a round.
double SecondsAgain(Contender& contender, size_t operations) {
    contender.Prepare();
    const double seconds = Seconds([&] { contender.Work(operations); });
    contender.Finish();
    return seconds;
}

}  // namespace

void Table::Put(const std::string& contender, const Cell& cell) {
    if (std::find(contenders.begin(), contenders.end(), contender) == contenders.end())
        contenders.push_back(contender);
    rows.back().cells[contender] = cell;
}

/// One contender on its way through the rounds of a job.
class Bench::Lap {
public:
    explicit Lap(Contender& runner) : contender(runner) {}

    Contender& contender;
    bool leftOut = false;
    size_t operations = 1;
    std::vector<double> times;  // seconds for one operation

    /// Decides how many operations a round has, after a check of some.
    void Plan(const Job& job, double checkSeconds) {
        const double single = checkSeconds / static_cast<double>(job.fewest);
        const double fitting = std::min(kRoundSeconds / std::max(single, 1e-9), 1e9);
        operations = std::clamp(static_cast<size_t>(fitting), job.fewest, job.most);
    }

    /// Takes part in a round, unless this contender's time is up.
    void Round() {
        const bool enough = times.size() >= kFewestRounds && spent > kLongestTiming;
        if (leftOut || enough) return;
        spent += Seconds([&] {
            contender.Prepare();
            times.push_back(Seconds([&] { contender.Work(operations); }) /
                            static_cast<double>(operations));
            contender.Finish();
        });
    }

private:
    double spent = 0;
};

Table* Bench::Begin(Table table) {
    if (table.key.find(options.filter) == std::string::npos) return nullptr;
    std::fprintf(stderr, "%s\n", table.key.c_str());
    tables.push_back(std::make_unique<Table>(std::move(table)));
    return tables.back().get();
}

bool Bench::TakesTooLong(const Past& past, size_t size) {
    if (past.size == 0 || size <= past.size) return false;
    const double larger = static_cast<double>(size) / static_cast<double>(past.size);
    return past.preparing * larger + past.working * std::pow(larger, past.power) > kLongestCheck;
}

double Bench::GrowthPower(const Past& past, size_t size, double working) {
    if (past.size == 0 || size <= past.size) return 1;
    const double larger = static_cast<double>(size) / static_cast<double>(past.size);
    // Short times say little: nothing here is better than linear or worse than quadratic.
    return std::clamp(std::log(working / past.working) / std::log(larger), 1.0, 2.0);
}

void Bench::Check(Table& table, const Job& job, Lap& lap) {
    Contender& contender = lap.contender;
    Past& past = pasts[table.key + '/' + contender.Name()];
    lap.leftOut = TakesTooLong(past, job.size);
    if (lap.leftOut) {
        // The sizes to come take longer still.
        past.working = 1e9;
        return;
    }
    const double preparing = Seconds([&] { contender.Prepare(); });
    const double working = Seconds([&] { contender.Work(job.fewest); });
    const uint64_t result = contender.Result();
    if (result != job.expected)
        throw std::runtime_error(table.key + ", " + job.label + ": " + contender.Name() +
                                 " came to " + std::to_string(result) + " instead of " +
                                 std::to_string(job.expected));
    contender.Finish();
    past = {job.size, preparing, working, GrowthPower(past, job.size, working)};
    lap.Plan(job, job.fewest < job.most ? SecondsAgain(contender, job.fewest) : working);
}

void Bench::Run(Table& table, Job job) {
    if (job.size > options.largest) return;
    std::vector<Lap> laps;
    for (const auto& contender : job.contenders) laps.emplace_back(*contender);
    for (Lap& lap : laps) Check(table, job, lap);
    if (options.checkOnly) return;

    for (int round = 0; round < options.rounds; ++round)
        for (size_t turn = 0; turn < laps.size(); ++turn) {
            // Another one begins each round: what the one before leaves behind hits all alike.
            laps[(turn + static_cast<size_t>(round)) % laps.size()].Round();
        }

    table.rows.push_back({job.label, job.size, {}});
    for (const Lap& lap : laps) {
        Cell cell;
        if (!lap.leftOut)
            cell = {Median(lap.times) * table.scale, MedianRatio(lap.times, laps.front().times),
                    static_cast<int>(lap.times.size())};
        table.Put(lap.contender.Name(), cell);
    }
}

}  // namespace bench
