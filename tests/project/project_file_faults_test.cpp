#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "core/files.h"
#include "core/runtime_error.h"
#include "project/project_file.h"
#include "tests/project/small_project.h"
#include "tests/support/failing_disk.h"

namespace orvane {

namespace {

using test::AsOrdinaryUser;
using test::BytesOf;
using test::ErrorOf;
using test::First;
using test::Joined;
using test::OutcomeOf;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

// --- Files cut off

TEST_F(ProjectFileTest, A_file_cut_behind_any_line_up_to_the_type_1_lines_raises_and_then_opens) {
  const int lines = static_cast<int>(SmallProjectLines().size());
  ASSERT_EQ(lines, line::LastFlag);
  for (int kept = 0; kept <= lines; ++kept) {
    FillEarlierProject();
    const std::string path = FreshFile(Joined(First(SmallProjectLines(), kept)));
    const std::string outcome = OutcomeOf([&] { ReadProjectFile(path); });
    EXPECT_EQ(outcome, kept < line::Lines1End ? "Input past end of file" : "") << kept;

    // What was read until then stays, and all behind it is as it was in the project before.
    EXPECT_EQ(txtProject.at(4), kept >= 5 ? "K. Müller" : "old 4") << kept;
    EXPECT_EQ(DTPicker1.Year, kept >= line::ProjectDate ? 2024 : 2019) << kept;
    if (kept < line::ItemCount) {
      ExpectEarlierItems();
    } else {
      ASSERT_EQ(Items.UBound(), 2) << kept;
      EXPECT_EQ(Items.At(1).Mark, kept >= line::Mark ? "Z1" : "") << kept;
      EXPECT_EQ(Items.At(1).Holes.UBound(), kept >= line::HoleCount ? 2 : 0) << kept;
      EXPECT_EQ(Items.At(2).Mark, kept >= line::SecondMark ? "R é" : "") << kept;
    }
    if (kept < line::Lines1Count) {
      ExpectEarlierLines1();
    } else {
      ASSERT_EQ(AccLines1.UBound(), 1) << kept;
      EXPECT_EQ(AccLines1.At(1).Param, kept >= line::Lines1End ? -5 : 0) << kept;
    }
    if (kept < line::Lines1End) {
      ExpectEarlierLines2();
    } else {
      EXPECT_EQ(AccLines2.UBound(), kept >= line::Lines2Count ? 2 : 0) << kept;
    }
    std::vector<int> flags(4, -1);
    if (kept >= line::FirstFlag + 1) flags.at(1) = 0;
    ExpectFlags(flags);
  }
}

// What reading the first `size` bytes of the small project must say. The bytes end in a line's
// text, whose part in front of the cut is `part`; or in its line end.
std::string ExpectedOfCut(const std::vector<std::string>& lines, std::size_t size) {
  std::size_t start = 0;
  std::size_t index = 0;
  while (start + lines.at(index).size() + 2 <= size) {
    start += lines.at(index).size() + 2;
    if (++index == lines.size()) return "";
  }
  const int number = static_cast<int>(index) + 1;
  const std::string& whole = lines.at(index);
  const std::string part = whole.substr(0, std::min(size - start, whole.size()));
  const bool inside = size > start && size < start + whole.size();

  if (number > line::Lines1End) return "";
  if (inside) {
    // A number line (one that begins with a blank or a minus sign) must make sense as far as it
    // goes. "1E-14" may end behind its 1 and its exponent's 1, and "-0.1" behind its 0 and its
    // point.
    const bool isNumber = whole.size() > 1 && (whole.front() == ' ' || whole.front() == '-');
    if (isNumber && (part == " " || part == "-" || part.back() == 'E' || part == " 1E-")) {
      return "Type mismatch";
    }
  }
  // The last line that is needed is short of nothing once its 5 is there.
  if (number == line::Lines1End && part.size() >= 2) return "";
  return "Input past end of file";
}

TEST_F(ProjectFileTest, A_file_cut_at_any_byte_raises_its_error_or_opens) {
  const std::vector<std::string> lines = SmallProjectLines();
  const std::string whole = Joined(lines);
  const std::size_t needed = Joined(First(lines, line::Lines1End)).size() - 3;  // " \r\n"
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    FillEarlierProject();
    const std::string path = FreshFile(whole.substr(0, size));
    const std::string outcome = OutcomeOf([&] { ReadProjectFile(path); });
    EXPECT_EQ(outcome, ExpectedOfCut(lines, size)) << "cut behind " << size << " bytes";
    EXPECT_EQ(outcome.empty(), size >= needed) << "cut behind " << size << " bytes";
  }
}

TEST_F(ProjectFileTest, A_file_from_before_type_2_accessories_opens_with_its_flags_left_alone) {
  FillEarlierProject();
  AccUsed.At(2) = False;
  Read(First(SmallProjectLines(), line::Lines1End));
  EXPECT_EQ(Items.UBound(), 2);
  EXPECT_EQ(AccLines1.UBound(), 1);
  EXPECT_EQ(AccLines2.UBound(), 0);
  ExpectFlags({-1, 0, -1, -1});
}

TEST_F(ProjectFileTest, A_file_cut_in_its_type_2_lines_keeps_those_read_and_leaves_the_rest_blank) {
  FillEarlierProject();
  Read(First(SmallProjectLines(), line::Lines2ValueCount + 1));
  ASSERT_EQ(AccLines2.UBound(), 2);
  EXPECT_EQ(AccLines2.At(1).Mark, "A1");
  ASSERT_EQ(AccLines2.At(1).Values.UBound(), 2);
  EXPECT_EQ(AccLines2.At(1).Values.At(1), "6000");
  EXPECT_EQ(AccLines2.At(1).Values.At(2), "");
  EXPECT_EQ(AccLines2.At(2).AccIndex, 0);
  EXPECT_EQ(AccLines2.At(2).Mark, "");
  EXPECT_EQ(AccLines2.At(2).ValueCount(), 0);
  ExpectFlags({-1, -1, -1, -1});
}

TEST_F(ProjectFileTest, An_empty_file_and_a_file_without_a_closing_quote_end_too_soon) {
  FillEarlierProject();
  EXPECT_EQ(ErrorOfReading({}), "Input past end of file");
  ExpectEarlierItems();
  EXPECT_EQ(txtProject.at(0), "old 0");
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), 5, "\"K. Müller")), "Type mismatch");
  EXPECT_EQ(ErrorOfReading(With(First(SmallProjectLines(), 76), line::SecondMark, "\"R")),
            "Type mismatch");  // the quote of the notes closes it
  EXPECT_EQ(
      ErrorOfReading(With(First(SmallProjectLines(), line::SecondMark), line::SecondMark, "\"R, ")),
      "Input past end of file");
  EXPECT_EQ(Items.At(2).Mark, "R, \r\n");
}

