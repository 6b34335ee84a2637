// A grid with a heading row 0 and, where it is wanted, a fixed column 0, as the system counts them.
// Titles over groups of columns stand above row 0, so that the first data row is 1 in any grid.
// It has no editing and no focus of its own and never moves its current cell by itself: whoever
// owns it decides what a click means. No other code sees the toolkit's row numbers.
#pragma once

#include <QAbstractTableModel>
#include <QBasicTimer>
#include <QHeaderView>
#include <QTableView>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/table.h"

namespace orvane {

// What a grid shows. Rows count from 1 behind the heading.
class FlexGridModel : public QAbstractTableModel {
 public:
  FlexGridModel(std::vector<std::string> headings, QObject* parent)
      : QAbstractTableModel(parent),
        headings_(std::move(headings)),
        alignments_(headings_.size(), Qt::AlignLeft | Qt::AlignVCenter) {}

  // The cell's text; empty for a row or column that isn't there.
  virtual std::string CellText(int row, int column) const = 0;
  // Data rows, the heading apart.
  virtual int DataRows() const = 0;
  // Characters of the longest figure in a column, for a grid that must not cut one off; 0 where
  // none is to be kept whole.
  virtual int LongestFigure(int) const { return 0; }

  // Why the cell's value can't stay as it is; empty for a cell that is in order. It bears a sign in
  // its corner then, with the reason as its tip.
  virtual std::string FaultOf(int, int) const { return {}; }

  // The row marked by the background 0xE0E0E0; 0 for none. Columns left of `firstColumn` stay.
  void SetGreyRow(int row);
  int GreyRow() const { return greyRow_; }
  void SetFixedColumns(int count) { fixedColumns_ = count; }
  int FixedColumns() const { return fixedColumns_; }
  // Rows can be chosen, by FlexGrid::ShowChosen; readers of the screen are told so.
  void LetRowsBeChosen() { rowsChosen_ = true; }
  Qt::Alignment AlignmentOf(int column) const;
  // Texts stand left unless a column says otherwise.
  void SetAlignment(int column, Qt::Alignment alignment);

  // A second fixed row above the headings, one title for each column. Neighbours with the same
  // title, the empty one too, share one cell. To be set before a grid shows the model.
  void SetGroupTitles(std::vector<std::string> titles) { groupTitles_ = std::move(titles); }
  bool HasGroupTitles() const { return !groupTitles_.empty(); }
  // Empty for a column that isn't there, and without titles.
  std::string GroupTitle(int column) const;
  // First and last column of the cell that the column's title stands in.
  std::pair<int, int> GroupSpan(int column) const;

  // Cells that were left without taking what was typed there: the refused look, and the reason as
  // the cell's tip.
  void RefuseCell(int row, int column, const QString& reason);
  void AcceptCell(int row, int column);
  void AcceptAllCells();
  QString RefusalOfCell(int row, int column) const;  // the reason; empty for none
  std::pair<int, int> FirstRefusedCell() const;      // row and column; {0, 0} for none
  // The row has gone, and those behind it have moved up.
  void AcceptRow(int row);
  // The rows stand in another order: row i is what was row formerRows[i - 1].
  void MoveRefusals(const std::vector<int>& formerRows);

  // The toolkit's side.
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 protected:
  void CellChanged(int row, int column);
  void RowChanged(int row);

 private:
  std::vector<std::string> headings_;
  std::vector<std::string> groupTitles_;
  std::vector<Qt::Alignment> alignments_;
  int fixedColumns_ = 0;
  bool rowsChosen_ = false;  // can be
  int greyRow_ = 0;
  std::map<std::pair<int, int>, QString> refused_;  // reasons, by row and column
};

// A model that holds its texts.
class TextGridModel : public FlexGridModel {
 public:
  using FlexGridModel::FlexGridModel;
  // Replaces all rows.
  void SetRows(Table<Table<std::string>> rows);
  std::string CellText(int row, int column) const override;
  int DataRows() const override { return rows_.UBound(); }
  // Every column counts as one of figures.
  int LongestFigure(int column) const override;

 private:
  Table<Table<std::string>> rows_;
  std::vector<int> longest_;  // of each column, characters
};

// The two heading rows of a grid with titles over its columns.
class GroupHeading : public QHeaderView {
 public:
  GroupHeading(const FlexGridModel& model, QWidget* parent);

  // Place of a column's title, in the heading's viewport.
  QRect TitlePlace(int column) const;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int column) const override;
  bool viewportEvent(QEvent* event) override;

 private:
  const FlexGridModel& model_;
};

// The colours for an editor that is laid over a cell: black on white in a dark desktop too.
QPalette CellColours(QPalette palette);

class FlexGrid : public QTableView {
 public:
  FlexGrid(FlexGridModel* model, QWidget* parent);

  // What it says in the place of rows as long as there are none.
  void SetEmptyText(const QString& text);

