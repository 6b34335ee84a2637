// What the one painter puts on a screen, pixel by pixel.
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <cmath>
#include <memory>
#include <vector>

#include "core/model.h"
#include "ui/platform/page_painter.h"
#include "ui/platform/qt_font_metrics.h"

namespace orvane {

namespace {

constexpr double Scale = 10;  // pixels to the millimetre
constexpr int Side = 200;     // pixels of the picture, so 20 mm

Pen PenOf(double width, Rgb color = Black) {
  return {width, color, true};
}

const Pen NoPen{0, Black, false};

QImage Painted(std::vector<Shape> shapes, PaintDevice device = PaintDevice::Screen,
               double scale = Scale) {
  QImage image(Side, Side, QImage::Format_RGB32);
  image.fill(Qt::white);
  Page page{20, 20, std::move(shapes)};
  QPainter painter(&image);
  PaintPage(painter, page, QPointF(0, 0), scale, device);
  return image;
}

bool IsBlack(const QImage& image, int x, int y) {
  return image.pixelColor(x, y) == QColor(Qt::black);
}

bool IsWhite(const QImage& image, int x, int y) {
  return image.pixelColor(x, y) == QColor(Qt::white);
}

// The pixels that aren't white, as a rectangle.
QRect Inked(const QImage& image) {
  QRect inked;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (!IsWhite(image, x, y)) inked |= QRect(x, y, 1, 1);
    }
  }
  return inked;
}

TextShape TextOf(const std::string& text, Point topLeft, double points = 10) {
  TextShape shape;
  shape.Text = text;
  shape.TopLeft = topLeft;
  shape.Type.Size = points;
  shape.Ascent = SheetMetrics().Ascent(shape.Type) / 56.7;
  return shape;
}

}  // namespace

TEST(PagePainter, An_empty_page_paints_nothing) {
  EXPECT_TRUE(Inked(Painted({})).isEmpty());
}

TEST(PagePainter, The_thinnest_line_is_one_whole_pixel_on_a_screen) {
  // 0.1 mm at 3 pixels to the millimetre would be a third of a pixel.
  const QImage image = Painted(
      {LineShape{{10.1, 2}, {10.1, 8}, PenOf(0.1)}, LineShape{{2, 12.7}, {8, 12.7}, PenOf(0)}},
      PaintDevice::Screen, 3);
  // 10.1 mm lie at 30.3; the line's left edge, at 29.8, goes to the boundary at 30.
  EXPECT_TRUE(IsWhite(image, 29, 15));
  EXPECT_TRUE(IsBlack(image, 30, 15));
  EXPECT_TRUE(IsWhite(image, 31, 15));
  // 12.7 mm lie at 38.1, the upper edge at 37.6: to 38.
  EXPECT_TRUE(IsWhite(image, 15, 37));
  EXPECT_TRUE(IsBlack(image, 15, 38));
  EXPECT_TRUE(IsWhite(image, 15, 39));
}

TEST(PagePainter, A_line_is_as_wide_as_its_pen_and_ends_where_it_ends) {
  const QImage image = Painted({LineShape{{5, 10}, {15, 10}, PenOf(0.4)}});
  EXPECT_EQ(Inked(image), QRect(50, 98, 100, 4));
  EXPECT_TRUE(IsBlack(image, 50, 98));
  EXPECT_TRUE(IsBlack(image, 149, 101));
}

TEST(PagePainter, Corners_are_mitred) {
  // The stroke of a sharp tip at (10, 5) reaches beyond it; a bevel would end at its height.
  const QImage image =
      Painted({PolygonShape{{{{10, 5}, {7, 15}, {13, 15}}}, true, false, PenOf(1), {}}});
  // Half the angle at the tip has the sine 3 / sqrt(109); the mitre is half a width over it.
  const double reach = 0.5 / (3 / std::sqrt(109.0));
  EXPECT_NEAR(Inked(image).top(), (5 - reach) * Scale, 1.5);
}

