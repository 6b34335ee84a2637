#include "core/model.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "tests/support/fixture.h"

namespace {

using namespace orvane;

class Model : public orvane::test::SystemTest {};

// The width of every number that is stored in a file or limits what can be entered.
template <class Field>
constexpr bool Is16Bit = std::is_same_v<Field, std::int16_t>;
template <class Field>
constexpr bool Is32BitFloat = std::is_same_v<Field, float>;
template <class Field>
constexpr bool Is64BitFloat = std::is_same_v<Field, double>;

static_assert(Is16Bit<decltype(Item::Length)> && Is16Bit<decltype(Item::Quantity)> &&
              Is16Bit<decltype(Item().HoleCount())> && Is16Bit<decltype(Item().NotchCount())> &&
              Is16Bit<decltype(Item::CustomHoleCount)> && Is16Bit<decltype(Item::JointingPieces)> &&
              Is16Bit<decltype(Item::SagBarDia)>);
static_assert(Is32BitFloat<decltype(Item::MitreLeft)> && Is32BitFloat<decltype(Item::MitreRight)>);
static_assert(Is16Bit<decltype(Hole::XPos)> && Is32BitFloat<decltype(Hole::Diameter)> &&
              Is32BitFloat<decltype(Hole::SlotLength)> && Is64BitFloat<decltype(Hole::RelX)> &&
              Is64BitFloat<decltype(Hole::DrawGap)>);
static_assert(Is32BitFloat<decltype(Notch::Size1)> && Is32BitFloat<decltype(Notch::Size2)> &&
              Is32BitFloat<decltype(Notch::Size3)>);
static_assert(Is16Bit<decltype(AccLine1::AccIndex)> && Is16Bit<decltype(AccLine1::ParamIndex)> &&
              Is16Bit<decltype(AccLine1::Qty)> && Is16Bit<decltype(AccLine1::Param)>);
static_assert(Is16Bit<decltype(AccLine2::AccIndex)> && Is16Bit<decltype(AccLine2::NoOff)> &&
              Is16Bit<decltype(AccLine2().ValueCount())>);
static_assert(Is64BitFloat<decltype(SectionDim::Dim3)> &&
              Is64BitFloat<decltype(SectionDim::Dim14)>);
static_assert(Is16Bit<decltype(PunchPattern::HasSagBars)> &&
              Is16Bit<decltype(PunchPattern::Starred)> && Is16Bit<decltype(AccDef::Flag)> &&
              Is16Bit<decltype(AccDef::IsType1)> && Is16Bit<decltype(AccDef::HasParamColumn)>);
static_assert(Is16Bit<decltype(AccDef::Value1)> && Is16Bit<decltype(AccDef().ParamCount())> &&
              Is16Bit<decltype(AccGroup::FirstParam)> && Is16Bit<decltype(AccGroup::GroupValue)> &&
              Is16Bit<decltype(AccParamOptions().OptionCount())>);
static_assert(Is16Bit<decltype(LeftMargin)> && Is16Bit<decltype(BottomMargin)> &&
              Is16Bit<decltype(CurrentItem)> && Is16Bit<decltype(CurrentAcc)> &&
              Is16Bit<decltype(ProjectDirty)> && Is16Bit<decltype(DrawingWidth)> &&
              Is16Bit<decltype(HoleDialogMode)> && Is64BitFloat<decltype(MinHoleSep)>);

void ExpectFresh() {
  EXPECT_EQ(Items.UBound(), 0);
  EXPECT_EQ(Items.At(0).Mark, "");
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccLines2.UBound(), 0);
  EXPECT_EQ(AccUsed.UBound(), 0);
  for (const std::string& text : txtProject) EXPECT_EQ(text, "");
  EXPECT_EQ(DTPicker1, Date{});
  EXPECT_EQ(CompanyName, "");
  EXPECT_EQ(CompanyDetails, "");
  EXPECT_EQ(LeftMargin, 0);
  EXPECT_EQ(RightMargin, 0);
  EXPECT_EQ(TopMargin, 0);
  EXPECT_EQ(BottomMargin, 0);
  EXPECT_EQ(MinHoleSep, 0);
  ASSERT_EQ(MaxDims.UBound(), 6);
  for (const double length : MaxDims) EXPECT_EQ(length, 0);
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_EQ(CurrentAcc, 0);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(DrawingWidth, 0);
  EXPECT_EQ(HoleDialogMode, 0);
  EXPECT_EQ(AccDialogResult, "");
  EXPECT_EQ(SectionDims.UBound(), 0);
  EXPECT_EQ(PunchPatterns.UBound(), 0);
  EXPECT_EQ(AccDefs.UBound(), 0);
  EXPECT_EQ(AccType1Count, 0);
  EXPECT_EQ(AccType2Count, 0);
}

