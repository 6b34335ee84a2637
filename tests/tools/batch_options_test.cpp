#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools/batch_clashes.h"
#include "tools/batch_options.h"

namespace orvane {

namespace {

using Arguments = std::vector<std::string>;

TEST(BatchOptions, Every_option_reaches_its_field) {
  const CommandLine line = ParseCommandLine(
      {"--catalogue", "cat",   "--out",           "to",       "--created",   "2024-02-29T23:59:58",
       "--sleeves",   "yes",   "--drawing-width", "180",      "--settings",  "set.txt",
       "--resave",    "b.ovd", "--cam",           "--sheets", "--svg",       "--accessory-sheets",
       "--summary",   "a.ovd", "--jobs",          "4",        "--date-form", "dd.MM.yy",
       "--allow-cut"});
  EXPECT_EQ(line.Fault, "");
  EXPECT_EQ(line.Wanted, Request::Run);
  EXPECT_EQ(line.Options.CatalogueFolder, "cat");
  EXPECT_EQ(line.Options.OutFolder, "to");
  ASSERT_TRUE(line.Options.Created.has_value());
  EXPECT_EQ(line.Options.Created->Day, (Date{2024, 2, 29}));
  EXPECT_EQ(line.Options.Created->Hour, 23);
  EXPECT_EQ(line.Options.Created->Minute, 59);
  EXPECT_EQ(line.Options.Created->Second, 58);
  EXPECT_TRUE(line.Options.Sleeves);
  EXPECT_EQ(line.Options.DrawingWidth, 180);
  EXPECT_EQ(line.Options.SettingsFile, "set.txt");
  EXPECT_EQ(line.Options.Resave, "b.ovd");
  EXPECT_TRUE(line.Options.Cam);
  EXPECT_TRUE(line.Options.Sheets);
  EXPECT_TRUE(line.Options.Svg);
  EXPECT_TRUE(line.Options.AccessorySheets);
  EXPECT_TRUE(line.Options.Summary);
  EXPECT_TRUE(line.Options.AllowCut);
  EXPECT_EQ(line.Options.Workers, 4);
  EXPECT_EQ(line.Options.DateForm, "dd.MM.yy");
  EXPECT_EQ(line.Options.Jobs, (Arguments{"a.ovd"}));
}

TEST(BatchOptions, Without_options_everything_has_its_default) {
  const BatchOptions options = ParseCommandLine({"--cam", "a.ovd"}).Options;
  EXPECT_EQ(options.CatalogueFolder, "");
  EXPECT_EQ(options.OutFolder, "");
  EXPECT_FALSE(options.Created.has_value());
  EXPECT_FALSE(options.Sleeves);
  EXPECT_EQ(options.DrawingWidth, 0);
  EXPECT_FALSE(options.Sheets);
  EXPECT_FALSE(options.Svg);
  EXPECT_FALSE(options.AccessorySheets);
  EXPECT_FALSE(options.Summary);
  EXPECT_FALSE(options.AllowCut);
  EXPECT_EQ(options.Workers, 1);
  EXPECT_EQ(options.DateForm, "");
  EXPECT_EQ(options.SettingsFile, "");
  EXPECT_EQ(options.Resave, "");
}

TEST(BatchOptions, Jobs_may_stand_on_both_sides_of_the_options) {
  const CommandLine line = ParseCommandLine({"a.ovd", "--cam", "b.ovd", "--out", "to", "c.ovd"});
  EXPECT_EQ(line.Fault, "");
  EXPECT_EQ(line.Options.Jobs, (Arguments{"a.ovd", "b.ovd", "c.ovd"}));
}

TEST(BatchOptions, Behind_two_dashes_everything_is_a_job) {
  const CommandLine line = ParseCommandLine({"--cam", "--", "--out", "-x.ovd"});
  EXPECT_EQ(line.Fault, "");
  EXPECT_EQ(line.Options.Jobs, (Arguments{"--out", "-x.ovd"}));
}

TEST(BatchOptions, Help_and_version_end_the_reading) {
  EXPECT_EQ(ParseCommandLine({"--help"}).Wanted, Request::ShowHelp);
  EXPECT_EQ(ParseCommandLine({"-h"}).Wanted, Request::ShowHelp);
  EXPECT_EQ(ParseCommandLine({"--cam", "--help", "--no-such-option"}).Wanted, Request::ShowHelp);
  EXPECT_EQ(ParseCommandLine({"--version"}).Wanted, Request::ShowVersion);
  EXPECT_EQ(ParseCommandLine({"--version"}).Fault, "");
}

struct FaultCase {
  Arguments Given;
  std::string Fault;
};

TEST(BatchOptions, A_command_line_that_cannot_be_followed_says_why) {
  const std::vector<FaultCase> cases = {
      {{}, "no job is named"},
      {{"--cam"}, "no job is named"},
      {{"a.ovd"},
       "none of --cam, --sheets, --svg, --accessory-sheets, --summary, --section-list, "
       "--cutting-list, --check, --check-csv, --check-catalogue, --compare, --resave and --import "
       "is given"},
      {{"--out", "to", "a.ovd"},
       "none of --cam, --sheets, --svg, --accessory-sheets, --summary, --section-list, "
       "--cutting-list, --check, --check-csv, --check-catalogue, --compare, --resave and --import "
       "is given"},
      {{"--import", "list.csv"}, "--import takes --to with the job to be made"},
      {{"--import", "list.csv", "--to", "n.ovd", "a.ovd"},
       "--import takes no job but that behind --to"},
      {{"--import", "list.csv", "--to", "n.ovd", "--cam"},
       "--import goes with nothing else that is to be done"},
      {{"--import", "list.csv", "--to", "n.ovd", "--compare"},
       "--compare goes with nothing else that is to be done"},
      {{"--compare"}, "--compare takes two jobs, the earlier one first"},
      {{"--compare", "a.ovd"}, "--compare takes two jobs, the earlier one first"},
      {{"--compare", "a.ovd", "b.ovd", "c.ovd"}, "--compare takes two jobs, the earlier one first"},
      {{"--compare", "--cam", "a.ovd", "b.ovd"},
       "--compare goes with nothing else that is to be done"},
      {{"--compare", "--resave", "c.ovd", "a.ovd", "b.ovd"},
       "--compare goes with nothing else that is to be done"},
      {{"--to", "n.ovd", "--cam", "a.ovd"},
       "--to, --skip-refused and --replace go with --import alone"},
      {{"--replace", "--cam", "a.ovd"},
       "--to, --skip-refused and --replace go with --import alone"},
      {{"--resave", "c.ovd", "a.ovd", "b.ovd"}, "--resave takes one job"},
      {{"--cam", "--resave", "c.ovd", "a.ovd", "b.ovd"}, "--resave takes one job"},
      {{"--cam", ""}, "an argument is empty"},
      {{"--cam", "--fast", "a.ovd"}, "unknown option --fast"},
      {{"-c", "a.ovd"}, "unknown option -c"},
      {{"--out=to", "--cam", "a.ovd"}, "unknown option --out=to"},
      {{"--out", "x", "--out", "y", "--cam", "a.ovd"}, "--out is given twice"},
      {{"--cam", "a.ovd", "--out"}, "--out takes a folder"},
      {{"--out", "--cam", "a.ovd"}, "--out takes a folder"},
      {{"--catalogue", "", "--cam", "a.ovd"}, "--catalogue takes a folder"},
      {{"--settings", "--cam", "a.ovd"}, "--settings takes a file"},
      {{"a.ovd", "--resave"}, "--resave takes a file"},
      {{"--sleeves", "maybe", "--cam", "a.ovd"}, "--sleeves takes yes or no"},
      {{"--sleeves", "Yes", "--cam", "a.ovd"}, "--sleeves takes yes or no"},
      {{"--created", "2024-02-30T10:00:00", "--cam", "a.ovd"},
       "--created takes a moment of the form YYYY-MM-DDTHH:MM:SS"},
      {{"--created", "2024-03-05 14:07:09", "--cam", "a.ovd"},
       "--created takes a moment of the form YYYY-MM-DDTHH:MM:SS"},
      {{"--created", "now", "--cam", "a.ovd"},
       "--created takes a moment of the form YYYY-MM-DDTHH:MM:SS"},
      {{"--jobs", "0", "--cam", "a.ovd"}, "--jobs takes a number from 1 to 256"},
      {{"--jobs", "257", "--cam", "a.ovd"}, "--jobs takes a number from 1 to 256"},
      {{"--jobs", "2x", "--cam", "a.ovd"}, "--jobs takes a number from 1 to 256"},
      {{"--jobs", "many", "--cam", "a.ovd"}, "--jobs takes a number from 1 to 256"},
      {{"--date-form", "d MMM yyyy", "--cam", "a.ovd"},
       "--date-form takes a form of day, month and year in figures, such as dd.MM.yyyy"},
      {{"--date-form", "DD/MM/YYYY", "--cam", "a.ovd"},
       "--date-form takes a form of day, month and year in figures, such as dd.MM.yyyy"},
      {{"--paper", "a3", "--cam", "a.ovd"}, "--paper takes A4, A3, Letter or Tabloid"},
      {{"--paper", "A3", "--drawing-width", "0", "--cam", "a.ovd"},
       "--paper and --drawing-width exclude each other"},
      {{"--drawing-width", "wide", "--cam", "a.ovd"},
       "--drawing-width takes a number of millimetres from 0 to 32767"},
      {{"--drawing-width", "0x10", "--cam", "a.ovd"},
       "--drawing-width takes a number of millimetres from 0 to 32767"},
      {{"--drawing-width", "-1", "--cam", "a.ovd"},
       "--drawing-width takes a number of millimetres from 0 to 32767"},
      {{"--drawing-width", "32768", "--cam", "a.ovd"},
       "--drawing-width takes a number of millimetres from 0 to 32767"},
  };
  for (const FaultCase& one : cases) {
    const CommandLine line = ParseCommandLine(one.Given);
    EXPECT_EQ(line.Wanted, Request::Run);
    EXPECT_EQ(line.Fault, one.Fault);
  }
}

TEST(BatchOptions, The_drawing_width_is_rounded_to_whole_millimetres) {
  const auto width = [](const std::string& text) {
    const CommandLine line = ParseCommandLine({"--cam", "a.ovd", "--drawing-width", text});
    EXPECT_EQ(line.Fault, "");
    return line.Options.DrawingWidth;
  };
  EXPECT_EQ(width("0"), 0);
  EXPECT_EQ(width("32767"), 32767);
  EXPECT_EQ(width("180.4"), 180);
  EXPECT_EQ(width("180.5"), 180);  // an exact half to the even neighbour
  EXPECT_EQ(width("181.5"), 182);
}

TEST(BatchOptions, CamFileName_puts_xov_in_the_place_of_ovd) {
  EXPECT_EQ(CamFileName("shed.ovd"), "shed.xov");
  EXPECT_EQ(CamFileName("/jobs.2024/north/shed.ovd"), "shed.xov");
  EXPECT_EQ(CamFileName("../shed.OVD"), "shed.xov");
  EXPECT_EQ(CamFileName("shed.v2.ovd"), "shed.v2.xov");
  EXPECT_EQ(CamFileName("shed"), "shed.xov");
  EXPECT_EQ(CamFileName("shed.txt"), "shed.txt.xov");
  EXPECT_EQ(CamFileName(".ovd"), ".ovd.xov");
}

TEST(BatchOptions, Sheets_bear_the_name_of_their_job) {
  EXPECT_EQ(SheetsFileName("/jobs/shed.v2.OVD"), "shed.v2-sheets.pdf");
  EXPECT_EQ(AccessoriesFileName("/jobs/shed.v2.OVD"), "shed.v2-accessories.pdf");
  EXPECT_EQ(SummaryFileName("/jobs/shed.v2.OVD"), "shed.v2-summary.pdf");
  EXPECT_EQ(SvgFileName("shed.ovd", 1), "shed-sheet-001.svg");
  EXPECT_EQ(SvgFileName("shed.ovd", 42), "shed-sheet-042.svg");
  EXPECT_EQ(SvgFileName("shed.ovd", 1234), "shed-sheet-1234.svg");
}

TEST(BatchOptions, An_SVG_tells_its_job_and_sheet_by_its_whole_name) {
  const auto expect = [](const std::string& name, const std::string& job, int sheet) {
    EXPECT_EQ(SvgNameOf(name).Job, job) << name;
    EXPECT_EQ(SvgNameOf(name).Sheet, sheet) << name;
  };
  expect("shed-sheet-001.svg", "shed", 1);
  expect("shed-sheet-042.svg", "shed", 42);
  expect("shed-sheet-1234.svg", "shed", 1234);
  expect("my-shed-sheet-042.svg", "my-shed", 42);
  expect("shed-sheet-001-sheet-042.svg", "shed-sheet-001", 42);
  for (const char* name :
       {"shed-sheet-000.svg", "shed-sheet-42.svg", "shed-sheet-0042.svg", "shed-sheet-.svg",
        "shed-sheet-042.svg.bak", "shed-sheet-042.SVG", "shed-sheet-042.pdf", "shed-sheet-042",
        "shed-sheet--42.svg", "shed-sheet-1000000000.svg", "shed-sheets.pdf", "shed", ""}) {
    EXPECT_EQ(SvgNameOf(name).Sheet, 0) << name;
  }
}

TEST(BatchOptions, Jobs_that_would_write_one_file_are_told_by_name_and_the_others_are_done) {
  struct ClashCase {
    Arguments Given;
    Arguments Clashes;
  };
  const std::vector<ClashCase> cases = {
      {{"--cam", "x/a.ovd", "b.ovd", "y/a.ovd"},
       {"not done, since y/a.ovd would write a.xov too", "",
        "not done, since x/a.ovd would write a.xov too"}},
      {{"--cam", "a.ovd", "a.ovd"},
       {"not done, since a.ovd would write a.xov too",
        "not done, since a.ovd would write a.xov too"}},
      // The list's name ends at the first point of the CAM file's.
      {{"--cam", "a.v1.ovd", "b.ovd", "a.v2.ovd", "a.v3.ovd"},
       {"not done, since a.v2.ovd would write a.xac too", "",
        "not done, since a.v1.ovd would write a.xac too",
        "not done, since a.v1.ovd would write a.xac too"}},
      {{"--cam", "a.ovd", "a.old.ovd"},
       {"not done, since a.old.ovd would write a.xac too",
        "not done, since a.ovd would write a.xac too"}},
      {{"--cam", "Shed.ovd", "shed.ovd"},
       {"not done, since shed.ovd would write Shed.xov too",
        "not done, since Shed.ovd would write shed.xov too"}},
      {{"--cam", "a.ovd", "b.ovd", "ab.ovd"}, {"", "", ""}},
      {{"--sheets", "x/a.ovd", "y/a.ovd"},
       {"not done, since y/a.ovd would write a-sheets.pdf too",
        "not done, since x/a.ovd would write a-sheets.pdf too"}},
      {{"--accessory-sheets", "x/a.ovd", "y/a.ovd"},
       {"not done, since y/a.ovd would write a-accessories.pdf too",
        "not done, since x/a.ovd would write a-accessories.pdf too"}},
      {{"--summary", "x/a.ovd", "y/a.ovd"},
       {"not done, since y/a.ovd would write a-summary.pdf too",
        "not done, since x/a.ovd would write a-summary.pdf too"}},
      {{"--svg", "x/a.ovd", "y/A.ovd"},
       {"not done, since y/A.ovd would write a-sheet-001.svg too",
        "not done, since x/a.ovd would write A-sheet-001.svg too"}},
      // Only the list's name ends at the first point.
      {{"--sheets", "a.v1.ovd", "a.v2.ovd"}, {"", ""}},
  };
  for (const ClashCase& one : cases) {
    const CommandLine line = ParseCommandLine(one.Given);
    EXPECT_EQ(line.Fault, "");
    EXPECT_EQ(ClashesOf(line.Options), one.Clashes);
  }
}

}  // namespace

}  // namespace orvane