TEST(PagePainter, A_rectangle_is_filled_and_framed) {
  const QImage image = Painted({RectangleShape{{5, 5, 10, 6}, PenOf(0.2), {true, {255, 0, 0}}},
                                RectangleShape{{1, 1, 2, 2}, NoPen, {true, Grey}}});
  EXPECT_TRUE(IsBlack(image, 50, 70));
  EXPECT_TRUE(IsBlack(image, 149, 70));
  EXPECT_TRUE(IsBlack(image, 49, 49));  // the corner
  EXPECT_TRUE(IsWhite(image, 48, 49));
  EXPECT_EQ(image.pixelColor(100, 80), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(10, 10), QColor(128, 128, 128));
  EXPECT_EQ(image.pixelColor(29, 29), QColor(128, 128, 128));
  EXPECT_TRUE(IsWhite(image, 30, 30));
}

TEST(PagePainter, A_white_box_hides_the_line_below_it) {
  const QImage image = Painted({LineShape{{0, 10}, {20, 10}, PenOf(0.1)},
                                RectangleShape{{8, 9, 4, 2}, PenOf(0.1, White), {true, White}}});
  EXPECT_TRUE(IsBlack(image, 70, 99) || IsBlack(image, 70, 100));
  for (int y = 95; y < 105; ++y) EXPECT_TRUE(IsWhite(image, 100, y));
}

TEST(PagePainter, A_transparent_rectangle_hides_nothing) {
  const QImage image = Painted(
      {LineShape{{0, 10}, {20, 10}, PenOf(0.4)}, RectangleShape{{8, 5, 4, 10}, PenOf(0.1), {}}});
  EXPECT_TRUE(IsBlack(image, 100, 100));
}

TEST(PagePainter, Arcs_turn_counter_clockwise_as_seen_on_the_page) {
  // From the top over the left to the bottom, and from the bottom over the right to the top.
  const ArcShape left{{5, 5, 10, 10}, HalfPi, Pi, false, false, PenOf(0.4), {}};
  EXPECT_EQ(Inked(Painted({left})), QRect(48, 48, 52, 104));
  const ArcShape right{{5, 5, 10, 10}, ThreeHalfPi, Pi, false, false, PenOf(0.4), {}};
  EXPECT_EQ(Inked(Painted({right})), QRect(100, 48, 52, 104));
  // The arc of a roof pitch rises above the level line.
  const ArcShape pitch{{5, 5, 10, 10}, 0, Pi / 4, false, false, PenOf(0.4), {}};
  const QRect inked = Inked(Painted({pitch}));
  EXPECT_LE(inked.bottom(), 100);
  EXPECT_GE(inked.left(), 100);
}

TEST(PagePainter, A_filled_arc_fills_up_to_its_chord_and_strokes_the_arc_alone) {
  const QImage image =
      Painted({ArcShape{{5, 5, 10, 10}, HalfPi, Pi, false, false, PenOf(0.4), {true, Grey}}});
  EXPECT_EQ(image.pixelColor(80, 100), QColor(128, 128, 128));
  EXPECT_EQ(image.pixelColor(98, 100), QColor(128, 128, 128));  // no stroke along the chord
  EXPECT_TRUE(IsWhite(image, 102, 100));
}

TEST(PagePainter, A_pie_is_filled_up_to_its_centre_and_outlined_whole) {
  const QImage image =
      Painted({ArcShape{{5, 5, 10, 10}, 0, HalfPi, true, true, PenOf(0.4), {true, Grey}}});
  EXPECT_EQ(image.pixelColor(115, 85), QColor(128, 128, 128));
  EXPECT_TRUE(IsBlack(image, 120, 100));
  EXPECT_TRUE(IsBlack(image, 100, 80));
  EXPECT_TRUE(IsWhite(image, 90, 110));
}

