// The dialog of the notches, opened from the main window.
#include <QHeaderView>

#include "tests/screens/notches_fixture.h"

namespace orvane::test {
namespace {

TEST_F(NotchesTest, On_an_empty_grid_the_command_does_nothing) {
  Section(NotchesEntry);
  Settle();
  EXPECT_EQ(CurrentItem, 0);
  EXPECT_EQ(Sheet().DrawCount(), 0);
}

TEST_F(NotchesTest, The_dialog_has_its_headings_list_and_buttons) {
  ShowOne();
  InDialog([](QWidget& form) {
    EXPECT_EQ(form.windowTitle(), "Notches");
    Texts headings;
    for (int column = 0; column < Grid(form).Cols(); ++column) {
      headings.push_back(Grid(form).TextMatrix(0, column));
    }
    EXPECT_EQ(headings, (Texts{"", "Code", "Depth", "Width", "Position"}));
    Texts codes;
    for (int at = 0; at < Codes(form).count(); ++at)
      codes.push_back(FromQt(Codes(form).itemText(at)));
    EXPECT_EQ(codes, (Texts{"TL1", "T2", "TR1", "BL1", "B2", "BR1", "L3", "R3"}));
    Texts captions;
    for (const char* name :
         {"cmdNotch(0)", "cmdNotch(1)", "cmdNotch(2)", "SSCommand2(0)", "SSCommand2(1)"}) {
      captions.push_back(FromQt(Find<QPushButton>(form, name).text()));
      EXPECT_FALSE(Find<QPushButton>(form, name).autoDefault());
    }
    EXPECT_EQ(captions, (Texts{"&Add", "&Delete", "Clea&r All", "&OK", "&Cancel"}));
    // 180 to 1000 to 1000 to 1000 to 1000, to the pixel.
    const double whole = Grid(form).viewport()->width();
    EXPECT_NEAR(Grid(form).columnWidth(0), whole * 180 / 4180, 1);
    for (int column = 1; column <= 4; ++column) {
      EXPECT_NEAR(Grid(form).columnWidth(column), whole * 1000 / 4180, 1);
    }
    ExpectEditing(form, 1, 1, "");
  });
}

TEST_F(NotchesTest, The_picture_marks_the_eight_places_on_the_section) {
  ShowOne();
  InDialog([](QWidget& form) {
    auto& picture = Find<NotchPicture>(form, "Image1");
    const QRect section = picture.SectionPlace();
    struct Place {
      const char* Code;
      bool Left, Right, Top, Bottom;  // sides of the section that the notch touches
    };
    for (const Place& place :
         {Place{"TL1", true, false, true, false}, Place{"T2", false, false, true, false},
          Place{"TR1", false, true, true, false}, Place{"BL1", true, false, false, true},
          Place{"B2", false, false, false, true}, Place{"BR1", false, true, false, true},
          Place{"L3", true, false, false, false}, Place{"R3", false, true, false, false}}) {
      SCOPED_TRACE(place.Code);
      const QRect notch = picture.PlaceOf(place.Code);
      EXPECT_TRUE(section.contains(notch));
      EXPECT_EQ(notch.left() == section.left(), place.Left);
      EXPECT_EQ(notch.right() == section.right(), place.Right);
      EXPECT_EQ(notch.top() == section.top(), place.Top);
      EXPECT_EQ(notch.bottom() == section.bottom(), place.Bottom);
      for (const char* other : {"TL1", "T2", "TR1", "BL1", "B2", "BR1", "L3", "R3"}) {
        if (std::string(other) != place.Code) {
          EXPECT_FALSE(notch.intersects(picture.PlaceOf(other))) << other;
        }
      }
    }
    EXPECT_TRUE(picture.PlaceOf("Q7").isEmpty());
  });
}

TEST_F(NotchesTest, The_picture_follows_the_theme) {
  ShowOne();
  InDialog([](QWidget& form) {
    auto& picture = Find<NotchPicture>(form, "Image1");
    for (const QColor& ground : {QColor(250, 250, 250), QColor(30, 30, 30)}) {
      QPalette palette = form.palette();
      palette.setColor(QPalette::Base, ground);
      palette.setColor(QPalette::Text, ground.lightness() > 128 ? Qt::black : Qt::white);
      form.setPalette(palette);
      const QImage image = picture.grab().toImage();
      const auto at = [&](QPoint place) {
        return image.pixelColor((QPointF(place) * image.devicePixelRatio()).toPoint());
      };
      EXPECT_EQ(at({1, 1}), ground);
      EXPECT_EQ(at(picture.PlaceOf("T2").topLeft() + QPoint(3, 3)), ground);
      // The steel stands out from the ground, not by much.
      const int steel = at(picture.SectionPlace().center()).lightness() - ground.lightness();
      EXPECT_GT(std::abs(steel), 15);
      EXPECT_LT(std::abs(steel), 80);
    }
  });
}

TEST_F(NotchesTest, Opening_shows_one_row_for_each_notch) {
  ShowOne(Three);
  InDialog([this](QWidget& form) { EXPECT_EQ(Cells(form), ThreeTexts); });
}

TEST_F(NotchesTest, A_section_without_notches_shows_one_empty_row_and_OK_leaves_none) {
  ShowOne();
  InDialog([this](QWidget& form) {
    EXPECT_EQ(Cells(form), std::vector<Texts>{Blank});
    Ok(form);
  });
  EXPECT_TRUE(Stored().empty());
}

TEST_F(NotchesTest, A_click_lays_the_right_editor_on_the_cell_with_its_text_and_the_focus) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    for (int row = 1; row <= 3; ++row) {
      for (int column = 1; column <= 4; ++column) {
        SCOPED_TRACE(row * 10 + column);
        Click(form, row, column);
        ExpectEditing(form, row, column,
                      ThreeTexts.at(static_cast<std::size_t>(row - 1))
                          .at(static_cast<std::size_t>(column - 1)));
      }
    }
    EXPECT_EQ(Cells(form), ThreeTexts);
  });
}

