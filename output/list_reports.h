// Lists of a job that are printed as reports: the cutting list, and what has changed between two
// jobs.
#pragma once

#include <string>

#include "output/cutting_list.h"
#include "output/job_compare.h"

namespace orvane {

// The cutting list of the open job; "Nothing to print" for a job without sections and accessories.
void PrintCuttingList();
void PrintCuttingList(const CuttingList& list);

// The differences between two jobs, which are told as `before` and `after`: files, versions.
void PrintRevisionList(const JobComparison& comparison, const std::string& before,
                       const std::string& after);

}  // namespace orvane
