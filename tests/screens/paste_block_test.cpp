// Cells of a spreadsheet pasted into the sections grid: the preview, where the rows go, and texts
// that are no block.
#include <QClipboard>
#include <QLabel>
#include <QMimeData>

#include "project/history.h"
#include "project/project_file.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

using Texts = std::vector<std::string>;

class PasteBlockScreen : public SectionsTest {
 protected:
  // Ctrl+V, and Enter in the preview that it brings.
  void PasteAndAccept(const std::string& text, const std::string& summary) {
    dialogs.ExpectDialog("frmImport", [summary](QWidget& form) {
      form.activateWindow();
      ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
      EXPECT_EQ(FromQt(Find<QLabel>(form, "lblSummary").text()), summary);
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    PasteKeys(text);
    BackToMain();
  }
  void PasteKeys(const std::string& text) {
    QApplication::clipboard()->setText(ToQt(text));
    Press(Qt::Key_V, Qt::ControlModifier);
    Settle();
  }
  Texts Lengths() {
    Texts lengths;
    for (const Item& item : Items) lengths.push_back(std::to_string(item.Length));
    return lengths;
  }
};

TEST_F(PasteBlockScreen, A_list_of_sixty_marks_takes_three_keys_and_is_one_step) {
  Put("Z", "P1", "Z14012", 6000, 2);
  Show();
  const std::string before = ProjectText();
  std::string block = "Mark\tSection\tLength\tNo. off\tRemarks\tPattern\n";
  for (int mark = 2; mark <= 61; ++mark) {
    block += "P" + std::to_string(mark) + "\tZ14014\t" + std::to_string(5000 + mark) + "\t4\tbay " +
             std::to_string(mark) + "\tButt\n";
  }
  PasteAndAccept(block, "60 new.");
  ASSERT_EQ(Items.UBound(), 61);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_TRUE(RowShows(61, {"Z", "P61", "Z14014", "5061", "4", "bay 61"}));
  EXPECT_FALSE(HolesOf(61).empty());
  // The cursor is where the first of them stands, and its sheet is drawn.
  EXPECT_TRUE(CursorAt(2, 1, "P2"));
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_EQ(StepToUndo(), "Paste sections");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(ProjectText(), before);
}

// Spreadsheets offer a page and a list of their own beside the plain text.
TEST_F(PasteBlockScreen, Of_several_forms_on_the_clipboard_the_plain_text_is_taken) {
  auto* offered = new QMimeData;
  offered->setHtml("<table><tr><td>X1</td><td>Z14014</td></tr></table>");
  offered->setData("text/csv", "Y1,Z14014\n");
  offered->setText("P1\tZ14012\nP2\tZ14012\n");
  dialogs.ExpectDialog("frmImport", [](QWidget& form) {
    EXPECT_EQ(FromQt(Find<QLabel>(form, "lblSummary").text()), "2 new.");
    QTest::keyClick(&form, Qt::Key_Return);
  });
  QApplication::clipboard()->setMimeData(offered);
  main->centralWidget()->setFocus();
  Press(Qt::Key_V, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Marks(), (Texts{"P1", "P2"}));
}

TEST_F(PasteBlockScreen, Columns_go_on_from_the_cursor_and_fill_downward) {
  for (const char* mark : {"P1", "P2", "P3"}) Put("Z", mark, "Z14012", 6000, 2);
  Show(2, 3);
  PasteAndAccept("6100\t7\n6200\t8\n", "2 changed.");
  EXPECT_EQ(Lengths(), (Texts{"6000", "6100", "6200"}));
  EXPECT_EQ(Items.At(3).Quantity, 8);
  EXPECT_TRUE(CursorAt(2, 3, "6100"));
}

TEST_F(PasteBlockScreen, A_fresh_row_takes_its_length_from_the_block_without_a_refusal) {
  Add("Z");
  Type("P1");
  Press(Qt::Key_Tab);
  Press(Qt::Key_Tab);
  // An empty length could not be left.
  PasteAndAccept("6100\t7\n", "1 changed.");
  EXPECT_EQ(Lengths(), Texts{"6100"});
}

TEST_F(PasteBlockScreen, An_empty_grid_takes_a_block_from_the_mark_on) {
  main->centralWidget()->setFocus();
  Press(Qt::Key_F6);
  PasteAndAccept("P1\tZ14012\t6000\nP2\tZ14014\t6500\n", "2 new.");
  EXPECT_EQ(Marks(), (Texts{"P1", "P2"}));
}

TEST_F(PasteBlockScreen, A_text_of_one_line_goes_into_the_cell) {
  Put("Z", "P1", "Z14012", 6000, 2);
  Show(1, 1);
  PasteKeys("Q7\n");
  EXPECT_EQ(Items.At(1).Mark, "Q7");
  EXPECT_EQ(Items.UBound(), 1);
}

TEST_F(PasteBlockScreen, Lines_without_a_tab_go_into_the_notes) {
  Put("Z", "P1", "Z14012", 6000, 2);
  Show(1, 5);
  PasteKeys("first\nsecond");
  EXPECT_EQ(Items.At(1).Notes, "first second");
  EXPECT_EQ(Items.UBound(), 1);
}

}  // namespace
}  // namespace orvane::test
