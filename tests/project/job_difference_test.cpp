// How two jobs differ, as the person who chooses between them is told.
#include "project/job_difference.h"

#include <set>
#include <string>
#include <vector>

#include "core/text_file.h"
#include "project/project_file.h"
#include "tests/project/small_project.h"

namespace orvane {

namespace {

using test::Joined;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

class JobDifferences : public ProjectFileTest {
 protected:
  static Job JobOf(const std::vector<std::string>& lines) {
    TextFile file(Joined(lines));
    return ReadProject(file).Records;
  }
  static Item Section(const std::string& mark, std::int16_t length) {
    Item item;
    item.Mark = mark;
    item.SectionType = "Z";
    item.Product = "20020";
    item.Length = length;
    item.PatternName = "Slvd";
    return item;
  }
  static Job JobOf(const std::vector<Item>& sections) {
    Job job;
    for (const Item& item : sections) job.Items.Append(item);
    return job;
  }
  static std::string Difference(const Job& before, const Job& after) {
    return Described(DifferenceOf(ViewOf(before), ViewOf(after)));
  }
};

TEST_F(JobDifferences, Equal_jobs_differ_in_nothing) {
  const Job job = JobOf(SmallProjectLines());
  EXPECT_EQ(Difference(job, job), "nothing");
  EXPECT_EQ(DifferenceOf(ViewOf(job), ViewOf(job)), JobDifference{});
  EXPECT_EQ(Difference(Job(), Job()), "nothing");
}

TEST_F(JobDifferences, A_job_in_the_tables_differs_in_nothing_from_the_file_that_it_is_saved_as) {
  FillSmallProject();
  txtProject.at(0) += "  ";  // what a file gives up
  txtProject.at(3) += " ";
  EXPECT_EQ(Described(DifferenceOf(ViewOf(JobOf(SmallProjectLines())), OpenJob())), "nothing");
}

TEST_F(JobDifferences, Sections_are_told_by_their_marks) {
  const Job before = JobOf({Section("P1", 1000), Section("P2", 2000), Section("P3", 3000),
                            Section("P4", 4000), Section("P5", 5000)});
  const Job after = JobOf({Section("P6", 6000), Section("P2", 2001), Section("P3", 3000),
                           Section("P4", 4001), Section("P7", 7000), Section("P8", 8000)});
  EXPECT_EQ(Difference(before, after), "3 sections added, 2 changed, 2 removed");
  EXPECT_EQ(Difference(after, before), "2 sections added, 2 changed, 3 removed");
}

TEST_F(JobDifferences, The_noun_stands_once_and_by_its_number) {
  const Job none;
  const Job one = JobOf({Section("P1", 1000)});
  const Job other = JobOf({Section("P1", 1001), Section("P2", 2000), Section("P3", 3000)});
  EXPECT_EQ(Difference(none, one), "1 section added");
  EXPECT_EQ(Difference(one, none), "1 section removed");
  EXPECT_EQ(Difference(other, none), "3 sections removed");
  EXPECT_EQ(Difference(one, other), "2 sections added, 1 changed");
  EXPECT_EQ(Difference(other, one), "1 section changed, 2 removed");
}

TEST_F(JobDifferences,
       Of_equal_marks_those_of_equal_content_are_one_section_then_they_go_in_order) {
  const Job before = JobOf({Section("P1", 1000), Section("P1", 2000), Section("P1", 3000)});
  EXPECT_EQ(Difference(before, JobOf({Section("P1", 2000), Section("P1", 3000)})),
            "1 section removed");
  EXPECT_EQ(Difference(before, JobOf({Section("P1", 3000), Section("P1", 1500)})),
            "1 section changed, 1 removed");
  EXPECT_EQ(Difference(JobOf({Section("", 1000), Section("", 2000)}),
                       JobOf({Section("", 2000), Section("", 1500), Section("", 1800)})),
            "1 section added, 1 changed");
}

TEST_F(JobDifferences, A_section_that_got_another_mark_is_renamed) {
  EXPECT_EQ(Difference(JobOf({Section("", 1000), Section("P2", 2000)}),
                       JobOf({Section("P1", 1000), Section("Q2", 2000)})),
            "2 sections renamed");
  EXPECT_EQ(Difference(JobOf({Section("P1", 1000), Section("P2", 2000), Section("P3", 3000)}),
                       JobOf({Section("Q1", 1000), Section("P2", 2001), Section("P4", 4000)})),
            "1 section added, 1 changed, 1 renamed, 1 removed");
  // With another length besides it is another section.
  EXPECT_EQ(Difference(JobOf({Section("P1", 1000)}), JobOf({Section("Q1", 1001)})),
            "1 section added, 1 removed");
}

TEST_F(JobDifferences, The_order_of_sections_is_no_difference) {
  EXPECT_EQ(Difference(JobOf({Section("P1", 1000), Section("P2", 2000), Section("P3", 3000)}),
                       JobOf({Section("P3", 3000), Section("P1", 1000), Section("P2", 2000)})),
            "nothing");
}

TEST_F(JobDifferences, Texts_of_two_fields_are_not_taken_for_one_another) {
  Item one = Section("P1", 1000);
  one.Notes = "a\nb";
  one.DateText = "c";
  Item other = Section("P1", 1000);
  other.Notes = "a";
  other.DateText = "b\nc";
  EXPECT_EQ(Difference(JobOf({one}), JobOf({other})), "1 section changed");
}

TEST_F(JobDifferences, What_the_system_works_out_is_no_difference) {
  const Job before = JobOf(SmallProjectLines());
  Job after = before;
  Item& purlin = after.Items.At(1);
  purlin.Serial = 77;
  purlin.CustomHoleCount = 0;
  purlin.Holes.At(0) = Hole{};
  purlin.Holes.At(1).XPos = 36;  // of the pattern
  purlin.Holes.At(2).RelX = 1;
  purlin.Holes.At(2).DrawGap = 2;
  EXPECT_EQ(Difference(before, after), "nothing");
  purlin.Holes.Remove(1);
  EXPECT_EQ(Difference(before, after), "nothing");
  purlin.Holes.At(1).XPos = 5701;  // placed by hand
  EXPECT_EQ(Difference(before, after), "1 section changed");
}

TEST_F(JobDifferences, Holes_by_hand_count_in_any_order) {
  Item one = Section("P1", 1000);
  one.Holes.Append({100, "C", "n", "y", "n", "n", 14, 0, 0, 0, ""});
  one.Holes.Append({100, "C", "y", "n", "n", "n", 14, 0, 0, 0, ""});
  Item other = one;
  std::swap(other.Holes.At(1), other.Holes.At(2));
  EXPECT_EQ(Difference(JobOf({one}), JobOf({other})), "nothing");
  other.Holes.Append(other.Holes.At(1));
  EXPECT_EQ(Difference(JobOf({one}), JobOf({other})), "1 section changed");
}

TEST_F(JobDifferences, Details_lines_and_flags_are_told_behind_the_sections) {
  const Job before = JobOf(SmallProjectLines());
  Job after = before;
  after.Details.at(4) = "N. Else";
  EXPECT_EQ(Difference(before, after), "project details");
  after.Details = before.Details;
  after.ProjectDate = {2024, 3, 6};
  EXPECT_EQ(Difference(before, after), "project details");
  after.AccLines1.At(1).Param = 8;
  after.AccLines2.Remove(1);
  EXPECT_EQ(Difference(before, after), "project details; 2 accessory lines");
  after.AccUsed.At(3) = False;
  after.Items.Remove(1);
  EXPECT_EQ(Difference(before, after), "1 section removed; project details; 2 accessory lines");

  after = before;
  after.AccLines2.At(1).Values.At(2) = "ø 20, long";
  EXPECT_EQ(Difference(before, after), "1 accessory line");
  after = before;
  std::swap(after.AccLines2.At(1), after.AccLines2.At(2));
  EXPECT_EQ(Difference(before, after), "nothing");
  after.AccUsed.At(3) = False;
  EXPECT_EQ(Difference(before, after), "marks of the accessory list");
}

TEST_F(JobDifferences, An_accessory_line_is_told_by_its_accessory_and_its_mark) {
  const Job before = JobOf(SmallProjectLines());
  Job after = before;
  after.AccLines2.At(1).Mark = "A9";
  EXPECT_EQ(PairsOf(ViewOf(before), ViewOf(after)).Lines2,
            (std::vector<RowPair>{{Paired::Renamed, 1, 1}}));
  EXPECT_EQ(Difference(before, after), "1 accessory line");
  // With another number off besides it is another line.
  after.AccLines2.At(1).NoOff = 5;
  EXPECT_EQ(PairsOf(ViewOf(before), ViewOf(after)).Lines2,
            (std::vector<RowPair>{{Paired::Added, 0, 1}, {Paired::Removed, 1, 0}}));
  EXPECT_EQ(Difference(before, after), "2 accessory lines");
  after = before;
  after.AccLines1.At(1).ParamIndex = 3;  // another size
  EXPECT_EQ(PairsOf(ViewOf(before), ViewOf(after)).Lines1,
            (std::vector<RowPair>{{Paired::Added, 0, 1}, {Paired::Removed, 1, 0}}));
}

TEST_F(JobDifferences, Notches_count_in_any_order) {
  Item one = Section("P1", 1000);
  one.Notches.Append({"TL1", 50, 100, 0});
  one.Notches.Append({"BR1", 50, 120, 0});
  Item other = one;
  std::swap(other.Notches.At(1), other.Notches.At(2));
  EXPECT_EQ(Difference(JobOf({one}), JobOf({other})), "nothing");
  other.Notches.At(1).Size2 = 121;
  EXPECT_EQ(Difference(JobOf({one}), JobOf({other})), "1 section changed");
}

TEST_F(JobDifferences, Marks_of_accessories_that_one_catalogue_lacks_are_none_there) {
  const Job before = JobOf(SmallProjectLines());
  Job after = before;
  after.AccUsed.Append(False);
  EXPECT_EQ(Difference(before, after), "nothing");
  after.AccUsed.Append(True);
  EXPECT_EQ(Difference(before, after), "marks of the accessory list");
  EXPECT_EQ(Difference(after, before), "marks of the accessory list");
}

// Another value in each line of the file by itself.
TEST_F(JobDifferences, Every_line_of_a_project_file_that_somebody_entered_counts) {
  // The end sentinel, the pattern's hole, the gaps of the other one, the counts of those by hand.
  std::set<int> workedOut = {49, 50, 57, 73};
  for (int number = line::HoleCount + 1; number < 40; ++number) workedOut.insert(number);
  // The counts, which nobody enters: with another one the file is another file.
  const std::set<int> counts = {line::ItemCount,
                                line::HoleCount,
                                line::NotchCount,
                                line::SecondHoleCount,
                                71,
                                line::Lines1Count,
                                line::Lines2Count,
                                line::Lines2ValueCount,
                                92};
  const Job before = JobOf(SmallProjectLines());
  for (int number = 1; number <= line::LastFlag; ++number) {
    if (counts.contains(number)) continue;
    const std::string old = SmallProjectLines().at(static_cast<std::size_t>(number) - 1);
    std::string text = old.ends_with('"') ? old.substr(0, old.size() - 1) + "x\"" : old + "x";
    if (old.ends_with(' ') && old.size() > 1) text = old == "-1 " ? " 0 " : "-1 ";
    if (number == line::ProjectDate) text = "06/03/2024";
    if (number == 41) text = "S";  // the hole is none by hand any more
    const std::string difference =
        Difference(before, JobOf(With(SmallProjectLines(), number, text)));
    EXPECT_EQ(difference == "nothing", workedOut.contains(number)) << number << ": " << difference;
  }
}

}  // namespace

}  // namespace orvane
