#include "ui/platform/icons.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "ui/commands.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// Colours of text and ground that no drawing contains, so that a match is no accident.
struct Theme {
  const char* Name;
  QColor Text;
  QColor Highlighted;
  QColor Ground;
  QColor Dimmed;  // two fifths of the text's colour, three fifths of the ground's
};

const std::array<Theme, 2> Themes = {{
    {"light", {26, 34, 12}, {255, 250, 210}, {239, 239, 239}, {154, 157, 148}},
    {"dark", {236, 228, 244}, {12, 40, 18}, {38, 38, 38}, {117, 114, 120}},
}};

const QColor Accent(0x2E, 0x86, 0xDE);

std::vector<std::string>& Warnings() {
  static std::vector<std::string> warnings;
  return warnings;
}

void NoteWarning(QtMsgType, const QMessageLogContext&, const QString& text) {
  Warnings().push_back(FromQt(text));
}

// Changes of the desktop's colours end with the test, and no test may make the toolkit complain.
class IconsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    palette_ = QGuiApplication::palette();
    Warnings().clear();
    handler_ = qInstallMessageHandler(NoteWarning);
  }
  void TearDown() override {
    qInstallMessageHandler(handler_);
    QGuiApplication::setPalette(palette_);
    EXPECT_EQ(Warnings(), std::vector<std::string>());
  }

  static void Wear(const Theme& theme) {
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::WindowText, theme.Text);
    palette.setColor(QPalette::HighlightedText, theme.Highlighted);
    palette.setColor(QPalette::Window, theme.Ground);
    QGuiApplication::setPalette(palette);
  }

 private:
  QPalette palette_;
  QtMessageHandler handler_ = nullptr;
};

QImage Picture(const QIcon& icon, int size, double ratio = 1, QIcon::Mode mode = QIcon::Normal) {
  const QPixmap pixmap = icon.pixmap(QSize(size, size), ratio, mode);
  EXPECT_EQ(pixmap.size(), QSize(size, size) * ratio);
  EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
  return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

// How many pixels clearly show that colour. The edge of a stroke is the same colour, only fainter.
int PixelsOf(const QImage& image, const QColor& colour) {
  constexpr int Visible = 100;  // of 255
  constexpr int Rounding = 6;
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      const int difference =
          std::max({std::abs(pixel.red() - colour.red()), std::abs(pixel.green() - colour.green()),
                    std::abs(pixel.blue() - colour.blue())});
      if (pixel.alpha() >= Visible && difference <= Rounding) ++count;
    }
  }
  return count;
}

QSet<QString> NamesOfCommands() {
  QSet<QString> names;
  for (const CommandEntry& entry : CommandTable()) {
    if (!entry.Icon.empty()) names.insert(ToQt(entry.Icon));
  }
  return names;
}

QStringList DrawingsIn(const QString& folder) {
  QStringList names = QDir(folder).entryList({"*.svg"}, QDir::Files, QDir::Name);
  names.sort();
  return names;
}

TEST_F(IconsTest, Every_command_with_an_icon_shows_it_in_the_colour_of_the_text) {
  ASSERT_GE(NamesOfCommands().size(), 30);
  for (const Theme& theme : Themes) {
    Wear(theme);
    for (const QString& name : NamesOfCommands()) {
      const QIcon icon = LineIcon(FromQt(name));
      ASSERT_FALSE(icon.isNull()) << FromQt(name);
      for (const double ratio : {1.0, 1.5, 2.0}) {
        for (const int size : {16, 20, 24, 32}) {
          EXPECT_GE(PixelsOf(Picture(icon, size, ratio), theme.Text), size / 2)
              << FromQt(name) << ", " << theme.Name << ", " << size << " px at ratio " << ratio;
        }
      }
    }
  }
}

TEST_F(IconsTest, An_icon_follows_a_change_of_the_desktops_colours) {
  Wear(Themes[0]);
  const QIcon icon = LineIcon("save");
  ASSERT_GT(PixelsOf(Picture(icon, 24), Themes[0].Text), 0);
  Wear(Themes[1]);
  const QImage dark = Picture(icon, 24);
  EXPECT_GT(PixelsOf(dark, Themes[1].Text), 0);
  EXPECT_EQ(PixelsOf(dark, Themes[0].Text), 0);
  EXPECT_GT(PixelsOf(dark, Accent), 0);
}

TEST_F(IconsTest, On_the_desktops_highlight_all_of_an_icon_takes_the_colour_of_highlighted_text) {
  for (const Theme& theme : Themes) {
    Wear(theme);
    const QImage image = Picture(LineIcon("save"), 24, 1, QIcon::Selected);
    EXPECT_GT(PixelsOf(image, theme.Highlighted), 0) << theme.Name;
    EXPECT_EQ(PixelsOf(image, theme.Text), 0) << theme.Name;
    EXPECT_EQ(PixelsOf(image, Accent), 0) << theme.Name;
  }
}

