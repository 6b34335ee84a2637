// Lists as a spreadsheet program has written them in several countries.
#include <string>
#include <vector>

#include "core/files.h"
#include "project/section_list/apply_plan.h"
#include "tests/project/section_list_fixture.h"

namespace orvane {

namespace {

using Lines = std::vector<std::string>;

class SpreadsheetLists : public test::SectionListTest {
 protected:
  static SectionList Read(const std::string& name) {
    return ListOfFile(
        ReadWholeFile(std::string(ORVANE_SOURCE_DIR) + "/tests/project/lists/" + name));
  }
  // What the list makes of an empty job.
  Lines JobOfList(const std::string& name, ThreeDigits told) {
    Items.Clear();
    answers.Told = told;
    const SectionPlan plan = PlanOf(Read(name), answers, 0);
    EXPECT_EQ(WordsOf(plan), Lines(5, "New")) << name;
    ApplyPlan(plan, ChangeKind::ImportSections);
    return Job();
  }

  const Lines Sections = {
      "Z P1 Z14012 6000 4 sleeved, left end / Butt",
      "Z P2 Z14014 12500 1200 12'' deep; see drawing / Butt 1 Sag Bar 14 22.5 -5.0",
      "E EB-A E20016 7250 2 Gr\xC3\xB6\xC3\x9F"
      "e \xC2\xBD, \xC3\xA9tage \xC5\x93 \xE2\x82\xAC / Eaves 22.5",
      "V V1 VCR 3050 16 =see ''A1''", "C C1 C20020 800 1 two lines / Joist"};
};

TEST_F(SpreadsheetLists, Where_blanks_divide_thousands_nothing_is_asked) {
  EXPECT_EQ(JobOfList("french.csv", ThreeDigits::NotTold), Sections);
  EXPECT_EQ(JobOfList("swedish.csv", ThreeDigits::NotTold), Sections);
}

TEST_F(SpreadsheetLists, Commas_and_points_are_read_as_thousands_once_that_is_told) {
  EXPECT_EQ(JobOfList("english.csv", ThreeDigits::Thousands), Sections);
  EXPECT_EQ(JobOfList("german.csv", ThreeDigits::Thousands), Sections);
}

TEST_F(SpreadsheetLists, They_are_not_guessed) {
  EXPECT_EQ(PlanOf(Read("english.csv"), answers, 0).AmbiguousNumber, "6,000");
  EXPECT_EQ(PlanOf(Read("german.csv"), answers, 0).AmbiguousNumber, "6.000");
  // The channel's length has no thousands.
  for (const char* name : {"english.csv", "german.csv"}) {
    const SectionPlan plan = PlanOf(Read(name), answers, 0);
    EXPECT_EQ(plan.Count(PlannedSection::Result::Refused), 4) << name;
    EXPECT_EQ(plan.Rows.at(4).What, PlannedSection::Result::New) << name;
  }
}

}  // namespace

}  // namespace orvane
