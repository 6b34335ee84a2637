// What the tests of the sections grid and of the project's life in the window share: sections put
// into the table or typed, the cursor and where it stands, pop-up menus, the end of the program.
#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <functional>
#include <string>
#include <vector>

#include "tests/screens/screen_fixture.h"

namespace orvane::test {

// The texts of a row of the grid, named by their columns: a further column is nobody's business but
// its own tests'.
struct SectionRow {
  std::string Letter;
  std::string Mark;
  std::string Product;
  std::string Length;
  std::string Quantity;
  std::string Notes;
};

class SectionsTest : public ScreenTest {
 protected:
  // Sections.

  // Presses the toolbar button that adds a section of that letter.
  void Add(const std::string& letter);
  // Appends a section to the table, past the screen.
  static Item& Put(const std::string& letter, const std::string& mark, const std::string& product,
                   std::int16_t length, std::int16_t quantity = 1);
  // Brings the table to the screen as opening a project does and puts the cursor into that cell.
  // The project counts as unchanged then.
  void Show(int row = 1, int column = 1);
  // A hole of that kind with standard lines.
  static void PutHole(Item& item, std::int16_t x, const std::string& kind);
  // The positions of a row's holes.
  static std::vector<int> HolesOf(int row);
  // The marks of all rows.
  static std::vector<std::string> Marks();

  // The screen.

  QLineEdit& Editor() { return Find<QLineEdit>("txtEdit"); }
  QComboBox& ProductBox() { return Find<QComboBox>("cboEdit"); }
  QComboBox& Patterns() { return Find<QComboBox>("cboPattern"); }
  SheetView& Sheet() { return Find<SheetView>("VSPrinter1"); }
  bool Shown(const std::string& name) { return Find(name).isVisible(); }
  // The cell of a row in the column of that heading; the letter's column has none.
  std::string CellUnder(const std::string& heading, int row);
  // Whether the row shows those texts in their columns.
  ::testing::AssertionResult RowShows(int row, const SectionRow& expected);
  // Whether all rows of the grid show what the table holds.
  ::testing::AssertionResult GridShowsItems();
  // Whether the cursor stands there: current cell, right editor over the cell with the focus and
  // that text, grey row, CurrentItem.
  ::testing::AssertionResult CursorAt(int row, int column, const std::string& text);
  // Whether neither editor shows nor has the focus.
  ::testing::AssertionResult NoEditor();
  // The cell where the grid shows it, in the coordinates of the screen.
  QRect CellOnScreen(int row, int column);
  QRect OnScreen(const std::string& name);
  // Whether a cell's text is painted without its end cut off.
  static ::testing::AssertionResult IsWhole(FlexGrid& grid, int row, int column);
  // What a mouse that rests on a cell is told; empty for nothing.
  static std::string Tip(FlexGrid& grid, int row, int column);
  // Background of a cell.
  std::uint32_t Colour(int row, int column);

  // A person's hands.

  // Replaces the editor's text by typing.
  void Retype(const std::string& text);
  void Paste(const std::string& text);
  // A command of the section menu.
  void Section(int index) { Entry("mnuSection(" + std::to_string(index) + ")").trigger(); }
  // Presses the right button on a cell, as the window system reports it.
  void RightClickCell(int row, int column);
  // Runs the action and gives the captions of each pop-up menu that it opened; they are closed.
  std::vector<std::vector<std::string>> MenusOpenedBy(const std::function<void()>& action);
  // The list of cboEdit, waited for after a key that opens it.
  QAbstractItemView& OpenedProducts();
  // A foreseen refusal, told in a plain box.
  void ExpectRefusal(const std::string& text) { dialogs.ExpectBox(text); }
  // Makes the main window the active one again behind a dialog, as a window manager does.
  void BackToMain();
  // Runs the action in the application's own loop and tells whether it ended the program.
  bool EndsProgram(const std::function<void()>& action);
  // Foresees the project details, which New shows, and closes them.
  void ExpectDetails(const std::function<void()>& look = [] {});
};

// Entries of the section menu, by index.
constexpr int DuplicateEntry = 8;
constexpr int SortByMarkEntry = 16;
constexpr int SortByProductEntry = 17;
constexpr int SortByLengthEntry = 18;
constexpr int DeleteEntry = 20;

}  // namespace orvane::test
