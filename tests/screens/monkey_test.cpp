// A monkey at the keyboard: seeded random keys, clicks and commands on every screen and in every
// dialog, with the invariants of the model looked at after each.
#include <QListWidget>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>

#include "core/settings.h"
#include "project/rules/mitre_rules.h"
#include "project/rules/notch_rules.h"
#include "tests/screens/monkey_fixture.h"

namespace orvane::test {

namespace {

// A hole by all that the dialogs give it: the gaps follow from the others.
using HoleRecord = std::tuple<int, std::string, std::string, std::string, std::string, std::string,
                              float, float, std::string>;

std::vector<HoleRecord> RecordsOf(int row) {
  std::vector<HoleRecord> records;
  if (row < 1 || row > Items.UBound()) return records;
  for (const Hole& hole : Items.At(row).Holes) {
    records.emplace_back(hole.XPos, hole.Kind, hole.BF, hole.W1, hole.W2, hole.TF, hole.Diameter,
                         hole.SlotLength, hole.CounterSunk);
  }
  std::sort(records.begin(), records.end());
  return records;
}

class ScreensMonkey : public MonkeyTest {
 protected:
  // What must hold after every event, in a dialog too.
  void CheckSection(int row) {
    const FlexGrid& grid = Sections();
    const Item& item = Items.At(row);
    ASSERT_EQ(grid.TextMatrix(row, 0), item.SectionType);
    ASSERT_EQ(grid.TextMatrix(row, 1), item.Mark);
    ASSERT_EQ(grid.TextMatrix(row, 2), item.Product);
    ASSERT_EQ(Val(grid.TextMatrix(row, 3)) == item.Length, true) << grid.TextMatrix(row, 3);
    ASSERT_EQ(Val(grid.TextMatrix(row, 4)) == item.Quantity, true) << grid.TextMatrix(row, 4);
    ASSERT_EQ(grid.TextMatrix(row, 5), item.Notes);
    int custom = 0;
    for (int hole = 1; hole <= item.HoleCount(); ++hole) {
      if (item.Holes.At(hole).Kind == CustomKind) ++custom;
      if (hole > 1) {
        ASSERT_LE(item.Holes.At(hole - 1).XPos, item.Holes.At(hole).XPos);
      }
    }
    ASSERT_EQ(custom, item.CustomHoleCount);
    CheckEnds(item);
  }

  // Notches and mitres that no dialog refuses.
  static void CheckEnds(const Item& item) {
    for (const Notch& notch : item.Notches) {
      ASSERT_NE(std::find(NotchCodes.begin(), NotchCodes.end(), notch.Code), NotchCodes.end())
          << notch.Code;
      for (const float size : {notch.Size1, notch.Size2, notch.Size3}) {
        ASSERT_TRUE(std::isfinite(size));
      }
    }
    for (const float angle : {item.MitreLeft, item.MitreRight}) {
      ASSERT_LE(std::abs(angle), MaxMitre);
      // One decimal place, and no zero with a sign.
      ASSERT_NEAR(angle * 10, std::round(angle * 10), 1e-3);
      ASSERT_FALSE(angle == 0 && std::signbit(angle));
    }
  }

  static void CheckAccessories() {
    std::vector<bool> used(static_cast<std::size_t>(AccDefs.UBound()) + 1, false);
    for (int at = 1; at <= AccLines1.UBound(); ++at) {
      const AccLine1& line = AccLines1.At(at);
      ASSERT_GE(line.AccIndex, 1);
      ASSERT_LE(line.AccIndex, AccType1Count);
      ASSERT_GE(line.ParamIndex, 1);
      ASSERT_LE(line.ParamIndex, AccDefs.At(line.AccIndex).ParamCount());
      ASSERT_GT(line.Qty, 0);
      used.at(static_cast<std::size_t>(line.AccIndex)) = true;
      if (at == 1) continue;
      const AccLine1& before = AccLines1.At(at - 1);
      ASSERT_LT(std::tie(before.AccIndex, before.ParamIndex),
                std::tie(line.AccIndex, line.ParamIndex));
    }
    for (int at = 1; at <= AccLines2.UBound(); ++at) {
      const AccLine2& line = AccLines2.At(at);
      ASSERT_GT(line.AccIndex, AccType1Count);
      ASSERT_LE(line.AccIndex, AccDefs.UBound());
      ASSERT_NE(line.Mark, "");
      ASSERT_EQ(line.ValueCount(), AccDefs.At(line.AccIndex).ParamCount() - 2);
      used.at(static_cast<std::size_t>(line.AccIndex)) = true;
      if (at == 1) continue;
      const AccLine2& before = AccLines2.At(at - 1);
      ASSERT_LE(std::tie(before.AccIndex, before.Mark), std::tie(line.AccIndex, line.Mark));
    }
    ASSERT_EQ(AccUsed.UBound(), AccDefs.UBound());
    for (int index = 1; index <= AccUsed.UBound(); ++index) {
      ASSERT_EQ(AccUsed.At(index) != False, used.at(static_cast<std::size_t>(index))) << index;
    }
  }

