// Any bytes as a list file and as a block that is pasted: read, planned and applied, or an error
// says why not. What the plan doesn't name stays as it was, and what it names is as it says. Rows
// that were read are read again from what is written of them.
#include <string>
#include <string_view>
#include <vector>

#include "core/csv.h"
#include "core/headless_desktop.h"
#include "core/model.h"
#include "fuzz/fuzz_support.h"
#include "project/section_list/apply_plan.h"
#include "project/section_list/list_columns.h"
#include "project/section_list/section_list.h"

namespace {

using namespace orvane;
using fuzz::Succeeds;

// The names that the seeds use, one of them of two families.
void FillCatalogues() {
  const auto product = [](const char* letter, const char* name) {
    SectionDim dims;
    dims.SectionType = letter;
    dims.Product = name;
    dims.Dim13 = 75;
    SectionDims.Append(dims);
  };
  product("Z", "Z14012");
  product("Z", "Z14014");
  product("E", "E20016");
  product("C", "C20020");
  product("Z", "AB 12");
  product("C", "AB 12");
  PunchPatterns.Append({"Z", "Butt", "B0 B6", False, False});
  PunchPatterns.Append({"Z", "Butt 1 Sag Bar", "B0 D3 B6", True, False});
  PunchPatterns.Append({"E", "Eaves", "F0 F6", False, False});
  for (int family = 1; family <= 6; ++family) MaxDims.At(family) = 15000;
}

// Two sections, one of them with a hole placed by hand.
void FillJob() {
  Item item;
  item.SectionType = "Z";
  item.Mark = "P1";
  item.Product = "Z14012";
  item.Length = 6000;
  item.Quantity = 4;
  Items.Append(item);
  item.Mark = "P2";
  item.PatternName = CustomPattern;
  Hole hole;
  hole.Kind = CustomKind;
  hole.XPos = 700;
  item.Holes.Append(hole);
  Items.Append(item);
}

std::vector<std::string> TextsOf(int row) {
  std::vector<std::string> texts;
  for (int column = 0; column < ListColumnsEnd; ++column) {
    texts.push_back(ListText(Items.At(row), column));
  }
  return texts;
}

void CheckPlan(const SectionList& list, const ListAnswers& answers, int firstRow) {
  Items.Clear();
  FillJob();
  std::vector<std::vector<std::string>> expected = {TextsOf(1), TextsOf(2)};
  const SectionPlan plan = PlanOf(list, answers, firstRow);
  if (plan.Rows.size() != list.Rows.size()) fuzz::Fail("a row without a plan");
  for (const PlannedSection& row : plan.Rows) {
    if (PlanText(row).empty()) fuzz::Fail("a row without words");
    if (row.What != PlannedSection::Result::New && row.What != PlannedSection::Result::Changed) {
      continue;
    }
    if (row.Row == 0) expected.emplace_back(static_cast<std::size_t>(ListColumnsEnd));
    auto& texts =
        row.Row == 0 ? expected.back() : expected.at(static_cast<std::size_t>(row.Row) - 1);
    for (int column = 0; column < ListColumnsEnd; ++column) {
      texts.at(static_cast<std::size_t>(column)) = ListText(row.After, column);
    }
  }
  ApplyPlan(plan, ChangeKind::PasteSections);
  if (Items.UBound() != static_cast<int>(expected.size())) fuzz::Fail("another number of rows");
  for (int row = 1; row <= Items.UBound(); ++row) {
    if (TextsOf(row) != expected.at(static_cast<std::size_t>(row) - 1)) {
      fuzz::Fail("a section is other than its plan");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  HeadlessDesktop desktop;
  InstallDesktop(desktop);
  ResetModel();
  FillCatalogues();
  DrawingWidth = 180;
  MinHoleSep = 4;

  const std::string bytes(reinterpret_cast<const char*>(data), size);
  ListAnswers answers;
  answers.Told = static_cast<ThreeDigits>(size % 3);
  if (size % 2 == 0) answers.Families = {{"AB 12", "C"}};
  if (size % 5 == 0) answers.MayRemoveHoles = {0, 1, 2};
  if (size % 7 == 0) answers.LeftOut = {1};
  Succeeds([&] { CheckPlan(ListOfFile(bytes), answers, 0); });
  for (const int column : {0, 1, 3, 5}) {
    Succeeds([&] {
      if (IsBlock(bytes, column)) CheckPlan(ListOfBlock(bytes, column), answers, column);
    });
  }
  Succeeds([&] {
    const std::string text = DecodeCsv(bytes);
    const char separator = CsvSeparator(text);
    const std::vector<CsvRow> rows = ReadCsv(text, separator);
    if (ReadCsv(CsvText(rows, separator), separator) != rows)
      fuzz::Fail("rows that don't come back");
  });
  return 0;
}
