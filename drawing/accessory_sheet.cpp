#include "drawing/accessory_sheet.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "drawing/pictures.h"
#include "drawing/primitives.h"
#include "drawing/sheet_frame.h"

namespace orvane {

namespace {

constexpr std::string_view FrameKind = "a";
constexpr double TableGap = 5;          // mm, between the picture and its table
constexpr int TableFontSize = 11;       // points
constexpr double TableRowHeight = 5;    // mm
constexpr double TablePadding = 5;      // mm, of a type 1 column around its widest text
constexpr int LeastColumnWidth = 1134;  // twips, 20 mm, of a type 2 column

// Settings of the open table as a whole, and of its cells.
void SetTable(PrintSurface& surface, TableSetting setting, const TableValue& value) {
  surface.TableCell(setting, 0, 0, value);
}

void SetText(PrintSurface& surface, int row, int column, const std::string& text) {
  surface.TableCell(TableSetting::CellText, row, column, text);
}

void SetBold(PrintSurface& surface, int row, int column) {
  surface.TableCell(TableSetting::Bold, row, column, 1);
}

// Loads the accessory's picture and places it in the middle between the margins; gives its height
// on the page, mm.
double PlacePicture(PrintSurface& surface, const AccDef& accessory) {
  const auto picture = LoadDrawing("\\Drawings\\" + accessory.DrawingFile + ".wmf");
  const double proportion = picture->Width / picture->Height;
  const double height = accessory.Value1 / proportion;
  const double room =
      surface.PageWidth() / TwipsPerMm - LeftMargin - RightMargin - accessory.Value1;
  surface.DrawPicture(picture, Length::OfMm(LeftMargin + room / 2), Length::OfMm(accessory.Value3),
                      Length::OfMm(accessory.Value1), Length::OfMm(height));
  return height;
}

// Type 1: the sizes that are used, with their number off.

struct UsedSize {
  std::string Text;
  std::string Code;
  std::string NumberOff;
};

// A dialog hands over texts, the run over all accessories numbers: both arrive as texts.
std::vector<UsedSize> UsedSizes(const AccDef& accessory, const TextRows& rows) {
  std::vector<UsedSize> sizes;
  for (int row = 1; row <= rows.UBound(); ++row) {
    const Table<std::string>& cells = rows.At(row);
    const double quantity = cells.Empty() ? 0 : Val(cells.At(1));
    if (quantity <= 0) continue;
    sizes.push_back(
        {accessory.ParamTexts.At(row), accessory.ParamNames.At(row), ShortestText(quantity)});
  }
  return sizes;
}

// The width of a column for those of its texts, mm; 0 without a text.
double ColumnWidth(PrintSurface& surface, const std::vector<UsedSize>& sizes,
                   std::string UsedSize::*text) {
  double widest = 0;
  for (const UsedSize& size : sizes) widest = std::max(widest, surface.TextWidth(size.*text));
  return widest > 0 ? widest / TwipsPerMm + TablePadding : 0;
}

void DrawType1Table(PrintSurface& surface, const AccDef& accessory, const TextRows& rows,
                    double top) {
  const std::vector<UsedSize> sizes = UsedSizes(accessory, rows);
  surface.FontSize(TableFontSize);
  // Without the flag the long texts stand in a column that shows nothing.
  const double textWidth =
      accessory.Flag != False ? ColumnWidth(surface, sizes, &UsedSize::Text) : 0;
  const double codeWidth = ColumnWidth(surface, sizes, &UsedSize::Code);
  constexpr double numberWidth = 20;
  const double room = surface.PageWidth() / TwipsPerMm - LeftMargin - RightMargin;

  surface.CurrentY(Length::OfMm(top));
  surface.StartTable();
  SetTable(surface, TableSetting::Columns, 3);
  SetTable(surface, TableSetting::Rows, static_cast<int>(sizes.size()) + 1);
  SetTable(surface, TableSetting::RowHeight, MmText(TableRowHeight));
  surface.TableCell(TableSetting::ColumnWidth, 0, 1, MmText(textWidth));
  surface.TableCell(TableSetting::ColumnWidth, 0, 2, MmText(codeWidth));
  surface.TableCell(TableSetting::ColumnWidth, 0, 3, MmText(numberWidth));
  surface.TableIndent(Length::OfMm((room - (textWidth + codeWidth + numberWidth)) / 2));
  surface.TableBorder(AllTableLines);
  SetBold(surface, 1, 0);
  surface.TableAlignment(0, 1, CellAlignment::Centre);
  surface.TableAlignment(0, 2, CellAlignment::Centre);
  surface.TableAlignment(0, 3, CellAlignment::Right);
  SetText(surface, 1, 1, "Descripton");  // deliberate
  SetText(surface, 1, 2, "Code");
  SetText(surface, 1, 3, "No. Off");
  int row = 1;
  for (const UsedSize& size : sizes) {
    ++row;
    SetText(surface, row, 1, size.Text);
    SetText(surface, row, 2, size.Code);
    SetText(surface, row, 3, size.NumberOff);
  }
  surface.EndTable();
}

// Type 2: a row for each line, on as many pages as it takes.

// The groups' titles stand over the columns' headings.
int HeadingRows(const AccDef& accessory) {
  return accessory.Groups.Empty() ? 1 : 2;
}

// The lines of one page, counted from 1.
struct LineRange {
  int First = 0;
  int Last = 0;
};

void DrawType2Table(PrintSurface& surface, const AccDef& accessory, const TextRows& rows,
                    LineRange lines, double top) {
  const int columns = accessory.ParamNames.UBound();
  const int headings = HeadingRows(accessory);
  surface.FontSize(TableFontSize);
  surface.CurrentY(Length::OfMm(top));
  surface.StartTable();
  SetTable(surface, TableSetting::FontSize, TableFontSize);
  surface.TableBorder(AllTableLines);
  SetTable(surface, TableSetting::Columns, columns);
  SetTable(surface, TableSetting::Rows, lines.Last - lines.First + headings + 1);
  SetTable(surface, TableSetting::RowHeight, MmText(TableRowHeight));

  double left = surface.PageWidth() - (LeftMargin + RightMargin) * TwipsPerMm;
  for (int column = 1; column <= columns; ++column) {
    for (int row = 1; row <= headings; ++row) SetBold(surface, row, column);
    const double heading = surface.TextWidth(accessory.ParamNames.At(column));
    const int width = std::max(LeastColumnWidth, static_cast<int>(heading));
    surface.TableCell(TableSetting::ColumnWidth, 0, column, width);
    left -= width;
  }
  surface.TableIndent(left / 2);

  for (const AccGroup& group : accessory.Groups) {
    // A heading behind the last column stands over nothing.
    if (group.FirstParam > columns) continue;
    const int taken = std::clamp<int>(group.GroupValue, 1, columns - group.FirstParam + 1);
    surface.TableMerge(1, group.FirstParam, taken);
    SetText(surface, 1, group.FirstParam, group.Title);
    surface.TableAlignment(1, group.FirstParam, CellAlignment::Centre);
  }
  for (int column = 1; column <= columns; ++column) {
    SetText(surface, headings, column, accessory.ParamNames.At(column));
  }
  for (int line = lines.First; line <= lines.Last; ++line) {
    const Table<std::string>& values = rows.At(line);
    for (int column = 1; column <= columns; ++column) {
      SetText(surface, headings + line - lines.First + 1, column,
              column <= values.UBound() ? values.At(column) : std::string());
    }
  }
  surface.EndTable();
}

void DrawType2Pages(PrintSurface& surface, const AccDef& accessory, const TextRows& rows,
                    double top) {
  constexpr double stripGap = 3;  // mm, between the table and the strip
  const double room = StripTop(surface) - top - stripGap;
  const int headings = HeadingRows(accessory);
  const int perPage = Whole(std::trunc(room / TableRowHeight)) - headings;
  const int count = rows.UBound();
  // A page that is filled in part counts. Without room for a line there is none.
  const int pages = Whole(std::trunc(Divide(count, perPage) + 0.999));
  for (int page = 1; page <= pages; ++page) {
    const LineRange lines{perPage * (page - 1) + 1, std::min(perPage * page, count)};
    DrawType2Table(surface, accessory, rows, lines, top);
    if (page == pages) break;
    surface.NewPage();
    DrawSheetFrame(surface, FrameKind);
    // Even where there is none: deliberate, the second page then fails.
    PlacePicture(surface, accessory);
  }
}

}  // namespace

void DrawAccessorySheet(PrintSurface& surface, AccessoryType type, const TextRows& rows,
                        bool openDocument, bool closeDocument) {
  if (openDocument) {
    StartSheets(surface);
    surface.FontSize(8);
  }
  DrawSheetFrame(surface, FrameKind);
  DrawAccessoryDetail(surface, type, rows);
  if (closeDocument) {
    surface.EndDoc();
    surface.Finish();
  }
}

void DrawAccessoryDetail(PrintSurface& surface, AccessoryType type, const TextRows& rows) {
  const AccDef& accessory = AccDefs.At(CurrentAcc);
  double top = accessory.Value3 + TableGap;
  if (accessory.DrawingFile != "None") {
    top = accessory.Value3 + PlacePicture(surface, accessory) + TableGap;
  }
  if (type == AccessoryType::One) {
    DrawType1Table(surface, accessory, rows, top);
  } else {
    DrawType2Pages(surface, accessory, rows, top);
  }
}

}  // namespace orvane
