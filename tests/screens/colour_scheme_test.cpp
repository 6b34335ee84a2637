// Both sets of colours can be read: 4.5 to 1 for all that is text, 3 to 1 for what is drawn.
#include <gtest/gtest.h>

#include <QColor>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/platform/colour_scheme.h"

namespace orvane::test {

namespace {

// The relative luminance and the contrast of the Web Content Accessibility Guidelines.
double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double first = Luminance(one) + 0.05;
  const double second = Luminance(other) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

struct Pair {
  QPalette::ColorRole Text;
  QPalette::ColorRole Ground;
};

constexpr std::array<Pair, 13> Read = {{
    {QPalette::WindowText, QPalette::Window},
    {QPalette::WindowText, QPalette::Base},
    {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},
    {QPalette::Text, QPalette::Window},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::PlaceholderText, QPalette::Window},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::Link, QPalette::Window},
    {QPalette::Link, QPalette::Base},
    {QPalette::LinkVisited, QPalette::Base},
}};

}  // namespace

TEST(ColourScheme, The_contrast_is_that_of_the_guidelines) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
  // 118 of 255 is the guidelines' own example of a grey that just passes on white.
  EXPECT_NEAR(Contrast(QColor(118, 118, 118), Qt::white), 4.54, 0.01);
}

TEST(ColourScheme, All_that_is_read_stands_out_from_its_ground) {
  for (const ColourScheme scheme : {ColourScheme::Light, ColourScheme::Dark}) {
    const QPalette palette = SchemePalette(scheme);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
      for (const Pair& pair : Read) {
        EXPECT_GE(Contrast(palette.color(group, pair.Text), palette.color(group, pair.Ground)), 4.5)
            << (scheme == ColourScheme::Dark ? "dark" : "light") << ", role " << pair.Text << " on "
            << pair.Ground;
      }
    }
  }
}

TEST(ColourScheme, The_bar_of_what_is_chosen_stands_out_from_the_fields) {
  for (const ColourScheme scheme : {ColourScheme::Light, ColourScheme::Dark}) {
    const QPalette palette = SchemePalette(scheme);
    EXPECT_GE(Contrast(palette.color(QPalette::Highlight), palette.color(QPalette::Base)), 3);
  }
}

TEST(ColourScheme, One_is_dark_on_light_and_the_other_light_on_dark) {
  const QPalette light = SchemePalette(ColourScheme::Light);
  const QPalette dark = SchemePalette(ColourScheme::Dark);
  EXPECT_GT(light.color(QPalette::Base).lightness(), 200);
  EXPECT_LT(light.color(QPalette::Text).lightness(), 50);
  EXPECT_LT(dark.color(QPalette::Base).lightness(), 50);
  EXPECT_GT(dark.color(QPalette::Text).lightness(), 200);
}

}  // namespace orvane::test
