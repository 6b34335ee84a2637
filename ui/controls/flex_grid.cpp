#include "ui/controls/flex_grid.h"

#include <QColor>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionHeaderV2>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

#include "core/text.h"
#include "ui/controls/chosen_look.h"
#include "ui/controls/fault_sign.h"
#include "ui/controls/refused_look.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// Backgrounds of the cells, the same in a light and a dark desktop; their text is black.
constexpr QRgb GreyCell = 0xFFE0E0E0;
constexpr QRgb WhiteCell = 0xFFFFFFFF;

// Air above and below a row's text, device-independent pixels.
constexpr int RowPadding = 5;

constexpr int FewRows = 4;

// Gives a refused cell its look, a faulty one its sign, and the fixed column of a chosen row its
// own.
class CellDelegate : public QStyledItemDelegate {
 public:
  CellDelegate(const FlexGridModel& model, QObject* parent)
      : QStyledItemDelegate(parent), model_(model) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const int row = index.row() + 1;
    if (IsChosen(option, index)) PaintChosenBar(*painter, option.rect, option.palette);
    if (!model_.FaultOf(row, index.column()).empty()) {
      painter->setFont(option.font);
      PaintFaultSign(*painter, option.rect);
    }
    if (model_.RefusalOfCell(row, index.column()).isEmpty()) return;
    PaintRefusedLook(*painter, option.rect, QColor(WhiteCell));
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (IsChosen(*option, index)) TakeChosenLook(*option);
    // The colours of a selection would hide which row is the current one.
    option->state.setFlag(QStyle::State_Selected, false);
  }

 private:
  // The bar stands at the row's left.
  static bool IsChosen(const QStyleOptionViewItem& option, const QModelIndex& index) {
    return index.column() == 0 && option.state.testFlag(QStyle::State_Selected);
  }

  const FlexGridModel& model_;
};

}  // namespace

// The model.

void FlexGridModel::SetGreyRow(int row) {
  const int former = greyRow_;
  if (row == former) return;
  greyRow_ = row;
  RowChanged(former);
  RowChanged(row);
}

void FlexGridModel::SetAlignment(int column, Qt::Alignment alignment) {
  alignments_.at(static_cast<std::size_t>(column)) = alignment | Qt::AlignVCenter;
}

Qt::Alignment FlexGridModel::AlignmentOf(int column) const {
  return alignments_.at(static_cast<std::size_t>(column));
}

std::string FlexGridModel::GroupTitle(int column) const {
  if (column < 0 || column >= static_cast<int>(groupTitles_.size())) return {};
  return groupTitles_[static_cast<std::size_t>(column)];
}

std::pair<int, int> FlexGridModel::GroupSpan(int column) const {
  const std::string title = GroupTitle(column);
  int first = column;
  int last = column;
  while (first > 0 && GroupTitle(first - 1) == title) --first;
  while (last < columnCount() - 1 && GroupTitle(last + 1) == title) ++last;
  return {first, last};
}

void FlexGridModel::RefuseCell(int row, int column, const QString& reason) {
  refused_[{row, column}] = reason;
  CellChanged(row, column);
}

void FlexGridModel::AcceptCell(int row, int column) {
  if (refused_.erase({row, column}) > 0) CellChanged(row, column);
}

void FlexGridModel::AcceptAllCells() {
  const auto former = std::exchange(refused_, {});
  for (const auto& [cell, reason] : former) CellChanged(cell.first, cell.second);
}

QString FlexGridModel::RefusalOfCell(int row, int column) const {
  if (refused_.empty()) return {};
  const auto found = refused_.find({row, column});
  return found == refused_.end() ? QString() : found->second;
}

std::pair<int, int> FlexGridModel::FirstRefusedCell() const {
  return refused_.empty() ? std::pair(0, 0) : refused_.begin()->first;
}

void FlexGridModel::AcceptRow(int row) {
  const auto former = std::exchange(refused_, {});
  for (const auto& [cell, reason] : former) {
    if (cell.first == row) continue;
    refused_[{cell.first > row ? cell.first - 1 : cell.first, cell.second}] = reason;
  }
}

void FlexGridModel::MoveRefusals(const std::vector<int>& formerRows) {
  const auto former = std::exchange(refused_, {});
  for (const auto& [cell, reason] : former) {
    const auto found = std::find(formerRows.begin(), formerRows.end(), cell.first);
    if (found == formerRows.end()) continue;
    refused_[{static_cast<int>(found - formerRows.begin()) + 1, cell.second}] = reason;
  }
}

int FlexGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : DataRows();
}

int FlexGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant FlexGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const bool fixed = index.column() < fixedColumns_;
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(CellText(index.row() + 1, index.column()));
    case Qt::BackgroundRole:
      if (fixed) return QPalette().color(QPalette::Button);
      return QColor(index.row() + 1 == greyRow_ ? GreyCell : WhiteCell);
    case Qt::ForegroundRole:
      if (fixed) return QPalette().color(QPalette::ButtonText);
      return QColor(Qt::black);
    case Qt::TextAlignmentRole:
      return fixed ? QVariant(Qt::AlignCenter) : QVariant(AlignmentOf(index.column()));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: {
      QString reason = RefusalOfCell(index.row() + 1, index.column());
      if (reason.isEmpty()) reason = ToQt(FaultOf(index.row() + 1, index.column()));
      return reason.isEmpty() ? QVariant() : QVariant(reason);
    }
    default:
      return {};
  }
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const std::string& heading = headings_.at(static_cast<std::size_t>(section));
  if (role == Qt::DisplayRole) return ToQt(heading);
  if (role == Qt::AccessibleTextRole && !GroupTitle(section).empty()) {
    return ToQt(GroupTitle(section) + " " + heading);
  }
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>(AlignmentOf(section)) | static_cast<int>(Qt::TextWordWrap);
  }
  return {};
}

Qt::ItemFlags FlexGridModel::flags(const QModelIndex&) const {
  const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  return rowsChosen_ ? flags | Qt::ItemIsSelectable : flags;
}

void FlexGridModel::CellChanged(int row, int column) {
  const QModelIndex cell = index(row - 1, column);
  if (cell.isValid()) emit dataChanged(cell, cell);
}

void FlexGridModel::RowChanged(int row) {
  const QModelIndex first = index(row - 1, 0);
  if (first.isValid()) emit dataChanged(first, index(row - 1, columnCount() - 1));
}

void TextGridModel::SetRows(Table<Table<std::string>> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  longest_.assign(static_cast<std::size_t>(columnCount()), 0);
  for (const Table<std::string>& cells : rows_) {
    const int count = std::min(cells.UBound(), columnCount());
    for (int column = 0; column < count; ++column) {
      int& longest = longest_.at(static_cast<std::size_t>(column));
      longest = std::max(longest, static_cast<int>(CharCount(cells.At(column + 1))));
    }
  }
  endResetModel();
}

int TextGridModel::LongestFigure(int column) const {
  const auto at = static_cast<std::size_t>(column);
  return at < longest_.size() ? longest_[at] : 0;
}

std::string TextGridModel::CellText(int row, int column) const {
  if (row < 1 || row > rows_.UBound()) return {};
  const Table<std::string>& cells = rows_.At(row);
  return column < 0 || column >= cells.UBound() ? std::string() : cells.At(column + 1);
}

// The two heading rows.

GroupHeading::GroupHeading(const FlexGridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model) {}

QRect GroupHeading::TitlePlace(int column) const {
  const auto [first, last] = model_.GroupSpan(column);
  const int left = sectionViewportPosition(first);
  const int right = sectionViewportPosition(last) + sectionSize(last);
  return {left, 0, right - left, height() / 2};
}

void GroupHeading::paintSection(QPainter* painter, const QRect& rect, int column) const {
  const QRect title = TitlePlace(column);
  QHeaderView::paintSection(painter, rect.adjusted(0, title.height(), 0, 0), column);
  // Each column draws the whole cell and shows its own part of it.
  const auto [first, last] = model_.GroupSpan(column);
  const bool atEnd = last == model_.columnCount() - 1;
  QStyleOptionHeaderV2 option;
  initStyleOption(&option);
  option.rect = title;
  option.section = first;
  option.text = ToQt(model_.GroupTitle(column));
  option.textAlignment = Qt::AlignCenter;
  option.textElideMode = Qt::ElideRight;
  option.position =
      first > 0 ? (atEnd ? QStyleOptionHeader::End : QStyleOptionHeader::Middle)
                : (atEnd ? QStyleOptionHeader::OnlyOneSection : QStyleOptionHeader::Beginning);
  painter->save();
  painter->setClipRect(rect, Qt::IntersectClip);
  style()->drawControl(QStyle::CE_Header, &option, painter, this);
  painter->restore();
}

// A title that its columns cut off is told whole to a resting mouse.
bool GroupHeading::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QHeaderView::viewportEvent(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const int column = logicalIndexAt(help.pos());
  if (column < 0) return QHeaderView::viewportEvent(event);
  const QRect place = TitlePlace(column);
  const QString title = ToQt(model_.GroupTitle(column));
  const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
  const bool cut = fontMetrics().horizontalAdvance(title) > place.width() - 2 * margin;
  if (!cut || !place.contains(help.pos())) return QHeaderView::viewportEvent(event);
  QToolTip::showText(help.globalPos(), PlainTip(FromQt(title)), viewport(), place);
  return true;
}

// The grid.

QPalette CellColours(QPalette palette) {
  palette.setColor(QPalette::Base, QColor(WhiteCell));
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}

FlexGrid::FlexGrid(FlexGridModel* model, QWidget* parent) : QTableView(parent), model_(model) {
  if (model->HasGroupTitles()) setHorizontalHeader(new GroupHeading(*model, this));
  setModel(model);
  setItemDelegate(new CellDelegate(*model, this));
  setFocusPolicy(Qt::NoFocus);
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setAutoScroll(false);
  setWordWrap(false);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  LayRows();
}

int FlexGrid::Rows() const {
  return model_->DataRows() + 1;
}

