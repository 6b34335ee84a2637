#include <cmath>

#include "drawing/metafile.h"
#include "tests/drawing/metafile_writer.h"
#include "tests/drawing/page_fixture.h"

namespace orvane::test {
namespace {

enum Function {
  SetBackgroundMode = 0x0102,
  SetTextAlign = 0x012E,
  SetBackgroundColor = 0x0201,
  SetTextColor = 0x0209,
  IntersectClip = 0x0416,
  MoveTo = 0x0214,
  ExtendedText = 0x0A32,
};

// A unit is 0.1 mm, so a font 100 units high is 10 mm or 28.3465 points.
std::vector<TextShape> TextsOf(const MetafileWriter& file) {
  std::vector<TextShape> texts;
  for (const Shape& shape : ReadMetafile(file.Placeable()).Shapes) {
    texts.push_back(std::get<TextShape>(shape));
  }
  return texts;
}

Lines LinesOf(const MetafileWriter& file) {
  Lines lines;
  for (const Shape& shape : ReadMetafile(file.Placeable()).Shapes) {
    lines.push_back(Described(shape));
  }
  return lines;
}

TEST(MetafileText, Stands_where_it_is_put_in_the_font_that_is_chosen) {
  MetafileWriter file;
  file.Text("Plain", 10, 20);
  file.Font(0, -100, 0, 400, false, "Arial").Text("odd", 10, 20);
  file.Font(1, -50, 900, 700, true, "Courier").Record(SetTextColor, {0x2010, 0x30});
  file.Text("even", 30, 40).Font(2, -50, -450, 500, false, "").Text("down", 0, 0);
  EXPECT_EQ(LinesOf(file), (Lines{"text \"Plain\" 1 2 10", "text \"odd\" 1 2 28.346",
                                  "text \"even\" 3 4 14.173 bold Courier 16,32,48 angle 90",
                                  "text \"down\" 0 0 14.173 16,32,48 angle -45"}));
  const auto texts = TextsOf(file);
  EXPECT_FALSE(texts[1].Type.Italic);
  EXPECT_TRUE(texts[2].Type.Italic);
}

TEST(MetafileText, A_height_above_0_counts_from_ascent_to_descent) {
  MetafileWriter file;
  // 0.905 + 0.212 = 1.117 times the size.
  file.Font(0, 1117, 0, 400, false, "Arial").Text("x", 0, 0);
  const Picture picture = ReadMetafile(file.Placeable(0, 0, 4000, 4000, 254));
  EXPECT_NEAR(std::get<TextShape>(picture.Shapes.at(0)).Type.Size, 1000 * 0.1 * 72 / 25.4, 1e-9);
}

TEST(MetafileText, Its_point_lies_on_its_top_its_baseline_or_below_and_at_either_end) {
  struct Case {
    int Flags = 0;
    TextSide Side = TextSide::Left;
    double Ascent = 0;  // of 10 mm
  };
  for (const Case& a : {Case{0, TextSide::Left, 9.05}, Case{2, TextSide::Right, 9.05},
                        Case{6, TextSide::Middle, 9.05}, Case{8, TextSide::Left, -2.12},
                        Case{24, TextSide::Left, 0}, Case{30, TextSide::Middle, 0}}) {
    MetafileWriter file;
    file.Record(SetTextAlign, {a.Flags}).Font(0, -100, 0, 400, false, "Arial").Text("x", 10, 20);
    const auto texts = TextsOf(file);
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].Side, a.Side) << a.Flags;
    EXPECT_NEAR(texts[0].Ascent, a.Ascent, 1e-9) << a.Flags;
    EXPECT_EQ(texts[0].TopLeft, (Point{1, 2})) << a.Flags;
  }
}

TEST(MetafileText, May_stand_at_the_position) {
  MetafileWriter file;
  file.Record(MoveTo, {70, 80}).Record(SetTextAlign, {1}).Text("x", 10, 20);
  EXPECT_EQ(LinesOf(file), Lines{"text \"x\" 8 7 10"});
}

TEST(MetafileText, Is_read_as_windows_1252_even_where_it_looks_like_another_code) {
  MetafileWriter file;
  file.Text("45\xB0 \x80 \xC3\xA9\x01.", 0, 0);
  EXPECT_EQ(TextsOf(file).at(0).Text, "45\u00B0 \u20AC \u00C3\u00A9 .");
}

TEST(MetafileText, Has_a_ground_unless_that_is_switched_off) {
  MetafileWriter file;
  file.Text("a", 0, 0).Record(SetBackgroundColor, {0xFF, 0}).Text("b", 0, 0);
  file.Record(SetBackgroundMode, {1}).Text("c", 0, 0);
  const auto texts = TextsOf(file);
  EXPECT_EQ(texts.at(0).Behind, (Fill{true, White}));
  EXPECT_EQ(texts.at(1).Behind, (Fill{true, {255, 0, 0}}));
  EXPECT_FALSE(texts.at(2).Behind.Visible);
}

TEST(MetafileText, An_extended_one_may_fill_its_rectangle_and_be_cut_at_it) {
  MetafileWriter file;
  file.Record(SetBackgroundColor, {0xFF, 0});
  file.Record(ExtendedText, {20, 10, 3, 0}, "abc");
  file.Record(ExtendedText, {20, 10, 3, 2, 0, 10, 50, 30}, "abc");
  file.Record(ExtendedText, {20, 10, 2, 4, 0, 10, 50, 30}, "ab\5\0\5\0");  // with advances
  file.Record(ExtendedText, {20, 10, 0, 2, 0, 10, 50, 30});                // no text
  EXPECT_EQ(LinesOf(file), (Lines{"text \"abc\" 1 2 10", "rectangle 0 1 5 2 no pen fill 255,0,0",
                                  "text \"abc\" 1 2 10", "text \"ab\" 1 2 10 clip 0 1 5 2",
                                  "rectangle 0 1 5 2 no pen fill 255,0,0"}));
}

TEST(MetafileText, Is_cut_at_the_clip_rectangle) {
  MetafileWriter file;
  file.Record(IntersectClip, {30, 40, 10, 10}).Text("a", 0, 0);
  file.Record(ExtendedText, {0, 0, 1, 4, 20, 0, 90, 90}, "b");
  file.Record(ExtendedText, {0, 0, 1, 4, 50, 50, 90, 90}, "c");  // of which nothing is left
  EXPECT_EQ(LinesOf(file),
            (Lines{"text \"a\" 0 0 10 clip 1 1 3 2", "text \"b\" 0 0 10 clip 2 1 2 2"}));
}

TEST(MetafileText, Larger_than_the_picture_it_is_left_out) {
  MetafileWriter file;
  file.Font(0, -2000, 0, 400, false, "Arial").Text("a", 0, 0);
  file.Font(1, -2001, 0, 400, false, "Arial").Text("b", 0, 0);
  EXPECT_EQ(TextsOf(file).size(), 1U);
}

}  // namespace
}  // namespace orvane::test
