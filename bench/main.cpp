// json_bench: measures the library beside others; script/bench builds and starts it.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "Jobs.h"
#include "Report.h"
#include "Text.h"

namespace {

void Define(CLI::App& program, bench::Options& options) {
    program.name("json_bench");
    program.allow_windows_style_options(false);
    program.add_option("filter", options.filter,
                       "Only the tables whose name contains this, such as find or find/absent");
    program.add_option("--rounds", options.rounds, "Rounds of each job")
        ->check(CLI::Range(1, 1000))
        ->capture_default_str();
    program.add_option("--largest", options.largest, "Leave out the rows of larger sizes");
    program.add_flag("--check", options.checkOnly,
                     "Do every job once, for the correctness of its result only");
    program.add_option("--report", options.report, "Write results.md into this folder");
    program.add_option("--growth", options.growth, "Write cost against size into this CSV file");
}

/// The arguments in the order that CLI11 takes them from a vector: the last one first.
std::vector<std::string> Reversed(int count, wchar_t* arguments[]) {
    std::vector<std::string> reversed;
    bench::Converter convert;
    for (int i = count - 1; i > 0; --i) reversed.emplace_back(convert.Utf8(arguments[i]));
    return reversed;
}

void Run(bench::Bench& bench) {
    const bench::Options& wanted = bench.Wanted();
    size_t shown = 0;
    for (auto* run :
         {bench::RunSmallJobs, bench::RunLoadJobs, bench::RunReadJobs, bench::RunFindJobs,
          bench::RunBuildJobs, bench::RunOutputJobs, bench::RunPackageJobs, bench::RunChurnJobs,
          bench::RunNameJobs, bench::RunMemoryJobs}) {
        run(bench);
        if (wanted.checkOnly) continue;
        for (; shown < bench.Tables().size(); ++shown)
            std::fputs(bench::PlainText(*bench.Tables()[shown]).c_str(), stdout);
        std::fflush(stdout);
    }
    if (bench.Tables().empty()) throw std::runtime_error("no table has such a name");
    if (wanted.checkOnly) std::puts("All results are right.");
    bench::WriteReport(bench);
}

}  // namespace

int wmain(int count, wchar_t* arguments[]) {
    bench::Options wanted;
    CLI::App program{"Measures Json_Dll beside other libraries."};
    Define(program, wanted);
    try {
        program.parse(Reversed(count, arguments));
        bench::Bench bench(wanted);
        Run(bench);
        return 0;
    } catch (const CLI::ParseError& error) {
        return program.exit(error);  // --help too
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
