// Files that are cut, damaged or made to do harm.
#include <cmath>
#include <ctime>

#include "drawing/metafile.h"
#include "tests/drawing/metafile_writer.h"
#include "tests/drawing/page_fixture.h"

namespace orvane::test {
namespace {

enum Function {
  SaveState = 0x001E,
  RestoreState = 0x0127,
  SetWindowExtents = 0x020C,
  IntersectClip = 0x0416,
  CreateBrush = 0x02FC,
  SelectObject = 0x012D,
  LineTo = 0x0213,
  Polyline = 0x0325,
  Polygon = 0x0324,
  PolyPolygon = 0x0538,
  Rectangle = 0x041B,
  Ellipse = 0x0418,
  TextOut = 0x0521,
  ExtendedText = 0x0A32,
};

const std::string Cut = "Input past end of file";
const std::string Bad = "Invalid picture";
const std::string Large = "Picture too large";

std::string ErrorOfReading(const std::string& bytes) {
  return ErrorOf([&] { ReadMetafile(bytes); });
}

std::string ErrorOfReading(const MetafileWriter& file) {
  return ErrorOfReading(file.Placeable());
}

TEST(DamagedMetafile, A_file_cut_anywhere_is_refused) {
  MetafileWriter file;
  file.Record(SetWindowExtents, {500, 1000}).Record(Polygon, {3, 0, 0, 10, 0, 10, 20});
  file.Font(0, -100, 0, 400, false, "Arial").Text("abc", 1, 2).Record(SaveState, {});
  for (const std::string& whole : {file.Placeable(), file.Plain()}) {
    EXPECT_FALSE(ReadMetafile(whole).Shapes.empty());
    for (std::size_t length = 0; length < whole.size(); ++length) {
      EXPECT_EQ(ErrorOfReading(whole.substr(0, length)), Cut) << length;
    }
    // What follows the end is not looked at.
    EXPECT_EQ(ReadMetafile(whole + "more").Shapes.size(), 2U);
  }
}

TEST(DamagedMetafile, What_is_no_metafile_is_refused) {
  const std::string plain = MetafileWriter().Record(SetWindowExtents, {1, 1}).Plain();
  EXPECT_EQ(ErrorOfReading(std::string(100, 'x')), Bad);
  EXPECT_EQ(ErrorOfReading(std::string(100, '\0')), Bad);
  // Type, size of the header, version.
  for (const std::size_t at : {0U, 2U, 4U}) {
    std::string bytes = plain;
    bytes[at] = 7;
    EXPECT_EQ(ErrorOfReading(bytes), Bad) << at;
  }
  // Without any extents a plain one has no size.
  EXPECT_EQ(ErrorOfReading(MetafileWriter().Plain()), Bad);
  EXPECT_EQ(ErrorOfReading(MetafileWriter().Record(SetWindowExtents, {0, 5}).Plain()), Bad);
}

TEST(DamagedMetafile, A_picture_without_a_size_is_refused) {
  EXPECT_EQ(ErrorOfReading(MetafileWriter().Placeable(5, 0, 5, 10, 254)), Bad);
  EXPECT_EQ(ErrorOfReading(MetafileWriter().Placeable(0, 9, 5, 9, 254)), Bad);
  EXPECT_EQ(ErrorOfReading(MetafileWriter().Placeable(0, 0, 5, 10, 0)), Bad);
}

TEST(DamagedMetafile, The_sum_in_the_header_may_be_wrong) {
  std::string bytes = MetafileWriter().Placeable();
  bytes[20] = static_cast<char>(bytes[20] ^ 0x55);
  EXPECT_DOUBLE_EQ(ReadMetafile(bytes).Width, 100);
}

TEST(DamagedMetafile, A_record_that_is_shorter_than_its_contents_is_refused) {
  const auto one = [](int function, const std::vector<int>& words, const std::string& text = {}) {
    return ErrorOfReading(
        MetafileWriter().Record(static_cast<std::uint16_t>(function), words, text));
  };
  EXPECT_EQ(one(LineTo, {1}), Bad);
  EXPECT_EQ(one(Rectangle, {1, 2, 3}), Bad);
  EXPECT_EQ(one(SelectObject, {}), Bad);
  EXPECT_EQ(one(0x02FB, {1, 0, 0, 0, 0}), Bad);        // a font
  EXPECT_EQ(one(Polygon, {3, 0, 0, 10, 0, 10}), Bad);  // one number too few
  EXPECT_EQ(one(Polyline, {32767, 0, 0}), Bad);
  EXPECT_EQ(one(Polygon, {-1, 0, 0}), Bad);
  EXPECT_EQ(one(PolyPolygon, {2, 1, 2, 0, 0, 1, 1}), Bad);
  EXPECT_EQ(one(PolyPolygon, {32767, 1}), Bad);
  EXPECT_EQ(one(PolyPolygon, {1, -1}), Bad);
  EXPECT_EQ(one(TextOut, {5}, "abcd"), Bad);
  EXPECT_EQ(one(TextOut, {-5}, "abcd"), Bad);
  EXPECT_EQ(one(ExtendedText, {0, 0, 3, 0}, "ab"), Bad);
  EXPECT_EQ(one(ExtendedText, {0, 0, 1, 2, 0}, "a"), Bad);  // no whole rectangle
}

TEST(DamagedMetafile, A_record_without_room_for_its_own_head_is_refused) {
  for (const char size : {'\0', '\1', '\2'}) {
    std::string bytes = MetafileWriter().Placeable();
    bytes[bytes.size() - 6] = size;
    EXPECT_EQ(ErrorOfReading(bytes), Bad) << static_cast<int>(size);
  }
}

TEST(DamagedMetafile, A_record_that_claims_more_than_the_file_has_is_cut) {
  std::string bytes = MetafileWriter().Record(LineTo, {1, 1}).Placeable();
  // The high word of the size.
  bytes[22 + 18 + 3] = '\x7F';
  EXPECT_EQ(ErrorOfReading(bytes), Cut);
}

TEST(DamagedMetafile, States_are_saved_some_hundreds_deep) {
  const auto saved = [](int times) {
    MetafileWriter file;
    for (int i = 0; i < times; ++i) file.Record(SaveState, {});
    return file;
  };
  EXPECT_TRUE(ReadMetafile(saved(256).Placeable()).Shapes.empty());
  EXPECT_EQ(ErrorOfReading(saved(257)), Bad);
}

TEST(DamagedMetafile, Coordinates_at_their_limits_stay_finite) {
  MetafileWriter file;
  file.Record(CreateBrush, {2, 0, 0, 3}).Record(0x0410, {1, 1, 1, 1});
  file.Record(SetWindowExtents, {1, -1}).Record(IntersectClip, {32767, 32767, -32768, -32768});
  file.Record(Ellipse, {-32768, 32767, 32767, -32768}).Record(LineTo, {-32768, 32767});
  file.Record(IntersectClip, {1, 1, 0, 0}).Record(Ellipse, {-32768, 32767, 32767, -32768});
  const Picture picture = ReadMetafile(file.Placeable(-32768, -32768, 32767, 32767, 1));
  // 65535 inches.
  EXPECT_NEAR(picture.Width, 1664589, 1e-6);
  EXPECT_FALSE(picture.Shapes.empty());
  for (const Shape& shape : picture.Shapes) {
    EXPECT_EQ(Described(shape).find("nan"), std::string::npos);
    EXPECT_EQ(Described(shape).find("inf"), std::string::npos);
  }
}

// Refused within a second of the processor's own time, although a few bytes ask for it.
void ExpectTooLarge(const MetafileWriter& file) {
  const std::clock_t start = std::clock();
  EXPECT_EQ(ErrorOfReading(file), Large);
  EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
}

TEST(DamagedMetafile, Hatches_without_end_are_too_much) {
  // One hatched area of 30,000 corners that run up and down.
  MetafileWriter comb;
  comb.Record(CreateBrush, {2, 0, 0, 5}).Record(SelectObject, {0});
  std::vector<int> words = {30000};
  for (int i = 0; i < 30000; ++i) {
    words.push_back(i);
    words.push_back(i % 2 == 0 ? 0 : 30000);
  }
  comb.Record(Polygon, words);
  ExpectTooLarge(comb);

  // Many that are large.
  MetafileWriter many;
  many.Record(CreateBrush, {2, 0, 0, 5}).Record(SelectObject, {0});
  for (int i = 0; i < 2000; ++i) many.Record(Rectangle, {500, 1000, 0, 0});
  ExpectTooLarge(many);
}

TEST(DamagedMetafile, Records_without_end_are_too_much) {
  MetafileWriter file;
  for (int i = 0; i < 2'000'001; ++i) file.Record(0x0104, {});
  ExpectTooLarge(file);
}

}  // namespace
}  // namespace orvane::test
