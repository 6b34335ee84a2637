#include "drawing/off_gauge.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "core/numbers.h"
#include "core/section_families.h"
#include "drawing/length.h"
#include "drawing/primitives.h"
#include "drawing/section_views.h"

namespace orvane {

namespace {

// The key: what its letters measure.

// A point of the key's section, as shares of the section's dimensions.
struct KeyPoint {
  double OfDim4, OfDim5;  // its X
  double OfDim3;          // its Y
};

enum class Datum { First, Second };  // the end at which a measure begins

struct KeyMeasure {
  std::string_view Letter;
  KeyPoint First, Second;
  double Right, Down;  // where its dimension stands off the section, mm
  Datum From;
};

constexpr double Half = 1.0 / 2;
constexpr double Third = 1.0 / 3;
constexpr double TwoThirds = 2.0 / 3;

constexpr std::array<KeyMeasure, 3> ZKey = {{
    // clang-format off
    {"w", {0, 1, Half},      {0, 1, 1},         +3, 0, Datum::Second},
    {"t", {0, 1, 0},         {TwoThirds, 1, 0}, 0, -3, Datum::First},
    {"b", {0, Third, 1},     {0, 1, 1},         0, +3, Datum::Second},
    // clang-format on
}};
constexpr std::array<KeyMeasure, 3> CKey = {{
    // clang-format off
    {"w", {0, 0, Half},      {0, 0, 1},         -3, 0, Datum::Second},
    {"t", {0, 0, 0},         {TwoThirds, 0, 0}, 0, -3, Datum::First},
    {"b", {0, 0, 1},         {0, TwoThirds, 1}, 0, +3, Datum::First},
    // clang-format on
}};
// The top flange of an eaves beam follows the roof; the key, which is level, has no measure of it.
constexpr std::array<KeyMeasure, 2> EKey = {CKey[0], CKey[2]};

// The key of a family; empty for one without.
constexpr PerFamily<std::span<const KeyMeasure>> Keys = {{
    {"Z", ZKey},
    {"E", EKey},
    {"C", CKey},
    {"V", {}},
    {"R", {}},
    {"T", {}},
}};
static_assert(NamesEachFamily(Keys), "Keys needs one row for each section family");

std::span<const KeyMeasure> KeyOf(std::string_view sectionType) {
  const auto* key = FactOf(Keys, sectionType);
  return key == nullptr ? std::span<const KeyMeasure>() : *key;
}

Point OnPage(const KeyPoint& point, const SectionDim& dim, const Point& origin) {
  return {CrossScale * (point.OfDim4 * dim.Dim4 + point.OfDim5 * dim.Dim5) + origin.X,
          CrossScale * (point.OfDim3 * dim.Dim3) + origin.Y};
}

void DrawKeyMeasure(PrintSurface& surface, const KeyMeasure& measure, const SectionDim& dim,
                    const Point& origin) {
  const Point first = OnPage(measure.First, dim, origin);
  const Point second = OnPage(measure.Second, dim, origin);
  PenWidthMm(surface, ThinPen);
  DrawDimension(surface, first.X + measure.Right, first.Y + measure.Down, second.X + measure.Right,
                second.Y + measure.Down, measure.Letter);

  // A tick across the section's line, at the end that the hole stands for.
  constexpr double halfTick = 4.5;
  const Point& end = measure.From == Datum::First ? second : first;
  const bool upright = measure.Down != 0;
  const double reachX = upright ? 0 : halfTick;
  const double reachY = upright ? halfTick : 0;
  DrawLineMm(surface, end.X - reachX, end.Y - reachY, end.X + reachX, end.Y + reachY);
}

// The table: its rows below the letters.

std::string WebCell(const OffGaugeHole& hole) {
  const std::string first = ShortestText(hole.Web1);
  return hole.Web2 > 0 ? first + "," + ShortestText(hole.Web2) : first;
}

std::string PositiveCell(double distance) {
  return distance > 0 ? ShortestText(distance) : "";
}

std::string BottomCell(const OffGaugeHole& hole) {
  return PositiveCell(hole.Bottom);
}

std::string TopCell(const OffGaugeHole& hole) {
  return PositiveCell(hole.Top);
}

struct TableRow {
  std::string_view Label;
  std::string (*Cell)(const OffGaugeHole& hole);
};

// Behind the row of letters.
constexpr std::array<TableRow, 3> TableRows = {{
    {"w", WebCell},
    {"b", BottomCell},
    {"t", TopCell},
}};

}  // namespace

void AddOffGauge(Table<OffGaugeHole>& list, const Hole& hole, double drawX) {
  if (list.Empty() || list.At(list.UBound()).XPos != hole.XPos) {
    OffGaugeHole row;
    row.XPos = hole.XPos;
    row.DrawX = drawX;
    list.Append(row);
  }
  OffGaugeHole& last = list.At(list.UBound());
  const double bottom = Val(hole.BF);
  const double top = Val(hole.TF);
  const double web = Val(hole.W1);
  if (bottom > 0) last.Bottom = bottom;
  if (top > 0) last.Top = top;
  if (web > 0) (last.Web1 == 0 ? last.Web1 : last.Web2) = web;
}

std::string OffGaugeLetter(int row) {
  constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  if (row < 1 || static_cast<std::size_t>(row) > letters.size()) return {};
  return std::string(letters.substr(static_cast<std::size_t>(row) - 1, 1));
}

void DrawOffGaugeKey(const Sheet& sheet) {
  const std::span<const KeyMeasure> key = KeyOf(sheet.Section.SectionType);
  if (key.empty()) return;
  const Point origin = KeyOrigin(sheet);
  PenWidthMm(sheet.Surface, ObjectPen);
  DrawKeyEdges(sheet);
  for (const KeyMeasure& measure : key) {
    DrawKeyMeasure(sheet.Surface, measure, sheet.Dim, origin);
  }
}

void DrawOffGaugeTable(const Sheet& sheet, const Table<OffGaugeHole>& list) {
  if (list.Empty()) return;
  PrintSurface& surface = sheet.Surface;
  const PageMargins& margins = sheet.Source.Margins;
  const SheetRoom room = OffGaugeRoom(sheet);
  const double left = OffGaugeTableLeft(sheet, list.UBound());
  surface.Within(
      {.Left = OffGaugeStart(sheet, list.UBound()), .Right = KeyOrigin(sheet).X - TextGap});
  WriteTextAt(surface, "Off-gauge hole Y dims.", left, margins.TopMargin + OffGaugeTitleDrop);

  surface.Within(room);
  const int rows = OffGaugeRows(sheet.Section.SectionType);
  surface.CurrentY(Length::OfMm(margins.TopMargin + OffGaugeTableDrop));
  surface.StartTable();
  surface.TableIndent(Length::OfMm(left - margins.LeftMargin));
  surface.TableOnOnePage();
  surface.TableCell(TableSetting::Columns, 0, 0, list.UBound() + 1);
  surface.TableCell(TableSetting::Rows, 0, 0, rows);
  surface.TableCell(TableSetting::RowHeight, 0, 0, MmText(OffGaugeRowHeight));
  surface.TableCell(TableSetting::ColumnWidth, 0, 0, MmText(OffGaugeColumnWidth));
  surface.TableAlignment(0, 0, CellAlignment::Centre);
  for (int column = 1; column <= list.UBound(); ++column) {
    surface.TableCell(TableSetting::CellText, 1, column + 1, OffGaugeLetter(column));
  }
  for (int row = 2; row <= rows; ++row) {
    const TableRow& content = TableRows.at(static_cast<std::size_t>(row) - 2);
    surface.TableCell(TableSetting::CellText, row, 1, std::string(content.Label));
    for (int column = 1; column <= list.UBound(); ++column) {
      surface.TableCell(TableSetting::CellText, row, column + 1, content.Cell(list.At(column)));
    }
  }
  surface.TableBorder(AllTableLines);
  surface.EndTable();
  surface.Within({});
}

}  // namespace orvane
