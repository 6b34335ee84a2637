// What the check of the catalogue finds: its rules, a finding, and its words.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

enum class CatalogueGrade {
  Fault,  // what stands in the file isn't what the program works with, or can't be made
  Advice  // it may be meant so, and is worth a look
};

// Rows of CatalogueRules.
enum class CatalogueRule {
  FileMissing,
  FileBroken,
  Utf16,
  Semicolons,
  Tabs,
  RowPassedOver,
  RowWithoutName,
  RowSwallowsNext,
  ShortRow,
  CellOverLines,
  OutOfStep,
  TagNotExact,
  NumberCut,
  NumberEmpty,
  StarLost,
  StarCell,
  SagCell,
  YesNo,
  RuleTwice,
  ProductTwice,
  FixedProduct,
  WithoutDepth,
  WithoutGauge,
  WithoutPair,
  PatternTwice,
  UnknownCode,
  SagBarsWithoutSize,
  SagBarsNowhere,
  HolesCoincide,
  PictureMissing,
  RowCounted,
  RowMissing,
};

struct CatalogueRuleRow {
  CatalogueRule Rule;
  std::string_view Name;  // in lists; never changes
  CatalogueGrade Grade;
};

inline constexpr auto CatalogueRules = std::to_array<CatalogueRuleRow>({
    // clang-format off
    {CatalogueRule::FileMissing,        "file-missing",          CatalogueGrade::Fault},
    {CatalogueRule::FileBroken,         "file-broken-off",       CatalogueGrade::Fault},
    {CatalogueRule::Utf16,              "utf-16",                CatalogueGrade::Fault},
    {CatalogueRule::Semicolons,         "semicolons",            CatalogueGrade::Fault},
    {CatalogueRule::Tabs,               "tabs",                  CatalogueGrade::Fault},
    {CatalogueRule::RowPassedOver,      "row-passed-over",       CatalogueGrade::Fault},
    {CatalogueRule::RowWithoutName,     "row-without-name",      CatalogueGrade::Fault},
    {CatalogueRule::RowSwallowsNext,    "row-swallows-next",     CatalogueGrade::Fault},
    {CatalogueRule::ShortRow,           "row-short",             CatalogueGrade::Advice},
    {CatalogueRule::CellOverLines,      "cell-over-lines",       CatalogueGrade::Fault},
    {CatalogueRule::OutOfStep,          "row-out-of-step",       CatalogueGrade::Fault},
    {CatalogueRule::TagNotExact,        "letter-not-exact",      CatalogueGrade::Fault},
    {CatalogueRule::NumberCut,          "number-cut",            CatalogueGrade::Fault},
    {CatalogueRule::NumberEmpty,        "number-empty",          CatalogueGrade::Advice},
    {CatalogueRule::StarLost,           "star-lost",             CatalogueGrade::Fault},
    {CatalogueRule::StarCell,           "star-cell",             CatalogueGrade::Advice},
    {CatalogueRule::SagCell,            "sag-bar-cell",          CatalogueGrade::Advice},
    {CatalogueRule::YesNo,              "yes-or-no",             CatalogueGrade::Advice},
    {CatalogueRule::RuleTwice,          "rule-twice",            CatalogueGrade::Advice},
    {CatalogueRule::ProductTwice,       "product-twice",         CatalogueGrade::Fault},
    {CatalogueRule::FixedProduct,       "fixed-product-missing", CatalogueGrade::Fault},
    {CatalogueRule::WithoutDepth,       "product-without-depth", CatalogueGrade::Fault},
    {CatalogueRule::WithoutGauge,       "product-without-gauge", CatalogueGrade::Fault},
    {CatalogueRule::WithoutPair,        "product-without-pair",  CatalogueGrade::Fault},
    {CatalogueRule::PatternTwice,       "pattern-twice",         CatalogueGrade::Fault},
    {CatalogueRule::UnknownCode,        "unknown-code",          CatalogueGrade::Fault},
    {CatalogueRule::SagBarsWithoutSize, "sag-bars-without-s",    CatalogueGrade::Fault},
    {CatalogueRule::SagBarsNowhere,     "s-without-sag-bars",    CatalogueGrade::Advice},
    {CatalogueRule::HolesCoincide,      "holes-coincide",        CatalogueGrade::Fault},
    {CatalogueRule::PictureMissing,     "picture-missing",       CatalogueGrade::Fault},
    {CatalogueRule::RowCounted,         "row-counted-on",        CatalogueGrade::Fault},
    {CatalogueRule::RowMissing,         "row-missing",           CatalogueGrade::Advice},
    // clang-format on
});

constexpr std::size_t RowOf(CatalogueRule rule) {
  return static_cast<std::size_t>(rule);
}
constexpr bool CatalogueRulesStandInOrder() {
  for (std::size_t row = 0; row < CatalogueRules.size(); ++row) {
    if (RowOf(CatalogueRules.at(row).Rule) != row) return false;
  }
  return RowOf(CatalogueRule::RowMissing) + 1 == CatalogueRules.size();
}
static_assert(CatalogueRulesStandInOrder(),
              "CatalogueRules needs one row for each rule, in their order");

struct CatalogueFinding {
  CatalogueRule Rule = CatalogueRule::FileMissing;
  std::string File;  // its name, without a folder
  int Row = 0;       // line of the file, counted from 1; 0 for the file as a whole
  int Column = 0;    // counted from 1; 0 for the row as a whole
  std::string What;  // what a person reads

  CatalogueGrade Grade() const { return CatalogueRules.at(RowOf(Rule)).Grade; }
};

// How many of them are faults.
int FaultsIn(const std::vector<CatalogueFinding>& findings);

// "nothing is found", "2 findings", "1 fault": the faults alone where there are any.
std::string CatalogueCountLine(const std::vector<CatalogueFinding>& findings);

// "row 5, column 2", "row 5"; empty for a finding of the whole file.
std::string PlaceText(const CatalogueFinding& finding);
// "fault" or "advice"
std::string_view GradeText(CatalogueGrade grade);

// Findings as lines of text, with a tab between each two fields: file, row, column, grade, the
// rule's name, what.
std::string CatalogueFindingsText(const std::vector<CatalogueFinding>& findings);

}  // namespace orvane