TEST(PagePainter, Rings_make_one_area_with_a_hole_or_without) {
  const std::vector<std::vector<Point>> rings = {{{2, 2}, {18, 2}, {18, 18}, {2, 18}},
                                                 {{6, 6}, {14, 6}, {14, 14}, {6, 14}}};
  const QImage odd = Painted({PolygonShape{rings, true, false, NoPen, {true, Black}}});
  EXPECT_TRUE(IsBlack(odd, 40, 40));
  EXPECT_TRUE(IsWhite(odd, 100, 100));
  const QImage winding = Painted({PolygonShape{rings, true, true, NoPen, {true, Black}}});
  EXPECT_TRUE(IsBlack(winding, 100, 100));
}

TEST(PagePainter, An_open_chain_is_neither_closed_nor_filled) {
  const QImage image = Painted(
      {PolygonShape{{{{5, 5}, {15, 5}, {15, 15}}}, false, false, PenOf(0.4), {true, Grey}}});
  EXPECT_TRUE(IsBlack(image, 100, 50));
  EXPECT_TRUE(IsBlack(image, 150, 100));
  EXPECT_TRUE(IsWhite(image, 100, 100));
  EXPECT_TRUE(IsWhite(image, 130, 70));
}

TEST(PagePainter, Text_stands_on_a_base_line_its_ascent_below_the_top) {
  // 20 points are 400 twips, 7.0547 mm; a capital is 0.729 em high in this design (1409 of 2048 is
  // 0.688 for the letter H).
  const TextShape text = TextOf("H", {3, 4}, 20);
  const QRect inked = Inked(Painted({text}));
  const double base = (4 + text.Ascent) * Scale;
  EXPECT_NEAR(text.Ascent, 0.905 * 400 / 56.7, 0.02);
  EXPECT_NEAR(inked.bottom() + 1, base, 1.01);
  EXPECT_NEAR(inked.top(), base - 0.688 * 400 / 56.7 * Scale, 1.5);
  EXPECT_GT(inked.left(), 30);
}

TEST(PagePainter, A_painted_text_is_as_wide_as_it_was_measured) {
  // The upright bars of the first and the last letter stand where the letters between them put
  // them.
  const TextShape text = TextOf("IllicitAVATAR fi I", {1, 4}, 6);
  const double width = SheetMetrics().Width(text.Type, text.Text) / 56.7;
  const double bar = SheetMetrics().Width(text.Type, "I") / 56.7;
  const QRect inked = Inked(Painted({text}));
  const QRect one = Inked(Painted({TextOf("I", {1, 4}, 6)}));
  EXPECT_EQ(inked.left(), one.left());
  EXPECT_NEAR(inked.right() - one.right(), (width - bar) * Scale, 1.01);
}

// A snowman, a tick and a Chinese letter: from a font of the system where it has one with them,
// else the box that stands for a missing letter. The bars at either end stand where they were
// measured.
TEST(PagePainter, Letters_that_the_shipped_fonts_lack_are_painted_as_wide_as_they_were_measured) {
  const TextShape text = TextOf(
      "I\xE2\x98\x83\xE2\x9C\x93\xE4\xB8\xAD"
      "AI",
      {1, 4}, 8);
  const double width = SheetMetrics().Width(text.Type, text.Text) / 56.7;
  const double bar = SheetMetrics().Width(text.Type, "I") / 56.7;
  EXPECT_GT(width, SheetMetrics().Width(text.Type, "IAI") / 56.7);
  const QRect one = Inked(Painted({TextOf("I", {1, 4}, 8)}));
  for (const PaintDevice device : {PaintDevice::Screen, PaintDevice::Paper}) {
    const QRect inked = Inked(Painted({text}, device));
    EXPECT_EQ(inked.left(), one.left());
    EXPECT_NEAR(inked.right() - one.right(), (width - bar) * Scale, 1.01);
  }
}

