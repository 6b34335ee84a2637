#include "drawing/accessory_sheet.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "drawing/primitives.h"
#include "drawing/sheet_frame.h"

namespace orvane {

namespace {

constexpr double TableGap = 5;          // mm, between the picture and its table
constexpr int TableFontSize = 11;       // points
constexpr double TableRowHeight = 5;    // mm
constexpr double TablePadding = 5;      // mm, of a type 1 column around its widest text
constexpr int LeastColumnWidth = 1134;  // twips, 20 mm, of a type 2 column

// An accessory on its sheet.
struct View {
  PrintSurface& Surface;
  const SheetSource& Source;
  const AccDef& Accessory;
  const TextRows& Rows;
};

// The width between the margins, mm.
double Room(const View& view) {
  return view.Surface.PageWidth() / TwipsPerMm - view.Source.Margins.LeftMargin -
         view.Source.Margins.RightMargin;
}

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

// The catalogue names an accessory's picture, or says that there is none.
bool HasPicture(const AccDef& accessory) {
  return accessory.DrawingFile != "None";
}

// Loads the accessory's picture and places it in the middle between the margins; gives its height
// on the page, mm.
double PlacePicture(const View& view) {
  const AccDef& accessory = view.Accessory;
  const auto picture = view.Source.LoadPicture("\\Drawings\\" + accessory.DrawingFile + ".wmf");
  const double proportion = picture->Width / picture->Height;
  const double height = accessory.Value1 / proportion;
  const double room = Room(view) - accessory.Value1;
  view.Surface.DrawPicture(picture, Length::OfMm(view.Source.Margins.LeftMargin + room / 2),
                           Length::OfMm(accessory.Value3), Length::OfMm(accessory.Value1),
                           Length::OfMm(height));
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

void DrawType1Table(const View& view, double top) {
  PrintSurface& surface = view.Surface;
  const std::vector<UsedSize> sizes = UsedSizes(view.Accessory, view.Rows);
  surface.FontSize(TableFontSize);
  // Without the flag the long texts stand in a column that shows nothing.
  const double textWidth =
      view.Accessory.Flag != False ? ColumnWidth(surface, sizes, &UsedSize::Text) : 0;
  const double codeWidth = ColumnWidth(surface, sizes, &UsedSize::Code);
  constexpr double numberWidth = 20;
  const double room = Room(view);

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
  SetText(surface, 1, 1, "Descripton");  // as on all sheets that the works have on file
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

void DrawType2Table(const View& view, LineRange lines, double top) {
  PrintSurface& surface = view.Surface;
  const AccDef& accessory = view.Accessory;
  const PageMargins& margins = view.Source.Margins;
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

  double left = surface.PageWidth() - (margins.LeftMargin + margins.RightMargin) * TwipsPerMm;
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
    const Table<std::string>& values = view.Rows.At(line);
    for (int column = 1; column <= columns; ++column) {
      SetText(surface, headings + line - lines.First + 1, column,
              column <= values.UBound() ? values.At(column) : std::string());
    }
  }
  surface.EndTable();
}

void DrawType2Pages(const View& view, double top) {
  constexpr double stripGap = 3;  // mm, between the table and the strip
  const double room = StripTop(view.Surface, view.Source) - top - stripGap;
  const int headings = HeadingRows(view.Accessory);
  const int perPage = Whole(std::trunc(room / TableRowHeight)) - headings;
  const int count = view.Rows.UBound();
  // A page that is filled in part counts. Without room for a line there is none.
  const int pages = Whole(std::trunc(Divide(count, perPage) + 0.999));
  for (int page = 1; page <= pages; ++page) {
    const LineRange lines{perPage * (page - 1) + 1, std::min(perPage * page, count)};
    DrawType2Table(view, lines, top);
    if (page == pages) break;
    view.Surface.NewPage();
    DrawSheetFrame(view.Surface, view.Source, view.Accessory);
    if (HasPicture(view.Accessory)) PlacePicture(view);
  }
}

}  // namespace

void DrawAccessorySheet(PrintSurface& surface, const AccDef& accessory, AccessoryType type,
                        const TextRows& rows, bool openDocument, bool closeDocument) {
  DrawAccessorySheet(surface, PresentSource(), accessory, type, rows, openDocument, closeDocument);
}

void DrawAccessorySheet(PrintSurface& surface, const SheetSource& source, const AccDef& accessory,
                        AccessoryType type, const TextRows& rows, bool openDocument,
                        bool closeDocument) {
  if (openDocument) {
    StartSheets(surface, source.Margins);
    surface.FontSize(8);
  }
  DrawSheetFrame(surface, source, accessory);
  DrawAccessoryDetail(surface, source, accessory, type, rows);
  if (closeDocument) {
    surface.EndDoc();
    surface.Finish();
  }
}

void DrawAccessoryDetail(PrintSurface& surface, const SheetSource& source, const AccDef& accessory,
                         AccessoryType type, const TextRows& rows) {
  const View view{surface, source, accessory, rows};
  double top = accessory.Value3 + TableGap;
  if (HasPicture(accessory)) top = accessory.Value3 + PlacePicture(view) + TableGap;
  if (type == AccessoryType::One) {
    DrawType1Table(view, top);
  } else {
    DrawType2Pages(view, top);
  }
}

}  // namespace orvane