  // Counts, the heading row included.
  int Rows() const;
  int Cols() const;

  // The current cell. Row is 0 when there is no data row or none is current; both are clamped to
  // the rows there are.
  int Row() const;
  int Col() const;
  // Moves it, without any notification and without scrolling.
  void SetCurrent(int row, int column);

  // Gives these rows, in ascending order, the look of chosen ones, and no others; readers of the
  // screen are told which they are. Filling the grid anew ends it.
  void ShowChosen(const std::vector<int>& rows);

  // Text of a cell, the heading row 0 included; empty outside the grid.
  std::string TextMatrix(int row, int column) const;

  // What a mouse that rests on the cell is told: a text that it cuts off, and what is wrong with
  // it; empty for nothing.
  QString TipOf(int row, int column) const;
  // Whether the cell is among those from `first` to `last`, as the model's notices name them.
  bool IsAmong(int row, int column, const QModelIndex& first, const QModelIndex& last) const;

  // Place of a cell in viewport coordinates, also when it is scrolled out of sight.
  QRect CellRect(int row, int column) const;
  void EnsureVisible(int row, int column);

  // Column widths in this ratio over the whole width; the last column takes what is left over.
  // `leastFigures` are the characters of the figures that each column has room for at least, in the
  // font in use, and more where the model holds longer ones: a figure that is cut off reads as
  // another. Nor are the words of its heading cut. Columns that their share would make narrower
  // take what they need, and the others share the rest; what doesn't fit even so can be scrolled
  // to. A grid without `leastFigures` goes by the ratio alone.
  void SetColumnRatio(std::vector<int> ratio, std::vector<int> leastFigures = {});
  // Lays the columns out anew if a longer or shorter figure asks for it; to be called when the
  // texts have changed.
  void FitFigures();
  // Width in which no column lacks room for its least figures, the frame and a scroll bar included.
  int LeastWidth() const;
  // Column 0 as wide as given, each other one as its heading, but at least `least` wide
  // (device-independent pixels). What is too wide for the grid can be scrolled to.
  void SetColumnsByHeading(int narrow, int least);
  // Rows are at least this high, device-independent pixels.
  void SetLeastRowHeight(int height);

  // A mouse button pressed on a data row (its column 0 included); never for the heading or the
  // empty space. Double clicks come as a second press.
  std::function<void(int row, int column, Qt::MouseButton button, QPoint globalPos)> CellPressed;
  // The left button pressed in a fixed column, in place of CellPressed, with the keys that are
  // held; without it such a press is one like others. True if the rows that it is dragged over from
  // there are to be told.
  std::function<bool(int row, Qt::KeyboardModifiers held)> FixedPressed;
  // It is held and has come over that row; where it is above or below the rows in sight, the next
  // one that isn't, over and over again.
  std::function<void(int row)> FixedDragged;
  // The left button pressed twice on a data row, after the second press.
  std::function<void(int row, int column)> CellDoubleClicked;
  // A mouse button pressed beside the rows.
  std::function<void(Qt::MouseButton button)> SpacePressed;
  // The right button pressed, after CellPressed if it hit a cell.
  std::function<void(QPoint globalPos)> MenuAsked;
  // The content moved under the viewport, or the columns were laid out anew.
  std::function<void()> Scrolled;

  FlexGridModel& Model() const { return *model_; }

  // A few rows; who lays it out gives it more.
  QSize sizeHint() const override;
  // Height of the heading rows and that many data rows.
  int HeightOf(int rows) const;
  // Rows by which a page key moves: those in sight but one.
  int PageRows() const;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void timerEvent(QTimerEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  bool PressFixed(const QModelIndex& cell, const QMouseEvent& press);
  void Drag();
  void EndDrag();
  void LayColumns();
  int CellWidth(const QString& text) const;
  int HeadingWidth(int column) const;
  int NeededWidth(std::size_t column, int figures) const;
  std::vector<int> Figures() const;
  std::vector<int> NeededWidths() const;
  std::vector<int> SharedWidths() const;
  bool IsCut(const QModelIndex& cell) const;
  void LayColumnsByRatio();
  void LayColumnsByHeading();
  void LayHeading();
  void LayRows();

  FlexGridModel* model_;
  QString emptyText_;
  std::vector<int> ratio_;
  std::vector<int> leastFigures_;  // of columns in a ratio; none for a grid without figures
  std::vector<int> figures_;       // characters that columns in a ratio were laid out for
  std::vector<int> needed_;        // their widths
  int narrowColumn_ = 0;           // of columns as wide as their headings; 0 for columns in a ratio
  int leastColumn_ = 0;
  int leastRow_ = 0;
  int row_ = 0;
  int col_ = 0;
  int draggedRow_ = 0;  // told last, 0 while nothing is dragged
  int draggedY_ = 0;    // where the mouse is, in the viewport
  QBasicTimer dragging_;
};

}  // namespace orvane
