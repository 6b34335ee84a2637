// Lists of sections by a person's keys and clicks: the preview, what is mended and left out in it,
// and what it has done.
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "core/csv.h"
#include "project/history.h"
#include "project/project_file.h"
#include "tests/screens/sections_fixture.h"
#include "ui/dialogs/frm_import.h"

namespace orvane::test {
namespace {

using Texts = std::vector<std::string>;
const std::string Arrow = " \xE2\x86\x92 ";

// Columns of the preview of a list without punching and what is behind it.
constexpr int TakeColumn = 1;

class ImportScreen : public SectionsTest {
 protected:
  struct Preview {
    QWidget& Form;
    FlexGrid& Table;

    std::string Cell(int row, const std::string& heading) const {
      for (int column = 0; column < Table.Cols(); ++column) {
        if (Table.TextMatrix(0, column) == heading) return Table.TextMatrix(row, column);
      }
      return "no column " + heading;
    }
    Texts Words() const {
      Texts words;
      for (int row = 1; row < Table.Rows(); ++row) words.push_back(Cell(row, "What becomes of it"));
      return words;
    }
    std::string Summary() const { return FromQt(Find<QLabel>(Form, "lblSummary").text()); }
    bool Shows(const std::string& name) const { return Find<QWidget>(Form, name).isVisible(); }
    bool Takes(int row) const {
      return Table.model()->index(row - 1, TakeColumn).data(Qt::CheckStateRole).toInt() ==
             Qt::Checked;
    }
    void Click(int row, int column) const {
      QTest::mouseClick(Table.viewport(), Qt::LeftButton, {}, Table.CellRect(row, column).center());
      RunQueued();
    }
    void ClickUnder(int row, const std::string& heading) const {
      for (int column = 0; column < Table.Cols(); ++column) {
        if (Table.TextMatrix(0, column) == heading) Click(row, column);
      }
    }
    void Press(const std::string& button) const {
      QTest::mouseClick(&Find<QPushButton>(Form, button), Qt::LeftButton);
      RunQueued();
    }
    // Keys go to whatever has the focus in it.
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) const {
      QTest::keyClick(QApplication::focusWidget(), key, held);
      RunQueued();
    }
    void Type(const std::string& text) const {
      QTest::keyClicks(QApplication::focusWidget(), ToQt(text));
      RunQueued();
    }
  };

  // The preview that comes next; an action that leaves it open is followed by Escape.
  void ExpectPreview(const std::function<void(const Preview&)>& act) {
    dialogs.ExpectDialog("frmImport", [act](QWidget& form) {
      form.activateWindow();
      ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
      act({form, Find<FlexGrid>(form, "MSFlexGrid1")});
      RunQueued();
      if (form.isVisible()) QTest::keyClick(&form, Qt::Key_Escape);
    });
  }
  static void Accept(const Preview& preview) { preview.Key(Qt::Key_Return); }
  void ImportFile(const std::string& bytes) {
    platform.Chosen.push_back(TempFile("list.csv", bytes));
    // By the letters of the menu.
    Press(Qt::Key_T, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_I);
    Settle();
    BackToMain();
  }
  std::vector<std::string> Row(int row) {
    Texts texts;
    for (int column = 0; column <= 5; ++column) texts.push_back(Cell(row, column));
    return texts;
  }
};

TEST_F(ImportScreen, A_file_of_new_sections_is_two_keys_away_and_one_step) {
  Put("Z", "P1", "Z14012", 6000, 2);
  Show();
  const std::string before = ProjectText();
  ExpectPreview([](const Preview& preview) {
    EXPECT_EQ(preview.Words(), (Texts{"New", "Length 6000" + Arrow + "6500", "New"}));
    EXPECT_EQ(preview.Summary(), "2 new, 1 changed. Columns that are left out: Weight.");
    EXPECT_EQ(preview.Cell(1, "Row"), "2");
    EXPECT_EQ(preview.Cell(1, "Product"), "Z14014");
    EXPECT_FALSE(preview.Shows("cboDigits"));
    EXPECT_FALSE(preview.Shows("cboFamily"));
    EXPECT_EQ(FromQt(QApplication::focusWidget()->objectName()), "cmdOk");
    Accept(preview);
  });
  ImportFile(
      "Mark,Product,Length,Qty,Punching,Weight\n"
      "P2,Z14014,7000,4,Butt,12\nP1,Z14012,6500,2,,12\nE1,E20016,8000,1,,\n");
  EXPECT_EQ(Sections().Rows(), 4);
  EXPECT_EQ(Row(1), (Texts{"Z", "P1", "Z14012", "6500", "2", ""}));
  EXPECT_EQ(Row(2), (Texts{"Z", "P2", "Z14014", "7000", "4", ""}));
  EXPECT_EQ(Row(3), (Texts{"E", "E1", "E20016", "8000", "1", ""}));
  EXPECT_FALSE(HolesOf(2).empty());
  EXPECT_EQ(Sections().Row(), 2);
  EXPECT_EQ(Sheet().ShownRow(), 2);
  EXPECT_TRUE(GridShowsItems());
  EXPECT_EQ(ProjectDirty, True);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(ProjectText(), before);
  EXPECT_TRUE(GridShowsItems());
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Sections().Rows(), 4);
}

