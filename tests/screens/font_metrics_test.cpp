// The fonts that the program ships, and what it measures with them.
#include <gtest/gtest.h>

#include <QFontInfo>
#include <QFontMetricsF>
#include <limits>
#include <string>

#include "drawing/page_surface.h"
#include "ui/platform/qt_font_metrics.h"

namespace orvane {

namespace {

double Width(const std::string& text, const Font& font = {}) {
  return SheetMetrics().Width(font, text);
}

double WholeWidth(const std::string& text, const Font& font = {}) {
  return QFontMetricsF(SheetFont(font)).horizontalAdvance(SheetText(text));
}

}  // namespace

TEST(SheetFonts, A_nought_is_0556_of_the_size_wide) {
  PageSurface surface(SheetMetrics());
  for (const double points : {7.0, 10.0, 12.0, 14.0}) {
    surface.FontSize(points);
    EXPECT_GT(surface.TextWidth("0"), 0);
    // Whole twips: half of one either way.
    EXPECT_NEAR(surface.TextWidth("0"), 0.556 * points * 20, 0.51 + 0.00556 * points * 20);
    EXPECT_NEAR(Width("0", {"Arial", points}), 0.556 * points * 20, 0.00556 * points * 20);
  }
}

TEST(SheetFonts, The_shipped_family_stands_for_Arial_and_for_what_is_missing) {
  EXPECT_EQ(QFontInfo(SheetFont({})).family(), "Liberation Sans");
  EXPECT_EQ(QFontInfo(SheetFont({"No Such Family"})).family(), "Liberation Sans");
  EXPECT_TRUE(QFontInfo(SheetFont({"Arial", 10, true})).bold());
  EXPECT_TRUE(QFontInfo(SheetFont({"Arial", 10, false, true})).italic());
}

// What stands beside a letter that the shipped fonts lack keeps its own width, so that machines
// with different fonts differ in that letter alone.
TEST(SheetFonts, A_letter_that_the_shipped_fonts_lack_changes_no_other) {
  const std::string snowman = "\xE2\x98\x83";
  for (const char* others :
       {"Mark 12", "\xC3\x84\xC3\xB6\xC3\xBC", "\xD0\x96\xCE\xA9", "10 x 20"}) {
    EXPECT_NEAR(Width(others + snowman + others), 2 * Width(others) + Width(snowman), 0.05)
        << others;
  }
}

TEST(SheetFonts, Widths_are_those_of_the_design) {
  // Advances of the regular and the bold face, thousandths of the size.
  EXPECT_NEAR(Width("W"), 0.944 * 200, 0.2);
  EXPECT_NEAR(Width("i"), 0.222 * 200, 0.2);
  EXPECT_NEAR(Width("m", {"Arial", 10, true}), 0.889 * 200, 0.2);
  EXPECT_NEAR(Width("i", {"Arial", 10, true}), 0.278 * 200, 0.2);
}

TEST(SheetFonts, Heights_are_those_of_the_design) {
  // Ascent 0.905, descent 0.212.
  EXPECT_NEAR(SheetMetrics().Ascent({}), 0.905 * 200, 0.5);
  EXPECT_NEAR(SheetMetrics().Height({}), 1.117 * 200, 0.5);
  EXPECT_NEAR(SheetMetrics().Height({"Arial", 7}), 1.117 * 140, 0.5);
}

TEST(SheetFonts, A_text_is_as_wide_as_its_letters_together) {
  for (const char* text :
       {"Mark:  ", "14x22  ", "AVATAR To. Wave", "office fi fl ffi", "Märtens & Søn Façades",
        "10\u00ba", "3200", "Łódź", "(c) Lintaro. All rights reserved."}) {
    for (const bool bold : {false, true}) {
      const Font font{"Arial", 9, bold};
      EXPECT_NEAR(Width(text, font), WholeWidth(text, font), 0.05) << text;
    }
  }
}

TEST(SheetFonts, Blanks_at_the_end_count) {
  EXPECT_NEAR(Width("Mark:  ") - Width("Mark:"), 2 * 0.278 * 200, 0.2);
}

TEST(SheetFonts, Letters_of_other_scripts_are_measured_as_a_whole) {
  EXPECT_EQ(Width("Цех 5"), WholeWidth("Цех 5"));
  EXPECT_EQ(Width("e\u0301"), WholeWidth("e\u0301"));
  EXPECT_EQ(Width("a\u00adb"), WholeWidth("a\u00adb"));
}

TEST(SheetFonts, Line_ends_and_tabs_are_as_wide_as_blanks) {
  EXPECT_EQ(Width("a\tb\nc"), Width("a b c"));
}

TEST(SheetFonts, Bytes_that_are_no_text_do_no_harm) {
  EXPECT_EQ(Width(""), 0);
  for (const char* bytes : {"\xff", "a\xc3", "\xe2\x82", "\x80", "\xc3\x28", "\xf0\x9f\x98\x80"}) {
    EXPECT_GE(Width(bytes), 0);
  }
}

TEST(SheetFonts, Sizes_beyond_reason_are_settled) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(SheetFont({"Arial", 0}).pixelSize(), 1);
  EXPECT_EQ(SheetFont({"Arial", -5}).pixelSize(), 1);
  EXPECT_EQ(SheetFont({"Arial", nan}).pixelSize(), 1);
  EXPECT_EQ(SheetFont({"Arial", 1e9}).pixelSize(), GreatestFontSize);
  EXPECT_EQ(SheetFont({"Arial", 7}).pixelSize(), 140);
}

}  // namespace orvane
