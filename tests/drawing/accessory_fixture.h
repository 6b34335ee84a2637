// What the tests of accessory sheets share.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/model.h"
#include "drawing/accessory_sheet.h"
#include "drawing/recording_surface.h"
#include "tests/drawing/sheet_fixture.h"

namespace orvane::test {

// A character is 1 mm wide in 11 points, so that ten of them are whole twips; a line is 253 twips
// high.
class RoundMetrics : public FontMetrics {
 public:
  double Width(const Font& font, std::string_view text) const override;
  double Height(const Font& font) const override;
  double Ascent(const Font& font) const override;
};

// The rows of a dialog.
TextRows RowsOf(const std::vector<std::vector<std::string>>& rows);

// So many rows of a type 2 dialog: "M1", "101", "a1", "b1" and so on in each of the columns.
TextRows NumberedRows(int count, int columns);

struct SizeOfTest {
  std::string Text;
  std::string Code;
};

// Accessories without a picture, whose tables stand from 35 mm down; each becomes CurrentAcc. The
// long texts of a type 1 accessory are shown. "Mark" and "No.Off" stand in front of the columns of
// a type 2 accessory.
AccDef& AddType1(const std::string& name, const std::vector<SizeOfTest>& sizes);
AccDef& AddType2(const std::string& name, const std::vector<std::string>& columns);
void AddGroup(AccDef& accessory, int first, int columns, const std::string& title);

// Gives the accessory the picture that the fixture lays, so wide and so far down the page, mm.
void ShowPicture(AccDef& accessory, int width, int top);

// Records sheets on a page of 300 x 210 mm with margins of 12 mm left, 8 right, 10 above and below,
// the logo 18 mm high: the room is 280 mm, the strip begins at 210 - 18 - 10 - 12 = 170 mm. The
// program's folder is the test's own and holds Drawings/picture.wmf, 100 x 50 mm.
class AccessorySheetTest : public SheetTest {
 protected:
  AccessorySheetTest();
  ~AccessorySheetTest() override;

  // What the sheet of CurrentAcc records.
  std::vector<std::string> Sheet(AccessoryType type, const TextRows& rows, bool open, bool close);
  // What picture and table alone record.
  std::vector<std::string> Detail(AccessoryType type, const TextRows& rows);
  // The lines of the last recording that begin with that text.
  std::vector<std::string> That(const std::string& beginning) const;

  RoundMetrics round;
  RecordingSurface page{round, 17010, 11907};
};

using Lines = std::vector<std::string>;

}  // namespace orvane::test