TEST_F(NotchesTest, Heading_and_column_0_take_no_editing) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 2, 0);
    ExpectEditing(form, 1, 1, "TL1");
    QTest::mouseClick(Grid(form).horizontalHeader(), Qt::LeftButton);
    ExpectEditing(form, 1, 1, "TL1");
  });
}

TEST_F(NotchesTest, An_empty_code_cell_shows_no_entry_after_another_row_showed_one) {
  ShowOne({{"TL1", 1, 2, 3}});
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    ClickButton(form, "cmdNotch(0)");
    ExpectEditing(form, 2, 1, "");
    EXPECT_EQ(Codes(form).currentIndex(), -1);
    EXPECT_EQ(Cells(form), (std::vector<Texts>{{"TL1", "1", "2", "3"}, Blank}));
  });
}

TEST_F(NotchesTest, Typed_texts_are_stored_in_the_cell_at_once) {
  ShowOne();
  InDialog([this](QWidget& form) {
    Click(form, 1, 2);
    Keys("4");
    EXPECT_EQ(Cells(form).front().at(1), "4");
    Keys("0");
    EXPECT_EQ(Cells(form).front().at(1), "40");
    Click(form, 1, 1);
    Keys("l");
    EXPECT_EQ(Cells(form).front().at(0), "");  // a code isn't stored before it is chosen
    Key(Qt::Key_Return);
    EXPECT_EQ(Cells(form).front().at(0), "L3");
    Click(form, 1, 2);
    Keys("12.5");
    Click(form, 1, 3);
    Keys("30");
    Ok(form);
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"L3", "12.5", "30", "0"}}));
  EXPECT_EQ(ProjectDirty, False);
}