// --- Counts

TEST_F(ProjectFileTest, A_count_larger_than_the_file_sizes_the_table_and_runs_past_the_end) {
  std::vector<std::string> lines = First(SmallProjectLines(), line::SecondHoleCount + 6);
  EXPECT_EQ(ErrorOfReading(With(lines, line::ItemCount, " 32767 ")), "Input past end of file");
  ASSERT_EQ(Items.UBound(), 32767);
  EXPECT_EQ(Items.At(2).JointingPieces, 4);
  EXPECT_EQ(Items.At(3).Mark, "");

  lines = First(SmallProjectLines(), line::SecondHoleCount);
  EXPECT_EQ(ErrorOfReading(With(lines, line::SecondHoleCount, " 32767 ")),
            "Input past end of file");
  EXPECT_EQ(Items.At(2).Holes.UBound(), 32767);

  lines = First(SmallProjectLines(), line::SecondHoleCount + 1);
  EXPECT_EQ(ErrorOfReading(With(lines, line::SecondHoleCount + 1, " 32767 ")),
            "Input past end of file");
  EXPECT_EQ(Items.At(2).Notches.UBound(), 32767);

  lines = First(SmallProjectLines(), line::Lines1End);
  EXPECT_EQ(ErrorOfReading(With(lines, line::Lines1Count, " 32767 ")), "Input past end of file");
  EXPECT_EQ(AccLines1.UBound(), 32767);
  EXPECT_EQ(AccLines1.At(1).Qty, 10);

  lines = First(SmallProjectLines(), line::Lines2End);
  Read(With(lines, line::Lines2Count, " 32767 "));
  ASSERT_EQ(AccLines2.UBound(), 32767);
  EXPECT_EQ(AccLines2.At(2).Mark, "B2");
  EXPECT_EQ(AccLines2.At(3).AccIndex, 0);

  lines = First(SmallProjectLines(), line::Lines2ValueCount + 2);
  Read(With(lines, line::Lines2ValueCount, " 32767 "));
  ASSERT_EQ(AccLines2.At(1).Values.UBound(), 32767);
  EXPECT_EQ(AccLines2.At(1).Values.At(2), "ø 16, long");
}

