// A job with a history, and the user's changes of it as the screens make them.
#pragma once

#include <string>

#include "project/changes.h"
#include "project/history.h"
#include "tests/support/fixture.h"

namespace orvane::test {

class HistoryFixture : public SystemTest {
 protected:
  // The shipped catalogues, and a history of an empty job.
  HistoryFixture();
  ~HistoryFixture() override;

  // Keys typed into a cell, each a change, as the grid makes them; the cell isn't left.
  static void TypeKeys(int row, int column, const std::string& text);
  // The same, and the cell is left.
  static void TypeCell(int row, int column, const std::string& text);
  // The list's entry is chosen: a pattern of the section's family.
  static void ChoosePattern(int row, const std::string& pattern);
  // The cursor comes to a row: its holes are made afresh, its sag bars settled.
  static void LookAt(int row);
  // A section of a Z purlin, typed cell by cell.
  static std::int16_t AddPurlin(const std::string& mark, int length = 6000);

  static RestoredStep Undo();
  static RestoredStep Redo();
};

}  // namespace orvane::test
