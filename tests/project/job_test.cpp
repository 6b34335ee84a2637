// A job apart from the open one: read into records of its own, written from any sections.
#include "project/job.h"

#include <string>
#include <vector>

#include "core/text_file.h"
#include "project/project_file.h"
#include "tests/project/small_project.h"

namespace orvane {

namespace {

using test::First;
using test::Joined;
using test::LinesOf;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

class JobTest : public ProjectFileTest {
 protected:
  static ReadJob ReadLines(const std::vector<std::string>& lines) {
    TextFile file(Joined(lines));
    return ReadProject(file);
  }
};

// What saving, opening and saving again gives up.
std::vector<std::string> OnceRead() {
  return With(SmallProjectLines(), line::FirstHoleCounterSunk, "");
}

TEST_F(JobTest, A_job_is_read_into_records_of_its_own_and_no_table_changes) {
  FillEarlierProject();
  const ReadJob read = ReadLines(SmallProjectLines());
  EXPECT_EQ(LinesOf(ProjectText(ViewOf(read.Records))), OnceRead());
  ExpectEarlierItems();
  ExpectEarlierLines1();
  ExpectEarlierLines2();
  ExpectFlags({-1, -1, -1, -1});
  EXPECT_EQ(txtProject.at(0), "old 0");
  EXPECT_EQ(DTPicker1, (Date{2019, 12, 31}));
}

TEST_F(JobTest, What_a_file_lacks_is_empty_in_its_records) {
  FillEarlierProject();
  std::vector<std::string> lines = First(SmallProjectLines(), line::Lines1End);
  lines = With(lines, line::OrvaneNumber, "v1.07:");
  const ReadJob read = ReadLines(lines);
  EXPECT_EQ(read.Records.Details.at(0), "");
  EXPECT_TRUE(read.Records.AccLines2.Empty());
  EXPECT_EQ(read.Records.AccUsed.UBound(), 4);
  for (const Boolean flag : read.Records.AccUsed) EXPECT_EQ(flag, False);
}

TEST_F(JobTest, A_job_that_can_t_be_read_raises_its_error_and_no_table_changes) {
  FillEarlierProject();
  EXPECT_EQ(test::ErrorOf([] { ReadLines(With(SmallProjectLines(), line::Length, "x")); }),
            "Type mismatch");
  ExpectEarlierItems();
}

TEST_F(JobTest, An_unread_date_is_a_note_of_the_job_that_was_read) {
  desktop.Present = {{2026, 11, 22}, 9, 0, 0};
  const ReadJob read = ReadLines(With(SmallProjectLines(), line::ProjectDate, "tomorrow"));
  EXPECT_EQ(read.Notes.UnreadDate, "tomorrow");
  EXPECT_EQ(read.Records.ProjectDate, (Date{2026, 11, 22}));
}

TEST_F(JobTest, Sections_that_stand_apart_are_written_in_the_order_of_their_view) {
  FillSmallProject();
  const std::vector<std::string> expected = LinesOf(ProjectText());
  const Item first = Items.At(1);
  const Item second = Items.At(2);
  Items.Clear();
  JobView view = OpenJob();
  view.Items = SectionRows(2, [&](int row) -> const Item& { return row == 1 ? first : second; });
  EXPECT_EQ(LinesOf(ProjectText(view)), expected);
}

}  // namespace

}  // namespace orvane
