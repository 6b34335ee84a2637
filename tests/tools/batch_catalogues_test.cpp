#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

using test::BytesOf;
using test::JobOf;
using test::Outcome;
using test::Purlin;
using test::RunAs;

class BatchCatalogues : public test::CompanionTest {};

constexpr const char* Note = "Nothing to export: the job has neither sections nor accessories\n";

TEST_F(BatchCatalogues, A_faulty_catalogue_shows_its_message_and_ends_the_run) {
  File("a.ovd", JobOf({Purlin()}));
  TempFile("catalogue/accs1.csv", "A,Bolts,None,0,wide,0,Y\r\n");
  const Outcome outcome = Run({"--out", "to", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err,
            "Orvane Detailing System\n"
            "Error loading data from " +
                catalogue + "/accs1.csv\nType mismatch (row 1, column 5)\n");
  EXPECT_FALSE(Exists("to"));
}

TEST_F(BatchCatalogues, Every_faulty_catalogue_that_the_start_up_reads_is_told) {
  File("a.ovd", JobOf({Purlin()}));
  fs::remove(catalogue + "/accs2.csv");
  fs::remove(catalogue + "/dims.csv");
  fs::remove(catalogue + "/punch.csv");
  const std::string title = "Orvane Detailing System\nError loading data from " + catalogue;
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, title + "/accs2.csv\nFile not found\n" + title +
                             "/dims.csv\nFile not found\n" + title +
                             "/punch.csv\nFile not found\n");
}

TEST_F(BatchCatalogues, A_catalogue_folder_that_is_not_there_is_a_fault) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = RunProgram(ORVANE_BATCH, {"--catalogue", "nowhere", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err.find("Orvane Detailing System\nError loading data from "), 0U);
  EXPECT_NE(outcome.Err.find("/desk/nowhere/accs1.csv\nPath not found\n"), std::string::npos);
}

TEST_F(BatchCatalogues, Catalogue_names_are_found_without_regard_to_case) {
  File("a.ovd", JobOf({Purlin()}));
  fs::rename(catalogue + "/dims.csv", catalogue + "/DIMS.CSV");
  EXPECT_EQ(Run({"--cam", "a.ovd"}).Code, 0);
}

