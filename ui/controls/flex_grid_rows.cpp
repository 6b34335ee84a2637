// The rows of a grid that are chosen, and the mouse that chooses them in its fixed column.
#include <QItemSelection>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <algorithm>

#include "ui/controls/flex_grid.h"
#include "ui/platform/guard.h"

namespace orvane {

namespace {

// A row comes into sight as often while a drag waits beyond the rows, in milliseconds.
constexpr int DragPace = 40;

}  // namespace

// Readers of the screen follow the toolkit's own selection; nothing else hangs on it.
void FlexGrid::ShowChosen(const std::vector<int>& rows) {
  QItemSelection chosen;
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t last = first;
    while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1) ++last;
    chosen.append({model_->index(rows[first] - 1, 0), model_->index(rows[last] - 1, Cols() - 1)});
    first = last + 1;
  }
  selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
}

int FlexGrid::PageRows() const {
  return std::max(1, viewport()->height() / std::max(1, rowHeight(0)) - 1);
}

// True if the press was one in the fixed column that somebody wants to know.
bool FlexGrid::PressFixed(const QModelIndex& cell, const QMouseEvent& press) {
  EndDrag();
  const bool fixed = cell.isValid() && cell.column() < model_->FixedColumns();
  if (!fixed || !FixedPressed || press.button() != Qt::LeftButton) return false;
  Guard([&] {
    const int row = cell.row() + 1;
    if (FixedPressed(row, press.modifiers())) draggedRow_ = row;
  });
  return true;
}

// Whatever else is dragged selects nothing, and its release ends nothing.
void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
  if (draggedRow_ == 0) return;
  if (!event->buttons().testFlag(Qt::LeftButton)) return EndDrag();
  draggedY_ = event->position().toPoint().y();
  if (!dragging_.isActive()) dragging_.start(DragPace, this);
  Drag();
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  EndDrag();
}

void FlexGrid::timerEvent(QTimerEvent* event) {
  if (event->timerId() != dragging_.timerId()) return QTableView::timerEvent(event);
  const bool inSight = draggedY_ >= 0 && draggedY_ < viewport()->height();
  if (!inSight) Drag();
}

void FlexGrid::Drag() {
  const int last = Rows() - 1;
  int row = rowAt(draggedY_) + 1;
  if (draggedY_ < 0) {
    row = draggedRow_ - 1;
  } else if (draggedY_ >= viewport()->height()) {
    row = draggedRow_ + 1;
  } else if (row == 0) {
    row = last;  // the empty space below the rows
  }
  row = std::clamp(row, 1, std::max(1, last));
  if (row == draggedRow_) return;
  draggedRow_ = row;
  if (FixedDragged) Guard([&] { FixedDragged(row); });
}

void FlexGrid::EndDrag() {
  draggedRow_ = 0;
  dragging_.stop();
}

void FlexGrid::SetEmptyText(const QString& text) {
  emptyText_ = text;
  setAccessibleDescription(text);
}

void FlexGrid::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (emptyText_.isEmpty() || model_->DataRows() > 0) return;
  QPainter painter(viewport());
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const int margin = fontMetrics().height();
  painter.drawText(viewport()->rect().adjusted(margin, margin / 2, -margin, 0),
                   Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, emptyText_);
}

}  // namespace orvane
