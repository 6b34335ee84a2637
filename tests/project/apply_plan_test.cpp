// What a list has done to the job.
#include "project/section_list/apply_plan.h"

#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "core/csv.h"
#include "core/text.h"
#include "holes/hole_list.h"
#include "project/history.h"
#include "project/project_file.h"
#include "project/section_list/section_table.h"
#include "tests/project/section_list_fixture.h"

namespace orvane {

namespace {

using Lines = std::vector<std::string>;

class ApplyPlanTest : public test::SectionListTest {
 protected:
  ~ApplyPlanTest() override { EndHistory(); }

  static std::vector<int> HolesOf(int row) {
    std::vector<int> positions;
    for (const Hole& hole : Items.At(row).Holes) positions.push_back(hole.XPos);
    return positions;
  }
  std::vector<int> Paste(const std::string& rows, int row = 0, int column = MarkColumn) {
    return ApplyPlan(Plan(rows, row, column), ChangeKind::PasteSections);
  }
};

TEST_F(ApplyPlanTest, New_and_changed_rows_are_one_step_that_can_be_taken_back) {
  Put("P1", "Z14012", 6000, 4);
  Put("P2", "Z14012", 6000, 4);
  const std::string before = ProjectText();
  BeginHistory();
  EXPECT_EQ(Paste("P2|Z14014|6500|5|long\nP3|E20016|7000|1\nP1|Z14012|6000|4\nP4|oops|1|1"),
            (std::vector<int>{2, 3}));
  EXPECT_EQ(Job(),
            (Lines{"Z P1 Z14012 6000 4 ", "Z P2 Z14014 6500 5 long", "E P3 E20016 7000 1 "}));
  EXPECT_EQ(ProjectDirty, True);
  const std::string after = ProjectText();
  EXPECT_EQ(StepsToUndo(), 1);
  RestoredStep restored;
  EXPECT_TRUE(UndoStep(restored));
  EXPECT_EQ(ProjectText(), before);
  EXPECT_TRUE(RedoStep(restored));
  EXPECT_EQ(ProjectText(), after);
}

TEST_F(ApplyPlanTest, Where_nothing_is_to_be_done_there_is_no_change) {
  Put("P1", "Z14012", 6000, 4);
  BeginHistory();
  EXPECT_TRUE(Paste("P1|Z14012|6000|4\nP2|oops|6000|4").empty());
  EXPECT_EQ(StepsToUndo(), 0);
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ApplyPlanTest, Holes_are_made_as_choosing_the_pattern_makes_them) {
  DrawingWidth = 200;
  MinHoleSep = 5;
  Paste("Mark|Product|Length|Punching|Sag bars\nP1|Z14012|6000|Butt 1 Sag Bar|18");
  ASSERT_EQ(Items.UBound(), 1);
  // B0 stands 32 mm from the left-hand end, D3 in the middle, B6 32 mm from the other.
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 3000, 5968}));
  EXPECT_EQ(Items.At(1).Holes.At(2).Diameter, 18);
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 6000);  // the end sentinel
  EXPECT_EQ(Items.At(1).Holes.At(2).RelX, 2968);
  EXPECT_EQ(Items.At(1).PatternName, "Butt 1 Sag Bar");

  Paste("P1|Z14012|8000");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 4000, 7968}));
  // Another mark or quantity leaves them as they stand.
  Items.At(1).Holes.At(2).XPos = 4001;
  Paste("P1|Z14012|8000|7");
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 4001, 7968}));
}

TEST_F(ApplyPlanTest, Holes_placed_by_hand_go_only_where_it_is_allowed) {
  Item& item = Put("P1", "Z14012", 6000, 4);
  item.PatternName = "Custom";
  PutHole(item, 700);
  const std::string list = "Mark|Length|Punching\nP1|6500|Butt";
  Paste(list);
  EXPECT_EQ(HolesOf(1), std::vector<int>{700});
  EXPECT_EQ(Items.At(1).PatternName, "Custom");
  EXPECT_EQ(Items.At(1).Length, 6500);
  answers.MayRemoveHoles = {0};
  Paste(list);
  EXPECT_EQ(HolesOf(1), (std::vector<int>{32, 6468}));
  EXPECT_EQ(Items.At(1).PatternName, "Butt");
  EXPECT_EQ(Items.At(1).CustomHoleCount, 0);
}

TEST_F(ApplyPlanTest, A_row_that_only_waits_is_no_change) {
  Item& item = Put("P1", "Z14012", 6000, 4);
  item.PatternName = "Custom";
  PutHole(item, 700);
  EXPECT_TRUE(Paste("Mark|Punching\nP1|Butt").empty());
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ApplyPlanTest, Gaps_that_can_not_be_adjusted_keep_no_row_out) {
  DrawingWidth = 200;
  MinHoleSep = 5000;  // no gap is wide enough to pay for another
  const std::vector<int> rows =
      Paste("Mark|Product|Length|Punching\nP1|Z14012|6000|Butt\nP2|Z14012|6000|Butt");
  EXPECT_EQ(rows.size(), 2U);
  EXPECT_EQ(HolesOf(2), (std::vector<int>{32, 5968}));
}

// Properties.

std::string Pick(std::mt19937& random, const Lines& from) {
  return from[random() % from.size()];
}

