#include "project/lifecycle.h"

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "core/files.h"
#include "core/runtime_error.h"
#include "core/settings.h"
#include "project/history.h"
#include "project/recent_files.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::Chain;
using test::First;
using test::Joined;
using test::LifecycleTest;
using test::LinesOf;
using test::Log;
using test::SmallProjectLines;
using test::StoredRecent;
using test::With;
namespace line = test::line;

// What the person sees of a new project.
const Log NewShown = {"ForgetEditors", "DisplayItems",          "ClearDetailPanel",
                      "EmptyHoleList", "ClearAccUsage",         "ShowFileName None",
                      "ClearDrawing",  "RefreshProjectDetails", "ShowProjectDetails"};

// And of a project that was opened, in front of the recent list.
Log Opened(const std::string& path) {
  return {"ForgetEditors",         "DisplayItems",         "ClearDetailPanel", "SetAccUsage",
          "RefreshProjectDetails", "ShowFileName " + path, "SelectFirstItem"};
}

// And of one that wasn't read to the end.
Log Failed(const std::string& description) {
  return {"ForgetEditors",
          "tell " + description,
          "DisplayItems",
          "ClearDetailPanel",
          "RefreshProjectDetails",
          "ClearDrawing",
          "ShowFileName @/old.ovd (not fully read)"};
}

void ExpectBox(const test::ShownBox& box, const std::string& text, const std::string& title,
               Buttons buttons) {
  EXPECT_EQ(box.Text, text);
  EXPECT_EQ(box.Title, title);
  EXPECT_EQ(box.Choice, buttons);
  EXPECT_EQ(box.Sign, Icon::None);
}

// The question in front of New and Open, on every path.

enum class Save { NotAsked, Done, Cancelled, Fails };

struct PromptPath {
  std::string Name;
  Boolean Dirty = False;
  std::optional<Answer> Given;
  Save Saving = Save::NotAsked;
  Log Before;  // what happens in front of the action
  bool GoesOn = true;
};

// Printed by its name: of a record without a form of its own the bytes between the fields are read
// too.
void PrintTo(const PromptPath& path, std::ostream* out) {
  *out << path.Name;
}

const std::vector<PromptPath>& PromptPaths() {
  static const Log ask = {"ask New Project"};
  static const std::string kept =
      "tell The project isn't saved. A copy of it stands "
      "in\r@/data/recovery/2024-03-05-140709/job1.ovd"
      "\rand is offered when the program is started again.";
  static const std::vector<PromptPath> paths = {
      // clang-format off
      {"clean",          False, std::nullopt,   Save::NotAsked,  {}, true},
      {"no",             True,  Answer::No,     Save::NotAsked,  ask, true},
      {"cancel",         True,  Answer::Cancel, Save::NotAsked,  ask, false},
      {"yes_saved",      True,  Answer::Yes,    Save::Done,
       Chain({ask, {"ShowFileName @/old.ovd"}, StoredRecent({"@/old.ovd"})}), true},
      {"yes_cancelled",  True,  Answer::Yes,    Save::Cancelled,
       Chain({ask, {"save dialog", "user's data folder", kept}}), true},
      {"yes_failed",     True,  Answer::Yes,    Save::Fails,
       Chain({ask, {"tell Path not found", "user's data folder", kept}}), true},
      // clang-format on
  };
  return paths;
}

class PromptTest : public LifecycleTest, public ::testing::WithParamInterface<PromptPath> {
 protected:
  // The earlier project as the path has it: named, unnamed, or under a name that can't be written.
  void SetUp() override {
    const std::string name = GetParam().Saving == Save::Cancelled ? ""
                             : GetParam().Saving == Save::Fails   ? Path("@/gone/old.ovd")
                                                                  : Path("@/old.ovd");
    HoldEarlierProject(name, GetParam().Dirty);
    if (GetParam().Given) person.Answers = {*GetParam().Given};
    if (GetParam().Saving == Save::Cancelled) person.Chosen = {std::nullopt};
    oldName_ = name;
  }

