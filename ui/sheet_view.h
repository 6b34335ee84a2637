// The drawing area of the main window: the fabrication sheet of one section.
#pragma once

#include <QWidget>

namespace orvane {

// Bears the name VSPrinter1.
class SheetView : public QWidget {
 public:
  explicit SheetView(QWidget* parent = nullptr);

  // Shows the sheet of that row of Items as it stands now; does nothing for row 0.
  void DrawSection(int ItemIndex);
  // Shows nothing.
  void Clear();
  // Takes over the margins of the sheets.
  void ApplyMargins();

  // The row of Items whose sheet is shown; 0 for none.
  int ShownRow() const { return shownRow_; }
  // How often a sheet was asked for, for whoever measures or tests it.
  int DrawCount() const { return drawCount_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int shownRow_ = 0;
  int drawCount_ = 0;
};

}  // namespace orvane
