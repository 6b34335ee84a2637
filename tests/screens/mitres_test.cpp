// The dialog of the mitred ends, opened from the main window.
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "tests/screens/sections_fixture.h"
#include "ui/dialogs/frm_mitres.h"

namespace orvane::test {
namespace {

constexpr int MitresEntry = 13;
constexpr double Degree = Pi / 180;

class MitresTest : public SectionsTest {
 protected:
  // One section with the cursor on its mark.
  Item& ShowOne(float left = 0, float right = 0) {
    Item& item = Put("Z", "A1", "Z14012", 3000);
    item.MitreLeft = left;
    item.MitreRight = right;
    Show();
    return Items.At(1);
  }
  static QLineEdit& Angle(QWidget& form, int end) {
    return Find<QLineEdit>(form, "txtAngle(" + std::to_string(end) + ")");
  }
  static std::vector<std::string> Angles(QWidget& form) {
    return {FromQt(Angle(form, 0).text()), FromQt(Angle(form, 1).text())};
  }
  static QPushButton& Button(QWidget& form, int index) {
    return Find<QPushButton>(form, "SSCommand2(" + std::to_string(index) + ")");
  }
  static BeamPicture& Picture(QWidget& form) { return Find<BeamPicture>(form, "Picture1"); }

  static void WaitUntilActive(QWidget& form) {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
  }
  static void Retype(QWidget& form, int end, const std::string& text) {
    QLineEdit& box = Angle(form, end);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, ToQt(text));
  }
  // Opens the dialog by its menu entry, runs the action in it, and comes back to the main window.
  // An action that leaves it open is followed by Escape.
  void InDialog(const std::function<void(QWidget&)>& action) {
    dialogs.ExpectDialog("frmMitres", [action](QWidget& form) {
      WaitUntilActive(form);
      action(form);
      RunQueued();
      if (form.isVisible()) QTest::keyClick(&form, Qt::Key_Escape);
    });
    Section(MitresEntry);
    Settle();
    BackToMain();
  }
  // Whether the sketch shows a beam of these angles, degrees, at the picture's present size.
  static void ExpectSketch(QWidget& form, double left, double right) {
    const BeamPicture& picture = Picture(form);
    const BeamSketch beam = picture.Corners();
    // Fifteen twips to the pixel, a margin of 240.
    const double width = picture.width() * 15.0;
    const double height = picture.height() * 15.0 - 480;
    const double slantLeft = std::tan(std::abs(left) * Degree) * height;
    const double slantRight = std::tan(std::abs(right) * Degree) * height;
    EXPECT_EQ(beam.Top, 240);
    EXPECT_EQ(beam.Bottom, 240 + height);
    EXPECT_NEAR(beam.TopLeft, 240 + (left > 0 ? slantLeft : 0), 1e-6);
    EXPECT_NEAR(beam.BottomLeft, 240 + (left < 0 ? slantLeft : 0), 1e-6);
    EXPECT_NEAR(beam.TopRight, width - 240 - (right < 0 ? slantRight : 0), 1e-6);
    EXPECT_NEAR(beam.BottomRight, width - 240 - (right > 0 ? slantRight : 0), 1e-6);
  }
};

TEST_F(MitresTest, On_an_empty_grid_the_command_does_nothing) {
  Section(MitresEntry);
  Settle();
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_EQ(Sheet().DrawCount(), 0);
}

TEST_F(MitresTest, The_dialog_has_its_texts_fields_and_buttons) {
  ShowOne();
  InDialog([](QWidget& form) {
    EXPECT_EQ(form.windowTitle(), "Mitres");
    EXPECT_EQ(Find<QLabel>(form, "Label1").text(),
              "Angles should be entered as +ve or -ve degrees.");
    EXPECT_EQ(Button(form, 0).text(), "&OK");
    EXPECT_EQ(Button(form, 1).text(), "&Cancel");
    EXPECT_TRUE(form.isModal());
    EXPECT_EQ(Focus(), "txtAngle(0)");
    EXPECT_EQ(Angle(form, 0).selectedText(), "0.0");
  });
}

TEST_F(MitresTest, The_boxes_show_the_stored_angles_with_one_decimal_place) {
  ShowOne(12.3F, -7);
  InDialog([](QWidget& form) {
    EXPECT_EQ(Angles(form), (std::vector<std::string>{"12.3", "-7.0"}));
    ExpectSketch(form, 12.3, -7);
  });
}

TEST_F(MitresTest, A_square_section_shows_a_rectangle) {
  ShowOne();
  InDialog([](QWidget& form) { ExpectSketch(form, 0, 0); });
}

TEST_F(MitresTest, The_command_works_on_the_row_of_the_grid) {
  ShowOne();
  Put("Z", "B1", "Z14012", 4000);
  Show(2, 4);
  CurrentItem = 0;
  InDialog([](QWidget& form) {
    EXPECT_EQ(CurrentItem, 2);
    Retype(form, 0, "10");
    QTest::mouseClick(&Button(form, 0), Qt::LeftButton);
  });
  EXPECT_EQ(Items.At(1).MitreLeft, 0);
  EXPECT_EQ(Items.At(2).MitreLeft, 10);
  EXPECT_TRUE(CursorAt(2, 4, "1"));
}

TEST_F(MitresTest, Leaving_a_box_rewrites_its_text_and_clamps_it_without_a_word) {
  ShowOne();
  InDialog([](QWidget& form) {
    const std::vector<std::pair<std::string, std::string>> typed = {
        {"5", "5.0"},      {"75", "60.0"},    {"-75", "-60.0"},    {"60", "60.0"},
        {"-60", "-60.0"},  {"60.04", "60.0"}, {"59.9", "59.9"},    {"-59.9", "-59.9"},
        {"12.34", "12.3"}, {"12.25", "12.3"}, {"-12.25", "-12.3"}, {"abc", "0.0"},
        {"-", "0.0"},      {"-0.04", "0.0"},  {"", "0.0"},         {"7,5", "7.0"},
    };
    for (int end = 0; end < 2; ++end) {
      for (const auto& [text, left] : typed) {
        Retype(form, end, text);
        EXPECT_EQ(FromQt(Angle(form, end).text()), text);
        QTest::keyClick(&Angle(form, end), Qt::Key_Tab);
        EXPECT_EQ(FromQt(Angle(form, end).text()), left) << text;
      }
    }
  });
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(MitresTest, The_sketch_follows_a_box_that_is_left_and_not_what_is_being_typed) {
  ShowOne();
  InDialog([](QWidget& form) {
    Retype(form, 0, "30");
    ExpectSketch(form, 0, 0);
    form.resize(form.width() + 90, form.height() + 60);
    RunQueued();
    ExpectSketch(form, 0, 0);
    QTest::keyClick(&Angle(form, 0), Qt::Key_Tab);
    ExpectSketch(form, 30, 0);
    Retype(form, 1, "-30");
    QTest::keyClick(&Angle(form, 1), Qt::Key_Backtab, Qt::ShiftModifier);
    ExpectSketch(form, 30, -30);
    Retype(form, 1, "30");
    QTest::mouseClick(&Angle(form, 0), Qt::LeftButton);
    ExpectSketch(form, 30, 30);
  });
}

TEST_F(MitresTest, Twelve_point_three_four_stores_twelve_point_three) {
  ShowOne();
  InDialog([](QWidget& form) {
    Retype(form, 0, "12.34");
    QTest::keyClick(&Angle(form, 0), Qt::Key_Tab);
    QTest::mouseClick(&Button(form, 0), Qt::LeftButton);
  });
  EXPECT_EQ(Items.At(1).MitreLeft, 12.3F);
}

TEST_F(MitresTest, OK_stores_both_angles_redraws_the_row_and_leaves_the_changed_flag) {
  ShowOne();
  const int drawn = Sheet().DrawCount();
  InDialog([](QWidget& form) {
    Retype(form, 0, "10");
    Retype(form, 1, "-20");
    QTest::mouseClick(&Button(form, 0), Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Items.At(1).MitreLeft, 10);
  EXPECT_EQ(Items.At(1).MitreRight, -20);
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Sheet().DrawCount(), drawn + 1);
  EXPECT_EQ(Sheet().ShownRow(), 1);
}

TEST_F(MitresTest, OK_by_a_key_of_its_own_does_first_what_leaving_the_box_does) {
  struct Way {
    const char* Name;
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
  };
  ShowOne();
  for (const Way& way :
       {Way{"Alt+O", Qt::Key_O, Qt::AltModifier}, Way{"Return", Qt::Key_Return, Qt::NoModifier},
        Way{"Enter", Qt::Key_Enter, Qt::KeypadModifier}}) {
    SCOPED_TRACE(way.Name);
    Items.At(1).MitreLeft = 0;
    Items.At(1).MitreRight = 0;
    InDialog([&way](QWidget& form) {
      Retype(form, 0, "75");
      Retype(form, 1, "-75");
      QTest::keyClick(&Angle(form, 1), way.Key, way.Modifiers);
      EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
    });
    EXPECT_EQ(Items.At(1).MitreLeft, 60);
    EXPECT_EQ(Items.At(1).MitreRight, -60);
  }
}

TEST_F(MitresTest, The_Enter_that_opened_the_dialog_stores_nothing_while_it_is_held) {
  ShowOne(10, -20);
  InDialog([](QWidget& form) {
    Retype(form, 0, "1");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(&Angle(form, 0), &held);
    EXPECT_TRUE(form.isVisible());
  });
  EXPECT_EQ(Items.At(1).MitreLeft, 10);
}

TEST_F(MitresTest, Every_other_way_out_stores_nothing_and_redraws_the_row_all_the_same) {
  ShowOne(10, -20);
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { QTest::mouseClick(&Button(form, 1), Qt::LeftButton); },
      [](QWidget& form) { QTest::keyClick(&Angle(form, 1), Qt::Key_C, Qt::AltModifier); },
      [](QWidget& form) { QTest::keyClick(&Angle(form, 1), Qt::Key_Escape); },
      [](QWidget& form) { form.close(); },
  };
  for (const auto& leave : ways) {
    const int drawn = Sheet().DrawCount();
    InDialog([&leave](QWidget& form) {
      Retype(form, 0, "1");
      Retype(form, 1, "2");
      leave(form);
      EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
    });
    EXPECT_EQ(Items.At(1).MitreLeft, 10);
    EXPECT_EQ(Items.At(1).MitreRight, -20);
    EXPECT_EQ(Sheet().DrawCount(), drawn + 1);
  }
}

TEST_F(MitresTest, Tab_leads_from_the_left_angle_to_the_right_one_OK_and_Cancel) {
  ShowOne();
  InDialog([](QWidget&) {
    std::vector<std::string> stops = {Focus()};
    for (int i = 0; i < 4; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      stops.push_back(Focus());
    }
    EXPECT_EQ(stops, (std::vector<std::string>{"txtAngle(0)", "txtAngle(1)", "SSCommand2(0)",
                                               "SSCommand2(1)", "txtAngle(0)"}));
  });
}

TEST_F(MitresTest, Alt_and_a_letter_lead_to_the_boxes) {
  ShowOne();
  InDialog([](QWidget& form) {
    QTest::keyClick(&Angle(form, 0), Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(Focus(), "txtAngle(1)");
    QTest::keyClick(&Angle(form, 1), Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Focus(), "txtAngle(0)");
  });
}

TEST_F(MitresTest, An_angle_beyond_all_numbers_shows_its_error_and_keeps_the_dialog) {
  ShowOne(10, -20);
  dialogs.ExpectDialog("frmMitres", [this](QWidget& form) {
    WaitUntilActive(form);
    Retype(form, 0, "1e999");
    dialogs.ExpectBox("Overflow");
    QTest::keyClick(&Angle(form, 0), Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    Retype(form, 0, "1");
    QTest::keyClick(&Angle(form, 0), Qt::Key_Escape);
  });
  Section(MitresEntry);
  Settle();
  BackToMain();
  EXPECT_EQ(Items.At(1).MitreLeft, 10);
  EXPECT_EQ(Items.At(1).MitreRight, -20);
}

// The picture as it is on the screen.

// Whether the pixel stands out from the ground of the picture.
bool IsInked(const QImage& image, QPointF twips) {
  const double ratio = image.devicePixelRatio() / 15;
  const QPoint at = (twips * ratio).toPoint();
  const QColor ground = image.pixelColor(at + QPoint(8, 8));
  return std::abs(image.pixelColor(at).lightness() - ground.lightness()) > 60;
}

TEST_F(MitresTest, The_picture_has_four_lines_and_no_old_ones_in_light_and_dark_themes) {
  ShowOne();
  for (const bool dark : {false, true}) {
    SCOPED_TRACE(dark);
    InDialog([dark](QWidget& form) {
      QPalette palette = form.palette();
      palette.setColor(QPalette::Base, dark ? QColor(30, 30, 30) : QColor(250, 250, 250));
      palette.setColor(QPalette::Text, dark ? QColor(240, 240, 240) : QColor(20, 20, 20));
      form.setPalette(palette);
      const auto middles = [&form] {
        const BeamSketch beam = Picture(form).Corners();
        const double middle = (beam.Top + beam.Bottom) / 2;
        return std::vector<QPointF>{
            {(beam.TopLeft + beam.TopRight) / 2, beam.Top},
            {(beam.TopRight + beam.BottomRight) / 2, middle},
            {(beam.BottomLeft + beam.BottomRight) / 2, beam.Bottom},
            {(beam.TopLeft + beam.BottomLeft) / 2, middle},
        };
      };
      const std::vector<QPointF> square = middles();
      QImage image = Picture(form).grab().toImage();
      for (const QPointF& at : square) EXPECT_TRUE(IsInked(image, at)) << at.x() << "," << at.y();
      Retype(form, 0, "45");
      Retype(form, 1, "45");
      QTest::keyClick(&Angle(form, 1), Qt::Key_Tab);
      image = Picture(form).grab().toImage();
      for (const QPointF& at : middles()) EXPECT_TRUE(IsInked(image, at)) << at.x();
      // The square ends are gone.
      EXPECT_FALSE(IsInked(image, square.at(1)));
      EXPECT_FALSE(IsInked(image, square.at(3)));
    });
  }
}

TEST_F(MitresTest, The_steepest_cuts_may_cross_on_a_narrow_picture) {
  ShowOne(60, -60);
  InDialog([](QWidget& form) {
    BeamPicture& picture = Picture(form);
    picture.setMinimumSize(1, 1);
    picture.resize(60, 200);
    EXPECT_FALSE(picture.grab().isNull());
    const BeamSketch beam = picture.Corners();
    EXPECT_GT(beam.TopLeft, beam.TopRight);
  });
}

TEST_F(MitresTest, A_click_before_the_figures_replaces_them) {
  ShowOne();
  InDialog([](QWidget& form) {
    QLineEdit& right = Angle(form, 1);
    QTest::mouseClick(&right, Qt::LeftButton, Qt::NoModifier,
                      QPoint(right.width() - 20, right.height() / 2));
    QTest::keyClicks(&right, "10");
    EXPECT_EQ(FromQt(right.text()), "10");
    QTest::mouseClick(&Button(form, 0), Qt::LeftButton);
  });
  EXPECT_EQ(Items.At(1).MitreRight, 10);
}

}  // namespace
}  // namespace orvane::test
