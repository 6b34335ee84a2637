// What a list of sections will do to the job, row by row, before anything is done: the preview
// shows it, and it is made anew whenever a cell of the list is mended or a question answered.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/model.h"
#include "core/pasted_text.h"
#include "project/section_list/planned_cell.h"
#include "project/section_list/section_list.h"

namespace orvane {

// What a person has told of a list. Rows are places in SectionList.Rows, from 0.
struct ListAnswers {
  ThreeDigits Told = ThreeDigits::NotTold;
  // The section letter that is meant by a product's name that several families bear.
  std::map<std::string, std::string> Families;
  std::set<int> LeftOut;
  // Rows whose new pattern may remove holes that were placed by hand.
  std::set<int> MayRemoveHoles;
};

struct PlannedSection {
  enum class Result { New, Changed, Same, Refused, LeftOut };
  Result What = Result::Same;
  int Row = 0;  // of Items; 0 for a section that comes anew
  Item After;   // as it will be, but for its holes and notches
  std::array<PlannedCell, ListColumnsEnd> Cells;
  int RemovedHoles = 0;  // placed by hand, that its new pattern removes or would remove

  PlannedCell& At(int column) { return Cells.at(static_cast<std::size_t>(column)); }
  const PlannedCell& At(int column) const { return Cells.at(static_cast<std::size_t>(column)); }
  // Whether that has become of one of its cells.
  bool Has(PlannedCell::Result what) const;
};

// A name that several families bear, and their letters.
struct SharedProduct {
  std::string Name;
  std::vector<std::string> Letters;
};

struct SectionPlan {
  std::vector<PlannedSection> Rows;  // one for each row of the list, in its order
  // The first number of which only a person can tell whether it is thousands, answered or not;
  // empty without one.
  std::string AmbiguousNumber;
  std::vector<SharedProduct> SharedProducts;  // of new sections, answered or not

  int Count(PlannedSection::Result what) const;
};

// The plan for a list on the job as it stands. With a column of marks each row goes to the section
// of that mark, blanks at both ends apart, and else becomes a new one. Without one they go to the
// rows from `firstRow` of Items on, and behind the last one become new ones; all of them do where
// it is 0. Nothing of the job changes.
//
// Cells are taken by the rules of the grid, the detail panel and the mitres, with their refusals. A
// row with a refused cell is refused whole. An empty cell says nothing: a section that is
// there keeps what it has, a new one has no length, quantity, notes or mark yet. A mark that
// several sections of the job bear is refused, as nobody knows which is meant.
SectionPlan PlanOf(const SectionList& list, const ListAnswers& answers, int firstRow);

// What becomes of a row in words: "New", "Length 6000 → 7000, Qty 4 → 6", or why it is refused.
std::string PlanText(const PlannedSection& row);

}  // namespace orvane
