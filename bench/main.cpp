// json_bench [FILTER] [--rounds N] [--check] [--report FOLDER]

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>

#include "Jobs.h"
#include "Report.h"

namespace {

bench::Options Parsed(int count, wchar_t* arguments[]) {
    bench::Options options;
    for (int i = 1; i < count; ++i) {
        const std::wstring wide = arguments[i];
        const std::string argument(wide.begin(), wide.end());
        const auto value = [&] {
            if (++i == count) throw std::runtime_error(argument + " needs a value");
            const std::wstring next = arguments[i];
            return std::string(next.begin(), next.end());
        };
        if (argument == "--check")
            options.checkOnly = true;
        else if (argument == "--rounds")
            options.rounds = std::atoi(value().c_str());
        else if (argument == "--report")
            options.report = value();
        else
            options.filter = argument;
    }
    if (options.rounds < 1) throw std::runtime_error("--rounds needs a number from 1");
    return options;
}

}  // namespace

int wmain(int count, wchar_t* arguments[]) {
    try {
        bench::Bench bench(Parsed(count, arguments));
        size_t shown = 0;
        for (auto* run :
             {bench::RunLoadJobs, bench::RunReadJobs, bench::RunFindJobs, bench::RunBuildJobs,
              bench::RunOutputJobs, bench::RunPackageJobs, bench::RunMemoryJobs}) {
            run(bench);
            if (bench.Wanted().checkOnly) continue;
            for (; shown < bench.Tables().size(); ++shown)
                std::fputs(bench::PlainText(*bench.Tables()[shown]).c_str(), stdout);
            std::fflush(stdout);
        }
        if (bench.Tables().empty()) throw std::runtime_error("no table has such a name");
        if (bench.Wanted().checkOnly) std::puts("All results are right.");
        if (!bench.Wanted().report.empty()) bench::WriteReport(bench);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