TEST_F(ImportScreen, Cancel_does_nothing) {
  Put("Z", "P1", "Z14012", 6000, 2);
  Show();
  const std::string before = ProjectText();
  ExpectPreview([](const Preview& preview) { preview.Press("cmdCancel"); });
  ImportFile("Mark,Product\nP2,Z14014\n");
  EXPECT_EQ(ProjectText(), before);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_TRUE(CursorAt(1, 1, "P1"));
}

TEST_F(ImportScreen, A_refused_cell_is_mended_in_the_preview) {
  ExpectPreview([](const Preview& preview) {
    EXPECT_EQ(preview.Summary(), "1 new, 2 refused.");
    EXPECT_FALSE(preview.Takes(2));
    EXPECT_EQ(preview.Words()[1],
              "Product \"Z14013\": Not in the list; nearest: Z14012, Z14014, Z14016");
    preview.Press("cmdRefused");
    // The cell is open, its text selected.
    preview.Type("Z14014");
    preview.Key(Qt::Key_Tab);
    EXPECT_EQ(preview.Words()[1], "New");
    EXPECT_TRUE(preview.Takes(2));
    preview.Press("cmdRefused");
    preview.Type("6000");
    preview.Key(Qt::Key_Return);
    EXPECT_EQ(preview.Summary(), "3 new.");
    EXPECT_FALSE(Find<QPushButton>(preview.Form, "cmdRefused").isEnabled());
    preview.Press("cmdOk");
  });
  ImportFile("Mark,Product,Length\nP1,Z14012,5000\nP2,Z14013,5500\nP3,Z14012,6 m\n");
  EXPECT_EQ(Marks(), (Texts{"P1", "P2", "P3"}));
  EXPECT_EQ(Row(2), (Texts{"Z", "P2", "Z14014", "5500", "0", ""}));
  EXPECT_EQ(Row(3), (Texts{"Z", "P3", "Z14012", "6000", "0", ""}));
}

TEST_F(ImportScreen, Rows_that_stay_refused_are_left_out_but_not_without_a_word) {
  ExpectPreview([this](const Preview& preview) {
    dialogs.ExpectBox("1 row is refused and is left out. Go on?", "", QMessageBox::No);
    dialogs.ExpectBox("1 row is refused and is left out. Go on?", "", QMessageBox::Yes);
    preview.Press("cmdOk");
    // No leads to the cell.
    EXPECT_TRUE(preview.Form.isVisible());
    EXPECT_EQ(preview.Table.Row(), 2);
    preview.Form.activateWindow();
    preview.Press("cmdOk");
  });
  ImportFile("Mark,Product\nP1,Z14012\nP2,oops\n");
  EXPECT_EQ(Marks(), Texts{"P1"});
}

TEST_F(ImportScreen, A_row_is_left_out_by_its_tick_and_by_the_button) {
  ExpectPreview([](const Preview& preview) {
    EXPECT_TRUE(preview.Takes(1));
    preview.Click(1, TakeColumn);
    EXPECT_FALSE(preview.Takes(1));
    EXPECT_EQ(preview.Words(), (Texts{"Left out", "New", "New"}));
    preview.Click(2, TakeColumn);
    preview.Click(2, TakeColumn);
    EXPECT_TRUE(preview.Takes(2));
    preview.ClickUnder(3, "Mark");
    preview.Press("cmdTake");
    EXPECT_EQ(preview.Summary(), "1 new, 2 left out.");
    preview.Press("cmdOk");
  });
  ImportFile("Mark,Product\nP1,Z14012\nP2,Z14012\nP3,Z14012\n");
  EXPECT_EQ(Marks(), Texts{"P2"});
}

TEST_F(ImportScreen, Thousands_are_asked_once) {
  ExpectPreview([](const Preview& preview) {
    EXPECT_TRUE(preview.Shows("cboDigits"));
    EXPECT_EQ(FromQt(Find<QLabel>(preview.Form, "lblDigits").text()),
              "What the comma or the point of 6,000 and the like divides:");
    EXPECT_EQ(preview.Summary(), "2 refused.");
    auto& list = Find<QComboBox>(preview.Form, "cboDigits");
    EXPECT_EQ(list.count(), 3);
    list.setFocus();
    QTest::keyClicks(&list, "tho");
    QTest::keyClick(&list, Qt::Key_Return);
    RunQueued();
    EXPECT_EQ(preview.Summary(), "2 new.");
    EXPECT_TRUE(preview.Shows("cboDigits"));
    preview.Press("cmdOk");
  });
  ImportFile("Mark;Product;Length\nP1;Z14012;6,000\nP2;Z14012;7.500\n");
  EXPECT_EQ(Items.At(1).Length, 6000);
  EXPECT_EQ(Items.At(2).Length, 7500);
}

