#include "output/cam_export.h"
#include "tests/screens/sections_fixture.h"

namespace orvane::test {
namespace {

class ExportScreen : public SectionsTest {
 protected:
  void Export() {
    Entry("mnuOutput(6)").trigger();
    Settle();
    BackToMain();
  }
  // Foresees the list of faults, compares its lines and closes it.
  void ExpectErrors(const std::vector<std::string>& lines) {
    dialogs.ExpectDialog("frmErrors", [lines](QWidget& dialog) {
      EXPECT_EQ(FromQt(dialog.windowTitle()), "Validation Errors");
      EXPECT_TRUE(dialog.isModal());
      const auto& list = Find<QListWidget>(dialog, "List1");
      std::vector<std::string> shown;
      for (int row = 0; row < list.count(); ++row) shown.push_back(FromQt(list.item(row)->text()));
      EXPECT_EQ(shown, lines);
      QTest::mouseClick(&Find(dialog, "SSCommand2"), Qt::LeftButton);
    });
  }
  void ExpectSleeveQuestion(int row, const std::string& mark, QMessageBox::StandardButton answer) {
    dialogs.ExpectBox("Item " + std::to_string(row) + ": " + mark +
                          " requires sleeves and none were found\n"
                          "Do you wish to continue with the export?",
                      "Checking Data", answer);
  }
  std::string CamBytes() { return CamFile(platform.Present).Text; }
};

TEST_F(ExportScreen, An_empty_project_ends_silently) {
  Export();
  EXPECT_TRUE(platform.OpenDialogs.empty());
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(ExportScreen, Faults_are_listed_and_nothing_is_written) {
  Put("Z", "A1", "Z14012", 6000, 1);
  Put("Z", "", "Z14012", 0, 0);
  Put("V", "C1", "VCR", 0, -1);
  Show(1, 4);
  for (int time = 0; time < 2; ++time) {
    ExpectErrors({"Item 2:  No mark", "Item 2:  Zero length", "Item 2:  Zero quantity",
                  "Item 3: C1 Zero length"});
    Export();
  }
  EXPECT_TRUE(platform.OpenDialogs.empty());
  EXPECT_EQ(CamDirectory(), "");
  EXPECT_TRUE(CursorAt(1, 4, "1"));
}

TEST_F(ExportScreen, A_sound_project_is_written_and_told_complete) {
  Put("Z", "A1", "Z14012", 6000, 4).PatternName = "Butt Single Holes";
  Show();
  StoreCamDirectory("/cam/");
  const std::string path = TempPath("job.xov");
  platform.Chosen.push_back(path);
  dialogs.ExpectBox("CAM export complete\n" + path);
  Press(Qt::Key_E, Qt::ControlModifier);
  Settle();
  ASSERT_EQ(platform.OpenDialogs.size(), 1U);
  const FileDialog& dialog = platform.OpenDialogs.front();
  EXPECT_EQ(dialog.Title, "CAM File Export");
  EXPECT_EQ(dialog.Filter, "CAM Files|*.xov");
  EXPECT_EQ(dialog.DefaultExtension, ".xov");
  EXPECT_EQ(dialog.InitialFolder, "/cam/");
  EXPECT_FALSE(dialog.FileMustExist);
  EXPECT_TRUE(platform.SaveDialogs.empty());
  const std::string bytes = BytesOf(path);
  EXPECT_EQ(bytes, CamBytes());
  // Mirrored end for end: descending positions.
  EXPECT_NE(bytes.find("\r\nPURLIN\r\nA1\r\nZ14012\r\n4\r\n6000\r\n2\r\n"
                       "5968      n y y n 18                     \r\n"
                       "32        n y y n 18                     \r\n"
                       "0.0 0.0\r\n0\r\n\r\n"),
            std::string::npos);
  EXPECT_EQ(CamDirectory(), path.substr(0, path.size() - 7));
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_TRUE(CursorAt(1, 1, "A1"));
}

TEST_F(ExportScreen, What_is_being_typed_is_exported_as_typed_so_far) {
  Put("Z", "A1", "Z14012", 6000, 4).PatternName = "Butt Single Holes";
  Show(1, 3);
  Retype("7000");
  const std::string path = TempPath("job.xov");
  platform.Chosen.push_back(path);
  dialogs.ExpectBox("CAM export complete\n" + path);
  Export();
  EXPECT_NE(BytesOf(path).find("\r\n7000\r\n2\r\n6968 "), std::string::npos);
  EXPECT_TRUE(CursorAt(1, 3, "7000"));
}

TEST_F(ExportScreen, A_refusable_length_that_is_being_typed_is_told_by_the_list_alone) {
  Put("Z", "A1", "Z14012", 6000, 4);
  Show(1, 3);
  Press(Qt::Key_Delete);
  ExpectErrors({"Item 1: A1 Zero length"});
  Export();
  EXPECT_TRUE(CursorAt(1, 3, ""));
  ExpectRefusal("Invalid length");
  Press(Qt::Key_Tab);
  Settle();
}

TEST_F(ExportScreen, A_cancelled_export_changes_nothing) {
  Put("Z", "A1", "Z14012", 6000, 4).PatternName = "Butt Single Holes";
  Show();
  Items.At(1).Holes.At(1).XPos = 40;
  platform.Chosen.push_back(std::nullopt);
  Export();
  EXPECT_EQ(HolesOf(1), (std::vector<int>{40, 5968}));
  EXPECT_EQ(CamDirectory(), "");
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(ExportScreen, An_export_that_fails_tells_why_and_not_that_it_is_complete) {
  Put("Z", "A1", "Z14012", 6000, 4);
  Show();
  platform.Chosen.push_back(TempPath("missing") + "/job.xov");
  dialogs.ExpectBox("Path not found");
  Export();
  EXPECT_EQ(dialogs.Boxes().size(), 1U);
}

TEST_F(ExportScreen, Sleeved_purlins_without_sleeves_are_asked_about_one_by_one) {
  for (const std::string mark : {"A1", "B1"}) {
    Put("Z", mark, "Z14012", 6000, 4).PatternName = "Sleeved";
  }
  Put("Z", "C1", "Z14014", 6000, 4).PatternName = "Slvd Double Span";
  Put("C", "D1", "14012", 6000, 4).PatternName = "Channel Sleeved";
  AccLine2 sleeve;
  sleeve.AccIndex = 6;
  sleeve.Mark = "S1";
  sleeve.Values.Append("Z14014");
  sleeve.Values.Append("600");
  AccLines2.Append(sleeve);
  AccUsed.At(6) = True;
  Show();
  const std::string path = TempPath("job.xov");
  platform.Chosen.push_back(path);
  ExpectSleeveQuestion(1, "A1", QMessageBox::Yes);
  ExpectSleeveQuestion(2, "B1", QMessageBox::Yes);
  dialogs.ExpectBox("CAM export complete\n" + path + "\n" + TempPath("job.xac"));
  Export();
  EXPECT_EQ(BytesOf(path), CamBytes());
}

TEST_F(ExportScreen, No_ends_the_check_with_the_lines_found_so_far) {
  Put("Z", "", "Z14012", 6000, 4).PatternName = "Sleeved";
  Put("Z", "B1", "Z14012", 6000, 4).PatternName = "Sleeved 1 Sag Bar";
  Put("Z", "", "Z14012", 0, 0);
  Show();
  ExpectSleeveQuestion(1, "", QMessageBox::Yes);
  ExpectSleeveQuestion(2, "B1", QMessageBox::No);
  ExpectErrors({"Item 1:  No mark", "Item 2: B1 No sleeves"});
  Export();
  EXPECT_TRUE(platform.OpenDialogs.empty());
}

TEST_F(ExportScreen, A_project_of_accessories_alone_writes_its_list_and_says_complete) {
  AccLines1.Append({1, 1, 5, 0});
  AccUsed.At(1) = True;
  const std::string path = TempPath("job.xov");
  platform.Chosen.push_back(path);
  dialogs.ExpectBox("CAM export complete\n" + TempPath("job.xac"));
  Export();
  EXPECT_FALSE(std::filesystem::exists(path));
  const std::string list = BytesOf(TempPath("job.xac"));
  EXPECT_EQ(list.substr(0, 13), "ACCLIST 5.3\r\n");
  // The short code and the number off stand in columns of 12 behind the long text of 35.
  EXPECT_NE(list.find("Cleat for depths 140 and 165       CL140       5           \r\n"),
            std::string::npos);
}

TEST_F(ExportScreen, A_list_that_fails_is_told_after_its_error_and_the_former_list_stands) {
  Put("Z", "A1", "Z14012", 6000, 4).PatternName = "Butt Single Holes";
  AccLines1.Append({1, 1, 5, 0});
  AccLines1.Append({99, 1, 5, 0});
  AccUsed.At(1) = True;
  Show();
  const std::string path = TempPath("job.xov");
  TempFile("job.xac", "former");
  platform.Chosen.push_back(path);
  dialogs.ExpectBox("Accessory 99: Subscript out of range");
  dialogs.ExpectBox("CAM file written, accessory list failed\n" + path);
  Export();
  EXPECT_EQ(BytesOf(path), CamBytes());
  EXPECT_EQ(BytesOf(TempPath("job.xac")), "former");
}

TEST_F(ExportScreen, The_fresh_holes_stay_in_the_model_and_the_flag_as_it_was) {
  Put("Z", "A1", "Z14012", 6000, 4).PatternName = "Butt Single Holes";
  Put("Z", "B1", "Z14012", 5000, 4).PatternName = "Butt Single Holes";
  Show();
  EXPECT_TRUE(HolesOf(2).empty());
  platform.Chosen.push_back(TempPath("job.xov"));
  dialogs.ExpectBox("CAM export complete\n" + TempPath("job.xov"));
  Export();
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 4968}));
  EXPECT_EQ(ProjectDirty, False);
}

}  // namespace
}  // namespace orvane::test
