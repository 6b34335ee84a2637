#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/model.h"
#include "holes/hole_list.h"
#include "project/project_file.h"
#include "tests/tools/companion.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::JobOf;
using test::Outcome;
using test::Purlin;
using test::SectionLines;

class BatchSheets : public test::CompanionTest {};

std::vector<std::string> Rail(const std::string& mark) {
  return SectionLines(mark, "Z", "Z20015", "4500", "2", "Pair");
}

}  // namespace

TEST_F(BatchSheets, All_sections_of_a_job_come_into_one_PDF_a_page_each) {
  File("barn.ovd", JobOf({Purlin(), Rail("R2"), Rail("R3")}));
  const Outcome outcome = Run({"--sheets", "barn.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err, "Sheets complete\n");
  EXPECT_EQ(Pages("barn-sheets.pdf"), "3");
  EXPECT_NE(Printed("pdfinfo", "barn-sheets.pdf").find("842 x 595 pts (A4)"), std::string::npos);
  EXPECT_NE(Printed("pdftotext -f 3 -l 3", "barn-sheets.pdf", "-").find("R3"), std::string::npos);
  EXPECT_FALSE(Exists("barn.xov"));
  EXPECT_FALSE(Exists("barn-sheet-001.svg"));
}

// A3 has 351 mm for the elevation. Sheets lie, the summary stands.
TEST_F(BatchSheets, All_that_is_drawn_is_laid_out_for_the_paper_that_is_named) {
  File("a.ovd", JobOf({Purlin()}));
  const auto sizeOn = [&](const std::string& paper, const std::string& document) {
    EXPECT_EQ(Run({"--paper", paper, "--sheets", "--svg", "--summary", "a.ovd"}).Code, 0);
    return Printed("pdfinfo", document);
  };
  EXPECT_NE(sizeOn("A3", "a-sheets.pdf").find("1191 x 842 pts (A3)"), std::string::npos);
  EXPECT_NE(BytesOf(Path("a-sheet-001.svg")).find("viewBox=\"0 0 420 297\""), std::string::npos);
  EXPECT_NE(sizeOn("Letter", "a-summary.pdf").find("612 x 792 pts (letter)"), std::string::npos);
  EXPECT_NE(sizeOn("Tabloid", "a-sheets.pdf").find("1224 x 792 pts"), std::string::npos);
}

// Two holes by hand 30 mm apart: in 228 mm of paper for 6 m, 4 mm between them are 105.26 of the
// section, 9 are 236.84. What an office has saved its jobs under is no matter of the sheets of
// today.
TEST_F(BatchSheets, A_job_saved_under_another_least_separation_has_the_sheets_of_today) {
  DrawingWidth = 228;
  for (const char* mark : {"P1", "P2"}) {
    Item item;
    item.Mark = mark;
    item.SectionType = "Z";
    item.Product = "Z20015";
    item.Length = 6000;
    item.Quantity = 2;
    item.PatternName = CustomPattern;
    for (const auto x : {std::int16_t{3000}, std::int16_t{3030}}) {
      Hole hole;
      hole.XPos = x;
      hole.Kind = CustomKind;
      hole.BF = hole.TF = "n";
      hole.W1 = hole.W2 = "y";
      hole.Diameter = 18;
      item.Holes.Append(hole);
      ++item.CustomHoleCount;
    }
    Items.Append(item);
  }
  std::vector<std::string> sheets;
  for (const double separation : {4.0, 9.0}) {
    const double gap = separation * 6000 / 228;
    MinHoleSep = separation;
    for (Item& item : Items) AdjustHoleSpacing(item);
    EXPECT_NEAR(Items.At(2).Holes.At(2).DrawGap, gap, 1e-9);
    WriteProjectFile(Path("a.ovd"));
    EXPECT_EQ(Run({"--svg", "a.ovd"}).Code, 0);
    sheets.push_back(BytesOf(Path("a-sheet-001.svg")) + BytesOf(Path("a-sheet-002.svg")));
  }
  EXPECT_EQ(sheets.at(0), sheets.at(1));
}

TEST_F(BatchSheets, The_very_first_sheet_shows_the_gaps_between_its_holes) {
  File("a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(Run({"--sheets", "a.ovd"}).Code, 0);
  const std::string text = Printed("pdftotext -raw", "a-sheets.pdf", "-");
  // Holes at 2965 and 3035 of 6000.
  for (const char* figure : {"2965", "70", "3035", "6000"}) {
    EXPECT_NE(text.find(figure), std::string::npos) << figure << " in " << text;
  }
}

TEST_F(BatchSheets, Svg_writes_a_file_a_sheet) {
  File("barn.ovd", JobOf({Purlin(), Rail("R2")}));
  const Outcome outcome = Run({"--svg", "barn.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "Sheets complete\n");
  EXPECT_NE(BytesOf(Path("barn-sheet-001.svg")).find(">P1</text>"), std::string::npos);
  EXPECT_NE(BytesOf(Path("barn-sheet-002.svg")).find(">R2</text>"), std::string::npos);
  EXPECT_FALSE(Exists("barn-sheet-003.svg"));
  EXPECT_FALSE(Exists("barn-sheets.pdf"));
}

TEST_F(BatchSheets, A_shorter_run_removes_the_SVGs_of_sheets_that_are_no_more) {
  File("barn.ovd", JobOf({Purlin(), Rail("R2"), Rail("R3"), Rail("R4")}));
  EXPECT_EQ(Run({"--out", "to", "--svg", "barn.ovd"}).Code, 0);
  std::filesystem::remove(Path("to/barn-sheet-003.svg"));
  // Others' files, all but one of names that no sheet of the job bears; and one of a folder.
  const std::vector<std::string> others = {
      "to/barn-sheet-4.svg",        "to/barn-sheet-004.svg.bak", "to/barn-sheet-plan.svg",
      "to/my-barn-sheet-004.svg",   "to/BARN-sheet-004.svg",     "to/barn-sheet-004.pdf",
      "to/more/barn-sheet-004.svg", "barn-sheet-004.svg"};
  for (const std::string& name : others) File(name, "mine");
  std::filesystem::create_directories(Path("to/barn-sheet-007.svg"));

  File("barn.ovd", JobOf({Purlin(), Rail("R2")}));
  const Outcome outcome = Run({"--out", "to", "--svg", "barn.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "Sheets complete\n");
  EXPECT_TRUE(Exists("to/barn-sheet-001.svg"));
  EXPECT_TRUE(Exists("to/barn-sheet-002.svg"));
  EXPECT_FALSE(Exists("to/barn-sheet-004.svg"));
  for (const std::string& name : others) EXPECT_EQ(BytesOf(Path(name)), "mine") << name;
  EXPECT_TRUE(Exists("to/barn-sheet-007.svg"));
}

// A run without SVGs, and one that fails, remove nothing.
TEST_F(BatchSheets, SVGs_stay_until_others_stand_in_their_place) {
  File("a.ovd", JobOf({Purlin(), Rail("R2")}));
  EXPECT_EQ(Run({"--svg", "a.ovd"}).Code, 0);
  File("a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(Run({"--sheets", "a.ovd"}).Code, 0);
  EXPECT_TRUE(Exists("a-sheet-002.svg"));
  File("a.ovd", JobOf({}));
  EXPECT_EQ(Run({"--svg", "a.ovd"}).Code, 0);
  EXPECT_TRUE(Exists("a-sheet-002.svg"));
  File("a.ovd", JobOf({SectionLines("R1", "R", "CLR", "3000", "1", "Custom")}));
  TempFile("catalogue/dims.csv",
           BytesOf(TempPath("catalogue/dims.csv")) + "R,CLR,120,0,60,0,0,0,0,0,50,0,0,0\r\n");
  EXPECT_EQ(Run({"--svg", "a.ovd"}).Code, 3);
  EXPECT_TRUE(Exists("a-sheet-002.svg"));
}

TEST_F(BatchSheets, No_SVG_goes_over_a_file_of_the_command_line) {
  File("a.ovd", JobOf({Purlin(), Rail("R2")}));
  File("a-sheet-002.svg", JobOf({Purlin()}));
  const Outcome outcome = Run({"--svg", "a.ovd", "a-sheet-002.svg"});
  EXPECT_EQ(outcome.Code, 2);
  EXPECT_EQ(outcome.Err,
            "orvane-batch: the factory files of a.ovd would overwrite a-sheet-002.svg\n"
            "Try orvane-batch --help.\n");
}

TEST_F(BatchSheets, All_that_is_asked_for_comes_in_one_run_into_the_out_folder) {
  File("barn.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--out", "to", "--cam", "--sheets", "--svg", "barn.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "CAM export complete\n" + Path("to/barn.xov") + "\nSheets complete\n");
  for (const char* name : {"to/barn.xov", "to/barn-sheets.pdf", "to/barn-sheet-001.svg"}) {
    EXPECT_TRUE(Exists(name)) << name;
  }
}

TEST_F(BatchSheets, The_CAM_file_is_the_same_with_and_without_sheets) {
  File("a.ovd", JobOf({Purlin()}));
  Run({"--created", test::CreatedMoment, "--out", "x", "--cam", "a.ovd"});
  Run({"--created", test::CreatedMoment, "--out", "y", "--cam", "--sheets", "a.ovd"});
  EXPECT_EQ(BytesOf(Path("x/a.xov")), BytesOf(Path("y/a.xov")));
}

TEST_F(BatchSheets, A_folder_stands_for_the_jobs_in_it) {
  File("jobs/b.ovd", JobOf({Purlin()}));
  File("jobs/a.OVD", JobOf({Purlin(), Rail("R2")}));
  File("jobs/readme.txt", "no job");
  const Outcome outcome = Run({"--out", "to", "--sheets", "jobs"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(Pages("to/a-sheets.pdf"), "2");
  EXPECT_EQ(Pages("to/b-sheets.pdf"), "1");
  EXPECT_FALSE(Exists("to/readme-sheets.pdf"));
}

TEST_F(BatchSheets, Jobs_of_one_name_in_two_folders_are_refused) {
  File("x/a.ovd", JobOf({Purlin()}));
  File("y/a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--sheets", "x", "y"});
  EXPECT_EQ(outcome.Code, 2);
  EXPECT_EQ(outcome.Err,
            "x/a.ovd: not done, since y/a.ovd would write a-sheets.pdf too\n"
            "y/a.ovd: not done, since x/a.ovd would write a-sheets.pdf too\n");
}

TEST_F(BatchSheets, A_job_without_sections_writes_nothing) {
  File("a.ovd", JobOf({}));
  const Outcome outcome = Run({"--sheets", "--svg", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "No sheets: the job has no sections\n");
  EXPECT_FALSE(Exists("a-sheets.pdf"));
}

TEST_F(BatchSheets, A_product_that_is_not_there_still_has_its_page) {
  File("a.ovd", JobOf({SectionLines("P1", "Z", "No such", "6000", "1", "Custom")}));
  EXPECT_EQ(Run({"--sheets", "a.ovd"}).Code, 0);
  EXPECT_EQ(Pages("a-sheets.pdf"), "1");
  EXPECT_NE(Printed("pdftotext", "a-sheets.pdf", "-").find("Z Purlin/Rail"), std::string::npos);
}

TEST_F(BatchSheets, A_missing_picture_fails_the_job_and_leaves_no_PDF_and_the_next_job_is_done) {
  File("a.ovd", JobOf({SectionLines("R1", "R", "CLR", "3000", "1", "Custom")}));
  File("b.ovd", JobOf({Purlin()}));
  TempFile("catalogue/dims.csv",
           BytesOf(TempPath("catalogue/dims.csv")) + "R,CLR,120,0,60,0,0,0,0,0,50,0,0,0\r\n");
  const Outcome outcome = Run({"--sheets", "a.ovd", "b.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_NE(outcome.Err.find("a.ovd: R1: File not found: " + catalogue + "/drawings/drg015.wmf\n"),
            std::string::npos)
      << outcome.Err;
  EXPECT_FALSE(Exists("a-sheets.pdf"));
  EXPECT_EQ(Pages("b-sheets.pdf"), "1");
}

TEST_F(BatchSheets, A_PDF_that_cannot_be_written_is_a_fault) {
  File("a.ovd", JobOf({Purlin()}));
  std::filesystem::create_directories(Path("a-sheets.pdf"));
  const Outcome outcome = Run({"--sheets", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, Path("a-sheets.pdf") + ": Is a directory\n");
}

TEST_F(BatchSheets, Sheets_of_several_jobs_at_a_time_are_the_same) {
  std::vector<std::string> arguments = {"--sheets", "--svg", "--jobs", "3", "--out", "three"};
  for (const std::string name : {"a", "b", "c", "d", "e"}) {
    File(name + ".ovd", JobOf({Purlin(), Rail(name)}));
    arguments.push_back(name + ".ovd");
  }
  EXPECT_EQ(Run(arguments).Code, 0);
  arguments.at(3) = "1";
  arguments.at(5) = "one";
  EXPECT_EQ(Run(arguments).Code, 0);
  for (const std::string name : {"a", "b", "c", "d", "e"}) {
    EXPECT_EQ(PageText("three/" + name + "-sheets.pdf", 2),
              PageText("one/" + name + "-sheets.pdf", 2));
    for (const std::string sheet : {"-sheet-001.svg", "-sheet-002.svg"}) {
      EXPECT_EQ(BytesOf(Path("three/" + name + sheet)), BytesOf(Path("one/" + name + sheet)));
    }
  }
}

TEST_F(BatchSheets, Sheets_never_go_over_a_file_of_the_command_line) {
  File("a.ovd", JobOf({Purlin()}));
  File("a-sheets.pdf", JobOf({Purlin()}));
  const Outcome outcome = Run({"--sheets", "a.ovd", "a-sheets.pdf"});
  EXPECT_EQ(outcome.Code, 2);
  EXPECT_EQ(outcome.Err,
            "orvane-batch: the factory files of a.ovd would overwrite a-sheets.pdf\n"
            "Try orvane-batch --help.\n");
}

}  // namespace orvane
