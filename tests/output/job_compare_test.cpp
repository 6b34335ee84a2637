// What differs between two jobs, field by field, as a list and the companion tell it.
#include "output/job_compare.h"

#include <string>
#include <vector>

#include "project/project_layout.h"
#include "tests/output/output_test.h"

namespace orvane {

namespace {

using test::MakeHole;
using test::MakeItem;
using test::MakeLine1;
using test::MakeLine2;

class JobCompare : public test::OutputTest {
 protected:
  static Item Section(const std::string& mark, std::int16_t length = 6000) {
    Item item = MakeItem("Z", mark, length);
    item.Product = "20020";
    item.Quantity = 4;
    return item;
  }
  static Job JobOf(const std::vector<Item>& sections) {
    Job job;
    for (const Item& item : sections) job.Items.Append(item);
    return job;
  }
  static JobComparison Compare(const Job& before, const Job& after) {
    return CompareJobs(ViewOf(before), ViewOf(after));
  }
  // The lines, tabs as bars.
  static std::string Text(const Job& before, const Job& after) {
    std::string text = ComparisonText(Compare(before, after));
    for (char& letter : text) {
      if (letter == '\t') letter = '|';
    }
    return text;
  }
};

// Walks over what a project file holds and puts another value in the place of one of its lines.
class OneOther {
 public:
  explicit OneOther(int number) : left_(number) {}
  bool IsDone() const { return left_ < 0; }

  void OrvaneNumber(std::string& text) { Put(text); }
  void Detail(std::string& text) { Put(text); }
  void ProjectDate(Date& date) {
    if (left_-- == 0) date.Day = 28;
  }
  void Plain(std::string& text) { Put(text); }
  void Quoted(std::string& text) { Put(text); }
  void Sign(std::string& text) { Put(text); }
  template <class Value>
  void Number(Value& field) {
    if (left_-- == 0) field = static_cast<Value>(field + 1);
  }
  void Flag(Boolean& flag) {
    if (left_-- == 0) flag = ToBoolean(flag == False);
  }
  void FlagsBehind(Table<Boolean>&, int) {}
  template <class Row>
  int Count(Table<Row>& table) {
    return table.UBound();
  }
  template <class Row>
  void Size(Table<Row>&, int) {}
  template <class Row>
  void Rows(Table<Row>& table, int first, int last) {
    for (int row = first; row <= last; ++row) Describe(*this, table.At(row));
  }

