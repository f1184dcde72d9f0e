#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// One of those who do a job.
class Contender {
public:
    explicit Contender(std::string name) : title(std::move(name)) {}
    virtual ~Contender() = default;
    Contender(const Contender&) = delete;
    Contender& operator=(const Contender&) = delete;

    const std::string& Name() const { return title; }

    /// What is not timed: comes before each Work.
    virtual void Prepare() {}
    /// What is timed.
    virtual void Work(size_t operations) = 0;
    /// What the last Work came to; compared with the job's expectation.
    virtual uint64_t Result() = 0;
    /// Not timed either: comes after each Work, and gives back what nobody needs any more.
    virtual void Finish() {}

private:
    std::string title;
};

/// One job at one size. The first contender is the floor, which the others are related to.
struct Job {
    std::string label;      ///< the row's title in the table
    size_t size = 0;        ///< the place on the axis of growth
    size_t fewest = 1;      ///< operations of the check, and the fewest in a round
    size_t most = 1;        ///< operations in a round, when they are fast enough
    uint64_t expected = 0;  ///< Result after `fewest` operations
    std::vector<std::unique_ptr<Contender>> contenders;

    template <class Type, class... Arguments>
    void Add(Arguments&&... arguments) {
        contenders.push_back(std::make_unique<Type>(std::forward<Arguments>(arguments)...));
    }
};

/// What one contender needed, in its table's unit.
struct Cell {
    double cost = 0;   ///< the median over the rounds
    double ratio = 0;  ///< the median of what it needed in each round relative to the floor
    int rounds = 0;    ///< 0: not measured, since it would have taken too long
};

struct Row {
    std::string label;
    size_t size;
    std::map<std::string, Cell> cells;
};

/// The results of one job over its sizes or documents.
struct Table {
    std::string key;     ///< what the filter looks at
    std::string title;   ///< with the unit
    std::string axis;    ///< the title of the rows
    double scale = 1;    ///< units in a second
    bool grows = false;  ///< the rows are sizes: part of the picture
    std::vector<std::string> contenders;
    std::vector<Row> rows;

    /// Adds a cell to the last row, and its column if it is a new one.
    void Put(const std::string& contender, const Cell& cell);
};

struct Options {
    std::string filter;
    std::string report;         ///< the folder for the report; empty: none
    std::string growth;         ///< the file for the data of the picture; empty: none
    size_t largest = SIZE_MAX;  ///< rows of larger sizes are left out
    int rounds = 15;
    bool checkOnly = false;
};

/// Runs jobs and keeps their results.
class Bench {
public:
    explicit Bench(Options wanted) : options(std::move(wanted)) {}

    const Options& Wanted() const { return options; }
    const std::vector<std::unique_ptr<Table>>& Tables() const { return tables; }

    /// A new table, or null when the filter does not want it.
    Table* Begin(Table table);

    /// Checks each contender and, unless only checks are wanted, times them in turns, round by
    /// round, into a new row of the table. Throws std::runtime_error for a wrong result. Does
    /// nothing for a size that is not wanted.
    ///
    /// No contender may hold the run up: one that is slow takes part in fewer rounds, and one that
    /// would need very long, judging by the smaller sizes, is left out.
    void Run(Table& table, Job job);

private:
    class Lap;

    /// What a contender needed for the check of a job at one size.
    struct Past {
        size_t size = 0;
        double preparing = 0, working = 0;  ///< seconds
        double power = 1;                   ///< of the size with which the work grows
    };

    static bool TakesTooLong(const Past& past, size_t size);
    static double GrowthPower(const Past& past, size_t size, double working);
    void Check(Table& table, const Job& job, Lap& lap);

    Options options;
    std::vector<std::unique_ptr<Table>> tables;
    std::map<std::string, Past> pasts;
};

}  // namespace bench
