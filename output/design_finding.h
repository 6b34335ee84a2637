// What the design check has found: a finding, its words, and the order in which findings are told.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "output/design_check_rules.h"

namespace orvane {

struct Finding {
  FindingGrade Grade = FindingGrade::CannotBeMade;
  std::string_view Rule;  // name of the rule's row, which never changes
  int Row = 0;            // row of Items; 0 for a finding of an accessory line
  // Rows of its tables, 0 for none. A pattern's holes count as they are made afresh, which is how
  // they are exported and, as soon as the section has been looked at, how its table holds them.
  int Hole = 0;
  int Notch = 0;
  std::string_view Line;  // of a hole: "BF", "W1", "W2", "TF", or empty
  // mm from the left-hand end: a point, or a stretch; none for what is nowhere along the section.
  std::optional<double> Place;
  std::optional<double> PlaceEnd;
  // What a person reads.
  std::string Mark;      // of the section or the accessory line
  std::string What;      // what is found, without its place
  std::string Limit;     // what it should be; empty where the finding says so itself
  std::string Source;    // where the limit comes from
  std::string Accepted;  // the word that it was accepted with; empty while it is open
};

// Nobody has accepted it.
bool IsOpenFinding(const Finding& finding);
// What stands before its words: "Can't be made: " or "Consider: ".
std::string_view GradeWords(const Finding& finding);

// The findings that are still open and tell that something can't be made; and how many sections
// have such ones.
bool IsOpenFault(const Finding& finding);
int SectionsThatCannotBeMade(const std::vector<Finding>& findings);

// "5995 mm", "100 to 250 mm"; empty for a finding without a place.
std::string PlaceText(const Finding& finding);

// A finding in a line: "P1 at 5995 mm: 18 mm hole reaches beyond the right-hand end (9 to 5991 mm;
// the section)".
std::string FindingLine(const Finding& finding);

// "5995 mm", "12.5 mm": to a tenth, as nobody measures finer.
std::string InMm(double value);
// "100 to 250 mm"
std::string InMm(double from, double to);

// Findings as lines of text, with a tab between each two fields: mark, "can't be made" or "advice",
// the rule's name, place, hole line, what, limit, source, and the word that it was accepted with;
// in front of each that text.
std::string FindingsText(const std::vector<Finding>& findings, std::string_view front);
// The same as a table for spreadsheets, under a heading.
std::string FindingsCsv(const std::vector<Finding>& findings);

// In the order of the rows, those of accessory lines behind the sections; those of a row in the
// order of the rules, and then from left to right.
void SortFindings(std::vector<Finding>& findings);

// Where the findings of a section are collected; those of rules that aren't used are dropped.
class FindingList {
 public:
  // Of that row, which holds that section as the check sees it.
  FindingList(int row, const Item& section) : row_(row), section_(&section) {}
  // Of the whole job: whoever adds a finding says of which row it is.
  FindingList() = default;

  // The finding, to be filled further; the one returned for a rule that isn't used is thrown away.
  Finding& Add(DesignRule rule, std::string what, std::string limit);
  Finding& AddAtHole(DesignRule rule, int hole, std::string what, std::string limit);
  // What was collected, in the order in which it is told; the list is empty then.
  std::vector<Finding> Sorted();

 private:
  int row_ = 0;
  const Item* section_ = nullptr;
  std::vector<Finding> findings_;
  Finding dropped_;
};

}  // namespace orvane