int FlexGrid::Cols() const {
  return model_->columnCount();
}

int FlexGrid::Row() const {
  return std::min(row_, model_->DataRows());
}

int FlexGrid::Col() const {
  return col_;
}

void FlexGrid::SetCurrent(int row, int column) {
  row_ = std::clamp(row, 0, model_->DataRows());
  col_ = std::clamp(column, 0, std::max(0, Cols() - 1));
  // Readers of the screen follow the toolkit's own current cell; nothing else hangs on it.
  const QSignalBlocker quiet(selectionModel());
  selectionModel()->setCurrentIndex(model_->index(row_ - 1, col_), QItemSelectionModel::NoUpdate);
}

std::string FlexGrid::TextMatrix(int row, int column) const {
  if (row == 0) {
    return FromQt(model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
  }
  return model_->CellText(row, column);
}

QRect FlexGrid::CellRect(int row, int column) const {
  return visualRect(model_->index(row - 1, column));
}

void FlexGrid::EnsureVisible(int row, int column) {
  const QModelIndex cell = model_->index(row - 1, column);
  // A row just added isn't in the scroll bar's range before the layout.
  executeDelayedItemsLayout();
  updateGeometries();
  if (cell.isValid()) scrollTo(cell, QAbstractItemView::EnsureVisible);
}

void FlexGrid::SetLeastRowHeight(int height) {
  leastRow_ = height;
  LayRows();
}

QSize FlexGrid::sizeHint() const {
  if (narrowColumn_ == 0) return {QTableView::sizeHint().width(), HeightOf(FewRows)};
  const int bar = verticalScrollBar()->sizeHint().width();
  return {horizontalHeader()->length() + bar + 2 * frameWidth(), HeightOf(FewRows)};
}

int FlexGrid::HeightOf(int rows) const {
  return horizontalHeader()->height() + rows * verticalHeader()->defaultSectionSize() +
         2 * frameWidth();
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
  event->accept();
  const QPoint position = event->position().toPoint();
  const QModelIndex cell = indexAt(position);
  const Qt::MouseButton button = event->button();
  const QPoint global = event->globalPosition().toPoint();
  if (PressFixed(cell, *event)) return;
  Guard([&] {
    if (cell.isValid() && CellPressed) CellPressed(cell.row() + 1, cell.column(), button, global);
    if (!cell.isValid() && SpacePressed) SpacePressed(button);
    if (button == Qt::RightButton && MenuAsked) MenuAsked(global);
  });
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !cell.isValid() || !CellDoubleClicked) return;
  Guard([&] { CellDoubleClicked(cell.row() + 1, cell.column()); });
}

// The press of the right button has opened the menu already; by the keyboard it opens at the
// current cell.
void FlexGrid::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (event->reason() == QContextMenuEvent::Mouse || !MenuAsked) return;
  const QPoint place = CellRect(Row(), Col()).bottomLeft();
  Guard([&] { MenuAsked(viewport()->mapToGlobal(place)); });
}

// Keys that an editor leaves over must not move the toolkit's own current cell.
void FlexGrid::keyPressEvent(QKeyEvent* event) {
  event->ignore();
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  LayColumns();
  // What the cursor is on stays in sight when the window shrinks.
  const bool lower = event->size().height() < event->oldSize().height();
  if (lower && Row() > 0) Guard([this] { EnsureVisible(Row(), Col()); });
}

void FlexGrid::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  LayRows();
  LayColumns();
}

void FlexGrid::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  if (Scrolled) Guard([&] { Scrolled(); });
}

bool FlexGrid::IsCut(const QModelIndex& cell) const {
  const QString text = cell.data(Qt::DisplayRole).toString();
  return CellWidth(text) > columnWidth(cell.column());
}

QString FlexGrid::TipOf(int row, int column) const {
  const QModelIndex cell = model_->index(row - 1, column);
  QStringList lines;
  if (!cell.isValid()) return {};
  if (IsCut(cell)) lines << PlainTip(FromQt(cell.data(Qt::DisplayRole).toString()));
  const std::string reason = FromQt(cell.data(Qt::ToolTipRole).toString());
  if (!reason.empty()) lines << PlainTip(reason);
  return lines.join("<br>");
}

bool FlexGrid::IsAmong(int row, int column, const QModelIndex& first,
                       const QModelIndex& last) const {
  const QModelIndex cell = model_->index(row - 1, column);
  return cell.isValid() && first.row() <= cell.row() && cell.row() <= last.row() &&
         first.column() <= cell.column() && cell.column() <= last.column();
}

bool FlexGrid::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const QModelIndex cell = indexAt(help.pos());
  const QString tip = TipOf(cell.row() + 1, cell.column());
  if (tip.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(help.globalPos(), tip, viewport(), visualRect(cell));
  }
  return true;
}

void FlexGrid::LayRows() {
  const int height = std::max(leastRow_, fontMetrics().height() + 2 * RowPadding);
  verticalHeader()->setMinimumSectionSize(height);
  verticalHeader()->setDefaultSectionSize(height);
  if (Scrolled) Guard([&] { Scrolled(); });
}

}  // namespace orvane
