#include "drawing/table_parts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvane {

namespace {

constexpr double LeastScale = 0.6;
constexpr double ScaleStep = 0.05;
constexpr double Tolerance = 1e-6;  // mm

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

double HeightOf(const TableGrid& grid, std::size_t parts, double scale) {
  double rows = 0;
  for (const GridRow& row : grid.Rows) rows += row.Height;
  const auto count = static_cast<double>(parts);
  return scale * rows * count + TablePartGap * (count - 1);
}

TableGrid Part(const TableGrid& grid, Columns columns, double left, double scale) {
  TableGrid part;
  part.Rows = grid.Rows;
  for (GridRow& row : part.Rows) row.Height *= scale;

  std::vector<std::size_t> taken = {0};
  for (std::size_t at = columns.First; at < columns.End; ++at) taken.push_back(at);
  part.Right = left;
  for (const std::size_t at : taken) {
    part.Columns.push_back({scale * grid.Columns[at].Width, part.Right});
    part.Right += part.Columns.back().Width;
  }
  for (std::size_t row = 0; row < grid.Rows.size(); ++row) {
    for (std::size_t at = 0; at < taken.size(); ++at) {
      GridCell cell = grid.At(row, taken[at]);
      cell.Type.Size *= scale;
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

  double scale = 1;
  std::vector<Columns> parts = Broken(grid, width, scale);
  while (top + HeightOf(grid, parts.size(), scale) > room.Bottom + Tolerance &&
         scale > LeastScale + Tolerance) {
    scale = std::max(scale - ScaleStep, LeastScale);
    parts = Broken(grid, width, scale);
  }

  std::vector<TableGrid> grids;
  for (const Columns& columns : parts) grids.push_back(Part(grid, columns, room.Left, scale));
  return grids;
}

}  // namespace orvane
