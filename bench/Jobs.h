#pragma once

#include "Harness.h"

namespace bench {

// The groups of jobs, each in a file of its own.

void RunSmallJobs(Bench& bench);
void RunLoadJobs(Bench& bench);
void RunReadJobs(Bench& bench);
void RunFindJobs(Bench& bench);
void RunBuildJobs(Bench& bench);
void RunOutputJobs(Bench& bench);
void RunPackageJobs(Bench& bench);
void RunChurnJobs(Bench& bench);
void RunNameJobs(Bench& bench);
void RunMemoryJobs(Bench& bench);

}  // namespace bench