 private:
  void Put(std::string& text) {
    if (left_-- == 0) text += "x";
  }
  int left_;
};

TEST_F(JobCompare, Equal_jobs_have_no_line) {
  const Job job = JobOf({Section("P1"), Section("P2")});
  EXPECT_EQ(Text(job, job), "");
  EXPECT_EQ(Compare(job, job).Words, "nothing");
}

TEST_F(JobCompare, Sections_come_go_change_and_are_renamed_in_the_order_of_the_later_job) {
  const Job before = JobOf({Section("P1"), Section("P2"), Section("P3", 3000), Section("P4", 900)});
  Item longer = Section("P2", 6500);
  longer.Quantity = 12;
  const Job after = JobOf({Section("P9", 1200), longer, Section("Q3", 3000), Section("P1")});
  EXPECT_EQ(Text(before, after),
            "section|added|P9|||20020, 1200 mm, 4 off\n"
            "section|changed|P2|Length|6000|6500\n"
            "section|changed|P2|Qty|4|12\n"
            "section|renamed|Q3|Mark|P3|Q3\n"
            "section|removed|P4||20020, 900 mm, 4 off|\n");
  EXPECT_EQ(Compare(before, after).Words, "1 section added, 1 changed, 1 renamed, 1 removed");
}

TEST_F(JobCompare, Every_field_of_a_section_is_told_by_the_name_that_the_screens_give_it) {
  const Item one = Section("E1");
  Item other = one;
  other.SectionType = "E";
  other.Product = "24024";
  other.Length = 6001;
  other.Quantity = 5;
  other.Notes = "galvanised";
  other.PatternName = "Slvd";
  other.SagBarDia = 14;
  other.Pitch = "22.5";
  other.MitreLeft = 12.5F;
  other.MitreRight = -7.25F;
  other.JointingPieces = 2;
  other.DateText = "1 May";
  EXPECT_EQ(Text(JobOf({one}), JobOf({other})),
            "section|changed|E1|Section|Z Purlin/Rail|Eaves Beam\n"
            "section|changed|E1|Product|20020|24024\n"
            "section|changed|E1|Length|6000|6001\n"
            "section|changed|E1|Qty|4|5\n"
            "section|changed|E1|Notes||galvanised\n"
            "section|changed|E1|Punching|Custom|Slvd\n"
            "section|changed|E1|Sag bars||14\n"
            "section|changed|E1|Pitch||22.5\n"
            "section|changed|E1|Mitre left|0|12.5\n"
            "section|changed|E1|Mitre right|0|-7.25\n"
            "section|changed|E1|Jointing pieces|0|2\n"
            "section|changed|E1|Date||1 May\n");
}

TEST_F(JobCompare, Holes_by_hand_are_told_by_their_place) {
  Item one = Section("P1");
  test::AddHoles(one, {MakeHole(100, 18), MakeHole(1500, 18), MakeHole(2000, 14, 30),
                       MakeHole(5900, 18, 0, "", {"42.5", "n", "n", "y"})});
  Item other = Section("P1");
  test::AddHoles(other, {MakeHole(5900, 14, 0, "*", {"45", "n", "n", "n"}), MakeHole(100, 18),
                         MakeHole(1510, 18), MakeHole(2000, 14, 30)});
  EXPECT_EQ(Text(JobOf({one}), JobOf({other})),
            "section|changed|P1|Hole at 5900|BF at 42.5, TF, dia 18|BF at 45, dia 14, countersunk\n"
            "section|changed|P1|Hole at 1510||W1, W2, dia 18\n"
            "section|changed|P1|Hole at 1500|W1, W2, dia 18|\n");
  const JobComparison comparison = Compare(JobOf({one}), JobOf({other}));
  EXPECT_EQ(comparison.Lines.at(0).Part, ComparedPart::Hole);
  EXPECT_EQ(comparison.Lines.at(0).PartBefore, 4);
  EXPECT_EQ(comparison.Lines.at(0).PartAfter, 1);
  EXPECT_EQ(comparison.Lines.at(1).PartBefore, 0);
  EXPECT_EQ(comparison.Lines.at(2).PartAfter, 0);
}

TEST_F(JobCompare, Of_several_holes_at_one_place_those_alike_are_one) {
  Item one = Section("P1");
  test::AddHoles(one, {MakeHole(100, 18), MakeHole(100, 18, 0, "", {"y", "n", "n", "n"})});
  Item other = Section("P1");
  test::AddHoles(other, {MakeHole(100, 18, 0, "", {"y", "n", "n", "n"}), MakeHole(100, 18, 40)});
  EXPECT_EQ(Text(JobOf({one}), JobOf({other})),
            "section|changed|P1|Hole at 100|W1, W2, dia 18|W1, W2, dia 18, slot 40\n");
}

TEST_F(JobCompare, A_hole_among_many_alike_is_told_alone) {
  Item one = Section("P1");
  Item other = Section("P1");
  for (int x = 1; x <= 9; ++x) {
    test::AddHoles(one, {MakeHole(Int16(x * 100), 18)});
    if (x != 4) test::AddHoles(other, {MakeHole(Int16(x * 100), 18)});
  }
  test::AddHoles(other, {MakeHole(500, 18)});
  EXPECT_EQ(Text(JobOf({one}), JobOf({other})),
            "section|changed|P1|Hole at 500||W1, W2, dia 18\n"
            "section|changed|P1|Hole at 400|W1, W2, dia 18|\n");
}

TEST_F(JobCompare, What_the_system_works_out_is_no_difference) {
  Item one = Section("P1");
  one.PatternName = "Slvd";
  test::AddHoles(one, {MakeHole(100, 18), MakeHole(5900, 18)});
  Item other = one;
  one.Holes.At(1).Kind = PatternKind;
  other.Holes.At(1).Kind = PatternKind;
  other.Holes.At(1).XPos = 150;
  other.Holes.At(2).RelX = 77;
  other.Holes.At(2).DrawGap = 78;
  other.Holes.At(0).XPos = 6000;
  other.CustomHoleCount = 9;
  std::swap(other.Holes.At(1), other.Holes.At(2));
  EXPECT_EQ(Text(JobOf({one}), JobOf({other})), "");
}

TEST_F(JobCompare, Notches_are_told_by_code_and_position) {
  Item one = Section("P1");
  test::AddNotches(one, {test::MakeNotch("TL1", 50, 120, 0), test::MakeNotch("T2", 30, 60, 1000),
                         test::MakeNotch("B2", 30, 60, 1000)});
  Item other = Section("P1");
  test::AddNotches(other,
                   {test::MakeNotch("T2", 30, 60.5, 1000), test::MakeNotch("TL1", 50, 120, 0),
                    test::MakeNotch("B2", 30, 60, 1100)});
  EXPECT_EQ(Text(JobOf({one}), JobOf({other})),
            "section|changed|P1|Notch T2 at 1000|depth 30, width 60|depth 30, width 60.5\n"
            "section|changed|P1|Notch B2 at 1100||depth 30, width 60\n"
            "section|changed|P1|Notch B2 at 1000|depth 30, width 60|\n");
}

TEST_F(JobCompare, A_section_without_a_mark_is_named_by_its_row) {
  Item one = Section("");
  Item other = one;
  other.Length = 10;
  EXPECT_EQ(Text(JobOf({Section("P1"), one}), JobOf({other, Section("P1")})),
            "section|changed|Item 1|Length|6000|10\n");
  EXPECT_EQ(Text(JobOf({one}), JobOf({Section("P1")})), "section|renamed|P1|Mark||P1\n");
}

TEST_F(JobCompare, Project_details_are_told_by_the_names_of_their_fields) {
  Job before;
  before.Details = {"OV 1", "J-1", "North", "Shed", "A"};
  before.ProjectDate = {2024, 3, 5};
  Job after = before;
  after.Details = {"OV 2", "J-1 ", "South", "Shed", "A"};
  after.ProjectDate = {2024, 3, 6};
  EXPECT_EQ(Text(before, after),
            "project|changed|Project details|Orvane No.|OV 1|OV 2\n"
            "project|changed|Project details|Customer|North|South\n"
            "project|changed|Project details|Date|05/03/2024|06/03/2024\n");
}

TEST_F(JobCompare, Accessory_lines_are_told_by_accessory_and_mark_or_size) {
  AddAccessories();
  Job before;
  before.AccLines1.Append(MakeLine1(1, 2, 10));
  before.AccLines1.Append(MakeLine1(1, 3, 5));
  before.AccLines2.Append(MakeLine2(8, "V1", 4, {"1", "2", "3000", "", ""}));
  before.AccLines2.Append(MakeLine2(8, "V2", 4, {"1", "2", "", "", ""}));
  before.AccLines2.Append(MakeLine2(9, "V3", 1, {"", "", "", "", ""}));
  Job after;
  after.AccLines1.Append(MakeLine1(1, 2, 12));
  after.AccLines1.Append(MakeLine1(2, 3, 5));
  after.AccLines2.Append(MakeLine2(9, "V3", 1, {"", "", "", "", ""}));
  after.AccLines2.Append(MakeLine2(8, "V1", 5, {"1", "2", "3100", "", ""}));
  after.AccLines2.Append(MakeLine2(8, "W2", 4, {"1", "2", "", "", ""}));
  const std::string code2 = AccDefs.At(1).ParamNames.At(2);
  const std::string code3 = AccDefs.At(1).ParamNames.At(3);
  const std::string third = AccDefs.At(8).ParamNames.At(5);
  EXPECT_EQ(Text(before, after), "accessory|changed|Accessory 1 " + code2 + "|No.Off|10|12\n" +
                                     "accessory|added|Accessory 2 " + code3 + "|||5 off\n" +
                                     "accessory|removed|Accessory 1 " + code3 + "||5 off|\n" +
                                     "accessory|changed|Accessory 8 V1|No.Off|4|5\n" +
                                     "accessory|changed|Accessory 8 V1|" + third + "|3000|3100\n" +
                                     "accessory|renamed|Accessory 8 W2|Mark|V2|W2\n");
  EXPECT_EQ(Compare(before, after).Words, "5 accessory lines");
}

TEST_F(JobCompare, A_mark_of_the_accessory_list_is_told_where_no_line_of_the_accessory_differs) {
  AddAccessories();
  Job before;
  before.AccUsed.Resize(22);
  Job after = before;
  after.AccUsed.At(8) = True;
  EXPECT_EQ(Text(before, after), "accessory|changed|Accessory 8|Marked as used|no|yes\n");
  EXPECT_EQ(Text(after, before), "accessory|changed|Accessory 8|Marked as used|yes|no\n");
  after.AccLines2.Append(MakeLine2(8, "V1", 4, {"1"}));
  const std::string heading = AccDefs.At(8).ParamNames.At(3);
  EXPECT_EQ(Text(before, after), "accessory|added|Accessory 8 V1|||4 off, " + heading + " 1\n");
}

TEST_F(JobCompare, Accessories_that_the_catalogue_lacks_are_told_by_their_numbers) {
  Job before;
  before.AccLines1.Append(MakeLine1(27, 2, 10));
  before.AccLines2.Append(MakeLine2(30, "V1", 4, {"1"}));
  Job after = before;
  after.AccLines1.At(1).Qty = 11;
  after.AccLines2.At(1).Values.Append("");
  EXPECT_EQ(Text(before, after),
            "accessory|changed|Accessory 27 size 2|No.Off|10|11\n"
            "accessory|changed|Accessory 30 V1|Value 2||\n");
}

TEST_F(JobCompare, Whatever_is_another_in_a_job_has_a_line_and_what_is_worked_out_has_none) {
  AddAccessories();
  Item full = Section("P1");
  test::AddHoles(full, {MakeHole(100, 18, 30), MakeHole(5900, 18)});
  full.Holes.At(2).Kind = PatternKind;
  test::AddNotches(full, {test::MakeNotch("TL1", 50, 120, 0)});
  Job before = JobOf({full});
  before.Details = {"OV 1", "J-1", "North", "Shed", "A"};
  before.ProjectDate = {2024, 3, 5};
  before.AccLines1.Append(MakeLine1(1, 2, 10));
  before.AccLines2.Append(MakeLine2(8, "V1", 4, {"1", "2"}));
  before.AccUsed.Resize(AccType1Count + AccType2Count);
  int others = 0;
  int equals = 0;
  for (int number = 0;; ++number) {
    Job after = before;
    JobRecords records = RecordsOf(after);
    OneOther change(number);
    DescribeSections(change, records);
    DescribeType2Lines(change, records);
    DescribeFlags(change, records);
    if (!change.IsDone()) break;
    const JobComparison comparison = Compare(before, after);
    EXPECT_EQ(comparison.Lines.empty(), comparison.Words == "nothing") << number;
    ++(comparison.Lines.empty() ? equals : others);
    for (const ComparedLine& line : comparison.Lines) EXPECT_NE(line.Old, line.New) << number;
  }
  // Of the end sentinel and of the pattern's hole all 11 values (no other kind makes it one by
  // hand), of the hole by hand its two gaps; and how many are by hand.
  EXPECT_EQ(equals, 11 + 11 + 2 + 1);
  EXPECT_GT(others, 40);
}

TEST_F(JobCompare, A_text_that_would_break_a_line_has_blanks) {
  Item one = Section("P1");
  one.Notes = "a\r\nb\tc";
  Item other = Section("P1");
  other.Notes = "d";
  EXPECT_EQ(Text(JobOf({one}), JobOf({other})), "section|changed|P1|Notes|a  b c|d\n");
}

}  // namespace

}  // namespace orvane