TEST_F(IconsTest, Under_the_pointer_all_of_an_icon_takes_the_colour_of_the_text) {
  for (const Theme& theme : Themes) {
    Wear(theme);
    const QImage image = Picture(LineIcon("save"), 24, 1, QIcon::Active);
    EXPECT_GT(PixelsOf(image, theme.Text), 0) << theme.Name;
    EXPECT_EQ(PixelsOf(image, Accent), 0) << theme.Name;
  }
}

TEST_F(IconsTest, Where_nothing_can_be_chosen_all_of_an_icon_is_dimmed) {
  for (const Theme& theme : Themes) {
    Wear(theme);
    const QImage image = Picture(LineIcon("save"), 24, 1, QIcon::Disabled);
    EXPECT_GT(PixelsOf(image, theme.Dimmed), 0) << theme.Name;
    EXPECT_EQ(PixelsOf(image, theme.Text), 0) << theme.Name;
    EXPECT_EQ(PixelsOf(image, Accent), 0) << theme.Name;
  }
}

TEST_F(IconsTest, No_name_and_an_unknown_name_give_an_empty_icon) {
  EXPECT_TRUE(LineIcon("").isNull());
  EXPECT_TRUE(LineIcon("no-such-drawing").isNull());
}

TEST_F(IconsTest, The_drawings_in_the_program_are_those_of_the_folder) {
  const QStringList files = DrawingsIn(ORVANE_SOURCE_DIR "/ui/icons");
  EXPECT_GE(files.size(), 34);
  EXPECT_EQ(DrawingsIn(":/icons"), files);
}

TEST_F(IconsTest, Every_line_drawing_belongs_to_a_command_and_is_of_one_family) {
  for (const QString& file : DrawingsIn(":/icons")) {
    if (file == "program.svg") continue;
    EXPECT_TRUE(NamesOfCommands().contains(file.chopped(4))) << FromQt(file);

    QFile drawing(":/icons/" + file);
    ASSERT_TRUE(drawing.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(drawing.readAll());
    EXPECT_TRUE(text.contains("viewBox=\"0 0 24 24\"")) << FromQt(file);
    EXPECT_TRUE(text.contains("stroke-linejoin=\"round\"")) << FromQt(file);

    QRegularExpressionMatchIterator colours = QRegularExpression("#\\w+").globalMatch(text);
    while (colours.hasNext()) {
      const QString colour = colours.next().captured();
      EXPECT_TRUE(colour == "#202020" || colour == "#2E86DE") << FromQt(file + " " + colour);
    }
    QRegularExpressionMatchIterator widths =
        QRegularExpression("stroke-width=\"([^\"]*)\"").globalMatch(text);
    ASSERT_TRUE(widths.hasNext()) << FromQt(file);
    while (widths.hasNext()) {
      const double width = widths.next().captured(1).toDouble();
      EXPECT_GE(width, 1.5) << FromQt(file);
      EXPECT_LE(width, 1.75) << FromQt(file);
    }
  }
}

TEST_F(IconsTest, No_line_drawing_touches_the_edge_of_its_square) {
  Wear(Themes[0]);
  constexpr int Size = 96;  // four pixels to a step of the grid
  for (const QString& name : NamesOfCommands()) {
    const QImage image = Picture(LineIcon(FromQt(name)), Size);
    const QRect inner(4, 4, Size - 8, Size - 8);
    for (int y = 0; y < Size; ++y) {
      for (int x = 0; x < Size; ++x) {
        if (inner.contains(x, y)) continue;
        ASSERT_EQ(image.pixelColor(x, y).alpha(), 0) << FromQt(name) << " at " << x << ", " << y;
      }
    }
  }
}

TEST_F(IconsTest, The_programs_icon_keeps_its_own_colours_at_every_size) {
  const QIcon icon = ProgramIcon();
  ASSERT_FALSE(icon.isNull());
  for (const Theme& theme : Themes) {
    Wear(theme);
    for (const int size : {16, 20, 24, 32, 48, 64, 128, 256}) {
      const QImage image = Picture(icon, size);
      EXPECT_GE(PixelsOf(image, QColor(255, 255, 255)), size / 3) << size;  // the purlin's front
      EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << size;                 // round corners
      const QColor ground = image.pixelColor(size / 2, size - size / 8);
      EXPECT_EQ(ground.alpha(), 255) << size;
      EXPECT_GT(ground.blue(), ground.red() + 40) << size;
    }
  }
}

}  // namespace

}  // namespace orvane
