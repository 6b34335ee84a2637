// "Type 1 Accessories": what it shows, its picture, its place on the screen.
#include <QImage>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <filesystem>
#include <fstream>

#include "core/program_folder.h"
#include "tests/screens/acc01_fixture.h"
#include "ui/dialogs/accessory_pane.h"

namespace orvane::test {
namespace {

// What it shows.

TEST_F(Acc01Test, The_title_is_the_accessorys_name) {
  for (const int index : {PurlinCleats, Bolts}) {
    InDialogOf(index, [&](QWidget& form) {
      EXPECT_EQ(FromQt(form.windowTitle()), AccDefs.At(index).Name);
      EXPECT_TRUE(form.isModal());
    });
  }
}

TEST_F(Acc01Test, It_has_a_row_for_each_size_in_the_order_of_the_catalogue) {
  InDialogOf(PurlinCleats, [](QWidget& form) {
    EXPECT_EQ(Shown(form, "lblCode", 1, 5), (Texts{"CL140", "CL190", "CL245", "CL301", "CL351"}));
    EXPECT_EQ(Shown(form, "lblDesc", 1, 5),
              (Texts{"Cleat for depths 140 and 165", "Cleat for depths 190 and 215",
                     "Cleat for depths 245 and 275", "Cleat for depths 301 and 321",
                     "Cleat for depth 351"}));
    EXPECT_EQ(form.findChild<QObject*>("txtQty(6)"), nullptr);
    EXPECT_EQ(form.findChild<QObject*>("txtQty(0)"), nullptr);
    int bottom = 0;
    for (int i = 1; i <= 5; ++i) {
      EXPECT_TRUE(Qty(form, i).isVisible());
      EXPECT_GT(PlaceIn(form, Qty(form, i)).top(), bottom);
      bottom = PlaceIn(form, Qty(form, i)).bottom();
      // Code, number and text of a size stand on one line.
      const int middle = PlaceIn(form, Qty(form, i)).center().y();
      EXPECT_NEAR(PlaceIn(form, Label(form, "lblCode", i)).center().y(), middle, 1);
      EXPECT_NEAR(PlaceIn(form, Label(form, "lblDesc", i)).center().y(), middle, 1);
    }
  });
}

TEST_F(Acc01Test, The_headings_stand_over_their_columns_from_left_to_right) {
  AccDefs.At(PurlinCleats).HasParamColumn = True;
  InDialogOf(PurlinCleats, [](QWidget& form) {
    EXPECT_EQ(Shown(form, "lblHeading", 0, 3), (Texts{"Code", "No. Off", "Description", "Param"}));
    const std::vector<const QWidget*> below = {&Label(form, "lblCode", 1), &Qty(form, 1),
                                               &Label(form, "lblDesc", 1), &Param(form, 1)};
    int right = 0;
    for (int column = 0; column < 4; ++column) {
      SCOPED_TRACE(column);
      const QRect heading = PlaceIn(form, Label(form, "lblHeading", column));
      const QRect entry = PlaceIn(form, *below.at(static_cast<std::size_t>(column)));
      EXPECT_LT(heading.bottom(), entry.top());
      // Numbers stand under the right end of their heading, texts under its left end.
      if (column == 1 || column == 3) {
        EXPECT_EQ(heading.right(), entry.right());
      } else {
        EXPECT_EQ(heading.left(), entry.left());
      }
      EXPECT_GT(std::min(heading.left(), entry.left()), right);
      right = std::max(heading.right(), entry.right());
    }
  });
}

TEST_F(Acc01Test, Without_the_flag_there_is_no_column_of_descriptions) {
  ASSERT_EQ(AccDefs.At(Bolts).Flag, False);
  InDialogOf(Bolts, [](QWidget& form) {
    EXPECT_EQ(Shown(form, "lblHeading", 0, 3), (Texts{"Code", "No. Off"}));
    EXPECT_EQ(Shown(form, "lblDesc", 1, 4), Texts{});
    EXPECT_EQ(Shown(form, "lblCode", 1, 4), (Texts{"M12x30", "M16x35", "M16x45", "M16x35C"}));
  });
}

TEST_F(Acc01Test, No_shipped_accessory_shows_the_value_column) {
  for (int index = 1; index <= AccType1Count; ++index) {
    SCOPED_TRACE(index);
    InDialogOf(index, [&](QWidget& form) {
      EXPECT_FALSE(Label(form, "lblHeading", 3).isVisible());
      for (int i = 1; i <= AccDefs.At(index).ParamCount(); ++i) {
        EXPECT_FALSE(Param(form, i).isVisible());
      }
    });
  }
}

TEST_F(Acc01Test, Columns_are_as_wide_as_their_longest_entry) {
  const std::string longText = "A size with a description that is much longer than the others";
  GiveSizes(HalfSleeves, 3);
  // A picture would be wider than either, with the letters of some desktops.
  AccDefs.At(HalfSleeves).DrawingFile = "None";
  AccDefs.At(HalfSleeves).ParamTexts.At(2) = longText;
  AccDefs.At(HalfSleeves).ParamNames.At(3) = "CODE-OF-SOME-LENGTH";
  int width = 0;
  InDialogOf(HalfSleeves, [&](QWidget& form) {
    width = form.width();
    for (const auto& [array, i] : {std::pair{"lblDesc", 2}, {"lblCode", 3}}) {
      const QLabel& label = Label(form, array, i);
      EXPECT_GE(label.width(), label.fontMetrics().horizontalAdvance(label.text()));
      EXPECT_TRUE(form.rect().contains(PlaceIn(form, label)));
    }
  });
  GiveSizes(HalfSleeves, 3);
  InDialogOf(HalfSleeves, [&](QWidget& form) { EXPECT_LT(form.width(), width); });
}

TEST_F(Acc01Test, Room_that_is_left_stays_free_behind_the_columns) {
  InDialogOf(Bolts, [](QWidget& form) {
    form.resize(form.width() + 300, form.height());
    RunQueued();
    const QLabel& code = Label(form, "lblCode", 4);
    const int gap = PlaceIn(form, Qty(form, 4)).left() - PlaceIn(form, code).left() -
                    code.fontMetrics().horizontalAdvance(code.text());
    EXPECT_LT(gap, 4 * code.fontMetrics().height());
    EXPECT_EQ(PlaceIn(form, Label(form, "lblHeading", 1)).right(),
              PlaceIn(form, Qty(form, 4)).right());
  });
}

TEST_F(Acc01Test, Texts_of_the_catalogue_are_shown_as_they_stand) {
  GiveSizes(HalfSleeves, 1, "<b>M & N</b>");
  AccDefs.At(HalfSleeves).ParamNames.At(1) = "A&B";
  InDialogOf(HalfSleeves, [](QWidget& form) {
    for (const auto& [array, text] : {std::pair{"lblDesc", "<b>M & N</b>"}, {"lblCode", "A&B"}}) {
      const QLabel& label = Label(form, array, 1);
      EXPECT_EQ(label.text(), text);
      EXPECT_EQ(label.textFormat(), Qt::PlainText);
      EXPECT_EQ(label.buddy(), nullptr);
    }
  });
}

TEST_F(Acc01Test, The_height_follows_the_rows) {
  GiveSizes(Bolts, 4);
  int height = 0;
  InDialogOf(Bolts, [&](QWidget& form) { height = form.height(); });
  GiveSizes(Bolts, 12);
  InDialogOf(Bolts, [&](QWidget& form) {
    EXPECT_GE(form.height(), height + 8 * Qty(form, 1).height());
    EXPECT_TRUE(form.rect().contains(PlaceIn(form, Qty(form, 12))));
    EXPECT_FALSE(form.findChild<QScrollArea*>("areaSizes")->verticalScrollBar()->isVisible());
  });
}

TEST_F(Acc01Test, A_list_higher_than_the_screen_scrolls_under_its_headings) {
  GiveSizes(Bolts, 100);
  InDialogOf(Bolts, [this](QWidget& form) {
    EXPECT_LE(form.frameGeometry().height(), form.screen()->availableSize().height());
    auto& list = *form.findChild<QScrollArea*>("areaSizes");
    EXPECT_TRUE(list.verticalScrollBar()->isVisible());
    EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
    const QRect heading = PlaceIn(form, Label(form, "lblHeading", 0));
    // Round from the first field: each comes into sight as the cursor comes to it.
    for (int i = 1; i <= 100; ++i) {
      ASSERT_EQ(Focus(), "txtQty(" + std::to_string(i) + ")");
      const QRect seen = PlaceIn(form, *list.viewport());
      EXPECT_TRUE(seen.contains(PlaceIn(form, Qty(form, i)))) << i;
      Press(Qt::Key_Return);
    }
    EXPECT_EQ(PlaceIn(form, Label(form, "lblHeading", 0)), heading);
    EXPECT_EQ(Focus(), "SSCommand2(0)");
  });
}

TEST_F(Acc01Test, An_accessory_without_sizes_opens_and_stores_nothing) {
  GiveSizes(Bolts, 0);
  Put1(Bolts, 1, 5);
  InDialogOf(Bolts, [](QWidget& form) { ClickButton(form, 0); });
  EXPECT_EQ(AccLines1.UBound(), 0);
  EXPECT_EQ(AccUsed.At(Bolts), False);
}

TEST_F(Acc01Test, The_buttons_have_their_captions_and_keys) {
  InDialogOf(Bolts, [](QWidget& form) {
    EXPECT_EQ(Button(form, 0).text(), "&OK");
    EXPECT_EQ(Button(form, 1).text(), "C&lea&r");
    EXPECT_EQ(Button(form, 2).text(), "&Print");
    EXPECT_EQ(Button(form, 3).text(), "&Cancel");
    for (int index = 0; index < 4; ++index) {
      EXPECT_FALSE(Button(form, index).isDefault());
      EXPECT_FALSE(Button(form, index).autoDefault());
    }
    EXPECT_EQ(Button(form, 0).shortcut(), QKeySequence("Alt+O"));
    EXPECT_EQ(Button(form, 1).shortcut(), QKeySequence("Alt+L"));
    EXPECT_EQ(Button(form, 2).shortcut(), QKeySequence("Alt+P"));
    EXPECT_EQ(Button(form, 3).shortcut(), QKeySequence("Alt+C"));
  });
}

// The lines it opens on.

TEST_F(Acc01Test, The_fields_show_the_numbers_of_the_accessorys_own_lines) {
  Put1(PurlinCleats, 3, 32767);
  Put1(PurlinCleats, 1, 5);
  Put1(Bolts, 2, 9);
  InDialogOf(PurlinCleats, [](QWidget& form) {
    EXPECT_EQ(Quantities(form), (Texts{"5", "", "32767", "", ""}));
    EXPECT_EQ(Focus(), "txtQty(1)");
    EXPECT_EQ(Qty(form, 1).selectedText(), "5");
  });
}

TEST_F(Acc01Test, A_line_whose_size_is_gone_is_skipped_and_goes_with_OK) {
  Put1(HalfSleeves, 2, 4);
  Put1(HalfSleeves, 3, 8);
  InDialogOf(HalfSleeves, [](QWidget& form) {
    EXPECT_EQ(Quantities(form), (Texts{"", "4"}));
    QTest::keyClick(&form, Qt::Key_Escape);
  });
  EXPECT_EQ(Lines1(), (Texts{"5/2/4/0", "5/3/8/0"}));
  InDialogOf(HalfSleeves, [](QWidget& form) { ClickButton(form, 0); });
  EXPECT_EQ(Lines1(), Texts{"5/2/4/0"});
}

// The picture.

TEST_F(Acc01Test, A_picture_is_as_large_as_the_surface_lets_it_be_in_the_middle) {
  const auto expectPlace = [](double pictureWidth, double pictureHeight, const Box& expected) {
    Picture picture;
    picture.Width = pictureWidth;
    picture.Height = pictureHeight;
    // A surface of 110 x 60: 100 x 50 for the picture.
    const Box place = PicturePlaceOn(picture, 110, 60);
    EXPECT_DOUBLE_EQ(place.Left, expected.Left);
    EXPECT_DOUBLE_EQ(place.Top, expected.Top);
    EXPECT_DOUBLE_EQ(place.Width, expected.Width);
    EXPECT_DOUBLE_EQ(place.Height, expected.Height);
  };
  // A wide one: scale 100 / 40 = 2.5; 25 high, so (50 - 25) / 2 + 5 from the top.
  expectPlace(40, 10, {5, 17.5, 100, 25});
  // A tall one: scale 50 / 100; 10 wide, so (100 - 10) / 2 + 5 from the left.
  expectPlace(20, 100, {50, 5, 10, 50});
  // One of the surface's own shape.
  expectPlace(200, 100, {5, 5, 100, 50});
  Picture picture;
  picture.Width = 1;
  picture.Height = 1;
  EXPECT_EQ(PicturePlaceOn(picture, 9, 60).Width, 0);
  EXPECT_EQ(PicturePlaceOn(picture, 110, 4).Height, 0);
}

// The box of everything that isn't white, inside the edge line.
QRect InkOf(QWidget& surface) {
  const QImage image = surface.grab().toImage();
  QRect ink;
  for (int y = 2; y < image.height() - 2; ++y) {
    for (int x = 2; x < image.width() - 2; ++x) {
      if (image.pixelColor(x, y).lightness() < 250) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

TEST_F(Acc01Test, The_picture_stands_beside_the_list_and_follows_the_dialogs_size) {
  InDialogOf(PurlinCleats, [](QWidget& form) {
    auto& surface = Find<AccessoryPicture>(form, "VSPrinter1");
    EXPECT_TRUE(surface.isVisible());
    EXPECT_GT(PlaceIn(form, surface).left(), PlaceIn(form, Label(form, "lblDesc", 1)).right());
    const QSize formerSurface = surface.size();
    const QSize formerForm = form.size();
    const QRect small = InkOf(surface);
    ASSERT_GT(small.width(), 20);
    EXPECT_EQ(surface.grab().toImage().pixelColor(3, 3), QColor(Qt::white));

    form.resize(formerForm + QSize(150, 120));
    EXPECT_TRUE(QTest::qWaitFor([&] { return surface.size() == formerSurface + QSize(150, 120); }));
    const QRect large = InkOf(surface);
    EXPECT_GT(large.width(), small.width());
    EXPECT_NEAR(static_cast<double>(large.width()) / large.height(),
                static_cast<double>(small.width()) / small.height(), 0.03);
    // 5 mm of the screen's 96 pixels to the inch are 19 pixels.
    EXPECT_GE(large.left(), 18);
    EXPECT_GE(large.top(), 18);
    EXPECT_LE(large.right(), surface.width() - 18);
    EXPECT_LE(large.bottom(), surface.height() - 18);
  });
}

TEST_F(Acc01Test, None_hides_the_picture_and_narrows_the_dialog_to_the_list) {
  int wide = 0;
  InDialogOf(HalfSleeves, [&](QWidget& form) { wide = form.width(); });
  AccDefs.At(HalfSleeves).DrawingFile = "None";
  InDialogOf(HalfSleeves, [&](QWidget& form) {
    EXPECT_EQ(form.findChild<QWidget*>("VSPrinter1"), nullptr);
    EXPECT_LT(form.width(), wide - 150);
    EXPECT_TRUE(form.rect().contains(PlaceIn(form, Label(form, "lblDesc", 2))));
    EXPECT_TRUE(form.rect().contains(PlaceIn(form, Button(form, 3))));
  });
}

TEST_F(Acc01Test, Only_None_itself_stands_for_no_picture) {
  AccDefs.At(HalfSleeves).DrawingFile = "none";
  dialogs.ExpectBox("File not found: " + ProgramFolder + "/Drawings/none.wmf");
  DoubleClickEntry(HalfSleeves);
  Settle();
  BackToMain();
}

TEST_F(Acc01Test, A_damaged_picture_stops_the_opening_and_changes_nothing) {
  Put1(HalfSleeves, 1, 5);
  ProgramFolder = TempPath("program");
  std::filesystem::create_directories(ProgramFolder + "/Drawings");
  std::ofstream(ProgramFolder + "/Drawings/acc05.wmf") << "no picture";
  AccDialogResult = "OK";
  std::string text;
  dialogs.ExpectDialog("MessageBox", [&](QWidget& box) {
    text = FromQt(dynamic_cast<QMessageBox&>(box).text());
    box.close();
  });
  DoubleClickEntry(HalfSleeves);
  Settle();
  BackToMain();
  const std::string path = ": " + ProgramFolder + "/Drawings/acc05.wmf";
  ASSERT_GT(text.size(), path.size());
  EXPECT_EQ(text.substr(text.size() - path.size()), path);
  EXPECT_EQ(AccDialogResult, "Cancelled");
  EXPECT_EQ(Lines1(), Texts{"5/1/5/0"});
}

TEST_F(Acc01Test, The_picture_is_found_whatever_the_case_of_its_name) {
  AccDefs.At(HalfSleeves).DrawingFile = "ACC05";
  InDialogOf(HalfSleeves, [](QWidget& form) {
    EXPECT_TRUE(Find<AccessoryPicture>(form, "VSPrinter1").isVisible());
  });
}

// The place.

TEST_F(Acc01Test, It_opens_where_it_was_closed) {
  const QPoint place = main->screen()->availableGeometry().topLeft() + QPoint(31, 47);
  InDialogOf(Bolts, [&](QWidget& form) { form.move(place); });
  InDialogOf(Bolts, [&](QWidget& form) { EXPECT_EQ(form.pos(), place); });
}

}  // namespace
}  // namespace orvane::test