// A job such as the grid and its panels can make.
void FillJob(std::mt19937& random, int count) {
  const std::vector<std::pair<std::string, std::string>> products = {
      {"Z", "Z14012"}, {"Z", "Z14014"}, {"E", "E20016"}, {"C", "C20020"},
      {"V", "VCR"},    {"R", "CLR"},    {"T", "T05010"}};
  const Lines notes = {"",    "sleeved", "a, b; c",   " led and trailed ", "=SUM(A1)",
                       "-5",  "'tis",    "12'' deep", "caf\xC3\xA9",       "@home",
                       "'=x", "6,000"};
  for (int row = 1; row <= count; ++row) {
    const auto& [letter, product] = products[random() % products.size()];
    Item item;
    item.SectionType = letter;
    item.Product = product;
    item.Mark = Pick(random, {"P", "EB-", "+", "a,b ", "=", " "}) + std::to_string(row);
    if (random() % 8 == 0) item.Mark.clear();
    item.Length = static_cast<std::int16_t>(random() % 3 == 0 ? 0 : 1 + random() % 3000);
    item.Quantity = static_cast<std::int16_t>(random() % 32768);
    item.Notes = Pick(random, notes);
    if (letter == "Z") item.PatternName = Pick(random, {"", "Butt", "Butt 1 Sag Bar", "Custom"});
    if (item.PatternName == "Butt 1 Sag Bar") {
      item.SagBarDia = static_cast<std::int16_t>(random() % 2 == 0 ? 14 : 18);
    }
    if (letter == "E") item.Pitch = Pick(random, {"", "0", "22.5", "30"});
    item.MitreLeft =
        static_cast<float>(random() % 3 == 0 ? static_cast<int>(random() % 121) - 60 : 0);
    Items.Append(item);
    RebuildHoles(static_cast<std::int16_t>(row), item.PatternName);
  }
}

TEST_F(ApplyPlanTest, What_is_exported_and_imported_gives_the_same_rows) {
  std::mt19937 random(15);
  for (int round = 0; round < 200; ++round) {
    Items.Clear();
    FillJob(random, 1 + static_cast<int>(random() % 30));
    const Lines job = Job();
    const std::string text = ProjectText();
    const std::string file = SectionListFile();
    // Over the same job nothing is another, but for sections without a mark, which come again.
    const SectionPlan over = PlanOf(ListOfFile(file), answers, 0);
    for (std::size_t at = 0; at < over.Rows.size(); ++at) {
      const bool marked = !Trim(Items.At(static_cast<int>(at) + 1).Mark).empty();
      ASSERT_EQ(PlanText(over.Rows[at]), marked ? "No change" : "New") << job[at];
    }
    EXPECT_EQ(ProjectText(), text);
    // An empty one gets the same rows.
    Items.Clear();
    ApplyPlan(PlanOf(ListOfFile(file), answers, 0), ChangeKind::ImportSections);
    ASSERT_EQ(Job(), job);
    ASSERT_EQ(ProjectText(), text);
  }
}

TEST_F(ApplyPlanTest, Random_blocks_change_nothing_that_the_plan_does_not_name) {
  std::mt19937 random(4);
  const Lines pieces = {"P1",      "P2",       "EB-3",     "Z14012", "Z14014",  "CLR",
                        "AB 12",   "6000",     "6,000",    "7.5 m",  "-1",      "99999",
                        "Butt",    "Custom",   "18",       "22.5",   "Mark",    "Length",
                        "No. off", "Punching", "\"",       "\"\"",   "'=",      "\xC3",
                        "",        " ",        "\xC2\xA0", "x",      "Section", "Mitre left"};
  const Lines ends = {"\t", "\t", "\t", "\n", "\r\n", "\r", ",", ";"};
  for (int round = 0; round < 3000; ++round) {
    Items.Clear();
    FillJob(random, static_cast<int>(random() % 6));
    for (Item& item : Items) {
      if (item.PatternName == "Custom") PutHole(item, 100);
    }
    std::string block;
    for (std::size_t left = random() % 40; left > 0; --left) {
      block += Pick(random, pieces) + Pick(random, ends);
    }
    ListAnswers told;
    told.Told = static_cast<ThreeDigits>(random() % 3);
    if (random() % 2 == 0) told.Families = {{"AB 12", "C"}};
    for (int row = 0; row < 8; ++row) {
      if (random() % 4 == 0) told.LeftOut.insert(row);
      if (random() % 4 == 0) told.MayRemoveHoles.insert(row);
    }
    const Lines before = Job();
    const int count = Items.UBound();
    const SectionPlan plan = PlanOf(ListOfBlock(block, static_cast<int>(random() % 6)), told,
                                    static_cast<int>(random() % 7));
    ASSERT_EQ(Job(), before);
    ApplyPlan(plan, ChangeKind::PasteSections);
    Lines expected = before;
    for (const PlannedSection& row : plan.Rows) {
      if (row.What != PlannedSection::Result::New && row.What != PlannedSection::Result::Changed)
        continue;
      const Lines now = Job();
      // Each text that the plan shows is what the section holds.
      const int at = row.Row > 0 ? row.Row : static_cast<int>(expected.size()) + 1;
      if (row.Row == 0) expected.emplace_back();
      ASSERT_LE(at, Items.UBound()) << block;
      for (int column = 1; column < ListColumnsEnd; ++column) {
        const PlannedCell& cell = row.Cells.at(static_cast<std::size_t>(column));
        if (cell.What != PlannedCell::Result::Changed) continue;
        ASSERT_EQ(ListText(Items.At(at), column), cell.Text) << block;
      }
      expected[static_cast<std::size_t>(at) - 1] = now[static_cast<std::size_t>(at) - 1];
    }
    ASSERT_EQ(Job(), expected) << block;
    ASSERT_GE(Items.UBound(), count);
  }
}

}  // namespace

}  // namespace orvane
