#include "drawing/page_tables.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "drawing/text_fit.h"
#include "drawing/text_flow.h"

namespace orvane {

namespace {

constexpr double LineWidth = 0.1;  // of borders, mm
// Sums of heights and their products differ in the last digits.
constexpr double Tolerance = 1e-6;

// What a cell keeps free around its texts, mm.
struct CellPadding {
  double Sides = 0;
  double Ends = 0;  // above and below
};
constexpr CellPadding SheetPadding{0.5, 0};
constexpr CellPadding ReportPadding{1, 0.3};

// A row, or a piece of one, on the present page.
struct PlacedRow {
  std::size_t Row = 0;
  double Top = 0;
  double Bottom = 0;
  bool First = true;  // whether the piece holds the row's beginning, and its end
  bool Last = true;
};

// The text of one cell, in lines.
struct CellLines {
  std::size_t Column = 0;
  std::size_t Next = 0;  // lines not placed yet, from this one up to the end
  std::size_t End = 0;
  double LineHeight = 0;  // mm
  double Ascent = 0;
};

// The texts of a row. All lines stand in one list.
struct RowLines {
  std::size_t Row = SIZE_MAX;
  std::vector<CellLines> Cells;
  std::vector<std::string_view> Lines;
};

class TableLayout {
 public:
  TableLayout(const FontMetrics& metrics, const TableGrid& grid, int border, double y,
              FlowPage page, const std::function<FlowPage()>& nextPage)
      : metrics_(metrics),
        grid_(grid),
        border_(border),
        padding_(border == ReportTableBorder ? ReportPadding : SheetPadding),
        left_(grid.Columns.front().Left),
        y_(y),
        page_(page),
        nextPage_(nextPage),
        atTop_(y <= page.Top + Tolerance) {}

  double LayOut();

 private:
  // The rows before they are placed.
  bool FitsPaper() const;
  std::size_t CountHeadings() const;
  void Measure(std::size_t row);
  void MeasureFont(const Font& font);
  double HeightOf(std::size_t row);
  bool IsHeading(std::size_t row) const { return row < headings_; }
  double RepeatedHeight() const;

  // Their way over the pages.
  void Flow(std::size_t row);
  void Split(std::size_t row);
  void GoToNextPage(bool repeatHeading);
  bool Fits(double height) const { return y_ + height <= page_.Bottom + Tolerance; }

  // What they look like.
  void Place(std::size_t row);
  double LinesThatFit(const CellLines& cell) const;
  void AddLines(const RowLines& lines, const CellLines& cell, std::size_t count, double height);
  void AddText(const RowLines& lines, const CellLines& cell, std::string_view text, double top,
               double rowHeight);
  double RoomOf(std::size_t row, std::size_t column) const;
  void FinishPage();
  void AddUprights();
  void AddLevelLine(double y, double width);

  const FontMetrics& metrics_;
  const TableGrid& grid_;
  int border_;
  CellPadding padding_;
  double left_;
  double y_;
  FlowPage page_;
  const std::function<FlowPage()>& nextPage_;

