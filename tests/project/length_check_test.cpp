#include "project/length_check.h"

#include <string>

#include "core/model.h"
#include "tests/support/fixture.h"

namespace orvane {

namespace {

class LengthCheckTest : public test::SystemTest {
 protected:
  static void AddHole(Item& item, std::int16_t x) {
    Hole hole;
    hole.XPos = x;
    item.Holes.Append(hole);
  }
};

TEST_F(LengthCheckTest, Sections_that_hold_their_holes_raise_no_question) {
  EXPECT_TRUE(CheckLength());
  test::AppendItem("no holes", "Z", -1);
  AddHole(test::AppendItem("at the end", "Z", 3000), 3000);
  Items.At(2).Holes.At(0).XPos = 9000;  // the end sentinel is no hole
  EXPECT_TRUE(CheckLength());
  EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(LengthCheckTest, A_section_shorter_than_its_last_hole_asks_whether_to_quit) {
  Item& item = test::AppendItem("P1", "Z", 2000);
  AddHole(item, 2001);
  AddHole(item, 100);  // the greatest counts, wherever it stands
  desktop.Answers = {Answer::Yes, Answer::No};
  EXPECT_TRUE(CheckLength());
  EXPECT_FALSE(CheckLength());
  ASSERT_EQ(desktop.Boxes.size(), 2U);
  for (const test::ShownBox& box : desktop.Boxes) {
    EXPECT_EQ(box.Text, "P1 : Z-product Length shorter than last hole position \rQuit anyway?");
    EXPECT_EQ(box.Title, "Warning");
    EXPECT_EQ(box.Choice, Buttons::YesNo);
    EXPECT_EQ(box.Sign, Icon::None);
  }
}

TEST_F(LengthCheckTest, Of_several_short_sections_only_the_last_is_told) {
  AddHole(test::AppendItem("P1", "Z", 2000), 2900);
  AddHole(test::AppendItem("P2", "C", 2000), 2001);
  AddHole(test::AppendItem("P3", "Z", 2000), 2000);
  desktop.Answers = {Answer::Yes};
  EXPECT_TRUE(CheckLength());
  ASSERT_EQ(desktop.Boxes.size(), 1U);
  EXPECT_EQ(desktop.Boxes.front().Text,
            "P2 : C-product Length shorter than last hole position \rQuit anyway?");
}

TEST_F(LengthCheckTest, Positions_below_0_are_compared_as_they_are) {
  AddHole(test::AppendItem("P1", "Z", -10), -20);
  EXPECT_TRUE(CheckLength());
  AddHole(test::AppendItem("P2", "Z", -10), -9);
  desktop.Answers = {Answer::No};
  EXPECT_FALSE(CheckLength());
}

}  // namespace

}  // namespace orvane
