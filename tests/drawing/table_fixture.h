// What the tests of tables on pages share.
#pragma once

#include <string>
#include <vector>

#include "tests/drawing/page_fixture.h"

namespace orvane::test {

// Tables on A4 landscape between margins of 10 mm, in a document that is open. In 10 points a
// character is 100 twips wide (1.764 mm) and a line 230 high (4.056 mm); a cell of 5 mm keeps
// 0.472 mm above its text.
class PageTablesTest : public PageTest {
 protected:
  PageTablesTest() { surface.StartDoc(); }

  void Set(TableSetting setting, int row, int column, const TableValue& value) {
    surface.TableCell(setting, row, column, value);
  }
  void SetText(int row, int column, const std::string& text) {
    Set(TableSetting::CellText, row, column, text);
  }
  // Opens a table of rows 5 mm high, or growing ones, and columns of those widths in mm.
  void Start(int rows, const std::vector<std::string>& widths, bool growing = false);
  // The table of the job on every sheet.
  void DrawJobTable(double top);
};

}  // namespace orvane::test