TEST_F(ProjectFileTest, A_negative_item_count_is_out_of_range_and_leaves_the_items) {
  FillEarlierProject();
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), line::ItemCount, "-1 ")),
            "Subscript out of range");
  ExpectEarlierItems();
  ExpectEarlierLines1();
  ExpectEarlierLines2();
  EXPECT_EQ(txtProject.at(1), "J-77, phase 2");
}

TEST_F(ProjectFileTest, A_negative_hole_count_is_out_of_range) {
  FillEarlierProject();
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), line::SecondHoleCount, "-1 ")),
            "Subscript out of range");
  EXPECT_EQ(Items.At(1).Holes.UBound(), 2);
  EXPECT_EQ(Items.At(2).Quantity, -1);
  EXPECT_EQ(Items.At(2).Holes.UBound(), 0);
  ExpectEarlierLines1();
}

TEST_F(ProjectFileTest, A_notch_count_below_1_gives_no_notches) {
  for (const char* count : {" 0 ", "-1 ", "-32768 "}) {
    std::vector<std::string> lines = With(SmallProjectLines(), line::NotchCount, count);
    lines.erase(lines.begin() + line::NotchCount, lines.begin() + line::NotchCount + 4);
    FillEarlierProject();  // whose first item has notches
    Read(lines);
    EXPECT_EQ(Items.At(1).Notches.UBound(), 0);
    EXPECT_EQ(Items.At(1).PatternName, "Slvd, 2 rows");
    ExpectFlags({-1, 0, -1, -1});
  }
}

TEST_F(ProjectFileTest, Accessory_counts_below_1_give_empty_tables) {
  for (const char* count : {" 0 ", "-1 "}) {
    std::vector<std::string> lines = With(SmallProjectLines(), line::Lines1Count, count);
    lines = With(lines, line::Lines2Count, count);
    lines.erase(lines.begin() + line::Lines2Count, lines.begin() + line::Lines2End);
    lines.erase(lines.begin() + line::Lines1Count, lines.begin() + line::Lines1End);
    FillEarlierProject();
    Read(lines);
    EXPECT_EQ(AccLines1.UBound(), 0);
    EXPECT_EQ(AccLines2.UBound(), 0);
    ExpectFlags({-1, 0, -1, -1});
  }
}

TEST_F(ProjectFileTest, A_negative_value_count_ends_the_reading_without_a_word) {
  FillEarlierProject();
  Read(With(SmallProjectLines(), line::Lines2ValueCount, "-1 "));
  ASSERT_EQ(AccLines2.UBound(), 2);
  EXPECT_EQ(AccLines2.At(1).NoOff, 4);
  EXPECT_EQ(AccLines2.At(1).Values.UBound(), 0);
  EXPECT_EQ(AccLines2.At(2).AccIndex, 0);
  ExpectFlags({-1, -1, -1, -1});
}

// --- Bad numbers

// The number lines of the part whose errors are raised, by the type of their field.
const std::vector<int> WholeLines = {7,  11, 12, 17, 18, 29, 40, 51, 57, 59, 60, 64,
                                     65, 70, 71, 73, 75, 76, 77, 78, 79, 80, 81};
const std::vector<int> FloatLines = {13, 14, 24, 25, 35, 36, 46, 47, 53, 54, 55, 66, 67};
const std::vector<int> DoubleLines = {27, 28, 38, 39, 49, 50};

TEST_F(ProjectFileTest, A_line_that_is_no_number_is_an_error) {
  std::vector<int> numbers = WholeLines;
  numbers.insert(numbers.end(), FloatLines.begin(), FloatLines.end());
  numbers.insert(numbers.end(), DoubleLines.begin(), DoubleLines.end());
  for (const int number : numbers) {
    for (const char* text :
         {"", "   ", "x", "1x", "1 2", "12mm", "0x10", "inf", "nan", "-", "1E"}) {
      EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), number, text)), "Type mismatch")
          << number << " " << text;
    }
  }
}