  void CheckModel() {
    ASSERT_EQ(Sections().Rows(), Items.UBound() + 1);
    ASSERT_LE(CurrentItem, Items.UBound());
    ASSERT_LE(Sections().Row(), Items.UBound());
    for (int row = 1; row <= Items.UBound(); ++row) {
      ASSERT_NO_FATAL_FAILURE(CheckSection(row)) << "section " << row;
    }
    ASSERT_NO_FATAL_FAILURE(CheckAccessories());
    ASSERT_EQ(Find<QListWidget>("lstAccessories").count(), AccDefs.UBound());
  }

  // What must hold besides when no dialog is open.
  void CheckMain() {
    const FlexGrid& grid = Sections();
    if (CurrentItem > 0) {
      ASSERT_EQ(grid.Model().GreyRow(), CurrentItem);
    }
    if (Focus() == "txtEdit" || Focus() == "cboEdit") {
      const std::string panel = Focus() == "txtEdit" ? "sspEditText" : "sspEditCombo";
      ASSERT_EQ(Find(panel).geometry(), grid.CellRect(grid.Row(), grid.Col()));
    }
    ASSERT_NO_FATAL_FAILURE(CheckHoleList());
    const auto& list = Find<QListWidget>("lstAccessories");
    for (int index = 1; index <= AccUsed.UBound(); ++index) {
      const std::string mark = FromQt(list.item(index - 1)->text().left(2));
      ASSERT_EQ(mark, AccUsed.At(index) != False ? "* " : "  ") << index;
    }
  }

  // The hole list shows the custom holes of the section under the cursor.
  void CheckHoleList() {
    const auto& list = Find<FlexGrid>("MSFlexGrid2");
    if (!list.isVisible() || CurrentItem < 1) return;
    const Item& item = Items.At(CurrentItem);
    ASSERT_EQ(list.Rows(), item.CustomHoleCount + 1);
    int row = 0;
    for (const Hole& hole : item.Holes) {
      if (hole.Kind != CustomKind) continue;
      ++row;
      ASSERT_EQ(list.TextMatrix(row, 0), ShortestText(hole.XPos));
      ASSERT_EQ(list.TextMatrix(row, 2), hole.BF);
      ASSERT_EQ(list.TextMatrix(row, 5), hole.TF);
    }
  }

  // A hole that the dialog has just stored keeps clear of the ends, as its diameter wants it.
  void CheckStoredHoles(int row) {
    const std::vector<HoleRecord> now = RecordsOf(row);
    std::vector<HoleRecord> stored;
    std::set_difference(now.begin(), now.end(), holes_.begin(), holes_.end(),
                        std::back_inserter(stored));
    ASSERT_LE(stored.size(), 1U);
    ASSERT_LE(now.size(), holes_.size() + 1);
    for (const auto& [x, kind, bf, w1, w2, tf, diameter, slot, sunk] : stored) {
      ASSERT_EQ(kind, CustomKind);
      ASSERT_TRUE(diameter == 14 || diameter == 18) << diameter;
      const int edge = diameter == 14 ? 18 : 24;
      ASSERT_GE(x, edge);
      ASSERT_GE(Items.At(row).Length - x, edge);
      ASSERT_GE(slot, 0);
      // A slot can't be countersunk.
      ASSERT_TRUE(sunk.empty() || (sunk == "*" && slot == 0)) << sunk;
      ++storedHoles_;
    }
  }

  void Note() {
    linesStored_ = linesStored_ || (AccLines1.UBound() > 0 && AccLines2.UBound() > 0);
    for (const Item& item : Items) {
      notchesStored_ = notchesStored_ || item.NotchCount() > 0;
      mitreStored_ = mitreStored_ || item.MitreLeft != 0 || item.MitreRight != 0;
    }
  }

  void CheckAfter(QDialog* dialog) {
    ASSERT_NO_FATAL_FAILURE(CheckModel());
    const int row = Sections().Row();
    if (dialog == nullptr) {
      ASSERT_NO_FATAL_FAILURE(CheckMain());
    } else if (dialog == lastDialog_ && dialog->objectName() == "frmAddHoles") {
      ASSERT_NO_FATAL_FAILURE(CheckStoredHoles(row));
    }
    Note();
    holes_ = RecordsOf(row);
    lastDialog_ = dialog;
  }

  // The dialog that the monkey hasn't been in yet, or what it hasn't brought about.
  std::string Unseen() const {
    for (const char* name :
         {"frmAddHoles", "frmNotches", "frmMitres", "frmAcc01", "frmAcc02", "frmPreview"}) {
      if (EventsInside().count(name) == 0) return name;
    }
    if (storedHoles_ == 0) return "a hole stored";
    if (!notchesStored_) return "a notch stored";
    if (!mitreStored_) return "a mitre stored";
    return linesStored_ ? "" : "an accessory's line stored";
  }

 private:
  int storedHoles_ = 0;
  bool notchesStored_ = false;
  bool mitreStored_ = false;
  bool linesStored_ = false;
  // After the last event: the holes of the section under the cursor, and where it happened.
  std::vector<HoleRecord> holes_;
  QDialog* lastDialog_ = nullptr;
};

TEST_F(ScreensMonkey, Random_keys_clicks_and_commands_leave_the_model_in_order) {
  RunEvents(
      EventsWanted(), [this] { return Unseen().empty(); },
      [this](QDialog* dialog) { CheckAfter(dialog); });
  if (!HasFatalFailure()) {
    EXPECT_EQ(Unseen(), "");
  }
}

}  // namespace

}  // namespace orvane::test