TEST(PagePainter, A_narrowed_text_keeps_its_height_and_its_left_end) {
  TextShape text = TextOf("HHHH", {2, 4}, 12);
  const QRect plain = Inked(Painted({text}));
  text.WidthScale = 0.6;
  for (const PaintDevice device : {PaintDevice::Screen, PaintDevice::Paper}) {
    const QRect inked = Inked(Painted({text}, device));
    EXPECT_NEAR(inked.right() - 20, 0.6 * (plain.right() - 20), 1.5);
    EXPECT_NEAR(inked.left() - 20, 0.6 * (plain.left() - 20), 1.5);
    EXPECT_EQ(inked.top(), plain.top());
    EXPECT_EQ(inked.bottom(), plain.bottom());
  }
}

TEST(PagePainter, A_turned_text_is_narrowed_along_its_own_line) {
  TextShape text = TextOf("HHHH", {8, 19}, 10);
  text.Angle = 90;
  const QRect plain = Inked(Painted({text}));
  text.WidthScale = 0.6;
  const QRect inked = Inked(Painted({text}));
  EXPECT_NEAR(inked.height(), 0.6 * plain.height(), 1.5);
  EXPECT_EQ(inked.left(), plain.left());
  EXPECT_EQ(inked.right(), plain.right());
}

TEST(PagePainter, A_narrowed_text_of_a_picture_hangs_on_its_middle_with_its_box_as_narrow) {
  TextShape text = TextOf("HHHH", {10, 8}, 12);
  text.Side = TextSide::Middle;
  text.Behind = {true, {0, 255, 0}};
  text.WidthScale = 0.6;
  const double width = 0.6 * SheetMetrics().Width(text.Type, "HHHH") / 56.7 * Scale;
  const QRect inked = Inked(Painted({text}));
  EXPECT_NEAR(inked.left(), 100 - width / 2, 1);
  EXPECT_NEAR(inked.width(), width, 2);
}

TEST(PagePainter, Turned_text_reads_uphill_about_its_top_left_corner) {
  TextShape text = TextOf("HHHH", {8, 15}, 10);
  text.Angle = 90;
  const QRect inked = Inked(Painted({text}));
  const double width = SheetMetrics().Width(text.Type, text.Text) / 56.7 * Scale;
  // Its length runs up from 15 mm; its height runs right from 8 mm.
  EXPECT_LE(inked.bottom(), 150);
  EXPECT_GT(inked.top(), 150 - width - 1);
  EXPECT_LT(inked.top(), 150 - 0.9 * width);
  EXPECT_GE(inked.left(), 80);
  EXPECT_NEAR(inked.right() + 1, 80 + text.Ascent * Scale, 1.5);
}

TEST(PagePainter, A_text_of_a_picture_hangs_on_its_left_end_its_middle_or_its_right_end) {
  TextShape text = TextOf("HH", {10, 8}, 12);
  const double width = SheetMetrics().Width(text.Type, "HH") / 56.7 * Scale;
  for (const auto& [side, left] : {std::pair{TextSide::Left, 100.0},
                                   {TextSide::Middle, 100 - width / 2},
                                   {TextSide::Right, 100 - width}}) {
    text.Side = side;
    const QRect inked = Inked(Painted({text}));
    // An H leaves a twelfth of its width free on either side, less than 4 pixels.
    EXPECT_NEAR(inked.left(), left + 2, 3);
    EXPECT_NEAR(inked.right(), left + width - 2, 3);
  }
}

TEST(PagePainter, A_text_of_a_picture_may_have_a_box_behind_it) {
  TextShape text = TextOf("i", {5, 5}, 12);
  text.Behind = {true, {0, 255, 0}};
  const QImage image = Painted({text});
  const double width = SheetMetrics().Width(text.Type, "i") / 56.7 * Scale;
  const double height = SheetMetrics().Height(text.Type) / 56.7 * Scale;
  const QRect inked = Inked(image);
  EXPECT_NEAR(inked.left(), 50, 1);
  EXPECT_NEAR(inked.width(), width, 2);
  EXPECT_NEAR(inked.top(), 50, 1);
  EXPECT_NEAR(inked.height(), height, 2);
  EXPECT_EQ(image.pixelColor(inked.left() + 1, inked.bottom() - 2), QColor(0, 255, 0));
}

