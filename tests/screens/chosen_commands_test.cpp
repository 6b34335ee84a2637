// Commands of the menus on several chosen rows.
#include "project/history.h"
#include "project/project_file.h"
#include "tests/screens/chosen_fixture.h"
#include "ui/dialogs/frm_preview.h"

namespace orvane::test {
namespace {

using Rows = std::vector<int>;
using MarkList = std::vector<std::string>;

constexpr int OppositeHandEntry = 7;
constexpr int ConvertEntry = 12;

class ChosenCommands : public ChosenTest {
 protected:
  void Undo() {
    Press(Qt::Key_Z, Qt::ControlModifier);
    Settle();
  }
};

TEST_F(ChosenCommands, Delete_asks_once_for_all_and_takes_them_out_as_one_step) {
  ShowPurlins(6);
  ClickLetter(2);
  ClickLetter(3, Qt::ControlModifier);
  ClickLetter(5, Qt::ControlModifier);
  const std::string before = ProjectText();
  dialogs.ExpectBox("Remove 3 sections?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P4", "P6"}));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(2, 1, "P4")) << "where the first of them stood";
  EXPECT_EQ(Chosen(), Rows{2});
  EXPECT_EQ(RowsWithBars(), Rows{});
  EXPECT_EQ(ProjectDirty, True);
  Undo();
  EXPECT_TRUE(ProjectText() == before);
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
}

TEST_F(ChosenCommands, Delete_answered_No_leaves_the_sections_and_the_choice) {
  ShowPurlins(4);
  DragLetters(2, 3);
  dialogs.ExpectBox("Remove 2 sections?", "", QMessageBox::No);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3", "P4"}));
  EXPECT_EQ(Chosen(), (Rows{2, 3}));
}

TEST_F(ChosenCommands, Deleting_all_leaves_an_empty_grid) {
  ShowPurlins(3);
  Press(Qt::Key_A, Qt::ControlModifier);
  dialogs.ExpectBox("Remove 3 sections?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_TRUE(Items.Empty());
  EXPECT_EQ(Sections().Rows(), 1);
  EXPECT_TRUE(NoEditor());
  EXPECT_EQ(Chosen(), Rows{});
}

TEST_F(ChosenCommands, A_single_chosen_row_is_deleted_as_ever) {
  ShowPurlins(3);
  ClickLetter(2);
  dialogs.ExpectBox("Remove mark P2?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P3"}));
  EXPECT_EQ(FromQt(Entry("mnuEditUndo").text()), "&Undo Delete of P2");
}

TEST_F(ChosenCommands, Refused_looks_stay_with_the_sections_that_stay) {
  ShowPurlins(4, 4, 2);
  Type("Z9");
  Press(Qt::Key_Up);
  ASSERT_EQ(Sections().Model().FirstRefusedCell(), std::pair(4, 2));
  ClickLetter(1);
  ClickLetter(3, Qt::ControlModifier);
  dialogs.ExpectBox("Remove 2 sections?", "", QMessageBox::Yes);
  Section(DeleteEntry);
  Settle();
  EXPECT_EQ(Sections().Model().FirstRefusedCell(), std::pair(2, 2));
}

TEST_F(ChosenCommands, Duplicates_come_last_in_their_order_and_stand_chosen) {
  ShowPurlins(4);
  ClickLetter(4);
  ClickLetter(2, Qt::ControlModifier);
  const std::string before = ProjectText();
  Press(Qt::Key_D, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3", "P4", "P2A", "P4A"}));
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(CursorAt(5, 1, "P2A"));
  EXPECT_EQ(Chosen(), (Rows{5, 6}));
  EXPECT_EQ(FromQt(Entry("mnuEditUndo").text()), "&Undo Duplicate sections");
  Undo();
  EXPECT_TRUE(ProjectText() == before);
  EXPECT_EQ(Sections().Row(), 2);
}

TEST_F(ChosenCommands, A_refused_cell_keeps_the_copies_from_being_made) {
  ShowPurlins(4, 2, 3);
  Retype("0");
  Press(Qt::Key_Down, Qt::ShiftModifier);
  ExpectRefusal("Invalid length");
  Press(Qt::Key_D, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Items.UBound(), 4);
  EXPECT_TRUE(CursorAt(2, 3, "0"));
}

TEST_F(ChosenCommands, Opposite_hands_show_the_first_as_it_is_mirrored) {
  ShowPurlins(3);
  Items.At(1).MitreLeft = 12;
  DragLetters(1, 2);
  Section(OppositeHandEntry);
  Settle();
  EXPECT_EQ(Marks(), (MarkList{"P1", "P2", "P3", "P1X", "P2X"}));
  EXPECT_EQ(Items.At(4).MitreRight, -12);
  EXPECT_TRUE(CursorAt(4, 1, "P1X"));
  EXPECT_EQ(Sheet().ShownRow(), 4);
  EXPECT_EQ(Chosen(), (Rows{4, 5}));
}

TEST_F(ChosenCommands, Conversion_takes_all_chosen_and_leaves_them_chosen) {
  ShowPurlins(4);
  // Only sections that were looked at have their holes.
  for (int row = 1; row <= 4; ++row) ClickCell(Sections(), row, 1);
  DragLetters(2, 3);
  const std::string before = ProjectText();
  Section(ConvertEntry);
  Settle();
  for (const int row : {2, 3}) {
    EXPECT_EQ(Items.At(row).PatternName, CustomPattern);
    EXPECT_GT(Items.At(row).HoleCount(), 0);
    EXPECT_EQ(Items.At(row).CustomHoleCount, Items.At(row).HoleCount());
  }
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(FromQt(Patterns().currentText()), "Custom");
  EXPECT_EQ(Chosen(), (Rows{2, 3}));
  EXPECT_EQ(ToldRows(), (Rows{2, 3}));
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
  Undo();
  EXPECT_TRUE(ProjectText() == before);
}

TEST_F(ChosenCommands, Print_Current_Drawing_prints_the_chosen_sheets_in_their_order) {
  ShowPurlins(5);
  ClickLetter(4);
  ClickLetter(2, Qt::ControlModifier);
  std::vector<std::string> marks;
  dialogs.ExpectDialog("frmPreview", [&](QWidget& dialog) {
    const Document shown = dynamic_cast<FrmPreview&>(dialog).Surface().Result();
    for (const Page& page : shown.Pages) {
      for (const Shape& shape : page.Shapes) {
        const auto* text = std::get_if<TextShape>(&shape);
        if (text != nullptr && text->Text.size() == 2 && text->Text.front() == 'P')
          marks.push_back(text->Text);
      }
    }
    EXPECT_EQ(shown.Pages.size(), 2U);
    Find<QAction>(dialog, "mnuFile(2)").trigger();
  });
  Entry("mnuOutput(0)").trigger();
  Settle();
  BackToMain();
  EXPECT_EQ(marks, (MarkList{"P2", "P4"}));
  EXPECT_EQ(Chosen(), (Rows{2, 4}));
}

TEST_F(ChosenCommands, Commands_on_one_section_work_on_the_current_one) {
  ShowPurlins(4);
  DragLetters(3, 1);
  dialogs.ExpectDialog("frmMitres", [](QWidget& dialog) {
    EXPECT_EQ(CurrentItem, 3);
    dialog.close();
  });
  Entry("mnuSection(13)").trigger();
  Settle();
  BackToMain();
  EXPECT_EQ(Chosen(), (Rows{1, 2, 3}));
}

}  // namespace
}  // namespace orvane::test