TEST_F(BatchCatalogues, In_the_build_tree_the_shipped_catalogue_lies_beside_the_program) {
  File("a.ovd", JobOf({}));
  const Outcome outcome = RunProgram(ORVANE_BATCH, {"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  // The job has flags for the six accessories of the tests' catalogue; the one that ships has more.
  EXPECT_EQ(outcome.Err,
            "An older job: its accessory marks are not as many as the catalogue's accessories\n" +
                std::string(Note));
  for (const std::string name : {"dims.csv", "punch.csv", "accs1.csv", "accs2.csv", "check.csv"}) {
    const std::string copy = (fs::path(ORVANE_BATCH).parent_path() / "catalogue" / name).string();
    EXPECT_EQ(BytesOf(copy), BytesOf(ORVANE_SOURCE_DIR "/catalogue/" + name)) << name;
  }
}

TEST_F(BatchCatalogues, Installed_the_program_finds_them_in_its_folder_whatever_the_current_one) {
  const std::string program = Install("");
  File("a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(RunProgram(program, {"--cam", "a.ovd"}).Code, 0);
  EXPECT_TRUE(Exists("a.xov"));
  // The folder of the program itself, not that of a link to it.
  fs::create_symlink(program, TempPath("desk/linked"));
  EXPECT_EQ(RunProgram(TempPath("desk/linked"), {"--cam", "a.ovd"}).Code, 0);
}

TEST_F(BatchCatalogues, The_programs_own_folder_comes_before_the_catalogue_folder_in_it) {
  const std::string program = Install("");
  File("a.ovd", JobOf({Purlin()}));
  fs::create_directories(TempPath("installed/catalogue"));
  EXPECT_EQ(RunProgram(program, {"--cam", "a.ovd"}).Code, 0);
}

TEST_F(BatchCatalogues, A_read_only_program_folder_serves_an_ordinary_user) {
  const std::string program = Install("catalogue");
  fs::permissions(TempPath("installed"), fs::perms(0555));
  File("a.ovd", JobOf({Purlin()}));
  fs::permissions(TempPath("desk"), fs::perms(0777));
  const Outcome outcome = RunProgram(program, {"--cam", "a.ovd"}, RunAs::OrdinaryUser);
  EXPECT_EQ(outcome.Code, 0) << outcome.Err;
  EXPECT_TRUE(Exists("a.xov"));
  fs::permissions(TempPath("installed"), fs::perms(0755));
}

TEST_F(BatchCatalogues, The_settings_catalogue_folder_is_used_and_one_that_is_gone_ends_the_run) {
  const std::string program = Install("");
  fs::create_directories(TempPath("desk/office"));
  TempFile("desk/office/punch.csv", "Z,Other,B0 B6,,\r\n");
  File("a.ovd", JobOf({Purlin()}));
  const std::string key = "[SOFTWARE\\Lintaro\\Settings]\nCatalogue folder=";
  File("set.txt", key + Path("office") + "\n");
  const Outcome outcome = RunProgram(program, {"--settings", "set.txt", "--check", "a.ovd"});
  EXPECT_EQ(outcome.Code, 4) << outcome.Err;
  EXPECT_NE(outcome.Out.find("pattern-unknown"), std::string::npos) << outcome.Out;
  File("set.txt", key + Path("gone") + "\n");
  const Outcome gone = RunProgram(program, {"--settings", "set.txt", "--check", "a.ovd"});
  EXPECT_EQ(gone.Code, 3);
  EXPECT_EQ(gone.Out, "");
  EXPECT_EQ(gone.Err.find("Orvane Detailing System\nThe catalogue folder can't be found: " +
                          Path("gone") + "\n"),
            0U)
      << gone.Err;
  // A folder on the command line comes before the setting.
  EXPECT_EQ(Run({"--settings", "set.txt", "--cam", "a.ovd"}).Code, 0);
}

TEST_F(BatchCatalogues, A_check_tells_each_finding_in_a_line_and_ends_by_the_gravest) {
  fs::create_directories(TempPath("desk/office"));
  TempFile("desk/office/punch.csv", "Z,Butt,A0 A6\r\nZ,Single,B0 B6,,\r\n");
  const Outcome faulty = RunProgram(ORVANE_BATCH, {"--check-catalogue", "office"});
  EXPECT_EQ(faulty.Out,
            "punch.csv\t1\t3\tfault\trow-swallows-next\tThe row has 3 of 4 cells and takes the "
            "others from row 2, which is lost: put a comma behind it for each cell that is "
            "missing\n");
  EXPECT_EQ(faulty.Err, "Catalogue check complete: 1 fault\n");
  EXPECT_EQ(faulty.Code, 4);
  TempFile("desk/office/punch.csv", "Z,Butt,A0 A6,,x\r\n");
  const Outcome advised = RunProgram(ORVANE_BATCH, {"--check-catalogue", "office"});
  EXPECT_EQ(advised.Err, "Catalogue check complete: 1 finding\n");
  EXPECT_EQ(advised.Code, 0);
}

TEST_F(BatchCatalogues, A_check_of_the_catalogue_that_ships_finds_nothing) {
  const Outcome outcome =
      RunProgram(ORVANE_BATCH, {"--check-catalogue", ORVANE_SOURCE_DIR "/catalogue"});
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err, "Catalogue check complete: nothing is found\n");
  EXPECT_EQ(outcome.Code, 0);
}

TEST_F(BatchCatalogues, A_check_needs_its_folder_and_goes_with_nothing_else) {
  const Outcome none = RunProgram(ORVANE_BATCH, {"--check-catalogue", "nowhere"});
  EXPECT_EQ(none.Err, "nowhere: there is no such folder\n");
  EXPECT_EQ(none.Code, 3);
  File("a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(RunProgram(ORVANE_BATCH, {"--check-catalogue", ".", "a.ovd"}).Code, 2);
  EXPECT_EQ(RunProgram(ORVANE_BATCH, {"--check-catalogue", ".", "--cam"}).Code, 2);
}

}  // namespace

}  // namespace orvane
