// What the tests of chosen rows share: sections by their marks, and a person's hands on column 0.
#pragma once

#include <string>
#include <vector>

#include "tests/screens/sections_fixture.h"

namespace orvane::test {

class ChosenTest : public SectionsTest {
 protected:
  // Purlins P1, P2 and so on, on a pattern, the cursor in that cell.
  void ShowPurlins(int count, int row = 1, int column = 1);
  SectionsGrid& Grid() { return *main->findChild<SectionsGrid*>(); }
  std::vector<int> Chosen() { return Grid().ChosenRows(); }
  // The rows that readers of the screen are told to be chosen.
  std::vector<int> ToldRows();
  // The rows whose letter is painted with the bar at its left.
  std::vector<int> RowsWithBars();

  void ClickLetter(int row, Qt::KeyboardModifiers held = Qt::NoModifier);
  // Presses the letter of one row, and releases that of another.
  void DragLetters(int from, int to, Qt::KeyboardModifiers held = Qt::NoModifier);
};

}  // namespace orvane::test