TEST_F(NotchesTest, A_code_chosen_from_the_list_is_stored_at_once_also_the_same_one_again) {
  ShowOne({{"TL1", 1, 2, 3}});
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    Choose(Codes(form), 6);
    EXPECT_EQ(Cells(form).front().front(), "L3");
    Choose(Codes(form), 6);
    EXPECT_EQ(Cells(form).front().front(), "L3");
    Ok(form);
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"L3", "1", "2", "3"}}));
}

TEST_F(NotchesTest, A_code_outside_the_list_survives_a_visit) {
  ShowOne({{"Q7", 1, 2, 3}, {"TL1", 4, 5, 6}});
  InDialog([this](QWidget& form) {
    Click(form, 2, 1);
    Click(form, 1, 1);
    EXPECT_EQ(Codes(form).currentIndex(), -1);
    Click(form, 1, 2);
    Ok(form);
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"Q7", "1", "2", "3"}, {"TL1", "4", "5", "6"}}));
}

TEST_F(NotchesTest, Add_gives_a_row_at_the_bottom_and_edits_its_code) {
  ShowOne({{"TL1", 1, 2, 3}});
  InDialog([](QWidget& form) {
    ClickButton(form, "cmdNotch(0)");
    ExpectEditing(form, 2, 1, "");
    ClickButton(form, "cmdNotch(0)");
    ExpectEditing(form, 3, 1, "");
    // Far down it is in sight.
    for (int i = 0; i < 20; ++i) ClickButton(form, "cmdNotch(0)");
    ExpectEditing(form, 23, 1, "");
    EXPECT_TRUE(Grid(form).viewport()->rect().contains(Panel(form, 1).geometry()));
  });
}

TEST_F(NotchesTest, Delete_takes_the_row_out_and_moves_those_below_up) {
  ShowOne(Three);
  InDialog([this](QWidget& form) {
    Click(form, 1, 2);
    Keys("99");
    ClickButton(form, "cmdNotch(1)");
    ExpectNoEditor(form);
    EXPECT_EQ(Cells(form), (std::vector<Texts>{ThreeTexts.at(1), ThreeTexts.at(2)}));
    EXPECT_EQ(Grid(form).Row(), 1);
    Ok(form);
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{ThreeTexts.at(1), ThreeTexts.at(2)}));
}

TEST_F(NotchesTest, Deleting_the_only_row_leaves_the_heading_and_Add_gives_a_fresh_row) {
  ShowOne({{"TL1", 1, 2, 3}});
  InDialog([](QWidget& form) {
    ClickButton(form, "cmdNotch(1)");
    EXPECT_EQ(Grid(form).Rows(), 1);
    EXPECT_EQ(Grid(form).Row(), 0);
    // Nothing is left to remove.
    ClickButton(form, "cmdNotch(1)");
    EXPECT_EQ(Grid(form).Rows(), 1);
    ClickButton(form, "cmdNotch(0)");
    ExpectEditing(form, 1, 1, "");
    EXPECT_EQ(Cells(form), (std::vector<Texts>{{"", "", "", ""}}));
    Ok(form);
  });
  EXPECT_TRUE(Stored().empty());
}

TEST_F(NotchesTest, Clear_all_leaves_one_empty_row_and_stores_nothing_before_OK) {
  ShowOne(Three);
  const auto clear = [this](QWidget& form) {
    Click(form, 2, 2);
    ClickButton(form, "cmdNotch(2)");
    ExpectNoEditor(form);
    EXPECT_EQ(Cells(form), std::vector<Texts>{Blank});
  };
  InDialog([&](QWidget& form) {
    clear(form);
    ClickButton(form, "SSCommand2(1)");
  });
  EXPECT_EQ(Stored(), ThreeTexts);
  InDialog([&](QWidget& form) {
    clear(form);
    Ok(form);
  });
  EXPECT_TRUE(Stored().empty());
}