TEST_F(ProjectFileTest, Every_number_line_of_the_small_project_is_among_those_tried) {
  const std::vector<std::string> lines = SmallProjectLines();
  for (int number = 1; number <= line::Lines1End; ++number) {
    const std::string& text = lines.at(static_cast<std::size_t>(number) - 1);
    const bool isNumber =
        text.size() > 1 && (text.front() == ' ' || text.front() == '-') && text.back() == ' ';
    const auto tried = std::count(WholeLines.begin(), WholeLines.end(), number) +
                       std::count(FloatLines.begin(), FloatLines.end(), number) +
                       std::count(DoubleLines.begin(), DoubleLines.end(), number);
    EXPECT_EQ(tried, isNumber ? 1 : 0) << number;
  }
}

TEST_F(ProjectFileTest, A_number_beyond_its_field_overflows) {
  for (const int number : WholeLines) {
    for (const char* text : {" 32768 ", "-32769 ", " 70000 ", " 32767.5 ", " 1E999 "}) {
      EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), number, text)), "Overflow")
          << number << " " << text;
    }
  }
  for (const int number : FloatLines) {
    EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), number, " 1E39 ")), "Overflow") << number;
    EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), number, "-1E39 ")), "Overflow") << number;
  }
  for (const int number : DoubleLines) {
    EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), number, " 1E309 ")), "Overflow") << number;
    Read(With(SmallProjectLines(), number, " 1E39 "));
    ExpectFlags({-1, 0, -1, -1});
  }
}

TEST_F(ProjectFileTest, A_bad_number_leaves_what_was_read_and_the_tables_behind_it) {
  FillEarlierProject();
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), line::Length, "x")), "Type mismatch");
  ASSERT_EQ(Items.UBound(), 2);
  EXPECT_EQ(Items.At(1).Product, "20020");
  EXPECT_EQ(Items.At(1).Length, 0);
  EXPECT_EQ(Items.At(2).Mark, "");
  ExpectEarlierLines1();
  ExpectEarlierLines2();
  ExpectFlags({-1, -1, -1, -1});
}

TEST_F(ProjectFileTest, A_bad_count_of_type_1_lines_leaves_the_table_before) {
  FillEarlierProject();
  EXPECT_EQ(ErrorOfReading(With(SmallProjectLines(), line::Lines1Count, "x")), "Type mismatch");
  ExpectEarlierLines1();
  ExpectEarlierLines2();
}

TEST_F(ProjectFileTest, A_bad_number_in_the_tail_ends_the_reading_without_a_word) {
  for (const char* text : {"x", " 32768 ", ""}) {
    FillEarlierProject();
    Read(With(SmallProjectLines(), line::Lines2Count, text));
    EXPECT_EQ(AccLines2.UBound(), 0);
    ExpectFlags({-1, -1, -1, -1});

    FillEarlierProject();
    Read(With(SmallProjectLines(), line::Lines2NoOff, text));
    ASSERT_EQ(AccLines2.UBound(), 2);
    EXPECT_EQ(AccLines2.At(1).Mark, "A1");
    EXPECT_EQ(AccLines2.At(1).NoOff, 0);
    EXPECT_EQ(AccLines2.At(2).Mark, "");
    ExpectFlags({-1, -1, -1, -1});
  }
  FillEarlierProject();
  AccUsed.At(4) = False;
  Read(With(SmallProjectLines(), line::FirstFlag + 2, "x"));
  ExpectFlags({-1, 0, -1, 0});
}

TEST_F(ProjectFileTest, Any_bytes_are_survived) {
  const std::string whole = Joined(SmallProjectLines());
  // Every byte of the file in turn replaced by each of these.
  for (const char byte : {'\0', ',', '"', '\n', '9', '-', '\xFF'}) {
    for (std::size_t at = 0; at < whole.size(); ++at) {
      std::string bytes = whole;
      bytes.at(at) = byte;
      const std::string path = FreshFile(bytes);
      const std::string outcome = OutcomeOf([&] { ReadProjectFile(path); });
      EXPECT_TRUE(outcome.empty() || outcome == "Type mismatch" || outcome == "Overflow" ||
                  outcome == "Subscript out of range" || outcome == "Input past end of file")
          << outcome;
    }
  }
}

// --- Files that can't be read or written

