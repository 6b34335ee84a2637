#include "project/section_list/section_table.h"

#include <numeric>
#include <utility>

#include "core/model.h"
#include "project/section_list/list_columns.h"

namespace orvane {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

// Numbers can be no formula, and an angle must keep its minus sign.
bool IsNumberColumn(int column) {
  switch (column) {
    case LengthColumn:
    case QuantityColumn:
    case SagBarsColumn:
    case MitreLeftColumn:
    case MitreRightColumn:
      return true;
    default:
      return false;
  }
}

CsvRow HeadingRow() {
  CsvRow row;
  for (int column = 1; column < ListColumnsEnd; ++column) row.emplace_back(ListHeading(column));
  return row;
}

CsvRow SectionRow(const Item& item) {
  CsvRow row;
  row.reserve(ListColumnsEnd - 1);
  for (int column = 1; column < ListColumnsEnd; ++column) {
    std::string text = ListText(item, column);
    row.push_back(IsNumberColumn(column) ? std::move(text) : GuardedText(text));
  }
  return row;
}

}  // namespace

std::vector<CsvRow> SectionTable(const std::vector<int>& rows) {
  std::vector<CsvRow> table;
  table.reserve(rows.size() + 1);
  table.push_back(HeadingRow());
  for (const int row : rows) table.push_back(SectionRow(Items.At(row)));
  return table;
}

std::string SectionListFile() {
  std::vector<int> rows(static_cast<std::size_t>(Items.UBound()));
  std::iota(rows.begin(), rows.end(), 1);
  return std::string(Utf8Mark) + CsvText(SectionTable(rows), ',');
}

}  // namespace orvane