TEST(PagePainter, A_turned_text_of_a_picture_is_clipped_as_well) {
  TextShape text = TextOf("HHHHHHHH", {10, 18}, 12);
  text.Angle = 90;
  text.Clipped = true;
  text.Clip = {0, 0, 20, 15};
  const QRect inked = Inked(Painted({text}));
  EXPECT_FALSE(inked.isEmpty());
  EXPECT_LE(inked.bottom(), 150);
}

TEST(PagePainter, Text_bears_its_colour_and_the_next_line_its_own) {
  TextShape text = TextOf("HHH", {2, 2}, 20);
  text.Color = {255, 0, 0};
  const QImage image = Painted(
      {LineShape{{0, 19}, {20, 19}, PenOf(0.4)}, text, LineShape{{0, 15}, {20, 15}, PenOf(0.4)}});
  bool red = false;
  for (int x = 0; x < Side; ++x) red = red || image.pixelColor(x, 70) == QColor(255, 0, 0);
  EXPECT_TRUE(red);
  EXPECT_TRUE(IsBlack(image, 100, 150));
}

TEST(PagePainter, A_clipped_text_stays_inside_its_cell) {
  TextShape text = TextOf("A customer of a very long name", {5, 5}, 10);
  text.Clipped = true;
  text.Clip = {5, 5, 8, 5};
  const QRect inked = Inked(Painted({text}));
  EXPECT_GE(inked.left(), 50);
  EXPECT_GT(inked.right(), 120);
  EXPECT_LT(inked.right(), 130);
}

TEST(PagePainter, A_picture_is_stretched_into_its_place) {
  auto picture = std::make_shared<Picture>();
  picture->Width = 40;
  picture->Height = 10;
  picture->Shapes = {RectangleShape{{10, 2, 20, 4}, NoPen, {true, Black}}};
  const QImage image = Painted({PictureShape{picture, {4, 6, 10, 5}}});
  // A quarter across, half down.
  EXPECT_EQ(Inked(image), QRect(65, 70, 50, 20));
}

TEST(PagePainter, A_picture_without_content_or_size_paints_nothing) {
  const auto empty = std::make_shared<Picture>();
  EXPECT_TRUE(
      Inked(Painted({PictureShape{nullptr, {1, 1, 5, 5}}, PictureShape{empty, {1, 1, 5, 5}}}))
          .isEmpty());
}

TEST(PagePainter, Pictures_inside_pictures_end_somewhere) {
  auto inner = std::make_shared<const Picture>(
      Picture{10, 10, {RectangleShape{{0, 0, 10, 10}, NoPen, {true, Black}}}});
  for (int depth = 0; depth < 100; ++depth) {
    inner = std::make_shared<const Picture>(Picture{10, 10, {PictureShape{inner, {0, 0, 10, 10}}}});
  }
  EXPECT_TRUE(Inked(Painted({PictureShape{inner, {0, 0, 10, 10}}})).isEmpty());
}

TEST(PagePainter, Letters_as_high_as_a_house_are_painted_smaller) {
  auto picture = std::make_shared<Picture>();
  picture->Width = 1;
  picture->Height = 1;
  picture->Shapes = {TextOf("Wg", {0, 0}, 1e6)};
  EXPECT_FALSE(Inked(Painted({PictureShape{picture, {-9000, -9000, 20000, 20000}},
                              LineShape{{0, 1}, {5, 1}, PenOf(0.1)}},
                             PaintDevice::Screen, 100))
                   .isEmpty());
}

TEST(PagePainter, The_painter_is_left_as_it_was) {
  QImage image(50, 50, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setPen(Qt::red);
  PaintPage(painter, Page{20, 20, {LineShape{{0, 0}, {9, 9}, PenOf(1)}}}, QPointF(3, 4), 2,
            PaintDevice::Screen);
  EXPECT_EQ(painter.transform(), QTransform());
  EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
  EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

}  // namespace orvane
