// Rows of the sections grid copied, cut and pasted, beside the texts of its cells and of fields.
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>

#include "project/copied_sections.h"
#include "project/project_file.h"
#include "tests/screens/chosen_fixture.h"

namespace orvane::test {
namespace {

using Rows = std::vector<int>;
using MarkList = std::vector<std::string>;

class ClipboardRows : public ChosenTest {
 protected:
  void Copy() {
    Press(Qt::Key_C, Qt::ControlModifier);
    Settle();
  }
  void Cut() {
    Press(Qt::Key_X, Qt::ControlModifier);
    Settle();
  }
  void PasteByKey(Qt::KeyboardModifiers held = Qt::ControlModifier) {
    Press(Qt::Key_V, held);
    Settle();
  }
  void Undo() {
    Press(Qt::Key_Z, Qt::ControlModifier);
    Settle();
  }
  static std::string ClipboardText() { return FromQt(QApplication::clipboard()->text()); }
  static bool HoldsSections() {
    return QApplication::clipboard()->mimeData()->hasFormat(ToQt(CopiedSectionsType));
  }
  // The item block of a row in a project file, without its mark.
  static std::string BlockOf(int row) {
    const Table<Item> all = Items;
    Table<Item> one;
    one.Append(all.At(row));
    one.At(1).Mark.clear();
    Items = std::move(one);
    std::string text = ProjectText();
    Items = all;
    return text;
  }
};

// Rows.

TEST_F(ClipboardRows,
       Chosen_rows_are_copied_and_pasted_behind_the_last_wherever_the_cursor_stands) {
  ShowPurlins(4);
  Items.At(3).Notes = "\"3\", two";
  Items.At(3).MitreRight = 22.5F;
  Items.At(3).Notches.Append({"T2", 10, 20, 500});
  DragLetters(2, 3);
  const std::string second = BlockOf(2);
  Copy();
  EXPECT_EQ(Items.UBound(), 4);
  EXPECT_EQ(Chosen(), (Rows{2, 3})) << "they stay chosen";
  ClickCell(Sections(), 1, 3);
  const std::string before = ProjectText();
  PasteByKey();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3", "P4", "P2A", "P3A"}));
  EXPECT_EQ(BlockOf(5), second);
  EXPECT_EQ(BlockOf(6), BlockOf(3));
  EXPECT_EQ(Items.At(6).Notes, "\"3\", two");
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(5, 1, "P2A"));
  EXPECT_EQ(Chosen(), (Rows{5, 6}));
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(FromQt(Entry("mnuEditUndo").text()), "&Undo Paste sections");
  Undo();
  EXPECT_TRUE(ProjectText() == before);
  EXPECT_EQ(Sections().Row(), 1);
}

TEST_F(ClipboardRows, Copied_rows_go_to_a_spreadsheet_as_a_table_with_headings) {
  ShowPurlins(2);
  Items.At(1).Notes = "=1+1\t\"a\"";
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Copy();
  EXPECT_EQ(
      ClipboardText(),
      "Mark\tProduct\tLength\tQty\tNotes\tPunching\tSag bars\tPitch\tMitre left\tMitre right\r\n"
      "P1\tZ14012\t6000\t2\t\"'=1+1\t\"\"a\"\"\"\tButt\t\t\t0.0\t0.0\r\n"
      "P2\tZ14012\t6000\t2\t\tButt\t\t\t0.0\t0.0\r\n");
}

TEST_F(ClipboardRows, One_row_chosen_by_its_letter_is_copied_as_a_row) {
  ShowPurlins(3, 1, 5);
  ClickLetter(2);
  Copy();
  ClickCell(Sections(), 3, 5);
  PasteByKey();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3", "P2A"}));
  EXPECT_TRUE(CursorAt(4, 1, "P2A"));
  EXPECT_EQ(ToldRows(), Rows{}) << "of one row nothing stands chosen";
  PasteByKey();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3", "P2A", "P2AA"}));
}

TEST_F(ClipboardRows, Rows_are_pasted_into_an_empty_grid_and_into_another_job) {
  ShowPurlins(2);
  Press(Qt::Key_A, Qt::ControlModifier);
  Copy();
  ExpectDetails();
  main->Run(Command::New);
  Settle();
  BackToMain();
  ASSERT_TRUE(Items.Empty());
  PasteByKey();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2"}));
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
  EXPECT_EQ(Chosen(), (Rows{1, 2}));
}

TEST_F(ClipboardRows, Cutting_asks_nothing_and_is_one_step) {
  ShowPurlins(4);
  DragLetters(2, 3);
  const std::string before = ProjectText();
  Cut();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P4"}));
  EXPECT_TRUE(dialogs.Boxes().empty());
  EXPECT_TRUE(CursorAt(2, 1, "P4"));
  PasteByKey();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P4", "P2", "P3"}));
  Undo();
  Undo();
  EXPECT_TRUE(ProjectText() == before);
  EXPECT_EQ(FromQt(Entry("mnuEditRedo").text()), "&Redo Cut sections");
  ClickLetter(1);
  Cut();
  EXPECT_EQ(Marks(), (MarkList{"P2", "P3", "P4"}));
}

TEST_F(ClipboardRows, The_entries_of_the_menu_do_what_the_keys_do) {
  ShowPurlins(3);
  DragLetters(1, 2);
  Entry("mnuEditCopy").trigger();
  Entry("mnuEditPaste").trigger();
  Settle();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3", "P1A", "P2A"}));
  Entry("mnuEditCut").trigger();
  Settle();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3"}));
}

TEST_F(ClipboardRows, A_refused_cell_keeps_the_cursor_and_nothing_is_pasted) {
  ShowPurlins(2);
  ClickLetter(1);
  Copy();
  ClickCell(Sections(), 2, 3);
  Retype("0");
  ExpectRefusal("Invalid length");
  PasteByKey();
  EXPECT_EQ(Items.UBound(), 2);
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(ClipboardRows, What_the_catalogue_lacks_is_told_once_and_kept) {
  Item& odd = Put("Z", "P1", "Z99999", 6000);
  odd.PatternName = "Nobody's";
  PutHole(odd, 100, "S");
  Show();
  // Looking at the section takes its holes away, as there is no pattern to make them by.
  Items.At(1).Holes.Clear();
  PutHole(Items.At(1), 100, "S");
  ClickLetter(1);
  PutHole(Items.At(1), 100, "S");
  Copy();
  dialogs.ExpectBox(
      "Not in this program's catalogue, and left as pasted:\n"
      "pattern Nobody's (P1A)\nproduct Z99999 (P1A)");
  PasteByKey();
  EXPECT_EQ(Items.At(2).Product, "Z99999");
  EXPECT_EQ(Items.At(2).PatternName, "Nobody's");
  EXPECT_GE(Items.At(2).HoleCount(), 1);
}

TEST_F(ClipboardRows, Bytes_that_are_no_sections_are_told_and_change_nothing) {
  ShowPurlins(2);
  auto* data = new QMimeData;
  data->setData(ToQt(CopiedSectionsType), "Orvane sections\nand what not");
  QApplication::clipboard()->setMimeData(data);
  dialogs.ExpectBox(
      "The sections on the clipboard can't be read: they were copied by another version of the "
      "program, or not copied whole");
  const std::string before = ProjectText();
  PasteByKey();
  EXPECT_TRUE(ProjectText() == before);
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
}

// Texts.

TEST_F(ClipboardRows, A_text_in_the_grid_is_offered_as_a_block_before_it_goes_into_the_cell) {
  ShowPurlins(2, 1, 5);
  std::vector<std::string> offered;
  bool isBlock = true;
  Grid().PasteBlock = [&](const std::string& text) {
    offered.push_back(text);
    return isBlock;
  };
  QApplication::clipboard()->setText("P7\tZ14012");
  PasteByKey();
  EXPECT_EQ(Items.At(1).Notes, "") << "it was dealt with";
  isBlock = false;
  PasteByKey();
  EXPECT_EQ(Items.At(1).Notes, "P7 Z14012");
  EXPECT_EQ(offered, (MarkList{"P7\tZ14012", "P7\tZ14012"}));
  // Into the cell in any case, and rows before anything else.
  PasteByKey(Qt::ControlModifier | Qt::ShiftModifier);
  ClickLetter(1);
  Copy();
  PasteByKey();
  EXPECT_EQ(Items.UBound(), 3);
  EXPECT_EQ(offered.size(), 2U);
  // The lists beside the grid take no rows.
  QApplication::clipboard()->setText("P7\tZ14012");
  Patterns().setFocus(Qt::TabFocusReason);
  PasteByKey();
  EXPECT_EQ(offered.size(), 2U);
  // An empty grid does, though no cell has the cursor.
  Items.Clear();
  main->DisplayItems();
  isBlock = true;
  PasteByKey();
  EXPECT_EQ(offered.size(), 3U);
}

TEST_F(ClipboardRows, Without_chosen_rows_the_keys_are_for_the_text_of_the_cell) {
  ShowPurlins(3, 2, 5);
  Type("north side");
  Press(Qt::Key_A, Qt::ControlModifier);
  Copy();
  EXPECT_EQ(ClipboardText(), "north side");
  EXPECT_FALSE(HoldsSections());
  ClickCell(Sections(), 3, 5);
  PasteByKey();
  EXPECT_EQ(Items.At(3).Notes, "north side");
  Press(Qt::Key_A, Qt::ControlModifier);
  Cut();
  EXPECT_EQ(Items.At(3).Notes, "");
  EXPECT_EQ(Items.UBound(), 3);
}

TEST_F(ClipboardRows, Ctrl_Shift_V_pastes_into_the_cell_whatever_was_copied) {
  ShowPurlins(3);
  DragLetters(1, 2);
  Copy();
  ClickCell(Sections(), 3, 5);
  PasteByKey(Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Items.UBound(), 3);
  QApplication::clipboard()->setText("plain");
  Retype("");
  PasteByKey(Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Items.At(3).Notes, "plain");
}

TEST_F(ClipboardRows, A_field_beside_the_grid_copies_and_pastes_its_own_text) {
  Put("R", "R1", "CLR", 2000);
  Put("R", "R2", "CLR", 2000);
  Show();
  ClickLetter(1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  ASSERT_EQ(Chosen(), (Rows{1, 2}));
  auto& jointing = Find<QLineEdit>("txtJointing");
  jointing.setFocus(Qt::TabFocusReason);
  Type("12");
  jointing.selectAll();
  Copy();
  EXPECT_EQ(ClipboardText(), "12");
  Cut();
  EXPECT_EQ(FromQt(jointing.text()), "");
  EXPECT_EQ(Items.UBound(), 2);
  PasteByKey();
  EXPECT_EQ(Items.At(1).JointingPieces, 12);
}

TEST_F(ClipboardRows, Letters_typed_over_a_product_end_a_choice) {
  ShowPurlins(2, 1, 2);
  Press(Qt::Key_A, Qt::ControlModifier);
  Type("z24516");
  // They are typed into one section alone.
  EXPECT_EQ(Chosen(), Rows{1});
  Press(Qt::Key_Return);
  EXPECT_EQ(Items.At(1).Product, "Z24516");
}

}  // namespace
}  // namespace orvane::test
