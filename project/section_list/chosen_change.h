// One change of several sections: a value for all of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "project/section_list/section_plan.h"

namespace orvane {

// What the sections get, as texts that a list would hold; what isn't given stays. Marks are never
// changed by the hundred.
struct ChosenChange {
  enum class LengthBy { Set, Add };
  enum class NotesBy { Set, Append, Replace };

  std::optional<std::string> Product;
  std::optional<std::string> Pattern;
  std::optional<std::string> SagBars;
  std::optional<std::string> Pitch;
  std::optional<std::string> Length;  // whole mm, or what is added to it, negative to shorten
  LengthBy ByLength = LengthBy::Set;
  std::optional<std::string> Quantity;
  std::optional<std::string> Notes;
  NotesBy ByNotes = NotesBy::Set;
  std::string NotesFrom;  // what Replace puts the notes in the place of, wherever it stands
};

// What a cell of the sections grid gives to others in its column; none for the letter's and the
// mark's, and for a cell that isn't there.
std::optional<ChosenChange> ChangeFromCell(int row, int column);

// What it does to those rows of Items, in their order, by the rules of the grid and the detail
// panel; nothing of the job changes. A section that a rule refuses is left as it is whole: one of a
// family that has no such product, pattern or pitch, one whose sum of lengths is none that it may
// have. So is one whose new pattern would remove holes placed by hand, unless that is allowed.
SectionPlan PlanOfChange(const std::vector<int>& rows, const ChosenChange& change,
                         bool mayRemoveHoles);

// How many sections of a plan are left for the sake of holes placed by hand.
int HeldByHoles(const SectionPlan& plan);

// The sections that are left as they are, a line for each, with the reason: "P4: Invalid length";
// the first twenty, and how many more there are. Empty if there is none.
std::string LeftSections(const SectionPlan& plan);

}  // namespace orvane
