#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "output/validation.h"
#include "tests/tools/companion.h"
#include "tools/batch_desktop.h"
#include "tools/batch_options.h"

namespace orvane {

namespace {

using test::JobOf;
using test::Outcome;
using test::Purlin;

class BatchConsole : public test::CompanionTest {};

TEST_F(BatchConsole, Help_and_version_go_to_standard_output) {
  const Outcome help = RunProgram(ORVANE_BATCH, {"--help"});
  EXPECT_EQ(help.Code, 0);
  EXPECT_EQ(help.Out, HelpText("dd/MM/yyyy"));
  EXPECT_EQ(help.Err, "");
  for (const char* option : {"--cam",
                             "--resave FILE",
                             "--out DIR",
                             "--catalogue DIR",
                             "--sleeves yes|no",
                             "--created",
                             "--drawing-width MM",
                             "--settings FILE",
                             "--jobs N",
                             "--allow-cut",
                             "--date-form FORM",
                             "--paper PAPER",
                             "--section-list",
                             "--cutting-list",
                             "--check ",
                             "--check-csv",
                             "--check-catalogue DIR",
                             "--compare",
                             "--import LIST",
                             "--to JOB.ovd",
                             "--skip-refused",
                             "--replace",
                             "--help, --version"}) {
    EXPECT_NE(help.Out.find(std::string("\n  ") + option), std::string::npos) << option;
  }
  EXPECT_NE(help.Out.find("here dd/MM/yyyy)"), std::string::npos);
  const Outcome other = RunProgram(ORVANE_BATCH, {"--date-form", "d.M.yy", "--help"});
  EXPECT_NE(other.Out.find("here d.M.yyyy)"), std::string::npos);
  const Outcome version = RunProgram(ORVANE_BATCH, {"--version"});
  EXPECT_EQ(version.Code, 0);
  EXPECT_EQ(version.Out, "orvane-batch 1.1.0\n");
  EXPECT_EQ(version.Err, "");
}

TEST_F(BatchConsole, On_a_terminal_several_jobs_have_a_progress_line) {
  if (!HasTerminal()) GTEST_SKIP() << "skipped: no pseudo-terminal here";
  File("a.ovd", JobOf({Purlin()}));
  File("b.ovd", JobOf({Purlin()}));
  const Outcome outcome = RunOnTerminal({"--cam", "a.ovd", "b.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err,
            "Job 1 of 2: a.ovd\r\x1b[Ka.ovd: CAM export complete\na.ovd: " + Path("a.xov") +
                "\nJob 2 of 2: b.ovd\r\x1b[Kb.ovd: CAM export complete\nb.ovd: " + Path("b.xov") +
                "\n");
  EXPECT_EQ(RunOnTerminal({"--jobs", "2", "--cam", "a.ovd", "b.ovd"}).Err, outcome.Err);
}

TEST_F(BatchConsole, On_a_terminal_a_single_job_has_none) {
  if (!HasTerminal()) GTEST_SKIP() << "skipped: no pseudo-terminal here";
  File("a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(RunOnTerminal({"--cam", "a.ovd"}).Err, "CAM export complete\n" + Path("a.xov") + "\n");
}

TEST_F(BatchConsole, A_progress_line_without_a_message_behind_it_is_taken_away) {
  std::ostringstream stream;
  Console console(stream, true);
  console.ShowProgress(1, 2, "a.ovd");
  console.ShowProgress(2, 2, "b.ovd");
  console.ClearProgress();
  console.ClearProgress();
  EXPECT_EQ(stream.str(), "Job 1 of 2: a.ovd\r\x1b[KJob 2 of 2: b.ovd\r\x1b[K");
}

TEST_F(BatchConsole, Every_line_of_a_text_bears_the_jobs_name) {
  std::ostringstream stream;
  Console console(stream, false);
  console.Say("one\rtwo\nthree\r\nfour");
  console.SayError("no job yet");
  console.NameJob("a.ovd", true);
  console.Say("five\rsix");
  console.SayFault("b.ovd", "File not found");
  EXPECT_EQ(stream.str(),
            "one\ntwo\nthree\nfour\nno job yet\na.ovd: five\na.ovd: six\n"
            "b.ovd: File not found\n");
}

TEST_F(BatchConsole, Every_error_names_a_file_even_of_a_single_job) {
  std::ostringstream stream;
  Console console(stream, false);
  BatchDesktop desk(console, {});
  console.NameJob("a.ovd", false);
  desk.BeginJob("a.xov");
  console.Say("Sheets complete");
  desk.ShowError("", "P1: Overflow\rP2: Overflow");
  desk.ShowError("/to/a.xov", "Disk full");
  desk.ShowError("/to/a.xov", "Disk full");
  EXPECT_EQ(stream.str(),
            "Sheets complete\na.ovd: P1: Overflow\na.ovd: P2: Overflow\n/to/a.xov: Disk full\n");
}

TEST_F(BatchConsole, Control_characters_of_a_jobs_texts_do_not_reach_the_terminal) {
  std::ostringstream stream;
  Console console(stream, false);
  console.Say("P1\x1b[2J\tend\x7f");
  console.Say("\xc2\x9b[2J");        // the one-character form of the same sequence
  console.Say("\xc3\x9b \xc3\xa4");  // letters are left alone
  EXPECT_EQ(stream.str(), "P1 [2J end \n\xc2\xa0[2J\n\xc3\x9b \xc3\xa4\n");
}

TEST_F(BatchConsole, The_desktop_answers_every_box_by_what_was_settled) {
  std::ostringstream stream;
  Console console(stream, false);
  BatchDesktop no(console, {});
  EXPECT_EQ(no.ShowMessageBox("Go on?", "", Buttons::YesNo, Icon::None), Answer::No);
  BatchDesktop yes(console, {true, Moment{{2024, 3, 5}, 14, 7, 9}, "", "dd.MM.yy"});
  EXPECT_EQ(yes.ShowMessageBox("Go on?", "", Buttons::YesNo, Icon::None), Answer::Yes);
  EXPECT_EQ(yes.ShowMessageBox("Save?", "Title", Buttons::YesNoCancel, Icon::None), Answer::Cancel);
  EXPECT_EQ(yes.ShowMessageBox("Done", "", Buttons::Ok, Icon::Stop), Answer::Ok);
  EXPECT_EQ(stream.str(), "Go on? No\nGo on? Yes\nTitle\nSave? Cancel\nDone\n");

  EXPECT_EQ(yes.ShortDateForm(), "dd.MM.yy");
  yes.BeginJob("a.xov");
  EXPECT_EQ(yes.ShowOpenDialog({}), "a.xov");
  EXPECT_EQ(yes.ShowSaveDialog({}), "a.xov");
  EXPECT_EQ(yes.Now().Day, (Date{2024, 3, 5}));
  EXPECT_EQ(yes.Now().Hour, 14);
}

TEST_F(BatchConsole, A_message_is_told_once_a_job) {
  std::ostringstream stream;
  Console console(stream, false);
  BatchDesktop desk(console, {});
  desk.BeginJob("a.xov");
  desk.Message("Division by zero");
  desk.Message("Overflow");
  desk.Message("Division by zero");
  EXPECT_EQ(stream.str(), "Division by zero\nOverflow\n");
  desk.BeginJob("b.xov");
  desk.Message("Division by zero");
  EXPECT_EQ(stream.str(), "Division by zero\nOverflow\nDivision by zero\n");
}

TEST_F(BatchConsole, Without_a_country_dates_have_the_day_first_and_four_digits_of_the_year) {
  std::ostringstream stream;
  Console console(stream, false);
  const BatchDesktop desk(console, {});
  const char* before = std::getenv("LC_ALL");
  const std::string kept = before == nullptr ? "" : before;
  for (const char* name : {"C", "POSIX", "C.UTF-8", "no_SUCH.UTF-8"}) {
    setenv("LC_ALL", name, 1);
    EXPECT_EQ(desk.ShortDateForm(), "dd/MM/yyyy") << name;
  }
  before == nullptr ? unsetenv("LC_ALL") : setenv("LC_ALL", kept.c_str(), 1);
}

TEST_F(BatchConsole, The_check_is_shown_under_its_caption) {
  std::ostringstream stream;
  Console console(stream, false);
  BatchScreen screenOfErrors(console);
  ExportErrors.Clear();
  AddExportError(1, "P1", "Zero length");
  AddExportError(2, "", "No mark");
  screenOfErrors.ShowExportErrors();
  ExportErrors.Clear();
  EXPECT_EQ(stream.str(), "Validation Errors\nItem 1: P1 Zero length\nItem 2:  No mark\n");
}

TEST_F(BatchConsole, Settings_come_from_the_file_and_what_is_stored_stays_in_memory) {
  const std::string text = "[SOFTWARE\\Lintaro\\Settings]\nCAMDirectory=/cam/\n";
  const std::string path = File("set.txt", text);
  const std::string key = "SOFTWARE\\Lintaro\\Settings";
  constexpr SettingsRoot Root = SettingsRoot::LocalMachine;
  BatchSettings settings(path);
  EXPECT_EQ(settings.Query(Root, key, "CAMDirectory"), "/cam/");
  EXPECT_EQ(settings.Query(Root, key, "ProjectDirectory"), std::nullopt);
  EXPECT_TRUE(settings.Store(Root, key, "CAMDirectory", ""));
  EXPECT_EQ(settings.Query(Root, key, "CAMDirectory"), "");
  EXPECT_EQ(test::BytesOf(path), text);
  EXPECT_EQ(BatchSettings("").Query(Root, key, "CAMDirectory"), std::nullopt);
}

}  // namespace

}  // namespace orvane
