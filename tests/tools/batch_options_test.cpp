#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools/batch_options.h"

namespace orvane {

namespace {

using Arguments = std::vector<std::string>;

TEST(BatchOptions, Every_option_reaches_its_field) {
  const CommandLine line = ParseCommandLine(
      {"--catalogue", "cat",   "--out",           "to",       "--created",  "2024-02-29T23:59:58",
       "--sleeves",   "yes",   "--drawing-width", "180",      "--settings", "set.txt",
       "--resave",    "b.ovd", "--cam",           "--sheets", "--svg",      "--accessory-sheets",
       "--summary",   "a.ovd"});
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
       "none of --cam, --sheets, --svg, --accessory-sheets, --summary and --resave is given"},
      {{"--out", "to", "a.ovd"},
       "none of --cam, --sheets, --svg, --accessory-sheets, --summary and --resave is given"},
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

TEST(BatchOptions, The_SVGs_of_a_job_are_known_by_their_whole_name) {
  EXPECT_EQ(SvgSheetOf("/jobs/shed.ovd", "shed-sheet-001.svg"), 1);
  EXPECT_EQ(SvgSheetOf("shed.ovd", "shed-sheet-042.svg"), 42);
  EXPECT_EQ(SvgSheetOf("shed.ovd", "shed-sheet-1234.svg"), 1234);
  for (const char* name : {"shed-sheet-000.svg", "shed-sheet-42.svg", "shed-sheet-0042.svg",
                           "shed-sheet-.svg", "shed-sheet-042.svg.bak", "shed-sheet-042.SVG",
                           "shed-sheet-042.pdf", "Shed-sheet-042.svg", "my-shed-sheet-042.svg",
                           "shed-sheet-042", "shed-sheet--42.svg", "shed-sheet-1000000000.svg",
                           "shed-sheet-001-sheet-042.svg", "shed-sheets.pdf", "shed", ""}) {
    EXPECT_EQ(SvgSheetOf("shed.ovd", name), 0) << name;
  }
}

TEST(BatchOptions, Jobs_that_would_write_one_file_are_refused) {
  const std::vector<FaultCase> cases = {
      {{"--cam", "x/a.ovd", "y/a.ovd"}, "x/a.ovd and y/a.ovd would both write a.xov"},
      {{"--cam", "a.ovd", "b.ovd", "a.ovd"}, "a.ovd and a.ovd would both write a.xov"},
      // The list's name ends at the first point of the CAM file's.
      {{"--cam", "a.v1.ovd", "a.v2.ovd"}, "a.v1.ovd and a.v2.ovd would both write a.xac"},
      {{"--cam", "a.ovd", "a.old.ovd"}, "a.ovd and a.old.ovd would both write a.xac"},
      {{"--cam", "a", "a.ovd"}, "a and a.ovd would both write a.xov"},
      {{"--cam", "Shed.ovd", "shed.ovd"}, "Shed.ovd and shed.ovd would both write shed.xov"},
      {{"--cam", "a.ovd", "b.ovd", "ab.ovd"}, ""},
      {{"--sheets", "x/a.ovd", "y/a.ovd"}, "x/a.ovd and y/a.ovd would both write a-sheets.pdf"},
      {{"--accessory-sheets", "x/a.ovd", "y/a.ovd"},
       "x/a.ovd and y/a.ovd would both write a-accessories.pdf"},
      {{"--summary", "x/a.ovd", "y/a.ovd"}, "x/a.ovd and y/a.ovd would both write a-summary.pdf"},
      {{"--svg", "x/a.ovd", "y/A.ovd"}, "x/a.ovd and y/A.ovd would both write A-sheet-001.svg"},
      // Only the list's name ends at the first point.
      {{"--sheets", "a.v1.ovd", "a.v2.ovd"}, ""},
  };
  for (const FaultCase& one : cases) EXPECT_EQ(ParseCommandLine(one.Given).Fault, one.Fault);
}

}  // namespace

}  // namespace orvane