TEST_F(Model, A_fresh_model_has_empty_tables_with_a_blank_element_0) {
  ExpectFresh();
}

TEST_F(Model, ResetModel_takes_everything_back_to_the_start) {
  Items.At(0).Mark = "x";
  Items.Append({});
  AccLines1.Append({});
  AccLines2.Append({});
  AccUsed.Append(True);
  txtProject = {"1", "2", "3", "4", "5"};
  DTPicker1 = {2024, 3, 5};
  CompanyName = CompanyDetails = ProjectFileName = AccDialogResult = "x";
  LeftMargin = RightMargin = TopMargin = BottomMargin = 7;
  MinHoleSep = 7;
  MaxDims.At(6) = 7;
  MaxDims.Append(7);
  CurrentItem = CurrentAcc = DrawingWidth = HoleDialogMode = 7;
  ProjectDirty = True;
  SectionDims.Append({});
  PunchPatterns.Append({});
  AccDefs.Append({});
  AccType1Count = AccType2Count = 7;
  ResetModel();
  ExpectFresh();
}

TEST_F(Model, A_count_is_that_of_its_table_and_overflows_beyond_16_bits) {
  Item item;
  item.Holes.At(0).XPos = 6000;  // element 0 is no row
  EXPECT_EQ(item.HoleCount(), 0);
  item.Holes.Resize(2);
  item.Notches.Resize(3);
  EXPECT_EQ(item.HoleCount(), 2);
  EXPECT_EQ(item.NotchCount(), 3);
  AccLine2 line;
  line.Values.Resize(4);
  EXPECT_EQ(line.ValueCount(), 4);
  AccDef accessory;
  accessory.ParamNames.Resize(5);
  EXPECT_EQ(accessory.ParamCount(), 5);
  AccParamOptions options;
  options.OptionTexts.Resize(6);
  EXPECT_EQ(options.OptionCount(), 6);

  item.Notches.Resize(32767);
  EXPECT_EQ(item.NotchCount(), 32767);
  item.Notches.Resize(32768);
  EXPECT_EQ(orvane::test::ErrorOf([&] { item.NotchCount(); }), "Overflow");
}

TEST_F(Model, A_blank_item_has_hole_and_notch_tables_with_element_0_only) {
  const Item item;
  EXPECT_EQ(item.HoleCount(), 0);
  EXPECT_EQ(item.Holes.UBound(), 0);
  EXPECT_EQ(item.Holes.At(0).Kind, "");
  EXPECT_EQ(item.Holes.At(0).XPos, 0);
  EXPECT_EQ(item.NotchCount(), 0);
  EXPECT_EQ(item.Notches.UBound(), 0);
  EXPECT_EQ(item.DateText, "");
}

TEST_F(Model, A_copied_item_owns_its_texts_holes_and_notches) {
  Item item;
  item.Mark = "P1";
  Hole hole;
  hole.XPos = 100;
  item.Holes.Append(hole);
  item.Notches.Append({"TL1", 1, 2, 3});
  Items.Append(item);

  Item copy = Items.At(1);
  copy.Mark = "P2";
  copy.Holes.At(0).XPos = 5;
  copy.Holes.At(1).XPos = 200;
  copy.Holes.Append({});
  copy.Notches.At(1).Code = "BR1";
  Items.Append(copy);

  EXPECT_EQ(Items.At(1).Mark, "P1");
  EXPECT_EQ(Items.At(1).Holes.UBound(), 1);
  EXPECT_EQ(Items.At(1).Holes.At(0).XPos, 0);
  EXPECT_EQ(Items.At(1).Holes.At(1).XPos, 100);
  EXPECT_EQ(Items.At(1).Notches.At(1).Code, "TL1");
  EXPECT_EQ(Items.At(2).Holes.At(1).XPos, 200);
}

TEST_F(Model, A_copied_accessory_line_owns_its_values) {
  AccLine2 line;
  line.Values.Append("one");
  AccLines2.Append(line);
  AccLines2.Append(AccLines2.At(1));
  AccLines2.At(2).Values.At(1) = "two";
  EXPECT_EQ(AccLines2.At(1).Values.At(1), "one");
}

TEST_F(Model, Texts_have_no_limit) {
  Items.Append({});
  Items.At(1).Notes = std::string(100000, 'x');
  const Item copy = Items.At(1);
  EXPECT_EQ(copy.Notes.size(), 100000U);
}

TEST_F(Model, Pi_has_fifteen_digits) {
  EXPECT_EQ(Pi, 3.14159265358979);
  EXPECT_EQ(HalfPi, 3.14159265358979 / 2);
  EXPECT_EQ(ThreeHalfPi, 3 * 3.14159265358979 / 2);
}

}  // namespace