TEST_F(ProjectFileTest, Files_that_are_missing_or_no_files_raise_the_systems_description) {
  FillEarlierProject();
  const std::string missing = TempPath("missing.ovd");
  const std::string noFolder = TempPath("none/job.ovd");
  const std::string folder = TempPath("folder.ovd");
  std::filesystem::create_directory(folder);
  EXPECT_EQ(ErrorOf([&] { ReadProjectFile(missing); }), "File not found");
  EXPECT_EQ(ErrorOf([&] { ReadProjectFile(noFolder); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { ReadProjectFile(folder); }), "Is a directory");
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(noFolder); }), "Path not found");
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(folder); }), "Is a directory");
  EXPECT_TRUE(std::filesystem::is_empty(folder));
  ExpectEarlierItems();
  ExpectEarlierLines2();
}

TEST_F(ProjectFileTest, An_unreadable_file_is_refused_to_an_ordinary_user) {
  const std::string path = TempFile("job.ovd", Joined(SmallProjectLines()));
  std::filesystem::permissions(path, std::filesystem::perms(0000));
  EXPECT_EQ(AsOrdinaryUser([&] { return ErrorOf([&] { ReadProjectFile(path); }); }),
            "Permission denied");
}

TEST_F(ProjectFileTest, A_read_only_folder_and_a_read_only_file_refuse_the_saving) {
  FillSmallProject();
  const std::string folder = TempPath("closed");
  std::filesystem::create_directory(folder);
  const std::string path = TempFile("closed/job.ovd", "old");
  const std::string fresh = TempPath("closed/new.ovd");
  std::filesystem::permissions(path, std::filesystem::perms(0444));
  std::filesystem::permissions(folder, std::filesystem::perms(0555));
  EXPECT_EQ(AsOrdinaryUser([&] { return ErrorOf([&] { WriteProjectFile(fresh); }); }),
            "Permission denied");
  EXPECT_EQ(AsOrdinaryUser([&] { return ErrorOf([&] { WriteProjectFile(path); }); }),
            "Permission denied");
  EXPECT_FALSE(std::filesystem::exists(fresh));
  EXPECT_EQ(BytesOf(path), "old");
  std::filesystem::permissions(folder, std::filesystem::perms(0755));
}

TEST_F(ProjectFileTest, A_full_disk_is_an_error_of_the_saving) {
  FillSmallProject();
  const std::string path = TempFile("job.ovd", "old");
  const test::FailingDisk disk({3, ENOSPC, true});  // the former content is read, and nothing fits
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(path); }), "Disk full");
  EXPECT_EQ(BytesOf(path), "old");
}

TEST_F(ProjectFileTest, A_device_is_no_place_for_a_job) {
  FillSmallProject();
  EXPECT_EQ(ErrorOf([] { WriteProjectFile("/dev/full"); }), "Not a regular file");
  EXPECT_FALSE(std::filesystem::exists("/dev/full.bak"));
}

// --- Texts that can't be built

TEST_F(ProjectFileTest, A_value_without_a_text_or_too_many_rows_overflow) {
  FillSmallProject();
  Items.At(1).Holes.At(2).DrawGap = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
  FillSmallProject();
  Items.At(1).MitreRight = -std::numeric_limits<float>::infinity();
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
  FillSmallProject();
  AccLines1.Resize(32768);
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
  FillSmallProject();
  AccLines2.Resize(32768);
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
  FillSmallProject();
  Items.Resize(32768);
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
}

TEST_F(ProjectFileTest, As_many_rows_as_16_bits_count_are_written_and_read) {
  Items.Resize(32767);
  Items.At(32767).Mark = "last";
  const std::string path = TempPath("big.ovd");
  WriteProjectFile(path);
  Items.Clear();
  ReadProjectFile(path);
  ASSERT_EQ(Items.UBound(), 32767);
  EXPECT_EQ(Items.At(32767).Mark, "last");
}

TEST_F(ProjectFileTest, Rows_that_16_bits_can_t_count_can_t_be_written) {
  FillSmallProject();
  Items.At(1).Holes.Resize(32768);
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
  FillSmallProject();
  Items.At(1).Notches.Resize(32768);
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
  FillSmallProject();
  AccLines2.At(1).Values.Resize(32768);
  EXPECT_EQ(ErrorOf([] { ProjectText(); }), "Overflow");
}

}  // namespace

}  // namespace orvane
