#include "tests/drawing/accessory_fixture.h"

#include <filesystem>

#include "core/files.h"
#include "core/numbers.h"
#include "core/program_folder.h"
#include "core/text.h"
#include "drawing/pictures.h"
#include "tests/drawing/metafile_writer.h"

namespace orvane::test {

namespace {

AccDef& Add(const std::string& name) {
  AccDef& accessory = AccDefs.Append({});
  CurrentAcc = Int16(AccDefs.UBound());
  accessory.Name = name;
  accessory.DrawingFile = "None";
  accessory.Value1 = 60;
  accessory.Value3 = 30;
  return accessory;
}

}  // namespace

double RoundMetrics::Width(const Font& font, std::string_view text) const {
  return 56.7 * font.Size / 11 * static_cast<double>(CharCount(text));
}

double RoundMetrics::Height(const Font& font) const {
  return 23 * font.Size;
}

double RoundMetrics::Ascent(const Font& font) const {
  return 18 * font.Size;
}

TextRows RowsOf(const std::vector<std::vector<std::string>>& rows) {
  TextRows table;
  for (const auto& row : rows) {
    Table<std::string>& cells = table.Append({});
    for (const std::string& text : row) cells.Append(text);
  }
  return table;
}

TextRows NumberedRows(int count, int columns) {
  TextRows table;
  for (int row = 1; row <= count; ++row) {
    Table<std::string>& cells = table.Append({});
    cells.Append("M" + DecimalText(row));
    cells.Append(DecimalText(100 + row));
    for (int column = 0; column < columns; ++column) {
      cells.Append(std::string(1, static_cast<char>('a' + column)) + DecimalText(row));
    }
  }
  return table;
}

AccDef& AddType1(const std::string& name, const std::vector<SizeOfTest>& sizes) {
  AccDef& accessory = Add(name);
  accessory.IsType1 = True;
  accessory.Flag = True;
  for (const SizeOfTest& size : sizes) {
    accessory.ParamTexts.Append(size.Text);
    accessory.ParamNames.Append(size.Code);
  }
  return accessory;
}

AccDef& AddType2(const std::string& name, const std::vector<std::string>& columns) {
  AccDef& accessory = Add(name);
  accessory.ParamNames.Append("Mark");
  accessory.ParamNames.Append("No.Off");
  for (const std::string& column : columns) accessory.ParamNames.Append(column);
  return accessory;
}

void AddGroup(AccDef& accessory, int first, int columns, const std::string& title) {
  AccGroup& group = accessory.Groups.Append({});
  group.FirstParam = Int16(first);
  group.GroupValue = Int16(columns);
  group.Title = title;
}

void ShowPicture(AccDef& accessory, int width, int top) {
  accessory.DrawingFile = "picture";
  accessory.Value1 = Int16(width);
  accessory.Value3 = Int16(top);
}

AccessorySheetTest::AccessorySheetTest() {
  SetLogo(60, 18);
  LeftMargin = 12;
  RightMargin = 8;
  ProgramFolder = PathText(NativePath(TempFile("dims.csv", "")).parent_path());
  std::filesystem::create_directory(NativePath(ProgramFolder) / "Drawings");
  TempFile("Drawings/picture.wmf", MetafileWriter().Placeable());
}

AccessorySheetTest::~AccessorySheetTest() {
  frmDrawings().imgAcc = nullptr;
}

Lines AccessorySheetTest::Sheet(AccessoryType type, const TextRows& rows, bool open, bool close) {
  page.Forget();
  DrawAccessorySheet(page, AccDefs.At(CurrentAcc), type, rows, open, close);
  return page.Lines();
}

Lines AccessorySheetTest::Detail(AccessoryType type, const TextRows& rows) {
  page.Forget();
  DrawAccessoryDetail(page, PresentSource(), AccDefs.At(CurrentAcc), type, rows);
  return page.Lines();
}

Lines AccessorySheetTest::That(const std::string& beginning) const {
  Lines lines;
  for (const std::string& line : page.Lines()) {
    if (line.rfind(beginning, 0) == 0) lines.push_back(line);
  }
  return lines;
}

}  // namespace orvane::test
