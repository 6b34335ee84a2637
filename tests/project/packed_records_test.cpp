#include "project/packed_records.h"

#include <cmath>
#include <limits>
#include <string>

#include "project/project_file.h"
#include "project/section_serial.h"
#include "tests/project/small_project.h"

namespace orvane {
namespace {

class PackedRecordsTest : public test::ProjectFileTest {};

// Section, packed and unpacked.
Item There(Item item) {
  return UnpackSection(PackSection(item));
}

TEST_F(PackedRecordsTest, Every_record_of_a_job_comes_back_as_it_was) {
  FillSmallProject();
  const std::string text = ProjectText();
  std::vector<Packed> sections;
  for (Item& item : Items) sections.push_back(PackSection(item));
  const Packed accessories = PackAccessories();
  const Packed details = PackDetails();

  FillEarlierProject();
  ASSERT_NE(ProjectText(), text);
  Items.Clear();
  for (const Packed& section : sections) Items.Append(UnpackSection(section));
  UnpackAccessories(accessories, OpenJobRecords());
  UnpackDetails(details, OpenJobRecords());
  EXPECT_EQ(ProjectText(), text);
}

TEST_F(PackedRecordsTest, A_section_keeps_its_serial_and_the_count_that_lags_behind) {
  test::AppendItem("P1").CustomHoleCount = 7;
  const std::int32_t serial = SerialOf(1);
  EXPECT_GT(serial, 0);
  EXPECT_EQ(There(Items.At(1)).Serial, serial);
  EXPECT_EQ(There(Items.At(1)).CustomHoleCount, 7);
}

TEST_F(PackedRecordsTest, Texts_of_any_length_come_back) {
  for (const std::string& text :
       {std::string(), std::string("n"), std::string("\0", 1), std::string("\x7F"),
        std::string("ü"), std::string("two\r\nlines"), std::string(126, 'x'), std::string(127, 'x'),
        std::string(128, 'x'), std::string(300000, 'x')}) {
    Item item;
    item.Notes = text;
    item.Mark = "P4";
    EXPECT_EQ(There(item).Notes, text) << text.size();
    EXPECT_EQ(There(item).Mark, "P4");
  }
}

TEST_F(PackedRecordsTest, Numbers_come_back_to_the_last_bit) {
  for (const int whole : {0, 1, 255, 256, -1, 32767, -32768}) {
    Item item;
    item.Length = static_cast<std::int16_t>(whole);
    EXPECT_EQ(There(item).Length, whole);
  }
  for (const double gap : {0.0, 0.1, 255.0, 255.5, 32767.0, 32768.0, -32769.0, 1e300, -1e-300,
                           std::numeric_limits<double>::infinity()}) {
    Item item;
    Hole hole;
    hole.RelX = gap;
    hole.Diameter = static_cast<float>(gap);
    item.Holes.Append(hole);
    EXPECT_EQ(There(item).Holes.At(1).RelX, gap);
    EXPECT_EQ(There(item).Holes.At(1).Diameter, static_cast<float>(gap));
  }
  Item item;
  item.MitreLeft = -0.0F;
  EXPECT_TRUE(std::signbit(There(item).MitreLeft));
}

TEST_F(PackedRecordsTest, A_section_of_twelve_holes_takes_some_hundred_bytes) {
  Item item;
  item.Mark = "P4";
  item.SectionType = "Z";
  item.Product = "Z20018";
  item.Length = 6000;
  for (int at = 1; at <= 12; ++at) {
    Hole hole;
    hole.XPos = static_cast<std::int16_t>(at * 450);
    hole.Kind = "S";
    hole.BF = hole.TF = "n";
    hole.W1 = hole.W2 = "y";
    hole.Diameter = 18;
    hole.RelX = hole.DrawGap = 450;
    hole.CounterSunk = " ";
    item.Holes.Append(hole);
  }
  EXPECT_LT(PackSection(item)->size(), 400U);
}

TEST_F(PackedRecordsTest, Two_packed_records_are_the_same_by_what_they_hold) {
  Item item;
  item.Mark = "P4";
  const Packed one = PackSection(item);
  EXPECT_TRUE(IsSame(one, PackSection(item)));
  item.Mark = "P5";
  EXPECT_FALSE(IsSame(one, PackSection(item)));
  EXPECT_FALSE(IsSame(one, nullptr));
  EXPECT_FALSE(IsSame(nullptr, one));
  EXPECT_TRUE(IsSame(nullptr, nullptr));
}

}  // namespace
}  // namespace orvane