  // What the answers leave on the disk, and nothing left to answer.
  void ExpectSaving() {
    EXPECT_TRUE(person.Answers.empty());
    EXPECT_TRUE(person.Chosen.empty());
    if (GetParam().Given) {
      ExpectBox(person.Boxes.front(), "Save changes to current project?", "New Project",
                Buttons::YesNoCancel);
    }
    const bool saved = GetParam().Saving == Save::Done;
    EXPECT_EQ(std::filesystem::exists(Path("@/old.ovd")), saved);
    if (saved) {
      EXPECT_EQ(LinesOf(BytesOf(Path("@/old.ovd"))).at(7), "\"old mark\"");
    }

    const bool lost = GetParam().Saving == Save::Cancelled || GetParam().Saving == Save::Fails;
    EXPECT_EQ(Recovered(), lost ? Log{"2024-03-05-140709"} : Log{});
    if (lost) {
      const std::string file = Path("@/data/recovery/2024-03-05-140709/job1.ovd");
      EXPECT_EQ(LinesOf(BytesOf(file)).at(7), "\"old mark\"");
    }
  }

  void ExpectNothingChanged() {
    ExpectEarlierItems();
    ExpectEarlierLines1();
    ExpectEarlierLines2();
    EXPECT_EQ(CurrentItem, 1);
    EXPECT_EQ(ProjectFileName, oldName_);
    EXPECT_EQ(ProjectDirty, True);
  }

 private:
  std::string oldName_;
};

TEST_P(PromptTest, New_asks_once_and_goes_on_unless_cancelled) {
  NewProject();
  EXPECT_EQ(Events(), Chain({GetParam().Before, GetParam().GoesOn ? NewShown : Log{}}));
  ExpectSaving();
  if (GetParam().GoesOn) {
    EXPECT_TRUE(Items.Empty());
    EXPECT_EQ(ProjectFileName, "");
    EXPECT_EQ(ProjectDirty, True);
  } else {
    ExpectNothingChanged();
  }
}

TEST_P(PromptTest, Open_asks_under_the_same_title_in_front_of_its_dialog) {
  WriteSmallProject(JobPath());
  if (GetParam().GoesOn) person.Chosen.push_back(JobPath());
  OpenProject();

  Log opening;
  if (GetParam().GoesOn) {
    Log recent = {"@/job.ovd"};
    if (GetParam().Saving == Save::Done) recent.push_back("@/old.ovd");
    opening = Chain({{"open dialog"}, Opened("@/job.ovd"), StoredRecent(recent)});
  }
  EXPECT_EQ(Events(), Chain({GetParam().Before, opening}));
  ExpectSaving();
  if (GetParam().GoesOn) {
    EXPECT_EQ(Items.At(1).Mark, "Z1");
    EXPECT_EQ(ProjectFileName, JobPath());
    EXPECT_EQ(ProjectDirty, True);
  } else {
    ExpectNothingChanged();
  }
}

TEST_P(PromptTest, Cancelling_the_open_dialog_changes_nothing_more) {
  if (GetParam().GoesOn) person.Chosen.push_back(std::nullopt);
  OpenProject();
  EXPECT_EQ(Events(), Chain({GetParam().Before, GetParam().GoesOn ? Log{"open dialog"} : Log{}}));
  ExpectSaving();
  ExpectEarlierItems();
  EXPECT_EQ(CurrentItem, 1);
  EXPECT_EQ(ProjectDirty, GetParam().Saving == Save::Done ? False : GetParam().Dirty);
}

INSTANTIATE_TEST_SUITE_P(Paths, PromptTest, ::testing::ValuesIn(PromptPaths()),
                         [](const auto& path) { return path.param.Name; });

class NewProjectTest : public LifecycleTest {};

TEST_F(NewProjectTest, New_empties_the_sections_the_lines_the_flags_and_the_details) {
  HoldEarlierProject(JobPath(), False);
  RecentFiles = {"/a.ovd", "", "", "", ""};
  NewProject();
  EXPECT_TRUE(Items.Empty());
  EXPECT_TRUE(AccLines1.Empty());
  EXPECT_TRUE(AccLines2.Empty());
  ExpectFlags({0, 0, 0, 0});
  EXPECT_EQ(txtProject, (std::array<std::string, 5>{"", "", "", "", ""}));
  EXPECT_EQ(DTPicker1, (Date{2024, 3, 5}));
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(Recent(), (Log{"/a.ovd", "", "", "", ""}));
}

