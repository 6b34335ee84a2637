// The design check: what of a job can't be made as it stands, and what is worth a look before it is
// cut. It stands beside the export's own check, and stops nothing. All of it only looks: at the job
// that it is handed, at the catalogues, the maximum lengths and the rules in use.
#pragma once

#include <vector>

#include "output/design_finding.h"
#include "project/job.h"

namespace orvane {

// All that one section shows by itself, what can't be made first, each in the order of the rules
// and then from left to right.
std::vector<Finding> CheckSection(const JobView& job, int row);

// All that shows only beside the other sections and the accessory lines, in the order of the rows,
// lines of accessories behind them. Takes a time in proportion to the job.
std::vector<Finding> CheckAcross(const JobView& job);

// Both, in the order of the rows, those of a row in the order of CheckSection.
std::vector<Finding> CheckJob(const JobView& job);

}  // namespace orvane