  std::size_t headings_ = 0;
  double headingHeight_ = 0;
  // Nothing stands on this page above the next row but a heading: the row has to be placed.
  bool atTop_;
  std::vector<PlacedRow> placed_;
  RowLines lines_;  // of the row that was measured last
  Font measuredFont_{"", 0, false, false};
  double lineHeight_ = 0;  // of that font, mm
  double ascent_ = 0;
};

double TableLayout::LayOut() {
  const bool whole = FitsPaper();
  headings_ = CountHeadings();
  for (std::size_t row = 0; row < headings_; ++row) headingHeight_ += HeightOf(row);
  for (std::size_t row = 0; row < grid_.Rows.size(); ++row) {
    if (whole) {
      Place(row);
    } else {
      Flow(row);
    }
  }
  FinishPage();
  return y_;
}

// Whether all rows have a height and the paper has room for them.
bool TableLayout::FitsPaper() const {
  double bottom = y_;
  for (const GridRow& row : grid_.Rows) {
    if (row.Height <= 0) return false;
    bottom += row.Height;
  }
  return bottom <= page_.PaperHeight + Tolerance;
}

// The first rows with rules; a table of nothing else has no heading.
std::size_t TableLayout::CountHeadings() const {
  const auto other = std::find_if(grid_.Rows.begin(), grid_.Rows.end(), [](const GridRow& row) {
    return row.RuleAbove <= 0 && row.RuleBelow <= 0;
  });
  return other == grid_.Rows.end() ? 0 : static_cast<std::size_t>(other - grid_.Rows.begin());
}

void TableLayout::Measure(std::size_t row) {
  if (lines_.Row == row) return;
  lines_.Row = row;
  lines_.Cells.clear();
  lines_.Lines.clear();
  const bool grows = grid_.Rows[row].Height <= 0;
  for (std::size_t column = 0; column < grid_.Columns.size(); ++column) {
    const GridCell& cell = grid_.At(row, column);
    if (cell.Span == 0 || grid_.WidthOf(row, column) <= 0) continue;
    CellLines cellLines;
    cellLines.Column = column;
    cellLines.Next = lines_.Lines.size();
    if (grows) {
      const double room = grid_.WidthOf(row, column) - 2 * padding_.Sides;
      AddWrappedLines(lines_.Lines, metrics_, cell.Type, cell.Text,
                      (room + Tolerance) * TwipsPerMm);
    } else {
      lines_.Lines.push_back(cell.Text);
    }
    cellLines.End = lines_.Lines.size();
    MeasureFont(cell.Type);
    cellLines.LineHeight = lineHeight_;
    cellLines.Ascent = ascent_;
    lines_.Cells.push_back(cellLines);
  }
}

// Most cells of a table have one font.
void TableLayout::MeasureFont(const Font& font) {
  if (font == measuredFont_) return;
  measuredFont_ = font;
  lineHeight_ = LineTwips(metrics_, font) / TwipsPerMm;
  ascent_ = metrics_.Ascent(font) / TwipsPerMm;
}

double TableLayout::HeightOf(std::size_t row) {
  if (grid_.Rows[row].Height > 0) return grid_.Rows[row].Height;
  Measure(row);
  double height = 0;
  for (const CellLines& cell : lines_.Cells) {
    height = std::max(height, static_cast<double>(cell.End - cell.Next) * cell.LineHeight);
  }
  return height + 2 * padding_.Ends;
}

// A heading that would fill most of a page is not repeated.
double TableLayout::RepeatedHeight() const {
  return headingHeight_ <= (page_.Bottom - page_.Top) / 2 ? headingHeight_ : 0;
}

void TableLayout::Flow(std::size_t row) {
  double needed = HeightOf(row);
  if (row == 0 && headings_ > 0) needed = headingHeight_ + HeightOf(headings_);
  if (Fits(needed)) return Place(row);

  const double room = page_.Bottom - page_.Top - RepeatedHeight();
  const bool grows = grid_.Rows[row].Height <= 0;
  if (grows && !IsHeading(row) && needed > room + Tolerance) return Split(row);
  if (!atTop_) GoToNextPage(!IsHeading(row));
  Place(row);
}

// Each cell gives what lines fit, until all are placed.
void TableLayout::Split(std::size_t row) {
  Measure(row);
  RowLines lines = std::exchange(lines_, {});
  bool first = true;
  bool last = false;
  while (!last) {
    double height = 0;
    last = true;
    std::vector<std::size_t> counts;
    for (const CellLines& cell : lines.Cells) {
      const std::size_t left = cell.End - cell.Next;
      const double fit = std::max(LinesThatFit(cell), atTop_ ? 1.0 : 0.0);
      const std::size_t count =
          fit >= static_cast<double>(left) ? left : static_cast<std::size_t>(fit);
      counts.push_back(count);
      height = std::max(height, static_cast<double>(count) * cell.LineHeight);
      if (count < left) last = false;
    }
    if (last || height > 0) {
      height += 2 * padding_.Ends;
      for (std::size_t i = 0; i < lines.Cells.size(); ++i) {
        AddLines(lines, lines.Cells[i], counts[i], height);
        lines.Cells[i].Next += counts[i];
      }
      placed_.push_back({row, y_, y_ + height, first, last});
      y_ += height;
      first = false;
      atTop_ = false;
    }
    if (!last) GoToNextPage(true);
  }
}

// Whole lines of the cell down to the bottom margin, none above it.
double TableLayout::LinesThatFit(const CellLines& cell) const {
  const double room = std::max(page_.Bottom - y_ - 2 * padding_.Ends + Tolerance, 0.0);
  return cell.LineHeight > 0 ? std::floor(room / cell.LineHeight)
                             : static_cast<double>(cell.End - cell.Next);
}

void TableLayout::GoToNextPage(bool repeatHeading) {
  FinishPage();
  page_ = nextPage_();
  y_ = page_.Top;
  atTop_ = true;
  if (!repeatHeading || RepeatedHeight() <= 0) return;
  for (std::size_t row = 0; row < headings_; ++row) Place(row);
}

void TableLayout::Place(std::size_t row) {
  const double height = HeightOf(row);
  Measure(row);
  for (const CellLines& cell : lines_.Cells) {
    AddLines(lines_, cell, cell.End - cell.Next, height);
  }
  placed_.push_back({row, y_, y_ + height});
  y_ += height;
  if (!IsHeading(row)) atTop_ = false;
}

// The cell's next lines, in the middle of that height from the present position down.
void TableLayout::AddLines(const RowLines& lines, const CellLines& cell, std::size_t count,
                           double height) {
  double top = y_ + (height - static_cast<double>(count) * cell.LineHeight) / 2;
  for (std::size_t i = cell.Next; i < cell.Next + count; ++i) {
    AddText(lines, cell, lines.Lines[i], top, height);
    top += cell.LineHeight;
  }
}

void TableLayout::AddText(const RowLines& lines, const CellLines& cell, std::string_view text,
                          double top, double rowHeight) {
  if (text.empty()) return;
  const GridCell& look = grid_.At(lines.Row, cell.Column);
  const double cellLeft = grid_.Columns[cell.Column].Left;
  const double cellWidth = RoomOf(lines.Row, cell.Column);
  const bool grows = grid_.Rows[lines.Row].Height <= 0;

  TextShape shape;
  shape.TopLeft.Y = top;
  shape.Text = text;
  shape.Type = look.Type;
  shape.Color = look.Color;
  shape.Ascent = cell.Ascent;

  // A text on one line may use the padding to fit; one that is fitted leaves it free again.
  const double between = cellWidth - 2 * padding_.Sides;
  double width = TextTwips(metrics_, look.Type, text) / TwipsPerMm;
  if (width > (grows ? between : cellWidth) + Tolerance) {
    width = FitText(shape, metrics_, between > 0 ? between : cellWidth);
  }
  const double slack = cellWidth - width;
  const double padding = std::clamp(slack, 0.0, padding_.Sides);
  shape.TopLeft.X = cellLeft + padding;
  if (look.Alignment == CellAlignment::Centre) shape.TopLeft.X = cellLeft + slack / 2;
  if (look.Alignment == CellAlignment::Right) shape.TopLeft.X = cellLeft + slack - padding;

  shape.Clipped = !grows && cell.LineHeight > rowHeight + Tolerance;
  if (shape.Clipped) shape.Clip = {cellLeft, y_, cellWidth, rowHeight};
  page_.Shapes->emplace_back(std::move(shape));
}

// The width that a cell has for its text, with the cells that it takes in.
double TableLayout::RoomOf(std::size_t row, std::size_t column) const {
  const double left = grid_.Columns[column].Left;
  const double width = grid_.WidthOf(row, column);
  return left + width > page_.PaperWidth ? page_.Right - left : width;
}

// The lines around what was placed on this page.
void TableLayout::FinishPage() {
  if (!placed_.empty() && grid_.Right > left_) {
    for (const PlacedRow& row : placed_) {
      const GridRow& rules = grid_.Rows[row.Row];
      if (border_ == AllTableLines) AddLevelLine(row.Top, LineWidth);
      if (row.First && rules.RuleAbove > 0) AddLevelLine(row.Top, rules.RuleAbove);
      if (row.Last && rules.RuleBelow > 0) AddLevelLine(row.Bottom, rules.RuleBelow);
    }
    if (border_ == ReportTableBorder) AddLevelLine(placed_.front().Top, LineWidth);
    if (border_ == AllTableLines || border_ == ReportTableBorder) {
      AddLevelLine(placed_.back().Bottom, LineWidth);
      AddUprights();
    }
  }
  placed_.clear();
}

// One line for each edge of a column, in as many pieces as merged cells leave.
void TableLayout::AddUprights() {
  const auto add = [&](double x, double top, double bottom) {
    page_.Shapes->emplace_back(LineShape{{x, top}, {x, bottom}, {LineWidth, Black, true}});
  };
  add(left_, placed_.front().Top, placed_.back().Bottom);
  for (std::size_t column = 0; column < grid_.Columns.size(); ++column) {
    if (grid_.Columns[column].Width <= 0) continue;
    std::size_t next = column + 1;
    while (next < grid_.Columns.size() && grid_.Columns[next].Width <= 0) ++next;
    const double x = grid_.RightOf(column);
    const PlacedRow* from = nullptr;
    const PlacedRow* to = nullptr;
    for (const PlacedRow& row : placed_) {
      const bool merged = next < grid_.Columns.size() && grid_.At(row.Row, next).Span == 0;
      if (merged && from) add(x, from->Top, to->Bottom);
      if (merged) {
        from = nullptr;
      } else if (!from) {
        from = &row;
      }
      to = &row;
    }
    if (from) add(x, from->Top, to->Bottom);
  }
}

void TableLayout::AddLevelLine(double y, double width) {
  page_.Shapes->emplace_back(LineShape{{left_, y}, {grid_.Right, y}, {width, Black, true}});
}

}  // namespace

double LayOutTable(const FontMetrics& metrics, const TableGrid& grid, int border, double y,
                   FlowPage page, const std::function<FlowPage()>& nextPage) {
  if (grid.Rows.empty() || grid.Columns.empty()) return y;
  return TableLayout(metrics, grid, border, y, page, nextPage).LayOut();
}

}  // namespace orvane