TEST_F(NewProjectTest, New_forgets_the_editors_before_the_sections_go) {
  HoldEarlierProject(JobPath(), False);
  log.On["ForgetEditors"] = [] { ExpectEarlierItems(); };
  log.On["DisplayItems"] = [] { EXPECT_TRUE(Items.Empty()); };
  log.On["ClearAccUsage"] = [] { ExpectFlags({0, 0, 0, 0}); };
  NewProject();
  EXPECT_EQ(Events(), NewShown);
}

TEST_F(NewProjectTest, New_counts_as_a_change_only_when_the_details_are_closed_and_keeps_them) {
  HoldEarlierProject(JobPath(), False);
  log.On["RefreshProjectDetails"] = [] { EXPECT_EQ(txtProject.at(1), ""); };
  log.On["ShowProjectDetails"] = [] {
    EXPECT_EQ(ProjectDirty, False);
    txtProject.at(1) = "J-1";
  };
  NewProject();
  EXPECT_EQ(Events(), NewShown);
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(txtProject.at(1), "J-1");
}

class OpenFileTest : public LifecycleTest {
 protected:
  // What an opening that failed leaves as it was, beside the model.
  void ExpectKept(Boolean dirty, std::int16_t current = 0) {
    EXPECT_EQ(ProjectFileName, Path("@/old.ovd"));
    EXPECT_EQ(ProjectDirty, dirty);
    EXPECT_EQ(Recent(), (Log{"@/old.ovd", "/b.ovd", "", "", ""}));
    EXPECT_EQ(CurrentItem, current);
  }

  void HoldOld(Boolean dirty) {
    HoldEarlierProject(Path("@/old.ovd"), dirty);
    RecentFiles = {Path("@/old.ovd"), "/b.ovd", "", "", ""};
  }
};

TEST_F(OpenFileTest, The_open_dialog_has_its_title_and_filter_and_a_folder_of_its_own) {
  StoreProjectDirectory("/jobs/");
  person.Chosen = {std::nullopt};
  OpenProject();
  ASSERT_EQ(person.OpenDialogs.size(), 1U);
  const FileDialog& dialog = person.OpenDialogs.front();
  EXPECT_EQ(dialog.Title, "Open Project");
  EXPECT_EQ(dialog.Filter, "Orvane Detail Projects (*.ovd)|*.ovd");
  EXPECT_EQ(dialog.DefaultExtension, ".ovd");
  EXPECT_EQ(dialog.InitialFolder, "");
  EXPECT_EQ(dialog.FirstFolder, "");
  EXPECT_TRUE(dialog.FileMustExist);
  EXPECT_FALSE(dialog.OverwritePrompt);
}

TEST_F(OpenFileTest, Where_no_folder_was_stored_both_dialogs_are_given_that_of_the_job) {
  ProjectFileName = "/jobs/north/shed.ovd";
  ProjectDirty = False;
  person.Chosen = {std::nullopt, std::nullopt};
  OpenProject();
  EXPECT_EQ(person.OpenDialogs.back().FirstFolder, "/jobs/north/");
  SaveProject(True);
  EXPECT_EQ(person.SaveDialogs.back().InitialFolder, "");
  EXPECT_EQ(person.SaveDialogs.back().FirstFolder, "/jobs/north/");
}

TEST_F(OpenFileTest, Opening_reads_the_file_and_takes_its_name) {
  HoldOld(False);
  WriteSmallProject(JobPath());
  OpenFile(JobPath());
  EXPECT_EQ(Events(),
            Chain({Opened("@/job.ovd"), StoredRecent({"@/job.ovd", "@/old.ovd", "/b.ovd"})}));
  ASSERT_EQ(Items.UBound(), 2);
  EXPECT_EQ(Items.At(1).Mark, "Z1");
  EXPECT_EQ(Items.At(2).Mark, "R é");
  EXPECT_EQ(txtProject.at(0), "OV 1234");
  ExpectFlags({-1, 0, -1, -1});
  EXPECT_EQ(ProjectFileName, JobPath());
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OpenFileTest, Each_thing_is_told_when_it_is_so) {
  HoldOld(False);
  WriteSmallProject(JobPath());
  log.On["ForgetEditors"] = [] {
    ExpectEarlierItems();
    EXPECT_EQ(CurrentItem, 1);
  };
  log.On["DisplayItems"] = [this] {
    EXPECT_EQ(Items.UBound(), 2);
    EXPECT_EQ(ProjectFileName, Path("@/old.ovd"));
  };
  log.On["SetAccUsage"] = [] { ExpectFlags({-1, 0, -1, -1}); };
  log.On["ShowFileName @/job.ovd"] = [this] { EXPECT_EQ(ProjectFileName, JobPath()); };
  log.On["SelectFirstItem"] = [this] { EXPECT_EQ(Recent().front(), "@/old.ovd"); };
  log.On["ShowRecentFiles"] = [] { EXPECT_EQ(ProjectDirty, False); };
  OpenFile(JobPath());
  EXPECT_EQ(Events(),
            Chain({Opened("@/job.ovd"), StoredRecent({"@/job.ovd", "@/old.ovd", "/b.ovd"})}));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OpenFileTest, Opening_asks_nothing_even_if_changes_are_lost) {
  HoldOld(True);
  WriteSmallProject(JobPath());
  OpenFile(JobPath());
  EXPECT_TRUE(person.Boxes.empty());
  EXPECT_EQ(Items.At(1).Mark, "Z1");
}

