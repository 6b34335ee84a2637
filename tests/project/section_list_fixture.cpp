#include "tests/project/section_list_fixture.h"

#include <algorithm>

#include "core/section_families.h"
#include "project/section_list/list_columns.h"

namespace orvane::test {

SectionListTest::SectionListTest() {
  const std::vector<std::pair<std::string, std::string>> products = {
      {"Z", "Z14012"}, {"Z", "Z14014"}, {"Z", "AB 12"}, {"E", "E20016"}, {"C", "C20020"},
      {"C", "AB 12"},  {"V", "VCR"},    {"R", "CLR"},   {"T", "T05010"}};
  for (const auto& [letter, product] : products) {
    SectionDim dims;
    dims.SectionType = letter;
    dims.Product = product;
    dims.Dim13 = 100;
    SectionDims.Append(dims);
  }
  PunchPatterns.Append({"Z", "Butt", "B0 B6", False, False});
  PunchPatterns.Append({"Z", "Butt 1 Sag Bar", "B0 D3 B6", True, False});
  PunchPatterns.Append({"E", "Eaves", "F0 F6", False, False});
  PunchPatterns.Append({"C", "Joist", "B0 B6", False, False});
  for (const SectionFamily& family : SectionFamilies) {
    MaxDims.At(FamilyNumber(family.Letter)) = family.DefaultMaxLength;
  }
}

Item& SectionListTest::Put(const std::string& mark, const std::string& product, std::int16_t length,
                           std::int16_t quantity) {
  Item item;
  item.Mark = mark;
  item.Product = product;
  const auto dims = std::find_if(SectionDims.begin(), SectionDims.end(),
                                 [&](const SectionDim& each) { return each.Product == product; });
  if (dims != SectionDims.end()) item.SectionType = dims->SectionType;
  item.Length = length;
  item.Quantity = quantity;
  return Items.Append(item);
}

void SectionListTest::PutHole(Item& item, std::int16_t x) {
  Hole hole;
  hole.Kind = CustomKind;
  hole.XPos = x;
  hole.BF = "n";
  hole.W1 = "y";
  hole.W2 = "y";
  hole.TF = "n";
  hole.Diameter = 18;
  item.Holes.Append(hole);
  item.CustomHoleCount = item.HoleCount();
}

SectionList SectionListTest::List(const std::string& rows, int column) {
  std::string text = rows;
  std::replace(text.begin(), text.end(), '|', '\t');
  return ListOfBlock(text, column);
}

SectionPlan SectionListTest::Plan(const std::string& rows, int row, int column) const {
  return PlanOf(List(rows, column), answers, row);
}

std::vector<std::string> SectionListTest::WordsOf(const SectionPlan& plan) {
  std::vector<std::string> words;
  for (const PlannedSection& row : plan.Rows) words.push_back(PlanText(row));
  return words;
}

std::vector<std::string> SectionListTest::Job() {
  std::vector<std::string> rows;
  for (const Item& item : Items) {
    std::string row = item.SectionType;
    for (int column = MarkColumn; column <= NotesColumn; ++column) {
      row += " " + ListText(item, column);
    }
    std::string details;
    for (int column = PunchingColumn; column < ListColumnsEnd; ++column) {
      const std::string text = ListText(item, column);
      details += text == "0.0" || text.empty() ? "" : " " + text;
    }
    rows.push_back(row + (details.empty() ? "" : " /" + details));
  }
  return rows;
}

}  // namespace orvane::test
