// The command "Export CAM File" from the check to the last message.
#include <filesystem>
#include <utility>

#include "core/settings.h"
#include "output/validation.h"
#include "tests/output/export_fixture.h"

namespace orvane {

namespace {

using namespace test;
namespace fs = std::filesystem;

TEST_F(ExportRunTest, Sections_alone_give_a_CAM_file_and_the_message) {
  AddChannel();
  const std::string path = TempPath("a.xov");
  EXPECT_EQ(Export(path), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xov"})}));
  EXPECT_EQ(BytesOf(path), CamHeader + ChannelBlock);
  EXPECT_EQ(Files(), TextList{"a.xov"});
  EXPECT_EQ(user.ClockReads, 1);
}

TEST_F(ExportRunTest, Sections_and_accessories_give_both_files) {
  AddChannel();
  AddListedAccessory();
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xov", "a.xac"})}));
  EXPECT_EQ(BytesOf(TempPath("a.xov")), CamHeader + ChannelBlock);
  EXPECT_EQ(BytesOf(TempPath("a.xac")), ListHeader + ListBlock);
  EXPECT_EQ(Files(), (TextList{"a.xac", "a.xov"}));
  EXPECT_EQ(user.ClockReads, 2);  // once for each file
}

TEST_F(ExportRunTest, The_command_is_the_same_run) {
  AddChannel();
  user.Chosen = {TempPath("a.xov")};
  ExportCAM();
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xov"})}));
  EXPECT_EQ(BytesOf(TempPath("a.xov")), CamHeader + ChannelBlock);
}

TEST_F(ExportRunTest, Accessories_that_the_CAM_file_doesnt_know_give_the_list_alone) {
  AddListedAccessory();
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xac"})}));
  EXPECT_EQ(Files(), TextList{"a.xac"});
  EXPECT_EQ(BytesOf(TempPath("a.xac")), ListHeader + ListBlock);
}

TEST_F(ExportRunTest, A_list_alone_leaves_an_old_CAM_file_untouched) {
  AddListedAccessory();
  const std::string path = TempFile("a.xov", "the old file");
  EXPECT_EQ(Export(path), ExportOutcome::Done);
  EXPECT_EQ(BytesOf(path), "the old file");
}

TEST_F(ExportRunTest, Some_accessories_alone_force_a_CAM_file) {
  const std::vector<std::pair<AccLine1, bool>> lines1 = {
      {MakeLine1(1, 1, 1), false}, {MakeLine1(3, 1, 1), false},  {MakeLine1(4, 1, 1), true},
      {MakeLine1(4, 9, 0), true},  {MakeLine1(5, 1, 1), true},   {MakeLine1(6, 1, 1), false},
      {MakeLine1(7, 1, 1), false}, {MakeLine1(21, 1, 1), false},
  };
  for (const auto& [line, forced] : lines1) {
    AccLines1.Clear();
    AccLines1.Append(MakeLine1(2, 1, 1));
    AccLines1.Append(line);
    EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
    EXPECT_EQ(trace, (TextList{"open dialog", Complete(forced ? TextList{"a.xov"} : TextList{})}));
    EXPECT_EQ(Files(), forced ? TextList{"a.xov"} : TextList{}) << line.AccIndex;
    fs::remove(TempPath("a.xov"));
  }
  AccLines1.Clear();
  const std::vector<std::pair<int, bool>> lines2 = {
      {4, false}, {5, false},  {6, true},  {7, true},   {8, false},
      {9, false}, {20, false}, {21, true}, {22, false},
  };
  for (const auto& [accIndex, forced] : lines2) {
    AccLines2.Clear();
    AccLines2.Append(MakeLine2(10, "M0", 1, {}));
    AccLines2.Append(MakeLine2(accIndex, "M1", 1, {"1", "1", "3000", "10", "10", "KT31", "KT31"}));
    EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
    EXPECT_EQ(trace, (TextList{"open dialog", Complete(forced ? TextList{"a.xov"} : TextList{})}));
    EXPECT_EQ(Files(), forced ? TextList{"a.xov"} : TextList{}) << accIndex;
    fs::remove(TempPath("a.xov"));
  }
}

TEST_F(ExportRunTest, Vertical_cladding_rails_alone_give_no_CAM_file) {
  AccLines2.Append(MakeLine2(8, "V1", 1, {"1", "0", "3000", "10", "10"}));
  AccUsed.At(8) = True;
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xac"})}));
  EXPECT_EQ(Files(), TextList{"a.xac"});
}

TEST_F(ExportRunTest, The_accessory_in_row_7_alone_gives_a_header_without_blocks) {
  AccLines2.Append(MakeLine2(7, "H1", 1, {}));
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xov"})}));
  EXPECT_EQ(BytesOf(TempPath("a.xov")), CamHeader);
}

TEST_F(ExportRunTest, Without_a_flag_of_an_accessory_in_use_no_list_is_written) {
  AddChannel();
  AddListedAccessory();
  AccUsed.At(1) = False;
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xov"})}));
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, Flags_without_a_line_write_no_list_either) {
  AddChannel();
  AccUsed.At(1) = True;
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, An_empty_project_ends_silently) {
  trace.clear();
  EXPECT_EQ(RunExport(), ExportOutcome::Nothing);
  EXPECT_EQ(trace, TextList{});
  EXPECT_EQ(CamDirectorySetting(), "not stored");
}

TEST_F(ExportRunTest, A_refused_project_shows_its_lines_and_no_file_dialog) {
  AddChannel();
  Items.At(1).Mark = "";
  AddListedAccessory();
  EXPECT_EQ(RunExport(), ExportOutcome::Refused);
  EXPECT_EQ(trace, (TextList{"error list", "Item 1:  No mark"}));
  EXPECT_EQ(CamDirectorySetting(), "not stored");
  EXPECT_EQ(Files(), TextList{});
  EXPECT_EQ(ExportErrors.UBound(), 1);  // for as long as no other export runs
}

class SleevedExportTest : public ExportRunTest {
 protected:
  SleevedExportTest() {
    Item item = MakeItem("Z", "P1", 6000);
    item.PatternName = "2 Row Sleeved";
    Items.Append(item);
  }
  const std::string Question =
      "Checking Data: Item 1: P1 requires sleeves and none were found\r"
      "Do you wish to continue with the export?";
};

TEST_F(SleevedExportTest, After_Yes_the_export_goes_on) {
  user.Answers = {Answer::Yes};
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{Question, "open dialog", Complete({"a.xov"})}));
}

TEST_F(SleevedExportTest, After_No_the_lines_are_shown_and_the_export_ends) {
  user.Answers = {Answer::No};
  EXPECT_EQ(RunExport(), ExportOutcome::Refused);
  EXPECT_EQ(trace, (TextList{Question, "error list", "Item 1: P1 No sleeves"}));
}

TEST_F(SleevedExportTest, A_faulty_mark_stops_the_export_even_after_Yes) {
  Items.At(1).Mark = "";
  user.Answers = {Answer::Yes};
  EXPECT_EQ(RunExport(), ExportOutcome::Refused);
  EXPECT_EQ(trace, (TextList{"Checking Data: Item 1:  requires sleeves and none were found\r"
                             "Do you wish to continue with the export?",
                             "error list", "Item 1:  No mark"}));
}

TEST_F(ExportRunTest, The_file_dialog_is_of_the_open_form_and_asks_nothing) {
  AddChannel();
  user.Values.Store(TheSettingsRoot, "SOFTWARE\\Lintaro\\Settings", "CAMDirectory", "/jobs/cam/");
  Export(TempPath("a.xov"));
  ASSERT_EQ(user.OpenDialogs.size(), 1U);
  const FileDialog& dialog = user.OpenDialogs[0];
  EXPECT_EQ(dialog.Title, "CAM File Export");
  EXPECT_EQ(dialog.Filter, "CAM Files|*.xov");
  EXPECT_EQ(dialog.DefaultExtension, ".xov");
  EXPECT_EQ(dialog.InitialFolder, "/jobs/cam/");
  EXPECT_FALSE(dialog.OverwritePrompt);
  EXPECT_FALSE(dialog.FileMustExist);
}

TEST_F(ExportRunTest, At_first_the_file_dialog_has_no_folder) {
  AddChannel();
  Export(std::nullopt);
  ASSERT_EQ(user.OpenDialogs.size(), 1U);
  EXPECT_EQ(user.OpenDialogs[0].InitialFolder, "");
}

TEST_F(ExportRunTest, The_file_dialog_is_given_the_jobs_folder_for_its_first_time) {
  AddChannel();
  Export(std::nullopt);
  EXPECT_EQ(user.OpenDialogs.back().FirstFolder, "");
  ProjectFileName = "/jobs/north/shed.ovd";
  Export(std::nullopt);
  EXPECT_EQ(user.OpenDialogs.back().FirstFolder, "/jobs/north/");
  EXPECT_EQ(user.OpenDialogs.back().InitialFolder, "");
}

TEST_F(ExportRunTest, The_folder_of_the_chosen_file_is_where_the_next_dialog_starts) {
  AddChannel();
  const std::string path = TempPath("a.xov");
  const std::string folder = path.substr(0, path.size() - 5);
  Export(path);
  EXPECT_EQ(CamDirectorySetting(), folder);
  Export(path);
  EXPECT_EQ(user.OpenDialogs.at(1).InitialFolder, folder);
}

TEST_F(ExportRunTest, A_bare_file_name_stores_an_empty_folder) {
  AddChannel();
  const fs::path before = fs::current_path();
  fs::current_path(fs::path(TempPath("x")).parent_path());
  EXPECT_EQ(Export("a.xov"), ExportOutcome::Done);
  fs::current_path(before);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xov"})}));
  EXPECT_EQ(CamDirectorySetting(), "");
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, An_existing_file_is_replaced_without_a_question) {
  AddChannel();
  const std::string path = TempFile("a.xov", std::string(10000, 'x'));
  EXPECT_EQ(Export(path), ExportOutcome::Done);
  EXPECT_EQ(Export(path), ExportOutcome::Done);
  EXPECT_EQ(trace, (TextList{"open dialog", Complete({"a.xov"})}));
  EXPECT_EQ(BytesOf(path), CamHeader + ChannelBlock);
}

}  // namespace

}  // namespace orvane