TEST_F(OpenFileTest, A_path_of_blanks_does_nothing) {
  HoldOld(False);
  for (const std::string path : {"", "   "}) OpenFile(path);
  EXPECT_EQ(Events(), Log{});
  ExpectEarlierItems();
  EXPECT_EQ(CurrentItem, 1);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(OpenFileTest, A_project_without_sections_leaves_the_drawing_empty) {
  HoldOld(False);
  Items.Clear();
  ProjectFileName = JobPath();
  ASSERT_TRUE(SaveProject(False));
  Events();
  // Its accessory lines, of the accessories 9 and 5, are beyond the catalogue's two of each type.
  OpenFile(JobPath());
  EXPECT_EQ(Events(), (Log{"ForgetEditors", "DisplayItems", "ClearDetailPanel", "SetAccUsage",
                           "RefreshProjectDetails", "ShowFileName @/job.ovd",
                           "ShowJobNote 2 accessory lines of this job aren't in the catalogue: "
                           "they are kept, but can't be shown or edited",
                           "ClearDrawing"}));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OpenFileTest, A_missing_file_is_told_and_its_entry_stays) {
  HoldOld(True);
  CurrentItem = 1;
  OpenFile(Path("@/gone.ovd"));
  // Nothing was read, so the screen stays as it is.
  EXPECT_EQ(Events(), Log{"tell File not found"});
  ExpectBox(person.Boxes.front(), "File not found", "", Buttons::Ok);
  ExpectEarlierItems();
  ExpectKept(True, 1);
}

TEST_F(OpenFileTest, A_file_cut_in_its_sections_shows_what_was_read_until_then) {
  for (const Boolean dirty : {False, True}) {
    HoldOld(dirty);
    OpenFile(FreshFile(Joined(First(SmallProjectLines(), line::SecondMark))));
    EXPECT_EQ(Events(), Failed("Input past end of file"));
    ASSERT_EQ(Items.UBound(), 2);
    EXPECT_EQ(Items.At(1).SagBarDia, 14);
    EXPECT_EQ(Items.At(2).Mark, "R é");
    EXPECT_EQ(Items.At(2).Product, "");
    ExpectEarlierLines1();
    ExpectKept(dirty);
  }
}

TEST_F(OpenFileTest, A_bad_number_is_such_an_error) {
  HoldOld(False);
  OpenFile(FreshFile(Joined(With(SmallProjectLines(), line::Length, "x"))));
  EXPECT_EQ(Events(), Failed("Type mismatch"));
  EXPECT_EQ(Items.UBound(), 2);
  ExpectKept(False);
}

TEST_F(OpenFileTest, No_row_is_current_while_the_error_is_told) {
  HoldOld(False);
  log.On["tell Type mismatch"] = [] { EXPECT_EQ(CurrentItem, 0); };
  OpenFile(FreshFile(Joined(With(SmallProjectLines(), line::ItemCount, "x"))));
  EXPECT_EQ(Events(), Failed("Type mismatch"));
}

TEST_F(OpenFileTest, A_file_from_before_type_2_accessories_opens_without_a_word) {
  HoldOld(False);
  const std::string path = FreshFile(Joined(First(SmallProjectLines(), line::Lines1End)));
  OpenFile(path);
  EXPECT_TRUE(person.Boxes.empty());
  EXPECT_EQ(Items.At(2).Mark, "R é");
  EXPECT_TRUE(AccLines2.Empty());
  ExpectFlags({-1, -1, -1, -1});  // as they were
  EXPECT_EQ(ProjectFileName, path);
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OpenFileTest, A_date_that_no_form_fits_is_told_in_a_line_until_the_next_job) {
  HoldOld(False);
  WriteSmallProject(JobPath());
  std::string bytes = BytesOf(JobPath());
  bytes.replace(bytes.find("05/03/2024"), 10, "5 Marzo 24");
  WriteWholeFile(JobPath(), bytes);
  person.Present = {{2026, 11, 22}, 9, 0, 0};
  OpenFile(JobPath());
  EXPECT_EQ(window.Note, "The date \"5 Marzo 24\" can't be read; today's is in its place");
  EXPECT_TRUE(person.Boxes.empty());
  EXPECT_EQ(DTPicker1, (Date{2026, 11, 22}));
  EXPECT_EQ(ProjectFileName, JobPath());
  WriteSmallProject(Path("@/next.ovd"));
  OpenFile(Path("@/next.ovd"));
  EXPECT_EQ(window.Note, "");
}

TEST_F(OpenFileTest, An_error_in_drawing_the_first_section_is_told_and_the_project_is_open) {
  HoldOld(False);
  WriteSmallProject(JobPath());
  log.On["SelectFirstItem"] = [] { throw RuntimeError(Failure::DivisionByZero); };
  OpenFile(JobPath());
  EXPECT_EQ(Events(), Chain({Opened("@/job.ovd"),
                             {"tell Division by zero"},
                             StoredRecent({"@/job.ovd", "@/old.ovd", "/b.ovd"})}));
  EXPECT_EQ(ProjectFileName, JobPath());
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OpenFileTest, A_copy_opens_as_changed_under_the_name_that_it_is_given) {
  HoldOld(False);
  BeginHistory();
  WriteSmallProject(JobPath());
  EXPECT_TRUE(OpenCopy(BytesOf(JobPath()), Path("@/north.ovd")));
  EXPECT_EQ(Events(), Opened("@/north.ovd"));
  EXPECT_EQ(Items.At(2).Mark, "R é");
  EXPECT_EQ(ProjectFileName, Path("@/north.ovd"));
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_TRUE(IsChangedSinceSaved());
  EXPECT_EQ(StepToUndo(), "");
  EXPECT_EQ(Recent(), (Log{"@/old.ovd", "/b.ovd", "", "", ""}));
  EXPECT_FALSE(IsRegularFile(Path("@/north.ovd")));
  EndHistory();
}

TEST_F(OpenFileTest, A_copy_without_a_name_is_a_job_without_a_file) {
  HoldOld(False);
  WriteSmallProject(JobPath());
  EXPECT_TRUE(OpenCopy(BytesOf(JobPath()), ""));
  EXPECT_EQ(Events(), Opened("None"));
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(OpenFileTest, A_copy_that_stops_half_way_takes_no_name) {
  HoldOld(False);
  EXPECT_FALSE(OpenCopy(Joined(With(SmallProjectLines(), line::Length, "x")), Path("@/north.ovd")));
  EXPECT_EQ(Events(), Failed("Type mismatch"));
  EXPECT_EQ(NotFullyRead, True);
  ExpectKept(False);
}

TEST_F(OpenFileTest, A_recent_entry_opens_by_itself_and_stands_on_top_too) {
  WriteSmallProject(JobPath());
  RecentFiles = {"/a.ovd", "/b.ovd", JobPath(), "/d.ovd", "/e.ovd"};
  OpenFile(RecentFiles.at(2));
  EXPECT_EQ(Recent(), (Log{"@/job.ovd", "/a.ovd", "/b.ovd", "@/job.ovd", "/d.ovd"}));
  EXPECT_EQ(ProjectFileName, JobPath());
}

TEST_F(OpenFileTest, Opening_the_first_entry_leaves_the_list_as_it_is) {
  WriteSmallProject(JobPath());
  RecentFiles = {JobPath(), "/b.ovd", "", "", ""};
  OpenFile(RecentFiles.at(0));
  EXPECT_EQ(Events(), Opened("@/job.ovd"));
  EXPECT_EQ(Recent(), (Log{"@/job.ovd", "/b.ovd", "", "", ""}));
  EXPECT_EQ(ProjectDirty, True);
}

}  // namespace

}  // namespace orvane
