#include "project/changes.h"

#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "project/accessory_lines.h"
#include "project/rules/accessory_rules.h"
#include "project/rules/mitre_rules.h"
#include "project/rules/notch_rules.h"
#include "project/rules/section_details.h"
#include "project/sections.h"
#include "tests/support/fixture.h"

namespace orvane {
namespace {

using Log = std::vector<std::string>;

class ChangesTest : public test::SystemTest {
 protected:
  // What the follower was told since it was last asked: "before" or "after", the kind's name and
  // its row, "failed" for an action that raised an error.
  Log Told() {
    Log told;
    told.swap(log_);
    return told;
  }

  Log log_;
  const ChangeFollower follower_{
      [this](const ChangeNotice& change) { Add("after", change); },
      [this](const ChangeNotice& change) { Add("before", change); },
  };

 private:
  void Add(const std::string& when, const ChangeNotice& change) {
    log_.push_back(when + " " + std::string(RuleOf(change.Kind).Name) + " " +
                   DecimalText(change.Row) + (change.Failed ? " failed" : ""));
  }
};

void Fail() {
  throw RuntimeError(Failure::Overflow);
}

// The rules.

struct Expected {
  ChangeKind Kind;
  bool WhenDone;    // whether the flag is set by an action that goes well
  bool WhenFailed;  // and by one that raises an error
};

// Typed by hand from what the system states: the texts of the grid and of the pattern's list, the
// arrival in the list of accessories, the five commands that make something of nothing, the two
// that take steps back and do them again, and those on many sections at once. Not the details, not
// the dialogs, not the panel's other choices, not delete and sort by themselves.
constexpr Expected ExpectedFlags[] = {
    // clang-format off
    {ChangeKind::AddSection,           true,  false},
    {ChangeKind::Duplicate,            true,  false},
    {ChangeKind::OppositeHand,         true,  false},
    {ChangeKind::Delete,               false, false},
    {ChangeKind::Sort,                 false, false},
    {ChangeKind::Mark,                 true,  true},
    {ChangeKind::Product,              true,  true},
    {ChangeKind::Length,               true,  true},
    {ChangeKind::Quantity,             true,  true},
    {ChangeKind::Notes,                true,  true},
    {ChangeKind::Pattern,              true,  true},
    {ChangeKind::SamePattern,          false, false},
    {ChangeKind::NoPattern,            false, false},
    {ChangeKind::ConvertToCustom,      true,  false},
    {ChangeKind::SagBars,              false, false},
    {ChangeKind::Pitch,                false, false},
    {ChangeKind::JointingPieces,       false, false},
    {ChangeKind::AddHole,              false, false},
    {ChangeKind::EditHole,             false, false},
    {ChangeKind::RemoveHole,           false, false},
    {ChangeKind::Mitres,               false, false},
    {ChangeKind::Notches,              false, false},
    {ChangeKind::EditAccessory,        true,  false},
    {ChangeKind::ClearAccessory,       true,  false},
    {ChangeKind::ProjectDetails,       false, false},
    {ChangeKind::NewProject,           false, false},
    {ChangeKind::OpenProject,          false, false},
    {ChangeKind::Registration,         false, false},
    {ChangeKind::MaxDims,              false, false},
    {ChangeKind::GridTexts,            true,  false},
    {ChangeKind::PatternText,          true,  false},
    {ChangeKind::AccessoryListEntered, true,  false},
    {ChangeKind::ProjectReplaced,      true,  false},
    {ChangeKind::Undo,                 true,  false},
    {ChangeKind::Redo,                 true,  false},
    {ChangeKind::NextSection,          true,  false},
    {ChangeKind::DeleteSections,       true,  false},
    {ChangeKind::DuplicateSections,    true,  false},
    {ChangeKind::OppositeHandSections, true,  false},
    {ChangeKind::ConvertSections,      true,  false},
    {ChangeKind::PasteSections,        true,  false},
    {ChangeKind::CutSections,          true,  false},
    {ChangeKind::ImportSections,       true,  false},
    {ChangeKind::FillSections,         true,  false},
    {ChangeKind::ChangeSections,       true,  false},
    {ChangeKind::ShowSection,          false, false},
    {ChangeKind::PrintAll,             false, false},
    {ChangeKind::Export,               false, false},
    // clang-format on
};

TEST_F(ChangesTest, Each_kind_sets_the_flag_or_leaves_it) {
  ASSERT_EQ(std::size(ExpectedFlags), ChangeKinds);
  for (const Expected& expected : ExpectedFlags) {
    SCOPED_TRACE(std::string(RuleOf(expected.Kind).Name));
    ProjectDirty = False;
    Change(expected.Kind, 1);
    EXPECT_EQ(ProjectDirty, ToBoolean(expected.WhenDone));
    ProjectDirty = False;
    EXPECT_EQ(test::ErrorOf([&] { Change(expected.Kind, 1, Fail); }), "Overflow");
    EXPECT_EQ(ProjectDirty, ToBoolean(expected.WhenFailed));
    ProjectDirty = True;
    Change(expected.Kind, 1);
    EXPECT_EQ(ProjectDirty, True) << "no change clears it";
  }
}

TEST_F(ChangesTest, Each_kind_has_a_name_for_people) {
  for (const ChangeRule& rule : ChangeRules) {
    EXPECT_FALSE(rule.Name.empty());
    EXPECT_EQ(&RuleOf(rule.Kind), &rule);
  }
}

TEST_F(ChangesTest, A_look_never_sets_the_flag_and_only_a_section_is_drawn) {
  for (const ChangeRule& rule : ChangeRules) {
    SCOPED_TRACE(std::string(rule.Name));
    EXPECT_TRUE(rule.By == ChangeBy::User || rule.Dirty == Dirties::No);
    EXPECT_TRUE(!rule.Redraws || rule.Subject == ChangeSubject::Section);
  }
}

// Telling.

TEST_F(ChangesTest, A_follower_is_told_once_before_and_once_when_it_is_over) {
  Change(ChangeKind::Pitch, 3, [&] {
    EXPECT_TRUE(IsChanging());
    EXPECT_EQ(Told(), Log{"before Pitch 3"});
  });
  EXPECT_FALSE(IsChanging());
  EXPECT_EQ(Told(), Log{"after Pitch 3"});
}

TEST_F(ChangesTest, Changes_inside_another_belong_to_it_and_their_own_rule_decides_about_the_flag) {
  Change(ChangeKind::SagBars, 2, [&] {
    Change(ChangeKind::Notes, 2, [] { EXPECT_EQ(ProjectDirty, False); });
    EXPECT_EQ(ProjectDirty, True);
    Change(ChangeKind::Pitch, 4);
    EXPECT_TRUE(IsChanging());
  });
  EXPECT_EQ(Told(), (Log{"before Sag bars 2", "after Sag bars 2"}));
  EXPECT_EQ(ProjectDirty, True);
}

TEST_F(ChangesTest, After_an_error_the_state_stays_and_everybody_is_told) {
  Items.Append({});
  EXPECT_EQ(test::ErrorOf([] {
              Change(ChangeKind::Mark, 1, [] {
                Items.At(1).Mark = "A1";
                Fail();
              });
            }),
            "Overflow");
  EXPECT_EQ(Items.At(1).Mark, "A1");
  EXPECT_EQ(Told(), (Log{"before Mark 1", "after Mark 1 failed"}));
  EXPECT_FALSE(IsChanging());
}

TEST_F(ChangesTest, An_error_of_a_change_inside_another_may_be_dealt_with_there) {
  Change(ChangeKind::Pattern, 1,
         [] { EXPECT_FALSE(Tell([] { Change(ChangeKind::Pitch, 1, Fail); })); });
  EXPECT_EQ(Told(), (Log{"before Pattern 1", "after Pattern 1"}));
  EXPECT_FALSE(IsChanging());
}

TEST_F(ChangesTest, The_state_before_a_change_is_there_to_be_taken_and_the_flag_is_set_when_told) {
  Items.Append({});
  Items.At(1).Mark = "old";
  std::string former, latter;
  Boolean flag = False;
  const ChangeFollower history(
      [&](const ChangeNotice&) {
        latter = Items.At(1).Mark;
        flag = ProjectDirty;
      },
      [&](const ChangeNotice&) { former = Items.At(1).Mark; });
  Change(ChangeKind::Mark, 1, [] { Items.At(1).Mark = "new"; });
  EXPECT_EQ(former, "old");
  EXPECT_EQ(latter, "new");
  EXPECT_EQ(flag, True);
}

TEST_F(ChangesTest, What_fails_before_a_change_keeps_it_from_being_made) {
  const ChangeFollower refusing(nullptr, [](const ChangeNotice&) { Fail(); });
  bool ran = false;
  EXPECT_EQ(test::ErrorOf([&] { Change(ChangeKind::Mark, 1, [&] { ran = true; }); }), "Overflow");
  EXPECT_FALSE(ran);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Told(), Log{"before Mark 1"});
  EXPECT_FALSE(IsChanging());
}

TEST_F(ChangesTest, An_error_of_one_who_follows_reaches_the_caller_when_all_were_told) {
  Log order;
  const ChangeFollower first([&](const ChangeNotice&) {
    order.push_back("first");
    throw std::runtime_error("first failed");
  });
  const ChangeFollower second([&](const ChangeNotice&) {
    order.push_back("second");
    throw std::runtime_error("second failed");
  });
  std::string error;
  try {
    Change(ChangeKind::Mark, 1);
  } catch (const std::runtime_error& raised) {
    error = raised.what();
  }
  EXPECT_EQ(error, "first failed");
  EXPECT_EQ(order, (Log{"first", "second"}));
  EXPECT_EQ(ProjectDirty, True);
  // The action's own error comes before theirs.
  EXPECT_EQ(test::ErrorOf([] { Change(ChangeKind::Mark, 1, Fail); }), "Overflow");
}

TEST_F(ChangesTest, Who_has_gone_is_told_no_more_even_while_the_others_are_told) {
  auto going = std::make_unique<ChangeFollower>([](const ChangeNotice&) { FAIL(); });
  const ChangeFollower remover([&](const ChangeNotice&) { going.reset(); });
  // Made behind the remover, so that its turn comes when it has gone.
  int told = 0;
  auto late = std::make_unique<ChangeFollower>([&](const ChangeNotice&) { ++told; });
  const ChangeFollower last([&](const ChangeNotice&) { ++told; });
  going.reset();
  Change(ChangeKind::Pitch, 1);
  EXPECT_EQ(told, 2);
  going = std::make_unique<ChangeFollower>([](const ChangeNotice&) { FAIL(); });
  Change(ChangeKind::Pitch, 1);
  EXPECT_EQ(told, 4);
  late.reset();
  Change(ChangeKind::Pitch, 1);
  EXPECT_EQ(told, 5);
}

TEST_F(ChangesTest, A_change_that_a_follower_makes_is_one_of_its_own) {
  bool answered = false;
  const ChangeFollower answering([&](const ChangeNotice& change) {
    if (change.Kind != ChangeKind::Pitch) return;
    EXPECT_FALSE(IsChanging());
    answered = true;
    Change(ChangeKind::Notes, 2);
  });
  Change(ChangeKind::Pitch, 1);
  EXPECT_TRUE(answered);
  EXPECT_EQ(Told(), (Log{"before Pitch 1", "after Pitch 1", "before Notes 2", "after Notes 2"}));
}

// The table halves pass the gate.

TEST_F(ChangesTest, What_happens_to_the_list_of_sections_is_told_by_kind_and_row) {
  AddSectionRow("Z");
  EXPECT_EQ(Told(), (Log{"before Add section 1", "after Add section 1"}));
  DuplicateRow(1);
  EXPECT_EQ(Told(), (Log{"before Duplicate 2", "after Duplicate 2"}));
  CreateOppHandRow(2);
  EXPECT_EQ(Told(), (Log{"before Opposite hand 3", "after Opposite hand 3"}));
  SortItemRows(SortKey::Mark);
  EXPECT_EQ(Told(), (Log{"before Sort 0", "after Sort 0"}));
  DeleteItemRow(2);
  EXPECT_EQ(Told(), (Log{"before Delete 2", "after Delete 2"}));
  DuplicateRow(0);
  CreateOppHandRow(-1);
  EXPECT_EQ(Told(), Log{});
}

TEST_F(ChangesTest, What_happens_to_a_section_is_told_by_kind_and_row) {
  Items.Append({});
  Items.Append({});
  SetSagBars(2, 1);
  EXPECT_EQ(Told(), (Log{"before Sag bars 2", "after Sag bars 2"}));
  SetPitch(2, "15");
  EXPECT_EQ(Told(), (Log{"before Pitch 2", "after Pitch 2"}));
  SetJointingPieces(1, "4");
  EXPECT_EQ(Told(), (Log{"before Jointing pieces 1", "after Jointing pieces 1"}));
  StoreMitres(1, "10", "20");
  EXPECT_EQ(Told(), (Log{"before Mitres 1", "after Mitres 1"}));
  StoreNotches(1, {});
  EXPECT_EQ(Told(), (Log{"before Notches 1", "after Notches 1"}));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(ChangesTest, A_number_that_is_refused_changes_nothing_and_nobody_is_told) {
  Items.Append({});
  EXPECT_EQ(test::ErrorOf([] { SetJointingPieces(1, "32768"); }), "Overflow");
  EXPECT_EQ(test::ErrorOf([] { StoreMitres(1, "10", "1e39"); }), "Overflow");
  SetPitch(0, "15");
  SetSagBars(0, 1);
  EXPECT_EQ(Told(), Log{});
}

TEST_F(ChangesTest, Accessories_are_told_by_their_row_and_set_the_flag) {
  AccDefs.Append({});
  AccDefs.Append({});
  AccType1Count = 1;
  AccType2Count = 1;
  AccUsed.Resize(2);
  TextRows rows;
  rows.Append({}).Append("3");
  StoreType1Lines(1, rows);
  EXPECT_EQ(Told(), (Log{"before Accessory 1", "after Accessory 1"}));
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(AccUsed.At(1), True);
  ASSERT_EQ(AccLines1.UBound(), 1);
  AccLines2.Append({});
  AccLines2.At(1).AccIndex = 2;

  ProjectDirty = False;
  ClearAccessory(1);
  EXPECT_EQ(Told(), (Log{"before Clear accessory 1", "after Clear accessory 1"}));
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccLines2.UBound(), 1);
  EXPECT_EQ(AccUsed.At(1), False);
  ClearAccessory(2);
  EXPECT_EQ(AccLines2.UBound(), 0);
}

}  // namespace
}  // namespace orvane
