#include "tests/screens/chosen_fixture.h"

#include <QAccessible>
#include <QMouseEvent>
#include <cstdlib>

namespace orvane::test {

void ChosenTest::ShowPurlins(int count, int row, int column) {
  for (int purlin = 1; purlin <= count; ++purlin) {
    Put("Z", "P" + std::to_string(purlin), "Z14012", 6000, 2).PatternName = "Butt";
  }
  Show(row, column);
}

std::vector<int> ChosenTest::ToldRows() {
  std::vector<int> rows;
  QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&Sections());
  QAccessibleTableInterface* table = reader->tableInterface();
  for (const int row : table->selectedRows()) rows.push_back(row + 1);
  return rows;
}

std::vector<int> ChosenTest::RowsWithBars() {
  std::vector<int> rows;
  QWidget* viewport = Sections().viewport();
  const QImage picture = viewport->grab().toImage();
  for (int row = 1; row < Sections().Rows(); ++row) {
    const QRect cell = Sections().CellRect(row, 0);
    if (!viewport->rect().contains(cell)) continue;
    const QColor bar = picture.pixelColor(cell.left() + 2, cell.center().y());
    const QColor rest = picture.pixelColor(cell.right() - 2, cell.top() + 2);
    // It must be told without colours.
    if (std::abs(bar.lightness() - rest.lightness()) > 60) rows.push_back(row);
  }
  return rows;
}

void ChosenTest::ClickLetter(int row, Qt::KeyboardModifiers held) {
  QTest::mouseClick(Sections().viewport(), Qt::LeftButton, held,
                    Sections().CellRect(row, 0).center());
  Settle();
}

void ChosenTest::DragLetters(int from, int to, Qt::KeyboardModifiers held) {
  QWidget* viewport = Sections().viewport();
  const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, viewport->mapToGlobal(at), button, buttons, held);
    QCoreApplication::sendEvent(viewport, &event);
  };
  send(QEvent::MouseButtonPress, Sections().CellRect(from, 0).center(), Qt::LeftButton);
  const int step = to > from ? 1 : -1;
  for (int row = from + step; row != to + step; row += step) {
    send(QEvent::MouseMove, Sections().CellRect(row, 0).center(), Qt::LeftButton);
  }
  send(QEvent::MouseButtonRelease, Sections().CellRect(to, 0).center(), Qt::NoButton);
  Settle();
}

}  // namespace orvane::test
