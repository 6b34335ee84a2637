// What the project file can't hold isn't taken from keys and clipboard, and a save that finds such
// a text all the same leads to it.
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMessageBox>

#include "project/project_file.h"
#include "tests/screens/acc02_fixture.h"
#include "tests/screens/sections_fixture.h"
#include "ui/controls/refused_look.h"

namespace orvane::test {
namespace {

constexpr int MarkCell = 1;
constexpr int NotesCell = 5;

class StoredTexts : public SectionsTest {
 protected:
  // Presses that button of the next box.
  void ExpectChoice(const std::string& button) {
    dialogs.ExpectDialog("MessageBox", [this, button](QWidget& window) {
      text = FromQt(dynamic_cast<QMessageBox&>(window).text());
      buttons.clear();
      for (QAbstractButton* each : dynamic_cast<QMessageBox&>(window).buttons()) {
        buttons.push_back(FromQt(each->text()));
      }
      for (QAbstractButton* each : dynamic_cast<QMessageBox&>(window).buttons()) {
        if (FromQt(each->text()) == button) return QTest::mouseClick(each, Qt::LeftButton);
      }
      ADD_FAILURE() << "no button " << button;
    });
  }
  void Save() {
    Press(Qt::Key_S, Qt::ControlModifier);
    Settle();
  }

