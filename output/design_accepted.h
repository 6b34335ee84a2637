// Findings that a person has accepted with a word: "as agreed with the erector". They stay
// findings, and aren't counted any more. Each is known by its rule, its section's mark and content,
// and what it says, so that it is open again as soon as the section is another; whatever job it is
// of. They are kept in a file of the user's data folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "output/design_finding.h"
#include "project/job.h"

namespace orvane {

// Beyond that many the first accepted ones go.
constexpr std::size_t MostAccepted = 10000;

// The user's data folder, in whose file "accepted.csv" they are kept from now on, and what is
// accepted there. With none, as in the companion, nothing is accepted. A file that can't be read
// raises its error: nothing counts as accepted then, and nothing is written over it.
void KeepAcceptedIn(const std::string& dataFolder);

// The finding of the job is accepted with that word, or no longer. The file is read afresh for it,
// so that what another program has written there stays. The error of the disk is raised, and
// "Path not found" without a folder; while another program writes, an error that says so. Nothing
// has changed then. Blanks are no word: "Type mismatch".
void AcceptFinding(const JobView& job, const Finding& finding, std::string_view word);
void ForgetAcceptance(const JobView& job, const Finding& finding);

// Gives findings of a section, or with none of an accessory line, the word they were accepted with.
void MarkAccepted(std::vector<Finding>& findings, const Item* section);
void MarkAccepted(Finding& finding, const Item* section);

}  // namespace orvane
