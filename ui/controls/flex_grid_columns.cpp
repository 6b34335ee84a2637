// The widths of a grid's columns, and the height of its heading that follows from them.
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "ui/controls/flex_grid.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// Around a heading, device-independent pixels.
constexpr int HeadingMargin = 3;

int HeadingAir(const QHeaderView& header) {
  const int margin = header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
  return std::max(HeadingMargin, margin);
}

}  // namespace

void FlexGrid::SetColumnRatio(std::vector<int> ratio, std::vector<int> leastFigures) {
  ratio_ = std::move(ratio);
  leastFigures_ = std::move(leastFigures);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  LayColumns();
}

// Measuring is left to where a longer or a shorter figure asks for it: this is done at each row
// change.
void FlexGrid::FitFigures() {
  if (Figures() != figures_) LayColumns();
}

int FlexGrid::LeastWidth() const {
  int width = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
  for (std::size_t column = 0; column < leastFigures_.size(); ++column) {
    width += NeededWidth(column, leastFigures_[column]);
  }
  return width;
}

void FlexGrid::SetColumnsByHeading(int narrow, int least) {
  narrowColumn_ = narrow;
  leastColumn_ = least;
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  LayColumns();
}

void FlexGrid::LayColumns() {
  if (ratio_.empty() && narrowColumn_ == 0) return;
  figures_ = Figures();
  needed_ = NeededWidths();
  if (narrowColumn_ > 0) {
    LayColumnsByHeading();
  } else {
    LayColumnsByRatio();
  }
  LayHeading();
  if (Scrolled) Guard([&] { Scrolled(); });
}

// The width of a heading that is broken at its blanks.
int FlexGrid::HeadingWidth(int column) const {
  const QFontMetrics metrics = horizontalHeader()->fontMetrics();
  int width = 0;
  for (const QString& word : ToQt(TextMatrix(0, column)).split(u' ', Qt::SkipEmptyParts)) {
    width = std::max(width, metrics.horizontalAdvance(word));
  }
  return width == 0 ? 0 : width + 2 * HeadingAir(*horizontalHeader()) + 1;
}

void FlexGrid::LayColumnsByHeading() {
  const QFontMetrics metrics = horizontalHeader()->fontMetrics();
  setColumnWidth(0, narrowColumn_);
  for (int column = 1; column < Cols(); ++column) {
    const int heading = metrics.horizontalAdvance(ToQt(TextMatrix(0, column)));
    setColumnWidth(column,
                   std::max(leastColumn_, heading + 2 * HeadingAir(*horizontalHeader()) + 1));
  }
}

// The width of a cell that shows the text whole: with air on both sides and the line of the grid.
// Letters are set at fractions of a pixel, and a text that lacks one is cut off.
int FlexGrid::CellWidth(const QString& text) const {
  const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
  const int gridLine = 1;
  const double width = QFontMetricsF(font()).horizontalAdvance(text);
  return static_cast<int>(std::ceil(width)) + 2 * margin + gridLine;
}

// Digits are all of one width; points and signs are narrower.
int FlexGrid::NeededWidth(std::size_t column, int figures) const {
  const int heading = HeadingWidth(static_cast<int>(column));
  return figures == 0 ? heading : std::max(heading, CellWidth(QString(figures, u'0')));
}

std::vector<int> FlexGrid::Figures() const {
  std::vector<int> figures = leastFigures_;
  for (std::size_t column = 0; column < figures.size(); ++column) {
    figures[column] = std::max(figures[column], model_->LongestFigure(static_cast<int>(column)));
  }
  return figures;
}

std::vector<int> FlexGrid::NeededWidths() const {
  std::vector<int> widths;
  for (std::size_t column = 0; column < figures_.size(); ++column) {
    widths.push_back(NeededWidth(column, figures_[column]));
  }
  return widths;
}

void FlexGrid::LayColumnsByRatio() {
  const std::vector<int> widths = SharedWidths();
  for (std::size_t column = 0; column < widths.size(); ++column) {
    setColumnWidth(static_cast<int>(column), widths[column]);
  }
}

// A column whose share is too small for its figures leaves the sharing with what it needs, which
// makes the others' shares smaller: so over again until every share suffices.
std::vector<int> FlexGrid::SharedWidths() const {
  std::vector<bool> shares(ratio_.size(), true);
  long long width = viewport()->width();
  long long sum = std::accumulate(ratio_.begin(), ratio_.end(), 0LL);
  for (bool again = true; again;) {
    again = false;
    for (std::size_t column = 0; column < needed_.size(); ++column) {
      if (!shares[column] || width * ratio_[column] >= sum * needed_[column]) continue;
      shares[column] = false;
      width = std::max(0LL, width - needed_[column]);
      sum -= ratio_[column];
      again = true;
    }
  }
  std::vector<int> widths;
  long long passed = 0;
  long long left = 0;
  for (std::size_t column = 0; column < ratio_.size(); ++column) {
    if (!shares[column]) {
      widths.push_back(needed_[column]);
      continue;
    }
    passed += ratio_[column];
    // Edges are worked out from the left, so that the roundings don't add up.
    const long long right = width * passed / sum;
    widths.push_back(static_cast<int>(right - left));
    left = right;
  }
  return widths;
}

// A heading that its narrow column can't hold in one line is broken into two.
void FlexGrid::LayHeading() {
  const QFontMetrics metrics = horizontalHeader()->fontMetrics();
  bool twoLines = false;
  for (int column = 0; column < Cols(); ++column) {
    const QString heading = ToQt(TextMatrix(0, column));
    if (!heading.contains(u' ')) continue;
    const int width = metrics.horizontalAdvance(heading) + 2 * HeadingMargin;
    twoLines = twoLines || width > columnWidth(column);
  }
  const int lines = twoLines ? 2 : 1;
  int height = lines * metrics.lineSpacing() + 2 * HeadingMargin;
  if (model_->HasGroupTitles()) height *= 2;
  if (horizontalHeader()->minimumHeight() != height) horizontalHeader()->setFixedHeight(height);
}

}  // namespace orvane