TEST_F(ImportScreen, A_name_of_two_families_is_asked_once) {
  SectionDim shared;
  shared.Product = "AB 12";
  for (const char* letter : {"Z", "T"}) {
    shared.SectionType = letter;
    SectionDims.Append(shared);
  }
  ExpectPreview([](const Preview& preview) {
    EXPECT_EQ(FromQt(Find<QLabel>(preview.Form, "lblFamily").text()), "What AB 12 is:");
    auto& list = Find<QComboBox>(preview.Form, "cboFamily");
    EXPECT_EQ(FromQt(list.itemText(1)), "Z section");
    EXPECT_EQ(FromQt(list.itemText(2)), "Top hat");
    list.setFocus();
    QTest::keyClicks(&list, "Top");
    QTest::keyClick(&list, Qt::Key_Return);
    RunQueued();
    EXPECT_EQ(preview.Summary(), "2 new.");
    preview.Press("cmdOk");
  });
  ImportFile("Mark,Product\nP1,AB 12\nP2,AB 12\n");
  EXPECT_EQ(Items.At(2).SectionType, "T");
}

TEST_F(ImportScreen, Holes_placed_by_hand_go_by_a_tick_alone) {
  for (const char* mark : {"P1", "P2"}) {
    Item& item = Put("Z", mark, "Z14012", 6000, 2);
    item.PatternName = "Custom";
    PutHole(item, 500, "C");
    PutHole(item, 700, "C");
  }
  Show();
  ExpectPreview([](const Preview& preview) {
    EXPECT_EQ(preview.Cell(1, "Remove holes"), "2");
    EXPECT_EQ(preview.Words()[0],
              "Punching stays Custom: Butt would remove 2 holes placed by hand");
    EXPECT_EQ(preview.Cell(1, "Punching"), "Custom");
    // The row that the cursor is in is told in full.
    preview.ClickUnder(1, "Punching");
    EXPECT_EQ(FromQt(Find<QLabel>(preview.Form, "lblRow").text()),
              "Row 2: Punching stays Custom: Butt would remove 2 holes placed by hand");
    preview.ClickUnder(2, "Remove holes");
    EXPECT_EQ(preview.Words()[1],
              "Punching Custom" + Arrow + "Butt; removes 2 holes placed by hand");
    preview.Press("cmdOk");
  });
  ImportFile("Mark,Punching\nP1,Butt\nP2,Butt\n");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{500, 700}));
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(Items.At(2).PatternName, "Butt");
  EXPECT_NE(HolesOf(2), (std::vector<int>{500, 700}));
}

TEST_F(ImportScreen, What_was_mended_is_not_given_up_without_a_word) {
  ExpectPreview([this](const Preview& preview) {
    preview.ClickUnder(1, "Mark");
    preview.Type("Q1");
    preview.Key(Qt::Key_Tab);
    dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
    preview.Key(Qt::Key_Escape);
  });
  ImportFile("Mark,Product\nP1,Z14012\n");
  EXPECT_EQ(Items.UBound(), 0);
}

TEST_F(ImportScreen, A_list_without_sections_and_one_that_can_not_be_read_are_told) {
  dialogs.ExpectBox("There are no sections in that list");
  ImportFile("Mark,Product\n");
  dialogs.ExpectBox("A quote in row 2 is not closed");
  ImportFile("Mark,Product\n\"P1,Z14012\n");
  EXPECT_EQ(Items.UBound(), 0);
}

TEST_F(ImportScreen, The_list_is_written_for_spreadsheets_and_comes_back) {
  Put("Z", "P1", "Z14012", 6000, 2).Notes = "a, b";
  Put("V", "V1", "VCR", 3000, 1);
  Show();
  const std::string path = TempPath("written.csv");
  platform.Chosen.push_back(path);
  Entry("mnuToolsSectionList").trigger();
  Settle();
  EXPECT_EQ(BytesOf(path),
            "\xEF\xBB\xBF"
            "Mark,Product,Length,Qty,Notes,Punching,Sag bars,Pitch,Mitre left,Mitre right\r\n"
            "P1,Z14012,6000,2,\"a, b\",,,,0.0,0.0\r\nV1,VCR,3000,1,,,,,0.0,0.0\r\n");
  ASSERT_EQ(platform.SaveDialogs.size(), 1U);
  EXPECT_EQ(platform.SaveDialogs[0].Title, "Section List");
  EXPECT_EQ(platform.SaveDialogs[0].DefaultExtension, ".csv");
  EXPECT_TRUE(platform.SaveDialogs[0].OverwritePrompt);
  EXPECT_EQ(ProjectDirty, False);
  ExpectPreview([](const Preview& preview) {
    EXPECT_EQ(preview.Summary(), "2 without a change.");
    Accept(preview);
  });
  ImportFile(BytesOf(path));
  EXPECT_EQ(ProjectDirty, False);
}

}  // namespace
}  // namespace orvane::test