TEST_F(NotchesTest, OK_redraws_the_row_drops_rows_without_a_code_and_leaves_the_changed_flag) {
  ShowOne();
  const int drawn = Sheet().DrawCount();
  InDialog([this](QWidget& form) {
    Click(form, 1, 2);
    Keys("5");
    ClickButton(form, "cmdNotch(0)");
    Keys("b2");
    Key(Qt::Key_Tab);
    Keys("12abc");
    Key(Qt::Key_Tab);
    Keys("abc");
    // The sheet can't draw the one side of a notch without width.
    dialogs.ExpectBox("A1: Division by zero");
    Ok(form);
    EXPECT_FALSE(form.isVisible());
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"B2", "12", "0", "0"}}));
  EXPECT_EQ(ProjectDirty, False);
  EXPECT_EQ(Sheet().DrawCount(), drawn + 1);
}

TEST_F(NotchesTest, It_opens_with_its_first_cell_being_edited_and_no_key_is_lost) {
  ShowOne();
  InDialog([](QWidget& form) {
    ExpectEditing(form, 1, 1, "");
    for (const char* text : {"tl1", "20", "30"}) {
      Keys(text);
      Key(Qt::Key_Tab);
    }
    ExpectEditing(form, 1, 4, "");
    Ok(form);
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"TL1", "20", "30", "0"}}));
}

TEST_F(NotchesTest, Every_other_way_out_changes_nothing_and_redraws_the_row_all_the_same) {
  ShowOne(Three);
  const std::vector<std::function<void(QWidget&)>> ways = {
      [](QWidget& form) { ClickButton(form, "SSCommand2(1)"); },
      [](QWidget&) { Key(Qt::Key_C, Qt::AltModifier); },
      [this](QWidget& form) {
        Key(Qt::Key_Escape);  // takes the cell back, and nothing is changed any more
        EXPECT_TRUE(form.isVisible());
        EXPECT_EQ(Cells(form), ThreeTexts);
        Key(Qt::Key_Escape);
      },
      [this](QWidget& form) {
        dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
        form.close();
      },
  };
  for (const auto& leave : ways) {
    const int drawn = Sheet().DrawCount();
    InDialog([&](QWidget& form) {
      Click(form, 1, 2);
      Keys("99");
      leave(form);
      EXPECT_TRUE(QTest::qWaitFor([&form] { return !form.isVisible(); }));
    });
    EXPECT_EQ(Stored(), ThreeTexts);
    EXPECT_EQ(Sheet().DrawCount(), drawn + 1);
  }
}

TEST_F(NotchesTest, Codes_may_repeat_and_sizes_exceed_the_section_without_a_word) {
  ShowOne();
  InDialog([this](QWidget& form) {
    Click(form, 1, 1);
    Codes(form).setFocus();
    Keys("tl1");
    Key(Qt::Key_Tab);
    Keys("9999");
    Key(Qt::Key_Tab);
    Keys("1");
    Key(Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&form] { return Grid(form).Rows() == 3; }));
    Keys("tl1");
    Key(Qt::Key_Tab);
    Keys("2");
    Key(Qt::Key_Tab);
    Keys("3");
    Ok(form);
  });
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"TL1", "9999", "1", "0"}, {"TL1", "2", "3", "0"}}));
  EXPECT_TRUE(dialogs.Boxes().empty());
}

TEST_F(NotchesTest, A_size_beyond_all_numbers_shows_its_error_and_keeps_the_dialog) {
  ShowOne({{"TL1", 1, 2, 3}});
  dialogs.ExpectDialog("frmNotches", [this](QWidget& form) {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return QApplication::activeWindow() == &form; }));
    Click(form, 1, 2);
    Keys("1e99");
    dialogs.ExpectBox("Overflow");
    Ok(form);
    EXPECT_TRUE(form.isVisible());
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&form] { return form.isActiveWindow(); }));
    Click(form, 1, 3);
    dialogs.ExpectBox("Discard the changes?", "", QMessageBox::Yes);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
  });
  Section(NotchesEntry);
  Settle();
  BackToMain();
  EXPECT_EQ(Stored(), (std::vector<Texts>{{"TL1", "1", "2", "3"}}));
}

}  // namespace
}  // namespace orvane::test
