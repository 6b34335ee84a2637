// The page-oriented surface that every sheet and report is drawn on. The drawing procedures know
// nothing of the device behind it.
#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "drawing/document.h"
#include "drawing/length.h"

namespace orvane {

enum class Brush { Solid = 0, Transparent = 1, DiagonalHatch = 7 };

enum class PageOrientation { Portrait = 0, Landscape = 1 };

// The room that a sheet has for a text or a table beside what else stands there, mm of the page;
// without an end where none is given.
struct SheetRoom {
  double Left = -std::numeric_limits<double>::infinity();
  double Right = std::numeric_limits<double>::infinity();
  double Bottom = std::numeric_limits<double>::infinity();
};

// Settings of a table or of its cells. A row or column of 0 means all of them.
enum class TableSetting {
  Rows = 1,            // a number
  Columns = 2,         // a number
  RowHeight = 7,       // a length text; rows without one grow with their text
  ColumnWidth = 13,    // a length text
  CellText = 18,       // a text
  CellTextColor = 21,  // a colour
  FontSize = 24,       // points
  Bold = 25,           // a number, 0 for no
  RuleAbove = 36,      // a length text: the width of a line over the row
  RuleBelow = 37,      // the same under it
};
using TableValue = std::variant<int, std::string, Rgb>;

// How text stands in a cell; in height it always stands in the middle.
enum class CellAlignment { Left, Centre = 6, Right = 8 };

// Ruled lines of a table.
constexpr int NoTableBorder = 0;
constexpr int AllTableLines = 7;
constexpr int ReportTableBorder = 9;

// Every operation may raise RuntimeError. Positions are absolute on the page.
class PrintSurface {
 public:
  virtual ~PrintSurface() = default;

  // Page and document.
  virtual void Orientation(PageOrientation orientation) = 0;
  virtual void MarginLeft(const Length& margin) = 0;
  virtual void MarginTop(const Length& margin) = 0;
  virtual void MarginRight(const Length& margin) = 0;
  virtual void MarginBottom(const Length& margin) = 0;
  virtual void MarginFooter(const Length& margin) = 0;
  virtual void HdrFontName(std::string_view name) = 0;
  virtual void HdrFontSize(double points) = 0;
  virtual void HdrFontBold(bool bold) = 0;
  // "|" divides left, centre and right; "%d" stands for the page's number.
  virtual void Header(std::string_view text) = 0;
  virtual void Footer(std::string_view text) = 0;
  // Paper size in the present orientation, twips.
  virtual double PageWidth() const = 0;
  virtual double PageHeight() const = 0;
  virtual void Clear() = 0;
  virtual void StartDoc() = 0;
  virtual void NewPage() = 0;
  virtual void EndDoc() = 0;
  // What an accessory's sheet says behind the end of its document; nothing has to follow from it.
  virtual void Finish() {}

  // What the operations that follow have for room, until it is told anew. It is no operation
  // itself: a sheet asks for the same with it and without. A surface that lays out gets a text of
  // Text() into it, from its left side on, and breaks a table that is wider into parts.
  virtual void Within(const SheetRoom&) {}
  // The blank at that place of the footer's text stands between two things, and is set as a comma.
  virtual void FooterBreak(std::size_t) {}

  // Text.
  virtual void FontName(std::string_view name) = 0;
  virtual void FontSize(double points) = 0;
  virtual void FontBold(bool bold) = 0;
  virtual void TextColor(Rgb color) = 0;
  virtual void CurrentX(const Length& x) = 0;
  virtual void CurrentY(const Length& y) = 0;
  // Written from the current position, its top left corner, which moves to the text's end.
  virtual void Text(std::string_view text) = 0;
  // A line of flowing text, or a blank line.
  virtual void Paragraph(std::string_view text) = 0;
  // Tenths of a degree, counter-clockwise; for TextBox alone.
  virtual void TextAngle(int tenths) = 0;
  virtual void TextAlign(int alignment) = 0;
  // Size of the text in the current font, whole twips.
  virtual double TextWidth(std::string_view text) = 0;
  virtual double TextHeight(std::string_view text) = 0;
  // The text in a box filled and framed by the current brush and pen, turned about its top left
  // corner.
  virtual void TextBox(std::string_view text, const Length& left, const Length& top,
                       const Length& width, const Length& height, bool transparent) = 0;

  // Lines and shapes.
  virtual void PenWidth(const Length& width) = 0;
  virtual void PenStyle(int style) = 0;  // 0: solid, the one in use
  virtual void PenColor(Rgb color) = 0;
  virtual void BrushStyle(Brush style) = 0;
  virtual void BrushColor(Rgb color) = 0;
  virtual void DrawLine(const Length& x1, const Length& y1, const Length& x2, const Length& y2) = 0;
  virtual void DrawRectangle(const Length& x1, const Length& y1, const Length& x2,
                             const Length& y2) = 0;
  virtual void DrawCircle(const Length& x, const Length& y, const Length& radius) = 0;
  // An arc from the start to the end angle, radians, counter-clockwise from the X axis as seen on
  // the page.
  virtual void DrawArc(const Length& x, const Length& y, const Length& radius, double start,
                       double end) = 0;
  virtual void DrawEllipse(const Length& x1, const Length& y1, const Length& x2,
                           const Length& y2) = 0;
  // x and y of each point in turn, blanks between them, twips.
  virtual void Polygon(std::string_view points) = 0;
  // At its natural size, or stretched into a size.
  virtual void DrawPicture(const std::shared_ptr<const Picture>& picture, const Length& left,
                           const Length& top) = 0;
  virtual void DrawPicture(const std::shared_ptr<const Picture>& picture, const Length& left,
                           const Length& top, const Length& width, const Length& height) = 0;

  // Tables, at the current position.
  virtual void StartTable() = 0;
  virtual void TableCell(TableSetting setting, int row, int column, const TableValue& value) = 0;
  virtual void TableBorder(int setting) = 0;
  virtual void TableIndent(const Length& fromLeftMargin) = 0;
  virtual void TableAlignment(int row, int column, CellAlignment alignment) = 0;
  virtual void TableMerge(int row, int column, int columns) = 0;
  // For a table that has its place on the sheet: it stands there whole, over the page's edge too.
  virtual void TableOnOnePage() = 0;
  virtual void EndTable() = 0;
};

}  // namespace orvane
