// The line above the sections in which a text is looked for: each key shows the first section that
// holds it, from the cell on that the cursor stood in.
#pragma once

#include <QLabel>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <vector>

#include "project/section_list/section_search.h"
#include "ui/controls/plain_field.h"
#include "ui/sections_grid.h"

namespace orvane {

class FindLine : public QWidget {
  Q_OBJECT

 public:
  // Hidden at first.
  FindLine(SectionsGrid& sections, QWidget* parent);

  // Shows the line with the cursor in its field, the text before selected. Nothing happens while a
  // cell must not be left, and without sections.
  void Open();
  // The next section that holds the text, behind the last one the first; or the one before. The
  // cursor comes into its cell, unless it is in this line. Without a text the line is opened.
  void Step(int step);
  // Hides the line; the cursor stays where it is.
  void Close();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool KeyPressed(const QKeyEvent& key);
  void Search();
  void Show(const FoundSection& found);
  void ShowCount(int row);
  int StartRow() const;
  void Take();
  void GoBack();

  SectionsGrid& sections_;
  PlainField* txtFind_;
  QLabel* lblFound_;

  std::vector<FoundSection> found_;
  // The cell that the cursor stood in. Rows may come and go while the line is open, by Undo.
  int startRow_ = 0;
  int startColumn_ = 0;
  std::int32_t startSerial_ = 0;
  QPointer<QWidget> before_;  // what had the focus then, outside the grid
};

}  // namespace orvane
