#include "drawing/table_parts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvane {

namespace {

constexpr double LeastLetters = 0.6;
constexpr double LeastAcross = 0.35;
constexpr double LeastDown = 0.5;
constexpr double ScaleStep = 0.05;
constexpr double Tolerance = 1e-6;  // mm

// What a table in parts is made smaller by.
struct Scales {
  double Letters = 1;
  double Across = 1;  // columns
  double Down = 1;    // rows
};

// The columns of one part behind the first one of the table: from one up to, not including,
// another.
struct Columns {
  std::size_t First = 0;
  std::size_t End = 0;
};

double WidthOf(const TableGrid& grid, Columns columns) {
  double width = grid.Columns.front().Width;
  for (std::size_t at = columns.First; at < columns.End; ++at) width += grid.Columns[at].Width;
  return width;
}

// As many columns a part as have room at that scale.
std::vector<Columns> Broken(const TableGrid& grid, double room, double scale) {
  std::vector<Columns> parts;
  for (std::size_t first = 1; first < grid.Columns.size();) {
    Columns part{first, first + 1};
    while (part.End < grid.Columns.size() &&
           scale * WidthOf(grid, {first, part.End + 1}) <= room + Tolerance) {
      ++part.End;
    }
    parts.push_back(part);
    first = part.End;
  }
  return parts;
}

// The same columns in as many parts with as many columns each as the others, which leaves more room
// beside them; as they were where columns of different widths don't allow it.
std::vector<Columns> Balanced(const TableGrid& grid, const std::vector<Columns>& parts, double room,
                              double scale) {
  const std::size_t end = grid.Columns.size();
  const std::size_t each = (end - 1 + parts.size() - 1) / parts.size();
  std::vector<Columns> balanced;
  for (std::size_t first = 1; first < end; first += each) {
    balanced.push_back({first, std::min(first + each, end)});
    if (scale * WidthOf(grid, balanced.back()) > room + Tolerance) return parts;
  }
  return balanced;
}

double HeightOf(const TableGrid& grid, std::size_t parts, double down) {
  double rows = 0;
  for (const GridRow& row : grid.Rows) rows += row.Height;
  const auto count = static_cast<double>(parts);
  return down * rows * count + TablePartGap * (count - 1);
}

// The next smaller ones: all of it by turns down to the least letters, then the columns alone, in
// which a text that has no room is set narrower, and at last the air of the rows. False if there
// are none.
bool MakeSmaller(Scales& scales) {
  const auto step = [](double& scale, double least) {
    if (scale <= least + Tolerance) return false;
    scale = std::max(scale - ScaleStep, least);
    return true;
  };
  if (step(scales.Letters, LeastLetters)) {
    scales.Across = scales.Down = scales.Letters;
    return true;
  }
  return step(scales.Across, LeastAcross) || step(scales.Down, LeastDown);
}

TableGrid Part(const TableGrid& grid, Columns columns, double left, const Scales& scales) {
  TableGrid part;
  part.Rows = grid.Rows;
  for (GridRow& row : part.Rows) row.Height *= scales.Down;

  std::vector<std::size_t> taken = {0};
  for (std::size_t at = columns.First; at < columns.End; ++at) taken.push_back(at);
  part.Right = left;
  for (const std::size_t at : taken) {
    part.Columns.push_back({scales.Across * grid.Columns[at].Width, part.Right});
    part.Right += part.Columns.back().Width;
  }
  for (std::size_t row = 0; row < grid.Rows.size(); ++row) {
    for (std::size_t at = 0; at < taken.size(); ++at) {
      GridCell cell = grid.At(row, taken[at]);
      cell.Type.Size *= scales.Letters;
      // The cells that one has taken in may have gone to another part.
      const auto room = static_cast<int>(at == 0 ? 1 : taken.size() - at);
      const bool orphan = cell.Span == 0 && at <= 1;
      if (orphan) cell.Text.clear();
      cell.Span = orphan ? 1 : std::min(cell.Span, room);
      part.Cells.push_back(std::move(cell));
    }
  }
  return part;
}

}  // namespace

std::vector<TableGrid> TableParts(const TableGrid& grid, const SheetRoom& room, double top) {
  if (grid.Columns.size() < 3) return {grid};
  const double width = room.Right - room.Left;
  const double whole = WidthOf(grid, {1, grid.Columns.size()});
  if (whole <= width + Tolerance) return {grid};

  Scales scales;
  std::vector<Columns> parts = Broken(grid, width, scales.Across);
  while (top + HeightOf(grid, parts.size(), scales.Down) > room.Bottom + Tolerance &&
         MakeSmaller(scales)) {
    parts = Broken(grid, width, scales.Across);
  }

  parts = Balanced(grid, parts, width, scales.Across);
  const double left =
      std::max(room.Right - scales.Across * WidthOf(grid, parts.front()), room.Left);
  std::vector<TableGrid> grids;
  for (const Columns& columns : parts) grids.push_back(Part(grid, columns, left, scales));
  return grids;
}

}  // namespace orvane
