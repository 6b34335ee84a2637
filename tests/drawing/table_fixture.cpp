#include "tests/drawing/table_fixture.h"

#include "core/numbers.h"

namespace orvane::test {

void PageTablesTest::Start(int rows, const std::vector<std::string>& widths, bool growing) {
  surface.StartTable();
  Set(TableSetting::Rows, 0, 0, rows);
  Set(TableSetting::Columns, 0, 0, static_cast<int>(widths.size()));
  if (!growing) Set(TableSetting::RowHeight, 0, 0, "5mm");
  int column = 0;
  for (const std::string& width : widths) {
    Set(TableSetting::ColumnWidth, 0, ++column, width + "mm");
  }
}

void PageTablesTest::DrawJobTable(double top) {
  surface.CurrentY(Length::OfMm(top));
  surface.StartTable();
  Set(TableSetting::Columns, 0, 0, 3);
  Set(TableSetting::Rows, 0, 0, 6);
  Set(TableSetting::RowHeight, 0, 0, "4.8mm");
  Set(TableSetting::ColumnWidth, 0, 1, "150mm");
  Set(TableSetting::ColumnWidth, 0, 2, "32mm");
  Set(TableSetting::ColumnWidth, 0, 3, "100mm");
  Set(TableSetting::CellTextColor, 6, 2, Grey);
  Set(TableSetting::CellTextColor, 6, 3, Grey);
  Set(TableSetting::FontSize, 0, 0, 11);
  for (int row = 1; row <= 6; ++row) {
    SetText(row, 2, "Label");
    SetText(row, 3, "V" + DecimalText(row));
  }
  surface.TableBorder(NoTableBorder);
  surface.EndTable();
}

}  // namespace orvane::test