  std::string text;  // of the box shown last
  std::vector<std::string> buttons;
};

TEST_F(StoredTexts, A_double_quote_typed_into_a_mark_or_a_note_becomes_two_apostrophes) {
  Put("Z", "A1", "Z14012", 6000);
  Show(1, MarkCell);
  Retype("12\" x");
  EXPECT_EQ(Items.At(1).Mark, "12'' x");
  EXPECT_EQ(FromQt(Editor().text()), "12'' x");
  Press(Qt::Key_Home);
  Press(Qt::Key_Right);
  Type("\"");
  EXPECT_EQ(Items.At(1).Mark, "1''2'' x");
  EXPECT_EQ(Editor().cursorPosition(), 3);
  ClickCell(Sections(), 1, NotesCell);
  Paste("3\" deep, see \"A\"");
  EXPECT_EQ(Items.At(1).Notes, "3'' deep, see ''A''");
  QInputMethodEvent composed;
  composed.setCommitString("\"");
  QCoreApplication::sendEvent(&Editor(), &composed);
  EXPECT_EQ(Items.At(1).Notes, "3'' deep, see ''A''''");
  EXPECT_TRUE(GridShowsItems());
}

TEST_F(StoredTexts, Duplicate_marks_are_found_behind_the_change) {
  Put("Z", "12''", "Z14012", 6000);
  Put("Z", "B1", "Z14012", 6000);
  Show(2, MarkCell);
  Retype("12\"");
  ExpectRefusal("Error - Duplicate Mark");
  Press(Qt::Key_Tab);
  Settle();
  EXPECT_TRUE(CursorAt(2, MarkCell, "12''"));
}

TEST_F(StoredTexts, A_save_leads_to_a_quote_of_an_old_file) {
  Put("Z", "A1", "Z14012", 6000);
  Put("Z", "B1", "Z14012", 6000).Notes = "12\" x 3\", see drawing";
  Show(1, MarkCell);
  ProjectFileName = TempPath("job.ovd");
  ExpectChoice("Go there");
  Save();
  EXPECT_EQ(buttons.size(), 2U);
  EXPECT_NE(text.find("B1, Notes:  12\" x 3\", see drawing"), std::string::npos) << text;
  EXPECT_TRUE(CursorAt(2, NotesCell, "12\" x 3\", see drawing"));
  EXPECT_FALSE(std::filesystem::exists(ProjectFileName));
  Retype("12\" x 3\", see drawing");
  Save();
  EXPECT_EQ(BytesOf(ProjectFileName), ProjectText());
  EXPECT_EQ(Items.At(2).Notes, "12'' x 3'', see drawing");
}

TEST_F(StoredTexts, A_save_leads_to_a_field_of_the_project_details) {
  txtProject.at(3) = "Barn \"B\"";
  Put("Z", "A1", "Z14012", 6000);
  Show(1, MarkCell);
  ProjectFileName = TempPath("job.ovd");
  ExpectChoice("Go there");
  dialogs.ExpectDialog("frmProjectDetails", [](QWidget& dialog) {
    EXPECT_TRUE(Find<QLineEdit>(dialog, "txtProject(3)").hasFocus());
    dialog.close();
  });
  Save();
  EXPECT_FALSE(std::filesystem::exists(ProjectFileName));
}

TEST_F(StoredTexts, A_save_leads_to_the_cell_of_an_accessory_line) {
  AccLine2 line;
  line.AccIndex = DoorJambKits;
  line.Mark = "D1";
  line.NoOff = 1;
  line.Values.Resize(3);
  AccLines2.Append(line);
  line.Mark = "D2";
  line.Values.At(2) = "3\"";
  AccLines2.Append(line);
  Show();
  ProjectFileName = TempPath("job.ovd");
  ExpectChoice("Go there");
  dialogs.ExpectDialog("frmAcc02", [](QWidget& dialog) {
    auto& grid = Find<FlexGrid>(dialog, "MSFlexGrid1");
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 4);
    EXPECT_EQ(FromQt(Find<QLineEdit>(dialog, "txtEdit").text()), "3\"");
    dialog.close();
  });
  Save();
}

TEST_F(StoredTexts, A_line_of_an_accessory_beyond_the_catalogue_is_told_to_be_out_of_reach) {
  AccLine2 line;
  line.AccIndex = Int16(AccDefs.UBound() + 1);
  line.Mark = "a,b";
  AccLines2.Append(line);
  Show();
  ProjectFileName = TempPath("job.ovd");
  ExpectChoice("Go there");
  dialogs.ExpectBox(
      "This line's accessory isn't in the catalogue. It is kept, but can't be edited.");
  Save();
  EXPECT_FALSE(std::filesystem::exists(ProjectFileName));
}

TEST_F(StoredTexts, Save_all_the_same_saves) {
  Put("Z", "A1", "Z14012", 6000).Notes = "12\" deep";
  Show(1, MarkCell);
  ProjectFileName = TempPath("job.ovd");
  ExpectChoice("Save all the same");
  Save();
  EXPECT_EQ(buttons.size(), 3U);
  EXPECT_NE(BytesOf(ProjectFileName).find("\"12\" deep\""), std::string::npos);
}

// Accessory lines.

class StoredAccessoryTexts : public Acc02Test {};

TEST_F(StoredAccessoryTexts, A_mark_takes_no_comma_and_a_value_no_double_quote) {
  PutLine(DoorJambKits, "D1", 1, {"3000", "4000", "L"});
  InDialog(DoorJambKits, [this](FrmAcc02& form) {
    Click(form, 1, 1);
    Keys("a\"1,");
    EXPECT_EQ(FromQt(Text(form).text()), "a\"1");
    EXPECT_EQ(FromQt(RefusalOf(Text(form))), "The project file can't hold a comma here");
    Keys("2");
    EXPECT_FALSE(IsFieldRefused(Text(form)));
    QGuiApplication::clipboard()->setText("x,y");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(FromQt(Text(form).text()), "a\"12");
    EXPECT_TRUE(IsFieldRefused(Text(form)));
    Click(form, 1, 3);
    EXPECT_FALSE(IsFieldRefused(Text(form)));
    Keys("3\", 4");
    Click(form, 1, 4);
    EXPECT_EQ(Cells(form).at(0), (Texts{"a\"12", "1", "3'', 4", "4000", "L"}));
    ClickButton(form, 0);
  });
  EXPECT_EQ(Stored(DoorJambKits).at(0), (Texts{"a\"12", "1", "3'', 4", "4000", "L"}));
}

}  // namespace
}  // namespace orvane::test
