// Thousands of commands at random, all taken back and all done again: the texts of the job before
// and behind each step are those that they were.
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "holes/hole_list.h"
#include "project/project_file.h"
#include "project/recovery.h"
#include "project/rules/accessory_rules.h"
#include "project/rules/custom_holes.h"
#include "project/rules/mitre_rules.h"
#include "project/rules/notch_rules.h"
#include "project/rules/section_columns.h"
#include "project/rules/section_details.h"
#include "project/sections.h"
#include "tests/project/history_fixture.h"

namespace orvane {
namespace {

class HistoryWalk : public test::HistoryFixture, public ::testing::WithParamInterface<unsigned> {
 protected:
  int Random(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
  std::int16_t RandomRow() { return Int16(Random(1, Items.UBound())); }
  std::string RandomText() {
    return std::string(1, static_cast<char>('A' + Random(0, 25))) + DecimalText(Random(0, 999));
  }

  void Step() {
    if (Items.Empty() || Random(0, 15) == 0) {
      AddSectionRow(std::vector<std::string>{"Z", "E", "C", "V", "R",
                                             "T"}[static_cast<std::size_t>(Random(0, 5))]);
      return;
    }
    const std::int16_t row = RandomRow();
    CurrentItem = row;
    switch (Random(0, 17)) {
      case 0:
        return TypeCell(row, MarkColumn, RandomText());
      case 1:
        return TypeCell(row, LengthColumn, DecimalText(Random(100, 12000)));
      case 2:
        return TypeCell(row, QuantityColumn, DecimalText(Random(1, 99)));
      case 3:
        return TypeCell(row, NotesColumn, RandomText());
      case 4:
        return TypeCell(row, ProductColumn, AnyOf(SectionProducts(Items.At(row).SectionType)));
      case 5:
        return ChoosePattern(row, AnyOf(PatternNames(Items.At(row).SectionType)));
      case 6:
        if (Items.UBound() < 40) DuplicateRow(row);
        return;
      case 7:
        if (Items.UBound() < 40) CreateOppHandRow(row);
        return;
      case 8:
        return DeleteItemRow(row);
      case 9:
        SortItemRows(static_cast<SortKey>(Random(1, 3)));
        return;
      case 10:
        return Change(ChangeKind::ConvertToCustom, row, [&] { ConvertHolesToCustom(row); });
      case 11:
        return Change(ChangeKind::AddHole, row, [&] {
          Hole hole;
          hole.Kind = CustomKind;
          hole.XPos = Int16(Random(0, 6000));
          hole.W1 = hole.W2 = "y";
          AppendCustomHole(row, hole);
        });
      case 12:
        return Change(ChangeKind::RemoveHole, row, [&] { DeleteCustomHoleRow(row, 1); });
      case 13:
        return StoreMitres(row, DecimalText(Random(-60, 60)), DecimalText(Random(-60, 60)));
      case 14: {
        Table<NotchTexts> notches;
        notches.Append(BlankNotch());
        SetNotchText(notches.At(1), 1, "T2");
        SetNotchText(notches.At(1), 2, DecimalText(Random(1, 40)));
        return StoreNotches(row, notches);
      }
      case 15: {
        TextRows rows;
        rows.Resize(1);
        rows.At(1).Resize(2);
        rows.At(1).At(1) = DecimalText(Random(1, 50));
        return StoreType1Lines(Int16(Random(1, AccType1Count)), rows);
      }
      case 16:
        return ClearAccessory(Int16(Random(1, AccType1Count)));
      default:
        EndStep();
        Change(ChangeKind::ProjectDetails, 0,
               [&] { txtProject.at(static_cast<std::size_t>(Random(0, 4))) = RandomText(); });
        return EndStep();
    }
  }

  // What the user merely looks at changes tables too.
  void Look() {
    if (Items.Empty()) return;
    if (Random(0, 9) > 0) return LookAt(RandomRow());
    Change(ChangeKind::Export, 0, [] {
      for (int row = 1; row <= Items.UBound(); ++row) {
        RebuildHoles(Int16(row), Items.At(row).PatternName);
      }
    });
  }

 private:
  std::string AnyOf(const Table<std::string>& texts) {
    return texts.Empty() ? std::string() : texts.At(Random(1, texts.UBound()));
  }

  std::mt19937 random_{GetParam()};
};

TEST_P(HistoryWalk, Every_state_before_and_behind_a_step_comes_back_byte_for_byte) {
  // Texts just before and just behind each step; what is worked out between two steps lies between
  // the one's and the next one's.
  std::vector<std::size_t> before;
  std::vector<std::size_t> behind;
  const std::hash<std::string> hash;
  for (int command = 0; command < 1500; ++command) {
    while (Random(0, 2) == 0) Look();
    const std::size_t text = hash(ProjectText());
    const int steps = StepsToUndo();
    try {
      Step();
    } catch (const std::exception&) {
      // What a refused command has changed until then is a step too.
    }
    if (StepsToUndo() == steps) {
      EXPECT_EQ(hash(ProjectText()), text) << "a command that is no step changed the job";
      continue;
    }
    ASSERT_EQ(StepsToUndo(), steps + 1);
    before.push_back(text);
    behind.push_back(hash(ProjectText()));
    // Some of them are taken back and done again on the way.
    if (Random(0, 9) > 0) continue;
    const int back = Random(1, std::min(12, StepsToUndo()));
    for (int step = 0; step < back; ++step) {
      Undo();
      if (Random(0, 3) == 0) Look();
    }
    for (int step = 0; step < back; ++step) Redo();
    ASSERT_EQ(hash(ProjectText()), behind.back());
    // So does the copy of the job that is made apart from the tables.
    ASSERT_EQ(TextOfState(StateNow()), ProjectText());
  }
  ASSERT_GT(before.size(), 1000U);
  ASSERT_EQ(StepsToUndo(), static_cast<int>(before.size()));
  for (std::size_t step = before.size(); step-- > 0;) {
    Undo();
    ASSERT_EQ(hash(ProjectText()), before[step]) << "before step " << step + 1;
    if (Random(0, 20) == 0) Look();
  }
  EXPECT_EQ(StepToUndo(), "");
  for (std::size_t step = 0; step < behind.size(); ++step) {
    Redo();
    ASSERT_EQ(hash(ProjectText()), behind[step]) << "behind step " << step + 1;
  }
  EXPECT_EQ(StepToRedo(), "");
}

INSTANTIATE_TEST_SUITE_P(Seeds, HistoryWalk, ::testing::Range(1U, 5U));

}  // namespace
}  // namespace orvane
